// Every registered dialog, built by its real view, driven by keyboard, screen reader or voice.
#include "ui_helpers.h"

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

namespace {
// Shown in its dialog, or on a page of tabs not in front.
bool onScreen(QWidget* widget, QWidget* dialog) {
    for (QWidget* w = widget; w && w != dialog; w = w->parentWidget())
        if (w->isHidden() && !qobject_cast<QStackedWidget*>(w->parentWidget())) return false;
    return widget->window() == dialog;
}

QAccessibleInterface* access(QObject* object) {
    return QAccessible::queryAccessibleInterface(object);
}

// The controls a person reaches: buttons, fields, combos and lists.
QList<QWidget*> controls(QWidget& dialog) {
    QList<QWidget*> found;
    for (QWidget* w : dialog.findChildren<QWidget*>()) {
        if (!onScreen(w, &dialog)) continue;
        const bool field = qobject_cast<QAbstractButton*>(w) || qobject_cast<QComboBox*>(w) ||
                           qobject_cast<QAbstractItemView*>(w) ||
                           (qobject_cast<QLineEdit*>(w) && !qobject_cast<QComboBox*>(w->parent()));
        if (field) found.append(w);
    }
    return found;
}

// Counts the runs of a handler while it lives, then puts the old one back.
struct Counted {
    std::function<void()>& handler;
    std::function<void()> old;
    int runs = 0;
    explicit Counted(std::function<void()>& h) : handler(h), old(h) {
        handler = [this] {
            ++runs;
            if (old) old();
        };
    }
    ~Counted() { handler = old; }
};

QString fail(const Form& form, const QString& what, const char* fault) {
    return u"%1.%2: %3"_s.arg(form.formName(), what, QString::fromLatin1(fault));
}
QString fail(const Form& form, QWidget* widget, const char* fault) {
    return fail(form, widget->objectName(), fault);
}

} // namespace

class EveryDialogTest : public QObject {
    Q_OBJECT

    ProgramFixture p;
    QStringList faults;

