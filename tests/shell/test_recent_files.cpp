// The recent file list: settings to menu, moving an entry up, opening an entry, its failures,
// file titles and the pictures of the entries.
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kSection = QStringLiteral("Recent File List");
const QStringList kKeys = {"1stRecentFile", "2ndRecentFile", "3rdRecentFile", "4thRecentFile"};

void storeList(SettingsStore& settings, const QStringList& paths) {
    for (int i = 0; i < paths.size(); ++i)
        settings.save(kSection, kKeys.at(i), paths.at(i));
}

QStringList storedList(const SettingsStore& settings) {
    QStringList paths;
    for (const QString& key : kKeys)
        paths.append(settings.get(kSection, key));
    return paths;
}

QStringList captions(ShellMDI& shell) {
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        const MenuItem& item = shell.menu(QStringLiteral("mnuFileMRU(%1)").arg(i));
        if (item.Visible()) shown.append(item.Caption());
    }
    return shown;
}
} // namespace

class RecentFilesTest : public QObject {
    Q_OBJECT

  private slots:
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
            QCOMPARE(captions(*ts), shown);
            QCOMPARE(ts->menu("mnuFileBar6").Visible(), !shown.isEmpty());
        }
    }

    void addingAPath_data() {
        columns<QStringList, QString, QStringList>({"before", "path", "after"});
        const QStringList four = words("/w/A.htm /w/B.htm /w/C.htm /w/D.htm");
        QTest::newRow("first entry") << four << "/w/A.htm" << four;
        QTest::newRow("second entry")
            << four << "/w/B.htm" << words("/w/B.htm /w/A.htm /w/C.htm /w/D.htm");
        QTest::newRow("third entry")
            << four << "/w/C.htm" << words("/w/C.htm /w/A.htm /w/B.htm /w/D.htm");
        QTest::newRow("fourth entry")
            << four << "/w/D.htm" << words("/w/D.htm /w/A.htm /w/B.htm /w/C.htm");
        QTest::newRow("new path, the oldest falls off")
            << four << "/w/E.htm" << words("/w/E.htm /w/A.htm /w/B.htm /w/C.htm");
        QTest::newRow("a hit keeps the entry's spelling")
            << four << "/W/b.HTM" << words("/w/B.htm /w/A.htm /w/C.htm /w/D.htm");
        QTest::newRow("into a short list")
            << QStringList{"/w/A.htm"} << "/w/E.htm" << QStringList{"/w/E.htm", "/w/A.htm", "", ""};
    }
    void addingAPath() {
        QFETCH(QStringList, before);
        QFETCH(QString, path);
        QFETCH(QStringList, after);
        TestShell ts;
        storeList(ts.settings, before);
        ts.load();
        ts->AddRecentFile(path, QStringLiteral("ignored"));
        QCOMPARE(storedList(ts.settings), after);
        QStringList shown = after;
        shown.removeAll(QString());
        QCOMPARE(captions(*ts), shown);
    }

    void theFirstEntryAgainWritesNothing() {
        TestShell ts;
        storeList(ts.settings, {"/w/A.htm", "/w/B.htm"});
        ts.load();
        const int writes = ts.settings.writeCount();
        ts->AddRecentFile(QStringLiteral("/W/a.htm"), QString());
        QCOMPARE(ts.settings.writeCount(), writes);
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
        QCOMPARE(doc.Caption(), style);
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QCOMPARE(doc.txtFileTitle, QStringLiteral("site.css"));
        QCOMPARE(doc.txtFileName, style);
        QCOMPARE(doc.CSSDoc, QStringLiteral("Yes"));
        // The untouched first document made way; the next file dialog starts in the folder.
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts->OpenSave.InitDir, dir.path() + QLatin1Char('/'));
        QCOMPARE(ts->TabStrip1.count(), 1);
        QCOMPARE(ts->TabStrip1.tab(0).Key, style);
        QCOMPARE(ts->TabStrip1.tab(0).Caption, QStringLiteral("site.css"));
        QCOMPARE(ts->TabStrip1.selectedIndex(), 0);
        QCOMPARE(storedList(ts.settings), (QStringList{style, other, "", ""}));
        QVERIFY(ts.platform.messages.isEmpty());
    }

    // A style sheet's ending, an entry already open and a missing file are the open tests'.

    // The title is the text after the last "/"; a backslash is part of the name.
    void fileTitles() {
        TestShell ts;
        QCOMPARE(ts->FileTitleFromPath("/home/me/site/index.htm"), QStringLiteral("index.htm"));
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

QTEST_GUILESS_MAIN(RecentFilesTest)
#include "test_recent_files.moc"
