// The Source pane's keys, the automatic bracket pair, the edit commands it keeps current and
// the window keys that move between documents.
#include "editor_fixture.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two three");
constexpr int Shift = 1, Ctrl = 2;

// Presses keys written as "Ctrl+Shift+P" and answers the key code the handler left.
int press(codeEditor& doc, const QString& keys) {
    static const QHash<QString, int> named = {
        {"Enter", 13}, {"Space", 32}, {"Insert", 45}, {"Delete", 46}, {"F12", 123}};
    const QStringList parts = keys.split(u'+');
    const int shift = (parts.contains("Shift") ? 1 : 0) + (parts.contains("Ctrl") ? 2 : 0) +
                      (parts.contains("Alt") ? 4 : 0);
    const QString key = parts.last();
    return keyDown(doc, named.value(key, key.at(0).unicode()), shift);
}
} // namespace

class SourceKeysTest : public QObject {
    Q_OBJECT

  private slots:
    // What a key leaves: the pane (marked), the steps, m for the markup flag, s when the key's
    // release is to pass, t when the key was taken from the pane, and the clipboard if changed.
    void keys_data() {
        columns<QString, QString, QString>({"keys", "before", "after"});
        const char* const rows[] = {
            "Ctrl+Enter#one |two three#one <br>|two three 1",
            "Ctrl+Enter#one [two] three#one <br>| three 1",
            "Enter#one |two three#one |two three 1",
            "Ctrl+Shift+P#one |two three#one <p>|two three 1",
            "Ctrl+Shift+P#one [two] three#one <p>[two] three 1",
            "Ctrl+Alt+Shift+P#one [two] three#one <p>[two] three 1",
            "Ctrl+P#one [two] three#one [two] three 1",
            "Ctrl+Shift+Q#one |two three#one </p>|two three 1",
            "Ctrl+Shift+Q#one [two] three#one [two]</p> three 1",
            "Ctrl+Shift+Space#one |two three#one &nbsp;|two three 1",
            "Shift+Space#one |two three#one |two three 1",
            // The menu shortcut of the same key does the work.
            "Ctrl+B#one [two] three#one [two] three 1ms",
            "Ctrl+I#one [two] three#one [two] three 1ms",
            "Ctrl+U#one [two] three#one [two] three 1ms",
            "Ctrl+E#one [two] three#one [two] three 1ms",
            "Ctrl+Shift+B#one |two three#one |two three 1ms",
            "B#one |two three#one |two three 1",
            "F12#one |two three#one |two three 1ms",
            "Alt+F12#one |two three#one |two three 1ms",
            // Paste keys put the clipboard over the selection; cut keys take it away as a step.
            "Shift+Insert#one [two] three#one TWO| three 2mt",
            "Ctrl+V#one [two] three#one TWO| three 2mt",
            "Ctrl+Shift+V#one [two] three#one TWO| three 2mt",
            "Insert#one [two] three#one [two] three 1",
            "V#one [two] three#one [two] three 1",
            "Ctrl+X#one [two] three#one | three 2st two",
            "Shift+Delete#one [two] three#one | three 2st two",
            "Ctrl+Shift+Delete#one [two] three#one | three 2st two",
            "Shift+Delete#one| two three#one| two three 2st ",
            "Delete#one [two] three#one [two] three 1",
            "X#one [two] three#one [two] three 1",
        };
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'#');
            QTest::newRow(qPrintable(f[0] + u' ' + f[1])) << f[0] << f[1] << f[2];
        }
    }
    void keys() {
        QFETCH(QString, before);
        Editing e(unmarked(before));
        setMarked(e.doc, before);
        e.platform.clipboard = QStringLiteral("TWO");
        QFETCH(QString, keys);
        const int left = press(e.doc, keys);
        QString after = marked(e.doc) + u' ' + QString::number(e.doc.nDoneIndex) +
                        (e->bInsertingMarkup ? "m" : "") + (e.doc.bSkipKeyUp ? "s" : "") +
                        (left == 0 ? "t" : "");
        if (e.platform.clipboard != QLatin1String("TWO")) after += u' ' + e.platform.clipboard;
        QTEST(after, "after");
    }

    void undoAndRedoKeys() {
        Editing e(kText, 3);
        e.doc.codebox().setSelText(QStringLiteral("!"));
        e.doc.AddStep();
        QCOMPARE(press(e.doc, "Ctrl+Z"), 0);
        QCOMPARE(marked(e.doc), QStringLiteral("one| two three"));
        QCOMPARE(press(e.doc, "Ctrl+Y"), 0);
        QCOMPARE(marked(e.doc), QStringLiteral("one!| two three"));
    }

    // The paragraph keys hold positions in 16 bits: past that the handler fails.
    void paragraphKeysOverflow_data() {
        columns<QString, int, int, bool>({"keys", "start", "length", "fails"});
        QTest::newRow("P, start past 32767") << "Ctrl+Shift+P" << 33000 << 2 << false;
        QTest::newRow("P, length 32768") << "Ctrl+Shift+P" << 10 << 32768 << true;
        QTest::newRow("Q, start 32767") << "Ctrl+Shift+Q" << 32767 << 2 << false;
        QTest::newRow("Q, start 32768") << "Ctrl+Shift+Q" << 32768 << 2 << true;
        QTest::newRow("Q, length 32768") << "Ctrl+Shift+Q" << 10 << 32768 << true;
    }
    void paragraphKeysOverflow() {
        QFETCH(QString, keys);
        QFETCH(int, start);
        QFETCH(int, length);
        QFETCH(bool, fails);
        const QString big(40000, QLatin1Char('x'));
        Editing e(big);
        select(e.doc, start, length);
        e->dispatch([&] { press(e.doc, keys); });
        QCOMPARE(e.platform.messages.size(), fails ? 1 : 0);
        if (fails) QVERIFY(e.platform.messages[0].text.startsWith("Run-time error '6':"));
        QCOMPARE(e.doc.codebox().length(), big.size() + (fails ? 0 : keys.endsWith(u'P') ? 3 : 4));
        if (!fails) QCOMPARE(e.doc.codebox().SelLength(), length);
    }

    void autoCloseTypesAPair() {
        Editing e(kText, 4);
        QVERIFY(e->bAutoCloseTag);
        int ascii = '<';
        e.doc.codebox_KeyPress(ascii);
        QCOMPARE(ascii, 0);
        QCOMPARE(marked(e.doc), QStringLiteral("one <|>two three"));
        QCOMPARE(e.doc.nDoneIndex, Int16(2));
        QCOMPARE(e.doc.Steps[2].SelStart, 6);
        QVERIFY(!e.doc.bAutoCloseStep);
        e.doc.Undo();
        QCOMPARE(marked(e.doc), QStringLiteral("one |two three"));
        select(e.doc, 4, 3); // over a selection the pair replaces it
        e.doc.codebox_KeyPress(ascii = '<');
        QCOMPARE(marked(e.doc), QStringLiteral("one <|> three"));
    }

    // "<" with auto close off, and any other character, pass untouched.
    void otherCharactersAndAutoCloseOffPass() {
        for (const auto& [autoClose, ascii] :
             {std::pair{false, int('<')}, std::pair{true, int('>')}, std::pair{true, int('a')}}) {
            Editing e(kText, 4);
            e->bAutoCloseTag = autoClose;
            int typed = ascii;
            e.doc.codebox_KeyPress(typed);
            QCOMPARE(typed, ascii);
            QCOMPARE(e.doc.codebox().Text(), kText);
            QCOMPARE(e.doc.nDoneIndex, Int16(1));
        }
    }

    void selectionAndClipboardDriveTheEditCommands() {
        for (const int selLength : {0, 2}) {
            for (const QString& clipboard : {QString(), QStringLiteral("x")}) {
                Editing e(kText);
                select(e.doc, 1, selLength);
                e.platform.clipboard = clipboard;
                e.doc.codebox_SelChange();
                for (const char* item : {"mnuEditCut", "mnuEditCopy"})
                    QCOMPARE(e->menu(QLatin1String(item)).Enabled(), selLength > 0);
                QCOMPARE(e->tbrMain.ButtonEnabled(7), selLength > 0);
                QCOMPARE(e->tbrMain.ButtonEnabled(8), selLength > 0);
                QCOMPARE(e->menu(QStringLiteral("mnuEditPaste")).Enabled(), !clipboard.isEmpty());
                QCOMPARE(e->tbrMain.ButtonEnabled(9), !clipboard.isEmpty());
            }
        }
    }

    void rightClicksOfferTheEditMenu() {
        Editing e(kText);
        QSignalSpy asked(&e.doc, &codeEditor::editMenuRequested);
        e.doc.Form_MouseDown(keys::vbLeftButton, 0);
        e.doc.codebox_MouseUp(keys::vbLeftButton, 0);
        QCOMPARE(asked.count(), 0);
        e.doc.Form_MouseDown(keys::vbRightButton, 0);
        e.doc.codebox_MouseUp(keys::vbRightButton, 0);
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
        QFETCH(int, to);
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        ts->mnuFileNewHTML_Click();
        ts->TabStrip1.select(from);
        QCOMPARE(&ts.active(), ts->documents()[size_t(from)]);
        int keyCode = keys::vbKeyF6;
        ts.active().Form_KeyDown(keyCode, shift);
        QCOMPARE(keyCode, 0);
        QCOMPARE(ts->TabStrip1.selectedIndex(), to);
        QCOMPARE(ts->ActiveForm(), ts->documents()[size_t(to)]);
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
        QCOMPARE(windowKey(keys::vbKeyF6, Ctrl), 0);
        QCOMPARE(ts->ActiveForm(), &doc);
        QCOMPARE(windowKey(keys::vbKeyF6, 0), int(keys::vbKeyF6));
        QCOMPARE(windowKey(keys::vbKeyF4, 0), int(keys::vbKeyF4));
        doc.codebox().setSelText(QStringLiteral("x"));
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QCOMPARE(windowKey(keys::vbKeyF4, Ctrl), 0);
        QCOMPARE(ts.platform.messageTexts(),
                 QStringList{"Do you want to save the changes made to Document 1?"});
        QCOMPARE(ts->documents().size(), size_t(1));
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        QCOMPARE(windowKey(keys::vbKeyF4, Ctrl), 0);
        QVERIFY(ts->documents().empty());
    }
};

QTEST_GUILESS_MAIN(SourceKeysTest)
#include "test_source_keys.moc"
