// The Page Properties dialog's own rules: the reading of the body tag by text search with its
// odd cases, the tag OK writes, the colour boxes' keys, the preview with its reading of six
// hex digits, and the Layout view's document colours.
#include "dialogs/frm_colours.h"
#include "dialogs_helpers.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kDefaultTag =
    QStringLiteral("<body bgcolor=\"#C0C0C0\" text=\"#000000\" link=\"#0000FF\" "
                   "vlink=\"#800080\" alink=\"#FF0000\">");
const QString kShown = QStringLiteral("Back;TextBox;LinkBox;VlinkBox;ALinkBox;BGImgBox;chkFixed");

// Opens Page Properties from its menu on a document holding `text`, runs the script on the
// dialog, and answers the document.
codeEditor& withColours(TestShell& ts, const QString& text,
                        const std::function<void(Colours&)>& script) {
    ts.load();
    codeEditor& doc = ts.active();
    doc.codebox().setText(text);
    doc.AddStep();
    doc.codebox().setSelStart(0);
    ts.forms.then<Colours>(script);
    ts.run("mnuEditProperties");
    return doc;
}
} // namespace

class ColoursTest : public QObject {
    Q_OBJECT

  private slots:
    // The body tag, and what the five colour boxes, the image and the check show.
    void readingTheBodyTag_data() {
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
        // The box holds seven characters, so the run-on value is cut.
        row("text inside a value runs into the next attribute",
            "<body background=\"text.gif\" bgcolor=\"#AAAAAA\">",
            "#AAAAAA; bgcolo;#0000FF;#800080;#FF0000;text.gif;0");
        row("an image, fixed", "<body background=\"img/bg.gif\" bgproperties=\"fixed\">",
            "#C0C0C0;#000000;#0000FF;#800080;#FF0000;img/bg.gif;1");
        row("fixed unquoted", "<body background=\"a.gif\" bgproperties=fixed>",
            "#C0C0C0;#000000;#0000FF;#800080;#FF0000;a.gif;1");
        row("an unquoted image is not read", "<body background=a.gif>", "#C0C0C0" + rest);
        // Positions are 16-bit: a body tag far down the page is not read, and nothing breaks.
        row("beyond the 16-bit range", QString(40000, 'x') + "<body bgcolor=\"#123456\">",
            "#C0C0C0" + rest);
    }
    void readingTheBodyTag() {
        QFETCH(QString, tag);
        TestShell ts;
        QString shown;
        withColours(ts, "<html>\n" + tag + "\n<p>x</p>\n</body></html>", [&](Colours& f) {
            shown = valuesOf(f, kShown);
            f.Cancel.press();
        });
        QTEST(shown, "shown");
    }

