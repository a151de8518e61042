// The command vocabulary: the menu tree item by item, the menu icons, the three toolbars
// button by button, the band strip, and what each toolbar button runs.
#include "editor/text_pane.h"
#include "gadgets/rebar.h"
#include "runtime/runtime_error.h"
#include "test_shell.h"
#include <QSignalSpy>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {

// One menu item as the tree shows it.
struct Row {
    QString name;
    QString caption;
    QString shortcut;
    QString parent;
    bool separator = false;
};

void flatten(const std::vector<MenuNode>& nodes, const QString& parent, QList<Row>& rows) {
    for (const MenuNode& node : nodes) {
        const MenuItem* item = node.item;
        rows.append({item->name(), item->isSeparator() ? QString() : item->Caption(),
                     item->shortcut(), parent, item->isSeparator()});
        flatten(node.children, item->name(), rows);
    }
}

QList<Row> menuRows(const ShellMDI& shell) {
    QList<Row> rows;
    flatten(shell.menuBar(), QString(), rows);
    return rows;
}

// The menu tree of Part 1.5 in display order, submenus right after their item. "*" stands for
// a caption set at run time.
const char* const kMenuTree[][4] = {
    // name, caption ("-" separator), shortcut, parent
    {"mnuFile", "&File", "", ""},
    {"mnuFileNew", "&New", "", "mnuFile"},
    {"mnuFileNewHTML", "&HTML Document", "Ctrl+N", "mnuFileNew"},
    {"mnuFileNewCSS", "&CSS Document", "", "mnuFileNew"},
    {"mnuFileOpen", "&Open...", "Ctrl+O", "mnuFile"},
    {"mnuNet", "Open online &file", "", "mnuFile"},
    {"mnuFileClose", "&Close", "", "mnuFile"},
    {"mnuFileCloseAll", "Close All", "", "mnuFile"},
    {"GoodOlSep", "-", "", "mnuFile"},
    {"mnuFileSave", "&Save", "Ctrl+S", "mnuFile"},
    {"mnuFileSaveas", "Save &As", "", "mnuFile"},
    {"mnuFileSaveAll", "Save All", "", "mnuFile"},
    {"mnuFileSep2", "-", "", "mnuFile"},
    {"mnuFilePrint", "&Print", "Ctrl+P", "mnuFile"},
    {"s", "-", "", "mnuFile"},
    {"mnuFilePreview", "Pre&view in Browser", "", "mnuFile"},
    {"mnuFilePrevDef", "Default Browser", "", "mnuFilePreview"},
    {"mnuFilePrevSec", "Secondary Browser", "", "mnuFilePreview"},
    {"sepa", "-", "", "mnuFile"},
    {"mnuFileMRU(0)", "*", "", "mnuFile"},
    {"mnuFileMRU(1)", "*", "", "mnuFile"},
    {"mnuFileMRU(2)", "*", "", "mnuFile"},
    {"mnuFileMRU(3)", "*", "", "mnuFile"},
    {"mnuFileBar6", "-", "", "mnuFile"},
    {"mnuFileExit", "E&xit", "", "mnuFile"},

    {"mnuEdit", "&Edit", "", ""},
    {"mnuEditUndo", "&Undo", "", "mnuEdit"},
    {"mnuEditRedo", "&Redo", "", "mnuEdit"},
    {"se", "-", "", "mnuEdit"},
    {"mnuEditCut", "&Cut", "", "mnuEdit"},
    {"mnuEditCopy", "C&opy", "", "mnuEdit"},
    {"mnuEditPaste", "&Paste", "", "mnuEdit"},
    {"sep", "-", "", "mnuEdit"},
    {"mnuEditSelectall", "&Select All", "Ctrl+A", "mnuEdit"},
    {"YeOleSeppie", "-", "", "mnuEdit"},
    {"mnuEditFind", "&Find && Replace", "Ctrl+F", "mnuEdit"},
    {"mnuExtFind", "&Extended Replace", "", "mnuEdit"},
    {"mnuEditSep", "-", "", "mnuEdit"},
    {"mnuEditPrefs", "&Preferences", "", "mnuEdit"},

    {"mnuInsert", "&Insert", "", ""},
    {"mnuInsertImage", "&Image", "", "mnuInsert"},
    {"mnuInsertMarquee", "&Marquee", "", "mnuInsert"},
    {"mnuInsertHR", "Horizontal &Line", "", "mnuInsert"},
    {"mnuInsertSep2(0)", "-", "", "mnuInsert"},
    {"mnuInsertAnchor", "&Anchor/Bookmark", "", "mnuInsert"},
    {"mnuInsertHyperlink", "&Hyperlink", "Ctrl+H", "mnuInsert"},
    {"mnuInsertsep1", "-", "", "mnuInsert"},
    {"mnuInsertCSS", "&Style Settings", "", "mnuInsert"},
    {"mnuInsertLink", "L&ink to Style Sheet", "", "mnuInsert"},
    {"mnuInsertSeppar", "-", "", "mnuInsert"},
    {"mnuInsertFormSettings", "&Form", "", "mnuInsert"},
    {"mnuInsertForm", "Form Com&ponent", "", "mnuInsert"},
    {"nsep", "-", "", "mnuInsert"},
    {"mnuInsertFrames", "F&rameset", "", "mnuInsert"},
    {"mnuInsertBullet", "&List", "", "mnuInsert"},
    {"mnuInsertTable", "&Table", "", "mnuInsert"},
    {"fjiawoio", "-", "", "mnuInsert"},
    {"mnuInsertBreak", "&Line Break", "", "mnuInsert"},
    {"mnuInsertParagraph", "&Paragraph", "", "mnuInsert"},
    {"mnuInsertSpace", "&Non-breaking space", "", "mnuInsert"},
    {"mnuInsertSC", "&Special Character", "", "mnuInsert"},
    {"mnuInsertTrade", "Trade Mark symbol", "", "mnuInsertSC"},
    {"mnuInsertCopyright", "Copyright symbol", "", "mnuInsertSC"},
    {"mnuInsertGreater", "> Symbol", "", "mnuInsertSC"},
    {"mnuInsertLess", "< Symbol", "", "mnuInsertSC"},
    {"mnuInsertQuote", "Double quote", "", "mnuInsertSC"},
    {"mnuInsertAmpersand", "Ampersand", "", "mnuInsertSC"},
    {"mnuInsertReg", "Registered Trade Mark symbol", "", "mnuInsertSC"},
    {"mnuInsertSep3", "-", "", "mnuInsert"},
    {"mnuInsertComment", "&Comment", "F12", "mnuInsert"},
    {"mnuEditDate", "&Datestamp", "", "mnuInsert"},
    {"mnuInsertDate1", "*", "", "mnuEditDate"},
    {"mnuInsertDate2", "*", "", "mnuEditDate"},
    {"mnuInsertDate3", "*", "", "mnuEditDate"},
    {"mnuInsertDate4", "*", "", "mnuEditDate"},

    {"mnuTags", "&Format", "", ""},
    {"mnuEditProperties", "Page Properties", "", "mnuTags"},
    {"mnuFormatSep", "-", "", "mnuTags"},
    {"mnuInsertBasefont", "B&ase Font", "", "mnuTags"},
    {"mnuInsertFont", "&Font", "", "mnuTags"},
    {"mnutagssep2", "-", "", "mnuTags"},
    {"mnuTagsBold", "&Bold", "Ctrl+B", "mnuTags"},
    {"mnuTagsItalic", "&Italic", "Ctrl+I", "mnuTags"},
    {"mnuTagsUnderline", "&Underline", "Ctrl+U", "mnuTags"},
    {"mnuTagsStrike", "&Strikethrough", "", "mnuTags"},
    {"mnuSub", "Subscript", "", "mnuTags"},
    {"mnuSup", "Superscript", "", "mnuTags"},
    {"mnuFormatSep2", "-", "", "mnuTags"},
    {"mnuHeadings", "Headings", "", "mnuTags"},
    {"mnuH1", "Heading &1", "", "mnuHeadings"},
    {"mnuH2", "Heading &2", "", "mnuHeadings"},
    {"mnuH3", "Heading &3", "", "mnuHeadings"},
    {"mnuH4", "Heading &4", "", "mnuHeadings"},
    {"mnuH5", "Heading &5", "", "mnuHeadings"},
    {"mnuH6", "Heading &6", "", "mnuHeadings"},
    {"mnuTagsep", "-", "", "mnuTags"},
    {"mnuTagsCenter", "&Center", "Ctrl+E", "mnuTags"},
    {"mnuTagsRight", "&Right", "Ctrl+R", "mnuTags"},
    {"mnuTagsBlock", "Block&quote", "", "mnuTags"},
    {"mnuFormatSep3", "-", "", "mnuTags"},
    {"mnuFormatRemove", "&Remove Formatting", "", "mnuTags"},

    {"mnuView", "&View", "", ""},
    {"mnuViewStdTlb", "&Standard Toolbar", "", "mnuView"},
    {"mnuViewFmtTlb", "&Formatting Toolbar", "", "mnuView"},
    {"mnuViewForms", "Forms &Toolbar", "", "mnuView"},
    {"mnuViewTagList", "&Tag List", "", "mnuView"},

    {"mnuWindow", "&Window", "", ""},
    {"mnuWindowArrange", "&Arrange Icons", "", "mnuWindow"},
    {"mnuWindowTileH", "Tile &Horizontally", "", "mnuWindow"},
    {"mnuWindowTileV", "Tile &Vertically", "", "mnuWindow"},
    {"mnuWindowCascade", "&Cascade", "", "mnuWindow"},

    {"mnuHelp", "&Help", "", ""},
    {"mnuHelpContents", "&Contents", "F1", "mnuHelp"},
    {"mnuHelpSep2", "-", "", "mnuHelp"},
    {"mnuHelpAbout", "&About...", "", "mnuHelp"},
};
constexpr int kMenuTreeSize = static_cast<int>(std::size(kMenuTree));

