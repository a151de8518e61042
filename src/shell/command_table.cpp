// The menu tree of the main window, as data. Each subsystem binds the handlers of its own
// items by name; commands whose work is not built yet say so instead of failing.
#include "shell/shell_mdi.h"

namespace tsl {

namespace {
enum RowFlag { Hidden = 1, Off = 2, Checked = 4, Literal = 8 };

// One item of the menu tree: its depth (0 for the menu bar), name, caption ("-" a separator,
// empty one set at run time), shortcut and starting state. A row followed by deeper rows is a
// submenu.
struct MenuRow {
    int depth;
    const char* name;
    const char* caption;
    const char* shortcut = "";
    int flags = 0;
};

// clang-format off
const MenuRow kMenuTree[] = {
    {0, "mnuFile", "&File"},
    {1, "mnuFileNew", "&New"},
    {2, "mnuFileNewHTML", "&HTML Document", "Ctrl+N"},
    {2, "mnuFileNewCSS", "&CSS Document"},
    {1, "mnuFileOpen", "&Open...", "Ctrl+O"},
    {1, "mnuNet", "Open online &file"},
    {1, "mnuFileClose", "&Close"},
    {1, "mnuFileCloseAll", "Close All"},
    {1, "GoodOlSep", "-"},
    {1, "mnuFileSave", "&Save", "Ctrl+S"},
    {1, "mnuFileSaveas", "Save &As"},
    {1, "mnuFileSaveAll", "Save All"},
    {1, "mnuFileSep2", "-"},
    {1, "mnuFilePrint", "&Print", "Ctrl+P"},
    {1, "s", "-"},
    {1, "mnuFilePreview", "Pre&view in Browser"},
    {2, "mnuFilePrevDef", "Default Browser"},
    {2, "mnuFilePrevSec", "Secondary Browser"},
    {1, "sepa", "-"},
    {1, "mnuFileMRU(0)", "", "", Hidden | Literal},
    {1, "mnuFileMRU(1)", "", "", Hidden | Literal},
    {1, "mnuFileMRU(2)", "", "", Hidden | Literal},
    {1, "mnuFileMRU(3)", "", "", Hidden | Literal},
    {1, "mnuFileBar6", "-", "", Hidden},
    {1, "mnuFileExit", "E&xit"},
    {0, "mnuEdit", "&Edit"},
    {1, "mnuEditUndo", "&Undo", "", Off},
    {1, "mnuEditRedo", "&Redo", "", Off},
    {1, "se", "-"},
    {1, "mnuEditCut", "&Cut"},
    {1, "mnuEditCopy", "C&opy"},
    {1, "mnuEditPaste", "&Paste"},
    {1, "sep", "-"},
    {1, "mnuEditSelectall", "&Select All", "Ctrl+A"},
    {1, "YeOleSeppie", "-"},
    {1, "mnuEditFind", "&Find && Replace", "Ctrl+F"},
    {1, "mnuExtFind", "&Extended Replace"},
    {1, "mnuEditSep", "-"},
    {1, "mnuEditPrefs", "&Preferences"},
    {0, "mnuInsert", "&Insert"},
    {1, "mnuInsertImage", "&Image"},
    {1, "mnuInsertMarquee", "&Marquee"},
    {1, "mnuInsertHR", "Horizontal &Line"},
    {1, "mnuInsertSep2(0)", "-"},
    {1, "mnuInsertAnchor", "&Anchor/Bookmark"},
    {1, "mnuInsertHyperlink", "&Hyperlink", "Ctrl+H"},
    {1, "mnuInsertsep1", "-"},
    {1, "mnuInsertCSS", "&Style Settings"},
    {1, "mnuInsertLink", "L&ink to Style Sheet"},
    {1, "mnuInsertSeppar", "-"},
    {1, "mnuInsertFormSettings", "&Form"},
    {1, "mnuInsertForm", "Form Com&ponent"},
    {1, "nsep", "-"},
    {1, "mnuInsertFrames", "F&rameset"},
    {1, "mnuInsertBullet", "&List"},
    {1, "mnuInsertTable", "&Table"},
    {1, "fjiawoio", "-"},
    {1, "mnuInsertBreak", "&Line Break"},
    {1, "mnuInsertParagraph", "&Paragraph"},
    {1, "mnuInsertSpace", "&Non-breaking space"},
    {1, "mnuInsertSC", "&Special Character"},
    {2, "mnuInsertTrade", "Trade Mark symbol"},
    {2, "mnuInsertCopyright", "Copyright symbol"},
    {2, "mnuInsertGreater", "> Symbol"},
    {2, "mnuInsertLess", "< Symbol"},
    {2, "mnuInsertQuote", "Double quote"},
    {2, "mnuInsertAmpersand", "Ampersand"},
    {2, "mnuInsertReg", "Registered Trade Mark symbol"},
    {1, "mnuInsertSep3", "-"},
    {1, "mnuInsertComment", "&Comment", "F12"},
    {1, "mnuEditDate", "&Datestamp"},
    {2, "mnuInsertDate1", ""},
    {2, "mnuInsertDate2", ""},
    {2, "mnuInsertDate3", ""},
    {2, "mnuInsertDate4", ""},
    {0, "mnuTags", "&Format"},
    {1, "mnuEditProperties", "Page Properties"},
    {1, "mnuFormatSep", "-"},
    {1, "mnuInsertBasefont", "B&ase Font"},
    {1, "mnuInsertFont", "&Font"},
    {1, "mnutagssep2", "-"},
    {1, "mnuTagsBold", "&Bold", "Ctrl+B"},
    {1, "mnuTagsItalic", "&Italic", "Ctrl+I"},
    {1, "mnuTagsUnderline", "&Underline", "Ctrl+U"},
    {1, "mnuTagsStrike", "&Strikethrough"},
    {1, "mnuSub", "Subscript"},
    {1, "mnuSup", "Superscript"},
    {1, "mnuFormatSep2", "-"},
    {1, "mnuHeadings", "Headings"},
    {2, "mnuH1", "Heading &1"},
    {2, "mnuH2", "Heading &2"},
    {2, "mnuH3", "Heading &3"},
    {2, "mnuH4", "Heading &4"},
    {2, "mnuH5", "Heading &5"},
    {2, "mnuH6", "Heading &6"},
    {1, "mnuTagsep", "-"},
    {1, "mnuTagsCenter", "&Center", "Ctrl+E"},
    {1, "mnuTagsRight", "&Right", "Ctrl+R"},
    {1, "mnuTagsBlock", "Block&quote"},
    {1, "mnuFormatSep3", "-"},
    {1, "mnuFormatRemove", "&Remove Formatting", "", Off},
    {0, "mnuView", "&View"},
    {1, "mnuViewStdTlb", "&Standard Toolbar", "", Checked},
    {1, "mnuViewFmtTlb", "&Formatting Toolbar", "", Checked},
    {1, "mnuViewForms", "Forms &Toolbar"},
    {1, "mnuViewTagList", "&Tag List"},
    {0, "mnuWindow", "&Window"},
    {1, "mnuWindowArrange", "&Arrange Icons"},
    {1, "mnuWindowTileH", "Tile &Horizontally"},
    {1, "mnuWindowTileV", "Tile &Vertically"},
    {1, "mnuWindowCascade", "&Cascade"},
    {0, "mnuHelp", "&Help"},
    {1, "mnuHelpContents", "&Contents", "F1"},
    {1, "mnuHelpSep2", "-"},
    {1, "mnuHelpAbout", "&About..."},
};
// clang-format on
} // namespace

// The main window's own file commands; every other subsystem registers its own.
void bindFileCommands(ShellMDI& shell, Commands& commands);

void ShellMDI::bindViewCommands(Commands& commands) {
    commands.bind(QStringLiteral("mnuViewStdTlb"), [this] { mnuViewStdTlb_Click(); });
    commands.bind(QStringLiteral("mnuViewFmtTlb"), [this] { mnuViewFmtTlb_Click(); });
    commands.bind(QStringLiteral("mnuViewForms"), [this] { mnuViewForms_Click(); });
    commands.bind(QStringLiteral("mnuViewTagList"), [this] { mnuViewTagList_Click(); });
    const std::pair<const char*, Arrange> arrange[] = {{"mnuWindowArrange", ArrangeIcons},
                                                       {"mnuWindowTileH", TileHorizontal},
                                                       {"mnuWindowTileV", TileVertical},
                                                       {"mnuWindowCascade", Cascade}};
    for (const auto& [item, code] : arrange)
        commands.bind(QLatin1String(item), [this, code = code] { emit arrangeRequested(code); });
}

ShellMDI::ShellMDI(Platform& platform, SettingsStore& settings, SurfaceFactory& surfaces,
                   FormHost& forms)
    : ShellCore(platform, settings, surfaces, forms) {
    buildMenus();
    buildToolbars();
}

ShellMDI::~ShellMDI() = default;

void ShellMDI::buildMenus() {
    std::vector<std::vector<MenuNode>*> levels{&menuBar_};
    for (size_t i = 0; i < std::size(kMenuTree); ++i) {
        const MenuRow& row = kMenuTree[i];
        const QString caption = QString::fromUtf8(row.caption);
        const bool separator = caption == QLatin1String("-");
        auto item = std::make_unique<MenuItem>(QString::fromUtf8(row.name), caption,
                                               QString::fromUtf8(row.shortcut), separator);
        item->setVisible(!(row.flags & Hidden));
        item->setEnabled(!(row.flags & Off));
        item->setChecked(row.flags & Checked);
        item->literalCaption = row.flags & Literal;
        std::vector<MenuNode>& parent = *levels.at(row.depth);
        parent.push_back(MenuNode{item.get(), {}});
        levels.resize(row.depth + 1);
        levels.push_back(&parent.back().children);
        menuItems_[item->name()] = std::move(item);
    }

    Commands commands;
    bindFileCommands(*this, commands);
    bindViewCommands(commands);
    for (const CommandBinder& bind : registeredCommandSets())
        bind(*this, commands);
    for (const auto& [name, handler] : commands.handlers())
        menu(name).Click = handler;
    for (const auto& [name, handler] : commands.actions())
        actions_[name] = handler;

    for (const auto& [key, item] : MenuIconPairs())
        SetMenuIcon(key, item);
}

const std::vector<std::pair<QString, QString>>& ShellMDI::MenuIconPairs() {
    using S = QString;
    static const std::vector<std::pair<QString, QString>> pairs = {
        {S("New"), S("mnuFileNew")},
        {S("Open"), S("mnuFileOpen")},
        {S("Save"), S("mnuFileSave")},
        {S("Print"), S("mnuFilePrint")},
        {S("Undo"), S("mnuEditUndo")},
        {S("Redo"), S("mnuEditRedo")},
        {S("Cut"), S("mnuEditCut")},
        {S("Copy"), S("mnuEditCopy")},
        {S("Paste"), S("mnuEditPaste")},
        {S("Find"), S("mnuEditFind")},
        {S("Hyperlink"), S("mnuInsertHyperlink")},
        {S("Style"), S("mnuInsertCSS")},
        {S("LinkToCSS"), S("mnuInsertLink")},
        {S("Anchor"), S("mnuInsertAnchor")},
        {S("Table"), S("mnuInsertTable")},
        {S("Image"), S("mnuInsertImage")},
        {S("Marquee"), S("mnuInsertMarquee")},
        {S("Paragraph"), S("mnuInsertParagraph")},
        {S("Form"), S("mnuInsertFormSettings")},
        {S("Comment"), S("mnuInsertComment")},
        {S("Font"), S("mnuInsertFont")},
        {S("Bold"), S("mnuTagsBold")},
        {S("Italic"), S("mnuTagsItalic")},
        {S("Underline"), S("mnuTagsUnderline")},
        {S("Heading"), S("mnuHeadings")},
        {S("Help"), S("mnuHelpContents")},
    };
    return pairs;
}

void ShellMDI::SetMenuIcon(const QString& key, const QString& item) {
    // The menu icon control takes the picture's index in its list; the view looks the key up.
    menu(item).setIconKey(key);
}

void ShellMDI::setShortcutCaptions() {
    // The shortcut text behind the tab is only for show: the Source pane handles these keys.
    const std::pair<const char*, const char*> captions[] = {
        {"mnuEditUndo", "&Undo\tCtrl+Z"},
        {"mnuEditCut", "&Cut\tCtrl+X"},
        {"mnuEditCopy", "C&opy\tCtrl+C"},
        {"mnuEditPaste", "&Paste\tCtrl+V"},
        {"mnuInsertBreak", "&Line Break\tCtrl+Enter"},
        {"mnuInsertParagraph", "&Paragraph\tCtrl+Shift+P"},
        {"mnuInsertSpace", "&Non-breaking Space\tCtrl+Shift+Space"},
    };
    for (const auto& [name, caption] : captions)
        menu(QLatin1String(name)).setCaption(QString::fromUtf8(caption));
}

// ---- view toggles ----

void ShellMDI::toggleBand(const QString& itemName, int band, bool& flag) {
    MenuItem& item = menu(itemName);
    const bool open = !item.Checked();
    cReBar1.setBandVisible(band, open);
    item.setChecked(open);
    flag = open;
    // MDIForm_Resize: the window lays itself out again as it follows the bands.
}

void ShellMDI::mnuViewStdTlb_Click() {
    toggleBand(QStringLiteral("mnuViewStdTlb"), BandStandard, bStandardToolbarOpen);
}

// "Tags Toolbar Open" is never written: the formatting toolbar comes back at every start.
void ShellMDI::mnuViewFmtTlb_Click() {
    toggleBand(QStringLiteral("mnuViewFmtTlb"), BandTags, bTagsToolbarOpen);
}

void ShellMDI::mnuViewForms_Click() {
    toggleBand(QStringLiteral("mnuViewForms"), BandForms, bFormsToolbarOpen);
    tbrMain.setButtonChecked(16, bFormsToolbarOpen);
}

void ShellMDI::mnuViewTagList_Click() {
    MenuItem& item = menu(QStringLiteral("mnuViewTagList"));
    const bool open = !item.Checked();
    Picture1.setVisible(open);
    item.setChecked(open);
    bTagListOpen = open;
    tbrMain.setButtonChecked(17, open);
    settings_.save(keys::Fuzzies, keys::TagListOpen, ViewFlag(open));
    emit paneChanged();
}

} // namespace tsl
