// The commands that write markup without a dialog (wraps, paragraph, line break, entities,
// dates, comment, badge) and the edit commands, in Source and Layout view.
#include "editor_fixture.h"
#include "markup/insert_commands.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two three");
} // namespace

class InsertCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    // item # before: flags, view and history # pane before # pane after # flags after # steps
    // after # pane after one Undo ("=": as before; none: not tried) # what the Layout surface
    // got and the clipboard, if changed. Flags: m markup, c caret step; L Layout view, s a style
    // sheet, b the text after already one step below. "|" is the caret, "[..]" the selection.
    void commands_data() {
        columns<QString, QString, QString, QString, QString, int, QString, QString>(
            {"item", "in", "before", "after", "out", "steps", "undo", "log"});
        const char* const rows[] = {
            // Wraps keep the selection, saved below first (but not Right's); the flags end clear.
            "mnuH1##one [two] three#one <h1>[two]</h1> three##2#=",
            "mnuH2##one [two] three#one <h2>[two]</h2> three##2#=",
            "mnuH3##one [two] three#one <h3>[two]</h3> three##2#=",
            "mnuH4##one [two] three#one <h4>[two]</h4> three##2#=",
            "mnuH5##one [two] three#one <h5>[two]</h5> three##2#=",
            "mnuH6##one [two] three#one <h6>[two]</h6> three##2#=",
            "mnuSub##one [two] three#one <sub>[two]</sub> three##2#=",
            "mnuSup##one [two] three#one <sup>[two]</sup> three##2#=",
            "mnuTagsBlock##one [two] three#one <blockquote>[two]</blockquote> three##2#=",
            "mnuTagsBold##one [two] three#one <b>[two]</b> three##2#=",
            "mnuTagsCenter##one [two] three#one <center>[two]</center> three##2#=",
            "mnuTagsItalic##one [two] three#one <i>[two]</i> three##2#=",
            "mnuTagsRight##one [two] three#one <p align=\"right\">[two]</p> three##2#|one two "
            "three",
            "mnuTagsStrike##one [two] three#one <strike>[two]</strike> three##2#=",
            "mnuTagsUnderline##one [two] three#one <u>[two]</u> three##2#=",
            // No selection: an empty pair, the caret between; Redo puts it back there.
            "mnuH2##one |two three#one <h2>|</h2>two three##2#=",
            "mnuTagsRight##one |two three#one <p align=\"right\">|</p>two three##2#=",
            "mnuTagsBlock##one |two three#one <blockquote>|</blockquote>two three##2#=",
            // After a caret move, with the result one step below: a step only when the command
            // set the markup flag as it began.
            "mnuH1#bc#one |two three#one <h1>|</h1>two three##3#",
            "mnuH2#bc#one |two three#one <h2>|</h2>two three##2#",
            "mnuTagsItalic#bc#one |two three#one <i>|</i>two three##2#",
            "mnuTagsBold#bc#one |two three#one <b>|</b>two three##3#",
            // Layout view: the surface's command, or the pane's wrap where there is none.
            "mnuH1#Lc#one |two three#one |two three#mc#1##5043,2,Heading 1",
            "mnuH2#Lc#one |two three#one |two three#c#1##5043,2,Heading 2",
            "mnuH3#Lc#one |two three#one |two three#c#1##5043,2,Heading 3",
            "mnuH4#Lc#one |two three#one |two three#c#1##5043,2,Heading 4",
            "mnuH5#Lc#one |two three#one |two three#c#1##5043,2,Heading 5",
            "mnuH6#Lc#one |two three#one |two three#c#1##5043,2,Heading 6",
            "mnuSub#Lc#one |two three#one <sub>|</sub>two three##2#",
            "mnuSup#Lc#one |two three#one <sup>|</sup>two three##2#",
            "mnuTagsBlock#Lc#one |two three#one |two three#mc#1##5018,0,",
            "mnuTagsBold#Lc#one |two three#one |two three##1##5000,2,",
            "mnuTagsCenter#Lc#one |two three#one |two three##1##5024,2,; focus",
            "mnuTagsItalic#Lc#one |two three#one |two three##1##5000,2,",
            "mnuTagsRight#Lc#one |two three#one |two three##1##5026,2,; focus",
            "mnuTagsStrike#Lc#one |two three#one |two three##1##5000,2,",
            "mnuTagsUnderline#Lc#one |two three#one |two three##1##5000,2,",
            // Paragraph, line break (a line feed alone, no selection saved) and comment.
            "mnuInsertParagraph##one [two] three#one <p>[two] three##2#=",
            "mnuInsertParagraph##|one two three#<p>|one two three##2#=",
            "mnuInsertParagraph#L#one |two three#one |two three##1##paste <p>",
            "mnuInsertParagraph#b#one |two three#one <p>|two three##2#",
            "mnuInsertBreak##one [two] three#one <br>\n| three##2#one two| three",
            "mnuInsertBreak#L#one |two three#one |two three##1##paste <br>",
            "mnuInsertBreak#b#one |two three#one <br>\n|two three##2#",
            "mnuInsertComment##one [two] three#one <!-- [two] --> three##2#=",
            "mnuInsertComment##one |two three#one <!-- | -->two three##2#=",
            "mnuInsertComment#s#one [two] three#one /* [two] */ three##2#=",
            "mnuInsertComment#s#one |two three#one /* | */two three##2#=",
            "mnuInsertComment#b#one |two three#one <!-- | -->two three##2#",
            // Single inserts. Group A (ampersand to less) saves the selection and, after a
            // caret move, adds no step and leaves the flags; B (quote to trade) saves the
            // selection, adds its step and clears the flags; C (space) as B, no selection saved.
            "mnuInsertAmpersand##one [two] three#one &amp;| three##2#=",
            "mnuInsertCopyright##one [two] three#one &copy;| three##2#=",
            "mnuInsertGreater##one [two] three#one &gt;| three##2#=",
            "mnuInsertLess##one [two] three#one &lt;| three##2#=",
            "mnuInsertQuote##one [two] three#one &quot;| three##2#=",
            "mnuInsertReg##one [two] three#one &reg;| three##2#=",
            "mnuInsertTrade##one [two] three#one &trade;| three##2#=",
            "mnuInsertSpace##one [two] three#one &nbsp;| three##2#one two| three",
            "mnuInsertAmpersand#mc#one [two] three#one &amp;| three#mc#1#",
            "mnuInsertCopyright#mc#one [two] three#one &copy;| three#mc#1#",
            "mnuInsertGreater#mc#one [two] three#one &gt;| three#mc#1#",
            "mnuInsertLess#mc#one [two] three#one &lt;| three#mc#1#",
            "mnuInsertQuote#mc#one [two] three#one &quot;| three##2#=",
            "mnuInsertReg#mc#one [two] three#one &reg;| three##2#=",
            "mnuInsertTrade#mc#one [two] three#one &trade;| three##2#=",
            "mnuInsertSpace#mc#one [two] three#one &nbsp;| three##2#one two| three",
            "mnuInsertAmpersand#Lc#one |two three#one |two three#c#1##paste &amp;",
            "mnuInsertQuote#Lc#one |two three#one |two three##1##paste &quot;",
            "mnuInsertSpace#Lc#one |two three#one |two three##1##paste &nbsp;",
            "mnuInsertQuote#b#one |two three#one &quot;|two three##2#",
            "mnuInsertSpace#b#one |two three#one &nbsp;|two three##2#",
            // Dates (group D): no selection saved, no step after a caret move.
            "mnuInsertDate4##one [two] three#one 05/03/26 7:05:09| three##2#one two| three",
            "mnuInsertDate4#mc#one [two] three#one 05/03/26 7:05:09| three#mc#1#",
            "mnuInsertDate3#Lc#one |two three#one |two three#c#1##paste 05/03/26",
            // Edit commands. Paste leaves the markup flag set, and adds no step after a caret
            // move.
            "mnuEditPaste##one [two] three#one TWO| three#m#2#=",
            "mnuEditPaste#c#one [two] three#one TWO| three#mc#1#",
            "mnuEditCut##[one] two three#| two three##2#=#clipboard one",
            "mnuEditCopy##one [two ]three#one [two ]three##1##clipboard two ",
            "mnuEditSelectall##one| two three#[one two three]##1#",
            "mnuEditCut#L#[one] two three#[one] two three##1##5003,0,; focus",
            "mnuEditCopy#L#[one] two three#[one] two three##1##5002,0,; focus",
            "mnuEditPaste#L#[one] two three#[one] two three#m#1##5032,0,; focus",
            "mnuEditSelectall#L#[one] two three#[one] two three##1##5035,0,",
            "mnuEditUndo#L#[one] two three#[one] two three##1##5049,0,",
            "mnuEditRedo#L#[one] two three#[one] two three##1##5033,0,",
            "mnuFormatRemove#L#[one] two three#[one] two three##1##5034,0,",
            "mnuFormatRemove##one |two three#one |two three##1##5034,0,",
        };
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'#');
            QTest::newRow(qPrintable(QString::fromUtf8(row).replace(u'\n', u' ')))
                << f[0] << f[1] << f[2] << f[3] << f[4] << f[5].toInt() << f[6] << f.value(7);
        }
    }
    void commands() {
        QFETCH(QString, in);
        QFETCH(QString, before);
        QFETCH(QString, after);
        Editing e(unmarked(in.contains(u'b') ? after : before));
        setMarked(e.doc, before);
        if (in.contains(u'b')) e.doc.AddStep();
        e.doc.CSSDoc = in.contains(u's') ? QStringLiteral("Yes") : QStringLiteral("No");
        e->bLayoutActive = in.contains(u'L');
        setFlags(e, in);
        e.platform.clipboard = QStringLiteral("TWO");
        e.platform.clock = QDateTime(QDate(2026, 3, 5), QTime(7, 5, 9));
        QFETCH(QString, item);
        e.run(qPrintable(item));
        QCOMPARE(marked(e.doc), after);
        QTEST(flags(e), "out");
        QTEST(int(e.doc.nDoneIndex), "steps");
        QCOMPARE(e->nStepCaretAdvance + e->nStepCaretBack, 0);
        QString log = surfaceLog(e.doc);
        if (e.platform.clipboard != QLatin1String("TWO"))
            log +=
                (log.isEmpty() ? "" : "; ") + QStringLiteral("clipboard ") + e.platform.clipboard;
        QTEST(log, "log");
        QFETCH(QString, undo);
        if (undo.isEmpty()) return;
        e.doc.Undo();
        QCOMPARE(marked(e.doc), undo == QLatin1String("=") ? before : undo);
        e.doc.Redo();
        QCOMPARE(marked(e.doc), after);
    }

    // A selection starting past 32767 fails after the collapse and before any tag: silently,
    // but for three commands, with the flags as the command set them at its start.
    void wrapsPast16Bits_data() {
        columns<QString, bool, QString>({"item", "loud", "flags"});
        const QStringList rows = words(
            "mnuH1 0 m mnuH2 0 c mnuH3 0 c mnuH4 0 c mnuH5 0 c mnuH6 0 c mnuSub 0 m mnuSup 0 m "
            "mnuTagsBlock 1 m mnuTagsBold 0 m mnuTagsCenter 1 m mnuTagsItalic 0 - mnuTagsRight 1 m "
            "mnuTagsStrike 0 m mnuTagsUnderline 0 m");
        for (int i = 0; i < rows.size(); i += 3)
            QTest::newRow(qPrintable(rows[i]))
                << rows[i] << (rows[i + 1] == "1") << QString(rows[i + 2]).remove(u'-');
    }
    void wrapsPast16Bits() {
        QFETCH(QString, item);
        QFETCH(bool, loud);
        const QString big(40000, QLatin1Char('x'));
        Editing e(big);
        select(e.doc, 33000, 5);
        e->dispatch([&] { e.run(qPrintable(item)); });
        QCOMPARE(e.platform.messages.size(), loud ? 1 : 0);
        if (loud) QVERIFY(e.platform.messages[0].text.startsWith("Run-time error '6'"));
        QCOMPARE(e.doc.codebox().Text(), big);
        QCOMPARE(e.doc.codebox().SelStart(), 33000);
        QCOMPARE(e.doc.codebox().SelLength(), 0);
        QTEST(flags(e), "flags");
    }

    // The captions follow the clock each time the menu opens; the first date's state goes to
    // all four.
    void dateCaptions() {
        Editing e(kText);
        e.platform.clock = QDateTime(QDate(2026, 3, 5), QTime(7, 5, 9));
        const QLocale locale = QLocale::system();
        const QString longDate =
            locale.dayName(4) + QStringLiteral(" 5 ") + locale.monthName(3) + " 2026";
        const QStringList expected = {longDate, longDate + " 7:05:09", "05/03/26",
                                      "05/03/26 7:05:09"};
        e->menu(QStringLiteral("mnuInsertDate1")).setEnabled(false);
        e.run("mnuInsert");
        for (int n = 1; n <= 4; ++n) {
            const MenuItem& entry = e->menu(QStringLiteral("mnuInsertDate%1").arg(n));
            QCOMPARE(entry.Caption(), expected[n - 1]);
            QVERIFY(!entry.Enabled());
        }
    }

    void copyAndCutEnablePaste() {
        for (const char* item : {"mnuEditCopy", "mnuEditCut"}) {
            Editing e(kText);
            select(e.doc, 0, 3);
            e->setPasteEnabled(false);
            e.run(item);
            QVERIFY(e->tbrMain.ButtonEnabled(9));
            QVERIFY(e->menu(QStringLiteral("mnuEditPaste")).Enabled());
        }
    }

    void badge() {
        Editing e(kText, 4);
        e->tbrMain_ButtonClick(24);
        const QString badge = QStringLiteral(
            "<p><a href=\"https://www.tessaline.org/\">\n<img src=\"https://www.tessaline.org/"
            "images/tessaline-88x31.png\" width=\"88\" height=\"31\" border=\"0\" "
            "alt=\"Tessaline Home Page\"></a>");
        QCOMPARE(marked(e.doc), "one \n" + badge + "|two three");
        QCOMPARE(e.doc.nDoneIndex, Int16(2));
        QCOMPARE(flags(e), QString());
        e->bLayoutActive = true;
        e->tbrMain_ButtonClick(24);
        QCOMPARE(layoutOf(e.doc).pasted, QStringList{badge});
    }
};

QTEST_GUILESS_MAIN(InsertCommandsTest)
#include "test_insert_commands.moc"
