// The settings store's four operations, on the in-memory store and on the per-user one on
// disk, which must keep free-text key names and values and survive a new instance.
#include "shell/settings_store.h"
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <memory>

using namespace tsl;

using StoreMaker = std::function<std::shared_ptr<SettingsStore>()>;
Q_DECLARE_METATYPE(StoreMaker)

class SettingsStoreTest : public QObject {
    Q_OBJECT

    QTemporaryDir config_;
    int appCount_ = 0;
    // Every test gets an application name of its own, so the files on disk do not meet.
    QString app_;
    // The memory store lives as long as the test: "a new instance" of it is the same data.
    std::shared_ptr<MemorySettingsStore> memory_;

    void addStores() {
        QTest::addColumn<StoreMaker>("make");
        QTest::newRow("memory") << StoreMaker([this] { return memory_; });
        QTest::newRow("QSettings") << StoreMaker([] { return std::make_shared<QSettingsStore>(); });
    }

  private slots:
    void initTestCase() {
        QVERIFY(config_.isValid());
        // The store must never touch the real user's settings; set before any QSettings.
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(config_.path()));
    }
    void init() {
        app_ = QStringLiteral("Tessaline Test %1").arg(++appCount_);
        memory_ = std::make_shared<MemorySettingsStore>();
    }

    void theFourOperations_data() { addStores(); }
    void theFourOperations() {
        QFETCH(StoreMaker, make);
        auto store = make();
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Name", "Courier New"), "Courier New");
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Name"), QString());
        QVERIFY(store->GetAllSettings(app_, "Fuzzies").isEmpty());
        store->SaveSetting(app_, "Fuzzies", "Font Size", "12");
        store->SaveSetting(app_, "Fuzzies", "Font Size", "14");
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Size", "9"), QStringLiteral("14"));
        // Sections and applications are apart; an empty value is a value.
        QCOMPARE(store->GetSetting(app_, "Browser", "Font Size", "none"), QStringLiteral("none"));
        QCOMPARE(store->GetSetting(app_ + " other", "Fuzzies", "Font Size", "none"), "none");
        store->SaveSetting(app_, "Fuzzies", "Default Dir", "");
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Default Dir", "unset"), QString());
        // All the settings of a section come in the order of their names.
        const QString section = QStringLiteral("Recent File List");
        for (const char* key : {"3rdRecentFile", "1stRecentFile", "4thRecentFile", "2ndRecentFile"})
            store->SaveSetting(app_, section, key, QStringLiteral("/%1.htm").arg(key[0]));
        const SettingsStore::Pairs expected = {{"1stRecentFile", "/1.htm"},
                                               {"2ndRecentFile", "/2.htm"},
                                               {"3rdRecentFile", "/3.htm"},
                                               {"4thRecentFile", "/4.htm"}};
        QCOMPARE(store->GetAllSettings(app_, section), expected);
        // Deleting takes one key; what is not there does no harm.
        store->SaveSetting(app_, "Saved Styles", "Heading", "Heading");
        store->SaveSetting(app_, "Saved Styles", "(New Style)", "(New Style)");
        store->DeleteSetting(app_, "Saved Styles", "Heading");
        store->DeleteSetting(app_, "Saved Styles", "Heading");
        store->DeleteSetting(app_, "No Section", "No Key");
        QCOMPARE(store->GetAllSettings(app_, "Saved Styles"),
                 SettingsStore::Pairs({{"(New Style)", "(New Style)"}}));
        // A new instance finds the same.
        store.reset();
        store = make();
        QCOMPARE(store->GetSetting(app_, "Saved Styles", "Heading", "gone"),
                 QStringLiteral("gone"));
        QCOMPARE(store->GetSetting(app_, "Saved Styles", "(New Style)"), "(New Style)");
        QCOMPARE(store->GetAllSettings(app_, section), expected);
        QCOMPARE(store->GetSetting(app_, "Fuzzies", "Font Size"), QStringLiteral("14"));
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
        SettingsStore::Pairs expected;
        for (int i = 0; i < keys.size(); ++i) {
            make()->SaveSetting(app_, section, keys[i], values[i]);
            expected.append({keys[i], values[i]});
        }
        // A new instance reads the same back, and the names come back as they were given.
        auto again = make();
        for (int i = 0; i < keys.size(); ++i)
            QCOMPARE(again->GetSetting(app_, section, keys[i], "missing"), values[i]);
        std::sort(expected.begin(), expected.end());
        QCOMPARE(again->GetAllSettings(app_, section), expected);
        // "a/b" is one key, not a group "a" with a key "b".
        QCOMPARE(again->GetSetting(app_, section + "/a", "b", "missing"), "missing");
    }

    // The program's own application name, in a file under the user's config folder.
    void theRealStoreKeepsToTheUsersConfigFolder() {
        QSettingsStore().save("Fuzzies", "Font Name", "Arial");
        bool found = false;
        QDirIterator it(config_.path(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            found = it.next().contains(kAppName) || found;
        QVERIFY(found);
        QCOMPARE(QSettingsStore().get("Fuzzies", "Font Name", "Courier New"), "Arial");
    }

    void memoryStoreCountsWrites() {
        MemorySettingsStore store;
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
