// The Preferences dialog: what it shows from the store, what OK writes and does to the open
// documents, the 72 point rule, the browse buttons, and the keys that nothing writes.
#include "shell/frm_options.h"
#include "test_shell.h"
#include <QTest>
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

// What the dialog showed when it opened.
struct Shown {
    QString fontFace, size, browser, defaultDir, caption;
    int wordWrap = -1, autoClose = -1, relative = -1, spinner = -1;
    QStringList fonts;
};

Shown look(TestShell& ts) {
    Shown shown;
    preferences(ts, [&](frmOptions& f) {
        shown.fontFace = f.FontFace.Text();
        shown.size = f.Size.Text();
        shown.browser = f.Text1.Text();
        shown.defaultDir = f.PreviewBox.Text();
        shown.caption = f.Caption();
        shown.wordWrap = f.chkWordWrap.Value();
        shown.autoClose = f.chkAutoClose.Value();
        shown.relative = f.chkRelative.Value();
        shown.spinner = f.UpDown1.Value();
        shown.fonts = f.FontFace.items();
        f.Cancel.press();
    });
    return shown;
}

const QString kTooLarge = QStringLiteral(
    "An integer higher than 72 was entered. The size has now been reduced to 9 points.");
} // namespace

class PreferencesTest : public QObject {
    Q_OBJECT

