// File > Open online file: the prompt, the new untitled document, the states in the status
// bar, the failure and the undo counts of a fetched page.
#include "platform/url_transfer.h"
#include "preview/browser_preview.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kPrompt = QStringLiteral("Please enter URL to open. If you are not connected to "
                                       "the internet, a blank screen will appear.");
const QString kFailed =
    QStringLiteral("Could not open the file you requested. Check your filename and connection.");
const QString kPage = QStringLiteral("<html>\n<body>fetched</body>\n</html>");

// Every text the first panel of the status bar showed, in order.
QStringList panelTexts(TestShell& ts, const std::function<void()>& run) {
    QStringList texts;
    QObject::connect(&ts->StatusBar1, &Control::changed, &ts->StatusBar1,
                     [&] { texts.append(ts->StatusBar1.PanelText(1)); });
    run();
    ts->StatusBar1.disconnect();
    return texts;
}
} // namespace

class OnlineFileTest : public QObject {
    Q_OBJECT

  private slots:
    void cancelledPromptClosesTheNewWindow_data() {
        columns<std::optional<QString>>({"answer"});
        QTest::newRow("Cancel") << std::optional<QString>();
        QTest::newRow("empty answer") << std::optional<QString>(QString());
    }
    void cancelledPromptClosesTheNewWindow() {
        QFETCH(std::optional<QString>, answer);
        TestShell ts;
        ts.load();
        ts.platform.inputAnswers.enqueue(answer);
        ts.run("mnuNet");
        QCOMPARE(ts.platform.inputPrompts, QStringList{kPrompt});
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        QVERIFY(ts.platform.transfer_.requested.isEmpty());
        ts->NewHtmlDocument();
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
    }

    // The page becomes the text of a new untitled document beside the one that was in front.
    void fetchedPageIsANewDocument_data() {
        columns<QString, QString>({"url", "css"});
        QTest::newRow("page") << "http://example.test/index.html"
                              << "No";
        QTest::newRow("style sheet") << "http://example.test/site.css"
                                     << "Yes";
        QTest::newRow("capital CSS is not a style sheet") << "http://example.test/A.CSS"
                                                          << "No";
    }
    void fetchedPageIsANewDocument() {
        QFETCH(QString, url);
        QFETCH(QString, css);
        TestShell ts;
        ts.load();
        codeEditor& first = ts.active();
        ts.platform.transfer_.replies[url] = {{1, 2, 3, 4, 5, 6, 7, 8, 12}, kPage};
        ts.platform.inputAnswers.enqueue(url);
        const QStringList texts = panelTexts(ts, [&] { ts->dispatch([&] { ts.run("mnuNet"); }); });
        QCOMPARE(texts, (QStringList{"Looking up host...", "Host found. Waiting for reply...",
                                     "Requesting file...", ""}));
        QCOMPARE(ts->documents().size(), size_t(2)); // the untouched first window stays
        codeEditor& doc = ts.active();
        QVERIFY(&doc != &first);
        QCOMPARE(doc.Caption(), QStringLiteral("Document 2"));
        QCOMPARE(doc.codebox().Text(), kPage);
        QCOMPARE(doc.codebox().FileName(), QString());
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QCOMPARE(doc.CSSDoc, css);
        QCOMPARE(doc.lblOnlineFile, QStringLiteral("Yes"));
        QCOMPARE(first.lblOnlineFile, QStringLiteral("No"));
        QVERIFY(!ts->bLoadingOnline);
        QVERIFY(ts.platform.messages.isEmpty());
        // The kind of the document sets the commands: a style sheet has no browser preview.
        QCOMPARE(ts->menu("mnuFilePreview").Enabled(), css == QLatin1String("No"));
        QCOMPARE(ts->TabStrip1.tab(ts->TabStrip1.count() - 1).Caption,
                 QStringLiteral("Document 2"));
    }

    // No host, no connection: the message, an empty panel, and the new window gone; the
    // document that was in front keeps its text and its kind.
    void failedTransferClosesTheWindow() {
        TestShell ts;
        ts.load();
        codeEditor& first = ts.active();
        first.codebox().setText(QStringLiteral("mine"));
        const QString url = QStringLiteral("http://nowhere.test/");
        ts.platform.transfer_.replies[url] = {{1}, std::nullopt};
        ts.platform.inputAnswers.enqueue(url);
        const QStringList texts = panelTexts(ts, [&] { ts.run("mnuNet"); });
        QCOMPARE(texts, (QStringList{"Looking up host...", ""}));
        QCOMPARE(ts.platform.messageTexts(), QStringList{kFailed});
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        QCOMPARE(first.codebox().Text(), QStringLiteral("mine"));
        QCOMPARE(first.lblOnlineFile, QStringLiteral("No"));
        QVERIFY(!ts->bLoadingOnline);
    }

    // The empty start and the fetched text: the stack stands at 0, and Undo comes on only
    // above the fetched document's floor of 2.
    void undoCountsOfAFetchedPage() {
        TestShell ts;
        ts.load();
        const QString url = QStringLiteral("http://example.test/");
        ts.platform.transfer_.replies[url] = {{1, 2, 3, 8}, kPage};
        ts.platform.inputAnswers.enqueue(url);
        ts.run("mnuNet");
        codeEditor& doc = ts.active();
        QCOMPARE(doc.nDoneIndex, Int16(0));
        QCOMPARE(doc.nTopIndex, Int16(0));
        QCOMPARE(doc.Steps[0].Text, kPage);
        doc.Form_Activate();
        QVERIFY(!ts->menu("mnuEditUndo").Enabled());
        QVERIFY(!ts->menu("mnuEditRedo").Enabled());
        for (int i = 0; i < 2; ++i) {
            doc.codebox().setSelText(QStringLiteral("x"));
            doc.AddStep();
        }
        QCOMPARE(doc.nDoneIndex, Int16(2));
        doc.Form_Activate();
        QVERIFY(!ts->menu("mnuEditUndo").Enabled());
        doc.codebox().setSelText(QStringLiteral("y"));
        doc.AddStep();
        doc.Form_Activate();
        QVERIFY(ts->menu("mnuEditUndo").Enabled());
    }
};

QTEST_GUILESS_MAIN(OnlineFileTest)
#include "test_online_file.moc"
