// The three views of a document with engine-free surfaces: what each switch does to the text,
// the temporary file, the undo history and the commands, and how the Layout surface's state
// reaches the toolbars.
#include "dialogs/table_chooser.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kPage = QStringLiteral("<html>\n<body>\n<p>x</p>\n</body>\n</html>");

struct Views {
    QTemporaryDir dir;
    TestShell ts;
    codeEditor* doc = nullptr;

    // A shell whose active document is the page, opened from a file of the temporary folder.
    explicit Views(const QString& name = QStringLiteral("page.htm"), const QString& text = kPage) {
        ts.platform.temp = dir.filePath(QStringLiteral("temp"));
        QDir().mkpath(ts.platform.temp);
        ts.load();
        ts.platform.fileAnswers.enqueue(
            FileDialogAnswer::file(writeFile(dir, name, text.toUtf8())));
        ts->mnuFileOpen_Click();
        doc = &ts.active();
    }
    DetachedLayout& layout() { return static_cast<DetachedLayout&>(doc->DHTMLEdit1()); }
    DetachedBrowser& browser() { return static_cast<DetachedBrowser&>(doc->WebBrowser1()); }
    void show(int view) { doc->tabEditor.SelectTab(view); }
    QString folder() const { return dir.path() + QLatin1Char('/'); }
    bool menuOn(const char* name) { return ts->menu(QLatin1String(name)).Enabled(); }
};
} // namespace

class ViewSwitchTest : public QObject {
    Q_OBJECT

