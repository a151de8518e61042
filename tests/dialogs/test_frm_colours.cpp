// The Page Properties dialog's own rules: the reading of six hex digits, the reading of the
// body tag by text search with its odd cases, the tag OK writes, the colour boxes' keys, the
// preview, and the Layout view's document colours.
#include "dialogs/frm_colours.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSignalSpy>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kDefaultTag =
    QStringLiteral("<body bgcolor=\"#C0C0C0\" text=\"#000000\" link=\"#0000FF\" "
                   "vlink=\"#800080\" alink=\"#FF0000\">");

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
    void hexToColour_data() {
        columns<QString, bool, long>({"text", "ok", "value"});
        QTest::newRow("with #") << "#FF0000" << true << 0xFF0000L;
        QTest::newRow("without #") << "80ff00" << true << 0x80FF00L;
        QTest::newRow("last six of a longer text") << "zz123456" << true << 0x123456L;
        QTest::newRow("too short") << "#12" << false << 0L;
        QTest::newRow("not a hex digit") << "#12345G" << false << 0L;
        QTest::newRow("a name") << "purple" << false << 0L;
    }
    void hexToColour() {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        QFETCH(long, value);
        long read = -1;
        QCOMPARE(HexToColour(text, read), ok);
        if (ok) QCOMPARE(read, value);
    }

    // The body tag, and what the five boxes show when the dialog opens on it.
    void readingTheBodyTag_data() {
        columns<QString, QStringList>({"tag", "boxes"});
        const QStringList defaults{"#C0C0C0", "#000000", "#0000FF", "#800080", "#FF0000"};
        QTest::newRow("no attributes") << "<body>" << defaults;
        QTest::newRow("no body tag") << "<p>" << defaults;
        QTest::newRow("a colour name, as spelled")
            << "<body bgcolor=red>"
            << QStringList{"red", "#000000", "#0000FF", "#800080", "#FF0000"};
        QTest::newRow("any case") << "<BODY BGCOLOR=\"#ff0000\">"
                                  << QStringList{"#ff0000", "#000000", "#0000FF", "#800080",
                                                 "#FF0000"};
        QTest::newRow("all five quoted")
            << "<body text=\"#0000FF\" link=\"#00FF00\" vlink=\"#FF00FF\" alink=\"#00FFFF\" "
               "bgcolor=\"#FFFF00\">"
            << QStringList{"#FFFF00", "#0000FF", "#00FF00", "#FF00FF", "#00FFFF"};
        QTest::newRow("link behind vlink takes its value")
            << "<body vlink=\"#111111\" link=\"#222222\">"
            << QStringList{"#C0C0C0", "#000000", "#111111", "#111111", "#FF0000"};
        QTest::newRow("unquoted: to the blank, the last one short of >")
            << "<body text=#123456 bgcolor=#ABCDEF>"
            << QStringList{"#ABCDEF", "#ABCDEF", "#0000FF", "#800080", "#FF0000"};
        QTest::newRow("unquoted after bgcolor: text's = is skipped")
            << "<body bgcolor=#FFFFFF text=#123456>"
            << QStringList{"#FFFFFF", "#000000", "#0000FF", "#800080", "#FF0000"};
        // The box holds seven characters, so the run-on value is cut.
        QTest::newRow("text inside a value runs into the next attribute")
            << "<body background=\"text.gif\" bgcolor=\"#AAAAAA\">"
            << QStringList{"#AAAAAA", " bgcolo", "#0000FF", "#800080", "#FF0000"};
    }
    void readingTheBodyTag() {
        QFETCH(QString, tag);
        QFETCH(QStringList, boxes);
        TestShell ts;
        QStringList shown;
        withColours(ts, "<html>\n" + tag + "\n<p>x</p>\n</body></html>", [&](Colours& f) {
            for (TextBox* box : {&f.Back, &f.TextBox, &f.LinkBox, &f.VlinkBox, &f.ALinkBox})
                shown.append(box->Text());
            f.Cancel.press();
        });
        QCOMPARE(shown, boxes);
    }

    void readingTheBackground_data() {
        columns<QString, QString, bool>({"tag", "image", "fixed"});
        QTest::newRow("quoted, fixed") << "<body background=\"img/bg.gif\" bgproperties=\"fixed\">"
                                       << "img/bg.gif" << true;
        QTest::newRow("fixed unquoted") << "<body background=\"a.gif\" bgproperties=fixed>"
                                        << "a.gif" << true;
        QTest::newRow("unquoted image is not read") << "<body background=a.gif>"
                                                    << "" << false;
    }
    void readingTheBackground() {
        QFETCH(QString, tag);
        QFETCH(QString, image);
        QFETCH(bool, fixed);
        TestShell ts;
        withColours(ts, tag + "\n</body>", [&](Colours& f) {
            QCOMPARE(f.BGImgBox.Text(), image);
            QCOMPARE(f.chkFixed.Value() == 1, fixed);
            f.Cancel.press();
        });
    }

    // The whole old tag goes, in lower case, with all five colours and the image's two.
    void okReplacesTheBodyTag_data() {
        columns<QString, std::function<void(Colours&)>, QString>({"tag", "fill", "written"});
        using F = std::function<void(Colours&)>;
        QTest::newRow("defaults") << "<body>" << F([](Colours&) {}) << kDefaultTag;
        QTest::newRow("other attributes are lost")
            << "<BODY onload=\"go()\" bgcolor=\"#ffffff\">" << F([](Colours&) {})
            << QString(kDefaultTag).replace("#C0C0C0", "#ffffff");
        QTest::newRow("an emptied box is written empty")
            << "<body>" << F([](Colours& f) { f.Back.setText(""); })
            << QString(kDefaultTag).replace("\"#C0C0C0\"", "\"\"");
        QTest::newRow("image and fixed") << "<body>" << F([](Colours& f) {
            f.BGImgBox.setText("bg.gif");
            f.chkFixed.setValue(1);
        }) << kDefaultTag.chopped(1) + " background=\"bg.gif\" bgproperties=\"fixed\">";
        QTest::newRow("fixed without an image writes nothing")
            << "<body>" << F([](Colours& f) { f.chkFixed.setValue(1); }) << kDefaultTag;
    }
    void okReplacesTheBodyTag() {
        QFETCH(QString, tag);
        QFETCH(std::function<void(Colours&)>, fill);
        QFETCH(QString, written);
        TestShell ts;
        const Int16 done = 0;
        codeEditor& doc = withColours(ts, "<html>\n" + tag + "\n<p>x</p></html>", [&](Colours& f) {
            fill(f);
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        QCOMPARE(doc.codebox().Text(), "<html>\n" + written + "\n<p>x</p></html>");
        QVERIFY(doc.nDoneIndex > done);
        ts.run("mnuEditUndo");
        QCOMPARE(doc.codebox().Text(), "<html>\n" + tag + "\n<p>x</p></html>");
    }

    // Positions are 16-bit: a body tag far down the page is not read, and nothing breaks.
    void aBodyTagBeyondThe16BitRangeIsPassedOver() {
        TestShell ts;
        const QString page =
            QString(40000, QLatin1Char('x')) + QStringLiteral("<body bgcolor=\"#123456\">");
        withColours(ts, page, [](Colours& f) {
            QCOMPARE(f.Back.Text(), QStringLiteral("#C0C0C0"));
            f.Cancel.press();
            QVERIFY(!f.isLoaded());
        });
    }

    void okWithoutABodyTagLeavesThePage() {
        TestShell ts;
        const QString page = QStringLiteral("<p>no body here</p>");
        int steps = -1;
        codeEditor& doc = withColours(ts, page, [&](Colours& f) {
            steps = ts.active().nDoneIndex;
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        QCOMPARE(doc.codebox().Text(), page);
        QCOMPARE(doc.nDoneIndex, steps);
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
        ts.load();
        codeEditor& doc = ts.active();
        DetachedLayout& layout = layoutOf(doc);
        layout.colours = {{"bgColor", "#ffffff"},
                          {"fgColor", "#000080"},
                          {"linkColor", "blue"},
                          {"alinkColor", "#ff0000"},
                          {"vlinkColor", "#800080"}};
        ts->bLayoutActive = true;
        const QString source = doc.codebox().Text();
        const int steps = doc.nDoneIndex;
        ts.forms.then<Colours>([](Colours& f) {
            QCOMPARE(f.Back.Text(), QStringLiteral("#FFFFFF"));
            QCOMPARE(f.TextBox.Text(), QStringLiteral("#000080"));
            QCOMPARE(f.LinkBox.Text(), QStringLiteral("BLUE"));
            f.Back.setText("#ffcc00");
            f.BGImgBox.setText("ignored.gif");
            f.OK.press();
        });
        ts.run("mnuEditProperties");
        QCOMPARE(layout.colours.value("bgColor"), QStringLiteral("#ffcc00"));
        QCOMPARE(layout.colours.value("linkColor"), QStringLiteral("BLUE"));
        QCOMPARE(doc.codebox().Text(), source);
        QCOMPARE(doc.nDoneIndex, steps);
        QCOMPARE(layout.focusCount, 1);
    }

    // Hex digits, "#" and backspace; six digits without "#" are full, and say so.
    void theColourBoxKeys_data() {
        columns<QString, QString, int>({"typed", "shown", "beeps"});
        QTest::newRow("lower case kept, others dropped") << "#a-bC9x"
                                                         << "#abC9" << 0;
        QTest::newRow("with # up to seven") << "#12345678"
                                            << "#123456" << 0;
        QTest::newRow("without # six, then a beep a key") << "1234567\b"
                                                          << "123456" << 2;
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
            // A selection lets a full box change.
            if (shown.size() == 6) {
                f.ALinkBox.SelLength = 6;
                int key = 'A';
                f.ALinkBox.KeyPress(key);
                QCOMPARE(key, int('A'));
                // Typing over it replaces the digits.
                f.ALinkBox.SelStart = 0;
                f.ALinkBox.SelLength = 6;
                f.ALinkBox.typeText("#abcdef");
                QCOMPARE(f.ALinkBox.Text(), QStringLiteral("#abcdef"));
                QCOMPARE(ts.platform.beeps, beeps);
            }
            f.Cancel.press();
        });
    }

    // The preview follows each box, with the field's default for what is no colour.
    void thePreviewFollowsTheBoxes() {
        TestShell ts;
        withColours(ts, "<body bgcolor=red>", [&](Colours& f) {
            QCOMPARE(f.BGColor.BackColor(), 0xC0C0C0);
            f.TextBox.setText("#FF8000");
            QCOMPARE(f.Text.ForeColor(), 0x0080FF); // red in the lowest byte
            f.LinkBox.setText("#12");
            QCOMPARE(f.Link.ForeColor(), 0xFF0000); // 0000FF, the link's default
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
