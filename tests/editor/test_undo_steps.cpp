// The undo history: steps, typing runs, caret moves, clicks, drops, Undo and Redo; and the
// text of a slot in pieces, which reads, compares and sizes as the text it was given.
#include "editor/step_text.h"
#include "editor_fixture.h"
#include <QRandomGenerator>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("hello world");

// The pane (marked), the step, and which of Undo (u), Redo (r) and the caret step (c) are on.
QString note(Editing& e) {
    return marked(e.doc) + u' ' + QString::number(e.doc.nDoneIndex) + (undoOn(e) ? "u" : "") +
           (redoOn(e) ? "r" : "") + (e->bCaretStepTaken ? "c" : "");
}

// Plays a script and answers its notes. "x@t" types letter x and releases its key at t seconds
// past midnight; "kN@t" releases key N ("kN/S@t" with shift bits S); "click@t" and "rclick@t"
// release a mouse button; "+text" types without a key; "=text" replaces the text; "del" deletes
// the selection; "^n" puts the caret at n, "^n+l" selects l from there; "step" adds a step;
// "skip" makes the next key release pass; "U" and "R" undo and redo; "?" takes a note.
QString play(Editing& e, const QString& script) {
    QStringList notes;
    SourcePane& pane = e.doc.codebox();
    for (const QString& token : script.split(u' ', Qt::SkipEmptyParts)) {
        const QString head = token.section(u'@', 0, 0);
        const double at = token.section(u'@', 1).toDouble();
        if (token.contains(u'@')) setClock(e, at);
        if (token == "?") notes << note(e);
        if (token == "U") e.doc.Undo();
        if (token == "R") e.doc.Redo();
        if (token == "step") e.doc.AddStep();
        if (token == "skip") e.doc.bSkipKeyUp = true;
        if (token == "del") pane.setSelText(QString());
        if (head.startsWith(u'^'))
            select(e.doc, head.mid(1).section(u'+', 0, 0).toInt(), head.section(u'+', 1).toInt());
        if (head.startsWith(u'+')) pane.setSelText(head.mid(1));
        if (head.startsWith(u'=')) pane.setText(head.mid(1));
        if (head == "click") e.doc.codebox_MouseUp(keys::vbLeftButton, 0);
        if (head == "rclick") e.doc.codebox_MouseUp(keys::vbRightButton, 0);
        if (head.startsWith(u'k') && head.size() > 1 && head != "k")
            release(e, e.doc, head.mid(1).section(u'/', 0, 0).toInt(), at,
                    head.section(u'/', 1).toInt());
        if (head.size() == 1 && token.contains(u'@')) typeLetter(e, e.doc, head.at(0), at);
    }
    return notes.join(QStringLiteral(" ; "));
}

