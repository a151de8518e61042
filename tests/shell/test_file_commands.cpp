// The File menu (New, Open, the recent file list, Save, Save All, Close, Close All), the tabs,
// start-up, the command line, the tag list pane's sizer, run-time errors, Help and exit.
#include "editor/text_pane.h"
#include "shell/frm_about.h"
#include "shell_helpers.h"
#include "test_rows.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kRecent = QStringLiteral("Recent File List");
const QStringList kKeys = words("1stRecentFile 2ndRecentFile 3rdRecentFile 4thRecentFile");

void storeList(SettingsStore& settings, const QStringList& paths) {
    for (int i = 0; i < paths.size(); ++i)
        settings.save(kRecent, kKeys.at(i), paths.at(i));
}
QStringList storedList(const SettingsStore& settings) {
    QStringList paths;
    for (const QString& key : kKeys)
        paths.append(settings.get(kRecent, key));
    return paths;
}
// The captions of the entries shown.
QStringList recentShown(ShellMDI& shell) {
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        const MenuItem& item = shell.menu(QStringLiteral("mnuFileMRU(%1)").arg(i));
        if (item.Visible()) shown.append(item.Caption());
    }
    return shown;
}

const QString kAlreadyOpen = QStringLiteral(
    "This is the name of a file that is currently open.\n\nFile has not been saved.");

QString askedToSave(int n) {
    return QStringLiteral("Do you want to save the changes made to Document %1?").arg(n);
}
} // namespace

class FileCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> dir; // each test's own folder

  private slots:
    void init() { dir = std::make_unique<QTemporaryDir>(); }
    // Another program changes the file: a document without changes reloads when it comes in
    // front (undo brings the old text); one with changes asks; a save over the change asks; a
    // file removed is told of once.
    void changesMadeElsewhere() {
        TestShell ts;
        ts.load();
        const QString path = writeFile(*dir, "page.htm", "<p>one</p>");
        codeEditor& doc = ts.open(path);
        writeFile(*dir, "page.htm", "<p>two, from elsewhere</p>");
        ts->applicationActivated();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>two, from elsewhere</p>"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QVERIFY(ts.platform.messages.isEmpty());
        ts.run("mnuEditUndo");
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>one</p>"));

        doc.codebox().setText(QStringLiteral("mine"));
        writeFile(*dir, "page.htm", "<p>three, from elsewhere</p>");
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts->applicationActivated();
        ts->applicationActivated(); // told once
        QCOMPARE(ts.platform.messages.size(), 1);
        QVERIFY(ts.platform.messages[0].buttons == MsgButtons::YesNo);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("mine"));

        writeFile(*dir, "page.htm", "<p>four, from elsewhere</p>");
        ts.platform.messageAnswers.enqueue(MsgResult::No);
        ts.run("mnuFileSave");
        QCOMPARE(readFile(path), QByteArray("<p>four, from elsewhere</p>"));
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        ts.run("mnuFileSave");
        QCOMPARE(readFile(path), QByteArray("mine"));
        ts.run("mnuFileSave"); // nothing changed elsewhere since: no question
        QCOMPARE(ts.platform.messages.size(), 3);

        QVERIFY(QFile::remove(path));
        ts->applicationActivated();
        ts->applicationActivated();
        QCOMPARE(ts.platform.messages.size(), 4);
        QVERIFY(ts.platform.messageTexts().last().contains("is no longer on the disk"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("mine"));
    }

    void newDocuments() {
        Loaded ts;
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(),
                 QStringLiteral("<html>\n<head>\n<title>Title goes here</title>\n<meta "
                                "name=\"GENERATOR\" content=\"Tessaline 2\">\n</head>\n<body>\n\n"
                                "</body>\n</html>"));
        QCOMPARE(doc.codebox().SelStart(), 106); // the empty line between the body tags
        QCOMPARE(doc.codebox().SelIndent(), 80);
        QCOMPARE(docState(doc), docState("Document 1", "Document 1", "Label2"));
        QCOMPARE(tabState(*ts), "Document 1=Document 1@0");
        ts->mnuFileNewCSS_Click();
        codeEditor& css = ts.active();
        QCOMPARE(css.codebox().Text(),
                 QStringLiteral("/* This is an external style sheet. For more information look "
                                "up 'external style sheets' in the help file */\n"));
        QCOMPARE(css.codebox().SelStart(), css.codebox().length());
        QCOMPARE(css.Caption() + css.CSSDoc + css.Tag, "Document 2YesClean");
        QCOMPARE(ts->TabStrip1.selectedIndex(), 1);
        // Numbers only grow.
        ts->mnuFileClose_Click();
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
        QCOMPARE(ts->nDocumentCount, 3);
    }

    // The stored wrap: only "0" does not wrap. Size and font come from the store too.
    void fontAndWrapComeFromSettings() {
        for (auto [wrap, margin] : {std::pair{"", 0}, {"1", 0}, {"0", 120000}, {"yes", 0}}) {
            TestShell ts;
            if (*wrap) ts.settings.save("Fuzzies", "Word Wrap", wrap);
            ts.settings.save("Fuzzies", "Font Size", "14");
            ts.load();
            ts->mnuFileNewHTML_Click();
            QCOMPARE(ts.active().codebox().RightMargin(), margin);
            QCOMPARE(ts.active().codebox().FontSize(), 14.0);
            QCOMPARE(ts.active().codebox().FontName(), QStringLiteral("Courier New"));
        }
    }

    void openReplacesUntouchedDocumentOne() {
        const QString path = writeFile(*dir, "page.htm", "<p>hi</p>");
        Loaded ts;
        codeEditor& doc = ts.open(path);
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(docState(doc), docState(path, path, "page.htm", "No", path));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>hi</p>"));
        QCOMPARE(tabState(*ts), path + "=page.htm@0");
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
        // A cancelled Open changes nothing.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileOpen_Click();
        QCOMPARE(tabState(*ts), path + "=page.htm@0");
        QVERIFY(ts.platform.messages.isEmpty());
    }

    // A changed "Document 1", or any later untitled document, is never replaced.
    void openKeepsOtherUntitledDocuments() {
        const QString path = writeFile(*dir, "page.htm", "x");
        for (bool later : {false, true}) {
            Loaded ts;
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

    // File > Open and the recent list: only ".css" makes a style sheet; no file twice; each its
    // message.
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
        const QString path =
            name.isEmpty() ? QStringLiteral("/nowhere/gone.htm") : writeFile(*dir, name, "body {}");
        TestShell ts;
        if (recent) storeList(ts.settings, {path});
        ts.load();
        FreezeWatch watch(ts);
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
        QVERIFY(!ts->bFileAlreadyOpen && !watch.frozen);
        if (!name.isEmpty()) QCOMPARE(watch.messagesWhileFrozen, 0);
        // A missing recent file stays on the list.
        if (name.isEmpty()) QCOMPARE(storedList(ts.settings).at(0), recent ? path : QString());
    }

    void openSeveralFiles() {
        const QString a = writeFile(*dir, "a.htm", "A"), b = writeFile(*dir, "b.css", "B");
        writeFile(*dir, "c.htm", "C");
        Loaded ts;
        // A folder given with its trailing separator, as a root folder is, gets no second one.
        ts.platform.fileAnswers.enqueue(
            FileDialogAnswer::files(dir->path() + "/", {"a.htm", "b.css"}));
        ts->mnuFileOpen_Click();
        // Both windows take the dialog's one title; only the last gets its kind.
        QCOMPARE(docState(*ts->documents()[0]), docState(a, a, "a.htm", "No", a));
        QCOMPARE(docState(*ts->documents()[1]), docState(b, b, "a.htm", "Yes", b));
        QCOMPARE(ts->documents()[0]->codebox().Text(), QStringLiteral("A"));
        QCOMPARE(tabState(*ts), a + "=a.htm;" + b + "=b.css@1");
        // Without a trailing separator the folder gets one.
        ts.platform.fileAnswers.enqueue(
            FileDialogAnswer::files(dir->path(), {"a.htm", "missing.htm", "c.htm"}));
        FreezeWatch watch(ts);
        ts->mnuFileOpen_Click();
        QCOMPARE(ts.platform.messageTexts(),
                 (QStringList{"The file " + a + " is already open.",
                              "The file missing.htm could not be found."}));
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(ts->documents().size(), size_t(3));
        QCOMPARE(ts->TabStrip1.count(), 3);
        QVERIFY(!watch.frozen && !watch.messagesWhileFrozen);
        QCOMPARE(ts.active().Caption(), dir->path() + "/c.htm");
    }

    // A tab click brings its window forward, drawing held, unless a tab is being selected already.
    void activationAndTabsAgree() {
        Loaded ts;
        ts->mnuFileNewHTML_Click();
        ts->mnuFileNewHTML_Click();
        codeEditor* first = ts->documents()[0];
        first->ZOrder();
        QCOMPARE(ts->TabStrip1.selectedIndex(), 0);
        QVERIFY(!ts->bSelectingTab);
        QSignalSpy frozen(ts.shell.get(), &ShellMDI::drawingFrozen);
        ts->TabStrip1.select(1);
        QCOMPARE(ts->ActiveForm(), ts->documents()[1]);
        QCOMPARE(frozen.count(), 2);
        QVERIFY(frozen.at(0).at(0).toBool() && !frozen.at(1).at(0).toBool());
        ts->TabStrip1.select(0);
        QCOMPARE(ts->ActiveForm(), first);
        ts->bSelectingTab = true;
        ts->TabStrip1.select(1);
        QCOMPARE(ts->ActiveForm(), first);
        ts->bSelectingTab = false;
        ts->documents()[2]->ZOrder();
        ts->activateNextDocument(false);
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        ts->activateNextDocument(true);
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 3"));
        QCOMPARE(ts->TabStrip1.selectedIndex(), 2);
    }

    // ---- the recent file list ----

    // Stored entries show in order up to the first empty one, the bar above with the first.
    void storedEntriesShow() {
        const QList<std::pair<QStringList, QStringList>> cases = {
            {{}, {}},
            {{"/w/a.htm", "/w/b.htm", "", "/w/d.htm"}, {"/w/a.htm", "/w/b.htm"}},
            {{"", "/w/b.htm"}, {}}};
        for (const auto& [stored, shown] : cases) {
            TestShell ts;
            storeList(ts.settings, stored);
            ts.load();
            QCOMPARE(recentShown(*ts), shown);
            QCOMPARE(ts->menu("mnuFileBar6").Visible(), !shown.isEmpty());
        }
    }

    // A hit moves its entry, in its own spelling, to the top; a new path pushes the oldest out.
    void addingAPath_data() {
        columns<QString, QString, QString>({"before", "path", "after"});
        const char* const four = "/w/A.htm /w/B.htm /w/C.htm /w/D.htm";
        QTest::newRow("first") << four << "/W/a.htm" << four;
        QTest::newRow("second") << four << "/w/B.htm"
                                << "/w/B.htm /w/A.htm /w/C.htm /w/D.htm";
        QTest::newRow("third") << four << "/w/C.htm"
                               << "/w/C.htm /w/A.htm /w/B.htm /w/D.htm";
        QTest::newRow("fourth") << four << "/w/D.htm"
                                << "/w/D.htm /w/A.htm /w/B.htm /w/C.htm";
        QTest::newRow("new") << four << "/w/E.htm"
                             << "/w/E.htm /w/A.htm /w/B.htm /w/C.htm";
        QTest::newRow("hit") << four << "/W/b.HTM"
                             << "/w/B.htm /w/A.htm /w/C.htm /w/D.htm";
        QTest::newRow("first, listed twice") << "/w/A.htm /w/a.htm /w/C.htm /w/D.htm"
                                             << "/w/A.htm"
                                             << "/w/A.htm /w/a.htm /w/C.htm /w/D.htm";
        QTest::newRow("short list") << "/w/A.htm"
                                    << "/w/E.htm"
                                    << "/w/E.htm /w/A.htm";
    }
    void addingAPath() {
        QFETCH(QString, before);
        QFETCH(QString, path);
        QFETCH(QString, after);
        TestShell ts;
        storeList(ts.settings, before.split(u' '));
        ts.load();
        const int writes = ts.settings.writeCount();
        ts->AddRecentFile(path, QStringLiteral("ignored"));
        QStringList stored = after.split(u' ');
        QCOMPARE(recentShown(*ts), stored);
        while (stored.size() < 4)
            stored.append(QString());
        QCOMPARE(storedList(ts.settings), stored);
        if (before == after) QCOMPARE(ts.settings.writeCount(), writes);
    }

    void openingAnEntry() {
        const QString other = writeFile(*dir, "other.htm", "x");
        const QString style = writeFile(*dir, "site.css", "body {}");
        TestShell ts;
        storeList(ts.settings, {other, style});
        ts.load();
        ts->mnuFileMRU_Click(1);
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("body {}"));
        QCOMPARE(docState(doc), docState(style, style, "site.css", "Yes", style));
        // The untouched first document made way; the next file dialog starts in the folder.
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts->OpenSave.InitDir, dir->path() + QLatin1Char('/'));
        QCOMPARE(tabState(*ts), style + "=site.css@0");
        QCOMPARE(storedList(ts.settings), (QStringList{style, other, "", ""}));
        QVERIFY(ts.platform.messages.isEmpty());
        // The title is the text after the last "/"; a backslash is part of the name.
        QCOMPARE(ts->FileTitleFromPath("index.htm"), QStringLiteral("index.htm"));
        QCOMPARE(ts->FileTitleFromPath("/w/a\\b.htm"), QStringLiteral("a\\b.htm"));
    }

    // The first entry gets no picture, the others one of the 26, varying, the same every run.
    void entriesBelowTheFirstGetAPicture() {
        const auto pictures = [] {
            Loaded ts({"Recent File List/1stRecentFile=/w/A.htm",
                       "Recent File List/2ndRecentFile=/w/B.htm",
                       "Recent File List/3rdRecentFile=/w/C.htm"});
            QString key = QStringLiteral("unchanged");
            int icon = -7;
            ts->nMenuIconCount = 26;
            QStringList shown{
                QString::number(ts->ctlPopMenu_RequestNewMenuDetails("/w/a.htm", key, icon)) + key};
            for (int round = 0; round < 20; ++round)
                if (ts->ctlPopMenu_RequestNewMenuDetails("/w/C.htm", key, icon) &&
                    key == "mnuFile(2)" && icon >= -1 && icon <= 25)
                    shown << QString::number(icon);
            return shown;
        };
        const QStringList first = pictures();
        QCOMPARE(first.size(), 21);
        QCOMPARE(first[0], "0unchanged");
        QVERIFY(first.count(first[1]) < 20);
        QCOMPARE(pictures(), first);
    }

    // A cancel changes nothing; a name makes the document that file, its tab too.
    void saveUntitledAsksForAName() {
        const QString path = dir->filePath("new.htm");
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
        const QString path = writeFile(*dir, "page.htm", "old");
        Loaded ts;
        codeEditor& doc = ts.open(path);
        doc.codebox().setText("new text");
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        ts->OpenSave.InitDir = dir->path(); // as a recent file leaves it; a save starts afresh
        ts->mnuFileSave_Click();
        QCOMPARE(ts->OpenSave.InitDir, QString());
        QCOMPARE(readFile(path), QByteArray("new text"));
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1); // only Open's
    }

    void saveInLayoutTakesThePageSaveAsDoesNot() {
        const QString path = writeFile(*dir, "page.htm", "source");
        Loaded ts;
        layoutOf(ts.open(path)).setDocumentHTML("<p>from layout</p>");
        ts->bLayoutActive = true;
        const QString other = dir->filePath("copy.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(other));
        ts->mnuFileSaveas_Click();
        QCOMPARE(readFile(other), QByteArray("source"));
        ts->mnuFileSave_Click();
        QCOMPARE(readFile(other), QByteArray("<p>from layout</p>"));
    }

    // Another open document's name is refused (not in other case); its own name is fine.
    void saveUnderTheNameOfAnOpenDocument() {
        const QString path = writeFile(*dir, "page.css", "page");
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
        const QString upper = dir->filePath("PAGE.css");
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
        const QString path = writeFile(*dir, "big.htm", "x");
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
        const QString a = writeFile(*dir, "a.htm", "a");
        Loaded ts;
        ts.active().codebox().setSelText("1"); // Document 1 stays, untitled and dirty
        ts.open(a).codebox().setText("a2");
        ts->mnuFileNewCSS_Click(); // Document 2
        codeEditor* kept = ts->ActiveForm();
        const QString one = dir->filePath("one.htm");
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(one));
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->mnuFileSaveAll_Click();
        QCOMPARE(readFile(a), QByteArray("a2"));
        QCOMPARE(ts->documents()[0]->Caption(), one);
        QCOMPARE(readFile(one), ts->documents()[0]->codebox().Text().toUtf8());
        QCOMPARE(ts->documents()[2]->Caption(), QStringLiteral("Document 2"));
        QCOMPARE(ts->ActiveForm(), kept);
        // The untitled prompts offered no name and ran, and left, without the cancel error.
        QVERIFY(!ts.platform.fileDialogsShown.last().CancelError && !ts->OpenSave.CancelError);
        QCOMPARE(ts.platform.fileDialogsShown.last().FileName, QString());
        QCOMPARE(ts->TabStrip1.tab(0).Key + ts->TabStrip1.tab(0).Caption, one + "one.htm");
    }

    void saveAllStopsAtANameInUse() {
        const QString a = writeFile(*dir, "a.htm", "a");
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

    // Yes saves a bound file; an untitled one's dialog offers no name, and a cancel loses it.
    void closeYesSaves() {
        const QString path = writeFile(*dir, "page.htm", "old");
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

    // ---- start-up and exit ----
    // Relative paths are on at every start, whatever the dialog stored.
    void startReadsTheSettings() {
        Loaded ts({"Fuzzies/Auto Close Tag=No", "Fuzzies/Use Relative=No"});
        QVERIFY(ts->bUseRelative && !ts->bAutoCloseTag && !ts->bMainLoading);
        QCOMPARE(ts->FontNames, ts.platform.fonts);
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
            const QString path = writeFile(*dir, name, "<p>cmd</p>");
            TestShell ts;
            ts.load(path);
            QCOMPARE(ts->documents().size(), size_t(1));
            QCOMPARE(ts.active().codebox().Text(), QStringLiteral("<p>cmd</p>"));
            // The window keeps its first name for its tab; closing it still finds the tab.
            QCOMPARE(docState(ts.active()),
                     docState(path, "Document 1", name, name.endsWith("CSS") ? "Yes" : "No", path));
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
        QCOMPARE(ts.active().Caption() + ts.active().Tag, "Document 1Clean");
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

    // Exit writes the view state first, never the Tags toolbar's; a Cancel keeps everything.
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

    // An escaping run-time error is a critical message with OK and no title; the program goes on.
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

QTEST_GUILESS_MAIN(FileCommandsTest)
#include "test_file_commands.moc"
