// What every dialog shares, tested once against a small dialog: its controls found by name,
// the buttons Enter and Escape press, the commit sequence in both views, Cancel, the key
// filters, the colour picker, the file browse, and a modeless form's lifetime.
#include "frm_tiny.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QPointer>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
// Opens the dialog on the document in front, runs the script on it and answers whether the
// script left it open.
bool withTiny(TestShell& ts, const std::function<void(frmTiny&)>& script) {
    ts->CurrentDocument = ts->ActiveForm();
    frmTiny form(*ts);
    script(form);
    return form.isLoaded();
}
} // namespace

class DialogShapesTest : public QObject {
    Q_OBJECT

  private slots:
    void controlsAreFoundByName() {
        TestShell ts;
        frmTiny form(*ts);
        QCOMPARE(form.control("txtColour"), &form.txtColour);
        QCOMPARE(form.find<UpDown>("udSize"), &form.udSize);
        QCOMPARE(form.find<TextBox>("udSize"), nullptr);
        QCOMPARE(form.control("nothing"), nullptr);
        QStringList names;
        for (Control* control : form.controls())
            names.append(control->name());
        QCOMPARE(names.first(), QStringLiteral("fraTiny"));
        QCOMPARE(names.last(), QStringLiteral("Cancel"));
        QCOMPARE(names.size(), 12);
        QCOMPARE(form.lblSize.Caption(), QStringLiteral("&Size:"));
        QCOMPARE(form.udSize.buddy, &form.txtSize);
    }

    void theCloseBoxPressesTheCancelButton() {
        TestShell ts;
        ts.load();
        frmTiny form(*ts);
        QCOMPARE(form.defaultButton(), &form.OK);
        QCOMPARE(form.cancelButton(), &form.Cancel);
        int cancelled = 0;
        form.Cancel.Click = [&] { ++cancelled; }; // a Cancel that keeps the dialog open
        form.closeBox();
        QCOMPARE(cancelled, 1);
        QVERIFY(form.isLoaded());
        form.Cancel.Cancel = false; // with no cancel button the close box just unloads
        form.closeBox();
        QVERIFY(!form.isLoaded());
    }

    void theCommitSequenceInSourceView() {
        TestShell ts;
        ts.load();
        codeEditor& active = ts.active();
        const QString before = active.codebox().Text();
        const int caret = active.codebox().SelStart();
        QVERIFY(!withTiny(ts, [](frmTiny& f) {
            f.txtSize.setText("7");
            f.OK.press();
        }));
        QCOMPARE(active.codebox().Text(),
                 insertedAt(before, caret, QStringLiteral("<tiny size=\"7\" color=\"\">")));
        QCOMPARE(active.Tag, QStringLiteral("Dirty"));
        QVERIFY(!ts->bInsertingMarkup);
        QVERIFY(!ts->bCaretStepTaken);
        QVERIFY(ts->menu("mnuEditUndo").Enabled());
        ts.run("mnuEditUndo");
        QCOMPARE(active.codebox().Text(), before);
    }

    void theCommitSequenceInLayoutView() {
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        const QString before = ts.active().codebox().Text();
        QVERIFY(!withTiny(ts, [](frmTiny& f) { f.OK.press(); }));
        QCOMPARE(layoutOf(ts.active()).pasted, QStringList{"<tiny size=\"1\" color=\"\">"});
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(!ts->bInsertingMarkup);
    }

