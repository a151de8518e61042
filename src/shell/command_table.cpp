// The menu tree of the main window. Each item's handler is its name plus _Click.
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

void ShellMDI::buildMenus() {
    using S = QString;
    addMenu(menuBar_, S("mnuFile"), S("&File"));
    auto& file = menuBar_.back().children;
    addMenu(file, S("mnuFileNew"), S("&New"));
    auto& fileNew = file.back().children;
    addMenu(fileNew, S("mnuFileNewHTML"), S("&HTML Document"), S("Ctrl+N"),
            [this] { mnuFileNewHTML_Click(); });
    addMenu(fileNew, S("mnuFileNewCSS"), S("&CSS Document"), S(),
            [this] { mnuFileNewCSS_Click(); });
    addMenu(file, S("mnuFileOpen"), S("&Open..."), S("Ctrl+O"), [this] { mnuFileOpen_Click(); });
    addMenu(file, S("mnuFileClose"), S("&Close"), S(), [this] { mnuFileClose_Click(); });
    addMenu(file, S("mnuFileCloseAll"), S("Close All"), S(), [this] { mnuFileCloseAll_Click(); });
    addSeparator(file, S("GoodOlSep"));
    addMenu(file, S("mnuFileSave"), S("&Save"), S("Ctrl+S"), [this] { mnuFileSave_Click(); });
    addMenu(file, S("mnuFileSaveas"), S("Save &As"), S(), [this] { mnuFileSaveas_Click(); });
    addMenu(file, S("mnuFileSaveAll"), S("Save All"), S(), [this] { mnuFileSaveAll_Click(); });
    addSeparator(file, S("sepa"));
    addMenu(file, S("mnuFileExit"), S("E&xit"), S(), [this] { mnuFileExit_Click(); });

    addMenu(menuBar_, S("mnuEdit"), S("&Edit"));
    auto& edit = menuBar_.back().children;
    addMenu(edit, S("mnuEditPrefs"), S("&Preferences"), S(), [this] { mnuEditPrefs_Click(); });

    addMenu(menuBar_, S("mnuView"), S("&View"));
    auto& view = menuBar_.back().children;
    addMenu(view, S("mnuViewTagList"), S("&Tag List"), S(), [this] { mnuViewTagList_Click(); });

    addMenu(menuBar_, S("mnuWindow"), S("&Window"));
    auto& window = menuBar_.back().children;
    addMenu(window, S("mnuWindowArrange"), S("&Arrange Icons"), S(),
            [this] { emit arrangeRequested(ArrangeIcons); });
    addMenu(window, S("mnuWindowTileH"), S("Tile &Horizontally"), S(),
            [this] { emit arrangeRequested(TileHorizontal); });
    addMenu(window, S("mnuWindowTileV"), S("Tile &Vertically"), S(),
            [this] { emit arrangeRequested(TileVertical); });
    addMenu(window, S("mnuWindowCascade"), S("&Cascade"), S(),
            [this] { emit arrangeRequested(Cascade); });
}

void ShellMDI::mnuViewTagList_Click() {
    MenuItem& item = menu(QStringLiteral("mnuViewTagList"));
    const bool open = !item.Checked();
    Picture1.setVisible(open);
    item.setChecked(open);
    bTagListOpen = open;
    settings_.save(keys::Fuzzies, keys::TagListOpen, ViewFlag(open));
    emit paneChanged();
}

} // namespace tsl
