#pragma once
// The main window as the logic sees it: it owns the documents, the shared flags, the menus,
// the document tab strip and the shared file dialog. Handlers keep their names.
#include "dialogs/table_chooser.h"
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "gadgets/menu_item.h"
#include "gadgets/rebar.h"
#include "gadgets/status_bar.h"
#include "gadgets/tab_strip.h"
#include "gadgets/toolbar.h"
#include "platform/common_dialog.h"
#include "platform/platform.h"
#include "runtime/dispatcher.h"
#include "shell/code_editor.h"
#include "shell/dialog_context.h"
#include "shell/settings_store.h"
#include <QObject>
#include <QStringList>
#include <map>
#include <memory>
#include <vector>

namespace tsl {

// One node of the menu bar: an item and, for a submenu, its children in display order.
struct MenuNode {
    MenuItem* item = nullptr;
    std::vector<MenuNode> children;
};

class ShellMDI : public QObject, public DialogContext {
    Q_OBJECT
  public:
    ShellMDI(Platform& platform, SettingsStore& settings, SurfaceFactory& surfaces,
             FormHost& forms);
    ~ShellMDI() override;

    Platform& platform() override { return platform_; }
    SettingsStore& settings() override { return settings_; }
    FormHost& forms() override { return forms_; }
    Dispatcher& dispatcher() { return dispatcher_; }
    // Runs a handler the user set off; a run-time error that escapes it is shown.
    bool dispatch(const std::function<void()>& handler);

    cToolbar tbrMain{QStringLiteral("tbrMain")};
    cToolbar tbrTags{QStringLiteral("tbrTags")};
    cToolbar tbrForms{QStringLiteral("tbrForms")};
    void tbrMain_ButtonClick(int index);
    void tbrTags_ButtonClick(int index);
    TabStrip TabStrip1{QStringLiteral("TabStrip1")};
    // ---- command table, toolbars and bands ----
    // The band strip: band 0 "Toolbar1" holds tbrMain, 1 "Toolbar2" tbrTags, 2 "Toolbar3"
    // tbrForms. The view shows the toolbars as the bands say.
    cReBar cReBar1{QStringLiteral("cReBar1")};
    enum BandIndex { BandStandard = 0, BandTags = 1, BandForms = 2 };
    void tbrForms_ButtonClick(int index);
    // The field kind a forms toolbar button presets in frmForm; empty for the others.
    static QString FormsButtonKind(int index);
    void mnuViewStdTlb_Click();
    void mnuViewFmtTlb_Click();
    void mnuViewForms_Click();
    void SetCssCommandState();
    void SetHtmlCommandState();
    // Menu icons: the key of a picture given to a menu item, and the 26 pairs (key, item) in
    // the order they are handed out at start-up.
    void SetMenuIcon(const QString& key, const QString& item);
    static const std::vector<std::pair<QString, QString>>& MenuIconPairs();
    // The OpenSave.FilterIndex entries: HTML first, CSS second.
    static constexpr int kHtmlFilterIndex = 1;
    static constexpr int kCssFilterIndex = 2;
    // ---- end of command table ----
    ListBox List1{QStringLiteral("List1")};
    // The status bar; its first panel shows the progress of a transfer.
    StatusBar StatusBar1{QStringLiteral("StatusBar1")};

    // The tag list pane and its sizer, in twips.
    static constexpr int kPaneMinWidth = 2000;
    static constexpr int kDocumentsMinWidth = 3500;
    Control Picture1{QStringLiteral("Picture1")};
    int Picture1Width = 2800;
    int Width = 12000; // the main window's outer width
    void imgSizer_MouseDown() { bSizing = true; }
    void imgSizer_MouseMove(int x);
    void imgSizer_MouseUp() { bSizing = false; }
    void setWindowWidth(int twips) { Width = twips; }

    // Menus.
    MenuItem& menu(const QString& name) const;
    bool hasMenu(const QString& name) const { return menuItems_.count(name) > 0; }
    const std::vector<MenuNode>& menuBar() const { return menuBar_; }

