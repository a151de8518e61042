// The undo history: steps, typing runs, caret moves, clicks, drops, Undo and Redo.
#include "editor_fixture.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("hello world");
constexpr double kT0 = 36000.0; // 10:00:00
} // namespace

class UndoStepsTest : public QObject {
    Q_OBJECT

  private slots:
    void newDocumentHasOneStepAndNothingToUndo() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QCOMPARE(doc.nTopIndex, Int16(1));
        QCOMPARE(doc.Steps[1].Text, doc.codebox().Text());
        QCOMPARE(doc.Steps[1].SelStart, 106);
        QCOMPARE(doc.Steps[0].Text, QString());
        QVERIFY(!undoOn(ts));
        QVERIFY(!redoOn(ts));
    }

    void addStepFields_data() {
        columns<int, int, bool, int, int, bool>(
            {"advance", "back", "autoClose", "selStart", "caretBack", "autoCloseAfter"});
        QTest::newRow("plain") << 0 << 0 << false << 5 << 0 << false;
        QTest::newRow("auto close") << 0 << 0 << true << 6 << 0 << false;
        QTest::newRow("advance keeps auto close") << 3 << 2 << true << 8 << 2 << true;
        QTest::newRow("advance") << 4 << 4 << false << 9 << 4 << false;
        QTest::newRow("negatives count as none") << -2 << -3 << false << 5 << 0 << false;
    }
    void addStepFields() {
        QFETCH(int, advance);
        QFETCH(int, back);
        QFETCH(bool, autoClose);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        ts->nStepCaretAdvance = Int16(advance);
        ts->nStepCaretBack = Int16(back);
        doc.bAutoCloseStep = autoClose;
        doc.AddStep();
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QCOMPARE(doc.nTopIndex, Int16(2));
        QCOMPARE(doc.Steps[2].Text, kText);
        QTEST(doc.Steps[2].SelStart, "selStart");
        QTEST(doc.Steps[2].CaretBack, "caretBack");
        QTEST(doc.bAutoCloseStep, "autoCloseAfter");
        QCOMPARE(ts->nStepCaretAdvance, Int16(0));
        QCOMPARE(ts->nStepCaretBack, Int16(0));
        QVERIFY(undoOn(ts));
        QVERIFY(!redoOn(ts));
    }

    void fullStackDropsTheOldestStep() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, QStringLiteral("t1"));
        doc.Steps[0].Text = QStringLiteral("slot zero");
        for (int n = 2; n <= 26; ++n) {
            doc.codebox().setText(QStringLiteral("t%1").arg(n));
            doc.AddStep();
            QCOMPARE(doc.nDoneIndex, Int16(qMin(n, 25)));
        }
        QCOMPARE(doc.Steps[0].Text, QStringLiteral("slot zero"));
        QCOMPARE(doc.Steps[1].Text, QStringLiteral("t2"));
        QCOMPARE(doc.Steps[24].Text, QStringLiteral("t25"));
        QCOMPARE(doc.Steps[25].Text, QStringLiteral("t26"));
    }

    void checkToAddStepLooksOneSlotDown() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        doc.codebox().setText(QStringLiteral("changed"));
        doc.AddStep();
        doc.CheckToAddStep(true); // the pane equals the current step: still a step
        QCOMPARE(doc.nDoneIndex, Int16(3));
        doc.codebox().setText(kText);
        doc.Steps[2].Text = kText;
        doc.CheckToAddStep(false); // the pane equals the step below: none
        QCOMPARE(doc.nDoneIndex, Int16(3));
    }

    void typingRunIsOneStep() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', kT0);
        typeLetter(ts, doc, 'b', kT0 + 1.0);
        typeLetter(ts, doc, 'c', kT0 + 2.0);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QCOMPARE(doc.Steps[2].Text, QStringLiteral("helloabc world"));
        QCOMPARE(doc.Steps[2].SelStart, 8);
        QCOMPARE(doc.nLastStepTime, qint32(36002));
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 5);
        QVERIFY(!undoOn(ts));
        QVERIFY(redoOn(ts));
        doc.Redo();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("helloabc world"));
        QCOMPARE(doc.codebox().SelStart(), 8);
        QVERIFY(!redoOn(ts));
        QVERIFY(undoOn(ts));
    }

    // The pause is measured from the previous release, read in whole seconds.
    void pauseBetweenKeys_data() {
        columns<double, double, bool>({"previous", "next", "newStep"});
        QTest::newRow("1.5 exactly") << kT0 << kT0 + 1.5 << false;
        QTest::newRow("just over 1.5") << kT0 << kT0 + 1.6 << true;
        QTest::newRow("two seconds") << kT0 << kT0 + 2.0 << true;
        QTest::newRow("rounded down, 1.2 apart") << kT0 + 0.4 << kT0 + 1.6 << true;
        QTest::newRow("rounded up, 1.8 apart") << kT0 + 0.6 << kT0 + 2.4 << false;
        QTest::newRow("over midnight") << 86399.0 << 0.5 << false;
    }
    void pauseBetweenKeys() {
        QFETCH(double, previous);
        QFETCH(double, next);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', previous - 1.0);
        typeLetter(ts, doc, 'b', previous);
        typeLetter(ts, doc, 'c', next);
        QFETCH(bool, newStep);
        QCOMPARE(doc.nDoneIndex, Int16(newStep ? 3 : 2));
        QCOMPARE(doc.Steps[2].Text,
                 newStep ? QStringLiteral("helloab world") : QStringLiteral("helloabc world"));
    }

    void caretKeysCloseTheRun_data() {
        columns<int, bool>({"key", "caretKey"});
        for (int key = 33; key <= 40; ++key)
            QTest::addRow("caret key %d", key) << key << true;
        QTest::newRow("space") << 32 << false;
        QTest::newRow("41") << 41 << false;
        QTest::newRow("Shift") << 16 << false;
    }
    void caretKeysCloseTheRun() {
        QFETCH(int, key);
        QFETCH(bool, caretKey);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        release(ts, doc, key, kT0 - 1); // nothing to close: the slot below is the empty slot 0
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QVERIFY(!ts->bCaretStepTaken);
        typeLetter(ts, doc, 'a', kT0);
        doc.codebox().setSelStart(0);
        release(ts, doc, key, kT0 + 0.5);
        QCOMPARE(doc.nDoneIndex, Int16(caretKey ? 3 : 2));
        QCOMPARE(ts->bCaretStepTaken, caretKey);
        if (caretKey) QCOMPARE(doc.Steps[3].SelStart, 0);
    }

    void typingAfterCaretMoveUndoesOnlyTheNewText() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', kT0);
        typeLetter(ts, doc, 'b', kT0 + 0.5);
        doc.codebox().setSelStart(0);
        release(ts, doc, 37, kT0 + 0.7);
        typeLetter(ts, doc, 'x', kT0 + 0.9);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("xhelloab world"));
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("helloab world"));
        QCOMPARE(doc.codebox().SelStart(), 0);
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 5);
    }

    void pauseAfterCaretMoveReusesTheDuplicate() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', kT0);
        release(ts, doc, 36, kT0 + 0.5);
        typeLetter(ts, doc, 'b', kT0 + 5);
        QCOMPARE(doc.nDoneIndex, Int16(3));
        QCOMPARE(doc.Steps[3].Text, QStringLiteral("helloa world")); // older than the pane
        typeLetter(ts, doc, 'c', kT0 + 5.5);
        QCOMPARE(doc.nDoneIndex, Int16(3));
        QCOMPARE(doc.Steps[3].Text, QStringLiteral("helloabc world"));
    }

    void ctrlReleasesAreIgnored_data() {
        columns<int, bool>({"shift", "counted"});
        QTest::newRow("none") << 0 << true;
        QTest::newRow("Shift") << 1 << true;
        QTest::newRow("Ctrl") << 2 << false;
        QTest::newRow("Ctrl+Shift") << 3 << true;
        QTest::newRow("Ctrl+Alt") << 6 << true;
    }
    void ctrlReleasesAreIgnored() {
        QFETCH(int, shift);
        QFETCH(bool, counted);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        doc.codebox().setSelText(QStringLiteral("z"));
        release(ts, doc, 46, kT0, shift);
        QCOMPARE(doc.nDoneIndex, Int16(counted ? 2 : 1));
    }

    void everyDeleteIsAStep() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 0);
        for (int n = 1; n <= 3; ++n) {
            doc.codebox().setSelLength(1);
            doc.codebox().setSelText(QString());
            release(ts, doc, 46, kT0 + 0.1 * n);
            QCOMPARE(doc.nDoneIndex, Int16(1 + n));
        }
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("llo world"));
    }

    void skippedKeyUpDoesNothingOnce() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        doc.bSkipKeyUp = true;
        typeLetter(ts, doc, 'a', kT0);
        QVERIFY(!doc.bSkipKeyUp);
        QCOMPARE(doc.nDoneIndex, Int16(1));
        typeLetter(ts, doc, 'b', kT0 + 0.2);
        QCOMPARE(doc.nDoneIndex, Int16(2));
    }

    void runInSecondStepClearsSelectionOfTheFirst() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', kT0);
        doc.Steps[1].SelLen = 3;
        typeLetter(ts, doc, 'b', kT0 + 0.5);
        QCOMPARE(doc.Steps[1].SelLen, 0);
    }

    void mouseClickClosesTheRun() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        QSignalSpy menuAsked(&doc, &codeEditor::editMenuRequested);
        doc.codebox_MouseUp(keys::vbLeftButton, 0); // nothing to close yet
        QCOMPARE(doc.nDoneIndex, Int16(1));
        typeLetter(ts, doc, 'a', kT0);
        setClock(ts, kT0 + 0.7);
        doc.codebox_MouseUp(keys::vbRightButton, 0);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QCOMPARE(menuAsked.count(), 1);
        doc.codebox().setSelStart(0);
        doc.codebox_MouseUp(keys::vbLeftButton, 0);
        QCOMPARE(doc.nDoneIndex, Int16(3));
        QCOMPARE(doc.Steps[3].SelStart, 0);
        QVERIFY(ts->bCaretStepTaken);
        QCOMPARE(doc.nLastStepTime, qint32(36001));
        QCOMPARE(menuAsked.count(), 1);
    }

    void undoToTheEmptySlotKeepsUndoOn() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', kT0);
        doc.codebox().setSelStart(5);
        doc.codebox().setSelLength(1);
        doc.codebox().setSelText(QString());
        release(ts, doc, 8, kT0 + 0.5);
        QCOMPARE(doc.codebox().Text(), kText);
        doc.Undo();
        QCOMPARE(doc.nDoneIndex, Int16(0));
        QCOMPARE(doc.codebox().Text(), QString());
        QVERIFY(undoOn(ts));
    }

    void undoPassesOverAStepWithoutItsOwnSelection() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, QStringLiteral("one"));
        for (const char* text : {"one two", "one two three"}) {
            doc.codebox().setText(QString::fromLatin1(text));
            doc.AddStep();
        }
        doc.Steps[2].SelStart = 7;
        doc.Steps[3].SelLen = 2; // the top step carries a selection, the one below none
        doc.Undo();
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one"));
        QCOMPARE(doc.codebox().SelStart(), 3); // where the undone text began
        doc.Redo();
        QCOMPARE(doc.codebox().SelStart(), 7);
        doc.Steps[2].SelLen = 3;
        doc.Steps[1].SelStart = 2;
        doc.Undo(); // at slot 1 with a selection above: the caret of slot 1
        QCOMPARE(doc.codebox().SelStart(), 2);
        QCOMPARE(doc.codebox().SelLength(), 0);
    }

    void redoMovesByTwoOverADuplicate() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, QStringLiteral("a"));
        doc.codebox().setText(QStringLiteral("ab"));
        doc.AddStep();
        doc.AddStep();
        doc.codebox().setText(QStringLiteral("abc"));
        doc.AddStep();
        doc.Undo();
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("a"));
        doc.codebox().setText(QStringLiteral("ab")); // the pane equals the next slot
        doc.Redo();
        QCOMPARE(doc.nDoneIndex, Int16(3));
        QVERIFY(redoOn(ts));
    }

    void undoAndRedoObeyTheirMenuItems() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        doc.codebox().setText(QStringLiteral("other"));
        doc.AddStep();
        ts->menu(QStringLiteral("mnuEditUndo")).setEnabled(false);
        QCOMPARE(keyDown(doc, keys::vbKeyZ, keys::CtrlMask), 0);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("other"));
        ts->menu(QStringLiteral("mnuEditUndo")).setEnabled(true);
        doc.Undo();
        ts->menu(QStringLiteral("mnuEditRedo")).setEnabled(false);
        doc.Redo();
        QCOMPARE(doc.codebox().Text(), kText);
    }

    // Undo back to the saved text still leaves the document dirty; a new step ends Redo.
    void undoDirtiesAndANewStepEndsRedo() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 5);
        typeLetter(ts, doc, 'a', kT0);
        typeLetter(ts, doc, 'b', kT0 + 5);
        doc.Tag = QStringLiteral("Clean");
        doc.Undo();
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QCOMPARE(doc.nTopIndex, Int16(3));
        doc.codebox().setSelText(QStringLiteral("!"));
        doc.AddStep();
        QCOMPARE(doc.nTopIndex, doc.nDoneIndex);
        QVERIFY(!redoOn(ts));
    }

    void activationShowsEachDocumentsOwnHistory() {
        TestShell ts;
        codeEditor& first = documentWith(ts, kText, 5);
        typeLetter(ts, first, 'a', kT0);
        first.Undo();
        ts->mnuFileNewHTML_Click();
        codeEditor& second = ts.active();
        QVERIFY(&second != &first);
        QVERIFY(!undoOn(ts));
        QVERIFY(!redoOn(ts));
        first.ZOrder();
        QVERIFY(!undoOn(ts));
        QVERIFY(redoOn(ts));
        first.Redo();
        second.ZOrder();
        first.ZOrder();
        QVERIFY(undoOn(ts));
        QVERIFY(!redoOn(ts));
    }

    void dropBecomesItsOwnStep() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 0);
        select(doc, 0, 5);
        doc.codebox_OLEStartDrag();
        QCOMPARE(doc.Steps[1].SelLen, 5);
        doc.codebox_OLECompleteDrag();
        QVERIFY(ts->bDropPending);
        doc.codebox().setSelText(QString()); // the pane's own move of the text
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QVERIFY(!ts->bDropPending);
        doc.codebox().setSelStart(1);
        doc.codebox().setSelText(QStringLiteral("hello"));
        QCOMPARE(doc.nDoneIndex, Int16(2)); // an ordinary change records nothing
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelLength(), 5);
    }

    void fetchedPageCountsFromZero() {
        TestShell ts;
        ts.load();
        ts->bLoadingOnline = true;
        ts->NewHtmlDocument();
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(), QString());
        QCOMPARE(doc.nDoneIndex, Int16(-1));
        doc.codebox().setText(QStringLiteral("<html>fetched</html>"));
        QCOMPARE(doc.nDoneIndex, Int16(0));
        QCOMPARE(doc.Steps[0].Text, QStringLiteral("<html>fetched</html>"));
        ts->bLoadingOnline = false;
        doc.lblOnlineFile = QStringLiteral("Yes");
        doc.nDoneIndex = 2;
        doc.Form_Activate();
        QVERIFY(!undoOn(ts));
        doc.nDoneIndex = 3;
        doc.Form_Activate();
        QVERIFY(undoOn(ts));
    }
};

QTEST_GUILESS_MAIN(UndoStepsTest)
#include "test_undo_steps.moc"
