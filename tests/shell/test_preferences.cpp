// The Preferences dialog, the settings store beneath it, and the relative links it turns on.
#include "shell/frm_options.h"
#include "shell/relative_path.h"
#include "shell/settings_store.h"
#include "shell_helpers.h"
#include "test_rows.h"
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <memory>
#include <optional>

using namespace tsl;
using namespace tsl::test;

Q_DECLARE_METATYPE(std::optional<QString>)

namespace {
// Queues a script for the dialog and opens it from the Edit menu.
void preferences(TestShell& ts, std::function<void(frmOptions&)> script) {
    ts.forms.then<frmOptions>(std::move(script));
    ts.run("mnuEditPrefs");
}

// Opens the dialog, presses OK after the given changes.
void okWith(TestShell& ts, std::function<void(frmOptions&)> change) {
    preferences(ts, [&](frmOptions& f) {
        change(f);
        f.OK.press();
        QVERIFY(!f.isLoaded());
    });
}

// What the dialog shows when it opens: font|size|spinner|wrap|auto close|relative|browser|dir.
QString look(TestShell& ts) {
    QString shown;
    preferences(ts, [&](frmOptions& f) {
        shown = QStringList{f.FontFace.Text(),
                            f.Size.Text(),
                            QString::number(f.UpDown1.Value()),
                            QString::number(f.chkWordWrap.Value()),
                            QString::number(f.chkAutoClose.Value()),
                            QString::number(f.chkRelative.Value()),
                            f.Text1.Text(),
                            f.PreviewBox.Text()}
                    .join(u'|');
        f.Cancel.press();
    });
    return shown;
}

// The font, size and right margin of a document's Source pane.
QString paneOf(const codeEditor* doc) {
    return QStringLiteral("%1 %2 %3")
        .arg(doc->codebox().FontName())
        .arg(doc->codebox().FontSize())
        .arg(doc->codebox().RightMargin());
}

// The chosen file's title as the dialog gives it: the text after the last separator.
QString titleOf(const QString& path, QChar separator) {
    return path.mid(path.lastIndexOf(separator) + 1);
}
} // namespace

using StoreMaker = std::function<std::shared_ptr<SettingsStore>()>;
Q_DECLARE_METATYPE(StoreMaker)

class PreferencesTest : public QObject {
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
    void whatTheDialogShows() {
        Loaded ts;
        // The wrap box stands clear while the documents wrap.
        QCOMPARE(look(ts), QStringLiteral("Courier New|9|9|0|1|1|None|"));
        QCOMPARE(ts.forms.shown, QStringList({"frmOptions"}));
        QCOMPARE(paneOf(&ts.active()), QStringLiteral("Courier New 9 0"));
        QCOMPARE(ts.settings.writeCount(), 0);
        preferences(ts, [&](frmOptions& f) {
            QCOMPARE(f.Caption(), QStringLiteral("Preferences"));
            QCOMPARE(f.FontFace.items(), ts.platform.fonts);
            QStringList captions;
            for (const Label* label : std::initializer_list<const Label*>{
                     &f.lblFontFace, &f.lblSize, &f.chkWordWrap, &f.chkAutoClose, &f.lblBrowser,
                     &f.lblDefaultDir, &f.chkRelative, &f.Label1, &f.fraEditor, &f.fraLocations})
                captions.append(label->Caption());
            QCOMPARE(captions.join(u'|'),
                     "Font &Name:|Font &Size:|&Word Wrap|Auto &Close Bracket|Secondary B&rowser:|"
                     "Default Directory:|Calculate Relative Paths|Note: your default browser has "
                     "already been defined by Tessaline, based on your computer's associations for "
                     "htm / html file types.|Editor Settings|File Locations");
            // Digits and backspace pass the size box; anything else is dropped.
            for (const char key : std::string("059\baX/:.- \t")) {
                const bool passes = key == 8 || (key >= '0' && key <= '9');
                int code = key;
                f.Size_KeyPress(code);
                QCOMPARE(code, passes ? int(key) : 0);
                f.Size.setText("12");
                f.Size.typeKey(key);
                QCOMPARE(f.Size.Text(), !passes ? QStringLiteral("12")
                                                : (key == 8 ? QStringLiteral("1")
                                                            : QStringLiteral("12") + QChar(key)));
            }
            f.Cancel.press();
        });
        Loaded stored({"Fuzzies/Font Name=Arial", "Fuzzies/Font Size=12", "Fuzzies/Word Wrap=1",
                       "Fuzzies/Auto Close Tag=No", "Fuzzies/Default Dir=/srv/www",
                       "Fuzzies/Use Relative=No", "Browser/BrowserLoc=/usr/bin/lynx"});
        QCOMPARE(look(stored), QStringLiteral("Arial|12|12|1|0|0|/usr/bin/lynx|/srv/www"));
    }

