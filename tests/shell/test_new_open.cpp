// New documents, Open and the recent file list: skeletons, numbering, the "Document 1" reuse
// rule, the doors to a file with their messages, the tabs, and the list's own rules.
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
} // namespace

class NewOpenTest : public QObject {
    Q_OBJECT

  private slots:
    void newDocuments() {
        TestShell ts;
        ts.load();
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
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "<p>hi</p>");
        TestShell ts;
        ts.load();
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
        if (recent) storeList(ts.settings, {path});
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
        if (name.isEmpty()) QCOMPARE(storedList(ts.settings).at(0), recent ? path : QString());
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
        const QString a = dir.path() + "/a.htm", b = dir.path() + "/b.css";
        // Both windows take the dialog's one title; only the last gets its kind.
        QCOMPARE(docState(*ts->documents()[0]), docState(a, a, "a.htm", "No", a));
        QCOMPARE(docState(*ts->documents()[1]), docState(b, b, "a.htm", "Yes", b));
        QCOMPARE(ts->documents()[0]->codebox().Text(), QStringLiteral("A"));
        QCOMPARE(tabState(*ts), a + "=a.htm;" + b + "=b.css@1");
        QCOMPARE(ts.active().Caption(), b);
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

    void checkFileOpenAndStripItem() {
        TestShell ts;
        ts.load();
        ts->CheckFileOpen("document 1"); // case counts
        QVERIFY(!ts->bFileAlreadyOpen);
        ts->CheckFileOpen("Document 1");
        QVERIFY(ts->bFileAlreadyOpen);
        ts->CheckFileOpen("nothing");
        QVERIFY(ts->bFileAlreadyOpen); // only the caller clears it
        QString s = QStringLiteral("folder") + QChar(0) + "a.htm" + QChar(0);
        QCOMPARE(ts->StripItem(s, QString(QChar(0))), QStringLiteral("folder"));
        QCOMPARE(s, QStringLiteral("a.htm") + QChar(0));
        QCOMPARE(ts->StripItem(s, QString(QChar(0))), QStringLiteral("a.htm"));
        QCOMPARE(s, QString());
        QString none = QStringLiteral("no delimiter"); // overflows without its delimiter
        QCOMPARE(errorOf([&] { ts->StripItem(none, QStringLiteral(";")); }), 6);
    }

    // A tab click brings its window forward with drawing held meanwhile, unless a tab is being
    // selected already; the next and previous document go by the tabs.
    void activationAndTabsAgree() {
        TestShell ts;
        ts.load();
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

    // Stored entries show in order up to the first empty one; the bar above them shows with
    // the first.
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

    // The list before, the path added, the list after. A hit moves its entry, with its own
    // spelling, to the top; a new path pushes the oldest out; the first again writes nothing.
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
        QTemporaryDir dir;
        const QString other = writeFile(dir, "other.htm", "x");
        const QString style = writeFile(dir, "site.css", "body {}");
        TestShell ts;
        storeList(ts.settings, {other, style});
        ts.load();
        ts->mnuFileMRU_Click(1);
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("body {}"));
        QCOMPARE(docState(doc), docState(style, style, "site.css", "Yes", style));
        // The untouched first document made way; the next file dialog starts in the folder.
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts->OpenSave.InitDir, dir.path() + QLatin1Char('/'));
        QCOMPARE(tabState(*ts), style + "=site.css@0");
        QCOMPARE(storedList(ts.settings), (QStringList{style, other, "", ""}));
        QVERIFY(ts.platform.messages.isEmpty());
        // The title is the text after the last "/"; a backslash is part of the name.
        QCOMPARE(ts->FileTitleFromPath("index.htm"), QStringLiteral("index.htm"));
        QCOMPARE(ts->FileTitleFromPath("/w/a\\b.htm"), QStringLiteral("a\\b.htm"));
    }

    void entriesBelowTheFirstGetAPicture() {
        // The first entry gets none; then twenty menus ask for the third entry's picture, in a
        // fresh program. Any wrong answer gives an empty list.
        const auto pictures = []() -> QList<int> {
            TestShell ts;
            QString key = QStringLiteral("unchanged");
            int icon = -7;
            storeList(ts.settings, words("/w/A.htm /w/B.htm /w/C.htm"));
            ts.load();
            ts->nMenuIconCount = 26;
            if (ts->ctlPopMenu_RequestNewMenuDetails("/w/A.htm", key, icon) ||
                ts->ctlPopMenu_RequestNewMenuDetails("/w/a.htm", key, icon) || key != "unchanged")
                return {};
            QList<int> shown;
            for (int round = 0; round < 20; ++round) {
                const bool asked = ts->ctlPopMenu_RequestNewMenuDetails("/w/C.htm", key, icon);
                if (!asked || key != "mnuFile(2)" || icon < -1 || icon > 25) return {};
                shown.append(icon);
            }
            return shown;
        };
        const QList<int> first = pictures();
        QCOMPARE(first.size(), 20);
        // The picture changes from menu to menu, and every run shows the same pictures.
        QVERIFY(first.count(first.first()) < first.size());
        QCOMPARE(pictures(), first);
    }
};

QTEST_GUILESS_MAIN(NewOpenTest)
#include "test_new_open.moc"
