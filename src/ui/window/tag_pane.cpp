#include "ui/window/tag_pane.h"
#include "markup/tag_list.h"
#include "shell/shell_core.h"
#include "ui/desktop/icons.h"
#include <QDrag>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>
#include <QVBoxLayout>

namespace tsl {

TagListView::TagListView(ShellCore& shell, QWidget* parent)
    : QListWidget(parent), shell_(shell), tags_(shell.part<TagList>()) {
    setObjectName(QStringLiteral("tvwTags"));
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setSelectionMode(QAbstractItemView::SingleSelection);
    // Tag names stand in blue, a blue that reads on the desktop's base colour.
    QPalette colours = palette();
    colours.setColor(QPalette::Text, readableOnBase(QColor(0, 0, 255), colours));
    setPalette(colours);
    const auto fill = [this] {
        const QStringList& items = tags_.tvwTags.items();
        if (count() != items.size()) {
            clear();
            addItems(items);
        }
        setCurrentRow(tags_.tvwTags.ListIndex());
    };
    fill();
    connect(&tags_.tvwTags, &Control::changed, this, fill);
}

void TagListView::mousePressEvent(QMouseEvent* event) {
    QListWidget::mousePressEvent(event);
    const int row = indexAt(event->position().toPoint()).row();
    if (row < 0) return;
    shell_.dispatch([&] {
        tags_.tvwTags.setListIndex(row);
        tags_.tvwTags_MouseDown(row);
    });
}

void TagListView::mouseDoubleClickEvent(QMouseEvent* event) {
    insertTag(indexAt(event->position().toPoint()).row());
}

void TagListView::keyPressEvent(QKeyEvent* event) {
    const bool insert = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                        event->key() == Qt::Key_Space;
    if (!insert || event->modifiers() & ~Qt::KeypadModifier) {
        QListWidget::keyPressEvent(event);
        return;
    }
    insertTag(currentRow());
}

void TagListView::insertTag(int row) {
    if (row < 0) return;
    shell_.dispatch([&] {
        tags_.tvwTags.setListIndex(row);
        tags_.tvwTags_DblClick();
    });
}

void TagListView::startDrag(Qt::DropActions) {
    QString data;
    bool allowed = false;
    shell_.dispatch([&] { allowed = tags_.tvwTags_OLEStartDrag(data); });
    auto* drag = new QDrag(this);
    auto* mime = new QMimeData;
    mime->setText(data);
    drag->setMimeData(mime);
    // Where the document shows Layout or Preview the drop is refused.
    const Qt::DropAction done = drag->exec(allowed ? Qt::CopyAction : Qt::IgnoreAction);
    const int effect = done == Qt::CopyAction ? 1 : 0;
    shell_.dispatch([&] { tags_.tvwTags_OLECompleteDrag(effect); });
}

TagPane::TagPane(ShellCore& shell, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Picture1"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    auto* header = new QHBoxLayout;
    auto* title = new QLabel(QStringLiteral("Tag List"), this);
    title->setObjectName(QStringLiteral("Label1"));
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setText(QStringLiteral("×"));
    close->setAutoRaise(true);
    close->setToolTip(QStringLiteral("Close"));
    header->addWidget(title, 1);
    header->addWidget(close);
    layout->addLayout(header);
    list_ = new TagListView(shell, this);
    layout->addWidget(list_, 1);
    connect(close, &QToolButton::clicked, this, [&shell] {
        shell.dispatch([&] { shell.runMenuClick(QStringLiteral("mnuViewTagList")); });
        // The focus goes back to the document.
        shell.dispatch([&] {
            if (codeEditor* doc = shell.ActiveForm()) doc->codebox().SetFocus();
        });
    });
}

PaneSizer::PaneSizer(ShellCore& shell, QWidget* parent) : QWidget(parent), shell_(shell) {
    setObjectName(QStringLiteral("imgSizer"));
    setFixedWidth(5);
    setCursor(Qt::SplitHCursor);
}

int PaneSizer::twips(int pixels) const {
    return pixels * 1440 / logicalDpiX();
}

void PaneSizer::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) shell_.imgSizer_MouseDown();
}

void PaneSizer::mouseMoveEvent(QMouseEvent* event) {
    const int x = twips(static_cast<int>(event->position().x()));
    shell_.dispatch([&] { shell_.imgSizer_MouseMove(x); });
}

void PaneSizer::mouseReleaseEvent(QMouseEvent*) {
    shell_.imgSizer_MouseUp();
}

void PaneSizer::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().mid().color());
    painter.drawLine(width() / 2, 0, width() / 2, height());
}

} // namespace tsl
