// The undo history: steps, typing runs, caret moves, clicks, drops, Undo and Redo; and the
// text of a slot in pieces, which reads, compares and sizes as the text it was given.
#include "editor/step_text.h"
#include "editor_fixture.h"
#include <QRandomGenerator>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("hello world");

// Undo and Redo as menu item and toolbar button; the two must always agree.
bool undoOn(TestShell& ts) {
    const bool menu = ts->menu(QStringLiteral("mnuEditUndo")).Enabled();
    if (menu != ts->tbrMain.ButtonEnabled(11)) throw std::runtime_error("Undo button disagrees");
    return menu;
}
bool redoOn(TestShell& ts) {
    const bool menu = ts->menu(QStringLiteral("mnuEditRedo")).Enabled();
    if (menu != ts->tbrMain.ButtonEnabled(12)) throw std::runtime_error("Redo button disagrees");
    return menu;
}

// The pane (marked), the step, and which of Undo (u), Redo (r) and the caret step (c) are on.
QString note(Editing& e) {
    return marked(e.doc) + u' ' + QString::number(e.doc.nDoneIndex) + (undoOn(e) ? "u" : "") +
           (redoOn(e) ? "r" : "") + (e->bCaretStepTaken ? "c" : "");
}

// Plays a script and answers its notes. "x@t" types letter x and releases its key at t seconds
// past midnight; "kN@t" releases key N ("kN/S@t" with shift bits S); "click@t" and "rclick@t"
// release a mouse button; "+text" types without a key; "=text" replaces the text; "del" deletes
// the selection; "^n" puts the caret at n, "^n+l" selects l from there; "step" adds a step;
// "check" adds one unless the text is the one of the step below; "skip" makes the next key
// release pass; "S" gives slot 1 a selection; "drag" and "dropped" start and end a drag of the
// selection; "U" and "R" undo and redo, "noU" and "noR" turn their items off; "?" notes.
QString play(Editing& e, const QString& script) {
    QStringList notes;
    SourcePane& pane = e.doc.codebox();
    for (const QString& token : script.split(u' ', Qt::SkipEmptyParts)) {
        const QString head = token.section(u'@', 0, 0);
        const int ms = qRound(token.section(u'@', 1).toDouble() * 1000);
        if (token.contains(u'@')) e.platform.clock.setTime(QTime::fromMSecsSinceStartOfDay(ms));
        if (token == "?") notes << note(e);
        if (token == "U") e.doc.Undo();
        if (token == "R") e.doc.Redo();
        if (token == "noU") e->setUndoEnabled(false);
        if (token == "noR") e->setRedoEnabled(false);
        if (token == "step") e.doc.AddStep();
        if (token == "check") e.doc.CheckToAddStep();
        if (token == "skip") e.doc.bSkipKeyUp = true;
        if (token == "S") e.doc.Steps[1].SelLen = 3;
        if (token == "drag") e.doc.codebox_OLEStartDrag();
        if (token == "dropped") e.doc.codebox_OLECompleteDrag();
        if (token == "del") pane.setSelText(QString());
        if (head.startsWith(u'^'))
            select(e.doc, head.mid(1).section(u'+', 0, 0).toInt(), head.section(u'+', 1).toInt());
        if (head.startsWith(u'+')) pane.setSelText(head.mid(1));
        if (head.startsWith(u'=')) pane.setText(head.mid(1));
        if (head == "click") e.doc.codebox_MouseUp(keys::vbLeftButton, 0);
        if (head == "rclick") e.doc.codebox_MouseUp(keys::vbRightButton, 0);
        if (head.size() == 1 && token.contains(u'@')) pane.setSelText(head);
        if (head.size() == 1 && token.contains(u'@'))
            e.doc.codebox_KeyUp(head[0].toUpper().unicode(), 0);
        if (head.startsWith(u'k') && head.size() > 1)
            e.doc.codebox_KeyUp(head.mid(1).section(u'/', 0, 0).toInt(),
                                head.section(u'/', 1).toInt());
    }
    return notes.join(QStringLiteral(" ; "));
}

// A large text with no two lines alike, so that a wrong piece cannot read back right.
QString largeText() {
    QString text;
    for (int i = 0; i < 4000; ++i)
        text += QStringLiteral("<p id=\"%1\">line %1 of the page</p>\n").arg(i);
    return text;
}
} // namespace

class UndoStepsTest : public QObject {
    Q_OBJECT