    // The values set, the keys written, the open documents' margin, what the dialog shows next.
    void okWritesEveryKey_data() {
        columns<QString, QString, int, QString>({"values", "stored", "margin", "shown"});
        QTest::newRow("ticked") << "Arial|14|1|1|1|/usr/bin/lynx|/srv/www"
                                << "Arial|14|1|Yes|Yes|/srv/www|/usr/bin/lynx" << 0
                                << "Arial|14|14|1|1|1|/usr/bin/lynx|/srv/www";
        QTest::newRow("cleared") << "Times New Roman|6|0|0|0|/opt/b/browser|/home/me/my pages"
                                 << "Times New Roman|6|0|No|No|/home/me/my pages|/opt/b/browser"
                                 << 120000
                                 << "Times New Roman|6|6|0|0|0|/opt/b/browser|/home/me/my pages";
        // An empty browser is stored as "None".
        QTest::newRow("no browser") << "Arial|9|1|1|1||"
                                    << "Arial|9|1|Yes|Yes||None" << 0 << "Arial|9|9|1|1|1|None|";
    }
    void okWritesEveryKey() {
        QFETCH(QString, values);
        QFETCH(int, margin);
        const QStringList v = values.split(u'|');
        Loaded ts;
        ts->mnuFileNewCSS_Click();
        ts->mnuFileNewHTML_Click();
        okWith(ts, [&](frmOptions& f) {
            f.FontFace.setText(v.at(0));
            f.Size.setText(v.at(1));
            // Start each box from its other state, so that every value is set on purpose.
            for (auto [box, value] : {std::pair{&f.chkWordWrap, v.at(2).toInt()},
                                      std::pair{&f.chkAutoClose, v.at(3).toInt()},
                                      std::pair{&f.chkRelative, v.at(4).toInt()}}) {
                box->setValue(1 - value);
                box->setValue(value);
            }
            f.Text1.setText(v.at(5));
            f.PreviewBox.setText(v.at(6));
        });
        QStringList stored;
        for (const char* key : {"Font Name", "Font Size", "Word Wrap", "Auto Close Tag",
                                "Use Relative", "Default Dir"})
            stored.append(ts.settings.get("Fuzzies", key));
        stored.append(ts.settings.get("Browser", "BrowserLoc"));
        QTEST(stored.join(u'|'), "stored");
        QCOMPARE(ts.settings.writeCount(), 7);
        QCOMPARE(ts->bAutoCloseTag, v.at(3) == QLatin1String("1"));
        QCOMPARE(ts->bUseRelative, v.at(4) == QLatin1String("1"));
        QCOMPARE(ts->sSecondaryBrowser, v.at(5));
        QCOMPARE(ts->OpenSave.InitDir, v.at(6));
        // Every open document takes the font and the wrap at once.
        QCOMPARE(ts->documents().size(), size_t(3));
        for (const codeEditor* doc : ts->documents())
            QCOMPARE(paneOf(doc), QStringLiteral("%1 %2 %3").arg(v.at(0), v.at(1)).arg(margin));
        QTEST(look(ts), "shown");
    }

