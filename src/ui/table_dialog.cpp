// The Insert Table dialog on screen: the groups Layout, Table Width, Background and Border
// Colours, then OK and Cancel.
#include "dialogs/frm_table.h"
#include "shell/shell_mdi.h"
#include "ui/binders.h"
#include "ui/form_host.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tsl {

namespace {
// Builds the widgets of one dialog and binds each to its control.
class TableView {
  public:
    TableView(frmTable& form, ShellMDI& shell) : form_(form), bind_(shell) {}

    QGroupBox* group(Label& frame) {
        auto* box = new QGroupBox;
        bind_.frame(frame, box);
        return box;
    }
    QLabel* label(Label& control, QWidget* buddy = nullptr) {
        auto* widget = new QLabel;
        bind_.label(control, widget);
        if (buddy) widget->setBuddy(buddy);
        return widget;
    }
    QLineEdit* text(TextBox& control, int width = 0) {
        auto* edit = new QLineEdit;
        bind_.textBox(control, edit);
        if (width > 0) edit->setFixedWidth(width);
        return edit;
    }
    // A text box with its spinner's two arrows.
    QWidget* spun(TextBox& box, UpDown& spinner) {
        auto* row = new QWidget;
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(1);
        layout->addWidget(text(box, 48));
        auto* arrows = new QVBoxLayout;
        arrows->setSpacing(0);
        auto* up = arrow(Qt::UpArrow, row);
        auto* down = arrow(Qt::DownArrow, row);
        arrows->addWidget(up);
        arrows->addWidget(down);
        bind_.upDown(spinner, up, down);
        up->setObjectName(spinner.name() + QStringLiteral("Up"));
        down->setObjectName(spinner.name() + QStringLiteral("Down"));
        layout->addLayout(arrows);
        layout->addStretch(1);
        return row;
    }
    // A text box with the button that fills it.
    QWidget* picked(TextBox& box, CommandButton& button, int width = 0) {
        auto* row = new QWidget;
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(text(box, width), width > 0 ? 0 : 1);
        auto* push = new QPushButton;
        push->setFixedWidth(32);
        push->setAutoDefault(false);
        bind_.button(button, push);
        layout->addWidget(push);
        if (width > 0) layout->addStretch(1);
        return row;
    }
    QComboBox* combo(ComboBox& control) {
        auto* widget = new QComboBox;
        bind_.comboBox(control, widget);
        return widget;
    }
    QRadioButton* option(OptionButton& control) {
        auto* widget = new QRadioButton;
        bind_.optionButton(control, widget);
        return widget;
    }

    QGroupBox* layoutGroup();
    QGroupBox* widthGroup();
    QGroupBox* backgroundGroup();
    QGroupBox* borderGroup();
    QDialogButtonBox* buttons(FormDialog& dialog);

  private:
    static QToolButton* arrow(Qt::ArrowType type, QWidget* parent) {
        auto* button = new QToolButton(parent);
        button->setArrowType(type);
        button->setFixedSize(18, 12);
        return button;
    }
    // A label and its field in the next row of a grid.
    void addRow(QGridLayout* grid, Label& caption, QWidget* field, QWidget* buddy = nullptr) {
        const int row = grid->rowCount();
        grid->addWidget(label(caption, buddy ? buddy : field), row, 0);
        grid->addWidget(field, row, 1);
    }
    frmTable& form_;
    Binder bind_;
};

QGroupBox* TableView::layoutGroup() {
    QGroupBox* box = group(form_.fraLayout);
    auto* grid = new QGridLayout(box);
    addRow(grid, form_.lblCols, spun(form_.ColBox, form_.ColUpDown));
    addRow(grid, form_.lblRows, spun(form_.RowBox, form_.RowUpDown));
    addRow(grid, form_.lblSpacing, spun(form_.Spacing, form_.UpDownS));
    addRow(grid, form_.lblPadding, spun(form_.Padding, form_.UpDownP));
    addRow(grid, form_.lblBorder, spun(form_.BorderBox, form_.UpDownB));
    grid->addWidget(label(form_.lblAlignment), grid->rowCount(), 0, 1, 2);
    addRow(grid, form_.lblHorizontal, combo(form_.Alignment));
    addRow(grid, form_.lblVertical, combo(form_.cmbVAlign));
    grid->setRowStretch(grid->rowCount(), 1);
    return box;
}

QGroupBox* TableView::widthGroup() {
    QGroupBox* box = group(form_.fraWidth);
    auto* grid = new QGridLayout(box);
    auto* custom = new QCheckBox;
    bind_.checkBox(form_.WidthCheck, custom);
    grid->addWidget(custom, 0, 0, 1, 2);
    addRow(grid, form_.lblWidth, spun(form_.WidthBox, form_.UpDown1));
    grid->addWidget(option(form_.PercentOpt), grid->rowCount(), 0, 1, 2);
    grid->addWidget(option(form_.PixelsOpt), grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    return box;
}

QGroupBox* TableView::backgroundGroup() {
    QGroupBox* box = group(form_.fraBackground);
    auto* grid = new QGridLayout(box);
    addRow(grid, form_.lblBGColour, picked(form_.txtBGColour, form_.BGBrowse, 70));
    addRow(grid, form_.lblBackground, picked(form_.BackgroundBox, form_.Browse));
    return box;
}

QGroupBox* TableView::borderGroup() {
    QGroupBox* box = group(form_.fraBorder);
    auto* grid = new QGridLayout(box);
    grid->addWidget(option(form_.optNone), 0, 0, 1, 2);
    grid->addWidget(option(form_.optAllSides), 1, 0, 1, 2);
    grid->addWidget(option(form_.optSpecLD), 2, 0, 1, 2);
    addRow(grid, form_.lblBC, picked(form_.txtBC, form_.cmdBC, 70));
    addRow(grid, form_.lblLB, picked(form_.txtLB, form_.cmdLB, 70));
    addRow(grid, form_.lblDB, picked(form_.txtDB, form_.cmdDB, 70));
    return box;
}

QDialogButtonBox* TableView::buttons(FormDialog& dialog) {
    auto* box = new QDialogButtonBox;
    auto* ok = box->addButton(QString(), QDialogButtonBox::AcceptRole);
    auto* cancel = box->addButton(QString(), QDialogButtonBox::RejectRole);
    // The buttons run the form's handlers themselves, not the box's accept and reject.
    ok->setDefault(true);
    bind_.button(form_.OK, ok);
    bind_.button(form_.Cancel, cancel);
    QObject::disconnect(box, nullptr, &dialog, nullptr);
    return box;
}
} // namespace

void buildTableView(Form& base, FormDialog& dialog, ShellMDI& shell) {
    auto& form = static_cast<frmTable&>(base);
    TableView view(form, shell);
    dialog.setFont(QFont(QStringLiteral("Tahoma"), dialog.font().pointSize()));

    auto* columns = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(view.layoutGroup());
    left->addWidget(view.widthGroup());
    auto* right = new QVBoxLayout;
    right->addWidget(view.backgroundGroup());
    right->addWidget(view.borderGroup());
    right->addStretch(1);
    columns->addLayout(left);
    columns->addLayout(right, 1);

    auto* layout = new QVBoxLayout(&dialog);
    layout->addLayout(columns);
    layout->addWidget(view.buttons(dialog));
    dialog.onCloseBox = [&form, &shell] { shell.dispatch([&form] { form.Cancel_Click(); }); };
}

} // namespace tsl