    // A failure while building or inserting ends OK at once and silently: the dialog stays
    // open and the flag stays set.
    void aFailedCommitKeepsTheDialogOpen_data() {
        QTest::addColumn<bool>("layout");
        QTest::newRow("no number") << false;
        QTest::newRow("refused paste") << true;
    }
    void aFailedCommitKeepsTheDialogOpen() {
        QFETCH(bool, layout);
        TestShell ts;
        ts.load();
        ts->bLayoutActive = layout;
        layoutOf(ts.active()).refusePaste = true;
        const QString before = ts.active().codebox().Text();
        QVERIFY(withTiny(ts, [layout](frmTiny& f) {
            if (!layout) f.txtSize.setText("");
            f.OK.press();
        }));
        QVERIFY(ts->bInsertingMarkup);
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void cancelChangesNothing() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        int focused = 0;
        connect(&doc, &codeEditor::focusRequested, this, [&] { ++focused; });
        QVERIFY(!withTiny(ts, [](frmTiny& f) {
            f.txtSize.setText("5");
            f.Cancel.press();
        }));
        QCOMPARE(doc.codebox().Text(), before);
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QVERIFY(!ts->menu("mnuEditUndo").Enabled());
        QCOMPARE(focused, 1);
    }

    // Box, typed, shown: digits only; hex digits in capitals, up to the box's length.
    void keyFilters_data() {
        columns<QString, QString, QString>({"box", "typed", "shown"});
        QTest::newRow("numeric") << "txtSize"
                                 << "a1-b2.3"
                                 << "123";
        QTest::newRow("hex") << "txtColour"
                             << "#ff00Gg"
                             << "FF00";
        QTest::newRow("hex, to its length") << "txtColour"
                                            << "abcdef01"
                                            << "ABCDEF";
        QTest::newRow("no filter") << "txtFile"
                                   << "a b.gif"
                                   << "a b.gif";
    }
    void keyFilters() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        TestShell ts;
        frmTiny form(*ts);
        TextBox* target = form.find<TextBox>(box);
        target->setText(QString());
        target->typeText(typed);
        QCOMPARE(target->Text(), shown);
        target->typeKey(8);
        QCOMPARE(target->Text(), shown.left(shown.size() - 1));
    }

    void theColourPicker() {
        TestShell ts;
        frmTiny form(*ts);
        int focused = 0;
        connect(&form.txtColour, &Control::focusRequested, this, [&] { ++focused; });
        ts.platform.colorAnswers.enqueue(0x0080FFu); // red FF, green 80, blue 00
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("FF8000"));
        QCOMPARE(focused, 1);
        ts.platform.colorAnswers.enqueue(0x050000u); // blue alone, padded to six digits
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("000005"));
        ts.platform.colorAnswers.enqueue(std::nullopt);
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("000005"));
        QCOMPARE(focused, 2);
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void theFileBrowse() {
        TestShell ts;
        ts.load();
        ts.active().codebox().setFileName("/web/site/page.htm");
        ts.active().txtFileTitle = "page.htm";
        ts->OpenSave.InitDir = "/web/site/";
        frmTiny form(*ts);
        form.cdTiny.InitDir = "/web/site/";
        // A link that climbs keeps the start folders.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file("/web/img/bg.gif"));
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text(), QStringLiteral("../img/bg.gif"));
        QCOMPARE(form.cdTiny.InitDir, QStringLiteral("/web/site/"));
        QVERIFY(!ts->bRelativeUp);
        // Anything else clears them, a cancel too.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file("/web/site/img/bg.gif"));
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTiny.InitDir, QString());
        QCOMPARE(ts->OpenSave.InitDir, QString());
        form.cdTiny.InitDir = "/x/";
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTiny.InitDir, QString());
    }

    void aModelessFormLivesUntilItUnloads() {
        TestShell ts;
        ts.load();
        auto owned = std::make_unique<frmTiny>(*ts);
        QPointer<frmTiny> form = owned.get();
        ts->forms().showModeless(std::move(owned));
        QCOMPARE(ts.forms.modeless<frmTiny>(), form.data());
        ts.run("mnuInsertParagraph"); // the main window goes on working meanwhile
        form->txtSize.setText("3");
        form->OK.press();
        QVERIFY(!form.isNull()); // not freed under its own handler
        QCOMPARE(ts.forms.modeless<frmTiny>(), nullptr);
        QVERIFY(form.isNull());
    }
};

QTEST_GUILESS_MAIN(DialogShapesTest)
#include "test_dialog_shapes.moc"
