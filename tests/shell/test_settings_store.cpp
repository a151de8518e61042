// The settings store's four operations, on the in-memory store and on the per-user one on
// disk, which must keep free-text key names and values and survive a new instance.
#include "shell/settings_store.h"
#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <functional>
#include <memory>

using namespace tsl;

Q_DECLARE_METATYPE(std::function<std::shared_ptr<tsl::SettingsStore>()>)

namespace {
using StoreMaker = std::function<std::shared_ptr<SettingsStore>()>;
} // namespace

class SettingsStoreTest : public QObject {
    Q_OBJECT

    QTemporaryDir config_;
    int appCount_ = 0;
    // Every test gets an application name of its own, so the files on disk do not meet.
    QString app_;

    void addStores() {
        QTest::addColumn<StoreMaker>("make");
        // The memory store lives as long as the test: "a new instance" of it is the same data.
        QTest::newRow("memory") << StoreMaker([] { return sharedMemory(); });
        QTest::newRow("QSettings") << StoreMaker([] { return std::make_shared<QSettingsStore>(); });
    }

    static std::shared_ptr<MemorySettingsStore>& sharedMemory() {
        static std::shared_ptr<MemorySettingsStore> store;
        return store;
    }

  private slots:
    void initTestCase() {
        QVERIFY(config_.isValid());
        // The store must never touch the real user's settings; set before any QSettings.
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(config_.path()));
    }

    void init() {
        app_ = QStringLiteral("Tessaline Test %1").arg(++appCount_);
        sharedMemory() = std::make_shared<MemorySettingsStore>();
    }

    void defaultOnAMissingKey_data() { addStores(); }
    void defaultOnAMissingKey() {
        QFETCH(StoreMaker, make);
        auto store = make();
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Name", "Courier New"),
                 QStringLiteral("Courier New"));
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Name"), QString());
        QVERIFY(store->GetAllSettings(app_, "Fuzzies").isEmpty());
    }

    void writeThenRead_data() { addStores(); }
    void writeThenRead() {
        QFETCH(StoreMaker, make);
        auto store = make();
        store->SaveSetting(app_, "Fuzzies", "Font Size", "12");
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Size", "9"), QStringLiteral("12"));
        store->SaveSetting(app_, "Fuzzies", "Font Size", "14");
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Size", "9"), QStringLiteral("14"));
        // Sections and applications are apart.
        QCOMPARE(store->GetSetting(app_, "Browser", "Font Size", "none"), QStringLiteral("none"));
        QCOMPARE(store->GetSetting(app_ + " other", "Fuzzies", "Font Size", "none"),
                 QStringLiteral("none"));
        // An empty value is a value, not a missing key.
        store->SaveSetting(app_, "Fuzzies", "Default Dir", "");
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Default Dir", "unset"), QString());
    }

    void deleteKey_data() { addStores(); }
    void deleteKey() {
        QFETCH(StoreMaker, make);
        auto store = make();
        store->SaveSetting(app_, "Saved Styles", "Heading", "Heading");
        store->SaveSetting(app_, "Saved Styles", "(New Style)", "(New Style)");
        store->DeleteSetting(app_, "Saved Styles", "Heading");
        QCOMPARE(store->GetSetting(app_, "Saved Styles", "Heading", "gone"),
                 QStringLiteral("gone"));
        QCOMPARE(store->GetAllSettings(app_, "Saved Styles"),
                 SettingsStore::Pairs({{"(New Style)", "(New Style)"}}));
        // Deleting what is not there does no harm.
        store->DeleteSetting(app_, "Saved Styles", "Heading");
        store->DeleteSetting(app_, "No Section", "No Key");
        // A new instance finds the key still gone and the other kept.
        store.reset();
        store = make();
        QCOMPARE(store->GetSetting(app_, "Saved Styles", "Heading", "gone"),
                 QStringLiteral("gone"));
        QCOMPARE(store->GetSetting(app_, "Saved Styles", "(New Style)"),
                 QStringLiteral("(New Style)"));
    }

    void allSettingsInTheOrderOfTheNames_data() { addStores(); }
    void allSettingsInTheOrderOfTheNames() {
        QFETCH(StoreMaker, make);
        auto store = make();
        const QString section = QStringLiteral("Recent File List");
        store->SaveSetting(app_, section, "3rdRecentFile", "/c.htm");
        store->SaveSetting(app_, section, "1stRecentFile", "/a.htm");
        store->SaveSetting(app_, section, "4thRecentFile", "/d.htm");
        store->SaveSetting(app_, section, "2ndRecentFile", "/b.htm");
        store->SaveSetting(app_, "Fuzzies", "Font Name", "Arial"); // another section
        const SettingsStore::Pairs expected = {{"1stRecentFile", "/a.htm"},
                                               {"2ndRecentFile", "/b.htm"},
                                               {"3rdRecentFile", "/c.htm"},
                                               {"4thRecentFile", "/d.htm"}};
        QCOMPARE(store->GetAllSettings(app_, section), expected);
        store.reset();
        QCOMPARE(make()->GetAllSettings(app_, section), expected);
    }

    void freeTextNamesAndValues_data() { addStores(); }
    void freeTextNamesAndValues() {
        QFETCH(StoreMaker, make);
        const QStringList keys = {
            "Standard Toolbar Open", "a/b",        "back\\slash",         "50%",
            "%2F literally",         "  padded  ", "semi;colon = equals", "caf\xC3\xA9"};
        const QStringList values = {
            "Yes",           "C:\\web\\site",   "/home/me/my pages/index.htm",
            "a, b",          "  blank ends  ",  "line\nbreak",
            "@at the start", "x;y=z \"quoted\""};
        const QString section = QStringLiteral("Saved Styles/odd section");
        {
            auto store = make();
            for (int i = 0; i < keys.size(); ++i)
                store->SaveSetting(app_, section, keys[i], values[i]);
            for (int i = 0; i < keys.size(); ++i)
                QCOMPARE(store->GetSetting(app_, section, keys[i], "missing"), values[i]);
        }
        // A new instance reads the same back, and the names come back as they were given.
        auto again = make();
        SettingsStore::Pairs expected;
        for (int i = 0; i < keys.size(); ++i) {
            QCOMPARE(again->GetSetting(app_, section, keys[i], "missing"), values[i]);
            expected.append({keys[i], values[i]});
        }
        std::sort(expected.begin(), expected.end());
        QCOMPARE(again->GetAllSettings(app_, section), expected);
        // "a/b" is one key, not a group "a" with a key "b".
        QCOMPARE(again->GetSetting(app_, section + "/a", "b", "missing"),
                 QStringLiteral("missing"));
    }

    void theRealStoreKeepsToTheUsersConfigFolder() {
        {
            QSettingsStore store;
            store.save("Fuzzies", "Font Name", "Arial");
        }
        // The program's own application name, in a file under the user's config folder.
        bool found = false;
        QDirIterator it(config_.path(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            if (file.contains(kAppName)) found = true;
        }
        QVERIFY2(found, qPrintable(QDir(config_.path()).entryList().join(", ")));
        QCOMPARE(QSettingsStore().get("Fuzzies", "Font Name", "Courier New"),
                 QStringLiteral("Arial"));
    }

    void memoryStoreCountsWrites() {
        MemorySettingsStore store;
        QCOMPARE(store.writeCount(), 0);
        store.get("Fuzzies", "Font Name", "x");
        store.GetAllSettings(kAppName, "Fuzzies");
        QCOMPARE(store.writeCount(), 0);
        store.save("Fuzzies", "Font Name", "Arial");
        store.DeleteSetting(kAppName, "Fuzzies", "Font Name");
        QCOMPARE(store.writeCount(), 2);
    }
};

QTEST_GUILESS_MAIN(SettingsStoreTest)
#include "test_settings_store.moc"
