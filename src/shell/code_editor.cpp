#include "shell/code_editor.h"
#include "runtime/resume.h"
#include "shell/shell_core.h"
#include "shell/skeletons.h"

namespace tsl {

codeEditor::codeEditor(ShellCore& shell, std::unique_ptr<SourcePane> codebox,
                       std::unique_ptr<LayoutSurface> layout,
                       std::unique_ptr<BrowserSurface> browser)
    : cdColor(shell.platform()), shell_(shell), codebox_(std::move(codebox)),
      layout_(std::move(layout)),
      browser_(browser ? std::move(browser) : std::make_unique<DetachedBrowser>()) {
    codebox_->Change = [this] { codebox_Change(); };
    buildViews();
}

codeEditor::~codeEditor() {
    codebox_->Change = nullptr;
    layout_->DisplayChanged = nullptr;
    browser_->BeforeNavigate2 = nullptr;
}

void codeEditor::setCaption(const QString& caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    emit captionChanged();
}

void codeEditor::Form_Load() {
    SourcePane& pane = *codebox_;
    pane.setSelStart(0);
    pane.setSelLength(pane.length());
    pane.setSelIndent(80);
    if (shell_.bNewDocument) {
        if (shell_.bNewIsHtml) {
            if (!shell_.bLoadingOnline) {
                pane.setText(kHtmlSkeleton);
                pane.setSelStart(kHtmlSkeletonCaret);
            }
        } else {
            pane.setText(kCssSkeleton);
            pane.setSelStart(pane.length());
        }
        AddStep();
        // A window for a fetched page starts two below its first step: the write of the
        // fetched text under the same flag brings it up to 0.
        if (shell_.bLoadingOnline) nDoneIndex = toInt16(nDoneIndex - 2);
    }
    const SettingsStore& settings = shell_.settings();
    pane.setFontName(settings.get(keys::Fuzzies, keys::FontName, QStringLiteral("Courier New")));
    resumeNext([&] {
        bool ok = false;
        const double size =
            settings.get(keys::Fuzzies, keys::FontSize, QStringLiteral("9")).toDouble(&ok);
        if (!ok || size <= 0) raise(ErrInvalidPropertyValue);
        pane.setFontSize(size);
    });
    pane.setRightMargin(
        rightMarginFor(settings.get(keys::Fuzzies, keys::WordWrap, QStringLiteral("1"))));
    if (shell_.bCommandsDisabled) shell_.EnableDocumentCommands();
}

void codeEditor::Form_Activate() {
    shell_.stateDocument_ = this;
    shell_.stateKind_ = CSSDoc;
    const int tab = shell_.TabStrip1.findKeyIgnoringCase(caption_);
    if (tab >= 0) {
        shell_.bSelectingTab = true;
        resumeNext([&] { shell_.TabStrip1.select(tab); });
        shell_.bSelectingTab = false;
    }
    updateUndoRedoState();

    // The commands by the kind of document and its selected view.
    const bool selection = codebox_->SelLength() > 0;
    if (CSSDoc == QLatin1String("Yes")) {
        shell_.SetCssCommandState();
    } else {
        shell_.SetHtmlCommandState();
        cToolbar& main = shell_.tbrMain;
        switch (SelectedTab) {
        case 2: // Layout
            shell_.bLayoutActive = true;
            shell_.EnableDocumentCommands();
            main.setButtonEnabled(22, false);
            shell_.tbrTags.setButtonEnabled(18, false);
            break;
        case 3: // Preview: only print and preview remain
            shell_.DisableDocumentCommands();
            shell_.setUndoEnabled(false);
            shell_.setRedoEnabled(false);
            main.setButtonEnabled(5, true);
            main.setButtonEnabled(14, true);
            shell_.menu(QStringLiteral("mnuFilePrint")).setEnabled(true);
            shell_.menu(QStringLiteral("mnuFilePreview")).setEnabled(true);
            return;
        default: // Source
            shell_.EnableDocumentCommands();
            shell_.bLayoutActive = false;
            shell_.tbrTags.setButtonEnabled(18, true);
            main.setButtonEnabled(19, true);
            main.setButtonEnabled(20, true);
            shell_.setCutCopyEnabled(selection);
            if (shell_.platform().clipboardText().isEmpty()) shell_.setPasteEnabled(false);
            break;
        }
    }
    shell_.setCutCopyEnabled(selection);
}

void codeEditor::Show() {
    if (!shown_) {
        shown_ = true;
        shell_.documentShown(this);
    } else {
        shell_.bringToFront(this);
    }
}

void codeEditor::SetFocus() {
    shell_.bringToFront(this);
    emit focusRequested();
}

void codeEditor::ZOrder() {
    shell_.bringToFront(this);
}

void codeEditor::askToSave(int& cancel, bool fromLayout) {
    ZOrder();
    const int tab = shell_.TabStrip1.findKeyIgnoringCase(caption_);
    shell_.bSelectingTab = true;
    resumeNext([&] { shell_.TabStrip1.select(tab); });
    shell_.bSelectingTab = false;
    const MsgResult answer = shell_.platform().msgBox(
        QStringLiteral("Do you want to save the changes made to ") + caption_ + QStringLiteral("?"),
        MsgIcon::Exclamation, MsgButtons::YesNoCancel, QStringLiteral("Tessaline"));
    if (answer == MsgResult::Cancel) {
        cancel = 1;
        if (shell_.bClosingAll && !fromLayout) shell_.bCloseAllCancelled = true;
        shell_.LockWindowUpdate(false);
        codebox_->SetFocus();
        return;
    }
    cancel = 0;
    if (answer != MsgResult::Yes) return;
    // Errors are ignored: a cancelled save dialog here lets the window go unsaved.
    if (!codebox_->FileName().isEmpty()) {
        resumeNext([&] {
            if (shell_.bLayoutActive) codebox_->setText(layout_->DocumentHTML());
        });
        resumeNext([&] { codebox_->SaveFile(codebox_->FileName(), 1); });
    } else {
        resumeNext([&] {
            if (shell_.bLayoutActive) codebox_->setText(layout_->DocumentHTML());
        });
        resumeNext([&] { shell_.OpenSave.ShowSave(); });
        const QString path = shell_.OpenSave.FileName;
        if (resumeNext([&] { codebox_->SaveFile(path, 1); }) == 0) codebox_->setFileName(path);
    }
    Tag = QStringLiteral("Dirty");
    cancel = 0;
}

int codeEditor::Form_QueryUnload() {
    int cancel = 0;
    shell_.OpenSave.FileName.clear();
    if (!bSaveAsked) {
        if (layout_->DocumentHTML() == codebox_->Text()) {
            // Two panes that agree close without a question, whatever the Tag.
        } else if (Tag == QLatin1String("Dirty")) {
            askToSave(cancel, false);
            if (cancel) return cancel;
            bSaveAsked = true;
        } else if (layout_->IsDirty()) {
            if (shell_.bLayoutActive) {
                askToSave(cancel, true);
                if (cancel) return cancel;
            }
            bSaveAsked = true;
        }
    }
    const int tab = shell_.TabStrip1.findKeyIgnoringCase(txtFileName);
    if (tab >= 0) resumeNext([&] { shell_.TabStrip1.remove(tab); });
    return cancel;
}

void codeEditor::Form_Unload() {
    // The find window goes with any document.
    if (shell_.frmFind) shell_.frmFind->Unload();
    if (shell_.FormsCount() - 1 == 1) shell_.DisableDocumentCommands();
}

} // namespace tsl
