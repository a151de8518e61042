// The commands that write markup without a dialog: wraps, paragraph, line break, entities,
// dates, comment, badge, and the edit commands, in Source and Layout view.
#include "editor_fixture.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two three");

// A document whose text is kText, two steps deep, so that Undo can pass over a step.
codeEditor& twoStepDocument(TestShell& ts) {
    codeEditor& doc = documentWith(ts, QStringLiteral("one two thre"));
    doc.codebox().setSelStart(12);
    doc.codebox().setSelText(QStringLiteral("e"));
    doc.AddStep();
    return doc;
}

void click(TestShell& ts, const QString& item) {
    ts->menu(item).Click();
}

QString layoutCommands(codeEditor& doc) {
    QStringList out;
    for (const auto& c : layoutOf(doc).commands)
        out << QStringLiteral("%1,%2,%3").arg(c.id).arg(c.option).arg(c.value);
    return out.join(QLatin1Char(';'));
}
} // namespace

class InsertCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    // Per wrap: item, open, close, whether the step below keeps the selection, the flags just
    // after entry from both clear (markup, caret), the Layout command "id,option,value" (empty:
    // works on the pane), whether Layout clears the flags and takes the focus, and whether a
    // position past 16 bits fails silently.
    void wraps_data() {
        columns<QString, QString, QString, bool, bool, bool, QString, bool, bool, bool>(
            {"item", "open", "close", "addsSelection", "entryMarkup", "entryCaret", "layout",
             "layoutClears", "layoutFocus", "silent"});
        const char* const rows[] = {"mnuH1|<h1>|</h1>|1|1|0|5043,2,Heading 1|0|0|1",
                                    "mnuH2|<h2>|</h2>|1|0|1|5043,2,Heading 2|0|0|1",
                                    "mnuH3|<h3>|</h3>|1|0|1|5043,2,Heading 3|0|0|1",
                                    "mnuH4|<h4>|</h4>|1|0|1|5043,2,Heading 4|0|0|1",
                                    "mnuH5|<h5>|</h5>|1|0|1|5043,2,Heading 5|0|0|1",
                                    "mnuH6|<h6>|</h6>|1|0|1|5043,2,Heading 6|0|0|1",
                                    "mnuSub|<sub>|</sub>|1|1|0||1|0|1",
                                    "mnuSup|<sup>|</sup>|1|1|0||1|0|1",
                                    "mnuTagsBlock|<blockquote>|</blockquote>|1|1|0|5018,0,|0|0|0",
                                    "mnuTagsBold|<b>|</b>|1|1|0|5000,2,|1|0|1",
                                    "mnuTagsCenter|<center>|</center>|1|1|0|5024,2,|1|1|0",
                                    "mnuTagsItalic|<i>|</i>|1|0|0|5000,2,|1|0|1",
                                    "mnuTagsRight|<p align=\"right\">|</p>|0|1|0|5026,2,|1|1|0",
                                    "mnuTagsStrike|<strike>|</strike>|1|1|0|5000,2,|1|0|1",
                                    "mnuTagsUnderline|<u>|</u>|1|1|0|5000,2,|1|0|1"};
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'|');
            const auto on = [&](int i) { return f.at(i) == QLatin1String("1"); };
            QTest::newRow(row) << f.at(0) << f.at(1) << f.at(2) << on(3) << on(4) << on(5)
                               << f.at(6) << on(7) << on(8) << on(9);
        }
    }

    void wraps() {
        QFETCH(QString, item);
        QFETCH(QString, open);
        QFETCH(QString, close);
        QFETCH(bool, entryMarkup);
        QFETCH(QString, layout);
        QFETCH(bool, layoutClears);
        QFETCH(bool, silent);
        const QString wrapped = "one " + open + "two" + close + " three";
        { // A selection: wrapped and kept, a step added.
            TestShell ts;
            codeEditor& doc = twoStepDocument(ts);
            select(doc, 4, 3);
            click(ts, item);
            QCOMPARE(doc.codebox().Text(), wrapped);
            QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
            QCOMPARE(doc.codebox().SelLength(), 3);
            QCOMPARE(doc.nDoneIndex, Int16(3));
            QVERIFY(!ts->bInsertingMarkup && !ts->bCaretStepTaken);
            doc.Undo();
            QFETCH(bool, addsSelection);
            if (addsSelection) {
                QCOMPARE(doc.codebox().Text(), kText);
                QCOMPARE(doc.codebox().SelStart(), 4);
                QCOMPARE(doc.codebox().SelLength(), 3);
                doc.Redo();
                QCOMPARE(doc.codebox().Text(), wrapped);
                QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
                QCOMPARE(doc.codebox().SelLength(), 3);
            } else {
                // No selection saved below: one press passes over that step as well.
                QCOMPARE(doc.codebox().Text(), QStringLiteral("one two thre"));
                QCOMPARE(doc.codebox().SelStart(), 12);
            }
        }
        { // No selection: an empty pair, the caret between, the step ends past the close.
            TestShell ts;
            codeEditor& doc = twoStepDocument(ts);
            doc.codebox().setSelStart(4);
            click(ts, item);
            QCOMPARE(doc.codebox().Text(), "one " + open + close + "two three");
            QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
            QCOMPARE(doc.nDoneIndex, Int16(3));
            QCOMPARE(doc.Steps[3].SelStart, 4 + open.size() + close.size());
            QCOMPARE(doc.Steps[3].CaretBack, close.size());
            QCOMPARE(ts->nStepCaretAdvance + ts->nStepCaretBack, 0);
            doc.Undo();
            QCOMPARE(doc.codebox().SelStart(), 4);
            doc.Redo();
            QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
        }
        { // After a caret move, with the result already one step below, a step is added
            // outright only when the markup flag was set on entry.
            TestShell ts;
            codeEditor& doc = documentWith(ts, "one " + open + close + "two three");
            doc.codebox().setText(kText);
            doc.codebox().setSelStart(4);
            doc.AddStep();
            ts->bCaretStepTaken = true;
            click(ts, item);
            QCOMPARE(doc.nDoneIndex, Int16(entryMarkup ? 3 : 2));
        }
        { // Layout view: the surface's command, or the pane's wrap when there is none.
            TestShell ts;
            codeEditor& doc = documentWith(ts, kText, 4);
            ts->bLayoutActive = true;
            ts->bCaretStepTaken = true;
            click(ts, item);
            QCOMPARE(layoutCommands(doc), layout);
            QTEST(layoutOf(doc).focusCount == 1, "layoutFocus");
            QCOMPARE(doc.codebox().Text() == kText, !layout.isEmpty());
            QCOMPARE(ts->bInsertingMarkup, !layoutClears && entryMarkup);
            QCOMPARE(ts->bCaretStepTaken, !layoutClears);
        }
        { // A selection starting past 32767 fails after the collapse and before any tag.
            TestShell ts;
            const QString big(40000, QLatin1Char('x'));
            codeEditor& doc = documentWith(ts, big);
            select(doc, 33000, 5);
            ts->dispatch([&] { click(ts, item); });
            QCOMPARE(ts.platform.messages.size(), silent ? 0 : 1);
            if (!silent) QVERIFY(ts.platform.messages[0].text.startsWith("Run-time error '6'"));
            QCOMPARE(doc.codebox().Text(), big);
            QCOMPARE(doc.codebox().SelStart(), 33000);
            QCOMPARE(doc.codebox().SelLength(), 0);
            QTEST(ts->bInsertingMarkup, "entryMarkup");
            QTEST(ts->bCaretStepTaken, "entryCaret");
        }
    }

    void paragraph() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        select(doc, 4, 3);
        click(ts, QStringLiteral("mnuInsertParagraph"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one <p>two three"));
        QCOMPARE(doc.codebox().SelStart(), 7);
        QCOMPARE(doc.codebox().SelLength(), 3);
        QCOMPARE(doc.Steps[1].SelLen, 3);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        doc.codebox().setSelStart(0);
        click(ts, QStringLiteral("mnuInsertParagraph"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>one <p>two three"));
        QCOMPARE(doc.codebox().SelStart(), 3);
        QVERIFY(!ts->bInsertingMarkup);
        ts->bLayoutActive = true;
        click(ts, QStringLiteral("mnuInsertParagraph"));
        QCOMPARE(layoutOf(doc).pasted, QStringList{QStringLiteral("<p>")});
    }

    // Without a caret step the step call first looks at the step below.
    void stepCallLooksBelow_data() {
        columns<QString, QString>({"item", "result"});
        for (const auto& [item, result] : {std::pair{"mnuInsertParagraph", "one <p>two three"},
                                           std::pair{"mnuInsertBreak", "one <br>\ntwo three"},
                                           std::pair{"mnuInsertComment", "one <!--  -->two three"},
                                           std::pair{"mnuInsertQuote", "one &quot;two three"},
                                           std::pair{"mnuInsertSpace", "one &nbsp;two three"}})
            QTest::newRow(item) << QString::fromUtf8(item) << QString::fromUtf8(result);
    }
    void stepCallLooksBelow() {
        QFETCH(QString, item);
        QFETCH(QString, result);
        TestShell ts;
        codeEditor& doc = documentWith(ts, result);
        doc.codebox().setText(kText);
        doc.codebox().setSelStart(4);
        doc.AddStep();
        click(ts, item);
        QCOMPARE(doc.codebox().Text(), result);
        QCOMPARE(doc.nDoneIndex, Int16(2));
    }

    void lineBreakWritesALineFeedAlone() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        select(doc, 4, 3);
        click(ts, QStringLiteral("mnuInsertBreak"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one <br>\n three"));
        QCOMPARE(doc.codebox().SelStart(), 9);
        QCOMPARE(doc.Steps[1].SelLen, 0);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        ts->bLayoutActive = true;
        click(ts, QStringLiteral("mnuInsertBreak"));
        QCOMPARE(layoutOf(doc).pasted, QStringList{QStringLiteral("<br>")});
    }

    // The single inserts by group: A adds no step after a caret move, B and C do; C saves
    // no selection.
    void singleInserts_data() {
        columns<QString, QString, QString>({"item", "text", "group"});
        const QStringList rows =
            words("mnuInsertAmpersand &amp; A mnuInsertCopyright &copy; A mnuInsertGreater &gt; A "
                  "mnuInsertLess &lt; A mnuInsertQuote &quot; B mnuInsertReg &reg; B "
                  "mnuInsertTrade &trade; B mnuInsertSpace &nbsp; C");
        for (int i = 0; i < rows.size(); i += 3)
            QTest::newRow(qPrintable(rows.at(i))) << rows.at(i) << rows.at(i + 1) << rows.at(i + 2);
    }
    void singleInserts() {
        QFETCH(QString, item);
        QFETCH(QString, text);
        QFETCH(QString, group);
        const bool full = group != QLatin1String("A");
        { // As after a paste, which leaves the markup flag, and a caret move.
            TestShell ts;
            codeEditor& doc = documentWith(ts, kText);
            select(doc, 4, 3);
            ts->bInsertingMarkup = true;
            ts->bCaretStepTaken = true;
            click(ts, item);
            QCOMPARE(doc.codebox().Text(), "one " + text + " three");
            QCOMPARE(doc.nDoneIndex, Int16(full ? 2 : 1));
            QCOMPARE(ts->bInsertingMarkup, !full);
            QCOMPARE(ts->bCaretStepTaken, !full);
            QCOMPARE(doc.Steps[1].SelLen, group == QLatin1String("C") ? 0 : 3);
        }
        { // With both flags clear every group adds its step.
            TestShell ts;
            codeEditor& doc = documentWith(ts, kText, 4);
            click(ts, item);
            QCOMPARE(doc.nDoneIndex, Int16(2));
            QVERIFY(!ts->bInsertingMarkup);
        }
        { // Layout view: pasted on the surface.
            TestShell ts;
            codeEditor& doc = documentWith(ts, kText, 4);
            ts->bLayoutActive = true;
            ts->bCaretStepTaken = true;
            click(ts, item);
            QCOMPARE(layoutOf(doc).pasted, QStringList{text});
            QCOMPARE(doc.codebox().Text(), kText);
            QCOMPARE(ts->bCaretStepTaken, !full);
            QVERIFY(!ts->bInsertingMarkup);
        }
    }

    void dates() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        // The captions follow the clock each time the menu opens; the first date's state
        // goes to all four.
        ts.platform.clock = QDateTime(QDate(2026, 3, 5), QTime(7, 5, 9));
        const QLocale locale = QLocale::system();
        const QString longDate = locale.dayName(4) + QStringLiteral(" 5 ") + locale.monthName(3) +
                                 QStringLiteral(" 2026");
        const QStringList expected = {longDate, longDate + QStringLiteral(" 7:05:09"),
                                      QStringLiteral("05/03/26"),
                                      QStringLiteral("05/03/26 7:05:09")};
        ts->menu(QStringLiteral("mnuInsertDate1")).setEnabled(false);
        click(ts, QStringLiteral("mnuInsert"));
        for (int n = 1; n <= 4; ++n) {
            const MenuItem& entry = ts->menu(QStringLiteral("mnuInsertDate%1").arg(n));
            QCOMPARE(entry.Caption(), expected[n - 1]);
            QVERIFY(!entry.Enabled());
        }
        // Group D: no selection is saved, and no step after a caret move.
        select(doc, 4, 3);
        ts->bInsertingMarkup = true;
        ts->bCaretStepTaken = true;
        click(ts, QStringLiteral("mnuInsertDate4"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one 05/03/26 7:05:09 three"));
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QCOMPARE(doc.Steps[1].SelLen, 0);
        QVERIFY(ts->bInsertingMarkup);
        ts->bLayoutActive = true;
        click(ts, QStringLiteral("mnuInsertDate3"));
        QCOMPARE(layoutOf(doc).pasted, QStringList{QStringLiteral("05/03/26")});
    }

    void comment_data() {
        columns<QString, int, QString, int>({"cssDoc", "selLength", "text", "selStart"});
        QTest::newRow("HTML") << "No" << 0 << "one <!--  -->two three" << 9;
        QTest::newRow("HTML, selection") << "No" << 3 << "one <!-- two --> three" << 9;
        QTest::newRow("CSS") << "Yes" << 0 << "one /*  */two three" << 7;
        QTest::newRow("CSS, selection") << "Yes" << 3 << "one /* two */ three" << 7;
    }
    void comment() {
        QFETCH(QString, cssDoc);
        QFETCH(int, selLength);
        QFETCH(int, selStart);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        doc.CSSDoc = cssDoc;
        select(doc, 4, selLength);
        click(ts, QStringLiteral("mnuInsertComment"));
        QTEST(doc.codebox().Text(), "text");
        QCOMPARE(doc.codebox().SelStart(), selStart);
        QCOMPARE(doc.codebox().SelLength(), selLength);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QCOMPARE(doc.Steps[1].SelLen, selLength);
        QVERIFY(!ts->bInsertingMarkup);
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 4);
        doc.Redo();
        QCOMPARE(doc.codebox().SelStart(), selStart);
    }

    void cutAndCopy() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        ts->setPasteEnabled(false);
        ts->tbrMain.setButtonEnabled(9, false);
        select(doc, 4, 4);
        click(ts, QStringLiteral("mnuEditCopy"));
        QCOMPARE(ts.platform.clipboard, QStringLiteral("two "));
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QVERIFY(ts->tbrMain.ButtonEnabled(9));
        QVERIFY(ts->menu(QStringLiteral("mnuEditPaste")).Enabled());
        select(doc, 0, 3);
        click(ts, QStringLiteral("mnuEditCut"));
        QCOMPARE(ts.platform.clipboard, QStringLiteral("one"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral(" two three"));
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QVERIFY(undoOn(ts));
        doc.Undo();
        QCOMPARE(doc.codebox().SelStart(), 0);
        QCOMPARE(doc.codebox().SelLength(), 3);
    }

    void pasteLeavesTheMarkupFlagSet() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        ts.platform.clipboard = QStringLiteral("2");
        select(doc, 4, 3);
        ts->bCaretStepTaken = true;
        click(ts, QStringLiteral("mnuEditPaste"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one 2 three"));
        QCOMPARE(doc.nDoneIndex, Int16(1)); // the caret step stands, so no step here
        QCOMPARE(doc.Steps[1].SelLen, 3);
        QVERIFY(ts->bInsertingMarkup);
        QVERIFY(ts->bCaretStepTaken);
        QVERIFY(undoOn(ts));
        ts->bCaretStepTaken = false;
        click(ts, QStringLiteral("mnuEditPaste"));
        QCOMPARE(doc.nDoneIndex, Int16(2));
    }

    void selectAll() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 3);
        click(ts, QStringLiteral("mnuEditSelectall"));
        QCOMPARE(doc.codebox().SelStart(), 0);
        QCOMPARE(doc.codebox().SelLength(), kText.size());
    }

    // Item, Layout command, and whether the surface takes the focus.
    void editCommandsInLayoutView_data() {
        columns<QString, QString, bool>({"item", "layout", "focus"});
        const QStringList rows =
            words("mnuEditCut 5003,0, 1 mnuEditCopy 5002,0, 1 mnuEditPaste 5032,0, 1 "
                  "mnuEditSelectall 5035,0, 0 mnuEditUndo 5049,0, 0 mnuEditRedo 5033,0, 0 "
                  "mnuFormatRemove 5034,0, 0");
        for (int i = 0; i < rows.size(); i += 3)
            QTest::newRow(qPrintable(rows.at(i)))
                << rows.at(i) << rows.at(i + 1) << (rows.at(i + 2) == QLatin1String("1"));
    }
    void editCommandsInLayoutView() {
        QFETCH(QString, item);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        doc.codebox().setText(QStringLiteral("changed"));
        doc.AddStep();
        select(doc, 0, 3);
        ts->bLayoutActive = true;
        click(ts, item);
        QTEST(layoutCommands(doc), "layout");
        QTEST(layoutOf(doc).focusCount == 1, "focus");
        QCOMPARE(doc.codebox().Text(), QStringLiteral("changed"));
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QCOMPARE(ts->bInsertingMarkup, item == QLatin1String("mnuEditPaste"));
    }

    void removeFormattingGoesToTheSurfaceInAnyView() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        ts->runMenuClick(QStringLiteral("mnuFormatRemove"));
        QCOMPARE(layoutCommands(doc), QStringLiteral("5034,0,"));
    }

    void badge() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 4);
        ts->tbrMain_ButtonClick(24);
        const QString text = doc.codebox().Text();
        QVERIFY(text.startsWith(QStringLiteral("one \n<p><a href=\"")));
        QVERIFY(text.contains(QStringLiteral("\">\n<img src=\"")));
        const QString tail = QStringLiteral(
            "\" width=\"88\" height=\"31\" border=\"0\" alt=\"Tessaline Home Page\"></a>");
        QVERIFY(text.endsWith(tail + QStringLiteral("two three")));
        QCOMPARE(doc.codebox().SelStart(), text.size() - 9);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QVERIFY(!ts->bInsertingMarkup);
        ts->bLayoutActive = true;
        ts->tbrMain_ButtonClick(24);
        QCOMPARE(layoutOf(doc).pasted, QStringList{text.mid(5, text.size() - 14)});
    }
};

QTEST_GUILESS_MAIN(InsertCommandsTest)
#include "test_insert_commands.moc"
