// What every dialog shares (on a small dialog), their commands; links, image, Page Properties.
#include "dialogs/frm_colours.h"
#include "dialogs/frm_hyperlink.h"
#include "dialogs/new_image.h"
#include "dialogs_helpers.h"
#include "editor/text_pane.h"
#include "frm_tiny.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kDefaultTag =
    QStringLiteral("<body bgcolor=\"#C0C0C0\" text=\"#000000\" link=\"#0000FF\" "
                   "vlink=\"#800080\" alink=\"#FF0000\">");
const QString kColourFields =
    QStringLiteral("Back;TextBox;LinkBox;VlinkBox;ALinkBox;BGImgBox;chkFixed");
const QString kLink = QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"s.css\">");

// A document holding a page, with a selection, its dialogs opened from their menu items.
struct Page : TestShell {
    explicit Page(const QString& text = QString(), int selStart = 0, int selLength = 0) {
        load();
        if (text.isNull()) return;
        pane().setText(text);
        active().AddStep();
        pane().select(selStart, selLength);
    }
    SourcePane& pane() { return active().codebox(); }
    template <typename F> void show(const char* item, const std::function<void(F&)>& script) {
        forms.then<F>(script);
        run(item);
    }
    template <typename F> void ok(const char* item, const std::function<void(F&)>& fill) {
        show<F>(item, [fill](F& f) {
            fill(f);
            f.OK.press();
        });
    }
    void hyperlink(const QString& fields) {
        ok<frmHyperlink>("mnuInsertHyperlink", [&](frmHyperlink& f) { setFields(f, fields); });
    }
    // The small dialog on the document in front: is it open after the script?
    bool tiny(const std::function<void(frmTiny&)>& script) {
        shell->CurrentDocument = shell->ActiveForm();
        frmTiny form(*shell);
        script(form);
        return form.isLoaded();
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

class DialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void everyDialogOpensFromItsCommandsWithItsCaption_data() {
        columns<QString, QString, int, QString>({"item", "toolbar", "button", "shown"});
        row("preferences", "mnuEditPrefs", "", 0, "frmOptions: Preferences");
        row("page", "mnuEditProperties", "tbrTags", 11, "Colours: Page Properties");
        row("anchor", "mnuInsertAnchor", "tbrTags", 13, "frmAnchor: Insert Anchor / Bookmark");
        row("link", "mnuInsertHyperlink", "tbrTags", 14, "frmHyperlink: Insert Hyperlink");
        row("image", "mnuInsertImage", "tbrTags", 16, "NewImage: Insert Image");
        row("table", "mnuInsertTable", "tbrTags", 21, "frmTable: Insert Table");
        row("css link", "mnuInsertLink", "tbrMain", 20, "frmLink: Link to ...");
        row("style", "mnuInsertCSS", "tbrMain", 19, "frmStyle: Style Settings");
    }
    void everyDialogOpensFromItsCommandsWithItsCaption() {
        Page t;
        QFETCH(QString, item);
        QFETCH(QString, toolbar);
        QFETCH(int, button);
        QFETCH(QString, shown);
        QStringList seen;
        for (int i = 0; i < 2; ++i)
            t.forms.scripts.enqueue([&](Form& f) {
                seen.append(f.formName() + ": " + f.Caption());
                f.Unload();
            });
        t.run(item.toUtf8().constData());
        if (!toolbar.isEmpty()) (toolbar == "tbrTags" ? t->tbrTags : t->tbrMain).press(button);
        QCOMPARE(seen, QStringList(toolbar.isEmpty() ? 1 : 2, shown));
        QVERIFY(t.platform.messages.isEmpty());
    }

    // OK inserts at the caret as one step or pastes in Layout; a failure keeps the dialog open.
    void theCommitSequence() {
        Page t("ab", 1);
        t->bCaretStepTaken = true;
        QVERIFY(!t.tiny([](frmTiny& f) {
            setFields(f, "txtSize=7");
            f.OK.press();
        }));
        QCOMPARE(t.pane().Text() + t.active().Tag,
                 QStringLiteral("a<tiny size=\"7\" color=\"\">bDirty"));
        QVERIFY(!t->bInsertingMarkup && !t->bCaretStepTaken);
        t.run("mnuEditUndo");
        QCOMPARE(t.pane().Text(), QStringLiteral("ab"));
        t->bLayoutActive = true;
        QVERIFY(!t.tiny([](frmTiny& f) { f.OK.press(); }));
        QCOMPARE(layoutOf(t.active()).pasted, QStringList{"<tiny size=\"1\" color=\"\">"});
        QCOMPARE(t.pane().Text(), QStringLiteral("ab"));
        QVERIFY(!t->bInsertingMarkup);
        layoutOf(t.active()).refusePaste = true;
        QVERIFY(t.tiny([](frmTiny& f) { f.OK.press(); }));
        QVERIFY(t->bInsertingMarkup && t.platform.messages.isEmpty());
    }

    // Cancel changes nothing and gives the document the focus; the close box presses it.
    void cancelChangesNothing() {
        Page t;
        const QString before = t.pane().Text();
        int focused = 0;
        connect(&t.active(), &codeEditor::focusRequested, this, [&] { ++focused; });
        QVERIFY(!t.tiny([](frmTiny& f) {
            QVERIFY(f.defaultButton() == &f.OK && f.cancelButton() == &f.Cancel);
            setFields(f, "txtSize=5");
            f.closeBox();
        }));
        QCOMPARE(t.pane().Text() + t.active().Tag, before + "Clean");
        QVERIFY(!t->menu("mnuEditUndo").Enabled());
        QCOMPARE(focused, 1);
        // A Cancel that keeps the dialog open; no Cancel button: the close box just unloads.
        QVERIFY(t.tiny([](frmTiny& f) {
            f.Cancel.Click = [] {};
            f.closeBox();
        }));
        QVERIFY(!t.tiny([](frmTiny& f) {
            f.Cancel.Cancel = false;
            f.Cancel.Click = [] {};
            f.closeBox();
        }));
    }

    // Digits only; hex digits in capitals up to the box's length; backspace; the colour picker.
    void keyFiltersAndTheColourPicker() {
        Page t;
        frmTiny form(*t);
        for (const char* typed : {"txtSize=a1-b2.3\b4=124", "txtColour=#ff0Gg\b0abc01=FF0ABC",
                                  "txtFile=a b.gif\b=a b.gi"}) {
            auto& box = static_cast<TextBox&>(*form.control(QString(typed).section('=', 0, 0)));
            box.setText(QString());
            box.typeText(QString(typed).section('=', 1, 1));
            QCOMPARE(box.Text(), QString(typed).section('=', 2));
        }
        int focused = 0;
        connect(&form.txtColour, &Control::focusRequested, this, [&] { ++focused; });
        // Red FF, green 80, blue 00; then blue alone, padded to six digits.
        t.platform.colorAnswers << 0x0080FFu << 0x050000u << std::nullopt;
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("FF8000"));
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("000005"));
        QCOMPARE(focused, 2);
        // A cancel keeps the box, even with a dialog that does not raise on cancel.
        form.cdTiny.CancelError = false;
        form.txtColour.setText("ABCDEF");
        form.cmdColour.press();
        QCOMPARE(form.txtColour.Text(), QStringLiteral("ABCDEF"));
        QCOMPARE(focused, 2);
        QVERIFY(!form.cdTiny.CancelError && t.platform.messages.isEmpty());
    }

    void theFileBrowse() {
        Page t("ab", 1);
        t.pane().setFileName("/web/site/page.htm");
        t.active().txtFileTitle = "page.htm";
        t->OpenSave.InitDir = "/web/site/";
        frmTiny form(*t);
        form.cdTiny.InitDir = "/web/site/";
        t.platform.fileAnswers << FileDialogAnswer::file("/web/img/bg.gif")
                               << FileDialogAnswer::file("/web/site/img/bg.gif")
                               << FileDialogAnswer::cancel();
        // A link that climbs keeps the start folders.
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text() + form.cdTiny.InitDir, QString("../img/bg.gif/web/site/"));
        QVERIFY(!t->bRelativeUp);
        // Anything else clears them, a cancel too.
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTiny.InitDir + t->OpenSave.InitDir, QString());
        form.cdTiny.InitDir = "/x/";
        form.cmdFile.press();
        QCOMPARE(form.txtFile.Text() + form.cdTiny.InitDir, QStringLiteral("img/bg.gif"));
    }

    // A link goes around the selection; without one the caret stands inside. One step each.
    void aLinkWrapsTheSelection() {
        Page t("click here now", 6, 4);
        t->bCaretStepTaken = true;
        t.hyperlink("URLBox=a.htm");
        QCOMPARE(t.pane().Text(), QStringLiteral("click <a href=\"a.htm\">here</a> now"));
        QCOMPARE(t.pane().SelText(), QStringLiteral("here"));
        QVERIFY(!t->bInsertingMarkup && !t->bCaretStepTaken);
        t.pane().setSelStart(1);
        t.hyperlink("URLBox=b.htm;AnchorBox=top;cmbTarget=New window");
        QCOMPARE(t.pane().Text(), "c<a href=\"b.htm#top\" target=\"_blank\"></a>lick <a "
                                  "href=\"a.htm\">here</a> now");
        QCOMPARE(t.pane().SelStart(), 37);
        QCOMPARE(t->nStepCaretAdvance, Int16(0));
        QVERIFY(!t->bInsertingMarkup);
        t.active().Undo();
        t.active().Undo();
        QCOMPARE(t.pane().Text(), QStringLiteral("click here now"));
    }

    // Fields, then the link written, or the message that keeps the dialog open.
    void aHyperlinkIsWrittenOrRefused_data() {
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
    void aHyperlinkIsWrittenOrRefused() {
        QFETCH(QString, fields);
        Page t("");
        bool stayed = false;
        t.show<frmHyperlink>("mnuInsertHyperlink", [&](frmHyperlink& f) {
            QVERIFY(!f.FNameBox.Enabled());
            setFields(f, fields);
            QCOMPARE(f.FNameBox.Enabled(), fields.contains("cmbTarget=Other"));
            f.OK.press();
            stayed = f.isLoaded();
        });
        QTEST(stayed ? t.messages() : t.pane().Text(), "result");
        QCOMPARE(stayed, !t.platform.messages.isEmpty());
    }

    void theEmailHelperComposesTheAddress() {
        Page t("");
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
        QCOMPARE(t.messages(),
                 QStringLiteral("Invalid E-mail Address: You must define an e-mail address."));
        QCOMPARE(t.pane().Text(),
                 QStringLiteral("<a href=\"mailto:me@example.org?subject=two words\"></a>"));
    }

    // Without a selection a link shows its URL (a selection: test_views); a style sheet link
    // goes into the surface's page.
    void inLayoutTheLinksGoOnTheSurface() {
        Page t("<p>x</p>");
        t->bLayoutActive = true;
        DetachedLayout& layout = layoutOf(t.active());
        t.hyperlink("URLBox=a.htm;AnchorBox=top");
        QCOMPARE(layout.pasted, QStringList{"<a href=\"a.htm#top\">a.htm</a>"});
        QVERIFY(t.pane().Text() == "<p>x</p>" && !t->bInsertingMarkup);
        layout.setDocumentHTML("<body>y</body>");
        t.show<frmLink>("mnuInsertLink", [](frmLink& f) {
            setFields(f, "txtLinkTo=s.css");
            f.cmdOK.press();
        });
        QCOMPARE(layout.DocumentHTML(), kLink + "\n<body>y</body>");
        QCOMPARE(layout.focusCount, 2);
    }

    void anAnchorIsNamedAndWrittenToSourceInAnyView() {
        Page t("top of page", 0, 3);
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

    // The element and a line end go before the body tag (any case), else at the caret.
    void theStyleSheetLinkGoesBeforeTheBody_data() {
        columns<QString, QString>({"text", "result"});
        row("body", "<html><BODY>x</BODY>", "<html>" + kLink + "\n<BODY>x</BODY>");
        row("no body", "ab", kLink + "ab");
    }
    void theStyleSheetLinkGoesBeforeTheBody() {
        QFETCH(QString, text);
        Page t(text);
        const Int16 done = t.active().nDoneIndex;
        auto& pane = static_cast<TextPane&>(t.pane());
        int focus = -1;
        t.show<frmLink>("mnuInsertLink", [&](frmLink& f) {
            QVERIFY(!f.cmdOK.Enabled());
            setFields(f, "txtLinkTo=s.css");
            QVERIFY(f.cmdOK.Enabled());
            focus = pane.focusCount();
            f.cmdOK.press();
        });
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
        setFields(form, "WidthB=;HeightB=;Vspace=;HSpace=");
        for (TextBox* box : {&form.WidthB, &form.HeightB, &form.Vspace, &form.HSpace})
            box->typeText("1x2");
        QCOMPARE(valuesOf(form, "WidthB;HeightB;Vspace;HSpace"), QStringLiteral("12;12;12;12"));
    }

    // A static image is needed; the element is one step, the insert flag left as it was.
    void theImageCommitsInItsOwnWay() {
        Page t("ab", 1);
        const Int16 done = t.active().nDoneIndex;
        t->bInsertingMarkup = true;
        t.ok<NewImage>("mnuInsertImage", [&t](NewImage& f) {
            QVERIFY(f.ImageFiles.hasFlag(CommonDialog::FileMustExist));
            t.platform.fileAnswers << FileDialogAnswer::cancel() << FileDialogAnswer::cancel();
            f.Command1.press();
            QCOMPARE(f.ImageFiles.Filter,
                     QStringLiteral("Movie Files (*.avi; *.mpg; *.mpeg)|*.avi; *.mpg; *.mpeg"));
            f.BrowseLS.press();
            QVERIFY(f.ImageFiles.Filter.startsWith(QStringLiteral("All Formats|")));
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

    // The body tag, and what Page Properties shows of it: the five colours, image and check.
    void pagePropertiesReadsTheBodyTag_data() {
        columns<QString, QString>({"tag", "shown"});
        const QString rest = ";#000000;#0000FF;#800080;#FF0000;;0";
        row("no attributes", "<body>", "#C0C0C0" + rest);
        row("no body tag", "<p>", "#C0C0C0" + rest);
        row("a colour name, as spelled", "<body bgcolor=red>", "red" + rest);
        row("any case", "<BODY BGCOLOR=\"#ff0000\">", "#ff0000" + rest);
        row("all five quoted",
            "<body text=\"#0000FF\" link=\"#00FF00\" vlink=\"#FF00FF\" alink=\"#00FFFF\" "
            "bgcolor=\"#FFFF00\">",
            "#FFFF00;#0000FF;#00FF00;#FF00FF;#00FFFF;;0");
        row("link behind vlink takes its value", "<body vlink=\"#111111\" link=\"#222222\">",
            "#C0C0C0;#000000;#111111;#111111;#FF0000;;0");
        row("unquoted: to the blank, the last one short of >",
            "<body text=#123456 bgcolor=#ABCDEF>", "#ABCDEF;#ABCDEF;#0000FF;#800080;#FF0000;;0");
        row("unquoted after bgcolor: text's = is skipped", "<body bgcolor=#FFFFFF text=#123456>",
            "#FFFFFF" + rest);
        // A value is read whole, also past the seven characters a user may type.
        row("text inside a value runs into the next attribute",
            "<body background=\"text.gif\" bgcolor=\"#AAAAAA\">",
            "#AAAAAA; bgcolor=;#0000FF;#800080;#FF0000;text.gif;0");
        row("a long colour name", "<body bgcolor=\"lightgoldenrodyellow\">",
            "lightgoldenrodyellow" + rest);
        row("an image, fixed", "<body background=\"img/bg.gif\" bgproperties=\"fixed\">",
            "#C0C0C0;#000000;#0000FF;#800080;#FF0000;img/bg.gif;1");
        row("fixed unquoted", "<body background=\"a.gif\" bgproperties=fixed>",
            "#C0C0C0;#000000;#0000FF;#800080;#FF0000;a.gif;1");
        row("an unquoted image is not read", "<body background=a.gif>", "#C0C0C0" + rest);
        // Positions are 16-bit: a body tag far down the page is not read, and nothing breaks.
        row("beyond the 16-bit range", QString(40000, 'x') + "<body bgcolor=\"#123456\">",
            "#C0C0C0" + rest);
    }
    void pagePropertiesReadsTheBodyTag() {
        QFETCH(QString, tag);
        const QString page = "<html>\n" + tag + "\n<p>x</p>\n</body></html>";
        Page t(page);
        QString shown;
        t.show<Colours>("mnuEditProperties", [&](Colours& f) {
            shown = valuesOf(f, kColourFields);
            f.Cancel.press();
        });
        QTEST(shown, "shown");
        // Cancel puts the caret behind the tag.
        QCOMPARE(t.pane().Text(), page);
        if (tag.startsWith("<b", Qt::CaseInsensitive))
            QCOMPARE(t.pane().SelStart(), page.indexOf('>', 8) + 1);
    }

    // The whole old tag goes, written in lower case; a page without one stays, without a step.
    void pagePropertiesReplacesTheBodyTag_data() {
        columns<QString, QString, QString>({"tag", "fields", "written"});
        row("defaults", "<body>", "", kDefaultTag);
        row("other attributes are lost", "<BODY onload=\"go()\" bgcolor=\"#ffffff\">", "",
            QString(kDefaultTag).replace("#C0C0C0", "#ffffff"));
        row("an emptied box is written empty", "<body>",
            "Back=", QString(kDefaultTag).replace("\"#C0C0C0\"", "\"\""));
        row("image and fixed", "<body>", "BGImgBox=bg.gif;chkFixed=1",
            kDefaultTag.chopped(1) + " background=\"bg.gif\" bgproperties=\"fixed\">");
        row("fixed without an image writes nothing", "<body>", "chkFixed=1", kDefaultTag);
        row("no body tag", "<p>", "Back=#123456", "<p>");
        row("a long colour name stays whole", "<body bgcolor=\"lightgoldenrodyellow\">", "",
            QString(kDefaultTag).replace("#C0C0C0", "lightgoldenrodyellow"));
    }
    void pagePropertiesReplacesTheBodyTag() {
        QFETCH(QString, tag);
        QFETCH(QString, fields);
        QFETCH(QString, written);
        Page t("<html>\n" + tag + "\n<p>x</p></html>");
        const Int16 done = t.active().nDoneIndex;
        t.ok<Colours>("mnuEditProperties", [&](Colours& f) { setFields(f, fields); });
        QCOMPARE(t.pane().Text(), "<html>\n" + written + "\n<p>x</p></html>");
        QCOMPARE(t.active().nDoneIndex, Int16(done + (written == tag ? 0 : 1)));
        QVERIFY(t.forms.scripts.isEmpty() && t.platform.messages.isEmpty());
        if (written == tag) return;
        t.run("mnuEditUndo");
        QCOMPARE(t.pane().Text(), "<html>\n" + tag + "\n<p>x</p></html>");
    }

    void pagePropertiesInLayoutUsesTheDocumentColours() {
        Page t("<p>x</p>");
        t->bLayoutActive = true;
        DetachedLayout& layout = layoutOf(t.active());
        for (const QString& c : items("bgColor=#ffffff;fgColor=#000080;linkColor=blue;"
                                      "alinkColor=#ff0000;vlinkColor=#800080"))
            layout.colours[c.section('=', 0, 0)] = c.section('=', 1);
        const int steps = t.active().nDoneIndex;
        t.ok<Colours>("mnuEditProperties", [](Colours& f) {
            QCOMPARE(valuesOf(f, kColourFields),
                     QString("#FFFFFF;#000080;BLUE;#800080;#FF0000;;0"));
            setFields(f, "Back=#ffcc00;BGImgBox=ignored.gif");
        });
        QCOMPARE(layout.colours.value("bgColor") + layout.colours.value("linkColor"),
                 QStringLiteral("#ffcc00BLUE"));
        QCOMPARE(t.pane().Text(), QStringLiteral("<p>x</p>"));
        QCOMPARE(t.active().nDoneIndex, steps);
        QCOMPARE(layout.focusCount, 1);
    }

    // Hex digits, "#" and backspace up to six (seven with "#"), beeping; the preview's colours.
    void theColourBoxesAndThePreview() {
        Page t("<body bgcolor=red>");
        t.show<Colours>("mnuEditProperties", [&](Colours& f) {
            // The box's text, then the beeps so far.
            const auto typed = [&](const char* keys, bool all = false) {
                const int size = f.ALinkBox.Text().size();
                f.ALinkBox.SelStart = all ? 0 : size;
                f.ALinkBox.SelLength = all ? size : 0;
                f.ALinkBox.typeText(keys);
                return f.ALinkBox.Text() + ' ' + QString::number(t.platform.beeps);
            };
            setFields(f, "ALinkBox=");
            QCOMPARE(typed("#a-bC9x"), QString("#abC9 0"));
            QCOMPARE(typed("12345"), QString("#abC912 0")); // with "#" up to seven
            QCOMPARE(typed("123456", true), QString("123456 0"));
            QCOMPARE(typed("7\b"), QString("123456 2"));
            QCOMPARE(typed("#abcdef", true), QString("#abcdef 2"));
            QCOMPARE(f.BGColor.BackColor(), 0xC0C0C0);
            setFields(f, "TextBox=#FF8000;LinkBox=#12;VlinkBox=z123456;ALinkBox=#12345G");
            QCOMPARE(f.Text.ForeColor(), 0x0080FF); // red in the lowest byte
            QCOMPARE(f.Link.ForeColor(), 0xFF0000); // 0000FF, the link's default
            QCOMPARE(f.VLink.ForeColor(), 0x563412);
            QCOMPARE(f.ALink.ForeColor(), 0x0000FF);
            // The picker writes "#" and the colour, and leaves the focus where it was.
            QSignalSpy focus(&f.VlinkBox, &Control::focusRequested);
            t.platform.colorAnswers.enqueue(0x00FF00u);
            f.VLinkMore.press();
            QCOMPARE(f.VlinkBox.Text(), QStringLiteral("#00FF00"));
            QCOMPARE(f.VLink.ForeColor(), 0x00FF00);
            QCOMPARE(focus.count(), 0);
            f.Cancel.press();
        });
    }
};

QTEST_MAIN(DialogsTest)
#include "test_dialog_shapes.moc"
