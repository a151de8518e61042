// Find Next and Replace All on the Source text: the step that keeps a repeated search off the
// match it stands on, the upward off-by-one, the end messages, the 16-bit limits.
#include "editor/text_pane.h"
#include "scripted_platform.h"
#include "search/find_replace.h"
#include "test_rows.h"

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
    Search(const QString& text, int caret, const QString& what, bool changed = true) {
        codebox.setText(text);
        codebox.setSelStart(caret);
        state.FindText = what;
        state.FindChanged = changed;
    }
    void findNext() { FindNextMatch(state, codebox, codebox.SelStart(), platform); }
    int replaceAll(const QString& with) {
        return ReplaceAllMatches(state, codebox, with, platform);
    }
};
} // namespace

class FindReplaceTest : public QObject {
    Q_OBJECT

  private slots:
    void findNext_data() {
        columns<QString, int, int, bool, int, int, int, int, int, QString>(
            {"what", "caret", "lastPos", "changed", "direction", "matchCase", "hits", "selStart",
             "selLength", "message"});
        QTest::newRow("down, a changed text finds the match at the caret")
            << "one" << 0 << 0 << true << 1 << 0 << 0 << 0 << 3 << "";
        QTest::newRow("down again without moving finds the next")
            << "one" << 0 << 0 << false << 1 << 0 << 0 << 8 << 3 << "";
        QTest::newRow("down after moving the caret starts at it")
            << "one" << 8 << 0 << false << 1 << 0 << 0 << 8 << 3 << "";
        QTest::newRow("down past the last, never found before")
            << "one" << 9 << 9 << false << 1 << 0 << 0 << 9 << 0 << kNotFound;
        QTest::newRow("down past the last, after a success")
            << "one" << 9 << 9 << false << 1 << 0 << 3 << 9 << 0 << kFinished;
        QTest::newRow("up finds the one before")
            << "one" << 12 << 0 << false << 0 << 0 << 0 << 8 << 3 << "";
        QTest::newRow("up skips a letter just before the caret")
            << "e" << 11 << 0 << false << 0 << 0 << 0 << 2 << 1 << "";
        QTest::newRow("up with a changed letter takes it")
            << "e" << 11 << 0 << true << 0 << 0 << 0 << 10 << 1 << "";
        QTest::newRow("case matters when asked")
            << "ONE" << 0 << 0 << true << 1 << 1 << 0 << 0 << 0 << kNotFound;
        QTest::newRow("case folds otherwise")
            << "ONE" << 0 << 0 << true << 1 << 0 << 0 << 0 << 3 << "";
    }
    void findNext() {
        QFETCH(QString, what);
        QFETCH(int, caret);
        QFETCH(bool, changed);
        QFETCH(int, hits);
        QFETCH(QString, message);
        Search s(kText, caret, what, changed);
        QFETCH(int, lastPos);
        s.state.FindLastPos = Int16(lastPos);
        QFETCH(int, direction);
        s.state.FindDirection = Int16(direction);
        QFETCH(int, matchCase);
        s.state.FindMatchCase = Int16(matchCase);
        s.state.FindHits = Int16(hits);
        s.findNext();
        QTEST(s.codebox.SelStart(), "selStart");
        QTEST(s.codebox.SelLength(), "selLength");
        QCOMPARE(s.platform.messageTexts(),
                 message.isEmpty() ? QStringList() : QStringList{message});
        if (!message.isEmpty()) {
            const ShownMessage& shown = s.platform.messages.first();
            QCOMPARE(shown.icon, MsgIcon::Information);
            QVERIFY(shown.systemModal);
            QCOMPARE(shown.title, QString());
        }
        QCOMPARE(s.state.FindHits, Int16(hits + (message.isEmpty() ? 1 : 0)));
        QCOMPARE(s.state.FindLastPos, Int16(s.codebox.SelStart()));
        QVERIFY(!s.state.FindChanged);
        QCOMPARE(s.codebox.focusCount(), message.isEmpty() ? 1 : 0);
    }