  private slots:
    void theTabsAndTheirCaptions() {
        Views v;
        QCOMPARE(v.doc->tabEditor.TabCount(), 3);
        QCOMPARE(v.doc->tabEditor.TabCaption(2), QStringLiteral("  Layout  "));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, v.doc->tabEditor.SelectTab(4));
        try {
            v.doc->tabEditor.SelectTab(0);
        } catch (const RuntimeError& e) {
            QCOMPARE(e.description(), QStringLiteral("TabIndex 0 does not exist"));
        }
    }

    void toLayoutCopiesTheTextAndSetsTheStrips() {
        Views v;
        v.show(2);
        QVERIFY(v.layout().Visible());
        QVERIFY(v.ts->bLayoutActive);
        QCOMPARE(v.layout().DocumentHTML(), kPage);
        QCOMPARE(v.layout().BaseURL(), v.folder());
        QVERIFY(v.doc->cmbStyles.Visible() && v.doc->cmbFonts.Visible());
        QVERIFY(!v.ts->tbrTags.ButtonEnabled(18));
        QVERIFY(!v.ts->tbrMain.ButtonEnabled(22));
        QVERIFY(!v.menuOn("mnuInsertFrames") && !v.menuOn("mnuInsertComment"));
        QVERIFY(v.ts->tbrMain.ButtonVisible(12));
        QCOMPARE(v.ts.platform.messages.size(), 0);
    }

    void showBordersReadsItsSetting_data() {
        columns<QString, bool>({"stored", "on"});
        QTest::newRow("never written") << QString() << true;
        QTest::newRow("No") << QStringLiteral("No") << false;
        QTest::newRow("no") << QStringLiteral("no") << true;
        QTest::newRow("Yes") << QStringLiteral("Yes") << true;
    }
    void showBordersReadsItsSetting() {
        QFETCH(QString, stored);
        QFETCH(bool, on);
        Views v;
        if (!stored.isNull()) v.ts.settings.save(keys::Fuzzies, keys::ShowBorders, stored);
        v.show(2);
        QCOMPARE(v.layout().ShowBorders(), on);
        QCOMPARE(v.doc->tbrTable.ButtonChecked(12), on);
        // The button turns the borders round and remembers the choice.
        v.doc->tbrTable.press(12);
        QCOMPARE(v.layout().ShowBorders(), !on);
        QCOMPARE(v.doc->tbrTable.ButtonChecked(12), !on);
        QCOMPARE(v.ts.settings.get(keys::Fuzzies, keys::ShowBorders),
                 on ? QStringLiteral("No") : QStringLiteral("Yes"));
    }

    void backFromLayoutUneditedKeepsTheTextAndDropsTheHistory() {
        Views v;
        v.doc->codebox().setSelText(QStringLiteral("edit "));
        v.doc->AddStep();
        QVERIFY(v.doc->nDoneIndex > 1);
        v.show(2);
        v.show(1);
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("edit ") + kPage);
        QCOMPARE(v.doc->codebox().SelStart(), v.doc->codebox().Text().indexOf("<body>") + 6);
        QCOMPARE(v.doc->nDoneIndex, 1);
        QCOMPARE(v.doc->nTopIndex, 1);
        QCOMPARE(v.doc->step(1).Text, v.doc->codebox().Text());
        QVERIFY(!v.menuOn("mnuEditUndo") && !v.ts->tbrMain.ButtonEnabled(11));
        QVERIFY(!v.layout().Visible());
        QCOMPARE(v.layout().newDocuments, 1);
        QVERIFY(!v.ts->bLayoutActive);
        QVERIFY(!v.doc->cmbStyles.Visible());
    }

    void anEditedPageComesBackWithoutTheBlanksBeforeTheBodyEnd() {
        Views v;
        v.show(2);
        v.layout().edit(QStringLiteral("<html><body>\n<p>y</p> \n \n</body></html>"));
        v.show(1);
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("<html><body>\n<p>y</p></body></html>"));
        QCOMPARE(v.doc->codebox().SelStart(), 12);
    }

    void aTextWithoutABodyPutsTheCaretOneOn() {
        Views v(QStringLiteral("frag.htm"), QStringLiteral("<p>a</p>"));
        v.show(2);
        v.layout().edit(QStringLiteral("just words"));
        v.show(1);
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("just words"));
        // Both finds fail; the caret goes one on from where the new text left it.
        QCOMPARE(v.doc->codebox().SelStart(), 1);
        // Without a body but with a ">", the second find alone places it.
        v.show(2);
        v.layout().edit(QStringLiteral("<b>no body</b>"));
        v.show(1);
        QCOMPARE(v.doc->codebox().SelStart(), 3);
    }

    void aStyleSheetHasNoLayoutAndNoPreview_data() {
        columns<int, QString>({"view", "message"});
        QTest::newRow("Layout") << 2
                                << QStringLiteral(
                                       "Layout view can not be used with CSS documents.");
        QTest::newRow("Preview") << 3
                                 << QStringLiteral(
                                        "Preview mode can not be used with CSS documents.");
    }
    void aStyleSheetHasNoLayoutAndNoPreview() {
        QFETCH(int, view);
        QFETCH(QString, message);
        Views v(QStringLiteral("site.css"), QStringLiteral("p { color: red }"));
        QCOMPARE(v.doc->CSSDoc, QStringLiteral("Yes"));
        v.show(view);
        QCOMPARE(v.ts.platform.messageTexts(), QStringList{message});
        QCOMPARE(v.ts.platform.messages.first().icon, MsgIcon::Exclamation);
        QCOMPARE(v.doc->SelectedTab, 1);
        QVERIFY(!v.layout().Visible());
        QVERIFY(!v.ts->bLayoutActive);
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("p { color: red }"));
        QVERIFY(v.browser().navigated.isEmpty());
    }

    void previewWritesTheFileBesideTheDocument() {
        Views v;
        v.show(2);
        v.layout().edit(QStringLiteral("<html><body>z \n</body></html>"));
        v.show(3);
        // From Layout straight to Preview the page comes back untrimmed.
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("<html><body>z \n</body></html>"));
        const QString preview = v.folder() + QStringLiteral("~tssln.htm");
        QCOMPARE(readFile(preview), QByteArray("<html><body>z \n</body></html>"));
        QCOMPARE(v.browser().navigated, QStringList{preview});
        QCOMPARE(v.doc->codebox().FileName(), v.folder() + QStringLiteral("page.htm"));
        QVERIFY(!v.ts->bLayoutActive);
        QVERIFY(v.doc->tbrWebBrowser.ButtonEnabled(2));
        // Only printing, previewing and the file commands stay on.
        QVERIFY(!v.menuOn("mnuTagsBold") && !v.menuOn("mnuEditUndo") && !v.menuOn("mnuEditRedo"));
        for (const char* name : {"mnuFilePrint", "mnuFilePreview", "mnuFileSave", "mnuFileSaveas",
                                 "mnuFileSaveAll", "mnuFileClose", "mnuFileCloseAll"})
            QVERIFY2(v.menuOn(name), name);
        for (int button : {3, 5, 14})
            QVERIFY(v.ts->tbrMain.ButtonEnabled(button));

        writeFile(v.dir, QStringLiteral("~tssln2.htm"), "x");
        v.show(1);
        QVERIFY(!QFile::exists(preview));
        QVERIFY(!QFile::exists(v.folder() + QStringLiteral("~tssln2.htm")));
        QVERIFY(v.menuOn("mnuTagsBold"));
    }

    void anUntitledPagePreviewsFromTheTemporaryFolder() {
        Views v;
        v.ts->mnuFileNewHTML_Click();
        codeEditor& untitled = v.ts.active();
        untitled.tabEditor.SelectTab(3);
        const QString preview = v.ts.platform.temp + QStringLiteral("/~tssln.htm");
        QCOMPARE(static_cast<DetachedBrowser&>(untitled.WebBrowser1()).navigated,
                 QStringList{preview});
        untitled.tabEditor.SelectTab(1);
        QVERIFY(QFile::exists(preview)); // files of the temporary folder stay
    }

    void displayChangedBringsTheToolbarsUpToDate_data() {
        columns<int, int, QString, bool>({"command", "status", "target", "expected"});
        const auto row = [](const char* name, int command, int status, const char* target,
                            bool expected) {
            QTest::newRow(name) << command << status << QString::fromLatin1(target) << expected;
        };
        row("bold latched", 5000, 7, "tags.checked:4", true);
        row("bold enabled", 5000, 3, "tags.checked:4", false);
        row("italic latched", 5023, 7, "tags.checked:5", true);
        row("underline latched", 5048, 7, "tags.checked:6", true);
        row("center latched", 5024, 7, "tags.checked:8", true);
        row("right latched", 5026, 7, "tags.checked:9", true);
        row("remove format enabled", 5034, 3, "menu:mnuFormatRemove", true);
        row("remove format latched", 5034, 7, "menu:mnuFormatRemove", false);
        row("insert row", 5021, 3, "table.enabled:2", true);
        row("insert column off", 5020, 1, "table.enabled:3", false);
        row("delete cells", 5005, 3, "table.enabled:5", true);
        row("delete rows", 5007, 3, "table.enabled:6", true);
        row("delete columns", 5006, 3, "table.enabled:7", true);
        row("merge", 5029, 3, "table.enabled:9", true);
        row("split", 5047, 3, "table.enabled:10", true);
        row("ordered list", 5030, 7, "layout.checked:5", true);
        row("unordered list", 5051, 7, "layout.checked:6", true);
        row("undo not disabled", 5049, 0, "menu:mnuEditUndo", true);
        row("undo disabled", 5049, 1, "menu:mnuEditUndo", false);
        row("redo", 5033, 3, "main.enabled:12", true);
        row("cut", 5003, 1, "main.enabled:7", false);
        row("copy", 5002, 7, "menu:mnuEditCopy", true);
        row("paste", 5032, 1, "main.enabled:9", false);
    }
    void displayChangedBringsTheToolbarsUpToDate() {
        QFETCH(int, command);
        QFETCH(int, status);
        QFETCH(QString, target);
        QFETCH(bool, expected);
        Views v;
        v.show(2);
        v.layout().statuses.insert(command, status);
        v.layout().edit(kPage);
        const QString where = target.section(QLatin1Char(':'), 0, 0);
        const QString what = target.section(QLatin1Char(':'), 1);
        bool actual = false;
        if (where == QLatin1String("menu")) actual = v.ts->menu(what).Enabled();
        if (where == QLatin1String("tags.checked"))
            actual = v.ts->tbrTags.ButtonChecked(what.toInt());
        if (where == QLatin1String("table.enabled"))
            actual = v.doc->tbrTable.ButtonEnabled(what.toInt());
        if (where == QLatin1String("layout.checked"))
            actual = v.doc->tbrLayout.ButtonChecked(what.toInt());
        if (where == QLatin1String("main.enabled"))
            actual = v.ts->tbrMain.ButtonEnabled(what.toInt());
        QCOMPARE(actual, expected);
    }

    void underlineIsLeftAloneInsideALink() {
        Views v;
        v.show(2);
        v.ts->tbrTags.setButtonChecked(6, true);
        v.layout().statuses = {{5016, 7}, {5048, 3}};
        v.layout().edit(kPage);
        QVERIFY(v.ts->tbrTags.ButtonChecked(6));
        v.layout().statuses = {{5016, 3}, {5048, 3}};
        v.layout().edit(kPage);
        QVERIFY(!v.ts->tbrTags.ButtonChecked(6));
    }

    void theCombosFollowTheirGetCommands() {
        Views v;
        v.show(2);
        DetachedLayout& layout = v.layout();
        layout.statuses = {{5013, 3}, {5014, 7}, {5011, 11}};
        layout.values = {{5013, QStringLiteral("Arial")}, {5014, QStringLiteral("0")}};
        v.doc->cmbStyles.setEnabled(false);
        v.doc->cmbFonts.setEnabled(false);
        layout.edit(kPage);
        QCOMPARE(v.doc->cmbFonts.Text(), QStringLiteral("Arial"));
        QCOMPARE(v.doc->cmbFontSize.Text(), QString()); // a size below 1 shows nothing
        QVERIFY(v.doc->cmbFontSize.Enabled());
        // A mixed block format clears the styles, enables the fonts, leaves the styles be.
        QCOMPARE(v.doc->cmbStyles.Text(), QString());
        QVERIFY(!v.doc->cmbStyles.Enabled());
        QVERIFY(v.doc->cmbFonts.Enabled());
        layout.statuses = {{5013, 1}};
        layout.edit(kPage);
        QCOMPARE(v.doc->cmbFonts.Text(), QString());
        QVERIFY(!v.doc->cmbFonts.Enabled());
    }

    void anyDisplayChangeMarksTheDocumentDirty() {
        Views v;
        QCOMPARE(v.doc->Tag, QStringLiteral("Clean"));
        v.doc->DHTMLEdit1_DisplayChanged();
        QCOMPARE(v.doc->Tag, QStringLiteral("Dirty"));
    }

    void theStripsSendTheirCommands() {
        Views v;
        v.show(2);
        DetachedLayout& layout = v.layout();
        layout.commands.clear();
        for (int button : {2, 3, 5, 6})
            v.doc->tbrLayout.press(button);
        for (int button : {2, 3, 5, 6, 7, 9, 10})
            v.doc->tbrTable.press(button);
        QList<int> sent;
        for (const DetachedLayout::Command& c : layout.commands) {
            sent.append(c.id);
            QCOMPARE(c.option, 2);
        }
        // The list buttons send each other's command.
        QCOMPARE(sent,
                 (QList<int>{5031, 5018, 5030, 5051, 5021, 5020, 5005, 5007, 5006, 5029, 5047}));
        v.doc->cmbFontSize.setListIndex(2);
        QCOMPARE(layout.commands.last().id, 5045);
        QCOMPARE(layout.commands.last().value, QStringLiteral("3"));
        v.doc->cmbStyles.setListIndex(6);
        QCOMPARE(layout.commands.last().value, QStringLiteral("Heading 1"));
    }

    void theTableStripOpensTheChooserBelowItsOwnButton() {
        Views v;
        v.show(2);
        v.ts->part<TableChooser>().DropDown.ButtonPosition = [](const QString& toolbar, int index) {
            return toolbar == QLatin1String("tbrTable") && index == 0 ? QPoint(3000, 2000)
                                                                      : QPoint();
        };
        v.doc->tbrTable.press(0);
        QVERIFY(v.ts->part<TableChooser>().DropDown.IsShowing());
        QCOMPARE(v.ts->part<TableChooser>().DropDown.left(), 3100);
        QCOMPARE(v.ts->part<TableChooser>().DropDown.top(), 3000);
    }

    void theBrowserStripPassesOverAnEmptyHistory() {
        Views v;
        v.show(3);
        v.doc->tbrWebBrowser.press(0);
        v.doc->tbrWebBrowser.press(3);
        QCOMPARE(v.browser().calls,
                 (QStringList{QStringLiteral("GoBack"), QStringLiteral("Refresh")}));
        QCOMPARE(v.ts.platform.messages.size(), 0);
    }
};

QTEST_MAIN(ViewSwitchTest)
#include "test_view_switch.moc"
