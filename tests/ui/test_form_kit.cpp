// The form kit on a small dialog, then real dialogs whose work shows beyond their fields.
#include "frm_tiny.h"
#include "search/find_replace.h"
#include "ui/kit/form_kit.h"
#include "ui_helpers.h"

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

namespace {
// The whole view of the small dialog.
void buildTinyView(frmTiny& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({Group(f.fraTiny, {Field(f.lblSize, Spin(f.txtSize, f.udSize)),
                                    Field(f.lblColour, Picked(f.txtColour, f.cmdColour, 70)),
                                    Field(f.lblFile, Picked(f.txtFile, f.cmdFile))}),
                  Buttons({&f.OK, &f.Cancel})}));
}

template <typename W> W* child(QWidget* parent, const char* name) {
    return UiProgram::child<W>(*parent, name);
}

struct Started : UiProgram {
    Started() { start(); }
};

// Chooses an entry as a person does: the list dropped down, the entry picked by its keys.
void choose(QComboBox* combo, const QString& item) {
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    QTRY_VERIFY(list->isVisible());
    list->setCurrentIndex(list->model()->index(combo->findText(item), 0));
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_VERIFY(!list->isVisible());
}
} // namespace

class FormKitTest : public QObject {
    Q_OBJECT

  private slots:
    void aModelessDialogBuiltByTheKit() {
        Started p;
        p.bench->forms().registerView(buildTinyView);
        auto owned = std::make_unique<frmTiny>(p.shell());
        QPointer<frmTiny> form = owned.get();
        p.shell().forms().showModeless(std::move(owned));
        QPointer<FormDialog> d = p.window().findChild<FormDialog*>(u"frmTiny"_s);
        QVERIFY(d && d->isVisible() && !d->isModal());
        QCOMPARE(d->parentWidget(), &p.window());
        QCOMPARE(d->windowTitle(), u"Insert Tiny"_s);
        form->setCaption(u"Tiny"_s);
        QCOMPARE(d->windowTitle(), u"Tiny"_s);
        auto* size = child<QLineEdit>(d, "txtSize");
        QCOMPARE(QAccessible::queryAccessibleInterface(size)->text(QAccessible::Name), u"Size:"_s);
        QVERIFY(child<QPushButton>(d, "OK")->isDefault());
        QVERIFY(!child<QPushButton>(d, "cmdFile")->autoDefault());

        // A key the filter refuses leaves text and caret; the filter sees it once.
        int filtered = 0;
        form->txtSize.KeyPress = [&](int& key) {
            ++filtered;
            numericKeyFilter(key);
        };
        size->setText(u"12"_s);
        size->setCursorPosition(1);
        filtered = 0;
        QTest::keyClick(size, Qt::Key_X);
        QCOMPARE(size->text(), u"12"_s);
        QCOMPARE(size->cursorPosition(), 1);
        QCOMPARE(filtered, 1);
        // Text that arrives whole passes the filter a character at a time.
        size->insert(u"y"_s);
        QCOMPARE(size->text(), u"12"_s);
        size->setCursorPosition(1);
        size->insert(u"3y"_s);
        QCOMPARE(form->txtSize.Text(), u"132"_s);
        QCOMPARE(size->text(), u"132"_s);

        child<QToolButton>(d, "udSizeUp")->click();
        QCOMPARE(form->txtSize.Text(), u"9"_s); // the top of its range
        QTest::keyClick(d, Qt::Key_Escape);     // Cancel, which unloads the form
        QTRY_VERIFY(d.isNull());
        QVERIFY(form.isNull());
        // A form with no view is left closed, with no empty window and no message.
        Form nothing(u"frmNothing"_s);
        QTest::ignoreMessage(QtWarningMsg, "No view is registered for the form frmNothing");
        p.shell().forms().showModal(nothing);
        QVERIFY(!nothing.isLoaded());
        QVERIFY(p.platform.messageTexts().isEmpty());
    }

