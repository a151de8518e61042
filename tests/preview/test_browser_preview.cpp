// File > Preview in Browser: the default browser through the desktop, the secondary one by its
// command line, and the save question before either.
#include "preview/browser_preview.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kQuestion = QStringLiteral(
    "The file you have selected to preview has been changed. Would you like to save it "
    "now?\n\nClicking No will cancel launching the web browser.");
const QString kNoBrowser = QStringLiteral(
    "If you want to view your pages in a secondary browser, then you\nwill have to specify the "
    "location of your browser first.\n\n\tPress OK to define browser settings.\n\n\tPress "
    "Cancel to close.");
} // namespace

class BrowserPreviewTest : public QObject {
    Q_OBJECT

  private slots:
    // The default browser: which documents are asked about, and what reaches the desktop.
    void defaultBrowser_data() {
        columns<bool, bool, int, bool, bool>(
            {"saved", "edited", "answer", "saveAccepted", "launched"});
        const int none = 0, yes = int(MsgResult::Yes), no = int(MsgResult::No);
        QTest::newRow("clean saved file: no box") << true << false << none << false << true;
        // No does not stop a saved file: its last saved state is shown.
        QTest::newRow("edited file, No") << true << true << no << false << true;
        QTest::newRow("edited file, Yes saves") << true << true << yes << false << true;
        QTest::newRow("untitled, No: nothing") << false << false << no << false << false;
        QTest::newRow("untitled, Yes, saved") << false << true << yes << true << true;
        QTest::newRow("untitled, Yes, save cancelled") << false << true << yes << false << false;
    }
    void defaultBrowser() {
        QFETCH(bool, saved);
        QFETCH(bool, edited);
        QFETCH(int, answer);
        QFETCH(bool, saveAccepted);
        QFETCH(bool, launched);
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
        QString path = dir.filePath(QStringLiteral("my page.htm"));
        if (saved) ts.open(writeFile(dir, QStringLiteral("my page.htm"), "<p>old</p>"));
        codeEditor& doc = ts.active();
        if (edited) doc.codebox().setText(QStringLiteral("<p>new</p>"));
        if (answer) ts.platform.messageAnswers.enqueue(MsgResult(answer));
        if (!saved && answer == int(MsgResult::Yes)) {
            path = dir.filePath(QStringLiteral("named.htm"));
            ts.platform.fileAnswers.enqueue(saveAccepted ? FileDialogAnswer::file(path)
                                                         : FileDialogAnswer::cancel());
        }
        ts.run("mnuFilePrevDef");

        QCOMPARE(ts.platform.messageTexts(), answer ? QStringList{kQuestion} : QStringList{});
        if (answer) {
            QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Question);
            QCOMPARE(ts.platform.messages[0].buttons, MsgButtons::YesNo);
        }
        QCOMPARE(ts.platform.shellOpened, launched ? QStringList{path} : QStringList{});
        if (answer == int(MsgResult::Yes) && launched)
            QCOMPARE(readFile(path), doc.codebox().Text().toUtf8());
        if (answer == int(MsgResult::No) && saved)
            QCOMPARE(readFile(path), QByteArray("<p>old</p>"));
    }

    // The command line is the program, a blank and the path as it stands, blanks and all.
    void secondaryBrowserCommandLine() {
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
        ts.settings.save(keys::Browser, keys::BrowserLoc, QStringLiteral("/opt/my browser/run"));
        const QString path = writeFile(dir, QStringLiteral("a page with blanks.htm"), "<p/>");
        codeEditor& doc = ts.open(path);
        ts.run("mnuFilePrevSec");
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts.platform.commandLines,
                 QStringList{QStringLiteral("/opt/my browser/run ") + path});
        // The folder of the document: the name less as many characters as its title has.
        QCOMPARE(ts->OpenSave.InitDir,
                 doc.txtFileName.left(doc.txtFileName.size() - doc.txtFileTitle.size()));

        // Edited: asked first, and No still launches. Untitled and clean: no question.
        doc.codebox().setText(QStringLiteral("<p>x</p>"));
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.messageTexts(), QStringList{kQuestion});
        QCOMPARE(ts.platform.commandLines.size(), 2);
        ts->NewHtmlDocument();
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.messages.size(), 1);
        QCOMPARE(ts.platform.commandLines.last(), QStringLiteral("/opt/my browser/run "));
    }

    // With no browser named: the box, and OK leads to the choice of the program.
    void noSecondaryBrowser_data() {
        columns<QString, int, bool, QString>({"stored", "answer", "chosen", "written"});
        const int ok = int(MsgResult::OK), cancel = int(MsgResult::Cancel);
        QTest::newRow("None, Cancel") << "None" << cancel << false << "None";
        QTest::newRow("empty, Cancel") << "" << cancel << false << "";
        QTest::newRow("None, OK, chosen") << "None" << ok << true << "/usr/bin/other";
        QTest::newRow("None, OK, choice cancelled") << "None" << ok << false << "None";
    }
    void noSecondaryBrowser() {
        QFETCH(QString, stored);
        QFETCH(int, answer);
        QFETCH(bool, chosen);
        QFETCH(QString, written);
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
        ts.settings.save(keys::Browser, keys::BrowserLoc, stored);
        const QString path = writeFile(dir, QStringLiteral("p.htm"), "<p/>");
        ts.open(path);
        ts.platform.messageAnswers.enqueue(MsgResult(answer));
        if (answer == int(MsgResult::OK))
            ts.platform.fileAnswers.enqueue(chosen ? FileDialogAnswer::file("/usr/bin/other")
                                                   : FileDialogAnswer::cancel());
        ts->OpenSave.InitDir = QStringLiteral("kept");
        ts.run("mnuFilePrevSec");

        QCOMPARE(ts.platform.messages.size(), 1);
        const ShownMessage& box = ts.platform.messages[0];
        QCOMPARE(box.text, kNoBrowser);
        QCOMPARE(box.title, QStringLiteral("Secondary Browser not defined"));
        QCOMPARE(box.icon, MsgIcon::Exclamation);
        QCOMPARE(box.buttons, MsgButtons::OKCancel);
        QCOMPARE(ts.settings.get(keys::Browser, keys::BrowserLoc, QStringLiteral("unset")),
                 written);
        QCOMPARE(ts.platform.commandLines,
                 chosen ? QStringList{QStringLiteral("/usr/bin/other ") + path} : QStringList{});
        QCOMPARE(ts->OpenSave.InitDir == QLatin1String("kept"), !chosen);
    }

    // A browser that cannot be started ends the command without a word.
    void browserThatDoesNotStart() {
        TestShell ts;
        ts.load();
        ts.settings.save(keys::Browser, keys::BrowserLoc, QStringLiteral("/nowhere/browser"));
        ts.platform.shellSucceeds = false;
        ts->OpenSave.InitDir = QStringLiteral("kept");
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.commandLines.size(), 1);
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("kept"));
    }
};

QTEST_GUILESS_MAIN(BrowserPreviewTest)
#include "test_browser_preview.moc"
