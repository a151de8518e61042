#include "ui/kit/binders.h"
#include "shell/dialog_context.h"
#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTreeView>
#include <memory>
#include <optional>

namespace tsl {

namespace {
QLineEdit* lineEditOf(QObject* widget) {
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->lineEdit();
    return qobject_cast<QLineEdit*>(widget);
}

// Hands the typed characters of a text box or an editable combo to its KeyPress handler,
// which may drop them or put another in their place. A key it lets through is typed while
// `typing()` holds, so the change it makes is known as typed and not filtered again.
class KeyPressFilter : public QObject {
  public:
    using Handler = std::function<void(int&)>;
    KeyPressFilter(const Handler& handler, QObject* parent,
                   std::function<void(std::function<void()>)> run)
        : QObject(parent), handler_(handler), run_(std::move(run)) {}
    bool typing() const { return typing_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !handler_ || typing_)
            return QObject::eventFilter(watched, event);
        auto* key = static_cast<QKeyEvent*>(event);
        int ascii = 0;
        if (key->key() == Qt::Key_Backspace)
            ascii = 8;
        else if (!key->text().isEmpty() && key->text().at(0).unicode() >= 32 &&
                 !(key->modifiers() & Qt::ControlModifier))
            ascii = key->text().at(0).unicode();
        if (ascii == 0) return false; // caret keys and shortcuts are no characters
        const int typed = ascii;
        run_([&] { handler_(ascii); });
        if (ascii == 0) return true;
        QLineEdit* edit = lineEditOf(watched);
        typing_ = true;
        if (ascii == typed || ascii == 8 || !edit)
            watched->event(event);
        else // the handler put another character in place of the typed one
            edit->insert(QString(QChar(ascii)));
        typing_ = false;
        return true;
    }

  private:
    const Handler& handler_;
    std::function<void(std::function<void()>)> run_;
    bool typing_ = false;
};

// Text that reached a text box or an editable combo: a key let through is taken as it stands,
// anything else goes through the key filter a character at a time.
template <typename C>
void take(DialogContext& shell, C& control, const KeyPressFilter& keys, const QString& text) {
    const QString arrived = text; // the widget's own string may change meanwhile
    shell.dispatch([&] {
        if (keys.typing())
            control.setText(arrived);
        else
            control.receiveText(arrived);
    });
}

KeyPressFilter* keyPressFilter(const std::function<void(int&)>& handler, QWidget* widget,
                               DialogContext& shell) {
    auto* filter = new KeyPressFilter(
        handler, widget, [shell = &shell](std::function<void()> h) { shell->dispatch(h); });
    widget->installEventFilter(filter);
    return filter;
}

// Up, Down, Page Up and Page Down in a spinner's box step its value.
class StepKeys : public QObject {
  public:
    StepKeys(UpDown& spinner, DialogContext& shell, QObject* parent)
        : QObject(parent), spinner_(spinner), shell_(shell) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & ~Qt::KeypadModifier) return false;
        int steps = 0;
        switch (key->key()) {
        case Qt::Key_Up:
            steps = 1;
            break;
        case Qt::Key_Down:
            steps = -1;
            break;
        case Qt::Key_PageUp:
            steps = 10;
            break;
        case Qt::Key_PageDown:
            steps = -10;
            break;
        default:
            return false;
        }
        if (spinner_.Enabled()) shell_.dispatch([&] { spinner_.step(steps); });
        return true;
    }

  private:
    UpDown& spinner_;
    DialogContext& shell_;
};

// Fills a list widget or a combo with the control's entries when they differ from those shown.
// The list shown is kept to compare: a list that has not changed shares its data, so the test
// costs nothing on the frequent updates of the text or the selection alone.
template <typename W> void showItems(const ListControl& control, W* widget, QStringList& shown) {
    if (shown == control.items()) return;
    shown = control.items();
    widget->clear();
    widget->addItems(shown);
}
} // namespace

