#include "ui/binders.h"
#include "shell/shell_mdi.h"
#include <QAbstractButton>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QProgressBar>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTreeView>
#include <memory>

namespace tsl {

namespace {
// Hands the typed characters of a text box or an editable combo to its KeyPress handler,
// which may drop them or put another in their place.
class KeyPressFilter : public QObject {
  public:
    using Handler = std::function<void(int&)>;
    KeyPressFilter(const Handler& handler, std::function<void(const QString&)> setText,
                   QObject* parent, std::function<void(std::function<void()>)> run)
        : QObject(parent), handler_(handler), setText_(std::move(setText)), run_(std::move(run)) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !handler_)
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
        auto* edit = qobject_cast<QLineEdit*>(watched);
        if (ascii == 0 || ascii == typed || ascii == 8 || !edit) return ascii == 0;
        // The handler put another character in place of the typed one.
        edit->insert(QString(QChar(ascii)));
        run_([&] { setText_(edit->text()); });
        return true;
    }

  private:
    const Handler& handler_;
    std::function<void(const QString&)> setText_;
    std::function<void(std::function<void()>)> run_;
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
QColor colourOf(int colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

// A label's own colours over the desktop's.
void paint(const Label& control, QWidget* widget) {
    if (control.BackColor() == Label::kDefaultColour &&
        control.ForeColor() == Label::kDefaultColour)
        return;
    QPalette palette = widget->palette();
    if (control.BackColor() != Label::kDefaultColour) {
        widget->setAutoFillBackground(true);
        palette.setColor(QPalette::Window, colourOf(control.BackColor()));
    }
    if (control.ForeColor() != Label::kDefaultColour)
        palette.setColor(QPalette::WindowText, colourOf(control.ForeColor()));
    widget->setPalette(palette);
}
} // namespace

void Binder::label(Label& control, QLabel* widget) {
    common(control, widget);
    const auto update = [&control, widget] {
        widget->setText(control.Caption());
        paint(control, widget);
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
        if (control.MaxLength > 0) widget->setMaxLength(control.MaxLength);
        widget->setReadOnly(control.Locked);
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, &QLineEdit::textEdited, widget,
                     [shell = &shell_, &control](const QString& text) {
                         shell->dispatch([&] { control.setText(text); });
                     });
    widget->installEventFilter(new KeyPressFilter(
        control.KeyPress, [&control](const QString& text) { control.setText(text); }, widget,
        [shell = &shell_](std::function<void()> h) { shell->dispatch(h); }));
    QObject::connect(&control, &Control::selectAllRequested, widget, [widget] {
        widget->setFocus();
        widget->selectAll();
    });
    // Key filters read the caret and the selection.
    const auto caret = [&control, widget] {
        control.SelStart =
            widget->hasSelectedText() ? widget->selectionStart() : widget->cursorPosition();
        control.SelLength = static_cast<int>(widget->selectedText().size());
    };
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
    widget->setAutoExclusive(false);
    const auto update = [&control, widget] {
        const QSignalBlocker quiet(widget);
        widget->setText(control.Caption());
        widget->setChecked(control.Value());
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    // A click on a chosen option chooses it again, as its Click runs again.
    QObject::connect(widget, &QRadioButton::clicked, widget, [shell = &shell_, &control, update] {
        shell->dispatch([&] { control.setValue(true); });
        update();
    });
}

void Binder::comboBox(ComboBox& control, QComboBox* widget) {
    common(control, widget);
    widget->setEditable(control.style() != ComboBox::DropDownList);
    auto shown = std::make_shared<QStringList>();
    const auto update = [&control, widget, shown] {
        const QSignalBlocker quiet(widget);
        showItems(control, widget, *shown);
        widget->setCurrentIndex(control.ListIndex());
        if (widget->isEditable() && widget->currentText() != control.Text())
            widget->setEditText(control.Text());
    };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, qOverload<int>(&QComboBox::activated), widget,
                     [shell = &shell_, &control](int index) {
                         shell->dispatch([&] { control.setListIndex(index); });
                     });
    if (widget->isEditable()) {
        QObject::connect(widget, &QComboBox::editTextChanged, widget,
                         [shell = &shell_, &control](const QString& text) {
                             if (text != control.Text())
                                 shell->dispatch([&] { control.setText(text); });
                         });
        widget->lineEdit()->installEventFilter(new KeyPressFilter(
            control.KeyPress, [&control](const QString& text) { control.setText(text); }, widget,
            [shell = &shell_](std::function<void()> h) { shell->dispatch(h); }));
    }
}

void Binder::button(CommandButton& control, QAbstractButton* widget) {
    common(control, widget);
    const auto update = [&control, widget] { widget->setText(control.Caption()); };
    update();
    QObject::connect(&control, &Control::changed, widget, update);
    QObject::connect(widget, &QAbstractButton::clicked, widget,
                     [shell = &shell_, &control] { shell->dispatch([&] { control.press(); }); });
}

void Binder::upDown(UpDown& control, QAbstractButton* up, QAbstractButton* down) {
    common(control, up);
    common(control, down);
    up->setAutoRepeat(true);
    down->setAutoRepeat(true);
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
