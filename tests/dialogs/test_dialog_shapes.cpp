// What every dialog shares, tested once against a small dialog: the buttons Enter and Escape
// press, the commit sequence in both views, Cancel, the key filters, the colour picker and the
// file browse. And every element dialog: the commands that open it, and its caption.
#include "dialogs_helpers.h"
#include "frm_tiny.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

class DialogShapesTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts; // started before each test
    ShellMDI& shell() { return **ts; }
    SourcePane& pane() { return ts->active().codebox(); }
    // Opens the dialog on the document in front, runs the script on it and answers whether the
    // script left it open.
    bool withTiny(const std::function<void(frmTiny&)>& script) {
        shell().CurrentDocument = shell().ActiveForm();
        frmTiny form(shell());
        script(form);
        return form.isLoaded();
    }

  private slots:
    void init() {
        ts = std::make_unique<TestShell>();
        ts->load();
    }

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
        QFETCH(QString, shown);
        QStringList seen;
        for (int i = 0; i < 2; ++i)
            ts->forms.scripts.enqueue([&](Form& f) {
                seen.append(f.formName() + ": " + f.Caption());
                f.Unload();
            });
        ts->run(item.toUtf8().constData());
        (toolbar == QLatin1String("tbrTags") ? shell().tbrTags : shell().tbrMain).press(button);
        QCOMPARE(seen, (QStringList{shown, shown}));
        QVERIFY(ts->platform.messages.isEmpty());
    }

    void theCloseBoxPressesTheCancelButton() {
        frmTiny form(shell());
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
        const QString before = pane().Text();
        const int caret = pane().SelStart();
        shell().bCaretStepTaken = true;
        QVERIFY(!withTiny([](frmTiny& f) {
            setFields(f, "txtSize=7");
            f.OK.press();
        }));
        QCOMPARE(pane().Text(), insertedAt(before, caret, "<tiny size=\"7\" color=\"\">"));
        QCOMPARE(ts->active().Tag, QStringLiteral("Dirty"));
        QVERIFY(!shell().bInsertingMarkup && !shell().bCaretStepTaken);
        QVERIFY(shell().menu("mnuEditUndo").Enabled());
        ts->run("mnuEditUndo");
        QCOMPARE(pane().Text(), before);
    }

    void theCommitSequenceInLayoutView() {
        const QString before = pane().Text();
        shell().bLayoutActive = true;
        QVERIFY(!withTiny([](frmTiny& f) { f.OK.press(); }));
        QCOMPARE(layoutOf(ts->active()).pasted, QStringList{"<tiny size=\"1\" color=\"\">"});
        QCOMPARE(pane().Text(), before);
        QVERIFY(!shell().bInsertingMarkup);
        // A failure while inserting (or building, as an empty count of a table) ends OK at
        // once and silently: the dialog stays open and the flag stays set.
        layoutOf(ts->active()).refusePaste = true;
        QVERIFY(withTiny([](frmTiny& f) { f.OK.press(); }));
        QVERIFY(shell().bInsertingMarkup);
        QVERIFY(ts->platform.messages.isEmpty());
    }

    void cancelChangesNothing() {
        const QString before = pane().Text();
        int focused = 0;
        connect(&ts->active(), &codeEditor::focusRequested, this, [&] { ++focused; });
        QVERIFY(!withTiny([](frmTiny& f) {
            setFields(f, "txtSize=5");
            f.Cancel.press();
        }));
        QCOMPARE(pane().Text() + ts->active().Tag, before + "Clean");
        QVERIFY(!shell().menu("mnuEditUndo").Enabled());
        QCOMPARE(focused, 1);
    }

    // Digits only; hex digits in capitals, up to the box's length; backspace in both.
    void keyFilters() {
        frmTiny form(shell());
        const auto typed = [](TextBox& box, const char* keys) {
            box.setText(QString());
            box.typeText(keys);
            return box.Text();
        };
        QCOMPARE(typed(form.txtSize, "a1-b2.3\b4"), QString("124"));
        QCOMPARE(typed(form.txtColour, "#ff0Gg\b0abc01"), QString("FF0ABC"));
        QCOMPARE(typed(form.txtFile, "a b.gif\b"), QString("a b.gi"));
    }

    void theColourPicker() {
        frmTiny form(shell());
        int focused = 0;
        connect(&form.txtColour, &Control::focusRequested, this, [&] { ++focused; });
        // Red FF, green 80, blue 00; then blue alone, padded to six digits.
        ts->platform.colorAnswers << 0x0080FFu << 0x050000u << std::nullopt;
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
        QVERIFY(ts->platform.messages.isEmpty());
    }

    void theFileBrowse() {
        pane().setFileName("/web/site/page.htm");
        ts->active().txtFileTitle = "page.htm";
        shell().OpenSave.InitDir = "/web/site/";
        frmTiny form(shell());
        form.cdTiny.InitDir = "/web/site/";
        ts->platform.fileAnswers << FileDialogAnswer::file("/web/img/bg.gif")
                                 << FileDialogAnswer::file("/web/site/img/bg.gif")
                                 << FileDialogAnswer::cancel();
        // A link that climbs keeps the start folders.
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text() + form.cdTiny.InitDir, QString("../img/bg.gif/web/site/"));
        QVERIFY(!shell().bRelativeUp);
        // Anything else clears them, a cancel too.
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTiny.InitDir + shell().OpenSave.InitDir, QString());
        form.cdTiny.InitDir = "/x/";
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text() + form.cdTiny.InitDir, QStringLiteral("img/bg.gif"));
    }
};

QTEST_GUILESS_MAIN(DialogShapesTest)
#include "test_dialog_shapes.moc"
