// The Source pane's keys, the automatic bracket pair, the edit commands it keeps current and
// the window keys that move between documents.
#include "editor_fixture.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two three");
constexpr int Shift = 1, Ctrl = 2, Alt = 4;
} // namespace

class SourceKeysTest : public QObject {
    Q_OBJECT

  private slots:
    void keyDownRows_data() {
        columns<int, int, int, QString, int, int, bool>(
            {"key", "shift", "selLength", "text", "selStart", "selLen", "flagsSet"});
        const QString same = kText;
        QTest::newRow("Ctrl+Enter") << 13 << Ctrl << 0 << "one <br>two three" << 8 << 0 << false;
        QTest::newRow("Ctrl+Enter, selection")
            << 13 << Ctrl << 3 << "one <br> three" << 8 << 0 << false;
        QTest::newRow("Enter") << 13 << 0 << 0 << same << 4 << 0 << false;
        QTest::newRow("Ctrl+Shift+P")
            << 80 << Ctrl + Shift << 0 << "one <p>two three" << 7 << 0 << false;
        QTest::newRow("Ctrl+Shift+P, selection")
            << 80 << Ctrl + Shift << 3 << "one <p>two three" << 7 << 3 << false;
        QTest::newRow("Ctrl+Alt+Shift+P, selection")
            << 80 << Ctrl + Shift + Alt << 3 << "one <p>two three" << 7 << 3 << false;
        QTest::newRow("Ctrl+P") << 80 << Ctrl << 3 << same << 4 << 3 << false;
        QTest::newRow("Ctrl+Shift+Q")
            << 81 << Ctrl + Shift << 0 << "one </p>two three" << 8 << 0 << false;
        QTest::newRow("Ctrl+Shift+Q, selection")
            << 81 << Ctrl + Shift << 3 << "one two</p> three" << 4 << 3 << false;
        QTest::newRow("Ctrl+Shift+Space")
            << 32 << Ctrl + Shift << 0 << "one &nbsp;two three" << 10 << 0 << false;
        QTest::newRow("Shift+Space") << 32 << Shift << 0 << same << 4 << 0 << false;
        for (int key : {66, 73, 85, 69})
            QTest::addRow("Ctrl+%c", key) << key << Ctrl << 3 << same << 4 << 3 << true;
        QTest::newRow("Ctrl+Shift+B") << 66 << Ctrl + Shift << 0 << same << 4 << 0 << true;
        QTest::newRow("B") << 66 << 0 << 0 << same << 4 << 0 << false;
        QTest::newRow("F12") << 123 << 0 << 0 << same << 4 << 0 << true;
        QTest::newRow("Alt+F12") << 123 << Alt << 0 << same << 4 << 0 << true;
    }
    // Rows that pass leave the key to the pane, and none of them makes a step of its own.
    void keyDownRows() {
        QFETCH(int, key);
        QFETCH(int, shift);
        QFETCH(int, selLength);
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        select(doc, 4, selLength);
        QCOMPARE(keyDown(doc, key, shift), key);
        QTEST(doc.codebox().Text(), "text");
        QTEST(doc.codebox().SelStart(), "selStart");
        QTEST(doc.codebox().SelLength(), "selLen");
        QTEST(doc.bSkipKeyUp, "flagsSet");
        QTEST(ts->bInsertingMarkup, "flagsSet");
        QCOMPARE(doc.nDoneIndex, Int16(1));
    }