    // Documents, in the order they were loaded (the Forms collection less the main window).
    const std::vector<codeEditor*>& documents() const override { return documents_; }
    int FormsCount() const { return 1 + static_cast<int>(documents_.size()); }
    // The active document window; null when there is none.
    codeEditor* ActiveForm() const override { return zOrder_.empty() ? nullptr : zOrder_.front(); }

    // Start-up and shutdown.
    void MDIForm_Load(const QString& commandLine = QString());
    int MDIForm_QueryUnload();
    void MDIForm_Unload();
    // Exit, or the main window's close box: answers true when the program may end.
    bool requestExit();
    void applicationActivated();

    // Document tab strip and window order.
    void TabStrip1_Click();
    void activateNextDocument(bool backwards);

    // File commands.
    void mnuFileNewHTML_Click() { NewHtmlDocument(); }
    void mnuFileNewCSS_Click() { NewCssDocument(); }
    void NewHtmlDocument() { newDocument(true); }
    void NewCssDocument() { newDocument(false); }
    void mnuFileOpen_Click();
    void mnuFileSave_Click();
    void mnuFileSaveas_Click();
    void mnuFileSaveAll_Click();
    void mnuFileClose_Click();
    void mnuFileCloseAll_Click();
    void mnuFileExit_Click();
    void mnuViewTagList_Click();

    // Markup into the active document: the Layout surface's selection, or the Source pane's.
    void InsertMarkup(const QString& markup) override;
    // Wrapping commands.
    void mnuH_Click(int level);
    void mnuH1_Click() { mnuH_Click(1); }
    void mnuH2_Click() { mnuH_Click(2); }
    void mnuH3_Click() { mnuH_Click(3); }
    void mnuH4_Click() { mnuH_Click(4); }
    void mnuH5_Click() { mnuH_Click(5); }
    void mnuH6_Click() { mnuH_Click(6); }
    void mnuSub_Click();
    void mnuSup_Click();
    void mnuTagsBlock_Click();
    void mnuTagsBold_Click();
    void mnuTagsCenter_Click();
    void mnuTagsItalic_Click();
    void mnuTagsRight_Click();
    void mnuTagsStrike_Click();
    void mnuTagsUnderline_Click();
    void mnuInsertParagraph_Click();
    void mnuInsertBreak_Click();
    void mnuInsertComment_Click();
    void mnuFormatRemove_Click();
    // Single inserts.
    void mnuInsertAmpersand_Click();
    void mnuInsertCopyright_Click();
    void mnuInsertGreater_Click();
    void mnuInsertLess_Click();
    void mnuInsertQuote_Click();
    void mnuInsertReg_Click();
    void mnuInsertTrade_Click();
    void mnuInsertSpace_Click();
    void mnuInsertDate_Click(int which);
    void mnuInsertDate1_Click() { mnuInsertDate_Click(1); }
    void mnuInsertDate2_Click() { mnuInsertDate_Click(2); }
    void mnuInsertDate3_Click() { mnuInsertDate_Click(3); }
    void mnuInsertDate4_Click() { mnuInsertDate_Click(4); }
    // The text a date item inserts now (1 to 4).
    QString dateText(int which);
    void mnuInsert_Click();
    // The badge button: a link to the product's home page around its logo.
    void insertBadge();
    static const QString kBadgeMarkup;
    // Edit commands.
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditSelectall_Click();
    void mnuEditUndo_Click();
    void mnuEditRedo_Click();

    // The tag list.
    ListBox tvwTags{QStringLiteral("tvwTags")};
    QString sDraggedTag;
    void LoadTagList();
    void tvwTags_DblClick();
    void tvwTags_MouseDown(int nodeIndex);
    // Starts a drag of the node last pressed: answers the text to drop, and whether the drop
    // may copy at all.
    bool tvwTags_OLEStartDrag(QString& data);
    void tvwTags_OLECompleteDrag(int effect);
    // The codes of the window arrange operation.
    enum Arrange { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };
    codeEditor* OpenDocumentWindow(const QString& path);
    void CheckFileOpen(const QString& path) override;
    QString StripItem(QString& s, const QString& delimiter);
    // Unloads a document window after asking it; false when it stayed.
    bool unloadDocument(codeEditor* doc);

