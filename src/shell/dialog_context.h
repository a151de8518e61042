#pragma once
// What a dialog may reach of the main window: the shared flags and values by their names, the
// active document, the path by which markup reaches it, the relative browse, the settings and
// the desktop services. A dialog holds this, not the whole main window, so a new dialog
// touches no shared header.
#include "gadgets/form.h"
#include "platform/common_dialog.h"
#include "platform/platform.h"
#include "runtime/int16.h"
#include "shell/settings_store.h"
#include <QPointer>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <type_traits>
#include <typeindex>
#include <vector>

namespace tsl {

class codeEditor;
class TextBox;

// The application-wide flags and values. They rely on the single thread.
struct ShellState {
    explicit ShellState(Platform& platform) : OpenSave(platform) {}

    bool bInsertingMarkup = false;
    bool bCaretStepTaken = false;
    bool bLayoutActive = false;
    bool bLoadingOnline = false;
    bool bNewDocument = false;
    bool bNewIsHtml = false;
    bool bSelectingTab = false;
    bool bClosingAll = false;
    bool bCloseAllCancelled = false;
    bool bFileAlreadyOpen = false;
    bool bMainLoading = false;
    bool bSizing = false;
    bool bFormsToolbarOpen = false;
    bool bStandardToolbarOpen = true;
    bool bTagsToolbarOpen = true;
    bool bTagListOpen = false;
    bool bUseRelative = true;
    bool bAutoCloseTag = true;
    bool bCommandsDisabled = false;
    qint32 nDocumentCount = 0;
    // Shared values of the undo steps and drops.
    Int16 nStepCaretAdvance = 0;
    Int16 nStepCaretBack = 0;
    Int16 nTagDropBack = 0;
    bool bDropPending = false;
    bool bTagDropPending = false;
    codeEditor* CurrentDocument = nullptr;
    codeEditor* NewDocWindow = nullptr;
    QStringList FontNames;
    // The folder of the active document, with its separator, as the last view switch found it.
    QString sDocFolder;
    QString sSecondaryBrowser;
    // The shared file dialog of the main window.
    CommonDialog OpenSave;
    // Scratch values of the relative browse.
    QString txtTemp1;
    QString txtTemp2;
    bool bRelativeUp = false;
    // The open Find & Replace window, which any document that closes closes too.
    bool bFindOpen = false;
    QPointer<Form> frmFind;
};

class DialogContext : public ShellState {
  public:
    using ShellState::ShellState;
    virtual ~DialogContext() = default;
    virtual Platform& platform() = 0;
    virtual SettingsStore& settings() = 0;
    virtual FormHost& forms() = 0;
    // The active document window; null when there is none.
    virtual codeEditor* ActiveForm() const = 0;
    // The documents, in the order they were loaded.
    virtual const std::vector<codeEditor*>& documents() const = 0;
    // Markup into the active document: the Layout surface's selection, or the Source pane's.
    virtual void InsertMarkup(const QString& markup) = 0;
    // A file from `dialog` into `target`, as a link relative to txtTemp1 where it can be.
    virtual void RelativePath(CommonDialog& dialog, TextBox& target) = 0;
    // Sets bFileAlreadyOpen when a document window has exactly that path as its caption.
    virtual void CheckFileOpen(const QString& path) = 0;
    // Runs a handler the user set off; a run-time error that escapes it is shown.
    virtual bool dispatch(const std::function<void()>& handler) = 0;

    // The state a subsystem keeps for the whole run (the search, the tag list, ...), made on
    // first use, with this context when it takes one. The main window holds it without
    // knowing its type, so a subsystem adds state without touching a shared header.
    template <typename T> T& part() {
        std::shared_ptr<void>& slot = parts_[std::type_index(typeid(T))];
        if (!slot) {
            if constexpr (std::is_constructible_v<T, DialogContext&>)
                slot = std::make_shared<T>(*this);
            else
                slot = std::make_shared<T>();
        }
        return *static_cast<T*>(slot.get());
    }

  protected:
    // Frees the parts while the context they refer to is still whole.
    void releaseParts() { parts_.clear(); }

  private:
    std::map<std::type_index, std::shared_ptr<void>> parts_;
};

// Shows a modal dialog of type F for the document in front, as every dialog command does.
template <typename F> void showDialog(DialogContext& context) {
    context.CurrentDocument = context.ActiveForm();
    F form(context);
    form.Form_Load();
    context.forms().showModal(form);
}

} // namespace tsl