    template <typename Check> void forEveryDialog(Check check) {
        const auto& views = p.bench->forms().views();
        QCOMPARE(views.size(), size_t(23));
        for (const auto& [type, view] : views) {
            QVERIFY2(view.sample, type.name());
            const std::shared_ptr<Form> form = view.sample(p.shell());
            FormDialog dialog(*form, p.shell(), &p.window());
            view.build(*form, dialog, p.shell());
            dialog.show();
            dialog.activateWindow();
            if (!QTest::qWaitForWindowActive(&dialog)) qWarning("dialog not active");
            check(*form, dialog);
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

  private slots:
    void initTestCase() { p.start(); }
    void init() { faults.clear(); }

    // A combo's list and text are its parts, each found again at its own index.
    void everyControlHasAName() {
        forEveryDialog([this](Form& form, FormDialog& dialog) {
            for (QWidget* w : controls(dialog)) {
                if (access(w)->text(QAccessible::Name).trimmed().isEmpty())
                    faults << fail(form, w, "no name");
                if (!qobject_cast<QComboBox*>(w)) continue;
                for (int i = 0; i < access(w)->childCount(); ++i)
                    if (access(w)->indexOfChild(access(w)->child(i)) != i)
                        faults << fail(form, w, "a part not found at its index");
            }
        });
    }

    // Every control shows its state, enabled and visible, at first and after each change.
    void everyControlShowsItsState() {
        forEveryDialog([this](Form& form, FormDialog& dialog) {
            for (Control* control : form.controls()) {
                QWidget* widget = dialog.findChild<QWidget*>(control->name());
                if (!widget && control->Visible() && !dynamic_cast<UpDown*>(control))
                    faults << fail(form, control->name(), "not on screen");
                if (widget && (widget->testAttribute(Qt::WA_Disabled) == control->Enabled() ||
                               (!control->Visible() && !widget->isHidden())))
                    faults << fail(form, widget, "state not shown at first");
                if (!widget || !widget->isVisible() || qobject_cast<QTabWidget*>(widget)) continue;
                if (auto* label = dynamic_cast<Label*>(control);
                    label && qobject_cast<QLabel*>(widget)) {
                    label->setFontBold(true);
                    if (!widget->font().bold()) faults << fail(form, widget, "font not shown");
                    label->setFontBold(false);
                }
                const bool enabled = control->Enabled();
                control->setEnabled(!enabled);
                control->setVisible(false);
                if (widget->isEnabled() == enabled || widget->isVisible())
                    faults << fail(form, widget, "state not shown");
                control->setEnabled(enabled);
                control->setVisible(true);
                if (widget->isEnabled() != enabled || !widget->isVisible())
                    faults << fail(form, widget, "state not shown again");
            }
        });
    }

    void aSpinnerIsOneStopBesideItsArrowsAndItsKeysStepIt() {
        forEveryDialog([this](Form& form, FormDialog& dialog) {
            for (auto* arrow : dialog.findChildren<QToolButton*>()) {
                if (arrow->arrowType() == Qt::NoArrow || !onScreen(arrow, &dialog)) continue;
                if (arrow->focusPolicy() & Qt::TabFocus) faults << fail(form, arrow, "tab stop");
            }
            for (Control* control : form.controls()) {
                auto* spinner = dynamic_cast<UpDown*>(control);
                if (!spinner) continue;
                auto* box = dialog.findChild<QLineEdit*>(spinner->buddy->name());
                if (!box) {
                    faults << fail(form, spinner->name(), "no box");
                    continue;
                }
                // Up above Down, both right of the box (on the page in front).
                QRect up, down;
                for (auto* arrow : box->parentWidget()->findChildren<QToolButton*>())
                    (arrow->arrowType() == Qt::UpArrow ? up : down) = arrow->geometry();
                if (box->isVisible() && (up.isEmpty() || up.left() < box->geometry().right() ||
                                         up.left() != down.left() || up.bottom() >= down.top()))
                    faults << fail(form, box, "arrows out of place");
                if (!spinner->Enabled() || !spinner->buddy->Enabled()) continue;
                spinner->buddy->setText(QString::number(spinner->Min));
                QTest::keyClick(box, Qt::Key_Up);
                if (spinner->buddy->Text() != QString::number(spinner->Min + spinner->Increment))
                    faults << fail(form, box, "Up does not step");
                QTest::keyClick(box, Qt::Key_PageDown);
                if (spinner->buddy->Text() != QString::number(spinner->Min))
                    faults << fail(form, box, "Page Down leaves the range");
            }
        });
    }

    void textSetAsAnAssistiveToolDoesRunsChange() {
        forEveryDialog([this](Form& form, FormDialog& dialog) {
            for (auto* edit : dialog.findChildren<QLineEdit*>()) {
                if (!edit->isEnabled() || edit->isReadOnly()) continue;
                auto* combo = qobject_cast<QComboBox*>(edit->parent());
                const QString name = combo ? combo->objectName() : edit->objectName();
                auto* box = form.find<TextBox>(name);
                auto* list = form.find<ComboBox>(name);
                if (!box && !list) {
                    faults << fail(form, edit, "bound to no control");
                    continue;
                }
                Counted change(box ? box->Change : list->Change);
                access(edit)->setText(QAccessible::Value, edit->text() == "7" ? "8" : "7");
                QApplication::processEvents();
                if (change.runs != 1 || (box ? box->Text() : list->Text()) != edit->text())
                    faults << fail(form, edit, "Change missed");
            }
        });
    }

    void optionsAreRadioButtonsThatRunClickOnce() {
        forEveryDialog([this](Form& form, FormDialog& dialog) {
            for (auto* radio : dialog.findChildren<QRadioButton*>()) {
                auto* option = form.find<OptionButton>(radio->objectName());
                if (!option) continue;
                if (access(radio)->role() != QAccessible::RadioButton)
                    faults << fail(form, radio, "not read as a radio button");
                if (!radio->group() || !radio->group()->exclusive())
                    faults << fail(form, radio, "not exclusive");
                if (radio->isChecked() || !radio->isEnabled()) continue;
                // Chosen as an assistive tool does it: its one action.
                Counted click(option->Click);
                QAccessibleActionInterface* actions = access(radio)->actionInterface();
                actions->doAction(actions->actionNames().first());
                if (click.runs != 1 || !option->Value() || !radio->isChecked())
                    faults << fail(form, radio, "not chosen once");
                for (OptionButton* other : option->groupMembers()) {
                    auto* widget = dialog.findChild<QRadioButton*>(other->name());
                    if (other != option && (other->Value() || (widget && widget->isChecked())))
                        faults << fail(form, radio, "another stays on");
                }
            }
        });
    }

    // Entries chosen in a multi-select list reach its control.
    void aListsChoicesReachItsControl() {
        int lists = 0;
        forEveryDialog([&](Form& form, FormDialog& dialog) {
            for (auto* widget : dialog.findChildren<QListWidget*>()) {
                auto* list = form.find<ListControl>(widget->objectName());
                if (!list || !list->MultiSelect) continue;
                ++lists;
                list->AddItem(u"a.htm"_s);
                list->AddItem(u"b.htm"_s);
                const int last = list->ListCount() - 1;
                widget->item(last - 1)->setSelected(true);
                widget->item(last)->setSelected(true);
                if (!list->Selected(last - 1) || !list->Selected(last))
                    faults << fail(form, widget, "a choice missed");
            }
        });
        QVERIFY(lists >= 2);
    }

    void aLabelsMnemonicReachesItsField() {
        forEveryDialog([this](Form& form, FormDialog& dialog) {
            auto* tabs = dialog.findChild<QTabWidget*>();
            for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
                if (tabs) tabs->setCurrentIndex(page);
                for (auto* label : dialog.findChildren<QLabel*>()) {
                    QWidget* buddy = label->buddy();
                    const QString text = label->text();
                    const qsizetype amp = text.indexOf(QLatin1Char('&'));
                    const bool link =
                        label->textFormat() == Qt::RichText || text.startsWith(QLatin1Char('<'));
                    if (!buddy && amp >= 0 && !link &&
                        text.count(QLatin1Char('&')) != 2 * text.count(u"&&"_s))
                        faults << fail(form, label, "mnemonic with no field");
                    if (!buddy || !label->isVisible() || !buddy->isEnabled() || amp < 0 ||
                        amp + 1 >= text.size())
                        continue;
                    const QChar letter = text.at(amp + 1).toLower();
                    dialog.setFocus();
                    // A letter that several captions share reaches each in turn.
                    bool reached = false;
                    for (int press = 0; press < 4 && !reached; ++press) {
                        QTest::keyClick(&dialog, letter.toLatin1(), Qt::AltModifier);
                        QWidget* focus = QApplication::focusWidget();
                        reached = focus == buddy || buddy->isAncestorOf(focus);
                    }
                    if (!reached) faults << fail(form, label, "mnemonic does not reach its field");
                }
            }
        });
    }
};

QTEST_MAIN(EveryDialogTest)
#include "test_every_dialog.moc"