    void findAndReplaceWorksOnTheDocumentInFront() {
        Started p;
        p.pane().setText(u"one two one two one"_s);
        p.pane().setSelStart(0);
        p.trigger(u"mnuEditFind"_s);
        QPointer<FormDialog> d = p.window().findChild<FormDialog*>(u"frmFind"_s);
        QVERIFY(d && d->isVisible() && !d->isModal());
        QCOMPARE(d->parentWidget(), &p.window());
        auto* what = child<QLineEdit>(d, "txtFind");
        QVERIFY(!child<QPushButton>(d, "cmdFind")->isEnabled());
        QTest::keyClicks(what, u"one"_s);
        press(*d, "cmdFind");
        QCOMPARE(p.pane().SelStart(), 0);
        QCOMPARE(p.pane().SelText(), u"one"_s);
        QTest::keyClicks(child<QLineEdit>(d, "txtReplace"), u"1"_s);
        press(*d, "cmdReplace");
        QCOMPARE(p.pane().Text(), u"1 two one two one"_s);
        QCOMPARE(p.pane().SelStart(), 6);
        press(*d, "Command1");
        QCOMPARE(p.pane().Text(), u"1 two 1 two 1"_s);

        // A new document in front: the window stays and works on it.
        p.trigger(u"mnuFileNewHTML"_s);
        QCOMPARE(p.window().findChild<FormDialog*>(u"frmFind"_s), d.data());
        retype(what, u"body"_s);
        press(*d, "cmdFind");
        QCOMPARE(p.active().Caption(), u"Document 2"_s);
        QCOMPARE(p.pane().SelText(), u"body"_s);
        press(*d, "cmdCancel");
        QTRY_VERIFY(d.isNull());
        QCOMPARE(p.shell().part<SearchSession>().Search.FindText, u"body"_s);
        QVERIFY(!p.shell().bFindOpen);

        // Closing a document closes the window.
        p.trigger(u"mnuEditFind"_s);
        d = p.window().findChild<FormDialog*>(u"frmFind"_s);
        QVERIFY(d);
        p.trigger(u"mnuFileClose"_s);
        QTRY_VERIFY(d.isNull());
    }

    void preferencesAndAboutWorkThroughTheProgram() {
        Started p;
        QVERIFY(p.fromMenu("mnuEditPrefs", [](FormDialog& d) {
            retype(child<QLineEdit>(&d, "Size"), u"15"_s);
            child<QCheckBox>(&d, "chkWordWrap")->click();
            child<QPushButton>(&d, "OK")->click();
            QVERIFY(!d.isVisible());
        }));
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::FontSize), u"15"_s);
        QCOMPARE(p.box()->font().pointSizeF(), 15.0);
        QVERIFY(p.box()->wraps());
        // About opens its links through the shell.
        QVERIFY(p.fromMenu("mnuHelpAbout", [](FormDialog& d) {
            for (const char* link : {"Label", "Labels"})
                emit child<QLabel>(&d, link)->linkActivated(u"#"_s);
            press(d, "OK");
        }));
        const QStringList& opened = p.platform.shellOpened;
        QVERIFY(opened.size() == 2 && opened[0].startsWith(u"mailto:"_s) &&
                opened[1].startsWith(u"https://"_s));
    }

    // "A" in the style dialog's list asks the link state at once; "All" writes the plain selector.
    void aChoiceFromAListCanAskAQuestionAtOnce() {
        Started p;
        p.pane().setText(u"<html><head></head><body></body></html>"_s);
        QVERIFY(p.fromMenu("mnuInsertCSS", [&](FormDialog& d) {
            const auto all = [](FormDialog& question) {
                QAccessibleActionInterface* all =
                    QAccessible::queryAccessibleInterface(child<QRadioButton>(&question, "AllOpt"))
                        ->actionInterface();
                all->doAction(all->actionNames().first());
                QTest::keyClick(&question, Qt::Key_Return);
            };
            QVERIFY(
                p.withDialog([&] { choose(child<QComboBox>(&d, "TagName"), u"A"_s); }, all, &d));
            choose(child<QComboBox>(&d, "BoldCmb"), u"Bold"_s);
            child<QPushButton>(&d, "cmdOK")->click();
        }));
        QVERIFY2(p.pane().Text().contains(u"\n  A {\n    font-weight: Bold;"_s),
                 qPrintable(p.pane().Text()));
    }
};

QTEST_MAIN(FormKitTest)
#include "test_form_kit.moc"