    void upFromTheStartSaysNotFoundAndKeepsTheState() {
        Search s(kText, 0, QStringLiteral("one"));
        s.state.FindDirection = 0;
        s.state.FindLastPos = 5;
        s.state.FindHits = 4;
        s.findNext();
        QCOMPARE(s.platform.messageTexts(), QStringList{kNotFound});
        QCOMPARE(s.state.FindLastPos, Int16(5));
        QVERIFY(s.state.FindChanged);
    }

    void aCaretPastThe16BitRangeOverflows() {
        Search s(QString(40000, QLatin1Char('x')) + QStringLiteral("one"), 33000,
                 QStringLiteral("one"));
        QCOMPARE(errorOf([&] { s.findNext(); }), int(ErrOverflow));
        // A match beyond the range overflows too, though the caret is within it.
        Search far(QString(40000, QLatin1Char('x')) + QStringLiteral("one"), 0,
                   QStringLiteral("one"));
        QCOMPARE(errorOf([&] { far.findNext(); }), int(ErrOverflow));
    }

    void replaceAll_data() {
        columns<QString, int, int, QString, QString, QString, int>(
            {"text", "caret", "direction", "what", "with", "result", "count"});
        QTest::newRow("growing text ends behind each insert") << "a b a" << 0 << 1 << "a"
                                                              << "aa"
                                                              << "aa b aa" << 2;
        QTest::newRow("the first pass starts one before the caret") << "ab ab" << 1 << 1 << "a"
                                                                    << "X"
                                                                    << "Xb Xb" << 2;
        QTest::newRow("from the caret to the end only") << "ab ab ab" << 4 << 1 << "ab"
                                                        << "c"
                                                        << "ab c c" << 2;
        QTest::newRow("nothing deletes") << "a-a-a" << 0 << 1 << "-"
                                         << ""
                                         << "aaa" << 2;
        QTest::newRow("upward from the end") << "a a a" << 5 << 0 << "a"
                                             << "bb"
                                             << "bb bb bb" << 3;
        QTest::newRow("case folds") << "One one" << 0 << 1 << "ONE"
                                    << "two"
                                    << "two two" << 2;
    }
    void replaceAll() {
        QFETCH(QString, text);
        QFETCH(int, caret);
        QFETCH(QString, what);
        QFETCH(QString, with);
        QFETCH(int, count);
        Search s(text, caret, what);
        QFETCH(int, direction);
        s.state.FindDirection = Int16(direction);
        QCOMPARE(s.replaceAll(with), count);
        QTEST(s.codebox.Text(), "result");
        QCOMPARE(s.platform.messageTexts(),
                 QStringList{QStringLiteral("Tessaline has finished searching the document and "
                                            "replaced %1 items.")
                                 .arg(count)});
        const ShownMessage& shown = s.platform.messages.first();
        QCOMPARE(shown.icon, MsgIcon::Exclamation);
        QCOMPARE(shown.title, QStringLiteral("Tessaline"));
        QVERIFY(shown.systemModal);
        QVERIFY(!s.state.FindChanged);
    }

    void replaceAllWithoutAMatchSaysSo() {
        Search s(kText, 0, QStringLiteral("zz"));
        QCOMPARE(s.replaceAll(QStringLiteral("y")), 0);
        QCOMPARE(s.platform.messageTexts(),
                 QStringList{QStringLiteral("Tessaline has finished searching for zz. The search "
                                            "item was not found.")});
        QCOMPARE(s.platform.messages.first().icon, MsgIcon::Information);
        QCOMPARE(s.codebox.Text(), kText);
    }

    void replaceAllUpwardFromTheStartFailsOnANegativeCaret() {
        Search s(kText, 0, QStringLiteral("zz"));
        s.state.FindDirection = 0;
        QCOMPARE(errorOf([&] { s.replaceAll(QStringLiteral("y")); }), int(ErrInvalidPropertyValue));
        QCOMPARE(s.codebox.Text(), kText);
    }

    void foldingKeepsTheLength() {
        // A sharp s would become two letters in a whole-text upper case and shift positions.
        Search s(QStringLiteral("stra\u00DFe one"), 0, QStringLiteral("one"));
        s.findNext();
        QCOMPARE(s.codebox.SelStart(), 7);
        QCOMPARE(upperFolded(QStringLiteral("\u00DFa")).size(), 2);
    }
};

QTEST_GUILESS_MAIN(FindReplaceTest)
#include "test_find_replace.moc"
