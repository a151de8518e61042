// Start-up, the command line, the tag list pane's sizer, run-time errors, Help, and exit.
#include "editor/text_pane.h"
#include "shell/frm_about.h"
#include "shell_helpers.h"
#include "test_rows.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

class StartupTest : public QObject {
    Q_OBJECT

  private slots:
    // The bands and the pane at start are the view toggles' tests. Relative paths are on at
    // every start, whatever the dialog stored.
    void startWithAndWithoutSettings() {
        for (const bool stored : {false, true}) {
            TestShell ts;
            if (stored) {
                ts.settings.save("Fuzzies", "Auto Close Tag", "No");
                ts.settings.save("Fuzzies", "Default Dir", "/home/me/pages");
                ts.settings.save("Fuzzies", "Word Wrap", "0");
                ts.settings.save("Fuzzies", "Use Relative", "No");
            }
            const int writes = ts.settings.writeCount();
            ts.load();
            QVERIFY(ts->bUseRelative && ts->bAutoCloseTag != stored && !ts->bMainLoading);
            QCOMPARE(ts->OpenSave.InitDir, stored ? "/home/me/pages" : "");
            QCOMPARE(ts.active().codebox().RightMargin(), stored ? 120000 : 0);
            QCOMPARE(ts->FontNames, ts.platform.fonts);
            QCOMPARE(ts.settings.writeCount(), writes); // the start writes nothing
        }
    }

    // Only a lower-case "dll" or "hlp" ending is refused, an "exe" in any case.
    void commandLineRefusals_data() {
        columns<QString, bool>({"name", "refused"});
        for (const char* name : {"setup.exe", "SETUP.EXE", "lib.dll", "help.hlp"})
            QTest::newRow(name) << name << true;
        for (const char* name : {"LIB.DLL", "HELP.HLP", "page.htm"})
            QTest::newRow(name) << name << false;
    }
    void commandLineRefusals() {
        QFETCH(QString, name);
        QFETCH(bool, refused);
        TestShell ts;
        ts.load("/x/" + name);
        const QString refusal =
            QStringLiteral("Hey! You shouldn't be attempting to open stuff like that should you?");
        QCOMPARE(ts.platform.messageTexts().contains(refusal), refused);
        if (refused) QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Exclamation);
        // Either way the program goes on with "Document 1" alone.
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
    }

    // Here a ".css" in any case makes a style sheet.
    void commandLineOpensIntoDocumentOne() {
        for (const QString name : {"page.htm", "STYLE.CSS"}) {
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
            QCOMPARE(doc.CSSDoc, name.endsWith("CSS") ? "Yes" : "No");
            // The window keeps its first name for its tab; closing it still finds the tab.
            QCOMPARE(doc.txtFileName, QStringLiteral("Document 1"));
            QCOMPARE(ts->TabStrip1.tab(0).Key, QStringLiteral("Document 1"));
            ts->mnuFileClose_Click();
            QCOMPARE(ts->TabStrip1.count(), 0);
        }
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

    // Window 12000 twips wide, pane 2800: the pane stays 2000 wide at least and leaves 3500.
    void sizerLimits_data() {
        columns<int, int>({"x", "width"});
        for (auto [x, width] : {std::pair{-1000, 3800},
                                {500, 2300},
                                {1500, 2000},
                                {800, 2000},
                                {-7000, 8500},
                                {-5700, 8500}})
            QTest::addRow("%d", x) << x << width;
    }
    void sizerLimits() {
        QFETCH(int, x);
        Loaded ts;
        ts->setWindowWidth(12000);
        ts->Picture1Width = 2800;
        ts->imgSizer_MouseMove(x);
        QCOMPARE(ts->Picture1Width, 2800); // not dragging
        ts->imgSizer_MouseDown();
        ts->imgSizer_MouseMove(x);
        ts->imgSizer_MouseUp();
        QTEST(ts->Picture1Width, "width");
        QVERIFY(!ts->bSizing);
    }

    // Exit writes the view state first, but never the Tags toolbar's, so that it is back at
    // the next start; a Cancel keeps the program and its windows, drawing released.
    void exitWritesTheViewStateFirst() {
        Loaded ts;
        ts->mnuFileNewHTML_Click();
        for (codeEditor* doc : ts->documents())
            doc->codebox().setSelText("x");
        for (const char* item : {"mnuViewFmtTlb", "mnuViewStdTlb", "mnuViewForms"})
            ts.run(item);
        int frozen = 0;
        QObject::connect(ts.shell.get(), &ShellMDI::drawingFrozen,
                         [&](bool on) { frozen += on ? 1 : -1; });
        QSignalSpy exited(ts.shell.get(), &ShellMDI::exitAccepted);
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QVERIFY(!ts->requestExit());
        QCOMPARE(exited.count(), 0);
        QCOMPARE(ts.settings.get("Fuzzies", "Forms Toolbar Open"), QStringLiteral("Yes"));
        QCOMPARE(ts.settings.get("Fuzzies", "Standard Toolbar Open"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "Tags Toolbar Open", "never"), QStringLiteral("never"));
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(frozen, 0);
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        QVERIFY(ts->requestExit());
        QCOMPARE(exited.count(), 1);
        QVERIFY(ts->documents().empty());
        TestShell next;
        next.settings = ts.settings;
        next.load();
        QVERIFY(!next->bStandardToolbarOpen && next->bTagsToolbarOpen && next->bFormsToolbarOpen);
        QVERIFY(next->cReBar1.BandVisible(1) && next->menu("mnuViewFmtTlb").Checked());
    }

    void applicationActivationFocusesTheSourcePane() {
        Loaded ts;
        auto& pane = static_cast<TextPane&>(ts.active().codebox());
        const int before = pane.focusCount();
        ts->applicationActivated();
        QCOMPARE(pane.focusCount(), before + 1);
        ts->mnuFileClose_Click();
        ts->applicationActivated(); // no document: nothing happens, nothing fails
        QVERIFY(ts.platform.messages.isEmpty());
    }

    // A run-time error escaping a handler is shown as a critical message with OK and no title, and
    // the program goes on.
    void dispatcherKeepsTheProgramGoing() {
        Loaded ts;
        QVERIFY(!ts->dispatch([] { raise(ErrOverflow); }));
        QCOMPARE(ts.platform.messageTexts(), QStringList{"Run-time error '6':\n\nOverflow"});
        const ShownMessage& m = ts.platform.messages.at(0);
        QCOMPARE(m.icon, MsgIcon::Critical);
        QCOMPARE(m.buttons, MsgButtons::OK);
        QCOMPARE(m.title, QString());
        QCOMPARE(ts->documents().size(), size_t(1));
    }

    void helpAndAbout() {
        Loaded ts;
        ts.run("mnuHelpContents");
        QCOMPARE(ts.platform.helpShown, QStringList{"/opt/tessaline/tessaline.chm"});
        // About gives the focus back to the document.
        QSignalSpy focus(&ts.active(), &codeEditor::focusRequested);
        QString caption;
        ts.forms.then<frmAbout>([&](frmAbout& about) {
            caption = about.Caption();
            about.OK.press();
            QVERIFY(!about.isLoaded());
        });
        ts.run("mnuHelpAbout");
        QCOMPARE(caption, QStringLiteral("About Tessaline"));
        QCOMPARE(ts.forms.shown, QStringList{QStringLiteral("frmAbout")});
        QCOMPARE(ts->CurrentDocument, &ts.active());
        QCOMPARE(focus.count(), 1);
    }
};

QTEST_GUILESS_MAIN(StartupTest)
#include "test_startup.moc"
