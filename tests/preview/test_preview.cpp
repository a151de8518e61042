// File > Preview in Browser, default and secondary, and File > Open online file.
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
    void fetch(const std::optional<QString>& url) {
        platform.inputAnswers.enqueue(url);
        shell->dispatch([&] { run("mnuNet"); });
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
    // Which documents are asked about; No does not stop a saved file, its last state is shown.
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
        for (const ShownMessage& m : ts.platform.messages)
            QVERIFY(m.icon == MsgIcon::Question && m.buttons == MsgButtons::YesNo);
        QCOMPARE(ts.platform.shellOpened, row.launched ? QStringList{path} : QStringList{});
        if (asked && row.launched)
            QCOMPARE(readFile(path) == "<p>new</p>", row.answer == MsgResult::Yes);
    }

    // No browser named: Cancel ends, OK picks one; the command line is program, blank, path.
    void secondaryBrowser() {
        Preview ts;
        const QString path = ts.page("a page with blanks.htm");
        codeEditor& doc = ts.open(path);
        ts.platform.messageAnswers << MsgResult::Cancel << MsgResult::OK << MsgResult::OK;
        ts.platform.fileAnswers << FileDialogAnswer::cancel() << FileDialogAnswer::file("/opt/b r");
        ts.run("mnuFilePrevSec"); // none named yet
        ts.settings.save(keys::Browser, keys::BrowserLoc, QString());
        ts.run("mnuFilePrevSec");
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.messageTexts(),
                 QStringList(3,
                             "If you want to view your pages in a secondary browser, then "
                             "you\nwill have to specify the location of your browser first.\n\n"
                             "\tPress OK to define browser settings.\n\n\tPress Cancel to close."));
        const ShownMessage& box = ts.platform.messages[0];
        QVERIFY(box.icon == MsgIcon::Exclamation && box.buttons == MsgButtons::OKCancel);
        QCOMPARE(box.title, QStringLiteral("Secondary Browser not defined"));
        QCOMPARE(ts.settings.get(keys::Browser, keys::BrowserLoc), QStringLiteral("/opt/b r"));
        QCOMPARE(ts.platform.commandLines, QStringList{"/opt/b r [" + path + "]"});
        QCOMPARE(ts->OpenSave.InitDir, ts.dir.path() + u'/'); // the document's folder
        // Edited: asked, No still launches; untitled: not asked; a failed start: not a word.
        ts.platform.messages.clear();
        doc.codebox().setText(QStringLiteral("<p>x</p>"));
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.run("mnuFilePrevSec");
        ts->NewHtmlDocument();
        ts.run("mnuFilePrevSec");
        ts.platform.shellSucceeds = false;
        ts->OpenSave.InitDir = QStringLiteral("kept");
        ts.run("mnuFilePrevSec");
        QCOMPARE(ts.platform.messageTexts(), QStringList{kQuestion});
        QCOMPARE(ts.platform.commandLines.mid(1),
                 QStringList({"/opt/b r [" + path + "]", "/opt/b r", "/opt/b r"}));
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("kept"));
    }

    // A page comes as a new untitled document, a style sheet by its lower-case ending; when
    // none comes, the new window goes again, its number used.
    void openOnlineFile_data() {
        columns<std::optional<QString>, QString>({"answer", "css"});
        QTest::newRow("Cancel") << std::optional<QString>() << QString();
        QTest::newRow("empty address") << std::optional<QString>("") << QString();
        QTest::newRow("no connection") << std::optional<QString>("http://nowhere.test/") << "";
        QTest::newRow("page") << std::optional<QString>("http://x.test/index.html") << "No";
        QTest::newRow("style sheet") << std::optional<QString>("http://x.test/site.css") << "Yes";
        QTest::newRow("capital CSS") << std::optional<QString>("http://x.test/A.CSS") << "No";
    }
    void openOnlineFile() {
        QFETCH(std::optional<QString>, answer);
        QFETCH(QString, css);
        Preview ts;
        codeEditor& first = ts.active();
        first.codebox().setText(QStringLiteral("mine"));
        const bool asked = answer && !answer->isEmpty(), fetched = !css.isEmpty();
        if (asked) ts.platform.transfer_.replies[*answer] = {{1, 2, 3, 4, 5, 6, 7, 8, 12}, kPage};
        if (asked && !fetched) ts.platform.transfer_.replies[*answer] = {{1}, std::nullopt};
        ts.fetch(answer); // the panel's texts and the failure's message: test_desktop_services
        QCOMPARE(ts.platform.inputPrompts,
                 QStringList{"Please enter URL to open. If you are not connected to the internet, "
                             "a blank screen will appear."});
        QCOMPARE(ts.platform.messages.size(), asked && !fetched ? 1 : 0);
        QCOMPARE(first.codebox().Text() + first.lblOnlineFile, QStringLiteral("mineNo"));
        QVERIFY(!ts->bLoadingOnline);
        QCOMPARE(ts->documents().size(), size_t(fetched ? 2 : 1));
        if (!fetched) {
            ts->NewHtmlDocument();
            QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
            return;
        }
        codeEditor& doc = ts.active();
        QCOMPARE(QStringList({doc.Caption(), doc.codebox().Text(), doc.codebox().FileName(),
                              doc.Tag, doc.CSSDoc, doc.lblOnlineFile, doc.Steps[0].Text}),
                 QStringList({"Document 2", kPage, "", "Dirty", css, "Yes", kPage}));
        QCOMPARE(ts->menu("mnuFilePreview").Enabled(), css == QLatin1String("No"));
    }
};

TSL_TEST_MAIN(PreviewTest)
#include "test_preview.moc"