    // Paste keys put the clipboard over the selection; cut keys take it away as a step.
    void clipboardKeys_data() {
        columns<int, int, QString>({"key", "shift", "does"});
        QTest::newRow("Shift+Insert") << 45 << Shift << "paste";
        QTest::newRow("Ctrl+V") << 86 << Ctrl << "paste";
        QTest::newRow("Ctrl+Shift+V") << 86 << Ctrl + Shift << "paste";
        QTest::newRow("Insert") << 45 << 0 << "";
        QTest::newRow("V") << 86 << 0 << "";
        QTest::newRow("Ctrl+X") << 88 << Ctrl << "cut";
        QTest::newRow("Shift+Delete") << 46 << Shift << "cut";
        QTest::newRow("Ctrl+Shift+Delete") << 46 << Ctrl + Shift << "cut";
        QTest::newRow("Delete") << 46 << 0 << "";
        QTest::newRow("X") << 88 << 0 << "";
    }
    void clipboardKeys() {
        QFETCH(int, key);
        QFETCH(QString, does);
        const bool pastes = does == QLatin1String("paste"), cuts = does == QLatin1String("cut");
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        select(doc, 4, 4);
        ts.platform.clipboard = QStringLiteral("TWO");
        QFETCH(int, shift);
        QCOMPARE(keyDown(doc, key, shift), pastes || cuts ? 0 : key);
        QCOMPARE(doc.codebox().Text(), pastes ? QStringLiteral("one TWOthree")
                                       : cuts ? QStringLiteral("one three")
                                              : kText);
        QCOMPARE(ts.platform.clipboard, cuts ? QStringLiteral("two ") : QStringLiteral("TWO"));
        QCOMPARE(ts->bInsertingMarkup, pastes);
        QCOMPARE(doc.bSkipKeyUp, cuts);
        if (!pastes) QCOMPARE(doc.nDoneIndex, Int16(cuts ? 2 : 1));
    }