// The toolbars of Part 1.5: tool tip (empty for a separator), image, style.
struct ButtonRow {
    const char* tip;
    int image;
    int style;
};
constexpr int N = cToolbar::Normal;
constexpr int SEP = cToolbar::Separator;
constexpr int CHK = cToolbar::Check;
constexpr int DD = cToolbar::DropDown;
const ButtonRow kMainButtons[] = {{"New", 0, DD},
                                  {"Open", 1, N},
                                  {"Open On-line File", 2, N},
                                  {"Save", 3, N},
                                  {"", -1, SEP},
                                  {"Print", 4, N},
                                  {"", -1, SEP},
                                  {"Cut", 5, N},
                                  {"Copy", 6, N},
                                  {"Paste", 7, N},
                                  {"", -1, SEP},
                                  {"Undo", 8, N},
                                  {"Redo", 16, N},
                                  {"", -1, SEP},
                                  {"Preview in Browser", 9, DD},
                                  {"", -1, SEP},
                                  {"Show Forms Toolbar", 10, CHK},
                                  {"Show Tag List", 11, CHK},
                                  {"", -1, SEP},
                                  {"Style Settings", 12, N},
                                  {"Link to Style Sheet", 13, N},
                                  {"", -1, SEP},
                                  {"Insert Comment", 14, N},
                                  {"", -1, SEP},
                                  {"Tell the world about Tessaline!", 15, N}};
