// Save, Save As, Save All, Close, Close All and the save prompt of a closing window.
#include "shell_helpers.h"
#include "test_rows.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kAlreadyOpen = QStringLiteral(
    "This is the name of a file that is currently open.\n\nFile has not been saved.");

QString askedToSave(int n) {
    return QStringLiteral("Do you want to save the changes made to Document %1?").arg(n);
}
} // namespace

class SaveCloseTest : public QObject {
    Q_OBJECT

  private slots:
    // A cancelled dialog changes nothing and says nothing; a name makes the document that
    // file, its tab too (after Save As also for a view that follows the strip's changes).
    void saveUntitledAsksForAName() {
        QTemporaryDir dir;
        const QString path = dir.filePath("new.htm");
        for (const bool saveAs : {false, true}) {
            Loaded ts;
            codeEditor& doc = ts.active();
            doc.codebox().setSelText("x");
            const int caret = doc.codebox().SelStart();
            ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
            ts.run(saveAs ? "mnuFileSaveas" : "mnuFileSave");
            QCOMPARE(docState(doc),
                     docState("Document 1", "Document 1", "Label2", "No", "", "Dirty"));
            QVERIFY(ts.platform.messages.isEmpty());
            QString shownKey;
            QObject::connect(&ts->TabStrip1, &TabStrip::changed,
                             [&] { shownKey = ts->TabStrip1.tab(0).Key; });
            ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
            ts.run(saveAs ? "mnuFileSaveas" : "mnuFileSave");
            QCOMPARE(readFile(path), doc.codebox().Text().toUtf8());
            QCOMPARE(docState(doc), docState(path, path, "new.htm", "No", path));
            QCOMPARE(doc.codebox().SelStart(), caret);
            QCOMPARE(tabState(*ts), path + "=new.htm@0");
            if (saveAs) QCOMPARE(shownKey, path); // Save sets the key after the last change
        }
    }

