// Find & Replace: Find Next and Replace All on the Source text (the step that keeps a repeated
// search off the match it stands on, the upward off-by-one, the end messages, the 16-bit
// limits), and the window beside the documents as the user drives it.
#include "search/find_replace.h"
#include "search/frm_find.h"
#include "search_helpers.h"
#include "shell/code_editor.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two one two");
const QString kFinished = QStringLiteral("Tessaline has finished searching the document.");
const QString kNotFound = kFinished + QStringLiteral(" The search item was not found.");

struct Search {
    FindState state;
    TextPane codebox;
    ScriptedPlatform platform;
    Search(const QString& text, int caret, const QString& what, int direction = 1) {
        codebox.setText(text);
        codebox.setSelStart(caret);
        state.FindText = what;
        state.FindChanged = true;
        state.FindDirection = Int16(direction);
    }
    void findNext() { FindNextMatch(state, codebox, codebox.SelStart(), platform); }
    int replaceAll(const QString& with) {
        return ReplaceAllMatches(state, codebox, with, platform);
    }
};

struct FindRow {
    QString what;
    int caret, lastPos;
    bool changed;
    int direction, matchCase, hits, selStart, selLength;
    QString message; // none: found
};

struct ReplaceRow {
    QString text;
    int caret, direction;
    QString what, with, result;
    int count;
};

// The window over one document holding `text`, with the caret and selection given.
struct FindWindow : TestShell {
    FindWindow(const QString& text, int caret, int length = 0) {
        load();
        pane().setText(text);
        pane().select(caret, length);
        active().AddStep();
    }
    frmFind& open() {
        run("mnuEditFind");
        if (!forms.modeless<frmFind>()) throw std::runtime_error("no find window");
        return *forms.modeless<frmFind>();
    }
    SourcePane& pane() { return active().codebox(); }
    FindState& search() { return shell->part<SearchSession>().Search; }
};
} // namespace

class FindReplaceTest : public QObject {
    Q_OBJECT

  private slots:
    // In "one two one two"; "changed" is a search text new since the last find.
    void findNext_data() {
        rowsOf<FindRow>({
            {"down, changed: the match at the caret", {"one", 0, 0, true, 1, 0, 0, 0, 3, {}}},
            {"down again, not moved: the next", {"one", 0, 0, false, 1, 0, 0, 8, 3, {}}},
            {"down, moved: from the caret", {"one", 8, 0, false, 1, 0, 0, 8, 3, {}}},
            {"past the last, none before", {"one", 9, 9, false, 1, 0, 0, 9, 0, kNotFound}},
            {"past the last after a success", {"one", 9, 9, false, 1, 0, 3, 9, 0, kFinished}},
            {"up: the one before", {"one", 12, 0, false, 0, 0, 0, 8, 3, {}}},
            {"up skips a letter before the caret", {"e", 11, 0, false, 0, 0, 0, 2, 1, {}}},
            {"up takes a changed letter", {"e", 11, 0, true, 0, 0, 0, 10, 1, {}}},
            {"case matters when asked", {"ONE", 0, 0, true, 1, 1, 0, 0, 0, kNotFound}},
            {"case folds otherwise", {"ONE", 0, 0, true, 1, 0, 0, 0, 3, {}}},
        });
    }
    void findNext() {
        QFETCH(FindRow, row);
        Search s(kText, row.caret, row.what, row.direction);
        s.state.FindChanged = row.changed;
        s.state.FindLastPos = Int16(row.lastPos);
        s.state.FindMatchCase = Int16(row.matchCase);
        s.state.FindHits = Int16(row.hits);
        s.findNext();
        QCOMPARE(s.codebox.SelStart(), row.selStart);
        QCOMPARE(s.codebox.SelLength(), row.selLength);
        const bool found = row.message.isEmpty();
        QCOMPARE(s.platform.messageTexts(), found ? QStringList() : QStringList{row.message});
        if (!found) {
            QCOMPARE(s.platform.messages.first().icon, MsgIcon::Information);
            QVERIFY(s.platform.messages.first().systemModal);
            QCOMPARE(s.platform.messages.first().title, QString());
        }
        QCOMPARE(s.state.FindHits, Int16(row.hits + found));
        QCOMPARE(s.state.FindLastPos, Int16(row.selStart));
        QVERIFY(!s.state.FindChanged);
        QCOMPARE(s.codebox.focusCount(), int(found));
    }