// Center and Right are check buttons: their state after a press picks the alignment.
const ButtonRow kTagsButtons[] = {{"Heading Tags", 0, N},
                                  {"", -1, SEP},
                                  {"Font Settings", 2, N},
                                  {"", -1, SEP},
                                  {"Bold", 3, N},
                                  {"Italic", 4, N},
                                  {"Underline", 5, N},
                                  {"", -1, SEP},
                                  {"Center", 6, CHK},
                                  {"Right", 7, CHK},
                                  {"", -1, SEP},
                                  {"Page Properties", 8, N},
                                  {"", -1, SEP},
                                  {"Insert Anchor", 9, N},
                                  {"Insert Hyperlink", 10, N},
                                  {"", -1, SEP},
                                  {"Insert Image", 11, N},
                                  {"Insert Marquee", 12, N},
                                  {"Insert List", 13, N},
                                  {"Insert Blockquote", 17, N},
                                  {"", -1, SEP},
                                  {"Insert Table", 14, N},
                                  {"Draw Table", 15, N},
                                  {"", -1, SEP},
                                  {"Insert Paragraph", 16, N}};
const ButtonRow kFormsButtons[] = {{"Insert Form", 0, N},
                                   {"", -1, SEP},
                                   {"Insert Button", 1, N},
                                   {"Insert Checkbox", 2, N},
                                   {"Insert Combo Box", 3, N},
                                   {"Insert Radio Button", 4, N},
                                   {"Insert Text Box", 5, N},
                                   {"Insert Multi-row Text Box", 6, N},
                                   {"", -1, SEP},
                                   {"Insert Image", 7, N},
                                   {"Insert Hidden Field", 8, N}};

cToolbar& toolbarNamed(ShellMDI& shell, const QString& name) {
    if (name == QLatin1String("tbrMain")) return shell.tbrMain;
    if (name == QLatin1String("tbrTags")) return shell.tbrTags;
    return shell.tbrForms;
}

// Replaces a menu item's handler by a counter, to see which handler a button runs.
struct ClickRecorder {
    QStringList clicked;
    void watch(ShellMDI& shell, const QString& name) {
        shell.menu(name).Click = [this, name] { clicked.append(name); };
    }
};

