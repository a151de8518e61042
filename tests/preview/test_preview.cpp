// File > Preview in Browser (the desktop's default browser, the secondary one by its command
// line, the save question before either) and File > Open online file (the prompt, the new
// untitled document, the states in the status bar, the failure, the undo floor).
#include "platform/url_transfer.h"
#include "preview/browser_preview.h"
#include "search_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kQuestion = QStringLiteral(
    "The file you have selected to preview has been changed. Would you like to save it "
    "now?\n\nClicking No will cancel launching the web browser.");
const QString kPage = QStringLiteral("<html>\n<body>fetched</body>\n</html>");

struct Preview : TestShell {
    QTemporaryDir dir;
    Preview() { load(); }
    QString page(const char* name) { return writeFile(dir, QString::fromUtf8(name), "<p>old</p>"); }
    void browser(const QString& path) { settings.save(keys::Browser, keys::BrowserLoc, path); }
    // Runs File > Open online file on `url` and answers what the first panel of the status
    // bar showed meanwhile.
    QStringList fetch(const QString& url) {
        platform.inputAnswers.enqueue(url);
        QStringList texts;
        QObject::connect(&shell->StatusBar1, &Control::changed, &shell->StatusBar1,
                         [&] { texts.append(shell->StatusBar1.PanelText(1)); });
        shell->dispatch([&] { run("mnuNet"); });
        shell->StatusBar1.disconnect();
        return texts;
    }
};

struct DefaultRow {
    bool saved, edited;
    MsgResult answer; // Retry: no question
    bool saveAccepted, launched;
};
} // namespace

class PreviewTest : public QObject {
    Q_OBJECT