    void saveBoundFileInPlace() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "old");
        Loaded ts;
        codeEditor& doc = ts.open(path);
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
        Loaded ts;
        layoutOf(ts.open(path)).setDocumentHTML("<p>from layout</p>");
        ts->bLayoutActive = true;
        const QString other = dir.filePath("copy.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(other));
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(other), QByteArray("source"));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(other), QByteArray("<p>from layout</p>"));
    }

    // Another open document's name is refused; the same name in other case is not the same,
    // and a document may be saved under its own name.
    void saveUnderTheNameOfAnOpenDocument() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.css", "page");
        Loaded ts;
        ts.active().codebox().setSelText("a"); // keep Document 1
        codeEditor& page = ts.open(path);
        codeEditor* first = ts->documents()[0];
        first->ZOrder();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSave_Click();
        QCOMPARE(ts.platform.messageTexts(), QStringList{kAlreadyOpen});
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(first->Caption() + first->Tag, "Document 1Dirty");
        QCOMPARE(readFile(path), QByteArray("page"));
        QVERIFY(!ts->bFileAlreadyOpen);
        const QString upper = dir.filePath("PAGE.css");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(upper));
        ts->mnuFileSaveas_Click();
        QCOMPARE(first->Caption(), upper);
        page.ZOrder();
        page.codebox().setText("b{}");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        ts->mnuFileSaveas_Click();
        QCOMPARE(ts.platform.messages.size(), 1);
        QCOMPARE(readFile(path), QByteArray("b{}"));
        QCOMPARE(page.CSSDoc + page.Tag, "YesClean");
    }

    void saveDoesNothingPastThe16BitCaret() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "big.htm", "x");
        Loaded ts;
        codeEditor& doc = ts.open(path);
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
        QVERIFY(ts->documents().empty());
    }

    void saveAllSavesBoundAndAsksForUntitled() {
        QTemporaryDir dir;
        const QString a = writeFile(dir, "a.htm", "a");
        Loaded ts;
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
        QVERIFY(!ts.platform.fileDialogsShown.last().CancelError && !ts->OpenSave.CancelError);
        QCOMPARE(ts->TabStrip1.tab(0).Key + ts->TabStrip1.tab(0).Caption, one + "one.htm");
    }

    void saveAllStopsAtANameInUse() {
        QTemporaryDir dir;
        const QString a = writeFile(dir, "a.htm", "a");
        Loaded ts;
        ts.active().codebox().setSelText("1");
        ts.open(a);
        ts->mnuFileNewHTML_Click();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(a));
        ts->mnuFileSaveAll_Click();
        QCOMPARE(ts.platform.messageTexts(), QStringList{kAlreadyOpen});
        QCOMPARE(ts->documents()[0]->Caption(), QStringLiteral("Document 1"));
        QCOMPARE(ts->ActiveForm(), ts->documents()[0]);
    }

    // The question of a closing window, and what Cancel and No do.
    void closePromptAndItsAnswers() {
        for (const MsgResult answer : {MsgResult::Cancel, MsgResult::No}) {
            const bool stays = answer == MsgResult::Cancel;
            Loaded ts;
            ts->mnuFileNewHTML_Click();
            ts.active().codebox().setSelText("x");
            ts.platform.messageAnswers.enqueue(answer);
            ts->mnuFileClose_Click();
            QCOMPARE(ts.platform.messages.size(), 1);
            const ShownMessage& m = ts.platform.messages[0];
            QCOMPARE(m.text, askedToSave(2));
            QCOMPARE(m.title, QStringLiteral("Tessaline"));
            QVERIFY(m.icon == MsgIcon::Exclamation && m.buttons == MsgButtons::YesNoCancel);
            QCOMPARE(ts->documents().size(), size_t(stays ? 2 : 1));
            QCOMPARE(ts->TabStrip1.count(), stays ? 2 : 1);
            if (stays) QVERIFY(!ts.active().bSaveAsked);
        }
    }

    // Yes saves a bound file; for an untitled one the save dialog offers no name, and a
    // cancelled one loses the window.
    void closeYesSaves() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "old");
        Loaded ts;
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
        QCOMPARE(ts.platform.fileDialogsShown.last().FileName, QString());
        QCOMPARE(readFile(path), QByteArray("new"));
    }

    // Panes that agree, or a dirty Layout that is not showing, close without a question.
    void closeWithoutAQuestion() {
        for (bool agree : {true, false}) {
            Loaded ts;
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
        Loaded ts;
        layoutOf(ts.active()).markDirty();
        ts->bLayoutActive = true;
        for (MsgResult answer : {MsgResult::Cancel, MsgResult::Cancel, MsgResult::No})
            ts.platform.messageAnswers.enqueue(answer);
        ts->mnuFileCloseAll_Click();
        QCOMPARE(ts.platform.messages.size(), 3);
        QVERIFY(ts->documents().empty());
    }

    void closeAllStopsAtACancel() {
        Loaded ts;
        for (int i = 0; i < 2; ++i)
            ts->mnuFileNewHTML_Click();
        for (codeEditor* doc : ts->documents())
            doc->codebox().setSelText("x");
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        ts->mnuFileCloseAll_Click();
        QCOMPARE(ts.platform.messageTexts(), (QStringList{askedToSave(3), askedToSave(2)}));
        QCOMPARE(ts->documents().size(), size_t(2));
        QVERIFY(!ts->bClosingAll && !ts->bCloseAllCancelled);
    }

    // With no document the file commands do nothing, and fail at nothing.
    void fileCommandsWithNoDocument() {
        Loaded ts;
        ts->mnuFileClose_Click();
        QCOMPARE(ts->ActiveForm(), nullptr);
        for (const char* item :
             {"mnuFileSave", "mnuFileSaveas", "mnuFileSaveAll", "mnuFileClose", "mnuFileCloseAll"})
            QVERIFY(ts->dispatch(ts->menu(item).Click));
        QVERIFY(ts.platform.messages.isEmpty() && ts->documents().empty());
    }

    void savedFileRoundTripsByteForByte() {
        for (const QByteArray& bytes :
             {QByteArray("<p>\na\n</p>\n"), QByteArray("<p>\r\na\r\n</p>"),
              QByteArray("\xEF\xBB\xBF<p>caf\xC3\xA9</p>"),
              QByteArray("<p>caf\xE9 \x80\xFF</p>")}) {
            QTemporaryDir dir;
            const QString path = writeFile(dir, "page.htm", bytes);
            Loaded ts;
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
