// The kit's drawn pictures: boxes with captions laid on a grid, some of which the user clicks.
// They paint in the desktop's colours, so they read in a light and a dark theme alike.
#include "ui/kit/form_kit_builder.h"
#include <QGridLayout>
#include <QPainter>
#include <QToolButton>

namespace tsl::kit {

namespace {
// A box with its caption in the middle: the window's base colours, or the highlight's.
void paintBox(QWidget& widget, const QString& caption, bool highlighted, bool focused) {
    QPainter painter(&widget);
    const QPalette& palette = widget.palette();
    const QRect box = widget.rect().adjusted(1, 1, -2, -2);
    painter.fillRect(box, palette.color(highlighted ? QPalette::Highlight : QPalette::Base));
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawRect(box);
    if (focused) {
        QPen focus(palette.color(highlighted ? QPalette::HighlightedText : QPalette::Highlight));
        focus.setStyle(Qt::DotLine);
        painter.setPen(focus);
        painter.drawRect(box.adjusted(3, 3, -3, -3));
    }
    painter.setPen(palette.color(highlighted ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, caption);
}

class RegionButton : public QToolButton {
  public:
    RegionButton() {
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        setMinimumSize(24, 18);
    }

  protected:
    void paintEvent(QPaintEvent*) override { paintBox(*this, text(), isChecked(), hasFocus()); }
};

class TileBox : public QWidget {
  public:
    explicit TileBox(const QString& caption) : caption_(caption) {
        setAccessibleName(caption);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        setMinimumSize(20, 14);
    }

  protected:
    void paintEvent(QPaintEvent*) override { paintBox(*this, caption_, false, false); }

  private:
    QString caption_;
};
} // namespace

Item Image(ImageBox& image) {
    return [&image](Builder& b) {
        auto* button = new RegionButton;
        b.bind.imageBox(image, button);
        return Builder::field(button);
    };
}

Item Tile(const QString& caption) {
    return [caption](Builder&) { return Builder::field(new TileBox(caption)); };
}

Item Grid(int columns, int rows, int size, std::vector<Cell> cells) {
    return [columns, rows, size, cells = std::move(cells)](Builder& b) {
        auto* picture = new QWidget;
        auto* grid = new QGridLayout(picture);
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setSpacing(0);
        for (int column = 0; column < columns; ++column)
            grid->setColumnStretch(column, 1);
        for (int row = 0; row < rows; ++row)
            grid->setRowStretch(row, 1);
        for (const Cell& cell : cells)
            grid->addWidget(cell.item(b).widget, cell.y, cell.x, cell.height, cell.width);
        picture->setMinimumSize(size, size * 3 / 4);
        return Builder::field(picture);
    };
}

} // namespace tsl::kit
