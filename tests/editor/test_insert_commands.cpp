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
    void wraps_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("open");
        QTest::addColumn<QString>("close");
        QTest::addColumn<bool>("addsSelection");
        QTest::addColumn<bool>("entryMarkup"); // the flags just after entry, from both clear
        QTest::addColumn<bool>("entryCaret");
        QTest::addColumn<QString>("layout"); // id,option,value; empty: works on the pane
        QTest::addColumn<bool>("layoutClears");
        QTest::addColumn<bool>("layoutFocus");
        QTest::addColumn<bool>("silent");
        QTest::newRow("H1") << "mnuH1"
                            << "<h1>"
                            << "</h1>" << true << true << false << "5043,2,Heading 1" << false
                            << false << true;
        for (int n = 2; n <= 6; ++n)
            QTest::addRow("H%d", n)
                << QStringLiteral("mnuH%1").arg(n) << QStringLiteral("<h%1>").arg(n)
                << QStringLiteral("</h%1>").arg(n) << true << false << true
                << QStringLiteral("5043,2,Heading %1").arg(n) << false << false << true;
        QTest::newRow("Sub") << "mnuSub"
                             << "<sub>"
                             << "</sub>" << true << true << false << "" << true << false << true;
        QTest::newRow("Sup") << "mnuSup"
                             << "<sup>"
                             << "</sup>" << true << true << false << "" << true << false << true;
        QTest::newRow("Block") << "mnuTagsBlock"
                               << "<blockquote>"
                               << "</blockquote>" << true << true << false << "5018,0," << false
                               << false << false;
        QTest::newRow("Bold") << "mnuTagsBold"
                              << "<b>"
                              << "</b>" << true << true << false << "5000,2," << true << false
                              << true;
        QTest::newRow("Center") << "mnuTagsCenter"
                                << "<center>"
                                << "</center>" << true << true << false << "5024,2," << true << true
                                << false;
        QTest::newRow("Italic") << "mnuTagsItalic"
                                << "<i>"
                                << "</i>" << true << false << false << "5000,2," << true << false
                                << true;
        QTest::newRow("Right") << "mnuTagsRight"
                               << "<p align=\"right\">"
                               << "</p>" << false << true << false << "5026,2," << true << true
                               << false;
        QTest::newRow("Strike") << "mnuTagsStrike"
                                << "<strike>"
                                << "</strike>" << true << true << false << "5000,2," << true
                                << false << true;
        QTest::newRow("Underline")
            << "mnuTagsUnderline"
            << "<u>"
            << "</u>" << true << true << false << "5000,2," << true << false << true;
    }

    void wrapSelection_data() { wraps_data(); }
    void wrapSelection() {
        QFETCH(QString, item);
        QFETCH(QString, open);
        QFETCH(QString, close);
        QFETCH(bool, addsSelection);
        TestShell ts;
        codeEditor& doc = twoStepDocument(ts);
        select(doc, 4, 3);
        click(ts, item);
        const QString wrapped = QStringLiteral("one ") + open + QStringLiteral("two") + close +
                                QStringLiteral(" three");
        QCOMPARE(doc.codebox().Text(), wrapped);
        QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
        QCOMPARE(doc.codebox().SelLength(), 3);
        QCOMPARE(doc.nDoneIndex, Int16(3));
        QVERIFY(!ts->bInsertingMarkup);
        QVERIFY(!ts->bCaretStepTaken);
        doc.Undo();
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

    void wrapEmptyPair_data() { wraps_data(); }
    void wrapEmptyPair() {
        QFETCH(QString, item);
        QFETCH(QString, open);
        QFETCH(QString, close);
        TestShell ts;
        codeEditor& doc = twoStepDocument(ts);
        doc.codebox().setSelStart(4);
        click(ts, item);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one ") + open + close + "two three");
        QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
        QCOMPARE(doc.nDoneIndex, Int16(3));
        QCOMPARE(doc.Steps[3].SelStart, 4 + open.size() + close.size());
        QCOMPARE(doc.Steps[3].CaretBack, close.size());
        QCOMPARE(ts->nStepCaretAdvance, Int16(0));
        QCOMPARE(ts->nStepCaretBack, Int16(0));
        doc.Undo();
        QCOMPARE(doc.codebox().SelStart(), 4);
        doc.Redo();
        QCOMPARE(doc.codebox().SelStart(), 4 + open.size());
    }

    // After a caret move the step is added outright only when the first write kept the caret
    // flag, which it does when the markup flag was set on entry.
    void caretFlagAtEntry_data() { wraps_data(); }
    void caretFlagAtEntry() {
        QFETCH(QString, item);
        QFETCH(QString, open);
        QFETCH(QString, close);
        QFETCH(bool, entryMarkup);
        TestShell ts;
        // The step below already holds the result: CheckToAddStep would add nothing.
        codeEditor& doc = documentWith(ts, QStringLiteral("one ") + open + close + "two three");
        doc.codebox().setText(kText);
        doc.codebox().setSelStart(4);
        doc.AddStep();
        ts->bCaretStepTaken = true;
        click(ts, item);
        QCOMPARE(doc.nDoneIndex, Int16(entryMarkup ? 3 : 2));
    }

    void wrapInLayoutView_data() { wraps_data(); }
    void wrapInLayoutView() {
        QFETCH(QString, item);
        QFETCH(QString, layout);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 4);
        ts->bLayoutActive = true;
        ts->bCaretStepTaken = true;
        click(ts, item);
        QCOMPARE(layoutCommands(doc), layout);
        QTEST(layoutOf(doc).focusCount == 1, "layoutFocus");
        QCOMPARE(doc.codebox().Text() == kText, !layout.isEmpty());
        QFETCH(bool, layoutClears);
        QFETCH(bool, entryMarkup);
        QCOMPARE(ts->bInsertingMarkup, !layoutClears && entryMarkup);
        QCOMPARE(ts->bCaretStepTaken, !layoutClears);
    }

    // A selection starting past 32767 fails after the collapse and before any tag.
    void wrapBeyond16Bits_data() { wraps_data(); }
    void wrapBeyond16Bits() {
        QFETCH(QString, item);
        QFETCH(bool, silent);
        TestShell ts;
        const QString big(40000, QLatin1Char('x'));
        codeEditor& doc = documentWith(ts, big);
        select(doc, 33000, 5);
        ts->dispatch([&] { click(ts, item); });
        QCOMPARE(ts.platform.messages.size(), silent ? 0 : 1);
        if (!silent)
            QVERIFY(ts.platform.messages[0].text.startsWith(QStringLiteral("Run-time error '6'")));
        QCOMPARE(doc.codebox().Text(), big);
        QCOMPARE(doc.codebox().SelStart(), 33000);
        QCOMPARE(doc.codebox().SelLength(), 0);
        QTEST(ts->bInsertingMarkup, "entryMarkup");
        QTEST(ts->bCaretStepTaken, "entryCaret");
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
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("result");
        QTest::newRow("Paragraph") << "mnuInsertParagraph"
                                   << "one <p>two three";
        QTest::newRow("Line Break") << "mnuInsertBreak"
                                    << "one <br>\ntwo three";
        QTest::newRow("Comment") << "mnuInsertComment"
                                 << "one <!--  -->two three";
        QTest::newRow("Quote") << "mnuInsertQuote"
                               << "one &quot;two three";
        QTest::newRow("Space") << "mnuInsertSpace"
                               << "one &nbsp;two three";
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

    void singleInserts_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("group");
        QTest::newRow("Ampersand") << "mnuInsertAmpersand"
                                   << "&amp;"
                                   << "A";
        QTest::newRow("Copyright") << "mnuInsertCopyright"
                                   << "&copy;"
                                   << "A";
        QTest::newRow("Greater") << "mnuInsertGreater"
                                 << "&gt;"
                                 << "A";
        QTest::newRow("Less") << "mnuInsertLess"
                              << "&lt;"
                              << "A";
        QTest::newRow("Quote") << "mnuInsertQuote"
                               << "&quot;"
                               << "B";
        QTest::newRow("Reg") << "mnuInsertReg"
                             << "&reg;"
                             << "B";
        QTest::newRow("Trade") << "mnuInsertTrade"
                               << "&trade;"
                               << "B";
        QTest::newRow("Space") << "mnuInsertSpace"
                               << "&nbsp;"
                               << "C";
    }
    // As after a paste, which leaves the markup flag, and a caret move.
    void singleInsertAfterCaretMove() {
        QFETCH(QString, item);
        QFETCH(QString, text);
        QFETCH(QString, group);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        select(doc, 4, 3);
        ts->bInsertingMarkup = true;
        ts->bCaretStepTaken = true;
        click(ts, item);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one ") + text + QStringLiteral(" three"));
        const bool full = group != QLatin1String("A");
        QCOMPARE(doc.nDoneIndex, Int16(full ? 2 : 1));
        QCOMPARE(ts->bInsertingMarkup, !full);
        QCOMPARE(ts->bCaretStepTaken, !full);
        QCOMPARE(doc.Steps[1].SelLen, group == QLatin1String("C") ? 0 : 3);
    }
    void singleInsertAfterCaretMove_data() { singleInserts_data(); }

    void singleInsertWithFlagsClear() {
        QFETCH(QString, item);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 4);
        click(ts, item);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QVERIFY(!ts->bInsertingMarkup);
    }
    void singleInsertWithFlagsClear_data() { singleInserts_data(); }

    void singleInsertInLayoutView() {
        QFETCH(QString, item);
        QFETCH(QString, text);
        QFETCH(QString, group);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 4);
        ts->bLayoutActive = true;
        ts->bCaretStepTaken = true;
        click(ts, item);
        QCOMPARE(layoutOf(doc).pasted, QStringList{text});
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(ts->bCaretStepTaken, group == QLatin1String("A"));
        QVERIFY(!ts->bInsertingMarkup);
    }
    void singleInsertInLayoutView_data() { singleInserts_data(); }

    void dates() {
        TestShell ts;
        ts.platform.clock = QDateTime(QDate(2026, 3, 5), QTime(7, 5, 9));
        codeEditor& doc = documentWith(ts, kText);
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
        QTest::addColumn<QString>("cssDoc");
        QTest::addColumn<int>("selLength");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("selStart");
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

    void editCommandsInLayoutView_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("layout");
        QTest::addColumn<bool>("focus");
        QTest::newRow("Cut") << "mnuEditCut"
                             << "5003,0," << true;
        QTest::newRow("Copy") << "mnuEditCopy"
                              << "5002,0," << true;
        QTest::newRow("Paste") << "mnuEditPaste"
                               << "5032,0," << true;
        QTest::newRow("Select All") << "mnuEditSelectall"
                                    << "5035,0," << false;
        QTest::newRow("Undo") << "mnuEditUndo"
                              << "5049,0," << false;
        QTest::newRow("Redo") << "mnuEditRedo"
                              << "5033,0," << false;
        QTest::newRow("Remove Formatting") << "mnuFormatRemove"
                                           << "5034,0," << false;
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
        ts->mnuFormatRemove_Click();
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