    // Typed, stored, the 72 point message?, the open and a new document's size. Nonsense fails
    // unseen, and the statements after it still run.
    void sizeRules_data() {
        columns<QString, QString, bool, double, double>({"typed", "stored", "told", "open", "new"});
        for (auto [t, s, told, open, made] : {std::tuple{"4", "4", false, 4.0, 4.0},
                                              {"72", "72", false, 72.0, 72.0},
                                              {"100", "9", true, 100.0, 9.0},
                                              {"big", "big", false, 9.0, 9.0}})
            QTest::newRow(t) << t << s << told << open << made;
    }
    void sizeRules() {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        QFETCH(bool, told);
        Loaded ts;
        okWith(ts, [&](frmOptions& f) {
            f.Size.setText(typed);
            f.FontFace.setText("Arial");
        });
        QCOMPARE(ts.platform.messages.size(), told ? 1 : 0);
        if (told) {
            const ShownMessage& m = ts.platform.messages[0];
            QCOMPARE(m.text, "An integer higher than 72 was entered. The size has now been "
                             "reduced to 9 points.");
            QVERIFY(m.icon == MsgIcon::Information && m.buttons == MsgButtons::OK);
            QCOMPARE(m.title, QString());
        }
        QCOMPARE(ts.settings.get("Fuzzies", "Font Size"), stored);
        QCOMPARE(ts.settings.get("Fuzzies", "Font Name"), QStringLiteral("Arial"));
        QCOMPARE(ts.active().codebox().FontName(), QStringLiteral("Arial"));
        QTEST(ts.active().codebox().FontSize(), "open");
        ts->mnuFileNewHTML_Click();
        QTEST(ts.active().codebox().FontSize(), "new");
        QCOMPARE(look(ts).section(u'|', 1, 1), stored);
    }

    void relativePathsOffForThisRunOnly() {
        Loaded ts;
        okWith(ts, [](frmOptions& f) { f.chkRelative.setValue(0); });
        QCOMPARE(ts.settings.get("Fuzzies", "Use Relative"), QStringLiteral("No"));
        QVERIFY(!ts->bUseRelative);
        // The next run reads "UseRelative", never written, while the box shows "Use Relative".
        ts.shell = std::make_unique<ShellMDI>(ts.platform, ts.settings, ts.surfaces, ts.forms);
        ts.load();
        QVERIFY(ts->bUseRelative);
        QCOMPARE(ts.settings.get("Fuzzies", "UseRelative", "unwritten"), "unwritten");
        QCOMPARE(look(ts).section(u'|', 5, 5), QStringLiteral("0"));
    }

    void defaultDirSetsTheFileDialogOnlyWhenChanged() {
        Loaded ts({"Fuzzies/Default Dir=/srv/www"});
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/srv/www"));
        // The shared dialog has moved on since (as an Open does).
        ts->OpenSave.InitDir = QStringLiteral("/home/me/elsewhere");
        okWith(ts, [](frmOptions&) {});
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/home/me/elsewhere"));
        okWith(ts, [](frmOptions& f) { f.PreviewBox.setText("/srv/new"); });
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/srv/new"));
        QCOMPARE(ts.settings.get("Fuzzies", "Default Dir"), QStringLiteral("/srv/new"));
    }

    void command2PicksTheDefaultFolder_data() {
        columns<std::optional<QString>, QString>({"chosen", "shown"});
        const QString longPath = QStringLiteral("/") + QString(300, QLatin1Char('d'));
        const QString site = QStringLiteral("/home/me/site");
        QTest::newRow("a folder") << std::optional<QString>(site) << site;
        QTest::newRow("cut at NUL") << std::optional<QString>(site + QChar(0) + "garbage") << site;
        QTest::newRow("at most 260") << std::optional<QString>(longPath) << longPath.left(260);
        QTest::newRow("nothing chosen") << std::optional<QString>() << QStringLiteral("/srv/www");
    }
    void command2PicksTheDefaultFolder() {
        QFETCH(std::optional<QString>, chosen);
        QFETCH(QString, shown);
        Loaded ts({"Fuzzies/Default Dir=/srv/www"});
        ts.platform.folderAnswers.enqueue(chosen);
        QString box;
        okWith(ts, [&](frmOptions& f) {
            f.Command2.press();
            box = f.PreviewBox.Text();
        });
        QCOMPARE(ts.platform.folderTitles, QStringList({"Please select a default folder"}));
        QCOMPARE(box, shown);
        QCOMPARE(ts.settings.get("Fuzzies", "Default Dir"), shown);
    }

