// Form Components, Insert Form and its mail-to helper: the markup of each kind of control,
// the button label that follows its type, where the text and the caret end up in each view,
// the steps taken, the one error path, and the forms toolbar choosing the kind.
#include "dialogs/frm_form.h"
#include "dialogs_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

class FormDialogsTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts;
    ShellMDI& sh() { return **ts; }
    SourcePane& pane() { return ts->active().codebox(); }
    void startWith(const QString& text, int from, int to) {
        test::startWith(ts->active(), text, from, to);
    }

  private slots:
    void init() {
        ts = std::make_unique<TestShell>();
        ts->load();
    }

    void markup_data() {
        columns<QString, QString, QString>({"kind", "fields", "markup"});
        row("text box, empty", "Text Box", "", "<input type=\"text\">");
        row("text box, all four", "Text Box", "txtName=q;txtValue=a b;txtSize=20;txtMax=40",
            "<input type=\"text\" name=\"q\" value=\"a b\" size=\"20\" maxlength=\"40\">");
        row("button as loaded", "Button", "", "<input value=\"Button\" type=\"button\">");
        row("button: empty label still written", "Button",
            "txtTextBoxName=go;txtTextBoxValue=", "<input name=\"go\" value=\"\" type=\"button\">");
        row("submit", "Button", "optSubmit=1", "<input value=\"Submit\" type=\"submit\">");
        row("reset keeps a typed label", "Button", "txtTextBoxValue=Clear;optReset=1",
            "<input value=\"Clear\" type=\"reset\">");
        row("check box, empty", "Check Box", "", "<input type=\"checkbox\">");
        row("check box, checked", "Check Box", "txtCheckboxName=c;txtCheckVal=1;chkChecked=1",
            "<input type=\"checkbox\" name=\"c\" value=\"1\" checked>");
        row("radio, empty", "Radio Button", "", "<input type=\"radio\">");
        row("radio, selected", "Radio Button", "txtGrName=g;txtOptVal=v;chkSelected=1",
            "<input type=\"radio\" name=\"g\" value=\"v\" checked>");
        row("hidden with a name alone", "Hidden Field", "txtHiddenName=x",
            "<input type=\"hidden\" name=\"x\">");
        row("hidden, both", "Hidden Field", "txtHiddenName=x;txtHiddenValue=7",
            "<input type=\"hidden\" name=\"x\" value=\"7\">");
        row("image, empty", "Image", "", "<input type=\"image\">");
        row("image, all", "Image",
            "txtImgName=i;txtImgSrc=a.gif;txtImgWidth=10;txtImgHeight=20;cmbImgAlign=absmiddle",
            "<input type=\"image\" name=\"i\" src=\"a.gif\" width=\"10\" height=\"20\" "
            "align=\"absmiddle\">");
        row("text area, empty", "Multi-row Text Box", "", "<textarea></textarea>");
        row("text area, all", "Multi-row Text Box",
            "txtMultiName=t;txtMultiWidth=40;txtMultiHeight=5;txtMultiText=hi",
            "<textarea name=\"t\" rows=\"5\" cols=\"40\">hi</textarea>");
        row("list of three", "List", "txtItems=3",
            "<select size=\"1\">\n   <option>\n   <option>\n   <option>\n</select>");
        row("list: size written when empty", "List", "txtListName=l;txtListHeight=;chkMultiple=1",
            "<select name=\"l\" size=\"\" multiple>\n   <option>\n</select>");
        row("list of none", "List", "txtItems=0", "<select size=\"1\">\n</select>");
    }
    void markup() {
        QFETCH(QString, kind);
        QFETCH(QString, fields);
        frmForm form(sh());
        form.Form_Load();
        form.cmbInputType.setText(kind);
        setFields(form, fields);
        QTEST(form.markup(), "markup");
    }

    // The label follows the type only while it is one of the three captions.
    void labelFollowsTheType_data() {
        columns<QString, QString>({"fields", "label"});
        row("submit", "optSubmit=1", "Submit");
        row("submit, reset, normal", "optSubmit=1;optReset=1;optNorm=1", "Button");
        row("a typed label stays", "txtTextBoxValue=Send;optSubmit=1", "Send");
        row("an empty label stays", "txtTextBoxValue=;optReset=1", "");
    }
    void labelFollowsTheType() {
        QFETCH(QString, fields);
        frmForm form(sh());
        setFields(form, fields);
        QTEST(form.txtTextBoxValue.Text(), "label");
    }

    // Insert > Form Component opens on Button, each toolbar button on its kind, with only the
    // kind's panel showing; the numeric fields keep digits only.
    void toolbarChoosesTheKind_data() {
        columns<int, QString>({"button", "kind"});
        const char* kinds[] = {"Button",   "Check Box",          "List",  "Radio Button",
                               "Text Box", "Multi-row Text Box", "Image", "Hidden Field"};
        const int buttons[] = {2, 3, 4, 5, 6, 7, 9, 10};
        row("menu", -1, "Button");
        for (int i = 0; i < 8; ++i)
            QTest::addRow("button %d", buttons[i]) << buttons[i] << QString(kinds[i]);
    }
    void toolbarChoosesTheKind() {
        QFETCH(int, button);
        QFETCH(QString, kind);
        QString shown, filtered;
        ts->forms.then<frmForm>([&](frmForm& f) {
            shown = f.cmbInputType.Text();
            for (Label* panel : f.panels())
                if (panel->Visible()) filtered += panel->Caption();
            for (TextBox* box : {&f.txtImgHeight, &f.txtImgWidth, &f.txtListHeight, &f.txtMax,
                                 &f.txtMultiHeight, &f.txtMultiWidth, &f.txtSize})
                box->typeText(QStringLiteral("1a"));
            f.txtName.typeText(QStringLiteral("1a"));
            filtered += ';' + valuesOf(f, "txtImgHeight;txtMax;txtSize;txtName");
            f.cmdCancel.press();
        });
        if (button < 0)
            ts->run("mnuInsertForm");
        else
            sh().tbrForms.press(button);
        QCOMPARE(shown, kind);
        QCOMPARE(filtered, kind + ";1;1;1;1a");
    }

    // The selection becomes the text area's text; the caret ends before "</textarea>"; one step.
    void textAreaAroundTheSelection() {
        startWith(QStringLiteral("<p>hello</p>"), 3, 8);
        ts->forms.then<frmForm>([](frmForm& f) {
            QCOMPARE(f.txtMultiText.Text(), QStringLiteral("hello"));
            f.cmbInputType.setText(QStringLiteral("Multi-row Text Box"));
            f.cmdOK.press();
            QVERIFY(!f.isLoaded());
        });
        ts->run("mnuInsertForm");
        QCOMPARE(pane().Text(), QStringLiteral("<p><textarea>hello</textarea></p>"));
        QCOMPARE(pane().SelStart(), 18);
        QVERIFY(!sh().bInsertingMarkup);
        ts->run("mnuEditUndo");
        QCOMPARE(pane().Text(), QStringLiteral("<p>hello</p>"));
    }

    // An empty number of items fails: the dialog goes, the text stays, the flags are cleared
    // and the message says why, in Layout with a hint at a selected object.
    void failureHasItsMessage_data() {
        columns<bool, QString>({"layout", "message"});
        row("source", false, "Error inserting form component.");
        row("layout", true,
            "Error inserting form component. This may be because you have an object selected in "
            "the layout window.");
    }
    void failureHasItsMessage() {
        QFETCH(bool, layout);
        QFETCH(QString, message);
        startWith(QStringLiteral("ab"), 1, 1);
        sh().bLayoutActive = layout;
        ts->forms.then<frmForm>([](frmForm& f) {
            f.cmbInputType.setText(QStringLiteral("List"));
            f.txtItems.setText(QString());
            f.cmdOK.press();
            QVERIFY(!f.isLoaded());
        });
        ts->run("mnuInsertForm");
        QCOMPARE(pane().Text(), QStringLiteral("ab"));
        QVERIFY(layoutOf(ts->active()).pasted.isEmpty());
        QVERIFY(!sh().bInsertingMarkup && !sh().bCaretStepTaken);
        QCOMPARE(ts->platform.messageTexts(), QStringList{message});
        QCOMPARE(ts->platform.messages.first().icon, MsgIcon::Exclamation);
        QCOMPARE(ts->platform.messages.first().title, QString());
    }

    void formTag_data() {
        columns<QString, QString>({"fields", "tag"});
        row("empty", "", "<form>");
        row("post, unquoted", "cmbMethod=POST", "<form method=POST>");
        row("all four in order",
            "cmbTarget=_top;cmbEncoding=multipart/form-data;cmbMethod=GET;txtAction=/cgi",
            "<form action=\"/cgi\" method=GET enctype=\"multipart/form-data\" target=\"_top\">");
        row("a typed method", "cmbMethod=put it", "<form method=put it>");
    }
    void formTag() {
        QFETCH(QString, fields);
        frmFormSettings form(sh());
        setFields(form, fields);
        QTEST(form.openingTag(), "tag");
    }

    // At the caret: the caret on the empty line inside; around a selection, which stays
    // selected. Either way one step that undo takes back.
    void formInSource_data() {
        columns<int, int, QString, int, int>({"from", "to", "text", "caret", "selected"});
        row("caret", 2, 2, "ab<form method=POST>\n\n</form>cd", 21, 0);
        row("selection", 1, 3, "a<form method=POST>\nbc\n</form>d", 20, 2);
    }
    void formInSource() {
        QFETCH(int, from);
        QFETCH(int, to);
        startWith(QStringLiteral("abcd"), from, to);
        ts->forms.then<frmFormSettings>([](frmFormSettings& f) {
            f.cmbMethod.setText(QStringLiteral("POST"));
            f.cmdOK.press();
        });
        ts->run("mnuInsertFormSettings");
        QTEST(pane().Text(), "text");
        QTEST(pane().SelStart(), "caret");
        QTEST(pane().SelLength(), "selected");
        QVERIFY(!sh().bInsertingMarkup && sh().nStepCaretAdvance == 0);
        ts->run("mnuEditUndo");
        QCOMPARE(pane().Text(), QStringLiteral("abcd"));
    }

    // Layout: the form with two blanks in it, then the note; the mail-to helper fills the action
    // unchecked, and its Cancel leaves it.
    void formInLayoutWithMailTo() {
        startWith(QStringLiteral("<body></body>"), 6, 6);
        sh().bLayoutActive = true;
        ts->forms.then<frmFormSettings>([this](frmFormSettings& f) {
            ts->forms.then<frmFormEmail>([](frmFormEmail& e) { e.cmdOK.press(); });
            f.cmdMail.press();
            QCOMPARE(f.txtAction.Text(), QStringLiteral("mailto:"));
            ts->forms.then<frmFormEmail>([](frmFormEmail& e) {
                e.txtAddress.setText(QStringLiteral("a@b"));
                e.cmdCancel.press();
            });
            f.cmdMail.press();
            QCOMPARE(f.txtAction.Text(), QStringLiteral("mailto:"));
            f.cmdOK.press();
        });
        ts->run("mnuInsertFormSettings");
        QCOMPARE(layoutOf(ts->active()).pasted,
                 QStringList{"<form action=\"mailto:\">&nbsp;&nbsp;</form>"});
        QCOMPARE(pane().Text(), QStringLiteral("<body></body>"));
        QCOMPARE(ts->platform.messages.size(), 1);
        QCOMPARE(ts->platform.messages.first().icon, MsgIcon::Information);
        QVERIFY(
            ts->platform.messageTexts().first().startsWith("Your form details have been added."));
    }
};

QTEST_GUILESS_MAIN(FormDialogsTest)
#include "test_form_dialogs.moc"