    // The shared Undo, Redo, Cut, Copy and Paste commands: each turns its menu items and its
    // tbrMain buttons (Cut 7, Copy 8, Paste 9, Undo 11, Redo 12) on or off together.
    void setUndoEnabled(bool on);
    void setRedoEnabled(bool on);
    void setCutCopyEnabled(bool on);
    void setPasteEnabled(bool on);

    // Seams of the recent file list and the command table.
    void AddRecentFile(const QString& path, const QString& title);
    void LoadRecentFiles();
    void EnableDocumentCommands();
    void DisableDocumentCommands();

    // The recent file items and their menu pictures (nMenuIconCount images to pick from).
    void mnuFileMRU_Click(int index);
    QString FileTitleFromPath(const QString& path);
    bool ctlPopMenu_RequestNewMenuDetails(const QString& caption, QString& key, int& icon);
    int nMenuIconCount = 0;
    double Rnd();
    quint32 nRndState = 327680;
    // Links relative to the active document for the dialogs' browse buttons.
    void RelativePath(CommonDialog& dialog, TextBox& target) override;
    // The drop-down chooser of a table's size.
    TableChooser tableChooser{*this};

    // Drawing freeze around window creation; nests.
    void LockWindowUpdate(bool freeze);

    // The window model, used by codeEditor.
    void documentLoaded(codeEditor* doc);
    void documentShown(codeEditor* doc);
    void bringToFront(codeEditor* doc);

  signals:
    void documentAdded(tsl::codeEditor* doc);
    void documentActivated(tsl::codeEditor* doc);
    void documentRemoved(tsl::codeEditor* doc);
    void drawingFrozen(bool frozen);
    void arrangeRequested(int code);
    void paneChanged();
    void exitAccepted();
    // A menu of the menu bar wanted as a popup (under a toolbar button, or at the mouse).
    void popupMenuRequested(const QString& menuName);

  private:
    void buildMenus();
    void buildToolbars();
    // Command table helpers: the bands, a view toggle, a menu item's handler run by a button,
    // and the form component seam of the forms toolbar.
    void buildBands();
    void toggleBand(const QString& itemName, int band, bool& flag);
    void runMenuClick(const QString& itemName);
    void ShowFormComponent(const QString& kind);
    void setShortcutCaptions();
    void notAvailableYet();
    void wrap(const QString& open, const QString& close, bool addSelection, bool blockFlag);
    void singleInsert(const QString& text, char group);
    bool sendToLayout(int id);
    void bindViewCommands(Commands& commands);
    void newDocument(bool html);
    codeEditor* createDocumentWindow();
    void openCommandLine(const QString& commandLine);
    void saveUntitled(codeEditor* doc, const QString& path);
    // The shared buttons that Open turns on.
    void setOpenButtons();
    void selectTabOf(codeEditor* doc);
    QString ViewFlag(bool on) const { return on ? QStringLiteral("Yes") : QStringLiteral("No"); }

    Platform& platform_;
    SettingsStore& settings_;
    SurfaceFactory& surfaces_;
    FormHost& forms_;
    Dispatcher dispatcher_;
    std::vector<std::unique_ptr<codeEditor>> owned_;
    std::vector<std::unique_ptr<codeEditor>> closed_;
    std::vector<codeEditor*> documents_;
    std::vector<codeEditor*> zOrder_;
    std::map<QString, std::unique_ptr<MenuItem>> menuItems_;
    std::vector<MenuNode> menuBar_;
    int freezeDepth_ = 0;
    int dispatchDepth_ = 0;
    // The document and kind the command states were last set for.
    friend class codeEditor;
    codeEditor* stateDocument_ = nullptr;
    QString stateKind_;
};

} // namespace tsl
