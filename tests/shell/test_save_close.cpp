// Save, Save As, Save All, Close, Close All and the save prompt of a closing window.
#include "editor/text_pane.h"
#include "test_shell.h"
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kAlreadyOpen = QStringLiteral(
    "This is the name of a file that is currently open.\n\nFile has not been saved.");

// A shell whose active document is bound to a file with the given text.
codeEditor& openFile(TestShell& ts, const QString& path) {
    ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
    ts->mnuFileOpen_Click();
    return ts.active();
}

DetachedLayout& layoutOf(codeEditor& doc) {
    return static_cast<DetachedLayout&>(doc.DHTMLEdit1());
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
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path), doc.codebox().Text().toUtf8());
        QCOMPARE(doc.Caption(), path);
        QCOMPARE(doc.codebox().FileName(), path);
        QCOMPARE(doc.txtFileName, path);
        QCOMPARE(doc.txtFileTitle, QStringLiteral("new.htm"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
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
        codeEditor& doc = openFile(ts, path);
        doc.codebox().setText("new text");
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path), QByteArray("new text"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1); // only Open's
    }

    void saveInLayoutTakesThePageSaveAsDoesNot() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "source");
        TestShell ts;
        ts.load();
        codeEditor& doc = openFile(ts, path);
        layoutOf(doc).setDocumentHTML("<p>from layout</p>");
        ts->bLayoutActive = true;
        const QString other = dir.filePath("copy.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(other));
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(other), QByteArray("source"));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(other), QByteArray("<p>from layout</p>"));
    }

    void saveUnderTheNameOfAnotherOpenDocument() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "page");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("a"); // keep Document 1
        openFile(ts, path);
        ts->documents()[0]->ZOrder();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSave_Click();
        QCOMPARE(ts.platform.messageTexts(), QStringList{kAlreadyOpen});
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(ts->documents()[0]->Caption(), QStringLiteral("Document 1"));
        QCOMPARE(ts->documents()[0]->Tag, QStringLiteral("Dirty"));
        QCOMPARE(readFile(path), QByteArray("page"));
        QVERIFY(!ts->bFileAlreadyOpen);
    }

    void saveAsComparesNamesWithCase() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "page");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("a");
        openFile(ts, path);
        ts->documents()[0]->ZOrder();
        const QString upper = dir.filePath("PAGE.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(upper));
        ts->mnuFileSaveas_Click();
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->documents()[0]->Caption(), upper);
    }

    void saveAsUnderItsOwnNameIsAllowed() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "style.css", "a{}");
        TestShell ts;
        ts.load();
        codeEditor& doc = openFile(ts, path);
        doc.codebox().setText("b{}");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSaveas_Click();
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(readFile(path), QByteArray("b{}"));
        QCOMPARE(doc.CSSDoc, QStringLiteral("Yes"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
    }

    void saveDoesNothingPastThe16BitCaret() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "big.htm", "x");
        TestShell ts;
        ts.load();
        codeEditor& doc = openFile(ts, path);
        doc.codebox().setText(QString(40000, QChar('a')));
        doc.codebox().setSelStart(32768);
        ts->mnuFileSave_Click();
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(path), QByteArray("x"));
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QVERIFY(ts.platform.messages.isEmpty());
        doc.codebox().setSelStart(32767);
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path).size(), 40000);
        // Closing such a document still works.
        doc.codebox().setSelStart(39000);
        ts->mnuFileClose_Click();
        QCOMPARE(ts->documents().size(), size_t(0));
    }

    void cancelledSaveKeepsTheTag() {
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("x");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileSave_Click();
        QCOMPARE(ts.active().Tag, QStringLiteral("Dirty"));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void saveAllSavesBoundAndAsksForUntitled() {
        QTemporaryDir dir;
        const QString a = writeFile(dir, "a.htm", "a");
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("1"); // Document 1 stays, untitled and dirty
        codeEditor& bound = openFile(ts, a);
        bound.codebox().setText("a2");
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
        openFile(ts, a);
        ts->mnuFileNewHTML_Click();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(a));
        ts->mnuFileSaveAll_Click();
        QCOMPARE(ts.platform.messageTexts(), QStringList{kAlreadyOpen});
        QCOMPARE(ts->documents()[0]->Caption(), QStringLiteral("Document 1"));
        QCOMPARE(ts->ActiveForm(), ts->documents()[0]);
    }

    void closePromptAndItsAnswers_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("stays");
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
        QCOMPARE(m.text, QStringLiteral("Do you want to save the changes made to Document 2?"));
        QCOMPARE(m.title, QStringLiteral("Tessaline"));
        QCOMPARE(m.icon, MsgIcon::Exclamation);
        QCOMPARE(m.buttons, MsgButtons::YesNoCancel);
        QCOMPARE(ts->documents().size(), size_t(stays ? 2 : 1));
        QCOMPARE(ts->TabStrip1.count(), stays ? 2 : 1);
        if (stays) QVERIFY(!ts.active().bSaveAsked);
    }

    void closeYesSavesTheBoundFile() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "old");
        TestShell ts;
        ts.load();
        codeEditor& doc = openFile(ts, path);
        doc.codebox().setText("new");
        ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        ts->mnuFileClose_Click();
        QCOMPARE(readFile(path), QByteArray("new"));
        QVERIFY(ts->documents().empty());
    }

    void closeYesWithCancelledSaveDialogLosesTheWindow() {
        TestShell ts;
        ts.load();
        ts.active().codebox().setSelText("x");
        ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
    }

    void panesThatAgreeCloseWithoutAQuestion() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setSelText("x");
        layoutOf(doc).setDocumentHTML(doc.codebox().Text());
        ts->mnuFileClose_Click();
        QVERIFY(ts.platform.messages.isEmpty());
        QVERIFY(ts->documents().empty());
    }

    void cleanDocumentWithDirtyLayout() {
        TestShell ts;
        ts.load();
        layoutOf(ts.active()).markDirty();
        // Not showing Layout: no question.
        ts->mnuFileClose_Click();
        QVERIFY(ts.platform.messages.isEmpty());
        QVERIFY(ts->documents().empty());
    }

    void closeAllAsksAgainForADirtyLayout() {
        TestShell ts;
        ts.load();
        layoutOf(ts.active()).markDirty();
        ts->bLayoutActive = true;
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        ts.platform.messageAnswers.enqueue(MsgResult::No);
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
        QCOMPARE(ts.platform.messages.size(), 2);
        QCOMPARE(ts->documents().size(), size_t(2));
        QVERIFY(!ts->bClosingAll);
        QVERIFY(!ts->bCloseAllCancelled);
        QCOMPARE(ts.platform.messages[0].text,
                 QStringLiteral("Do you want to save the changes made to Document 3?"));
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

    void savedFileRoundTripsByteForByte_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("LF") << QByteArray("<p>\na\n</p>\n");
        QTest::newRow("CRLF") << QByteArray("<p>\r\na\r\n</p>");
        QTest::newRow("UTF-8 BOM") << QByteArray("\xEF\xBB\xBF<p>caf\xC3\xA9</p>");
        QTest::newRow("8-bit") << QByteArray("<p>caf\xE9 \x80\xFF</p>");
    }
    void savedFileRoundTripsByteForByte() {
        QFETCH(QByteArray, bytes);
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", bytes);
        TestShell ts;
        ts.load();
        openFile(ts, path);
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(path), bytes);
        const QString copy = dir.filePath("copy.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(copy));
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(copy), bytes);
    }
};

QTEST_GUILESS_MAIN(SaveCloseTest)
#include "test_save_close.moc"