// A large text with no two lines alike, so that a wrong piece cannot read back right.
QString largeText(int lines = 4000) {
    QString text;
    for (int i = 0; i < lines; ++i)
        text += QStringLiteral("<p id=\"%1\">line %1 of the page</p>\n").arg(i);
    return text;
}
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

    // Scripts on "hello| world" and the notes they take (see play()).
    void history_data() {
        columns<QString, QString, QString>({"start", "script", "notes"});
        const auto row = [](const char* name, const char* start, const char* script,
                            const char* notes) {
            QTest::newRow(name) << QString::fromUtf8(start) << script << QString::fromUtf8(notes);
        };
        const char* h = "hello| world";
        row("a typing run is one step", h, "a@100 b@101 c@102 ? U ? R ?",
            "helloabc| world 2u ; hello| world 1r ; helloabc| world 2u");
        // The pause is measured from the previous release, read in whole seconds.
        row("1.5 s exactly", h, "a@99 b@100 c@101.5 ?", "helloabc| world 2u");
        row("just over 1.5 s", h, "a@99 b@100 c@101.6 ? U ?",
            "helloabc| world 3u ; helloab| world 2ur");
        row("two seconds", h, "a@99 b@100 c@102 ?", "helloabc| world 3u");
        row("rounded down, 1.2 s apart", h, "a@99.4 b@100.4 c@101.6 ?", "helloabc| world 3u");
        row("rounded up, 1.8 s apart", h, "a@99.6 b@100.6 c@102.4 ?", "helloabc| world 2u");
        row("over midnight", h, "a@86398 b@86399 c@0.5 ?", "helloabc| world 2u");
        // Caret keys (33 to 40) close the run; nothing to close while the slot below is empty.
        for (int key : {32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 16}) {
            const bool caret = key >= 33 && key <= 40;
            QTest::addRow("key %d", key)
                << QString(h) << QStringLiteral("k%1@99 ? a@100 ^0 k%1@100.5 ?").arg(key)
                << (caret ? "hello| world 1 ; |helloa world 3uc"
                          : "hello| world 1 ; |helloa world 2u");
        }
        row("typing after a caret move undoes only the new text", h,
            "a@100 b@100.5 ^0 k37@100.7 x@100.9 ? U ? U ?",
            "x|helloab world 3u ; |helloab world 2ur ; hello| world 1r");
        row("a pause after a caret move reuses its step", h,
            "a@100 k36@100.5 b@105 ? c@105.5 ? U ?",
            "helloab| world 3u ; helloabc| world 3u ; helloa| world 2ur");
        // Releases with Ctrl alone count for nothing; every delete is a step.
        row("Delete", h, "+z k46@100 ?", "helloz| world 2u");
        row("Shift+Delete", h, "+z k46/1@100 ?", "helloz| world 2u");
        row("Ctrl+Delete", h, "+z k46/2@100 ?", "helloz| world 1");
        row("Ctrl+Shift+Delete", h, "+z k46/3@100 ?", "helloz| world 2u");
        row("Ctrl+Alt+Delete", h, "+z k46/6@100 ?", "helloz| world 2u");
        row("every delete", "|hello world",
            "^0+1 del k46@100.1 ? ^0+1 del k46@100.2 ? ^0+1 del k46@100.3 ? U ?",
            "|ello world 2u ; |llo world 3u ; |lo world 4u ; l|lo world 3ur");
        row("a skipped release", h, "skip a@100 ? b@100.2 ?",
            "helloa| world 1 ; helloab| world 2u");
        // A left click closes the run and starts the clock of the next one; a right click asks
        // for the menu only.
        row("clicks", h, "click@99 ? a@100 rclick@100.7 ? ^0 click@100.7 ? b@102.2 ?",
            "hello| world 1 ; helloa| world 2u ; |helloa world 3uc ; b|helloa world 3u");
        row("undo to the empty slot", h, "a@100 ^5+1 del k8@100.5 ? U ?",
            "hello| world 2u ; | 0ur");
        row("redo passes over a duplicate", "a|", "=ab step step =abc step U U ? =ab R ?",
            "|a 1r ; |ab 3ur");
    }
    void history() {
        QFETCH(QString, start);
        Editing e(unmarked(start), int(start.indexOf(u'|')));
        QFETCH(QString, script);
        QTEST(play(e, script), "notes");
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
            e.doc.codebox().setText(QStringLiteral("t%1").arg(n));
            e.doc.AddStep();
            QCOMPARE(e.doc.nDoneIndex, Int16(qMin(n, 25)));
        }
        QCOMPARE(e.doc.Steps[0].Text, QStringLiteral("slot zero"));
        QCOMPARE(e.doc.Steps[1].Text, QStringLiteral("t2"));
        QCOMPARE(e.doc.Steps[24].Text, QStringLiteral("t25"));
        QCOMPARE(e.doc.Steps[25].Text, QStringLiteral("t26"));
    }

    void checkToAddStepLooksOneSlotDown() {
        Editing e(kText);
        e.doc.codebox().setText(QStringLiteral("changed"));
        e.doc.AddStep();
        e.doc.CheckToAddStep(true); // the pane equals the current step: still a step
        QCOMPARE(e.doc.nDoneIndex, Int16(3));
        e.doc.codebox().setText(kText);
        e.doc.Steps[2].Text = kText;
        e.doc.CheckToAddStep(false); // the pane equals the step below: none
        QCOMPARE(e.doc.nDoneIndex, Int16(3));
    }

    void runInSecondStepClearsSelectionOfTheFirst() {
        Editing e(kText, 5);
        play(e, "a@100");
        e.doc.Steps[1].SelLen = 3;
        play(e, "b@100.5");
        QCOMPARE(e.doc.Steps[1].SelLen, 0);
    }

    void undoPassesOverAStepWithoutItsOwnSelection() {
        Editing e(QStringLiteral("one"));
        play(e, "=one_two step =one_two_three step");
        e.doc.Steps[2].SelStart = 7;
        e.doc.Steps[3].SelLen = 2; // the top step carries a selection, the one below none
        QCOMPARE(play(e, "U ? R ?"), QStringLiteral("one| 1r ; one_two| 2ur"));
        e.doc.Steps[2].SelLen = 3;
        e.doc.Steps[1].SelStart = 2;
        // At slot 1 with a selection above: the caret of slot 1.
        QCOMPARE(play(e, "U ?"), QStringLiteral("on|e 1r"));
    }

    void undoAndRedoObeyTheirMenuItems() {
        Editing e(kText, 5);
        play(e, "=other step");
        e->menu(QStringLiteral("mnuEditUndo")).setEnabled(false);
        QCOMPARE(keyDown(e.doc, keys::vbKeyZ, keys::CtrlMask), 0);
        QCOMPARE(e.doc.codebox().Text(), QStringLiteral("other"));
        e->menu(QStringLiteral("mnuEditUndo")).setEnabled(true);
        e.doc.Undo();
        e->menu(QStringLiteral("mnuEditRedo")).setEnabled(false);
        e.doc.Redo();
        QCOMPARE(e.doc.codebox().Text(), kText);
    }

    // Undo back to the saved text still leaves the document dirty; a new step ends Redo.
    void undoDirtiesAndANewStepEndsRedo() {
        Editing e(kText, 5);
        play(e, "a@100 b@105");
        e.doc.Tag = QStringLiteral("Clean");
        e.doc.Undo();
        QCOMPARE(e.doc.Tag, QStringLiteral("Dirty"));
        QCOMPARE(e.doc.nTopIndex, Int16(3));
        QCOMPARE(play(e, "+! step ?"), QStringLiteral("helloa!| world 3u"));
        QCOMPARE(e.doc.nTopIndex, Int16(3));
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

    void dropBecomesItsOwnStep() {
        Editing e(kText);
        select(e.doc, 0, 5);
        e.doc.codebox_OLEStartDrag();
        QCOMPARE(e.doc.Steps[1].SelLen, 5);
        e.doc.codebox_OLECompleteDrag();
        QVERIFY(e->bDropPending);
        e.doc.codebox().setSelText(QString()); // the pane's own move of the text
        QCOMPARE(e.doc.nDoneIndex, Int16(2));
        QVERIFY(!e->bDropPending);
        play(e, "^1 +hello");
        QCOMPARE(e.doc.nDoneIndex, Int16(2)); // an ordinary change records nothing
        QCOMPARE(play(e, "U ?"), QStringLiteral("[hello] world 1r"));
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

    // One edit against a whole text: the pieces read back as the edited text.
    void anEditReadsBack_data() {
        columns<int, int, QString>({"at", "removed", "inserted"});
        QTest::newRow("insert at the start") << 0 << 0 << "<b>";
        QTest::newRow("insert in the middle") << 60000 << 0 << "x";
        QTest::newRow("insert at the end") << -1 << 0 << "</html>";
        QTest::newRow("delete at the start") << 0 << 10 << "";
        QTest::newRow("delete in the middle") << 70000 << 500 << "";
        QTest::newRow("delete at the end") << -10 << 10 << "";
        QTest::newRow("replace") << 80000 << 3 << "abcdef";
        QTest::newRow("a repeated character") << 5 << 0 << "<";
    }
    void anEditReadsBack() {
        QFETCH(int, at);
        QFETCH(int, removed);
        QFETCH(QString, inserted);
        const QString before = largeText();
        const int position = at < 0 ? int(before.size()) + at + (removed ? 0 : 1) : at;
        const QString after = QString(before).replace(position, removed, inserted);
        const StepText below(before);
        StepText step;
        step.assign(after, below);
        QVERIFY(!step.isWhole());
        QCOMPARE(step.toString(), after);
        QCOMPARE(step.size(), after.size());
        QVERIFY(step == after && step != before && below != step);
        QVERIFY(step.charactersBeyond(before) <= inserted.size());
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

    // Small texts and edits that change much are kept whole, as a plain shared string.
    void keptWhole_data() {
        columns<QString, QString>({"below", "text"});
        const QString large = largeText();
        QTest::newRow("small") << "<p>a</p>"
                               << "<p>ab</p>";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("most of it new")
            << large << QString(large).replace(10, 10, QString(100000, QLatin1Char('y')));
        QTest::newRow("a small text below a large one") << "<p>" << large;
    }
    void keptWhole() {
        QFETCH(QString, below);
        QFETCH(QString, text);
        StepText step;
        step.assign(text, StepText(below));
        QVERIFY(step.isWhole());
        if (!text.isEmpty()) QCOMPARE(step.toString().constData(), text.constData());
        QVERIFY(step == text);
    }
};

QTEST_GUILESS_MAIN(UndoStepsTest)
#include "test_undo_steps.moc"