const QString kNotYet = QStringLiteral("This command is not available yet.");

} // namespace

class CommandTableTest : public QObject {
    Q_OBJECT

  private slots:
    // ---- the menu tree ----

    void menuTree_data() {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("shortcut");
        QTest::addColumn<QString>("parent");
        for (int i = 0; i < kMenuTreeSize; ++i) {
            const auto& row = kMenuTree[i];
            QTest::newRow(row[0]) << i << QString::fromUtf8(row[0]) << QString::fromUtf8(row[1])
                                  << QString::fromUtf8(row[2]) << QString::fromUtf8(row[3]);
        }
    }
    void menuTree() {
        QFETCH(int, position);
        QFETCH(QString, name);
        QFETCH(QString, caption);
        QFETCH(QString, shortcut);
        QFETCH(QString, parent);
        TestShell ts;
        const QList<Row> rows = menuRows(*ts);
        QVERIFY(position < rows.size());
        const Row& row = rows.at(position);
        QCOMPARE(row.name, name);
        QCOMPARE(row.parent, parent);
        QCOMPARE(row.separator, caption == QLatin1String("-"));
        if (!row.separator && caption != QLatin1String("*")) QCOMPARE(row.caption, caption);
        QCOMPARE(row.shortcut, shortcut);
        QVERIFY(ts->hasMenu(name));
    }

    void menuTreeHasNothingElse() {
        TestShell ts;
        QCOMPARE(menuRows(*ts).size(), kMenuTreeSize);
    }

    void everyCommandHasAHandler() {
        TestShell ts;
        for (const Row& row : menuRows(*ts)) {
            bool submenu = false;
            for (const Row& other : menuRows(*ts))
                if (other.parent == row.name) submenu = true;
            if (row.separator || submenu) continue;
            QVERIFY2(ts->menu(row.name).Click, qPrintable(row.name));
        }
    }

    void startingStates() {
        TestShell ts;
        const QStringList offAtStart = {"mnuEditUndo", "mnuEditRedo", "mnuFormatRemove"};
        const QStringList checkedAtStart = {"mnuViewStdTlb", "mnuViewFmtTlb"};
        const QStringList hiddenAtStart = {"mnuFileMRU(0)", "mnuFileMRU(1)", "mnuFileMRU(2)",
                                           "mnuFileMRU(3)", "mnuFileBar6"};
        for (const Row& row : menuRows(*ts)) {
            const MenuItem& item = ts->menu(row.name);
            QVERIFY2(item.Enabled() != offAtStart.contains(row.name), qPrintable(row.name));
            QVERIFY2(item.Checked() == checkedAtStart.contains(row.name), qPrintable(row.name));
            QVERIFY2(item.Visible() != hiddenAtStart.contains(row.name), qPrintable(row.name));
        }
    }

    void theLoadShowsShortcutTextBehindATab() {
        TestShell ts;
        ts.load();
        const std::pair<const char*, const char*> captions[] = {
            {"mnuEditUndo", "&Undo\tCtrl+Z"},
            {"mnuEditCut", "&Cut\tCtrl+X"},
            {"mnuEditCopy", "C&opy\tCtrl+C"},
            {"mnuEditPaste", "&Paste\tCtrl+V"},
            {"mnuInsertBreak", "&Line Break\tCtrl+Enter"},
            {"mnuInsertParagraph", "&Paragraph\tCtrl+Shift+P"},
            {"mnuInsertSpace", "&Non-breaking Space\tCtrl+Shift+Space"},
        };
        for (const auto& [name, caption] : captions) {
            QCOMPARE(ts->menu(name).Caption(), QString::fromUtf8(caption));
            // Only for show: the Source pane handles these keys.
            QVERIFY(ts->menu(name).shortcut().isEmpty());
        }
    }

    // ---- date captions ----

    void dateCaptionsFollowTheClockEachTimeTheInsertMenuOpens() {
        TestShell ts;
        ts.load();
        for (int i = 1; i <= 4; ++i)
            QCOMPARE(ts->menu(QStringLiteral("mnuInsertDate%1").arg(i)).Caption(), ts->dateText(i));
        QVERIFY(ts->menu("mnuInsertDate2").Caption().endsWith(QStringLiteral(" 10:30:00")));
        ts.platform.clock = ts.platform.clock.addSecs(3725);
        QVERIFY(ts->dispatch(ts->menu("mnuInsert").Click));
        QVERIFY(ts->menu("mnuInsertDate2").Caption().endsWith(QStringLiteral(" 11:32:05")));
        QVERIFY(ts->menu("mnuInsertDate4").Caption().endsWith(QStringLiteral(" 11:32:05")));
        QCOMPARE(ts->menu("mnuInsertDate3").Caption(),
                 QLocale::system().toString(ts.platform.clock.date(), QStringLiteral("dd/MM/yy")));
    }

