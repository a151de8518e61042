#pragma once
// The main window as the logic sees it: the window model of ShellCore, with the main
// window's own commands (file, view, toolbars, recent files), its start-up and its menus.
#include "shell/command_registry.h"
#include "shell/shell_core.h"

namespace tsl {

class ShellMDI : public ShellCore {
    Q_OBJECT
  public:
    ShellMDI(Platform& platform, SettingsStore& settings, SurfaceFactory& surfaces,
             FormHost& forms);
    ~ShellMDI() override;

    void tbrMain_ButtonClick(int index);
    void tbrTags_ButtonClick(int index);
    void tbrForms_ButtonClick(int index);
    // The field kind a forms toolbar button presets in frmForm; empty for the others.
    static QString FormsButtonKind(int index);
    void mnuViewStdTlb_Click();
    void mnuViewFmtTlb_Click();
    void mnuViewForms_Click();
    void mnuViewTagList_Click();
    // Menu icons: the key of a picture given to a menu item, and the 26 pairs (key, item) in
    // the order they are handed out at start-up.
    void SetMenuIcon(const QString& key, const QString& item);
    static const std::vector<std::pair<QString, QString>>& MenuIconPairs();

    // Start-up and shutdown.
    void MDIForm_Load(const QString& commandLine = QString());
    int MDIForm_QueryUnload();
    void MDIForm_Unload();
    // Exit, or the main window's close box: answers true when the program may end.
    bool requestExit();

    // File commands.
    void mnuFileNewHTML_Click() { NewHtmlDocument(); }
    void mnuFileNewCSS_Click() { NewCssDocument(); }
    void NewHtmlDocument() { newDocument(true); }
    void NewCssDocument() { newDocument(false); }
    void mnuFileOpen_Click();
    // Files dropped on the main window, opened as File > Open opens a file.
    void openDroppedFiles(const QStringList& paths);
    void mnuFileSave_Click();
    void mnuFileSaveas_Click();
    void mnuFileSaveAll_Click();
    void mnuFileClose_Click();
    void mnuFileCloseAll_Click();
    void mnuFileExit_Click();
    codeEditor* OpenDocumentWindow(const QString& path);
    void CheckFileOpen(const QString& path) override;
    QString StripItem(QString& s, const QString& delimiter);

    // The recent file list and its items' menu pictures (nMenuIconCount images to pick from).
    void AddRecentFile(const QString& path, const QString& title);
    void LoadRecentFiles();
    void mnuFileMRU_Click(int index);
    QString FileTitleFromPath(const QString& path);
    bool ctlPopMenu_RequestNewMenuDetails(const QString& caption, QString& key, int& icon);
    int nMenuIconCount = 0;
    double Rnd();
    quint32 nRndState = 327680;

  private:
    // The files named in OpenSave.FileName, one or several, opened in their windows.
    void openChosenFiles();
    void buildMenus();
    void buildToolbars();
    // Command table helpers: the bands and a view toggle.
    void buildBands();
    void toggleBand(const QString& itemName, int band, bool& flag);
    void setShortcutCaptions();
    void bindViewCommands(Commands& commands);
    void newDocument(bool html);
    codeEditor* createDocumentWindow();
    void openCommandLine(const QString& commandLine);
    void saveUntitled(codeEditor* doc, const QString& path);
    QString ViewFlag(bool on) const { return on ? QStringLiteral("Yes") : QStringLiteral("No"); }
};

} // namespace tsl
