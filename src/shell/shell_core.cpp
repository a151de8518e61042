#include "shell/shell_core.h"
#include "editor/file_system.h"
#include "platform/url_transfer.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include <algorithm>

namespace tsl {

ShellCore::ShellCore(Platform& platform, SettingsStore& settings, SurfaceFactory& surfaces,
                     FormHost& forms)
    : DialogContext(platform), platform_(platform), settings_(settings), surfaces_(surfaces),
      forms_(forms),
      dispatcher_([&platform](const QString& text) { platform.msgBox(text, MsgIcon::Critical); }) {
    TabStrip1.Click = [this] { TabStrip1_Click(); };
    Picture1.setVisible(false);
}

ShellCore::~ShellCore() {
    // The view may still hold pointers to the documents; tell it they are going.
    for (codeEditor* doc : documents_)
        emit documentRemoved(doc);
    releaseParts();
}

bool ShellCore::dispatch(const std::function<void()>& handler) {
    // While a page is fetched nothing else runs, not even what an assistive tool sets off:
    // the wait takes no input, but such actions do not come as input.
    if (platform_.transfer().Busy()) return false;
    // Windows closed by earlier commands are freed here, where no handler holds them.
    if (dispatchDepth_ == 0) closed_.clear();
    ++dispatchDepth_;
    bool ok = dispatcher_.run(handler);
    --dispatchDepth_;
    // A command that made the document in front a style sheet, or a page again (New, Open,
    // Save As), leaves the commands as they were for its old kind: bring them up to date.
    codeEditor* front = ActiveForm();
    if (dispatchDepth_ == 0 && front && front->isShown() &&
        (front != stateDocument_ || front->CSSDoc != stateKind_))
        ok = dispatcher_.run([front] { front->Form_Activate(); }) && ok;
    return ok;
}

MenuItem& ShellCore::menu(const QString& name) const {
    const auto it = menuItems_.find(name);
    if (it == menuItems_.end())
        raise(ErrSubscriptOutOfRange, QStringLiteral("No menu item ") + name);
    return *it->second;
}

void ShellCore::runMenuClick(const QString& itemName) {
    // A button runs the handler of its menu item, whether the item is enabled or not.
    const MenuItem& item = menu(itemName);
    if (item.Click) item.Click();
}

void ShellCore::runAction(const QString& name) {
    const auto it = actions_.find(name);
    if (it != actions_.end()) it->second();
}

void ShellCore::LockWindowUpdate(bool freeze) {
    // Released on every way out, sometimes more than once: the depth never goes below zero.
    const int before = freezeDepth_;
    freezeDepth_ = freeze ? 1 : 0;
    if (before != freezeDepth_) emit drawingFrozen(freeze);
}

void ShellCore::imgSizer_MouseMove(int x) {
    if (!bSizing) return;
    const int newWidth = Picture1Width - x;
    if (newWidth < kPaneMinWidth)
        Picture1Width = kPaneMinWidth;
    else if (Width - newWidth < kDocumentsMinWidth)
        Picture1Width = Width - kDocumentsMinWidth;
    else
        Picture1Width = newWidth;
    emit paneChanged();
}

// ---- the window model ----

void ShellCore::documentLoaded(codeEditor* doc) {
    documents_.push_back(doc);
    zOrder_.insert(zOrder_.begin(), doc);
}

void ShellCore::documentShown(codeEditor* doc) {
    emit documentAdded(doc);
    bringToFront(doc);
    doc->Form_Activate();
}

void ShellCore::bringToFront(codeEditor* doc) {
    const auto it = std::find(zOrder_.begin(), zOrder_.end(), doc);
    if (it == zOrder_.end()) return;
    const bool changed = it != zOrder_.begin();
    zOrder_.erase(it);
    zOrder_.insert(zOrder_.begin(), doc);
    if (!doc->isShown()) return;
    emit documentActivated(doc);
    if (changed) {
        doc->Form_Activate();
        checkFileOnDisk(*doc);
    }
}

bool ShellCore::unloadDocument(codeEditor* doc) {
    if (!doc || !doc->isLoaded()) return true;
    if (doc->Form_QueryUnload() != 0) return false;
    doc->Form_Unload();
    doc->loaded_ = false;
    documents_.erase(std::remove(documents_.begin(), documents_.end(), doc), documents_.end());
    const bool wasActive = ActiveForm() == doc;
    zOrder_.erase(std::remove(zOrder_.begin(), zOrder_.end(), doc), zOrder_.end());
    if (CurrentDocument == doc) CurrentDocument = nullptr;
    if (NewDocWindow == doc) NewDocWindow = nullptr;
    emit documentRemoved(doc);
    const auto owner =
        std::find_if(owned_.begin(), owned_.end(), [doc](const auto& p) { return p.get() == doc; });
    if (owner != owned_.end()) {
        // A handler of the window may still be on the stack: it is freed at the next command.
        closed_.push_back(std::move(*owner));
        owned_.erase(owner);
    }
    if (wasActive && ActiveForm()) {
        emit documentActivated(ActiveForm());
        ActiveForm()->Form_Activate();
    }
    return true;
}

void ShellCore::activateNextDocument(bool backwards) {
    // The tab strip decides the order; with one tab the same one is selected again.
    const int count = TabStrip1.count();
    if (count == 0) return;
    const int current = TabStrip1.selectedIndex();
    const int next = backwards ? (current <= 0 ? count - 1 : current - 1)
                               : (current >= count - 1 ? 0 : current + 1);
    TabStrip1.select(next);
}

void ShellCore::selectTabOf(codeEditor* doc) {
    const int tab = TabStrip1.findKeyIgnoringCase(doc->Caption());
    bSelectingTab = true;
    resumeNext([&] { TabStrip1.select(tab); });
    bSelectingTab = false;
}

void ShellCore::TabStrip1_Click() {
    if (bSelectingTab) return;
    const int selected = TabStrip1.selectedIndex();
    if (selected < 0) return;
    LockWindowUpdate(true);
    const QString key = TabStrip1.tab(selected).Key.toLower();
    for (codeEditor* doc : documents_) {
        if (key == doc->txtFileName.toLower()) {
            doc->ZOrder();
            if (!doc->DHTMLEdit1().Visible()) bLayoutActive = false;
            break;
        }
    }
    LockWindowUpdate(false);
}

void ShellCore::checkFileOnDisk(codeEditor& doc) {
    SourcePane& pane = doc.codebox();
    // Layout works on a copy of its own; the text is checked once Source shows it again.
    if (bLayoutActive || !pane.changedOnDisk()) return;
    const QString path = pane.FileName();
    pane.acceptDiskState();
    if (!stampOf(path).exists) {
        platform_.msgBox(QStringLiteral("The file ") + path +
                             QStringLiteral(" is no longer on the disk: another program moved "
                                            "or removed it. Its text stays open here; save it "
                                            "to keep it."),
                         MsgIcon::Exclamation);
        return;
    }
    if (doc.Tag == QLatin1String("Dirty") &&
        platform_.msgBox(QStringLiteral("The file ") + path +
                             QStringLiteral(" has been changed by another program.\n\nReload it "
                                            "and lose the changes made here?"),
                         MsgIcon::Exclamation, MsgButtons::YesNo) != MsgResult::Yes)
        return;
    // The text before the reload stays a step back.
    resumeNext([&] {
        doc.AddStep();
        pane.LoadFile(path, 1);
        doc.AddStep();
        doc.Tag = QStringLiteral("Clean");
    });
}

bool ShellCore::mayOverwriteChangedFile(codeEditor& doc) {
    SourcePane& pane = doc.codebox();
    if (!pane.changedOnDisk()) return true;
    return platform_.msgBox(QStringLiteral("The file ") + pane.FileName() +
                                QStringLiteral(" has been changed by another program since it "
                                               "was opened here.\n\nSave over those changes?"),
                            MsgIcon::Exclamation, MsgButtons::YesNo) == MsgResult::Yes;
}

void ShellCore::applicationActivated() {
    if (codeEditor* front = ActiveForm()) checkFileOnDisk(*front);
    resumeNext([&] {
        codeEditor* doc = ActiveForm();
        if (!doc) raise(ErrObjectRequired);
        if (bLayoutActive)
            doc->DHTMLEdit1().SetFocus();
        else
            doc->codebox().SetFocus();
    });
}

// ---- shared commands kept current by the documents ----

namespace {
// The tbrMain buttons of the shared edit commands.
enum MainButton {
    ButtonCut = 7,
    ButtonCopy = 8,
    ButtonPaste = 9,
    ButtonUndo = 11,
    ButtonRedo = 12
};
} // namespace

void ShellCore::setUndoEnabled(bool on) {
    menu(QStringLiteral("mnuEditUndo")).setEnabled(on);
    tbrMain.setButtonEnabled(ButtonUndo, on);
}

void ShellCore::setRedoEnabled(bool on) {
    menu(QStringLiteral("mnuEditRedo")).setEnabled(on);
    tbrMain.setButtonEnabled(ButtonRedo, on);
}

void ShellCore::setCutCopyEnabled(bool on) {
    menu(QStringLiteral("mnuEditCut")).setEnabled(on);
    menu(QStringLiteral("mnuEditCopy")).setEnabled(on);
    tbrMain.setButtonEnabled(ButtonCut, on);
    tbrMain.setButtonEnabled(ButtonCopy, on);
}

void ShellCore::setPasteEnabled(bool on) {
    menu(QStringLiteral("mnuEditPaste")).setEnabled(on);
    tbrMain.setButtonEnabled(ButtonPaste, on);
}

} // namespace tsl
