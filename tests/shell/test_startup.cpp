// Start-up, the command line, the tag list pane's sizer, and exit.
#include "editor/text_pane.h"
#include "shell/frm_about.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

class StartupTest : public QObject {
    Q_OBJECT

  private slots:
    // The bands and the pane at start are the view toggles' tests.
    void startWithNoSettings() {
        TestShell ts;
        ts.load();
        QVERIFY(ts->bUseRelative && ts->bAutoCloseTag && !ts->bMainLoading);
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        QCOMPARE(ts.active().codebox().SelStart(), 106);
        QCOMPARE(ts->FontNames, ts.platform.fonts);
        QCOMPARE(ts.settings.writeCount(), 0); // nothing is written at first start
    }

    void storedSettingsAtStart() {
        TestShell ts;
        ts.settings.save("Fuzzies", "Auto Close Tag", "No");
        ts.settings.save("Fuzzies", "Default Dir", "/home/me/pages");
        ts.settings.save("Fuzzies", "Word Wrap", "0");
        ts.settings.save("Fuzzies", "Use Relative", "No"); // relative paths are on at every start
        ts.load();
        QVERIFY(ts->bUseRelative && !ts->bAutoCloseTag);
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/home/me/pages"));
        QCOMPARE(ts.active().codebox().RightMargin(), 120000);
    }

