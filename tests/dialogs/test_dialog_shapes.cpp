// What every dialog shares, tested once against a small dialog: the buttons Enter and Escape
// press, the commit sequence in both views, Cancel, the key filters, the colour picker and the
// file browse. And every element dialog: the commands that open it, and its caption.
#include "dialogs_helpers.h"
#include "frm_tiny.h"
#include "test_rows.h"
#include "test_shell.h"

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
    // The caption is the text of the window's title: every dialog's, exactly.
    void everyDialogOpensFromItsCommandsWithItsCaption_data() {
        columns<QString, QString, int, QString>({"item", "toolbar", "button", "shown"});
        row("page", "mnuEditProperties", "tbrTags", 11, "Colours: Page Properties");
        row("anchor", "mnuInsertAnchor", "tbrTags", 13, "frmAnchor: Insert Anchor / Bookmark");
        row("link", "mnuInsertHyperlink", "tbrTags", 14, "frmHyperlink: Insert Hyperlink");
        row("image", "mnuInsertImage", "tbrTags", 16, "NewImage: Insert Image");
        row("table", "mnuInsertTable", "tbrTags", 21, "frmTable: Insert Table");
        row("css link", "mnuInsertLink", "tbrMain", 20, "frmLink: Link to ...");
        row("style", "mnuInsertCSS", "tbrMain", 19, "frmStyle: Style Settings");
    }
    void everyDialogOpensFromItsCommandsWithItsCaption() {
        QFETCH(QString, item);
        QFETCH(QString, toolbar);
        QFETCH(int, button);
        TestShell ts;
        ts.load();
        QStringList seen;
        for (int i = 0; i < 2; ++i)
            ts.forms.scripts.enqueue([&](Form& f) {
                seen.append(f.formName() + ": " + f.Caption());
                f.Unload();
            });
        ts.run(item.toUtf8().constData());
        (toolbar == QLatin1String("tbrTags") ? ts->tbrTags : ts->tbrMain).press(button);
        QFETCH(QString, shown);
        QCOMPARE(seen, (QStringList{shown, shown}));
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void theCloseBoxPressesTheCancelButton() {
        TestShell ts;
        frmTiny form(*ts);
        QVERIFY(form.defaultButton() == &form.OK && form.cancelButton() == &form.Cancel);
        int cancelled = 0;
        form.Cancel.Click = [&] { ++cancelled; }; // a Cancel that keeps the dialog open
        form.closeBox();
        QVERIFY(cancelled == 1 && form.isLoaded());
        form.Cancel.Cancel = false; // with no cancel button the close box just unloads
        form.closeBox();
        QVERIFY(!form.isLoaded());
    }

    void theCommitSequenceInSourceView() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        const int caret = doc.codebox().SelStart();
        ts->bCaretStepTaken = true;
        QVERIFY(!withTiny(ts, [](frmTiny& f) {
            setFields(f, "txtSize=7");
            f.OK.press();
        }));
        QCOMPARE(doc.codebox().Text(), insertedAt(before, caret, "<tiny size=\"7\" color=\"\">"));
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QVERIFY(!ts->bInsertingMarkup && !ts->bCaretStepTaken);
        QVERIFY(ts->menu("mnuEditUndo").Enabled());
        ts.run("mnuEditUndo");
        QCOMPARE(doc.codebox().Text(), before);
    }

    void theCommitSequenceInLayoutView() {
        TestShell ts;
        ts.load().bLayoutActive = true;
        const QString before = ts.active().codebox().Text();
        QVERIFY(!withTiny(ts, [](frmTiny& f) { f.OK.press(); }));
        QCOMPARE(layoutOf(ts.active()).pasted, QStringList{"<tiny size=\"1\" color=\"\">"});
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(!ts->bInsertingMarkup);
    }

    // A failure while building or inserting ends OK at once and silently: the dialog stays
    // open and the flag stays set.
    void aFailedCommitKeepsTheDialogOpen_data() {
        columns<bool>({"layout"});
        row("no number", false);
        row("refused paste", true);
    }
    void aFailedCommitKeepsTheDialogOpen() {
        QFETCH(bool, layout);
        TestShell ts;
        ts.load().bLayoutActive = layout;
        layoutOf(ts.active()).refusePaste = true;
        const QString before = ts.active().codebox().Text();
        QVERIFY(withTiny(ts, [layout](frmTiny& f) {
            setFields(f, layout ? "" : "txtSize=");
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
            setFields(f, "txtSize=5");
            f.Cancel.press();
        }));
        QCOMPARE(doc.codebox().Text() + doc.Tag, before + "Clean");
        QVERIFY(!ts->menu("mnuEditUndo").Enabled());
        QCOMPARE(focused, 1);
    }

    // Box, typed, shown: digits only; hex digits in capitals, up to the box's length.
    void keyFilters_data() {
        columns<QString, QString, QString>({"box", "typed", "shown"});
        row("numeric", "txtSize", "a1-b2.3", "123");
        row("hex", "txtColour", "#ff00Gg", "FF00");
        row("hex, to its length", "txtColour", "abcdef01", "ABCDEF");
        row("no filter", "txtFile", "a b.gif", "a b.gif");
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
        QCOMPARE(target->Text(), shown.chopped(1));
    }

    void theColourPicker() {
        TestShell ts;
        frmTiny form(*ts);
        int focused = 0;
        connect(&form.txtColour, &Control::focusRequested, this, [&] { ++focused; });
        // Red FF, green 80, blue 00; then blue alone, padded to six digits.
        ts.platform.colorAnswers << 0x0080FFu << 0x050000u << std::nullopt;
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("FF8000"));
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("000005"));
        QCOMPARE(focused, 2);
        // A cancel does not hand back the earlier choice, even with a dialog set not to raise
        // on cancel, whose setting it keeps.
        form.cdTiny.CancelError = false;
        form.txtColour.setText("ABCDEF");
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("ABCDEF"));
        QCOMPARE(focused, 2);
        QVERIFY(!form.cdTiny.CancelError);
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
        ts.platform.fileAnswers << FileDialogAnswer::file("/web/img/bg.gif")
                                << FileDialogAnswer::file("/web/site/img/bg.gif")
                                << FileDialogAnswer::cancel();
        // A link that climbs keeps the start folders.
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text() + form.cdTiny.InitDir,
                 QStringLiteral("../img/bg.gif/web/site/"));
        QVERIFY(!ts->bRelativeUp);
        // Anything else clears them, a cancel too.
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTiny.InitDir + ts->OpenSave.InitDir, QString());
        form.cdTiny.InitDir = "/x/";
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text() + form.cdTiny.InitDir, QStringLiteral("img/bg.gif"));
    }
};

QTEST_GUILESS_MAIN(DialogShapesTest)
#include "test_dialog_shapes.moc"