    void theFirstDateItemsStateGoesToAllFour() {
        TestShell ts;
        ts.load();
        ts->menu("mnuInsertDate1").setEnabled(false);
        ts->menu("mnuInsertDate3").setEnabled(true);
        ts->mnuInsert_Click();
        for (int i = 1; i <= 4; ++i)
            QVERIFY(!ts->menu(QStringLiteral("mnuInsertDate%1").arg(i)).Enabled());
    }

    // ---- menu icons ----

    void menuIcons_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("item");
        const char* const pairs[][2] = {{"New", "mnuFileNew"},
                                        {"Open", "mnuFileOpen"},
                                        {"Save", "mnuFileSave"},
                                        {"Print", "mnuFilePrint"},
                                        {"Undo", "mnuEditUndo"},
                                        {"Redo", "mnuEditRedo"},
                                        {"Cut", "mnuEditCut"},
                                        {"Copy", "mnuEditCopy"},
                                        {"Paste", "mnuEditPaste"},
                                        {"Find", "mnuEditFind"},
                                        {"Hyperlink", "mnuInsertHyperlink"},
                                        {"Style", "mnuInsertCSS"},
                                        {"LinkToCSS", "mnuInsertLink"},
                                        {"Anchor", "mnuInsertAnchor"},
                                        {"Table", "mnuInsertTable"},
                                        {"Image", "mnuInsertImage"},
                                        {"Marquee", "mnuInsertMarquee"},
                                        {"Paragraph", "mnuInsertParagraph"},
                                        {"Form", "mnuInsertFormSettings"},
                                        {"Comment", "mnuInsertComment"},
                                        {"Font", "mnuInsertFont"},
                                        {"Bold", "mnuTagsBold"},
                                        {"Italic", "mnuTagsItalic"},
                                        {"Underline", "mnuTagsUnderline"},
                                        {"Heading", "mnuHeadings"},
                                        {"Help", "mnuHelpContents"}};
        for (const auto& pair : pairs)
            QTest::newRow(pair[1]) << QString::fromUtf8(pair[0]) << QString::fromUtf8(pair[1]);
    }
    void menuIcons() {
        QFETCH(QString, key);
        QFETCH(QString, item);
        TestShell ts;
        QCOMPARE(ts->menu(item).iconKey(), key);
    }

    void theIconPairsComeInTheirOrderAndNoOtherItemHasOne() {
        TestShell ts;
        const auto& pairs = ShellMDI::MenuIconPairs();
        QCOMPARE(int(pairs.size()), 26);
        QCOMPARE(pairs.front().first, QStringLiteral("New"));
        QCOMPARE(pairs.at(12).first, QStringLiteral("LinkToCSS"));
        QCOMPARE(pairs.back().first, QStringLiteral("Help"));
        int withIcon = 0;
        for (const Row& row : menuRows(*ts))
            if (!ts->menu(row.name).iconKey().isEmpty()) ++withIcon;
        QCOMPARE(withIcon, 26);
    }

    // ---- the toolbars ----

    void toolbarButtons_data() {
        QTest::addColumn<QString>("toolbar");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<int>("image");
        QTest::addColumn<int>("style");
        const auto add = [](const char* toolbar, const ButtonRow* rows, int count) {
            for (int i = 0; i < count; ++i)
                QTest::addRow("%s %d", toolbar, i)
                    << QString::fromUtf8(toolbar) << i << QString::fromUtf8(rows[i].tip)
                    << rows[i].image << rows[i].style;
        };
        add("tbrMain", kMainButtons, int(std::size(kMainButtons)));
        add("tbrTags", kTagsButtons, int(std::size(kTagsButtons)));
        add("tbrForms", kFormsButtons, int(std::size(kFormsButtons)));
    }
    void toolbarButtons() {
        QFETCH(QString, toolbar);
        QFETCH(int, index);
        QFETCH(QString, tip);
        QFETCH(int, image);
        QFETCH(int, style);
        TestShell ts;
        const cToolbar::Button& b = toolbarNamed(*ts, toolbar).button(index);
        QCOMPARE(b.toolTip, tip);
        QCOMPARE(b.image, image);
        QCOMPARE(b.style, style);
    }

    void toolbarStripsAndSizes() {
        TestShell ts;
        QCOMPARE(ts->tbrMain.ButtonCount(), int(std::size(kMainButtons)));
        QCOMPARE(ts->tbrTags.ButtonCount(), int(std::size(kTagsButtons)));
        QCOMPARE(ts->tbrForms.ButtonCount(), int(std::size(kFormsButtons)));
        QCOMPARE(ts->tbrMain.ImageFile, QStringLiteral("resources/toolbar1.tbr"));
        QCOMPARE(ts->tbrTags.ImageFile, QStringLiteral("resources/toolbar2.tbr"));
        QCOMPARE(ts->tbrForms.ImageFile, QStringLiteral("resources/toolbar3.tbr"));
        for (cToolbar* bar : {&ts->tbrMain, &ts->tbrTags, &ts->tbrForms})
            QCOMPARE(bar->imageSize(), 16);
    }

    // ---- the band strip ----

    void theBandsHoldTheToolbarsInOrder() {
        TestShell ts;
        const cReBar& bands = ts->cReBar1;
        QVERIFY(bands.created());
        QCOMPARE(bands.BandCount(), 3);
        QCOMPARE(bands.BandKey(0), QStringLiteral("Toolbar1"));
        QCOMPARE(bands.BandKey(1), QStringLiteral("Toolbar2"));
        QCOMPARE(bands.BandKey(2), QStringLiteral("Toolbar3"));
        QCOMPARE(bands.BandChild(0), &ts->tbrMain);
        QCOMPARE(bands.BandChild(1), &ts->tbrTags);
        QCOMPARE(bands.BandChild(2), &ts->tbrForms);
        QCOMPARE(bands.BandIndexForKey(QStringLiteral("Toolbar3")), 2);
        QCOMPARE(bands.BandIndexForKey(QStringLiteral("Toolbar9")), -1);
    }

    void aBandStripBeforeItExistsFails() {
        cReBar strip(QStringLiteral("cReBar1"));
        cToolbar bar(QStringLiteral("tbrMain"));
        try {
            strip.AddBandByHwnd(&bar, QString(), QStringLiteral("Toolbar1"));
            QFAIL("a band was added before the strip existed");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.description(), QStringLiteral("No hWndRebar!"));
        }
        QVERIFY_THROWS_EXCEPTION(RuntimeError, strip.setBandVisible(0, false));
        strip.CreateRebar();
        QCOMPARE(strip.AddBandByHwnd(&bar, QString(), QStringLiteral("Toolbar1")), 0);
        try {
            strip.BandVisible(1);
            QFAIL("a band that is not there answered");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.number(), int(ErrSubscriptOutOfRange));
        }
    }

    void aBandTellsWhenItIsShownOrHidden() {
        cReBar strip(QStringLiteral("cReBar1"));
        cToolbar one(QStringLiteral("one")), two(QStringLiteral("two"));
        strip.CreateRebar();
        strip.AddBandByHwnd(&one, QString(), QStringLiteral("Toolbar1"));
        strip.AddBandByHwnd(&two, QString(), QStringLiteral("Toolbar2"));
        QVERIFY(strip.BandVisible(0) && strip.BandVisible(1));
        QSignalSpy changed(&strip, &Control::changed);
        QSignalSpy band(&strip, &cReBar::bandVisibleChanged);
        strip.setBandVisible(1, false);
        strip.setBandVisible(1, false); // no change, no signal
        QCOMPARE(changed.count(), 1);
        QCOMPARE(band.count(), 1);
        QCOMPARE(band.at(0).at(0).toInt(), 1);
        QCOMPARE(band.at(0).at(1).toBool(), false);
        QVERIFY(strip.BandVisible(0));
        QVERIFY(!strip.BandVisible(1));
    }

    // ---- what the buttons run ----

    void mainButtonsRunTheirMenuCommands_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("item");
        QTest::newRow("2 open on-line file") << 2 << "mnuNet";
        QTest::newRow("5 print") << 5 << "mnuFilePrint";
        QTest::newRow("14 preview") << 14 << "mnuFilePrevDef";
        QTest::newRow("19 style settings") << 19 << "mnuInsertCSS";
        QTest::newRow("20 link to style sheet") << 20 << "mnuInsertLink";
    }
    void mainButtonsRunTheirMenuCommands() {
        QFETCH(int, index);
        QFETCH(QString, item);
        TestShell ts;
        ts.load();
        ClickRecorder recorder;
        for (const char* name :
             {"mnuNet", "mnuFilePrint", "mnuFilePrevDef", "mnuInsertCSS", "mnuInsertLink"})
            recorder.watch(*ts, QString::fromUtf8(name));
        ts->tbrMain.press(index);
        QCOMPARE(recorder.clicked, QStringList{item});
    }

    void newAndItsArrow() {
        TestShell ts;
        ts.load();
        QSignalSpy popups(ts.shell.get(), &ShellMDI::popupMenuRequested);
        ts->tbrMain.press(0);
        QCOMPARE(ts->documents().size(), size_t(2));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 2"));
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("No"));
        QCOMPARE(popups.count(), 0);
        ts->tbrMain.pressArrow(0);
        ts->tbrMain.pressArrow(14);
        QCOMPARE(popups.count(), 2);
        QCOMPARE(popups.at(0).at(0).toString(), QStringLiteral("mnuFileNew"));
        QCOMPARE(popups.at(1).at(0).toString(), QStringLiteral("mnuFilePreview"));
        ts->tbrMain.pressArrow(1); // no arrow
        QCOMPARE(popups.count(), 2);
    }

    void openSaveAndTheEditButtons() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->tbrMain.press(1);
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1);
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(6);
        ts->tbrMain_ButtonClick(8); // Copy
        QCOMPARE(ts.platform.clipboard, QStringLiteral("<html>"));
        ts->tbrMain_ButtonClick(22); // comment
        QVERIFY(doc.codebox().Text().startsWith(QStringLiteral("<!-- <html> -->")));
        ts->tbrMain_ButtonClick(11); // undo
        QVERIFY(doc.codebox().Text().startsWith(QStringLiteral("<html>\n")));
        ts->tbrMain_ButtonClick(12); // redo
        QVERIFY(doc.codebox().Text().startsWith(QStringLiteral("<!-- <html> -->")));
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void separatorsDoNothing() {
        TestShell ts;
        ts.load();
        const QString before = ts.active().codebox().Text();
        for (int i : {4, 6, 10, 13, 15, 18, 21, 23})
            ts->tbrMain_ButtonClick(i);
        for (int i : {1, 3, 7, 10, 12, 15, 20, 23})
            ts->tbrTags_ButtonClick(i);
        for (int i : {1, 8})
            ts->tbrForms_ButtonClick(i);
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->documents().size(), size_t(1));
    }

    void tagsButtonsInSourceView_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("item");
        QTest::newRow("2 font") << 2 << "mnuInsertFont";
        QTest::newRow("11 page properties") << 11 << "mnuEditProperties";
        QTest::newRow("13 anchor") << 13 << "mnuInsertAnchor";
        QTest::newRow("14 hyperlink") << 14 << "mnuInsertHyperlink";
        QTest::newRow("16 image") << 16 << "mnuInsertImage";
        QTest::newRow("17 marquee") << 17 << "mnuInsertMarquee";
        QTest::newRow("18 list") << 18 << "mnuInsertBullet";
    }
    void tagsButtonsInSourceView() {
        QFETCH(int, index);
        QFETCH(QString, item);
        TestShell ts;
        ts.load();
        ClickRecorder recorder;
        for (const char* name :
             {"mnuInsertFont", "mnuEditProperties", "mnuInsertAnchor", "mnuInsertHyperlink",
              "mnuInsertImage", "mnuInsertMarquee", "mnuInsertBullet"})
            recorder.watch(*ts, QString::fromUtf8(name));
        ts->tbrTags.press(index);
        QCOMPARE(recorder.clicked, QStringList{item});
    }

    void tagsWrappersInSourceView_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("wrapped");
        QTest::newRow("4 bold") << 4 << "<b>word</b>";
        QTest::newRow("5 italic") << 5 << "<i>word</i>";
        QTest::newRow("6 underline") << 6 << "<u>word</u>";
        QTest::newRow("8 center") << 8 << "<center>word</center>";
        QTest::newRow("19 blockquote") << 19 << "<blockquote>word</blockquote>";
    }
    void tagsWrappersInSourceView() {
        QFETCH(int, index);
        QFETCH(QString, wrapped);
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setText(QStringLiteral("word"));
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(4);
        ts->tbrTags_ButtonClick(index);
        QCOMPARE(doc.codebox().Text(), wrapped);
    }

    void rightDoesNothingInSourceView() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setText(QStringLiteral("word"));
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(4);
        ClickRecorder recorder;
        recorder.watch(*ts, QStringLiteral("mnuTagsRight"));
        ts->tbrTags.press(9);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("word"));
        QVERIFY(recorder.clicked.isEmpty());
        QVERIFY(ts.platform.messages.isEmpty());
        // While the menu item does wrap.
        ts->mnuTagsRight_Click();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p align=\"right\">word</p>"));
    }

    void headingsAndParagraphInSourceView() {
        TestShell ts;
        ts.load();
        QSignalSpy popups(ts.shell.get(), &ShellMDI::popupMenuRequested);
        ts->tbrTags.press(0);
        QCOMPARE(popups.count(), 1);
        QCOMPARE(popups.at(0).at(0).toString(), QStringLiteral("mnuHeadings"));
        codeEditor& doc = ts.active();
        doc.codebox().setText(QStringLiteral("word"));
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(4);
        ts->tbrTags.press(24);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>word"));
    }

    void tagsButtonsInLayoutView_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("command");
        QTest::newRow("4 bold") << 4 << int(layoutcmd::Bold);
        QTest::newRow("5 italic") << 5 << int(layoutcmd::Italic);
        QTest::newRow("6 underline") << 6 << int(layoutcmd::Underline);
    }
    void tagsButtonsInLayoutView() {
        QFETCH(int, index);
        QFETCH(int, command);
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        const QString before = ts.active().codebox().Text();
        ts->tbrTags.press(index);
        const auto& commands = static_cast<DetachedLayout&>(ts.active().DHTMLEdit1()).commands;
        QCOMPARE(commands.size(), 1);
        QCOMPARE(commands.at(0).id, command);
        QCOMPARE(ts.active().codebox().Text(), before);
    }

    void fontSettingsInLayoutViewOpensTheSurfacesDialog() {
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        ClickRecorder recorder;
        recorder.watch(*ts, QStringLiteral("mnuInsertFont"));
        ts->tbrTags.press(2);
        auto& layout = static_cast<DetachedLayout&>(ts.active().DHTMLEdit1());
        QCOMPARE(layout.commands.size(), 1);
        QCOMPARE(layout.commands.at(0).id, int(layoutcmd::FontDialog));
        QCOMPARE(layout.focusCount, 1);
        QVERIFY(recorder.clicked.isEmpty());
    }

    void centerAndRightPickByTheirPressedState_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("on");
        QTest::newRow("8 center") << 8 << int(layoutcmd::JustifyCenter);
        QTest::newRow("9 right") << 9 << int(layoutcmd::JustifyRight);
    }
    void centerAndRightPickByTheirPressedState() {
        QFETCH(int, index);
        QFETCH(int, on);
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        auto& layout = static_cast<DetachedLayout&>(ts.active().DHTMLEdit1());
        // A press turns the button on: the alignment goes on.
        ts->tbrTags.press(index);
        QVERIFY(ts->tbrTags.ButtonChecked(index));
        // The next turns it off: back to the left.
        ts->tbrTags.press(index);
        QVERIFY(!ts->tbrTags.ButtonChecked(index));
        // The handler alone reads the state as it stands.
        ts->tbrTags.setButtonChecked(index, true);
        ts->tbrTags_ButtonClick(index);
        QCOMPARE(layout.commands.size(), 3);
        QCOMPARE(layout.commands.at(0).id, on);
        QCOMPARE(layout.commands.at(1).id, int(layoutcmd::JustifyLeft));
        QCOMPARE(layout.commands.at(2).id, on);
    }

    void formsButtons() {
        TestShell ts;
        ts.load();
        ClickRecorder recorder;
        recorder.watch(*ts, QStringLiteral("mnuInsertFormSettings"));
        ts->tbrForms.press(0);
        QCOMPARE(recorder.clicked, QStringList{QStringLiteral("mnuInsertFormSettings")});
        const QStringList kinds = {QString(),
                                   QString(),
                                   QStringLiteral("Button"),
                                   QStringLiteral("Check Box"),
                                   QStringLiteral("List"),
                                   QStringLiteral("Radio Button"),
                                   QStringLiteral("Text Box"),
                                   QStringLiteral("Multi-row Text Box"),
                                   QString(),
                                   QStringLiteral("Image"),
                                   QStringLiteral("Hidden Field")};
        for (int i = 0; i < kinds.size(); ++i)
            QCOMPARE(ShellMDI::FormsButtonKind(i), kinds.at(i));
        QVERIFY(ShellMDI::FormsButtonKind(11).isEmpty());
        // The form component dialog arrives with its Part.
        ts->tbrForms.press(10);
        QCOMPARE(ts.platform.messageTexts(), QStringList{kNotYet});
    }

    void theBadgeButton() {
        TestShell ts;
        ts.load();
        ts->tbrMain.press(24);
        QVERIFY(
            ts.active().codebox().Text().contains(QStringLiteral("\n") + ShellMDI::kBadgeMarkup));
    }
};

QTEST_GUILESS_MAIN(CommandTableTest)
#include "test_command_table.moc"