  private slots:
    // Which documents are asked about, and what reaches the desktop. No does not stop a saved
    // file: its last saved state is shown.
    void defaultBrowser_data() {
        const MsgResult none = MsgResult::Retry, yes = MsgResult::Yes, no = MsgResult::No;
        rowsOf<DefaultRow>({{"clean saved file: no box", {true, false, none, false, true}},
                            {"edited file, No", {true, true, no, false, true}},
                            {"edited file, Yes saves", {true, true, yes, false, true}},
                            {"untitled, No: nothing", {false, false, no, false, false}},
                            {"untitled, Yes, saved", {false, true, yes, true, true}},
                            {"untitled, Yes, save cancelled", {false, true, yes, false, false}}});
    }
    void defaultBrowser() {
        QFETCH(DefaultRow, row);
        Preview ts;
        const QString path = row.saved ? ts.page("my page.htm") : ts.dir.filePath("named.htm");
        if (row.saved) ts.open(path);
        if (row.edited) ts.active().codebox().setText(QStringLiteral("<p>new</p>"));
        const bool asked = row.answer != MsgResult::Retry;
        if (asked) ts.platform.messageAnswers.enqueue(row.answer);
        if (!row.saved && row.answer == MsgResult::Yes)
            ts.platform.fileAnswers.enqueue(row.saveAccepted ? FileDialogAnswer::file(path)
                                                             : FileDialogAnswer::cancel());
        ts.run("mnuFilePrevDef");
        QCOMPARE(ts.platform.messageTexts(), asked ? QStringList{kQuestion} : QStringList{});
        if (asked) QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Question);
        if (asked) QCOMPARE(ts.platform.messages[0].buttons, MsgButtons::YesNo);
        QCOMPARE(ts.platform.shellOpened, row.launched ? QStringList{path} : QStringList{});
        if (asked && row.launched)
            QCOMPARE(readFile(path),
                     QByteArray(row.answer == MsgResult::Yes ? "<p>new</p>" : "<p>old</p>"));
    }

    // The command line is the program, a blank and the path as it stands, blanks and all.
    void secondaryBrowserCommandLine() {
        Preview ts;
        ts.browser(QStringLiteral("/opt/my browser/run"));
        const QString path = ts.page("a page with blanks.htm");
        codeEditor& doc = ts.open(path);
        ts.run("mnuFilePrevSec");
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts.platform.commandLines, QStringList{"/opt/my browser/run " + path});
        QCOMPARE(ts->OpenSave.InitDir, ts.dir.path() + u'/'); // the document's folder
        // Edited: asked first, and No still launches. Untitled and clean: no question.
        doc.codebox().setText(QStringLiteral("<p>x</p>"));
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.run("mnuFilePrevSec");
        ts->NewHtmlDocument();
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.messageTexts(), QStringList{kQuestion});
        QCOMPARE(ts.platform.commandLines.mid(1),
                 QStringList({"/opt/my browser/run " + path, "/opt/my browser/run "}));
        // A browser that cannot be started ends the command without a word.
        ts.platform.shellSucceeds = false;
        ts->OpenSave.InitDir = QStringLiteral("kept");
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.commandLines.size(), 4);
        QCOMPARE(ts.platform.messages.size(), 1);
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("kept"));
    }

    // With no browser named: the box, and OK leads to the choice of the program.
    void noSecondaryBrowser_data() {
        columns<QString, MsgResult, bool, QString>({"stored", "answer", "chosen", "written"});
        QTest::newRow("None, Cancel") << "None" << MsgResult::Cancel << false << QString("None");
        QTest::newRow("empty, Cancel") << "" << MsgResult::Cancel << false << QString();
        QTest::newRow("OK, chosen") << "None" << MsgResult::OK << true << QString("/usr/bin/other");
        QTest::newRow("OK, choice cancelled")
            << "None" << MsgResult::OK << false << QString("None");
    }
    void noSecondaryBrowser() {
        QFETCH(QString, stored);
        QFETCH(MsgResult, answer);
        QFETCH(bool, chosen);
        Preview ts;
        ts.browser(stored);
        const QString path = ts.page("p.htm");
        ts.open(path);
        ts.platform.messageAnswers.enqueue(answer);
        if (answer == MsgResult::OK)
            ts.platform.fileAnswers.enqueue(chosen ? FileDialogAnswer::file("/usr/bin/other")
                                                   : FileDialogAnswer::cancel());
        ts->OpenSave.InitDir = QStringLiteral("kept");
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.messageTexts(),
                 QStringList{"If you want to view your pages in a secondary browser, then you\n"
                             "will have to specify the location of your browser first.\n\n\t"
                             "Press OK to define browser settings.\n\n\tPress Cancel to close."});
        const ShownMessage& box = ts.platform.messages[0];
        QCOMPARE(box.title, QStringLiteral("Secondary Browser not defined"));
        QCOMPARE(box.icon, MsgIcon::Exclamation);
        QCOMPARE(box.buttons, MsgButtons::OKCancel);
        QTEST(ts.settings.get(keys::Browser, keys::BrowserLoc, QStringLiteral("unset")), "written");
        QCOMPARE(ts.platform.commandLines,
                 chosen ? QStringList{"/usr/bin/other " + path} : QStringList{});
        QCOMPARE(ts->OpenSave.InitDir == QLatin1String("kept"), !chosen);
    }

    // Cancel or an empty address closes the new window again; its number stays used.
    void cancelledPromptClosesTheNewWindow() {
        for (const std::optional<QString>& answer :
             {std::optional<QString>(), std::optional<QString>(QString())}) {
            Preview ts;
            ts.platform.inputAnswers.enqueue(answer);
            ts.run("mnuNet");
            QCOMPARE(ts.platform.inputPrompts,
                     QStringList{"Please enter URL to open. If you are not connected to the "
                                 "internet, a blank screen will appear."});
            QCOMPARE(ts->documents().size(), size_t(1));
            QVERIFY(ts.platform.transfer_.requested.isEmpty());
            ts->NewHtmlDocument();
            QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
        }
    }

    // The page becomes the text of a new untitled document beside the one that was in front;
    // a style sheet by its lower-case ending has no browser preview.
    void fetchedPageIsANewDocument_data() {
        columns<QString, QString>({"url", "css"});
        QTest::newRow("page") << "http://example.test/index.html" << QString("No");
        QTest::newRow("style sheet") << "http://example.test/site.css" << QString("Yes");
        QTest::newRow("capital CSS") << "http://example.test/A.CSS" << QString("No");
    }
    void fetchedPageIsANewDocument() {
        QFETCH(QString, url);
        QFETCH(QString, css);
        Preview ts;
        codeEditor& first = ts.active();
        ts.platform.transfer_.replies[url] = {{1, 2, 3, 4, 5, 6, 7, 8, 12}, kPage};
        QCOMPARE(ts.fetch(url),
                 (QStringList{"Looking up host...", "Host found. Waiting for reply...",
                              "Requesting file...", ""}));
        QCOMPARE(ts->documents().size(), size_t(2));
        codeEditor& doc = ts.active();
        QCOMPARE(doc.Caption(), QStringLiteral("Document 2"));
        QCOMPARE(doc.codebox().Text(), kPage);
        QCOMPARE(doc.codebox().FileName(), QString());
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QCOMPARE(doc.CSSDoc, css);
        QCOMPARE(doc.lblOnlineFile + first.lblOnlineFile, QStringLiteral("YesNo"));
        QVERIFY(!ts->bLoadingOnline);
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->menu("mnuFilePreview").Enabled(), css == QLatin1String("No"));
        QCOMPARE(ts->TabStrip1.tab(ts->TabStrip1.count() - 1).Caption, doc.Caption());
        // The stack stands at 0 with the fetched text; Undo comes on above the floor of 2.
        QCOMPARE(QList<int>({doc.nDoneIndex, doc.nTopIndex}), QList<int>({0, 0}));
        QCOMPARE(doc.Steps[0].Text, kPage);
        QList<bool> undo;
        for (int i = 0; i < 4; ++i) {
            if (i > 0) doc.codebox().setSelText(QStringLiteral("x"));
            if (i > 0) doc.AddStep();
            doc.Form_Activate();
            undo << ts->menu("mnuEditUndo").Enabled() << ts->menu("mnuEditRedo").Enabled();
        }
        QCOMPARE(undo, QList<bool>({false, false, false, false, false, false, true, false}));
    }

    // No host, no connection: the message, an empty panel, and the new window gone; the
    // document that was in front keeps its text and its kind.
    void failedTransferClosesTheWindow() {
        Preview ts;
        codeEditor& first = ts.active();
        first.codebox().setText(QStringLiteral("mine"));
        ts.platform.transfer_.replies["http://nowhere.test/"] = {{1}, std::nullopt};
        QCOMPARE(ts.fetch("http://nowhere.test/"), (QStringList{"Looking up host...", ""}));
        QCOMPARE(ts.platform.messageTexts(), QStringList{"Could not open the file you requested. "
                                                         "Check your filename and connection."});
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(first.codebox().Text(), QStringLiteral("mine"));
        QCOMPARE(first.lblOnlineFile, QStringLiteral("No"));
        QVERIFY(!ts->bLoadingOnline);
    }
};

QTEST_GUILESS_MAIN(PreviewTest)
#include "test_preview.moc"
