// Hyperlinks, anchors, style sheet links and images: the wrap around a selection, the empty
// pair with the caret inside, the validation messages in their order, the e-mail helper, the
// Layout path, the link element before the body tag, and the image with its own commit.
#include "dialogs/frm_hyperlink.h"
#include "dialogs/new_image.h"
#include "dialogs_helpers.h"
#include "editor/text_pane.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
struct Links : TestShell {
    explicit Links(const QString& text, int selStart = 0, int selLength = 0) {
        load();
        pane().setText(text);
        active().AddStep();
        pane().setSelStart(selStart);
        pane().setSelLength(selLength);
    }
    SourcePane& pane() { return active().codebox(); }
    template <typename F> void ok(const char* item, const std::function<void(F&)>& fill) {
        forms.then<F>([fill](F& f) {
            fill(f);
            f.OK.press();
        });
        run(item);
    }
    void hyperlink(const QString& fields) {
        ok<frmHyperlink>("mnuInsertHyperlink", [&](frmHyperlink& f) { setFields(f, fields); });
    }
    // The messages shown, each as its title and text.
    QString messages() const {
        QStringList shown;
        for (const ShownMessage& m : platform.messages)
            shown.append(m.title + ": " + m.text);
        return shown.join(u'\n');
    }
};
} // namespace

class LinkDialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void aSelectionIsWrappedAndStaysSelected() {
        Links t("click here now", 6, 4);
        t->bCaretStepTaken = true;
        t.hyperlink("URLBox=a.htm");
        QCOMPARE(t.pane().Text(), QStringLiteral("click <a href=\"a.htm\">here</a> now"));
        QCOMPARE(t.pane().SelText(), QStringLiteral("here"));
        QVERIFY(!t->bInsertingMarkup && !t->bCaretStepTaken);
        t.active().Undo();
        QCOMPARE(t.pane().Text(), QStringLiteral("click here now"));
    }

    void withoutASelectionTheCaretStandsBetweenTheTags() {
        Links t("ab", 1);
        t.hyperlink("URLBox=a.htm;AnchorBox=top;cmbTarget=New window");
        QCOMPARE(t.pane().Text(), QStringLiteral("a<a href=\"a.htm#top\" target=\"_blank\"></a>b"));
        QCOMPARE(t.pane().SelStart(), 37);
        QCOMPARE(t->nStepCaretAdvance, Int16(0));
        QVERIFY(!t->bInsertingMarkup);
        t.active().Undo();
        QCOMPARE(t.pane().Text(), QStringLiteral("ab"));
    }

    // Fields, then the link written in an empty page, or the message that keeps the dialog
    // open (the checks in their order).
    void okWritesOrRefuses_data() {
        columns<QString, QString>({"fields", "result"});
        row("no target", "URLBox=x", "<a href=\"x\"></a>");
        row("same", "URLBox=x;cmbTarget=Same frame", "<a href=\"x\" target=\"_self\"></a>");
        row("top", "URLBox=x;cmbTarget=Display page without frames",
            "<a href=\"x\" target=\"_top\"></a>");
        row("parent", "URLBox=x;cmbTarget=Parent frame", "<a href=\"x\" target=\"_parent\"></a>");
        row("other", "URLBox=x;cmbTarget=Other;FNameBox=main",
            "<a href=\"x\" target=\"main\"></a>");
        row("other, no name", "URLBox=x;cmbTarget=Other", "<a href=\"x\" target=\"\"></a>");
        const QString noUrl = QStringLiteral("Invalid URL: You must specify a valid URL!");
        row("no URL", "", noUrl);
        row("empty URL", "URLBox=;cmbTarget=New window", noUrl);
        row("mail with anchor", "URLBox=MAILTO:a@b;AnchorBox=top;cmbTarget=New window",
            "Anchor not allowed: You can't link to an anchor with an e-mail address");
        row("mail with target", "URLBox=mailto:a@b;cmbTarget=New window",
            "Frame target not allowed: You have set the hyperlink to mailto and used the frames "
            "target box. This is not valid.");
        row("an anchor alone passes", "AnchorBox=top", "<a href=\"http://#top\"></a>");
        row("mail alone passes", "URLBox=mailto:a@b", "<a href=\"mailto:a@b\"></a>");
    }
    void okWritesOrRefuses() {
        QFETCH(QString, fields);
        Links t{QString()};
        bool stayed = false;
        t.forms.then<frmHyperlink>([&](frmHyperlink& f) {
            QVERIFY(!f.FNameBox.Enabled());
            setFields(f, fields);
            QCOMPARE(f.FNameBox.Enabled(), fields.contains("cmbTarget=Other"));
            f.OK.press();
            stayed = f.isLoaded();
        });
        t.run("mnuInsertHyperlink");
        QTEST(stayed ? t.messages() : t.pane().Text(), "result");
        QCOMPARE(stayed, !t.platform.messages.isEmpty());
    }

    void theEmailHelperComposesTheAddress() {
        Links t{QString()};
        t.ok<frmHyperlink>("mnuInsertHyperlink", [&t](frmHyperlink& f) {
            QCOMPARE(f.URLBox.Text(), QStringLiteral("http://"));
            t.forms.then<frmEmail>([](frmEmail& e) {
                QCOMPARE(e.Caption(), QStringLiteral("Link to e-mail address"));
                e.cmdOK.press();
                QVERIFY(e.isLoaded());
                setFields(e, "txtAddress=me@example.org");
                e.cmdOK.press();
            });
            f.cmdMail.press();
            QCOMPARE(f.URLBox.Text(), QStringLiteral("mailto:me@example.org"));
            t.forms.then<frmEmail>([](frmEmail& e) {
                setFields(e, "txtAddress=me@example.org;txtSubject=two words");
                e.cmdOK.press();
            });
            f.cmdMail.press();
        });
        QCOMPARE(t.messages(), QStringLiteral("Invalid E-mail Address: You must define an e-mail "
                                              "address."));
        QCOMPARE(t.pane().Text(),
                 QStringLiteral("<a href=\"mailto:me@example.org?subject=two words\"></a>"));
    }

    void inLayoutTheLinkTakesThePlainTextOrTheUrl() {
        Links t("<p>x</p>");
        t->bLayoutActive = true;
        t.hyperlink("URLBox=a.htm;AnchorBox=top");
        layoutOf(t.active()).selected = QStringLiteral("bold words");
        t.hyperlink("URLBox=b.htm");
        QCOMPARE(layoutOf(t.active()).pasted, (QStringList{"<a href=\"a.htm#top\">a.htm</a>",
                                                           "<a href=\"b.htm\">bold words</a>"}));
        QCOMPARE(t.pane().Text(), QStringLiteral("<p>x</p>"));
        QVERIFY(!t->bInsertingMarkup);
    }

    void anAnchorIsNamedAndWrittenToSourceInAnyView() {
        Links t("top of page", 0, 3);
        t->bLayoutActive = true;
        t.ok<frmAnchor>("mnuInsertAnchor", [](frmAnchor& f) {
            f.OK.press();
            QVERIFY(f.isLoaded());
            setFields(f, "AnchorBox=top");
        });
        QCOMPARE(t.platform.messageTexts(), QStringList{"Invalid Anchor / Bookmark"});
        QCOMPARE(t.pane().Text(), QStringLiteral("<a name=\"top\">top</a> of page"));
        QVERIFY(layoutOf(t.active()).pasted.isEmpty());
        QVERIFY(!t->bInsertingMarkup);
    }

    // The element, a line end behind it, before the body tag found in any case; without one
    // at the caret. The Source pane then has the keyboard, and the insert is one step.
    void theStyleSheetLinkGoesBeforeTheBody_data() {
        columns<QString, QString>({"text", "result"});
        row("body", "<html><BODY>x</BODY>",
            "<html><link rel=\"stylesheet\" type=\"text/css\" href=\"s.css\">\n<BODY>x</BODY>");
        row("no body", "ab", "<link rel=\"stylesheet\" type=\"text/css\" href=\"s.css\">ab");
    }
    void theStyleSheetLinkGoesBeforeTheBody() {
        QFETCH(QString, text);
        Links t(text);
        const Int16 done = t.active().nDoneIndex;
        auto& pane = static_cast<TextPane&>(t.pane());
        int focus = -1;
        t.forms.then<frmLink>([&](frmLink& f) {
            QVERIFY(!f.cmdOK.Enabled());
            setFields(f, "txtLinkTo=s.css");
            QVERIFY(f.cmdOK.Enabled());
            focus = pane.focusCount();
            f.cmdOK.press();
        });
        t.run("mnuInsertLink");
        QTEST(t.pane().Text(), "result");
        QCOMPARE(t.active().nDoneIndex, Int16(done + 1));
        QCOMPARE(pane.focusCount(), focus + 1);
    }

    // Fields, then the image element: its attributes in a fixed order, empty ones left out.
    void theImage_data() {
        columns<QString, QString>({"fields", "markup"});
        row("image", "FileName=a.gif", "<img src=\"a.gif\">");
        row("movie alone", "AVIBox=a.avi", "<img dynsrc=\"a.avi\">");
        row("zero is a width", "FileName=a.gif;WidthB=0", "<img src=\"a.gif\" width=\"0\">");
        row("all, in the element's order",
            "HSpace=4;Vspace=3;HeightB=2;WidthB=1;Alignment=Absmiddle;AltText=a cat;AVIBox=m.avi;"
            "LowSrc=l.gif;FileName=a.gif",
            "<img src=\"a.gif\" lowsrc=\"l.gif\" dynsrc=\"m.avi\" alt=\"a cat\" "
            "align=\"Absmiddle\" "
            "width=\"1\" height=\"2\" vspace=\"3\" hspace=\"4\">");
    }
    void theImage() {
        QFETCH(QString, fields);
        TestShell t;
        NewImage form(*t.shell);
        setFields(form, fields);
        QTEST(form.markup(), "markup");
        QCOMPARE(form.Alignment.items(), items("Left;Right;Top;Bottom;Middle;Absmiddle;Absbottom;"
                                               "Texttop;Baseline;Left;Right"));
        for (TextBox* box : {&form.WidthB, &form.HeightB, &form.Vspace, &form.HSpace}) {
            box->setText(QString());
            box->typeText("1x2");
            QCOMPARE(box->Text(), QStringLiteral("12"));
        }
    }

    // A static image or a movie is needed; the element is one step of its own, and the
    // insert flag is left as it was.
    void theImageCommitsInItsOwnWay() {
        Links t("ab", 1);
        const Int16 done = t.active().nDoneIndex;
        t->bInsertingMarkup = true;
        t.ok<NewImage>("mnuInsertImage", [](NewImage& f) {
            setFields(f, "LowSrc=l.gif");
            f.OK.press();
            QVERIFY(f.isLoaded());
            setFields(f, "FileName=a.gif");
        });
        QCOMPARE(t.messages(), QStringLiteral("No Static Image Defined: You must specify a static "
                                              "image file."));
        QCOMPARE(t.pane().Text(), QStringLiteral("a<img src=\"a.gif\" lowsrc=\"l.gif\">b"));
        QCOMPARE(t.active().nDoneIndex, Int16(done + 1));
        QVERIFY(t->bInsertingMarkup);
        t->bLayoutActive = true;
        t.ok<NewImage>("mnuInsertImage", [](NewImage& f) { setFields(f, "AVIBox=m.avi"); });
        QCOMPARE(layoutOf(t.active()).pasted, QStringList{"<img dynsrc=\"m.avi\">"});
    }

    void theImageBrowseButtons() {
        TestShell t;
        t.load();
        NewImage form(*t.shell);
        form.Form_Load();
        QVERIFY(form.ImageFiles.hasFlag(CommonDialog::FileMustExist));
        t.platform.fileAnswers << FileDialogAnswer::cancel() << FileDialogAnswer::cancel();
        form.Command1.press();
        QCOMPARE(form.ImageFiles.Filter,
                 QStringLiteral("Movie Files (*.avi; *.mpg; *.mpeg)|*.avi; *.mpg; *.mpeg"));
        form.BrowseLS.press();
        QVERIFY(form.ImageFiles.Filter.startsWith(QStringLiteral("All Formats|")));
    }
};

QTEST_GUILESS_MAIN(LinkDialogsTest)
#include "test_link_dialogs.moc"