    void commandLineRefusals_data() {
        columns<QString, bool>({"name", "refused"});
        QTest::newRow("exe") << "/x/setup.exe" << true;
        QTest::newRow("EXE in capitals") << "/x/SETUP.EXE" << true;
        QTest::newRow("dll") << "/x/lib.dll" << true;
        QTest::newRow("DLL in capitals") << "/x/LIB.DLL" << false;
        QTest::newRow("hlp") << "/x/help.hlp" << true;
        QTest::newRow("HLP in capitals") << "/x/HELP.HLP" << false;
        QTest::newRow("htm") << "/x/page.htm" << false;
    }
    void commandLineRefusals() {
        QFETCH(QString, name);
        QFETCH(bool, refused);
        TestShell ts;
        ts.load(name);
        const QString refusal =
            QStringLiteral("Hey! You shouldn't be attempting to open stuff like that should you?");
        QCOMPARE(ts.platform.messageTexts().contains(refusal), refused);
        if (refused) QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Exclamation);
        // Either way the program goes on with "Document 1" alone.
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
    }

    void commandLineOpensIntoDocumentOne_data() {
        columns<QString, QString>({"name", "cssDoc"});
        QTest::newRow("page") << "page.htm"
                              << "No";
        QTest::newRow("css ignores case here") << "STYLE.CSS"
                                               << "Yes";
    }
    void commandLineOpensIntoDocumentOne() {
        QFETCH(QString, name);
        QFETCH(QString, cssDoc);
        QTemporaryDir dir;
        const QString path = writeFile(dir, name, "<p>cmd</p>");
        TestShell ts;
        ts.load(path);
        QCOMPARE(ts->documents().size(), size_t(1));
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>cmd</p>"));
        QCOMPARE(doc.Caption(), path);
        QCOMPARE(doc.codebox().FileName(), path);
        QCOMPARE(doc.txtFileTitle, name);
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(doc.CSSDoc, cssDoc);
        // The window keeps its first name for its tab.
        QCOMPARE(doc.txtFileName, QStringLiteral("Document 1"));
        QCOMPARE(ts->TabStrip1.tab(0).Key, QStringLiteral("Document 1"));
        // Closing it still finds and removes its tab.
        ts->mnuFileClose_Click();
        QCOMPARE(ts->TabStrip1.count(), 0);
    }

    void commandLineMissingFileKeepsDocumentOne() {
        TestShell ts;
        // Quotes are not stripped: the name reaches the load as it stands.
        ts.load("\"/nowhere/page.htm\"");
        QCOMPARE(ts.platform.messageTexts(),
                 QStringList{"The file \"/nowhere/page.htm\" could not be opened."});
        QCOMPARE(ts->documents().size(), size_t(1));
        codeEditor& doc = ts.active();
        QCOMPARE(doc.Caption(), QStringLiteral("Document 1"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(doc.codebox().SelStart(), 106);
    }

    void sizerLimits_data() {
        columns<int, int>({"x", "width"});
        // Window 12000 twips wide, pane 2800.
        QTest::newRow("wider by 1000") << -1000 << 3800;
        QTest::newRow("narrower by 500") << 500 << 2300;
        QTest::newRow("not below 2000") << 1500 << 2000;
        QTest::newRow("2000 exactly") << 800 << 2000;
        QTest::newRow("3500 must remain") << -7000 << 8500;
        QTest::newRow("8500 exactly") << -5700 << 8500;
    }
    void sizerLimits() {
        QFETCH(int, x);
        QFETCH(int, width);
        TestShell ts;
        ts.load();
        ts->setWindowWidth(12000);
        ts->Picture1Width = 2800;
        ts->imgSizer_MouseMove(x);
        QCOMPARE(ts->Picture1Width, 2800); // not dragging
        ts->imgSizer_MouseDown();
        ts->imgSizer_MouseMove(x);
        ts->imgSizer_MouseUp();
        QCOMPARE(ts->Picture1Width, width);
        QVERIFY(!ts->bSizing);
    }

    void exitWritesTheViewStateFirst() {
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        for (codeEditor* doc : ts->documents())
            doc->codebox().setSelText("x");
        ts->bFormsToolbarOpen = true;
        int frozen = 0;
        QObject::connect(ts.shell.get(), &ShellMDI::drawingFrozen,
                         [&](bool on) { frozen += on ? 1 : -1; });
        bool exited = false;
        QObject::connect(ts.shell.get(), &ShellMDI::exitAccepted, [&] { exited = true; });
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QVERIFY(!ts->requestExit());
        QVERIFY(!exited);
        QCOMPARE(ts.settings.get("Fuzzies", "Forms Toolbar Open"), QStringLiteral("Yes"));
        QCOMPARE(ts.settings.get("Fuzzies", "Standard Toolbar Open"), QStringLiteral("Yes"));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "Tags Toolbar Open", "unwritten"),
                 QStringLiteral("unwritten"));
        // The second window stays, and drawing works again after the Cancel.
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(frozen, 0);
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        QVERIFY(ts->requestExit());
        QVERIFY(exited);
        QVERIFY(ts->documents().empty());
    }

    void applicationActivationFocusesTheSourcePane() {
        TestShell ts;
        ts.load();
        auto& pane = static_cast<TextPane&>(ts.active().codebox());
        const int before = pane.focusCount();
        ts->applicationActivated();
        QCOMPARE(pane.focusCount(), before + 1);
        ts->mnuFileClose_Click();
        ts->applicationActivated(); // no document: nothing happens, nothing fails
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void dispatcherKeepsTheProgramGoing() {
        TestShell ts;
        ts.load();
        const bool ok = ts->dispatch([] { raise(ErrOverflow); });
        QVERIFY(!ok);
        QCOMPARE(ts.platform.messageTexts(), QStringList{"Run-time error '6':\n\nOverflow"});
        QCOMPARE(ts->documents().size(), size_t(1));
    }

    void helpContentsOpensTheHelpFileBesideTheProgram() {
        TestShell ts;
        ts.load();
        ts->menu(QStringLiteral("mnuHelpContents")).Click();
        QCOMPARE(ts.platform.helpShown,
                 QStringList{QStringLiteral("/opt/tessaline/tessaline.chm")});
    }

    void aboutGivesTheFocusBackToTheDocument() {
        TestShell ts;
        ts.load();
        QSignalSpy focus(&ts.active(), &codeEditor::focusRequested);
        bool opened = false;
        ts.forms.then<frmAbout>([&](frmAbout& about) {
            opened = about.Caption() == QStringLiteral("About Tessaline");
            about.OK.press();
            QVERIFY(!about.isLoaded());
        });
        ts->menu(QStringLiteral("mnuHelpAbout")).Click();
        QVERIFY(opened);
        QCOMPARE(ts.forms.shown, QStringList{QStringLiteral("frmAbout")});
        QCOMPARE(ts->CurrentDocument, &ts.active());
        QCOMPARE(focus.count(), 1);
    }
};

QTEST_GUILESS_MAIN(StartupTest)
#include "test_startup.moc"