    // Up from the very start: not found, and the state stays as it was.
    void upFromTheStartKeepsTheState() {
        Search s(kText, 0, QStringLiteral("one"), 0);
        s.state.FindLastPos = 5;
        s.findNext();
        QCOMPARE(s.platform.messageTexts(), QStringList{kNotFound});
        QCOMPARE(s.state.FindLastPos, Int16(5));
        QVERIFY(s.state.FindChanged);
        // A sharp s would become two letters in a whole-text upper case and shift positions.
        Search sharp(QStringLiteral("stra\u00DFe one"), 0, QStringLiteral("one"));
        sharp.findNext();
        QCOMPARE(sharp.codebox.SelStart(), 7);
    }

    void replaceAll_data() {
        rowsOf<ReplaceRow>({
            {"growing text ends behind each insert", {"a b a", 0, 1, "a", "aa", "aa b aa", 2}},
            {"the first pass starts one before the caret", {"ab ab", 1, 1, "a", "X", "Xb Xb", 2}},
            {"from the caret to the end only", {"ab ab ab", 4, 1, "ab", "c", "ab c c", 2}},
            {"nothing deletes", {"a-a-a", 0, 1, "-", "", "aaa", 2}},
            {"upward from the end", {"a a a", 5, 0, "a", "bb", "bb bb bb", 3}},
            {"case folds", {"One one", 0, 1, "ONE", "two", "two two", 2}},
        });
    }
    void replaceAll() {
        QFETCH(ReplaceRow, row);
        Search s(row.text, row.caret, row.what, row.direction);
        QCOMPARE(s.replaceAll(row.with), row.count);
        QCOMPARE(s.codebox.Text(), row.result);
        QCOMPARE(s.platform.messageTexts(),
                 QStringList{QStringLiteral("Tessaline has finished searching the document and "
                                            "replaced %1 items.")
                                 .arg(row.count)});
        QCOMPARE(s.platform.messages.first().icon, MsgIcon::Exclamation);
        QCOMPARE(s.platform.messages.first().title, QStringLiteral("Tessaline"));
        QVERIFY(s.platform.messages.first().systemModal);
        QVERIFY(!s.state.FindChanged);
    }

    // Without a match the message names the text; upward from the start the pane refuses the
    // negative position.
    void replaceAllWithoutAMatch() {
        Search s(kText, 0, QStringLiteral("zz"));
        QCOMPARE(s.replaceAll(QStringLiteral("y")), 0);
        QCOMPARE(s.platform.messageTexts(), QStringList{"Tessaline has finished searching for zz. "
                                                        "The search item was not found."});
        QCOMPARE(s.platform.messages.first().icon, MsgIcon::Information);
        s.state.FindDirection = 0;
        QCOMPARE(errorOf([&] { s.replaceAll(QStringLiteral("y")); }), int(ErrInvalidPropertyValue));
        QCOMPARE(s.codebox.Text(), kText);
    }

    // The window takes the selection, or the last search; the actions wait for a text.
    void theWindowOpensOnTheSelectionOrTheLastSearch() {
        FindWindow w(QStringLiteral("one two one"), 4, 3);
        w.search().FindMatchCase = 1;
        frmFind& form = w.open();
        QCOMPARE(form.Caption(), QStringLiteral("Find & Replace"));
        QCOMPARE(form.txtFind.Text(), QStringLiteral("two"));
        QVERIFY(w->bFindOpen && w.search().FindChanged);
        QCOMPARE(form.chkCase.Value(), 1);
        QVERIFY(form.optDirectionDown.Value() && form.cmdFind.Enabled());
        const QList<Control*> actions = {&form.cmdFind, &form.txtReplace, &form.cmdReplace,
                                         &form.Command1, &form.Label2};
        for (const char* text : {"", "b"}) {
            form.txtFind.setText(text);
            for (Control* c : actions)
                QCOMPARE(c->Enabled(), *text != 0);
        }
        form.cmdCancel.press();
        QVERIFY(!w->bFindOpen);
        QCOMPARE(w.search().FindText, QStringLiteral("b"));
        // Reopened without a selection: the last search, direction down.
        w.pane().setSelStart(0);
        w.search().FindDirection = 0;
        QCOMPARE(w.open().txtFind.Text(), QStringLiteral("b"));
        QCOMPARE(w.search().FindDirection, Int16(1));
        // Loaded with nothing to look for, only Find waits for a text.
        FindWindow fresh(QStringLiteral("abc"), 0);
        frmFind& empty = fresh.open();
        QVERIFY(!empty.cmdFind.Enabled() && empty.Command1.Enabled());
    }

