#pragma once
// The main window's state and window model, as a document window and a subsystem see it: the
// documents in load and z-order, the shared flags, the menu items, the toolbars and the
// document tab strip, and the shared Undo, Redo, Cut, Copy and Paste states. The commands of
// the main window itself (file, view, toolbars, start-up) are ShellMDI's; every other
// subsystem binds its commands through `CommandRegistry`.
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

class ShellCore : public QObject, public DialogContext {
    Q_OBJECT
  public:
    ShellCore(Platform& platform, SettingsStore& settings, SurfaceFactory& surfaces,
              FormHost& forms);
    ~ShellCore() override;

    Platform& platform() override { return platform_; }
    SettingsStore& settings() override { return settings_; }
    FormHost& forms() override { return forms_; }
    Dispatcher& dispatcher() { return dispatcher_; }
    bool dispatch(const std::function<void()>& handler) override;

    cToolbar tbrMain{QStringLiteral("tbrMain")};
    cToolbar tbrTags{QStringLiteral("tbrTags")};
    cToolbar tbrForms{QStringLiteral("tbrForms")};
    TabStrip TabStrip1{QStringLiteral("TabStrip1")};
    // The band strip: band 0 "Toolbar1" holds tbrMain, 1 "Toolbar2" tbrTags, 2 "Toolbar3"
    // tbrForms. The view shows the toolbars as the bands say.
    cReBar cReBar1{QStringLiteral("cReBar1")};
    enum BandIndex { BandStandard = 0, BandTags = 1, BandForms = 2 };
    void SetCssCommandState();
    void SetHtmlCommandState();
    // The OpenSave.FilterIndex entries: HTML first, CSS second.
    static constexpr int kHtmlFilterIndex = 1;
    static constexpr int kCssFilterIndex = 2;
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
    // Runs a menu item's handler, whether the item is enabled or not, as a button does.
    void runMenuClick(const QString& itemName);
    // Runs an action a subsystem bound for a button that has no menu item.
    void runAction(const QString& name);

    // Documents, in the order they were loaded (the Forms collection less the main window).
    const std::vector<codeEditor*>& documents() const override { return documents_; }
    int FormsCount() const { return 1 + static_cast<int>(documents_.size()); }
    // The active document window; null when there is none.
    codeEditor* ActiveForm() const override { return zOrder_.empty() ? nullptr : zOrder_.front(); }

    void applicationActivated();
    // A document's file changed or removed by another program is told of when the document
    // comes in front: a document without changes of its own reloads, one with changes asks.
    void checkFileOnDisk(codeEditor& doc);
    // Before a save over a file another program changed: true when the user wants it saved.
    bool mayOverwriteChangedFile(codeEditor& doc);
    // Document tab strip and window order.
    void TabStrip1_Click();
    void activateNextDocument(bool backwards);

    // Markup into the active document: the Layout surface's selection, or the Source pane's.
    void InsertMarkup(const QString& markup) override;
    // Edit commands.
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditSelectall_Click();
    void mnuEditUndo_Click();
    void mnuEditRedo_Click();

    // The codes of the window arrange operation.
    enum Arrange { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };
    // Unloads a document window after asking it; false when it stayed.
    bool unloadDocument(codeEditor* doc);

    // The shared Undo, Redo, Cut, Copy and Paste commands: each turns its menu items and its
    // tbrMain buttons (Cut 7, Copy 8, Paste 9, Undo 11, Redo 12) on or off together.
    void setUndoEnabled(bool on);
    void setRedoEnabled(bool on);
    void setCutCopyEnabled(bool on);
    void setPasteEnabled(bool on);
    void EnableDocumentCommands();
    void DisableDocumentCommands();

    // Links relative to the active document for the dialogs' browse buttons.
    void RelativePath(CommonDialog& dialog, TextBox& target) override;

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

  protected:
    // The shared buttons that Open turns on.
    void setOpenButtons();
    void selectTabOf(codeEditor* doc);

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
    std::map<QString, std::function<void()>> actions_;
    std::vector<MenuNode> menuBar_;
    int freezeDepth_ = 0;
    int dispatchDepth_ = 0;
    // The document and kind the command states were last set for.
    friend class codeEditor;
    codeEditor* stateDocument_ = nullptr;
    QString stateKind_;
};

} // namespace tsl