void Binder::common(Control& control, QWidget* widget) {
    widget->setObjectName(control.name());
    const auto update = [&control, widget] {
        widget->setEnabled(control.Enabled());
        // A hidden control stays hidden; a visible one shows with its dialog.
        if (!control.Visible())
            widget->hide();
        else if (widget->isHidden() && widget->parentWidget() &&
                 widget->parentWidget()->isVisible())
            widget->show();
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(&control, &Control::focusRequested, widget, [widget] { widget->setFocus(); });
    if (!control.ToolTipText.isEmpty()) widget->setToolTip(control.ToolTipText);
}

namespace {
QColor colourOf(int colour, const QWidget* widget) {
    if (colour == Control::kButtonFace)
        return QApplication::palette(widget).color(QPalette::Active, QPalette::Button);
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

// A control's own colours over the desktop's: a label's area and text, a text box's field
// and text. Back to the desktop's own when it has none any more.
void paint(const Control& control, QWidget* widget, QPalette::ColorRole back,
           QPalette::ColorRole fore) {
    if (control.BackColor() == Control::kDefaultColour &&
        control.ForeColor() == Control::kDefaultColour) {
        if (widget->testAttribute(Qt::WA_SetPalette)) widget->setPalette(QPalette());
        return;
    }
    QPalette palette = widget->palette();
    if (control.BackColor() != Control::kDefaultColour) {
        widget->setAutoFillBackground(back == QPalette::Window);
        palette.setColor(back, colourOf(control.BackColor(), widget));
    }
    if (control.ForeColor() != Control::kDefaultColour)
        palette.setColor(fore, colourOf(control.ForeColor(), widget));
    widget->setPalette(palette);
}

void paint(const Label& control, QWidget* widget) {
    paint(control, widget, QPalette::Window, QPalette::WindowText);
}

bool hasFont(const Label& control) {
    return control.FontBold() || control.FontItalic() || control.FontUnderline() ||
           control.FontStrikethru() || control.FontSize() > 0 || !control.FontName().isEmpty();
}

// A label's own font over the one it had before it had one of its own.
void setFont(const Label& control, QWidget* widget, const QFont& base) {
    QFont font = base;
    if (!control.FontName().isEmpty()) font.setFamily(control.FontName());
    if (control.FontSize() > 0) font.setPointSizeF(control.FontSize());
    font.setBold(control.FontBold());
    font.setItalic(control.FontItalic());
    font.setUnderline(control.FontUnderline());
    font.setStrikeOut(control.FontStrikethru());
    if (font != widget->font()) widget->setFont(font);
}
} // namespace

void Binder::label(Label& control, QLabel* widget) {
    common(control, widget);
    auto base = std::make_shared<std::optional<QFont>>();
    const auto update = [&control, widget, base] {
        widget->setText(control.Caption());
        paint(control, widget);
        if (!*base && !hasFont(control)) return;
        if (!*base) *base = widget->font();
        setFont(control, widget, **base);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
}

void Binder::panel(Label& control, QWidget* widget) {
    common(control, widget);
    const auto update = [&control, widget] { paint(control, widget); };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
}

void Binder::frame(Label& control, QGroupBox* widget) {
    common(control, widget);
    const auto update = [&control, widget] { widget->setTitle(control.Caption()); };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
}

void Binder::textBox(TextBox& control, QLineEdit* widget) {
    common(control, widget);
    const auto update = [&control, widget] {
        if (widget->text() != control.Text()) widget->setText(control.Text());
        // The box's own limit would cut a longer text the logic puts in: it stays at the
        // length of what is there, so typing stops at the limit and deleting goes on.
        if (control.MaxLength > 0)
            widget->setMaxLength(std::max(control.MaxLength, int(control.Text().size())));
        widget->setReadOnly(control.Locked);
        paint(control, widget, QPalette::Base, QPalette::Text);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    // Key filters read the caret and the selection.
    const auto caret = [&control, widget] {
        control.SelStart =
            widget->hasSelectedText() ? widget->selectionStart() : widget->cursorPosition();
        control.SelLength = static_cast<int>(widget->selectedText().size());
    };
    KeyPressFilter* keys = keyPressFilter(control.KeyPress, widget, shell_);
    // Text reaches the box in many ways: typed, pasted, dropped, from an input method or an
    // assistive tool. Each runs Change; what was not typed key by key is filtered here.
    QObject::connect(widget, &QLineEdit::textChanged, widget,
                     [shell = &shell_, &control, widget, keys, caret](const QString& text) {
                         if (text == control.Text()) return; // the logic's own write
                         take(*shell, control, *keys, text);
                         if (widget->text() != control.Text()) widget->setText(control.Text());
                         caret();
                     });
    QObject::connect(&control, &Control::selectAllRequested, widget, [widget] {
        widget->setFocus();
        widget->selectAll();
    });
    QObject::connect(widget, &QLineEdit::selectionChanged, widget, caret);
    QObject::connect(widget, &QLineEdit::cursorPositionChanged, widget, caret);
}

void Binder::checkBox(CheckBox& control, QCheckBox* widget) {
    common(control, widget);
    const auto update = [&control, widget] {
        const QSignalBlocker quiet(widget);
        widget->setText(control.Caption());
        widget->setChecked(control.Value() == 1);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, &QCheckBox::toggled, widget, [shell = &shell_, &control](bool on) {
        shell->dispatch([&] { control.setValue(on ? 1 : 0); });
    });
}

void Binder::optionButton(OptionButton& control, QRadioButton* widget) {
    common(control, widget);
    // The options of a group exclude each other on screen as in the model, which keeps
    // them read as radio buttons and lets the arrow keys move among them.
    const std::vector<OptionButton*> members = control.groupMembers();
    QButtonGroup*& group = groups_[members.empty() ? static_cast<void*>(&control)
                                                   : static_cast<void*>(members.front())];
    if (!group) group = new QButtonGroup(widget);
    group->addButton(widget);
    const auto update = [&control, widget, group] {
        const QSignalBlocker quiet(widget);
        widget->setText(control.Caption());
        if (widget->isChecked() == control.Value()) return;
        // An exclusive group keeps one option on; the model may turn them all off.
        group->setExclusive(control.Value());
        widget->setChecked(control.Value());
        group->setExclusive(true);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    // Every way of choosing runs Click once: a click, Space, an arrow key and an assistive
    // tool's toggle turn the option on; a click on the chosen option chooses it again.
    auto chosen = std::make_shared<bool>(false);
    QObject::connect(widget, &QAbstractButton::pressed, widget,
                     [&control, chosen] { *chosen = control.Value(); });
    QObject::connect(widget, &QAbstractButton::toggled, widget,
                     [shell = &shell_, &control, update](bool on) {
                         // Turned off, it waits for the option turned on to tell the model.
                         if (!on || control.Value()) return;
                         shell->dispatch([&] { control.setValue(true); });
                         update();
                     });
    QObject::connect(widget, &QAbstractButton::clicked, widget,
                     [shell = &shell_, &control, chosen] {
                         if (*chosen) shell->dispatch([&] { control.setValue(true); });
                         *chosen = false;
                     });
}

void Binder::comboBox(ComboBox& control, QComboBox* widget) {
    common(control, widget);
    widget->setEditable(control.style() != ComboBox::DropDownList);
    auto shown = std::make_shared<QStringList>();
    // While the combo changes its own text and choice, showing the model's choice would undo
    // the user's before the combo tells which entry was chosen.
    auto busy = std::make_shared<bool>(false);
    const auto update = [&control, widget, shown, busy] {
        if (*busy) return;
        const QSignalBlocker quiet(widget);
        showItems(control, widget, *shown);
        widget->setCurrentIndex(control.ListIndex());
        if (widget->isEditable() && widget->currentText() != control.Text())
            widget->setEditText(control.Text());
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    // A choice from the list, by mouse, keys or an assistive tool, runs Click at once.
    QObject::connect(widget, qOverload<int>(&QComboBox::activated), widget,
                     [shell = &shell_, &control, update](int index) {
                         if (index >= 0 && index < control.ListCount())
                             shell->dispatch([&] { control.setListIndex(index); });
                         update();
                     });
    if (!widget->isEditable()) return;
    KeyPressFilter* keys = keyPressFilter(control.KeyPress, widget, shell_);
    QObject::connect(widget, &QComboBox::editTextChanged, widget,
                     [shell = &shell_, &control, keys, busy, widget, update](const QString& text) {
                         if (text == control.Text()) return;
                         *busy = true;
                         take(*shell, control, *keys, text);
                         *busy = false;
                         QMetaObject::invokeMethod(widget, update, Qt::QueuedConnection);
                     });
}

void Binder::button(CommandButton& control, QAbstractButton* widget) {
    common(control, widget);
    const auto update = [&control, widget] {
        widget->setText(control.Caption());
        // A button takes its default part only in its dialog, which must know of it.
        auto* push = qobject_cast<QPushButton*>(widget);
        if (push && qobject_cast<QDialog*>(push->window())) push->setDefault(control.Default());
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, &QAbstractButton::clicked, widget,
                     [shell = &shell_, &control] { shell->dispatch([&] { control.press(); }); });
}

void Binder::imageBox(ImageBox& control, QAbstractButton* widget) {
    common(control, widget);
    widget->setCheckable(true);
    const auto update = [&control, widget] {
        widget->setChecked(control.Highlighted());
        widget->setText(control.Caption());
        widget->setAccessibleName(control.Caption());
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    // A click runs the handler, which decides what is highlighted: the button's own toggle
    // is put back to the control's state after it.
    QObject::connect(widget, &QAbstractButton::clicked, widget,
                     [shell = &shell_, &control, update] {
                         shell->dispatch([&] { control.press(); });
                         update();
                     });
}

void Binder::upDown(UpDown& control, QLineEdit* box, QAbstractButton* up, QAbstractButton* down) {
    common(control, up);
    common(control, down);
    // One stop for the keyboard: the box, whose arrow keys step the value. The arrows are
    // for the mouse, named for assistive tools.
    box->installEventFilter(new StepKeys(control, shell_, box));
    up->setAccessibleName(QStringLiteral("Increase"));
    down->setAccessibleName(QStringLiteral("Decrease"));
    for (QAbstractButton* arrow : {up, down}) {
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setAutoRepeat(true);
    }
    QObject::connect(up, &QAbstractButton::clicked, up,
                     [shell = &shell_, &control] { shell->dispatch([&] { control.stepUp(); }); });
    QObject::connect(down, &QAbstractButton::clicked, down,
                     [shell = &shell_, &control] { shell->dispatch([&] { control.stepDown(); }); });
}

} // namespace tsl

namespace tsl {

void Binder::listBox(ListControl& control, QListWidget* widget) {
    common(control, widget);
    widget->setSelectionMode(control.MultiSelect ? QAbstractItemView::ExtendedSelection
                                                 : QAbstractItemView::SingleSelection);
    auto shown = std::make_shared<QStringList>();
    const auto update = [&control, widget, shown] {
        const QSignalBlocker quiet(widget);
        showItems(control, widget, *shown);
        for (int i = 0; i < widget->count(); ++i)
            widget->item(i)->setSelected(control.Selected(i));
        if (control.ListIndex() >= 0)
            widget->setCurrentRow(control.ListIndex(), control.MultiSelect
                                                           ? QItemSelectionModel::NoUpdate
                                                           : QItemSelectionModel::ClearAndSelect);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, &QListWidget::itemSelectionChanged, widget,
                     [shell = &shell_, &control, widget] {
                         shell->dispatch([&] {
                             for (int i = 0; i < widget->count() && control.MultiSelect; ++i)
                                 control.setSelected(i, widget->item(i)->isSelected());
                             const int row = widget->currentRow();
                             if (row >= 0 && row < control.ListCount()) control.setListIndex(row);
                         });
                     });
    QObject::connect(widget, &QListWidget::itemDoubleClicked, widget,
                     [shell = &shell_, &control, widget](QListWidgetItem* item) {
                         shell->dispatch([&] {
                             control.setListIndex(widget->row(item));
                             if (control.DblClick) control.DblClick();
                         });
                     });
}

void Binder::progressBar(ProgressBar& control, QProgressBar* widget) {
    common(control, widget);
    auto clock = std::make_shared<QElapsedTimer>();
    const auto update = [&control, widget, clock] {
        widget->setRange(control.Min, control.Max);
        widget->setValue(control.Value());
        // A run holds the one thread: the bar paints at once, and a few times a second the
        // window repaints too, taking no input meanwhile.
        widget->repaint();
        if (!clock->isValid() || clock->elapsed() > 100) {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            clock->start();
        }
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
}

void Binder::driveList(DriveListBox& control, QComboBox* widget) {
    common(control, widget);
    widget->addItems(control.items());
    const auto update = [&control, widget] {
        const QSignalBlocker quiet(widget);
        widget->setCurrentIndex(control.ListIndex());
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, qOverload<int>(&QComboBox::activated), widget,
                     [shell = &shell_, &control](int index) {
                         shell->dispatch([&] { control.setDrive(control.List(index)); });
                     });
}

void Binder::folderTree(DirListBox& control, QTreeView* widget) {
    common(control, widget);
    auto* model = new QFileSystemModel(widget);
    model->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    model->setRootPath(QStringLiteral("/"));
    widget->setModel(model);
    widget->setHeaderHidden(true);
    for (int column = 1; column < model->columnCount(); ++column)
        widget->hideColumn(column);
    const auto update = [&control, widget, model] {
        if (control.Path().isEmpty()) return;
        const QModelIndex index = model->index(control.Path());
        if (index == widget->currentIndex()) return;
        const QSignalBlocker quiet(widget->selectionModel());
        widget->setCurrentIndex(index);
        widget->expand(index);
        widget->scrollTo(index);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget->selectionModel(), &QItemSelectionModel::currentChanged, widget,
                     [shell = &shell_, &control, model](const QModelIndex& current) {
                         const QString path = model->filePath(current);
                         if (!path.isEmpty() && path != control.Path())
                             shell->dispatch([&] { control.setPath(path); });
                     });
}

} // namespace tsl