    // A browser chosen fills the box and leaves the dialog at the document's folder.
    void command1BrowsesForTheSecondaryBrowser() {
        for (const bool choose : {true, false}) {
            Loaded ts({"Browser/BrowserLoc=/usr/bin/old"});
            ts.active().txtFileName = QStringLiteral("/home/me/site/index.htm");
            ts.active().txtFileTitle = QStringLiteral("index.htm");
            ts->OpenSave.InitDir = QStringLiteral("/srv/www");
            const int writes = ts.settings.writeCount();
            ts.platform.fileAnswers.enqueue(choose ? FileDialogAnswer::file("/usr/bin/lynx")
                                                   : FileDialogAnswer::cancel());
            QString box;
            preferences(ts, [&](frmOptions& f) {
                f.Command1.press();
                box = f.Text1.Text();
                f.Cancel.press();
            });
            QCOMPARE(ts.platform.fileDialogsShown.size(), 1);
            QVERIFY(ts.platform.fileDialogsShown[0].CancelError);
            QCOMPARE(box + ts->OpenSave.InitDir,
                     choose ? "/usr/bin/lynx/home/me/site/" : "/usr/bin/old/srv/www");
            QCOMPARE(ts.settings.writeCount(), writes);
            QVERIFY(ts.platform.messages.isEmpty());
        }
    }

    void cancelWritesNothing() {
        Loaded ts;
        preferences(ts, [](frmOptions& f) {
            f.FontFace.setText("Arial");
            f.Size.setText("100");
            f.chkWordWrap.setValue(1);
            f.chkAutoClose.setValue(0);
            f.chkRelative.setValue(0);
            f.Text1.setText("");
            f.PreviewBox.setText("/elsewhere");
            f.Cancel.press();
            QVERIFY(!f.isLoaded());
        });
        QCOMPARE(ts.settings.writeCount(), 0);
        QVERIFY(ts.platform.messages.isEmpty());
        QVERIFY(ts->bAutoCloseTag && ts->bUseRelative);
        QCOMPARE(ts->OpenSave.InitDir, QString());
        QCOMPARE(paneOf(&ts.active()), QStringLiteral("Courier New 9 0"));
    }

    // "document|chosen|link|up". A network file is another drive unless the document is too; the
    // climb compares one character short of the folder name.
    void links_data() {
        columns<QStringList>({"row"});
        const char* const rows[] = {
            R"(C:\web\site\page.htm|C:\web\site\a.gif|a.gif|0)",
            R"(C:\web\site\page.htm|C:\web\site\img\a.gif|img/a.gif|0)",
            R"(C:\web\site\page.htm|C:\web\a.gif|../a.gif|1)",
            R"(C:\web\site\page.htm|C:\web\img\a.gif|../img/a.gif|1)",
            R"(C:\web\site\page.htm|C:\a.gif|../../a.gif|1)",
            R"(C:\web\site\page.htm|D:\b\a.gif|D:\b\a.gif|0)",
            R"(C:\web\site\page.htm|\\host\share\a.gif|\\host\share\a.gif|0)",
            R"(\\host\web\page.htm|\\host\img\a.gif|a.gif|0)",
            R"(C:\web\site\page.htm|c:\WEB\Site\a.gif|a.gif|0)",
            R"(C:\web\site\page.htm|C:\WEB\site\Img\a.gif|Img/a.gif|0)",
            R"(C:\web\site1\sub\page.htm|C:\web\site2\sub\a.gif|../sub/a.gif|1)",
            R"(C:\w\site\page.htm|C:\x\a.gif|../a.gif|1)",
            "/home/web/site/page.htm|/home/web/a.gif|../a.gif|1",
            "/home/web/site/page.htm|/HOME/Web/SITE/a.gif|a.gif|0",
            "|/home/a.gif|/home/a.gif|0"}; // an untitled document
        for (const char* row : rows)
            QTest::newRow(row) << QString::fromUtf8(row).split(u'|');
    }
    void links() {
        QFETCH(QStringList, row);
        const QChar sep = row.at(1).contains(u'\\') ? u'\\' : u'/';
        const RelativeLink result = relativeLink(row.at(0), titleOf(row.at(0), sep), row.at(1),
                                                 titleOf(row.at(1), sep), sep);
        QCOMPARE(result.link, row.at(2));
        QCOMPARE(result.up, row.at(3) == u'1');
    }