    // The whole old tag goes, in lower case, with all five colours and the image's two. A page
    // without a body tag stays as it is, without a step.
    void okReplacesTheBodyTag_data() {
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
    }
    void okReplacesTheBodyTag() {
        QFETCH(QString, tag);
        QFETCH(QString, fields);
        QFETCH(QString, written);
        TestShell ts;
        Int16 done = -1;
        codeEditor& doc = withColours(ts, "<html>\n" + tag + "\n<p>x</p></html>", [&](Colours& f) {
            done = ts.active().nDoneIndex;
            setFields(f, fields);
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        QCOMPARE(doc.codebox().Text(), "<html>\n" + written + "\n<p>x</p></html>");
        QCOMPARE(doc.nDoneIndex, Int16(done + (written == tag ? 0 : 1)));
        if (written == tag) return;
        ts.run("mnuEditUndo");
        QCOMPARE(doc.codebox().Text(), "<html>\n" + tag + "\n<p>x</p></html>");
    }

    void cancelPutsTheCaretBehindTheTag() {
        TestShell ts;
        const QString page = QStringLiteral("<html><body text=\"#111111\">\n<p>x</p>");
        codeEditor& doc = withColours(ts, page, [](Colours& f) { f.Cancel.press(); });
        QCOMPARE(doc.codebox().Text(), page);
        QCOMPARE(doc.codebox().SelStart(), page.indexOf('>', 6) + 1);
    }

    void theLayoutViewUsesTheDocumentColours() {
        TestShell ts;
        ts.load().bLayoutActive = true;
        codeEditor& doc = ts.active();
        DetachedLayout& layout = layoutOf(doc);
        layout.colours = {{"bgColor", "#ffffff"},
                          {"fgColor", "#000080"},
                          {"linkColor", "blue"},
                          {"alinkColor", "#ff0000"},
                          {"vlinkColor", "#800080"}};
        const QString source = doc.codebox().Text();
        const int steps = doc.nDoneIndex;
        ts.forms.then<Colours>([](Colours& f) {
            QCOMPARE(valuesOf(f, kShown), QString("#FFFFFF;#000080;BLUE;#800080;#FF0000;;0"));
            setFields(f, "Back=#ffcc00;BGImgBox=ignored.gif");
            f.OK.press();
        });
        ts.run("mnuEditProperties");
        QCOMPARE(layout.colours.value("bgColor") + layout.colours.value("linkColor"),
                 QStringLiteral("#ffcc00BLUE"));
        QCOMPARE(doc.codebox().Text(), source);
        QCOMPARE(doc.nDoneIndex, steps);
        QCOMPARE(layout.focusCount, 1);
    }

    // Hex digits, "#" and backspace; six digits without "#" are full, and say so, but a
    // selection lets them change.
    void theColourBoxKeys_data() {
        columns<QString, QString, int>({"typed", "shown", "beeps"});
        row("lower case kept, others dropped", "#a-bC9x", "#abC9", 0);
        row("with # up to seven", "#12345678", "#123456", 0);
        row("without # six, then a beep a key", "1234567\b", "123456", 2);
    }
    void theColourBoxKeys() {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(int, beeps);
        TestShell ts;
        withColours(ts, "<body>", [&](Colours& f) {
            f.ALinkBox.setText("");
            f.ALinkBox.typeText(typed);
            QCOMPARE(f.ALinkBox.Text(), shown);
            QCOMPARE(ts.platform.beeps, beeps);
            f.ALinkBox.SelStart = 0;
            f.ALinkBox.SelLength = shown.size();
            f.ALinkBox.typeText("#abcdef");
            QCOMPARE(f.ALinkBox.Text(), QStringLiteral("#abcdef"));
            QCOMPARE(ts.platform.beeps, beeps);
            f.Cancel.press();
        });
    }

    // The preview follows each box: the last six characters as hex digits, the field's
    // default for what is no colour.
    void thePreviewFollowsTheBoxes() {
        TestShell ts;
        withColours(ts, "<body bgcolor=red>", [&](Colours& f) {
            QCOMPARE(f.BGColor.BackColor(), 0xC0C0C0);
            setFields(f, "TextBox=#FF8000;LinkBox=#12;VlinkBox=z123456;ALinkBox=#12345G");
            QCOMPARE(f.Text.ForeColor(), 0x0080FF); // red in the lowest byte
            QCOMPARE(f.Link.ForeColor(), 0xFF0000); // 0000FF, the link's default
            QCOMPARE(f.VLink.ForeColor(), 0x563412);
            QCOMPARE(f.ALink.ForeColor(), 0x0000FF);
            // The picker writes "#" and the colour, and leaves the focus where it was.
            QSignalSpy focus(&f.VlinkBox, &Control::focusRequested);
            ts.platform.colorAnswers.enqueue(0x00FF00u);
            f.VLinkMore.press();
            QCOMPARE(f.VlinkBox.Text(), QStringLiteral("#00FF00"));
            QCOMPARE(f.VLink.ForeColor(), 0x00FF00);
            QCOMPARE(focus.count(), 0);
            f.Cancel.press();
        });
    }
};

QTEST_MAIN(ColoursTest)
#include "test_frm_colours.moc"
