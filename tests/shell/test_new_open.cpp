// New documents and Open: skeletons, numbering, the "Document 1" reuse rule, messages.
#include "editor/text_pane.h"
#include "shell/skeletons.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

class NewOpenTest : public QObject {
    Q_OBJECT

  private slots:
    void htmlSkeletonAndCaret() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(),
                 QStringLiteral("<html>\n<head>\n<title>Title goes here</title>\n<meta "
                                "name=\"GENERATOR\" content=\"Tessaline 2\">\n</head>\n<body>\n\n"
                                "</body>\n</html>"));
        QCOMPARE(doc.codebox().SelStart(), 106); // the empty line between the body tags
        QCOMPARE(doc.Caption(), QStringLiteral("Document 1"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(doc.CSSDoc, QStringLiteral("No"));
        QCOMPARE(doc.txtFileName, QStringLiteral("Document 1"));
        QCOMPARE(doc.txtFileTitle, QStringLiteral("Label2"));
        QCOMPARE(doc.codebox().FileName(), QString());
        QCOMPARE(doc.codebox().SelIndent(), 80);
        QCOMPARE(ts->TabStrip1.count(), 1);
        QCOMPARE(ts->TabStrip1.tab(0).Key, QStringLiteral("Document 1"));
        QCOMPARE(ts->TabStrip1.tab(0).Caption, QStringLiteral("Document 1"));
    }

    void cssSkeleton() {
        TestShell ts;
        ts.load();
        ts->mnuFileNewCSS_Click();
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(),
                 QStringLiteral("/* This is an external style sheet. For more information look "
                                "up 'external style sheets' in the help file */\n"));
        QCOMPARE(doc.codebox().SelStart(), doc.codebox().length());
        QCOMPARE(doc.CSSDoc, QStringLiteral("Yes"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(doc.Caption(), QStringLiteral("Document 2"));
        QCOMPARE(ts->TabStrip1.selectedIndex(), 1);
    }

    void numbersOnlyGrow() {
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 2"));
        ts->mnuFileClose_Click();
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
        QCOMPARE(ts->nDocumentCount, 3);
    }

    void fontAndWrapComeFromSettings_data() {
        columns<QString, int>({"wrap", "margin"});
        QTest::newRow("default wraps") << QString() << 0;
        QTest::newRow("1 wraps") << "1" << 0;
        QTest::newRow("0 does not wrap") << "0" << 120000;
        QTest::newRow("anything else wraps") << "yes" << 0;
    }
    void fontAndWrapComeFromSettings() {
        QFETCH(QString, wrap);
        QFETCH(int, margin);
        TestShell ts;
        if (!wrap.isNull()) ts.settings.save("Fuzzies", "Word Wrap", wrap);
        ts.settings.save("Fuzzies", "Font Size", "14");
        ts.load();
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().codebox().RightMargin(), margin);
        QCOMPARE(ts.active().codebox().FontSize(), 14.0);
        QCOMPARE(ts.active().codebox().FontName(), QStringLiteral("Courier New"));
    }

    void openReplacesUntouchedDocumentOne() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "<p>hi</p>");
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.open(path);
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(doc.Caption(), path);
        QCOMPARE(doc.txtFileName, path);
        QCOMPARE(doc.txtFileTitle, QStringLiteral("page.htm"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>hi</p>"));
        QCOMPARE(doc.codebox().FileName(), path);
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(doc.CSSDoc, QStringLiteral("No"));
        QCOMPARE(ts->TabStrip1.count(), 1);
        QCOMPARE(ts->TabStrip1.tab(0).Key, path);
        QCOMPARE(ts->TabStrip1.tab(0).Caption, QStringLiteral("page.htm"));
        QCOMPARE(ts->TabStrip1.selectedIndex(), 0);
        QCOMPARE(ts->OpenSave.InitDir, QString());
        QVERIFY(ts.platform.messages.isEmpty());
        // The dialog was set up once at start-up and offered the program's filter.
        const CommonDialog& shown = ts.platform.fileDialogsShown.first();
        QCOMPARE(shown.Flags, 524802);
        QVERIFY(shown.CancelError);
        QCOMPARE(shown.MaxFileSize, 4096);
        QCOMPARE(shown.Filter, QStringLiteral("HTML Files (*.htm, *.html, *.shtml; *.asp)|*.htm; "
                                              "*.html; *.shtml; *.asp|CSS Documents (*.css)|*.css|"
                                              "Text Documents (*.txt)|*.txt"));
    }

    // A changed "Document 1", or any later untitled document, is never replaced.
    void openKeepsOtherUntitledDocuments() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "x");
        for (bool later : {false, true}) {
            TestShell ts;
            ts.load();
            if (later) {
                ts->mnuFileClose_Click();
                ts->mnuFileNewHTML_Click(); // "Document 2", clean
            } else {
                ts.active().codebox().setSelText("a");
                QCOMPARE(ts.active().Tag, QStringLiteral("Dirty"));
            }
            QCOMPARE(ts.open(path).Caption(), path);
            QCOMPARE(ts->documents().size(), size_t(2));
            QCOMPARE(ts->TabStrip1.count(), 2);
            QCOMPARE(ts->TabStrip1.selectedIndex(), 1);
        }
    }

    // The same rules through File > Open and the recent file list: only a lower-case ".css"
    // makes a style sheet; a file already open is not opened twice; a missing file leaves
    // "Document 1" alone, each door with its own message.
    void theDoorsToAFile_data() {
        columns<bool, QString, int, QString, QString, int>(
            {"recent", "name", "opens", "cssDoc", "message", "icon"});
        for (const bool recent : {false, true}) {
            const char* door = recent ? "recent" : "open";
            QTest::addRow("%s style.css", door) << recent << "style.css" << 1 << "Yes"
                                                << "" << 0;
            QTest::addRow("%s STYLE.CSS", door) << recent << "STYLE.CSS" << 1 << "No"
                                                << "" << 0;
            QTest::addRow("%s twice", door) << recent << "page.htm" << 2 << "No"
                                            << "File is already open." << int(MsgIcon::Information);
        }
        QTest::newRow("open missing")
            << false << "" << 1 << "No"
            << "The file  could not be found." << int(MsgIcon::Exclamation);
        QTest::newRow("recent missing") << true << "" << 2 << "No"
                                        << "File could not be found." << int(MsgIcon::Critical);
    }
    void theDoorsToAFile() {
        QFETCH(bool, recent);
        QFETCH(QString, name);
        QFETCH(int, opens);
        QFETCH(QString, message);
        QTemporaryDir dir;
        const QString path =
            name.isEmpty() ? QStringLiteral("/nowhere/gone.htm") : writeFile(dir, name, "body {}");
        TestShell ts;
        if (recent) ts.settings.save("Recent File List", "1stRecentFile", path);
        ts.load();
        for (int i = 0; i < opens; ++i) {
            if (recent)
                ts->mnuFileMRU_Click(0);
            else
                ts.open(path);
        }
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts->TabStrip1.count(), 1);
        QTEST(ts.active().CSSDoc, "cssDoc");
        QCOMPARE(ts.active().Caption(), name.isEmpty() ? QStringLiteral("Document 1") : path);
        QStringList told(name.isEmpty() ? opens : opens - 1, message); // each time
        QCOMPARE(ts.platform.messageTexts(), message.isEmpty() ? QStringList() : told);
        for (const ShownMessage& m : ts.platform.messages)
            QTEST(int(m.icon), "icon");
        QVERIFY(!ts->bFileAlreadyOpen);
        // A missing recent file stays on the list.
        if (name.isEmpty())
            QCOMPARE(ts.settings.get("Recent File List", "1stRecentFile"),
                     recent ? path : QString());
    }

    // A cancelled Open changes nothing.
    void aCancelledOpen() {
        TestShell ts;
        ts.load();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileOpen_Click();
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->TabStrip1.tab(0).Key, QStringLiteral("Document 1"));
    }

    void openSeveralFiles() {
        QTemporaryDir dir;
        writeFile(dir, "a.htm", "A");
        writeFile(dir, "b.css", "B");
        TestShell ts;
        ts.load();
        // A folder given with its trailing separator, as a root folder is, gets no second one.
        ts.platform.fileAnswers.enqueue(
            FileDialogAnswer::files(dir.path() + "/", {"a.htm", "b.css"}));
        ts->mnuFileOpen_Click();
        QCOMPARE(ts->documents().size(), size_t(2));
        const codeEditor* a = ts->documents()[0];
        const codeEditor* b = ts->documents()[1];
        QCOMPARE(a->Caption(), dir.path() + "/a.htm");
        QCOMPARE(b->Caption(), dir.path() + "/b.css");
        QCOMPARE(a->codebox().Text(), QStringLiteral("A"));
        // Both windows take the dialog's one title; only the last gets its kind.
        QCOMPARE(a->txtFileTitle, QStringLiteral("a.htm"));
        QCOMPARE(b->txtFileTitle, QStringLiteral("a.htm"));
        QCOMPARE(a->CSSDoc, QStringLiteral("No"));
        QCOMPARE(b->CSSDoc, QStringLiteral("Yes"));
        QCOMPARE(ts->TabStrip1.count(), 2);
        QCOMPARE(ts->TabStrip1.tab(0).Caption, QStringLiteral("a.htm"));
        QCOMPARE(ts->TabStrip1.tab(1).Caption, QStringLiteral("b.css"));
        QCOMPARE(ts->TabStrip1.selectedIndex(), 1);
        QCOMPARE(ts.active().Caption(), dir.path() + "/b.css");
    }

    void openSeveralWithOneOpenAndOneMissing() {
        QTemporaryDir dir;
        const QString a = writeFile(dir, "a.htm", "A");
        writeFile(dir, "c.htm", "C");
        TestShell ts;
        ts.load();
        ts.open(a);
        // Without a trailing separator the folder gets one.
        ts.platform.fileAnswers.enqueue(
            FileDialogAnswer::files(dir.path(), {"a.htm", "missing.htm", "c.htm"}));
        ts->mnuFileOpen_Click();
        QCOMPARE(ts.platform.messageTexts(),
                 (QStringList{"The file " + a + " is already open.",
                              "The file missing.htm could not be found."}));
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(ts->documents().size(), size_t(2));
        QCOMPARE(ts->TabStrip1.count(), 2);
        QCOMPARE(ts.active().Caption(), dir.path() + "/c.htm");
    }

    void checkFileOpenIsCaseSensitiveAndSticky() {
        TestShell ts;
        ts.load();
        ts->CheckFileOpen("document 1");
        QVERIFY(!ts->bFileAlreadyOpen);
        ts->CheckFileOpen("Document 1");
        QVERIFY(ts->bFileAlreadyOpen);
        ts->CheckFileOpen("nothing");
        QVERIFY(ts->bFileAlreadyOpen); // only the caller clears it
    }

    void stripItem() {
        TestShell ts;
        QString s = QStringLiteral("folder") + QChar(0) + "a.htm" + QChar(0);
        QCOMPARE(ts->StripItem(s, QString(QChar(0))), QStringLiteral("folder"));
        QCOMPARE(s, QStringLiteral("a.htm") + QChar(0));
        QCOMPARE(ts->StripItem(s, QString(QChar(0))), QStringLiteral("a.htm"));
        QCOMPARE(s, QString());
        QString none = QStringLiteral("no delimiter"); // overflows without its delimiter
        QCOMPARE(errorOf([&] { ts->StripItem(none, QStringLiteral(";")); }), 6);
    }

    void activationAndTabsAgree() {
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        codeEditor* first = ts->documents()[0];
        first->ZOrder();
        QCOMPARE(ts->ActiveForm(), first);
        QCOMPARE(ts->TabStrip1.selectedIndex(), 0);
        QVERIFY(!ts->bSelectingTab);
        // A tab click brings its window forward, unless a tab is being selected already.
        ts->TabStrip1.select(1);
        QCOMPARE(ts->ActiveForm(), ts->documents()[1]);
        ts->TabStrip1.select(0);
        QCOMPARE(ts->ActiveForm(), ts->documents()[0]);
        ts->bSelectingTab = true;
        ts->TabStrip1.select(1);
        QCOMPARE(ts->ActiveForm(), ts->documents()[0]);
    }

    void nextAndPreviousDocument() {
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
        ts->activateNextDocument(false);
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        ts->activateNextDocument(true);
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
        QCOMPARE(ts->TabStrip1.selectedIndex(), 2);
    }
};

QTEST_GUILESS_MAIN(NewOpenTest)
#include "test_new_open.moc"