    void shiftDeleteWithoutSelectionStillCuts() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 3);
        ts.platform.clipboard = QStringLiteral("kept?");
        QCOMPARE(keyDown(doc, 46, Shift), 0);
        QCOMPARE(ts.platform.clipboard, QString());
        QCOMPARE(doc.codebox().Text(), kText);
        QVERIFY(ts->menu(QStringLiteral("mnuEditPaste")).Enabled());
    }

    void undoAndRedoKeys() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 3);
        doc.codebox().setSelText(QStringLiteral("!"));
        doc.AddStep();
        QCOMPARE(keyDown(doc, 90, Ctrl), 0);
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(keyDown(doc, 89, Ctrl), 0);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one! two three"));
    }

    // The paragraph keys hold positions in 16 bits: past that the handler fails.
    void paragraphKeysOverflow_data() {
        columns<int, int, int, bool>({"key", "start", "length", "fails"});
        QTest::newRow("P, start past 32767") << 80 << 33000 << 2 << false;
        QTest::newRow("P, length 32768") << 80 << 10 << 32768 << true;
        QTest::newRow("Q, start 32767") << 81 << 32767 << 2 << false;
        QTest::newRow("Q, start 32768") << 81 << 32768 << 2 << true;
        QTest::newRow("Q, length 32768") << 81 << 10 << 32768 << true;
    }
    void paragraphKeysOverflow() {
        QFETCH(int, key);
        QFETCH(int, start);
        QFETCH(int, length);
        QFETCH(bool, fails);
        TestShell ts;
        const QString big(40000, QLatin1Char('x'));
        codeEditor& doc = documentWith(ts, big);
        select(doc, start, length);
        ts->dispatch([&] { keyDown(doc, key, Ctrl + Shift); });
        if (fails) {
            QCOMPARE(ts.platform.messages.size(), 1);
            QVERIFY(ts.platform.messages[0].text.startsWith(QStringLiteral("Run-time error '6':")));
            QCOMPARE(doc.codebox().Text(), big);
        } else {
            QVERIFY(ts.platform.messages.isEmpty());
            QCOMPARE(doc.codebox().length(), big.size() + (key == 80 ? 3 : 4));
            QCOMPARE(doc.codebox().SelLength(), length);
        }
    }

    void autoCloseTypesAPair() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText, 4);
        QVERIFY(ts->bAutoCloseTag);
        int ascii = '<';
        doc.codebox_KeyPress(ascii);
        QCOMPARE(ascii, 0);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one <>two three"));
        QCOMPARE(doc.codebox().SelStart(), 5);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QCOMPARE(doc.Steps[2].SelStart, 6);
        QVERIFY(!doc.bAutoCloseStep);
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 4);
        // Over a selection the pair replaces it.
        select(doc, 4, 3);
        doc.codebox_KeyPress(ascii = '<');
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one <> three"));
        QCOMPARE(doc.codebox().SelStart(), 5);
    }

    // "<" with auto close off, and any other character, pass untouched.
    void otherCharactersAndAutoCloseOffPass() {
        for (const auto& [autoClose, ascii] :
             {std::pair{false, int('<')}, std::pair{true, int('>')}, std::pair{true, int('a')}}) {
            TestShell ts;
            codeEditor& doc = documentWith(ts, kText, 4);
            ts->bAutoCloseTag = autoClose;
            int typed = ascii;
            doc.codebox_KeyPress(typed);
            QCOMPARE(typed, ascii);
            QCOMPARE(doc.codebox().Text(), kText);
            QCOMPARE(doc.nDoneIndex, Int16(1));
        }
    }

    void selectionAndClipboardDriveTheEditCommands() {
        for (const int selLength : {0, 2}) {
            for (const QString& clipboard : {QString(), QStringLiteral("x")}) {
                TestShell ts;
                codeEditor& doc = documentWith(ts, kText);
                select(doc, 1, selLength);
                ts.platform.clipboard = clipboard;
                doc.codebox_SelChange();
                const bool selected = selLength > 0;
                QCOMPARE(ts->menu(QStringLiteral("mnuEditCut")).Enabled(), selected);
                QCOMPARE(ts->menu(QStringLiteral("mnuEditCopy")).Enabled(), selected);
                QCOMPARE(ts->tbrMain.ButtonEnabled(7), selected);
                QCOMPARE(ts->tbrMain.ButtonEnabled(8), selected);
                QCOMPARE(ts->menu(QStringLiteral("mnuEditPaste")).Enabled(), !clipboard.isEmpty());
                QCOMPARE(ts->tbrMain.ButtonEnabled(9), !clipboard.isEmpty());
            }
        }
    }

    void rightClicksOfferTheEditMenu() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, kText);
        QSignalSpy asked(&doc, &codeEditor::editMenuRequested);
        doc.Form_MouseDown(keys::vbLeftButton, 0);
        QCOMPARE(asked.count(), 0);
        doc.Form_MouseDown(keys::vbRightButton, 0);
        doc.codebox_MouseUp(keys::vbRightButton, 0);
        QCOMPARE(asked.count(), 2);
    }

    void ctrlF6WalksTheTabs_data() {
        columns<int, int, int>({"shift", "from", "to"});
        QTest::newRow("next") << Ctrl << 0 << 1;
        QTest::newRow("next from the last") << Ctrl << 2 << 0;
        QTest::newRow("previous") << Ctrl + Shift << 2 << 1;
        QTest::newRow("previous from the first") << Ctrl + Shift << 0 << 2;
    }
    void ctrlF6WalksTheTabs() {
        QFETCH(int, shift);
        QFETCH(int, from);
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        ts->mnuFileNewHTML_Click();
        ts->TabStrip1.select(from);
        codeEditor& doc = ts.active();
        QCOMPARE(&doc, ts->documents()[static_cast<size_t>(from)]);
        int keyCode = 117;
        doc.Form_KeyDown(keyCode, shift);
        QCOMPARE(keyCode, 0);
        QFETCH(int, to);
        QCOMPARE(ts->TabStrip1.selectedIndex(), to);
        QCOMPARE(ts->ActiveForm(), ts->documents()[static_cast<size_t>(to)]);
    }

    // With one document Ctrl+F6 stays put; F6 and F4 alone pass; Ctrl+F4 closes, asking
    // about changes first.
    void windowKeysWithOneDocument() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const auto windowKey = [&](int keyCode, int shift) {
            doc.Form_KeyDown(keyCode, shift);
            return keyCode;
        };
        windowKey(117, Ctrl);
        QCOMPARE(ts->ActiveForm(), &doc);
        QCOMPARE(windowKey(117, 0), 117);
        QCOMPARE(windowKey(115, 0), 115);
        doc.codebox().setSelText(QStringLiteral("x"));
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QCOMPARE(windowKey(115, Ctrl), 0);
        QCOMPARE(
            ts.platform.messageTexts(),
            QStringList{QStringLiteral("Do you want to save the changes made to Document 1?")});
        QCOMPARE(ts->documents().size(), size_t(1));
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        QCOMPARE(windowKey(115, Ctrl), 0);
        QVERIFY(ts->documents().empty());
    }
};

QTEST_GUILESS_MAIN(SourceKeysTest)
#include "test_source_keys.moc"