    // Replace changes a selection that matches and finds the next, as one undo step;
    // otherwise it only finds.
    void replaceReplacesAMatchingSelection_data() {
        columns<int, int, QString, int>({"selStart", "matchCase", "text", "steps"});
        QTest::newRow("same but for case") << 0 << 0 << QString("XY one ONE") << 1;
        QTest::newRow("case must match") << 0 << 1 << QString("One one ONE") << 0;
        QTest::newRow("no selection") << 3 << 0 << QString("One one ONE") << 0;
    }
    void replaceReplacesAMatchingSelection() {
        QFETCH(int, selStart);
        QFETCH(int, matchCase);
        FindWindow w(QStringLiteral("One one ONE"), 0, 3);
        frmFind& form = w.open();
        form.txtFind.setText(QStringLiteral("one"));
        form.txtReplace.setText(QStringLiteral("XY"));
        form.chkCase.setValue(matchCase);
        w.pane().select(selStart, selStart == 0 ? 3 : 0);
        const Int16 done = w.active().nDoneIndex;
        form.cmdReplace.press();
        QTEST(w.pane().Text(), "text");
        QCOMPARE(w.pane().SelText(), QStringLiteral("one"));
        QFETCH(int, steps);
        QCOMPARE(w.active().nDoneIndex, Int16(done + steps));
    }

    void replaceAllIsOneUndoStep() {
        FindWindow w(QStringLiteral("a a a"), 0);
        frmFind& form = w.open();
        form.txtFind.setText(QStringLiteral("a"));
        form.txtReplace.setText(QStringLiteral("b"));
        const Int16 done = w.active().nDoneIndex;
        form.Command1.press();
        QCOMPARE(w.pane().Text(), QStringLiteral("b b b"));
        QCOMPARE(w.active().nDoneIndex, Int16(done + 1));
        w.active().Undo();
        QCOMPARE(w.pane().Text(), QStringLiteral("a a a"));
    }

    // It searches the document in front, and closes with the last document and before Exit
    // asks about the documents.
    void theWindowWorksOnTheDocumentInFront() {
        FindWindow w(QStringLiteral("first"), 0);
        frmFind& form = w.open();
        w.run("mnuFileNewHTML");
        form.txtFind.setText(QStringLiteral("body"));
        form.cmdFind.press();
        QCOMPARE(w.active().Caption(), QStringLiteral("Document 2"));
        QCOMPARE(w.pane().SelText(), QStringLiteral("body"));
        w.run("mnuFileClose");
        QVERIFY(!w.forms.modeless<frmFind>() && !w->bFindOpen);
        w.open();
        bool openWhenAsked = true;
        w.platform.messageAnswers.enqueue(MsgResult::Cancel);
        w.platform.onMessage = [&] { openWhenAsked = w->bFindOpen; };
        QVERIFY(!w->requestExit());
        QVERIFY(!openWhenAsked);
    }

    // A match or a caret past 32767 overflows; the dispatcher says so and the program goes on.
    void aSearchPastThe16BitRangeFails() {
        FindWindow w(QString(40000, QLatin1Char('x')) + QStringLiteral("one"), 0);
        frmFind& form = w.open();
        form.txtFind.setText(QStringLiteral("one"));
        w->dispatch([&] { form.cmdFind.press(); });
        w.pane().setSelStart(33000);
        w->dispatch([&] { form.cmdFind.press(); });
        QCOMPARE(w.platform.messageTexts(), QStringList(2, "Run-time error '6':\n\nOverflow"));
        QVERIFY(form.isLoaded());
    }

    void inLayoutTheSurfaceFindsForItself() {
        FindWindow w(QStringLiteral("<p>x</p>"), 0);
        w->bLayoutActive = true;
        w.run("mnuEditFind");
        QVERIFY(!w.forms.modeless<frmFind>());
        QCOMPARE(layoutOf(w.active()).commands.size(), 1);
        QCOMPARE(layoutOf(w.active()).commands.first().id, int(layoutcmd::FindText));
    }
};

QTEST_GUILESS_MAIN(FindReplaceTest)
#include "test_find_replace.moc"