    void aClimbPastTheFolderFails() {
        // The short comparison takes "C:\we" for a parent of "C:\web\site".
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 relativeLink("C:\\web\\site\\page.htm", "page.htm",
                                              "C:\\we\\a.gif", "a.gif", QLatin1Char('\\')));
    }

    // Document|chosen ("" cancel)|relative on?|cancel error|target after|climbs?
    void theRoutineWritesTheLinkIntoTheTarget_data() {
        columns<QStringList>({"row"});
        for (const char* row :
             {"/home/web/site/page.htm|/home/web/img/a.gif|1|1|../img/a.gif|1",
              "/home/web/site/page.htm|/home/web/site/img/a.gif|1|1|img/a.gif|0",
              "/home/web/site/page.htm|/home/web/a.gif|0|1|/home/web/a.gif|0",
              "|/home/web/a.gif|1|1|/home/web/a.gif|0", "/home/web/site/page.htm||1|1|before|0",
              "/home/web/site/page.htm||1|0|before|0", "/web/site/page.htm|/we/a.gif|1|1|before|0"})
            QTest::newRow(row) << QString::fromUtf8(row).split(u'|');
    }
    void theRoutineWritesTheLinkIntoTheTarget() {
        QFETCH(QStringList, row);
        Loaded ts;
        codeEditor& doc = ts.active();
        if (!row.at(0).isEmpty()) {
            doc.codebox().setFileName(row.at(0));
            doc.txtFileTitle = titleOf(row.at(0), u'/');
        }
        ts->txtTemp1 = doc.codebox().FileName();
        ts->bUseRelative = row.at(2) == u'1';
        TextBox target{QStringLiteral("target")};
        target.setText(QStringLiteral("before"));
        CommonDialog dialog{ts.platform};
        dialog.CancelError = row.at(3) == u'1';
        dialog.FileName = QStringLiteral("left over");
        ts.platform.fileAnswers.enqueue(row.at(1).isEmpty() ? FileDialogAnswer::cancel()
                                                            : FileDialogAnswer::file(row.at(1)));
        ts->RelativePath(dialog, target);
        QCOMPARE(target.Text(), row.at(4));
        QCOMPARE(ts->bRelativeUp, row.at(5) == u'1');
        if (row.at(2) == u'1' && row.at(4) != QLatin1String("before"))
            QCOMPARE(ts->txtTemp2, row.at(4));
        // The dialog was shown with an empty name.
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1);
        QCOMPARE(ts.platform.fileDialogsShown[0].FileName, QString());
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void initTestCase() {
        QVERIFY(config_.isValid());
        // Never the real user's settings.
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
        store->SaveSetting(app_, "Saved Styles", "Heading", "Heading");
        store->SaveSetting(app_, "Saved Styles", "(New Style)", "(New Style)");
        store->DeleteSetting(app_, "Saved Styles", "Heading");
        store->DeleteSetting(app_, "Saved Styles", "Heading");
        store->DeleteSetting(app_, "No Section", "No Key");
        QCOMPARE(store->GetAllSettings(app_, "Saved Styles"),
                 SettingsStore::Pairs({{"(New Style)", "(New Style)"}}));
        store.reset(); // a new instance finds the same
        QCOMPARE(make()->GetSetting(app_, "Fuzzies", "Font Size"), QStringLiteral("14"));
        // Free-text names and values, a section's settings in name order.
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
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "test_preferences.moc"
