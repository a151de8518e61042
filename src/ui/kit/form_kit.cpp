#include "ui/kit/form_kit.h"
#include "shell/dialog_context.h"
#include "ui/kit/binders.h"
#include "ui/kit/combo_widget.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit_builder.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

namespace tsl::kit {

namespace {
void place(QBoxLayout* box, const Built& built) {
    if (built.isStretch)
        box->addStretch(built.stretch);
    else if (built.layout)
        box->addLayout(built.layout, built.stretch);
    else if (built.widget)
        box->addWidget(built.widget, built.stretch);
}

Item boxOf(std::function<QBoxLayout*()> make, std::vector<Item> items) {
    return [make = std::move(make), items = std::move(items)](Builder& b) {
        Built built;
        auto* box = make();
        for (const Item& item : items)
            place(box, item(b));
        built.layout = box;
        return built;
    };
}

QToolButton* arrow(Qt::ArrowType type, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setArrowType(type);
    button->setFixedSize(18, 12);
    return button;
}
} // namespace

Item Column(std::vector<Item> items) {
    return boxOf([] { return new QVBoxLayout; }, std::move(items));
}

Item Row(std::vector<Item> items) {
    return boxOf([] { return new QHBoxLayout; }, std::move(items));
}

Item Stretch(int factor) {
    return [factor](Builder&) {
        Built built;
        built.isStretch = true;
        built.stretch = factor;
        return built;
    };
}

Item Spacing(int pixels) {
    return [pixels](Builder&) {
        auto* layout = new QVBoxLayout;
        layout->addSpacing(pixels);
        Built built;
        built.layout = layout;
        return built;
    };
}

Item Stretched(int factor, Item item) {
    return [factor, item = std::move(item)](Builder& b) {
        Built built = item(b);
        built.stretch = factor;
        return built;
    };
}

Item Group(Label& frame, std::vector<Item> rows) {
    return [&frame, rows = std::move(rows)](Builder& b) {
        auto* box = new QGroupBox;
        b.bind.frame(frame, box);
        auto* grid = new QGridLayout(box);
        int row = 0;
        for (const Item& item : rows) {
            const Built built = item(b);
            if (built.isStretch) {
                grid->setRowStretch(row, built.stretch);
                continue;
            }
            QWidget* widget = built.widget;
            if (!widget) { // a layout across the row
                grid->addLayout(built.layout, row++, 0, 1, 2);
                continue;
            }
            if (built.caption) {
                grid->addWidget(b.label(*built.caption, built.focus), row, 0);
                grid->addWidget(widget, row++, 1);
            } else {
                grid->addWidget(widget, row++, 0, 1, 2);
            }
        }
        return Builder::field(box);
    };
}

namespace {
void addRows(Builder& b, QFormLayout* form, const std::vector<Item>& rows) {
    for (const Item& item : rows) {
        const Built built = item(b);
        if (built.isStretch) continue;
        if (built.caption)
            form->addRow(b.label(*built.caption, built.focus), built.widget);
        else if (built.widget)
            form->addRow(built.widget);
        else
            form->addRow(built.layout);
    }
}
} // namespace

Item FormGroup(Label& frame, std::vector<Item> rows) {
    return [&frame, rows = std::move(rows)](Builder& b) {
        auto* box = new QGroupBox;
        b.bind.frame(frame, box);
        addRows(b, new QFormLayout(box), rows);
        return Builder::field(box);
    };
}

Item Rows(std::vector<Item> rows) {
    return [rows = std::move(rows)](Builder& b) {
        auto* form = new QFormLayout;
        addRows(b, form, rows);
        Built built;
        built.layout = form;
        return built;
    };
}

Item Named(const QString& name, Item field) {
    return [name, field = std::move(field)](Builder& b) {
        Built built = field(b);
        if (QWidget* target = built.focus ? built.focus : built.widget)
            target->setAccessibleName(name);
        return built;
    };
}

Item Field(Label& caption, Item field) {
    return [&caption, field = std::move(field)](Builder& b) {
        Built built = field(b);
        built.caption = &caption;
        return built;
    };
}

Item Text(TextBox& box, int width) {
    return [&box, width](Builder& b) {
        auto* edit = new QLineEdit;
        b.bind.textBox(box, edit);
        // A box as wide as asked, and never too narrow for as much as may be typed in it in
        // the desktop's font ("#C0C0C0" whole in a colour box).
        const int room = box.MaxLength > 0
                             ? edit->fontMetrics().horizontalAdvance(QString(box.MaxLength, u'D')) +
                                   edit->textMargins().left() + edit->textMargins().right() + 14
                             : 0;
        if (width > 0) edit->setFixedWidth(std::max(width, room));
        return Builder::field(edit);
    };
}

Item Spin(TextBox& box, UpDown& spinner) {
    return [&box, &spinner](Builder& b) {
        auto* row = new QWidget;
        auto* layout = Builder::strip(row, 1);
        auto* edit = static_cast<QLineEdit*>(Text(box, 48)(b).widget);
        layout->addWidget(edit);
        auto* arrows = new QVBoxLayout;
        arrows->setSpacing(0);
        auto* up = arrow(Qt::UpArrow, row);
        auto* down = arrow(Qt::DownArrow, row);
        arrows->addWidget(up);
        arrows->addWidget(down);
        b.bind.upDown(spinner, edit, up, down);
        up->setObjectName(spinner.name() + QStringLiteral("Up"));
        down->setObjectName(spinner.name() + QStringLiteral("Down"));
        layout->addLayout(arrows);
        layout->addStretch(1);
        return Builder::field(row, edit);
    };
}

Item Combo(ComboBox& box, int minimumWidth) {
    return [&box, minimumWidth](Builder& b) {
        auto* widget = new ComboWidget;
        if (minimumWidth > 0) widget->setMinimumWidth(minimumWidth);
        b.bind.comboBox(box, widget);
        return Builder::field(widget);
    };
}

Item Check(CheckBox& box) {
    return [&box](Builder& b) {
        auto* widget = new QCheckBox;
        b.bind.checkBox(box, widget);
        return Builder::field(widget);
    };
}

Item Option(OptionButton& option) {
    return [&option](Builder& b) {
        auto* widget = new QRadioButton;
        b.bind.optionButton(option, widget);
        return Builder::field(widget);
    };
}

Item Picked(TextBox& box, CommandButton& button, int width) {
    return [&box, &button, width](Builder& b) {
        auto* row = new QWidget;
        auto* layout = Builder::strip(row);
        QWidget* edit = Text(box, width)(b).widget;
        layout->addWidget(edit, width > 0 ? 0 : 1);
        auto* push = new QPushButton;
        // A "..." button stays small; a worded one is as wide as its words.
        if (button.Caption().size() <= 3) push->setFixedWidth(32);
        // Enter stays with the dialog's default button.
        push->setAutoDefault(false);
        b.bind.button(button, push);
        layout->addWidget(push);
        if (width > 0) layout->addStretch(1);
        return Builder::field(row, edit);
    };
}

namespace {
Item area(Label& control, std::vector<Item> rows, bool framed) {
    return [&control, rows = std::move(rows), framed](Builder& b) {
        auto* frame = new QFrame;
        if (framed) {
            frame->setFrameShape(QFrame::StyledPanel);
            frame->setFrameShadow(QFrame::Sunken);
        }
        b.bind.panel(control, frame);
        auto* column = new QVBoxLayout(frame);
        if (!framed) column->setContentsMargins(0, 0, 0, 0);
        for (const Item& item : rows)
            place(column, item(b));
        return Builder::field(frame);
    };
}
} // namespace

Item Picture(Label& control, std::vector<Item> rows) {
    return area(control, std::move(rows), true);
}

Item Panel(Label& control, std::vector<Item> rows) {
    return area(control, std::move(rows), false);
}

Item Panels(std::vector<Item> panels) {
    return [panels = std::move(panels)](Builder& b) {
        auto* stack = new QWidget;
        auto* grid = new QGridLayout(stack);
        grid->setContentsMargins(0, 0, 0, 0);
        for (const Item& item : panels) {
            QWidget* panel = item(b).widget;
            // The room of the largest panel stays, so the dialog keeps its size as they turn.
            QSizePolicy policy = panel->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            panel->setSizePolicy(policy);
            grid->addWidget(panel, 0, 0);
        }
        return Builder::field(stack);
    };
}

Item Note(Label& label, int style) {
    return [&label, style](Builder& b) {
        QLabel* widget = b.label(label, nullptr);
        if (style & Centered) widget->setAlignment(Qt::AlignCenter);
        widget->setWordWrap(style & Wrapped);
        if (style & Big) {
            QFont big = widget->font();
            big.setPointSizeF(big.pointSizeF() * 2);
            big.setBold(true);
            widget->setFont(big);
        }
        return Builder::field(widget);
    };
}

Item Link(Label& label, std::function<void()> click) {
    return [&label, click = std::move(click)](Builder& b) {
        QLabel* widget = b.label(label, nullptr);
        widget->setText(
            QStringLiteral("<a href=\"#\">%1</a>").arg(label.Caption().toHtmlEscaped()));
        widget->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        widget->setAlignment(Qt::AlignCenter);
        QObject::connect(widget, &QLabel::linkActivated, widget,
                         [shell = &b.shell, click] { shell->dispatch(click); });
        return Builder::field(widget);
    };
}

Item Buttons(std::vector<CommandButton*> buttons) {
    return [buttons = std::move(buttons)](Builder& b) {
        auto* box = new QDialogButtonBox;
        for (CommandButton* button : buttons) {
            // A button that only cancels sits where the desktop puts Cancel.
            const bool onlyCancel = button->Cancel && !button->Default();
            QPushButton* push =
                box->addButton(QString(), onlyCancel ? QDialogButtonBox::RejectRole
                                                     : QDialogButtonBox::AcceptRole);
            b.bind.button(*button, push);
        }
        return Builder::field(box);
    };
}

Item Button(CommandButton& button) {
    return [&button](Builder& b) {
        auto* push = new QPushButton;
        push->setAutoDefault(false);
        b.bind.button(button, push);
        if (button.Default()) push->setDefault(true);
        return Builder::field(push);
    };
}

Item List(ListControl& list, int rows) {
    return [&list, rows](Builder& b) {
        auto* widget = new QListWidget;
        b.bind.listBox(list, widget);
        widget->setMinimumHeight(rows * widget->fontMetrics().height() + 8);
        return Builder::field(widget);
    };
}

Item Progress(ProgressBar& bar) {
    return [&bar](Builder& b) {
        auto* widget = new QProgressBar;
        b.bind.progressBar(bar, widget);
        return Builder::field(widget);
    };
}

Item Drives(DriveListBox& drives) {
    return [&drives](Builder& b) {
        auto* widget = new ComboWidget;
        b.bind.driveList(drives, widget);
        return Builder::field(widget);
    };
}

Item Folders(DirListBox& folders) {
    return [&folders](Builder& b) {
        auto* widget = new QTreeView;
        b.bind.folderTree(folders, widget);
        widget->setMinimumSize(220, 200);
        return Builder::field(widget);
    };
}

void build(FormDialog& dialog, DialogContext& shell, const Item& root) {
    Builder builder(shell);
    const Built built = root(builder);
    if (built.layout) {
        dialog.setLayout(built.layout);
    } else {
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(built.widget);
    }
    // The buttons run the form's handlers themselves, not the box's accept and reject.
    for (QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>())
        QObject::disconnect(box, nullptr, &dialog, nullptr);
    // Enter presses the form's default button; set once the button is in its dialog.
    if (CommandButton* button = dialog.form().defaultButton())
        if (auto* push = dialog.findChild<QPushButton*>(button->name())) push->setDefault(true);
}

} // namespace tsl::kit