  private slots:
    // One step, the caret inside the template's body, nothing to undo or redo.
    void newDocumentHasOneStepAndNothingToUndo() {
        TestShell ts;
        codeEditor& doc = (ts.load(), ts.active());
        QCOMPARE(doc.Steps[1].Text, doc.codebox().Text());
        QCOMPARE(doc.Steps[0].Text, QString());
        QCOMPARE(QList<int>({doc.nDoneIndex, doc.nTopIndex, doc.Steps[1].SelStart}),
                 QList<int>({1, 1, 106}));
        QVERIFY(!undoOn(ts) && !redoOn(ts));
    }

    // name # pane at the start (none: "x|y") # script # its notes (see play()).
    void history_data() {
        columns<QString, QString, QString>({"start", "script", "notes"});
        const char* const rows[] = {
            "a typing run is one step##a@100 b@101 c@102 ? U ? R ?#xabc|y 2u ; x|y 1r ; xabc|y 2u",
            // The pause is measured from the previous release, read in whole seconds.
            "1.5 s exactly##a@99 b@100 c@101.5 ?#xabc|y 2u",
            "just over 1.5 s##a@99 b@100 c@101.6 ? U ?#xabc|y 3u ; xab|y 2ur",
            "two seconds##a@99 b@100 c@102 ?#xabc|y 3u",
            "rounded down, 1.2 s apart##a@99.4 b@100.4 c@101.6 ?#xabc|y 3u",
            "rounded up, 1.8 s apart##a@99.6 b@100.6 c@102.4 ?#xabc|y 2u",
            "over midnight##a@86398 b@86399 c@0.5 ?#xabc|y 2u",
            // Caret keys close the run; nothing to close while the slot below is the empty one.
            "Page Up##k33@99 ? a@100 ^0 k33@100.5 ?#x|y 1 ; |xay 3uc",
            "Page Down##k34@99 ? a@100 ^0 k34@100.5 ?#x|y 1 ; |xay 3uc",
            "End##k35@99 ? a@100 ^0 k35@100.5 ?#x|y 1 ; |xay 3uc",
            "Home##k36@99 ? a@100 ^0 k36@100.5 ?#x|y 1 ; |xay 3uc",
            "Left##k37@99 ? a@100 ^0 k37@100.5 ?#x|y 1 ; |xay 3uc",
            "Up##k38@99 ? a@100 ^0 k38@100.5 ?#x|y 1 ; |xay 3uc",
            "Right##k39@99 ? a@100 ^0 k39@100.5 ?#x|y 1 ; |xay 3uc",
            "Down##k40@99 ? a@100 ^0 k40@100.5 ?#x|y 1 ; |xay 3uc",
            "Space##k32@99 ? a@100 ^0 k32@100.5 ?#x|y 1 ; |xay 2u",
            "key 41##k41@99 ? a@100 ^0 k41@100.5 ?#x|y 1 ; |xay 2u",
            "Shift##k16@99 ? a@100 ^0 k16@100.5 ?#x|y 1 ; |xay 2u",
            "typing after a caret move##a@100 b@100.5 ^0 k37@100.7 z@100.9 ? U ? U ?#"
            "z|xaby 3u ; |xaby 2ur ; x|y 1r",
            "a pause after a caret move reuses its step##a@100 k36@100.5 b@105 ? c@105.5 ? U ?#"
            "xab|y 3u ; xabc|y 3u ; xa|y 2ur",
            // Releases with Ctrl alone count for nothing; every delete is a step.
            "Delete##+z k46@100 ?#xz|y 2u",
            "Shift+Delete##+z k46/1@100 ?#xz|y 2u",
            "Ctrl+Delete##+z k46/2@100 ?#xz|y 1",
            "Ctrl+Shift+Delete##+z k46/3@100 ?#xz|y 2u",
            "Ctrl+Alt+Delete##+z k46/6@100 ?#xz|y 2u",
            "every delete#|hello#^0+1 del k46@100.1 ? ^0+1 del k46@100.2 ? ^0+1 del k46@100.3 ? U "
            "?#"
            "|ello 2u ; |llo 3u ; |lo 4u ; l|lo 3ur",
            "a skipped release##skip a@100 ? b@100.2 ?#xa|y 1 ; xab|y 2u",
            "a run in slot 2 clears the selection of slot 1##a@100 S b@100.5 U ?#x|y 1r",
            // A left click closes the run and starts the clock of the next one; a right click
            // asks for the menu only.
            "clicks##click@99 ? a@100 rclick@100.7 ? ^0 click@100.7 ? b@102.2 ?#"
            "x|y 1 ; xa|y 2u ; |xay 3uc ; b|xay 3u",
            "undo to the empty slot##a@100 ^1+1 del k8@100.5 ? U ?#x|y 2u ; | 0ur",
            "the check looks one slot down##=changed step =xy check ? =changed check ?#"
            "|xy 2u ; |changed 3u",
            "redo passes over a duplicate#a|#=ab step step =abc step U U ? =ab R ?#|a 1r ; |ab 3ur",
            // A drop is a step of its own, its selection saved below; other changes are not.
            "drop#|hello_world#^0+5 drag dropped del ? ^1 +hi ? U ?#|_world 2u ; _hi|world 2u ; "
            "[hello]_world 1r",
            "the items off##=other step noU U ? step U noR R ?#|other 2 ; |xy 1",
            "an undone step is ended by a new one##a@100 b@105 U ? +! step ?#xa|y 2ur ; xa!|y 3u",
        };
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'#');
            QTest::newRow(qPrintable(f[0])) << f[1] << f[2] << f[3];
        }
    }
    void history() {
        QFETCH(QString, start);
        if (start.isEmpty()) start = QStringLiteral("x|y");
        Editing e(unmarked(start), int(start.indexOf(u'|')));
        QFETCH(QString, script);
        QTEST(play(e, script), "notes");
    }

    // Where a step keeps the caret: past what an insertion put after it, or one on after the
    // automatic pair; the caret back is kept for Redo.
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
        Editing e(kText, 5);
        QFETCH(int, advance);
        QFETCH(int, back);
        QFETCH(bool, autoClose);
        e->nStepCaretAdvance = Int16(advance);
        e->nStepCaretBack = Int16(back);
        e.doc.bAutoCloseStep = autoClose;
        e.doc.AddStep();
        QCOMPARE(e.doc.nTopIndex, Int16(2));
        QCOMPARE(e.doc.Steps[2].Text, kText);
        QTEST(e.doc.Steps[2].SelStart, "selStart");
        QTEST(e.doc.Steps[2].CaretBack, "caretBack");
        QTEST(e.doc.bAutoCloseStep, "autoCloseAfter");
        QCOMPARE(e->nStepCaretAdvance + e->nStepCaretBack, 0);
        QCOMPARE(note(e), QStringLiteral("hello| world 2u"));
    }

    void fullStackDropsTheOldestStep() {
        Editing e(QStringLiteral("t1"));
        e.doc.Steps[0].Text = QStringLiteral("slot zero");
        for (int n = 2; n <= 26; ++n) {
            play(e, QStringLiteral("=t%1 step").arg(n));
            QCOMPARE(e.doc.nDoneIndex, Int16(qMin(n, 25)));
        }
        QStringList texts;
        for (int n : {0, 1, 24, 25})
            texts << e.doc.Steps[n].Text;
        QCOMPARE(texts, QStringList({"slot zero", "t2", "t25", "t26"}));
    }

    // A step without a selection of its own under one with a selection is passed over; at
    // slot 1 with a selection above, the caret goes where slot 1 had it.
    void undoPassesOverAStepWithoutItsOwnSelection() {
        Editing e(QStringLiteral("one"));
        play(e, "=one_two step =one_two_three step");
        e.doc.Steps[2].SelStart = 7;
        e.doc.Steps[3].SelLen = 2;
        QCOMPARE(play(e, "U ? R ?"), QStringLiteral("one| 1r ; one_two| 2ur"));
        e.doc.Steps[2].SelLen = 3;
        e.doc.Steps[1].SelStart = 2;
        QCOMPARE(play(e, "U ?"), QStringLiteral("on|e 1r"));
    }

    // Undo back to the saved text still leaves the document dirty.
    void undoDirties() {
        Editing e(kText, 5);
        play(e, "a@100 b@105");
        e.doc.Tag = QStringLiteral("Clean");
        e.doc.Undo();
        QCOMPARE(e.doc.Tag, QStringLiteral("Dirty"));
    }

    void activationShowsEachDocumentsOwnHistory() {
        Editing e(kText, 5);
        codeEditor& first = e.doc;
        play(e, "a@100 U");
        e->mnuFileNewHTML_Click();
        QVERIFY(&e.active() != &first);
        QVERIFY(!undoOn(e) && !redoOn(e));
        first.ZOrder();
        QVERIFY(!undoOn(e) && redoOn(e));
        first.Redo();
        e->documents()[1]->ZOrder();
        first.ZOrder();
        QVERIFY(undoOn(e) && !redoOn(e));
    }

    // A fetched page counts its steps from slot 0, and its first step cannot be undone.
    void fetchedPageCountsFromZero() {
        TestShell ts;
        ts.load();
        ts->bLoadingOnline = true;
        ts->NewHtmlDocument();
        codeEditor& doc = ts.active();
        QCOMPARE(doc.nDoneIndex, Int16(-1));
        doc.codebox().setText(QStringLiteral("<html>fetched</html>"));
        QCOMPARE(doc.nDoneIndex, Int16(0));
        QCOMPARE(doc.Steps[0].Text, "<html>fetched</html>");
        ts->bLoadingOnline = false;
        doc.lblOnlineFile = QStringLiteral("Yes");
        for (int done : {2, 3}) {
            doc.nDoneIndex = Int16(done);
            doc.Form_Activate();
            QCOMPARE(undoOn(ts), done == 3);
        }
    }

    // A slot's text against the one below: an edit of a large text is kept as pieces that read,
    // size and compare as the text and cost little beyond the text below; small texts and edits
    // that change much are kept whole, as a plain shared string.
    void stepText_data() {
        columns<QString, QString, int>({"below", "text", "beyond"});
        const QString large = largeText();
        const auto edit = [&](const char* name, int at, int removed, const char* inserted) {
            const qsizetype position = at < 0 ? large.size() + at + (removed ? 0 : 1) : at;
            QTest::newRow(name) << large << QString(large).replace(position, removed, inserted)
                                << int(strlen(inserted));
        };
        edit("insert at the start", 0, 0, "<b>");
        edit("insert in the middle", 60000, 0, "x");
        edit("insert at the end", -1, 0, "</html>");
        edit("delete at the start", 0, 10, "");
        edit("delete in the middle", 70000, 500, "");
        edit("delete at the end", -10, 10, "");
        edit("replace", 80000, 3, "abcdef");
        edit("a repeated character", 5, 0, "<");
        QTest::newRow("small, whole") << "<p>a</p>"
                                      << "<p>ab</p>" << -1;
        QTest::newRow("empty, whole") << ""
                                      << "" << -1;
        QTest::newRow("most of it new, whole")
            << large << QString(large).replace(10, 10, QString(100000, QLatin1Char('y'))) << -1;
        QTest::newRow("a small text below, whole") << "<p>" << large << -1;
    }
    void stepText() {
        QFETCH(QString, below);
        QFETCH(QString, text);
        QFETCH(int, beyond);
        StepText step;
        step.assign(text, StepText(below));
        QCOMPARE(step.isWhole(), beyond < 0);
        QCOMPARE(step.toString(), text);
        QCOMPARE(step.size(), text.size());
        QVERIFY(step == text && (step != below) == (text != below));
        QVERIFY(StepText(below) == below && (StepText(below) != step) == (text != below));
        if (beyond >= 0) QVERIFY(step.charactersBeyond(below) <= beyond);
        if (beyond < 0 && !text.isEmpty()) QCOMPARE(step.toString().constData(), text.constData());
    }

    // A run of edits, each step kept against the one below, as the undo stack keeps them.
    void manyStepsReadBackAndCompare() {
        QRandomGenerator random(20261123);
        QString model = largeText();
        const QString first = model;
        std::vector<StepText> steps{StepText(model)};
        for (int i = 0; i < 200; ++i) {
            const int at = int(random.bounded(int(model.size()) + 1));
            const int removed = int(random.bounded(std::min<qsizetype>(40, model.size() - at) + 1));
            const QString inserted = QString(int(random.bounded(6)), QChar(u'a' + i % 26));
            model.replace(at, removed, inserted);
            StepText step;
            step.assign(model, steps.back());
            QCOMPARE(step.toString(), model);
            QVERIFY(step == model);
            QVERIFY(step == StepText(model));
            steps.push_back(step);
        }
        // Every older step still reads as it was, and neighbours tell each other apart.
        QVERIFY(steps.front() == first);
        for (size_t i = 1; i < steps.size(); ++i)
            QVERIFY((steps[i] == steps[i - 1]) == (steps[i].toString() == steps[i - 1].toString()));
        // Only now and then is a step whole again (when its pieces grow many); the newest holds
        // little beyond the last whole one, which it shares.
        QString lastWhole;
        int wholeSteps = 0;
        for (const StepText& step : steps)
            if (step.isWhole()) {
                ++wholeSteps;
                lastWhole = step.toString();
            }
        QVERIFY2(wholeSteps <= 3, qPrintable(QString::number(wholeSteps)));
        QVERIFY(steps.back().charactersBeyond(lastWhole) < 200 * 6);
    }
};

QTEST_GUILESS_MAIN(UndoStepsTest)
#include "test_undo_steps.moc"
