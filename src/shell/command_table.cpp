// The menu tree of the main window. Each item's handler is its name plus _Click; commands whose
// work is not built yet say so instead of failing.
#include "shell/shell_mdi.h"

namespace tsl {

MenuItem* ShellMDI::addMenu(std::vector<MenuNode>& parent, const QString& name,
                            const QString& caption, const QString& shortcut,
                            std::function<void()> click) {
    auto item = std::make_unique<MenuItem>(name, caption, shortcut);
    item->Click = std::move(click);
    MenuItem* raw = item.get();
    menuItems_[name] = std::move(item);
    parent.push_back(MenuNode{raw, {}});
    return raw;
}

void ShellMDI::addSeparator(std::vector<MenuNode>& parent, const QString& name) {
    auto item = std::make_unique<MenuItem>(name, QStringLiteral("-"), QString(), true);
    MenuItem* raw = item.get();
    menuItems_[name] = std::move(item);
    parent.push_back(MenuNode{raw, {}});
}

void ShellMDI::notAvailableYet() {
    platform_.msgBox(QStringLiteral("This command is not available yet."), MsgIcon::Information);
}

void ShellMDI::buildMenus() {
    using S = QString;
    const auto later = [this] { notAvailableYet(); };
    const auto submenu = [this](const QString& name, const QString& caption,
                                std::vector<MenuNode>& parent) -> std::vector<MenuNode>& {
        addMenu(parent, name, caption);
        return parent.back().children;
    };

    auto& file = submenu(S("mnuFile"), S("&File"), menuBar_);
    auto& fileNew = submenu(S("mnuFileNew"), S("&New"), file);
    addMenu(fileNew, S("mnuFileNewHTML"), S("&HTML Document"), S("Ctrl+N"),
            [this] { mnuFileNewHTML_Click(); });
    addMenu(fileNew, S("mnuFileNewCSS"), S("&CSS Document"), S(),
            [this] { mnuFileNewCSS_Click(); });
    addMenu(file, S("mnuFileOpen"), S("&Open..."), S("Ctrl+O"), [this] { mnuFileOpen_Click(); });
    addMenu(file, S("mnuNet"), S("Open online &file"), S(), later);
    addMenu(file, S("mnuFileClose"), S("&Close"), S(), [this] { mnuFileClose_Click(); });
    addMenu(file, S("mnuFileCloseAll"), S("Close All"), S(), [this] { mnuFileCloseAll_Click(); });
    addSeparator(file, S("GoodOlSep"));
    addMenu(file, S("mnuFileSave"), S("&Save"), S("Ctrl+S"), [this] { mnuFileSave_Click(); });
    addMenu(file, S("mnuFileSaveas"), S("Save &As"), S(), [this] { mnuFileSaveas_Click(); });
    addMenu(file, S("mnuFileSaveAll"), S("Save All"), S(), [this] { mnuFileSaveAll_Click(); });
    addSeparator(file, S("mnuFileSep2"));
    addMenu(file, S("mnuFilePrint"), S("&Print"), S("Ctrl+P"), later);
    addSeparator(file, S("s"));
    auto& preview = submenu(S("mnuFilePreview"), S("Pre&view in Browser"), file);
    addMenu(preview, S("mnuFilePrevDef"), S("Default Browser"), S(), later);
    addMenu(preview, S("mnuFilePrevSec"), S("Secondary Browser"), S(), later);
    addSeparator(file, S("sepa"));
    for (int i = 0; i < 4; ++i) {
        MenuItem* recent =
            addMenu(file, S("mnuFileMRU(%1)").arg(i), S(), S(), [this, i] { mnuFileMRU_Click(i); });
        recent->setVisible(false);
        recent->literalCaption = true;
    }
    addSeparator(file, S("mnuFileBar6"));
    menu(S("mnuFileBar6")).setVisible(false);
    addMenu(file, S("mnuFileExit"), S("E&xit"), S(), [this] { mnuFileExit_Click(); });

    auto& edit = submenu(S("mnuEdit"), S("&Edit"), menuBar_);
    addMenu(edit, S("mnuEditUndo"), S("&Undo"), S(), [this] {
        mnuEditUndo_Click();
    })->setEnabled(false);
    addMenu(edit, S("mnuEditRedo"), S("&Redo"), S(), [this] {
        mnuEditRedo_Click();
    })->setEnabled(false);
    addSeparator(edit, S("se"));
    addMenu(edit, S("mnuEditCut"), S("&Cut"), S(), [this] { mnuEditCut_Click(); });
    addMenu(edit, S("mnuEditCopy"), S("C&opy"), S(), [this] { mnuEditCopy_Click(); });
    addMenu(edit, S("mnuEditPaste"), S("&Paste"), S(), [this] { mnuEditPaste_Click(); });
    addSeparator(edit, S("sep"));
    addMenu(edit, S("mnuEditSelectall"), S("&Select All"), S("Ctrl+A"),
            [this] { mnuEditSelectall_Click(); });
    addSeparator(edit, S("YeOleSeppie"));
    addMenu(edit, S("mnuEditFind"), S("&Find && Replace"), S("Ctrl+F"), later);
    addMenu(edit, S("mnuExtFind"), S("&Extended Replace"), S(), later);
    addSeparator(edit, S("mnuEditSep"));
    addMenu(edit, S("mnuEditPrefs"), S("&Preferences"), S(), [this] { mnuEditPrefs_Click(); });

    auto& insert = submenu(S("mnuInsert"), S("&Insert"), menuBar_);
    menu(S("mnuInsert")).Click = [this] { mnuInsert_Click(); };
    addMenu(insert, S("mnuInsertImage"), S("&Image"), S(), later);
    addMenu(insert, S("mnuInsertMarquee"), S("&Marquee"), S(), later);
    addMenu(insert, S("mnuInsertHR"), S("Horizontal &Line"), S(), later);
    addSeparator(insert, S("mnuInsertSep2(0)"));
    addMenu(insert, S("mnuInsertAnchor"), S("&Anchor/Bookmark"), S(), later);
    addMenu(insert, S("mnuInsertHyperlink"), S("&Hyperlink"), S("Ctrl+H"), later);
    addSeparator(insert, S("mnuInsertsep1"));
    addMenu(insert, S("mnuInsertCSS"), S("&Style Settings"), S(), later);
    addMenu(insert, S("mnuInsertLink"), S("L&ink to Style Sheet"), S(), later);
    addSeparator(insert, S("mnuInsertSeppar"));
    addMenu(insert, S("mnuInsertFormSettings"), S("&Form"), S(), later);
    addMenu(insert, S("mnuInsertForm"), S("Form Com&ponent"), S(), later);
    addSeparator(insert, S("nsep"));
    addMenu(insert, S("mnuInsertFrames"), S("F&rameset"), S(), later);
    addMenu(insert, S("mnuInsertBullet"), S("&List"), S(), later);
    addMenu(insert, S("mnuInsertTable"), S("&Table"), S(), [this] { mnuInsertTable_Click(); });
    addSeparator(insert, S("fjiawoio"));
    addMenu(insert, S("mnuInsertBreak"), S("&Line Break"), S(), [this] { mnuInsertBreak_Click(); });
    addMenu(insert, S("mnuInsertParagraph"), S("&Paragraph"), S(),
            [this] { mnuInsertParagraph_Click(); });
    addMenu(insert, S("mnuInsertSpace"), S("&Non-breaking space"), S(),
            [this] { mnuInsertSpace_Click(); });
    auto& special = submenu(S("mnuInsertSC"), S("&Special Character"), insert);
    addMenu(special, S("mnuInsertTrade"), S("Trade Mark symbol"), S(),
            [this] { mnuInsertTrade_Click(); });
    addMenu(special, S("mnuInsertCopyright"), S("Copyright symbol"), S(),
            [this] { mnuInsertCopyright_Click(); });
    addMenu(special, S("mnuInsertGreater"), S("> Symbol"), S(),
            [this] { mnuInsertGreater_Click(); });
    addMenu(special, S("mnuInsertLess"), S("< Symbol"), S(), [this] { mnuInsertLess_Click(); });
    addMenu(special, S("mnuInsertQuote"), S("Double quote"), S(),
            [this] { mnuInsertQuote_Click(); });
    addMenu(special, S("mnuInsertAmpersand"), S("Ampersand"), S(),
            [this] { mnuInsertAmpersand_Click(); });
    addMenu(special, S("mnuInsertReg"), S("Registered Trade Mark symbol"), S(),
            [this] { mnuInsertReg_Click(); });
    addSeparator(insert, S("mnuInsertSep3"));
    addMenu(insert, S("mnuInsertComment"), S("&Comment"), S("F12"),
            [this] { mnuInsertComment_Click(); });
    auto& dates = submenu(S("mnuEditDate"), S("&Datestamp"), insert);
    addMenu(dates, S("mnuInsertDate1"), S(), S(), [this] { mnuInsertDate_Click(1); });
    addMenu(dates, S("mnuInsertDate2"), S(), S(), [this] { mnuInsertDate_Click(2); });
    addMenu(dates, S("mnuInsertDate3"), S(), S(), [this] { mnuInsertDate_Click(3); });
    addMenu(dates, S("mnuInsertDate4"), S(), S(), [this] { mnuInsertDate_Click(4); });

    auto& format = submenu(S("mnuTags"), S("&Format"), menuBar_);
    addMenu(format, S("mnuEditProperties"), S("Page Properties"), S(), later);
    addSeparator(format, S("mnuFormatSep"));
    addMenu(format, S("mnuInsertBasefont"), S("B&ase Font"), S(), later);
    addMenu(format, S("mnuInsertFont"), S("&Font"), S(), later);
    addSeparator(format, S("mnutagssep2"));
    addMenu(format, S("mnuTagsBold"), S("&Bold"), S("Ctrl+B"), [this] { mnuTagsBold_Click(); });
    addMenu(format, S("mnuTagsItalic"), S("&Italic"), S("Ctrl+I"),
            [this] { mnuTagsItalic_Click(); });
    addMenu(format, S("mnuTagsUnderline"), S("&Underline"), S("Ctrl+U"),
            [this] { mnuTagsUnderline_Click(); });
    addMenu(format, S("mnuTagsStrike"), S("&Strikethrough"), S(),
            [this] { mnuTagsStrike_Click(); });
    addMenu(format, S("mnuSub"), S("Subscript"), S(), [this] { mnuSub_Click(); });
    addMenu(format, S("mnuSup"), S("Superscript"), S(), [this] { mnuSup_Click(); });
    addSeparator(format, S("mnuFormatSep2"));
    auto& headings = submenu(S("mnuHeadings"), S("Headings"), format);
    for (int level = 1; level <= 6; ++level)
        addMenu(headings, S("mnuH%1").arg(level), S("Heading &%1").arg(level), S(),
                [this, level] { mnuH_Click(level); });
    addSeparator(format, S("mnuTagsep"));
    addMenu(format, S("mnuTagsCenter"), S("&Center"), S("Ctrl+E"),
            [this] { mnuTagsCenter_Click(); });
    addMenu(format, S("mnuTagsRight"), S("&Right"), S("Ctrl+R"), [this] { mnuTagsRight_Click(); });
    addMenu(format, S("mnuTagsBlock"), S("Block&quote"), S(), [this] { mnuTagsBlock_Click(); });
    addSeparator(format, S("mnuFormatSep3"));
    addMenu(format, S("mnuFormatRemove"), S("&Remove Formatting"), S(), [this] {
        mnuFormatRemove_Click();
    })->setEnabled(false);

    auto& view = submenu(S("mnuView"), S("&View"), menuBar_);
    addMenu(view, S("mnuViewStdTlb"), S("&Standard Toolbar"), S(), [this] {
        mnuViewStdTlb_Click();
    })->setChecked(true);
    addMenu(view, S("mnuViewFmtTlb"), S("&Formatting Toolbar"), S(), [this] {
        mnuViewFmtTlb_Click();
    })->setChecked(true);
    addMenu(view, S("mnuViewForms"), S("Forms &Toolbar"), S(), [this] { mnuViewForms_Click(); });
    addMenu(view, S("mnuViewTagList"), S("&Tag List"), S(), [this] { mnuViewTagList_Click(); });

    auto& window = submenu(S("mnuWindow"), S("&Window"), menuBar_);
    addMenu(window, S("mnuWindowArrange"), S("&Arrange Icons"), S(),
            [this] { emit arrangeRequested(ArrangeIcons); });
    addMenu(window, S("mnuWindowTileH"), S("Tile &Horizontally"), S(),
            [this] { emit arrangeRequested(TileHorizontal); });
    addMenu(window, S("mnuWindowTileV"), S("Tile &Vertically"), S(),
            [this] { emit arrangeRequested(TileVertical); });
    addMenu(window, S("mnuWindowCascade"), S("&Cascade"), S(),
            [this] { emit arrangeRequested(Cascade); });

    auto& help = submenu(S("mnuHelp"), S("&Help"), menuBar_);
    addMenu(help, S("mnuHelpContents"), S("&Contents"), S("F1"),
            [this] { mnuHelpContents_Click(); });
    addSeparator(help, S("mnuHelpSep2"));
    addMenu(help, S("mnuHelpAbout"), S("&About..."), S(), [this] { mnuHelpAbout_Click(); });

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

void ShellMDI::runMenuClick(const QString& itemName) {
    // A button runs the handler of its menu item, whether the item is enabled or not.
    const MenuItem& item = menu(itemName);
    if (item.Click) item.Click();
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