  private slots:
    void emptyStoreDefaults() {
        TestShell ts;
        ts.load();
        const Shown shown = look(ts);
        QCOMPARE(ts.forms.shown, QStringList({"frmOptions"}));
        QCOMPARE(shown.caption, QStringLiteral("Preferences"));
        QCOMPARE(shown.fontFace, QStringLiteral("Courier New"));
        QCOMPARE(shown.size, QStringLiteral("9"));
        QCOMPARE(shown.spinner, 9);
        QCOMPARE(shown.wordWrap, 0);                      // the box stands clear...
        QCOMPARE(ts.active().codebox().RightMargin(), 0); // ...while the document wraps
        QCOMPARE(shown.autoClose, 1);
        QCOMPARE(shown.relative, 1);
        QCOMPARE(shown.browser, QStringLiteral("None"));
        QCOMPARE(shown.defaultDir, QString());
        QCOMPARE(shown.fonts, ts.platform.fonts);
        // A new document wraps too, in the default font.
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().codebox().RightMargin(), 0);
        QCOMPARE(ts.active().codebox().FontName(), QStringLiteral("Courier New"));
        QCOMPARE(ts.active().codebox().FontSize(), 9.0);
        QCOMPARE(ts.settings.writeCount(), 0);
    }

    void spinnerRange() {
        TestShell ts;
        ts.load();
        preferences(ts, [](frmOptions& f) {
            QCOMPARE(f.UpDown1.Min, 6);
            QCOMPARE(f.UpDown1.Max, 72);
            QCOMPARE(f.UpDown1.Increment, 1);
            f.UpDown1.stepUp();
            QCOMPARE(f.Size.Text(), QStringLiteral("10"));
            f.UpDown1.setValue(200);
            QCOMPARE(f.Size.Text(), QStringLiteral("72"));
            f.Cancel.press();
        });
    }

    void storedValuesFillTheBox() {
        TestShell ts;
        ts.settings.save("Fuzzies", "Font Name", "Arial");
        ts.settings.save("Fuzzies", "Font Size", "12");
        ts.settings.save("Fuzzies", "Word Wrap", "1");
        ts.settings.save("Fuzzies", "Auto Close Tag", "No");
        ts.settings.save("Fuzzies", "Default Dir", "/srv/www");
        ts.settings.save("Fuzzies", "Use Relative", "No");
        ts.settings.save("Browser", "BrowserLoc", "/usr/bin/lynx");
        ts.load();
        const Shown shown = look(ts);
        QCOMPARE(shown.fontFace, QStringLiteral("Arial"));
        QCOMPARE(shown.size, QStringLiteral("12"));
        QCOMPARE(shown.spinner, 12);
        QCOMPARE(shown.wordWrap, 1);
        QCOMPARE(shown.autoClose, 0);
        QCOMPARE(shown.relative, 0);
        QCOMPARE(shown.browser, QStringLiteral("/usr/bin/lynx"));
        QCOMPARE(shown.defaultDir, QStringLiteral("/srv/www"));
    }

    void aStoredSizeIsShownAsStored() {
        // Sizes under the spinner's range get through OK; the box shows them again as they are.
        TestShell ts;
        ts.load();
        preferences(ts, [](frmOptions& f) {
            f.Size.setText("4");
            f.OK.press();
        });
        QCOMPARE(ts.settings.get("Fuzzies", "Font Size"), QStringLiteral("4"));
        QCOMPARE(look(ts).size, QStringLiteral("4"));
    }

    void captions() {
        const QStringList expected =
            QStringLiteral(
                "lblFontFace|Font &Name:|lblSize|Font &Size:|chkWordWrap|&Word Wrap|"
                "chkAutoClose|Auto &Close Bracket|lblBrowser|Secondary B&rowser:|"
                "lblDefaultDir|Default Directory:|chkRelative|Calculate Relative Paths|"
                "Label1|Note: your default browser has already been defined by Tessaline, based "
                "on your computer's associations for htm / html file types.|"
                "fraEditor|Editor Settings|fraLocations|File Locations")
                .split(u'|');
        TestShell ts;
        ts.load();
        preferences(ts, [&](frmOptions& f) {
            const QList<Label*> labels = {
                &f.lblFontFace,   &f.lblSize,     &f.chkWordWrap, &f.chkAutoClose, &f.lblBrowser,
                &f.lblDefaultDir, &f.chkRelative, &f.Label1,      &f.fraEditor,    &f.fraLocations};
            QCOMPARE(labels.size() * 2, expected.size());
            for (int i = 0; i < labels.size(); ++i) {
                QCOMPARE(labels.at(i)->name(), expected.at(2 * i));
                QCOMPARE(labels.at(i)->Caption(), expected.at(2 * i + 1));
            }
            f.Cancel.press();
        });
    }

    // Digits and backspace pass the size box; anything else is dropped.
    void sizeKeyPress_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("passes");
        for (int key : {int('0'), int('5'), int('9'), 8})
            QTest::addRow("%d", key) << key << true;
        for (int key : {int('a'), int('X'), int('/'), int(':'), int('.'), int('-'), int(' '), 9})
            QTest::addRow("%d", key) << key << false;
    }
    void sizeKeyPress() {
        QFETCH(int, key);
        QFETCH(bool, passes);
        TestShell ts;
        ts.load();
        preferences(ts, [&](frmOptions& f) {
            int code = key;
            f.Size_KeyPress(code);
            QCOMPARE(code, passes ? key : 0);
            // Typed into the box, the key reaches the text or does not.
            f.Size.setText("12");
            f.Size.typeKey(key);
            const QString expected =
                !passes ? QStringLiteral("12")
                        : (key == 8 ? QStringLiteral("1") : QStringLiteral("12") + QChar(key));
            QCOMPARE(f.Size.Text(), expected);
            f.Cancel.press();
        });
    }

    void okWritesEveryKey_data() {
        QTest::addColumn<QString>("font");
        QTest::addColumn<QString>("size");
        QTest::addColumn<int>("wrap");
        QTest::addColumn<int>("autoClose");
        QTest::addColumn<int>("relative");
        QTest::addColumn<QString>("browser");
        QTest::addColumn<QString>("dir");
        QTest::addColumn<int>("margin");
        QTest::newRow("ticked") << "Arial"
                                << "14" << 1 << 1 << 1 << "/usr/bin/lynx"
                                << "/srv/www" << 0;
        QTest::newRow("cleared") << "Times New Roman"
                                 << "6" << 0 << 0 << 0 << "/opt/b/browser"
                                 << "/home/me/my pages" << 120000;
    }
    void okWritesEveryKey() {
        QFETCH(QString, font);
        QFETCH(QString, size);
        QFETCH(int, wrap);
        QFETCH(int, autoClose);
        QFETCH(int, relative);
        QFETCH(QString, browser);
        QFETCH(QString, dir);
        QFETCH(int, margin);
        TestShell ts;
        ts.load();
        ts->mnuFileNewCSS_Click();
        ts->mnuFileNewHTML_Click();
        preferences(ts, [&](frmOptions& f) {
            f.FontFace.setText(font);
            f.Size.setText(size);
            // Start each box from its other state, so that every value is set on purpose.
            f.chkWordWrap.setValue(1 - wrap);
            f.chkWordWrap.setValue(wrap);
            f.chkAutoClose.setValue(1 - autoClose);
            f.chkAutoClose.setValue(autoClose);
            f.chkRelative.setValue(1 - relative);
            f.chkRelative.setValue(relative);
            f.Text1.setText(browser);
            f.PreviewBox.setText(dir);
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        const auto yesNo = [](int v) { return v ? QStringLiteral("Yes") : QStringLiteral("No"); };
        QCOMPARE(ts.settings.get("Fuzzies", "Font Name"), font);
        QCOMPARE(ts.settings.get("Fuzzies", "Font Size"), size);
        QCOMPARE(ts.settings.get("Fuzzies", "Word Wrap"), QString::number(wrap));
        QCOMPARE(ts.settings.get("Fuzzies", "Auto Close Tag"), yesNo(autoClose));
        QCOMPARE(ts.settings.get("Fuzzies", "Use Relative"), yesNo(relative));
        QCOMPARE(ts.settings.get("Fuzzies", "Default Dir"), dir);
        QCOMPARE(ts.settings.get("Browser", "BrowserLoc"), browser);
        QCOMPARE(ts.settings.writeCount(), 7);
        QCOMPARE(ts->bAutoCloseTag, autoClose == 1);
        QCOMPARE(ts->bUseRelative, relative == 1);
        QCOMPARE(ts->sSecondaryBrowser, browser);
        QCOMPARE(ts->OpenSave.InitDir, dir);
        // Every open document takes the font and the wrap at once.
        QCOMPARE(ts->documents().size(), size_t(3));
        for (codeEditor* doc : ts->documents()) {
            QCOMPARE(doc->codebox().FontName(), font);
            QCOMPARE(doc->codebox().FontSize(), size.toDouble());
            QCOMPARE(doc->codebox().RightMargin(), margin);
        }
        // And the box shows what was stored.
        const Shown shown = look(ts);
        QCOMPARE(shown.fontFace, font);
        QCOMPARE(shown.size, size);
        QCOMPARE(shown.wordWrap, wrap);
        QCOMPARE(shown.autoClose, autoClose);
        QCOMPARE(shown.relative, relative);
        QCOMPARE(shown.browser, browser);
        QCOMPARE(shown.defaultDir, dir);
    }

    void sizeAbove72IsStoredAsNine() {
        TestShell ts;
        ts.load();
        ts->mnuFileNewHTML_Click();
        preferences(ts, [](frmOptions& f) {
            f.Size.setText("100");
            f.OK.press();
        });
        QCOMPARE(ts.platform.messages.size(), 1);
        QCOMPARE(ts.platform.messages[0].text, kTooLarge);
        QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Information);
        QCOMPARE(ts.platform.messages[0].buttons, MsgButtons::OK);
        QCOMPARE(ts.platform.messages[0].title, QString());
        QCOMPARE(ts.settings.get("Fuzzies", "Font Size"), QStringLiteral("9"));
        // The open documents take the size as typed; only new ones get 9.
        for (codeEditor* doc : ts->documents())
            QCOMPARE(doc->codebox().FontSize(), 100.0);
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().codebox().FontSize(), 9.0);
        QCOMPARE(look(ts).size, QStringLiteral("9"));
    }

    void size72IsAllowed() {
        TestShell ts;
        ts.load();
        preferences(ts, [](frmOptions& f) {
            f.Size.setText("72");
            f.OK.press();
        });
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts.settings.get("Fuzzies", "Font Size"), QStringLiteral("72"));
        QCOMPARE(ts.active().codebox().FontSize(), 72.0);
        ts->mnuFileNewHTML_Click();
        QCOMPARE(ts.active().codebox().FontSize(), 72.0);
    }

    void pastedNonsenseSizeFailsUnseen() {
        TestShell ts;
        ts.load();
        preferences(ts, [](frmOptions& f) {
            f.Size.setText("big");
            f.FontFace.setText("Arial");
            f.OK.press();
        });
        QVERIFY(ts.platform.messages.isEmpty());
        // The statements after the failing one still ran.
        QCOMPARE(ts.settings.get("Fuzzies", "Font Name"), QStringLiteral("Arial"));
        QCOMPARE(ts.active().codebox().FontName(), QStringLiteral("Arial"));
        QCOMPARE(ts.active().codebox().FontSize(), 9.0);
    }

    void emptyBrowserStoresNone() {
        TestShell ts;
        ts.load();
        preferences(ts, [](frmOptions& f) {
            f.Text1.setText("");
            f.OK.press();
        });
        QCOMPARE(ts.settings.get("Browser", "BrowserLoc"), QStringLiteral("None"));
        QCOMPARE(ts->sSecondaryBrowser, QString());
        QCOMPARE(look(ts).browser, QStringLiteral("None"));
    }

    void relativePathsOffForThisRunOnly() {
        TestShell ts;
        ts.load();
        QVERIFY(ts->bUseRelative);
        preferences(ts, [](frmOptions& f) {
            QCOMPARE(f.chkRelative.Caption(), QStringLiteral("Calculate Relative Paths"));
            f.chkRelative.setValue(0);
            f.OK.press();
        });
        QCOMPARE(ts.settings.get("Fuzzies", "Use Relative"), QStringLiteral("No"));
        QVERIFY(!ts->bUseRelative);
        // The next run, on the same store, reads "UseRelative" and calculates again...
        ts.shell = std::make_unique<ShellMDI>(ts.platform, ts.settings, ts.surfaces, ts.forms);
        ts.load();
        QVERIFY(ts->bUseRelative);
        QCOMPARE(ts.settings.get("Fuzzies", "UseRelative", "unwritten"),
                 QStringLiteral("unwritten"));
        // ...while the box shows the stored "Use Relative", clear.
        QCOMPARE(look(ts).relative, 0);
    }

    void defaultDirSetsTheFileDialogOnlyWhenChanged() {
        TestShell ts;
        ts.settings.save("Fuzzies", "Default Dir", "/srv/www");
        ts.load();
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/srv/www"));
        // The shared dialog has moved on since (as an Open does).
        ts->OpenSave.InitDir = QStringLiteral("/home/me/elsewhere");
        preferences(ts, [](frmOptions& f) { f.OK.press(); });
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/home/me/elsewhere"));
        QCOMPARE(ts.settings.get("Fuzzies", "Default Dir"), QStringLiteral("/srv/www"));
        preferences(ts, [](frmOptions& f) {
            f.PreviewBox.setText("/srv/new");
            f.OK.press();
        });
        QCOMPARE(ts->OpenSave.InitDir, QStringLiteral("/srv/new"));
        QCOMPARE(ts.settings.get("Fuzzies", "Default Dir"), QStringLiteral("/srv/new"));
    }

    void command2PicksTheDefaultFolder_data() {
        QTest::addColumn<std::optional<QString>>("chosen");
        QTest::addColumn<QString>("shown");
        const QString longPath = QStringLiteral("/") + QString(300, QLatin1Char('d'));
        QTest::newRow("a folder") << std::optional<QString>("/home/me/site")
                                  << QStringLiteral("/home/me/site");
        QTest::newRow("cut at NUL")
            << std::optional<QString>(QStringLiteral("/home/me/site") + QChar(0) + "garbage")
            << QStringLiteral("/home/me/site");
        QTest::newRow("at most 260") << std::optional<QString>(longPath) << longPath.left(260);
        QTest::newRow("nothing chosen") << std::optional<QString>() << QStringLiteral("/srv/www");
    }
    void command2PicksTheDefaultFolder() {
        QFETCH(std::optional<QString>, chosen);
        QFETCH(QString, shown);
        TestShell ts;
        ts.settings.save("Fuzzies", "Default Dir", "/srv/www");
        ts.load();
        ts.platform.folderAnswers.enqueue(chosen);
        QString box;
        preferences(ts, [&](frmOptions& f) {
            f.Command2.press();
            box = f.PreviewBox.Text();
            f.OK.press();
        });
        QCOMPARE(ts.platform.folderTitles, QStringList({"Please select a default folder"}));
        QCOMPARE(box, shown);
        QCOMPARE(ts.settings.get("Fuzzies", "Default Dir"), shown);
    }

    // Browsing for the secondary browser: a file chosen fills the box and leaves the shared
    // dialog at the document's folder; cancelled, nothing changes.
    void command1BrowsesForTheSecondaryBrowser() {
        for (const bool choose : {true, false}) {
            TestShell ts;
            ts.settings.save("Browser", "BrowserLoc", "/usr/bin/old");
            ts.load();
            codeEditor& doc = ts.active();
            doc.txtFileName = QStringLiteral("/home/me/site/index.htm");
            doc.txtFileTitle = QStringLiteral("index.htm");
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
            QCOMPARE(box,
                     choose ? QStringLiteral("/usr/bin/lynx") : QStringLiteral("/usr/bin/old"));
            QCOMPARE(ts->OpenSave.InitDir,
                     choose ? QStringLiteral("/home/me/site/") : QStringLiteral("/srv/www"));
            QCOMPARE(ts.settings.writeCount(), writes);
            QVERIFY(ts.platform.messages.isEmpty());
        }
    }

    void cancelWritesNothing() {
        TestShell ts;
        ts.load();
        const int writes = ts.settings.writeCount();
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
        QCOMPARE(ts.settings.writeCount(), writes);
        QVERIFY(ts.platform.messages.isEmpty());
        QVERIFY(ts->bAutoCloseTag);
        QVERIFY(ts->bUseRelative);
        QCOMPARE(ts->OpenSave.InitDir, QString());
        QCOMPARE(ts.active().codebox().FontName(), QStringLiteral("Courier New"));
        QCOMPARE(ts.active().codebox().FontSize(), 9.0);
        QCOMPARE(ts.active().codebox().RightMargin(), 0);
    }

    void tagsToolbarOpenIsNeverWritten() {
        TestShell ts;
        ts.load();
        preferences(ts, [](frmOptions& f) {
            f.chkWordWrap.setValue(1);
            f.OK.press();
        });
        ts->mnuViewTagList_Click();
        ts->mnuViewTagList_Click();
        ts->MDIForm_QueryUnload();
        const QString unwritten = QStringLiteral("unwritten");
        QCOMPARE(ts.settings.get("Fuzzies", "Tags Toolbar Open", unwritten), unwritten);
        QCOMPARE(ts.settings.get("Fuzzies", "UseRelative", unwritten), unwritten);
        QVERIFY(ts.settings.writeCount() > 0); // the others were written
    }
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "test_preferences.moc"
