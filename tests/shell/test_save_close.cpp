// Save, Save As, Save All, Close, Close All and the save prompt of a closing window.
#include "editor/text_pane.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kAlreadyOpen = QStringLiteral(
    "This is the name of a file that is currently open.\n\nFile has not been saved.");
const QString kClean = QStringLiteral("Clean"), kDirty = QStringLiteral("Dirty");

QString askedToSave(int n) {
    return QStringLiteral("Do you want to save the changes made to Document %1?").arg(n);
}
} // namespace

class SaveCloseTest : public QObject {
    Q_OBJECT

  private slots:
    void saveUntitledAsksForAName() {
        QTemporaryDir dir;
        const QString path = dir.filePath("new.htm");
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setSelText("x");
        const int caret = doc.codebox().SelStart();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileSave_Click(); // cancelled: nothing changes, nothing is said
        QCOMPARE(doc.Tag, kDirty);
        QCOMPARE(doc.Caption(), QStringLiteral("Document 1"));
        QVERIFY(ts.platform.messages.isEmpty());
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path), doc.codebox().Text().toUtf8());
        QCOMPARE(doc.Caption(), path);
        QCOMPARE(doc.codebox().FileName(), path);
        QCOMPARE(doc.txtFileName, path);
        QCOMPARE(doc.txtFileTitle, QStringLiteral("new.htm"));
        QCOMPARE(doc.Tag, kClean);
        QCOMPARE(doc.CSSDoc, QStringLiteral("No"));
        QCOMPARE(doc.codebox().SelStart(), caret);
        QCOMPARE(ts->TabStrip1.tab(0).Key, path);
        QCOMPARE(ts->TabStrip1.tab(0).Caption, QStringLiteral("new.htm"));
    }

    void saveBoundFileInPlace() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "old");
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.open(path);
        doc.codebox().setText("new text");
        QCOMPARE(doc.Tag, kDirty);
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path), QByteArray("new text"));
        QCOMPARE(doc.Tag, kClean);
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1); // only Open's
    }

    void saveInLayoutTakesThePageSaveAsDoesNot() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "source");
        TestShell ts;
        ts.load();
        layoutOf(ts.open(path)).setDocumentHTML("<p>from layout</p>");
        ts->bLayoutActive = true;
        const QString other = dir.filePath("copy.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(other));
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(other), QByteArray("source"));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(other), QByteArray("<p>from layout</p>"));
    }

    // Another open document's name is refused; the same name in other case is not the same.
    void saveUnderTheNameOfAnotherOpenDocument() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "page");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("a"); // keep Document 1
        ts.open(path);
        codeEditor* first = ts->documents()[0];
        first->ZOrder();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSave_Click();
        QCOMPARE(ts.platform.messageTexts(), QStringList{kAlreadyOpen});
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(first->Caption(), QStringLiteral("Document 1"));
        QCOMPARE(first->Tag, kDirty);
        QCOMPARE(readFile(path), QByteArray("page"));
        QVERIFY(!ts->bFileAlreadyOpen);
        const QString upper = dir.filePath("PAGE.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(upper));
        ts->mnuFileSaveas_Click();
        QCOMPARE(ts.platform.messages.size(), 1);
        QCOMPARE(first->Caption(), upper);
    }

    void saveAsUnderItsOwnNameIsAllowed() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "style.css", "a{}");
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.open(path);
        doc.codebox().setText("b{}");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSaveas_Click();
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(readFile(path), QByteArray("b{}"));
        QCOMPARE(doc.CSSDoc, QStringLiteral("Yes"));
        QCOMPARE(doc.Tag, kClean);
    }

    void saveDoesNothingPastThe16BitCaret() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "big.htm", "x");
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.open(path);
        doc.codebox().setText(QString(40000, QChar('a')));
        doc.codebox().setSelStart(32768);
        ts->mnuFileSave_Click();
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(path), QByteArray("x"));
        QCOMPARE(doc.Tag, kDirty);
        QVERIFY(ts.platform.messages.isEmpty());
        doc.codebox().setSelStart(32767);
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path).size(), 40000);
        // Closing such a document still works.
        doc.codebox().setSelStart(39000);
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
    }

    void saveAllSavesBoundAndAsksForUntitled() {
        QTemporaryDir dir;
        const QString a = writeFile(dir, "a.htm", "a");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("1"); // Document 1 stays, untitled and dirty
        ts.open(a).codebox().setText("a2");
        ts->mnuFileNewCSS_Click(); // Document 2
        codeEditor* kept = ts->ActiveForm();
        const QString one = dir.filePath("one.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(one));
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileSaveAll_Click();
        QCOMPARE(readFile(a), QByteArray("a2"));
        QCOMPARE(ts->documents()[0]->Caption(), one);
        QCOMPARE(readFile(one), ts->documents()[0]->codebox().Text().toUtf8());
        QCOMPARE(ts->documents()[2]->Caption(), QStringLiteral("Document 2"));
        QCOMPARE(ts->ActiveForm(), kept);
        // The untitled prompts ran without the cancel error, and the last one left it off.
        QVERIFY(!ts.platform.fileDialogsShown.last().CancelError);
        QVERIFY(!ts->OpenSave.CancelError);
        QCOMPARE(ts->TabStrip1.tab(0).Key, one);
        QCOMPARE(ts->TabStrip1.tab(0).Caption, QStringLiteral("one.htm"));
    }

    void saveAllStopsAtANameInUse() {
        QTemporaryDir dir;
        const QString a = writeFile(dir, "a.htm", "a");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("1");
        ts.open(a);
        ts->mnuFileNewHTML_Click();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(a));
        ts->mnuFileSaveAll_Click();
        QCOMPARE(ts.platform.messageTexts(), QStringList{kAlreadyOpen});
        QCOMPARE(ts->documents()[0]->Caption(), QStringLiteral("Document 1"));
        QCOMPARE(ts->ActiveForm(), ts->documents()[0]);
    }

    void closePromptAndItsAnswers_data() {
        columns<int, bool>({"answer", "stays"});
        QTest::newRow("cancel keeps the window") << int(MsgResult::Cancel) << true;
        QTest::newRow("no closes") << int(MsgResult::No) << false;
    }
    void closePromptAndItsAnswers() {
        QFETCH(int, answer);
        QFETCH(bool, stays);
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        ts.active().codebox().setSelText("x");
        ts.platform.messageAnswers.enqueue(MsgResult(answer));
        ts->mnuFileClose_Click();
        QCOMPARE(ts.platform.messages.size(), 1);
        const ShownMessage& m = ts.platform.messages[0];
        QCOMPARE(m.text, askedToSave(2));
        QCOMPARE(m.title, QStringLiteral("Tessaline"));
        QCOMPARE(m.icon, MsgIcon::Exclamation);
        QCOMPARE(m.buttons, MsgButtons::YesNoCancel);
        QCOMPARE(ts->documents().size(), size_t(stays ? 2 : 1));
        QCOMPARE(ts->TabStrip1.count(), stays ? 2 : 1);
        if (stays) QVERIFY(!ts.active().bSaveAsked);
    }

    // Yes saves a bound file; for an untitled one a cancelled save dialog loses the window.
    void closeYesSaves() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "old");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("x");
        ts.open(path).codebox().setText("new");
        ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        ts->mnuFileClose_Click();
        QCOMPARE(readFile(path), QByteArray("new"));
        QCOMPARE(ts->documents().size(), size_t(1));
        ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
    }

    // Panes that agree, or a dirty Layout that is not showing, close without a question.
    void closeWithoutAQuestion() {
        for (bool agree : {true, false}) {
            TestShell ts;
            ts.load();
            codeEditor& doc = ts.active();
            if (agree) {
                doc.codebox().setSelText("x");
                layoutOf(doc).setDocumentHTML(doc.codebox().Text());
            } else {
                layoutOf(doc).markDirty();
            }
            ts->mnuFileClose_Click();
            QVERIFY(ts.platform.messages.isEmpty());
            QVERIFY(ts->documents().empty());
        }
    }

    void closeAllAsksAgainForADirtyLayout() {
        TestShell ts;
        ts.load();
        layoutOf(ts.active()).markDirty();
        ts->bLayoutActive = true;
        for (MsgResult answer : {MsgResult::Cancel, MsgResult::Cancel, MsgResult::No})
            ts.platform.messageAnswers.enqueue(answer);
        ts->mnuFileCloseAll_Click();
        QCOMPARE(ts.platform.messages.size(), 3);
        QVERIFY(ts->documents().empty());
    }

    void closeAllStopsAtACancel() {
        TestShell ts;
        ts.load();
        for (int i = 0; i < 2; ++i)
            ts->mnuFileNewHTML_Click();
        for (codeEditor* doc : ts->documents())
            doc->codebox().setSelText("x");
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        ts->mnuFileCloseAll_Click();
        QCOMPARE(ts.platform.messageTexts(), (QStringList{askedToSave(3), askedToSave(2)}));
        QCOMPARE(ts->documents().size(), size_t(2));
        QVERIFY(!ts->bClosingAll);
        QVERIFY(!ts->bCloseAllCancelled);
    }

    void closingTheLastDocumentTurnsCommandsOff() {
        TestShell ts;
        ts.load();
        QVERIFY(ts->menu("mnuFileSave").Enabled());
        ts->mnuFileClose_Click();
        QVERIFY(!ts->menu("mnuFileSave").Enabled());
        QVERIFY(!ts->menu("mnuFileClose").Enabled());
        QVERIFY(!ts->TabStrip1.Visible());
        QVERIFY(ts->bCommandsDisabled);
        QCOMPARE(ts->ActiveForm(), nullptr);
        // Commands that need no document still run.
        ts->mnuFileSave_Click();
        ts->mnuFileClose_Click();
        ts->mnuFileNewHTML_Click();
        QVERIFY(ts->menu("mnuFileSave").Enabled());
        QVERIFY(ts->TabStrip1.Visible());
        QVERIFY(!ts->bCommandsDisabled);
    }

    void savedFileRoundTripsByteForByte() {
        for (const QByteArray& bytes :
             {QByteArray("<p>\na\n</p>\n"), QByteArray("<p>\r\na\r\n</p>"),
              QByteArray("\xEF\xBB\xBF<p>caf\xC3\xA9</p>"),
              QByteArray("<p>caf\xE9 \x80\xFF</p>")}) {
            QTemporaryDir dir;
            const QString path = writeFile(dir, "page.htm", bytes);
            TestShell ts;
            ts.load();
            ts.open(path);
            ts->mnuFileSave_Click();
            QCOMPARE(readFile(path), bytes);
            const QString copy = dir.filePath("copy.htm");
            ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(copy));
            ts->mnuFileSaveas_Click();
            QCOMPARE(readFile(copy), bytes);
        }
    }
};

QTEST_GUILESS_MAIN(SaveCloseTest)
#include "test_save_close.moc"
