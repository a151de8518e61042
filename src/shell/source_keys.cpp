// The Source pane's own keys, the automatic bracket pair, and the commands it keeps current.
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/shell_core.h"

namespace tsl {

namespace {
bool has(int shift, int bits) {
    return (shift & bits) == bits;
}
} // namespace

void codeEditor::codebox_KeyDown(int& keyCode, int shift) {
    SourcePane& pane = *codebox_;
    const bool ctrl = has(shift, keys::CtrlMask);
    const bool shiftCtrl = has(shift, keys::CtrlMask | keys::ShiftMask);
    if (keyCode == keys::vbKeyReturn && ctrl) pane.setSelText(QStringLiteral("<br>"));
    if (keyCode == keys::vbKeyP && shiftCtrl) {
        if (pane.SelLength() < 1) {
            pane.setSelText(QStringLiteral("<p>"));
        } else {
            const Int16 length = toInt16(pane.SelLength());
            pane.setSelStart(pane.SelStart());
            pane.setSelText(QStringLiteral("<p>"));
            pane.setSelLength(length);
        }
    }
    if (keyCode == keys::vbKeyQ && shiftCtrl) {
        if (pane.SelLength() < 1) {
            pane.setSelText(QStringLiteral("</p>"));
        } else {
            const Int16 length = toInt16(pane.SelLength());
            const Int16 start = toInt16(pane.SelStart());
            pane.setSelStart(start + length);
            pane.setSelText(QStringLiteral("</p>"));
            pane.setSelStart(start);
            pane.setSelLength(length);
        }
    }
    if (keyCode == keys::vbKeySpace && shiftCtrl) pane.setSelText(QStringLiteral("&nbsp;"));
    if (keyCode == keys::vbKeyZ && ctrl) {
        Undo();
        keyCode = 0;
    }
    if (keyCode == keys::vbKeyY && ctrl) {
        Redo();
        keyCode = 0;
    }
    if ((keyCode == keys::vbKeyInsert && has(shift, keys::ShiftMask)) ||
        (keyCode == keys::vbKeyV && ctrl)) {
        shell_.mnuEditPaste_Click();
        keyCode = 0;
    }
    if ((keyCode == keys::vbKeyX && ctrl) ||
        (keyCode == keys::vbKeyDelete && has(shift, keys::ShiftMask))) {
        bSkipKeyUp = true;
        shell_.mnuEditCut_Click();
        keyCode = 0;
    }
    const bool menuShortcut = (ctrl && (keyCode == keys::vbKeyB || keyCode == keys::vbKeyI ||
                                        keyCode == keys::vbKeyU || keyCode == keys::vbKeyE)) ||
                              keyCode == keys::vbKeyF12;
    if (menuShortcut) {
        // The menu shortcut of the same key does the work.
        shell_.bInsertingMarkup = true;
        bSkipKeyUp = true;
    }
}

void codeEditor::codebox_KeyPress(int& keyAscii) {
    if (!shell_.bAutoCloseTag || keyAscii != '<') return;
    SourcePane& pane = *codebox_;
    pane.setSelText(QStringLiteral("<>"));
    pane.setSelStart(pane.SelStart() - 1);
    keyAscii = 0;
    bAutoCloseStep = true;
    AddStep();
}

void codeEditor::codebox_SelChange() {
    shell_.setCutCopyEnabled(codebox_->SelLength() != 0);
    shell_.setPasteEnabled(!shell_.platform().clipboardText().isEmpty());
}

// A right click on the window outside the pane offers the Edit menu as well.
void codeEditor::Form_MouseDown(int button, int) {
    if (button == keys::vbRightButton) emit editMenuRequested();
}

void codeEditor::Form_KeyDown(int& keyCode, int shift) {
    const bool ctrl = has(shift, keys::CtrlMask);
    if (keyCode == keys::vbKeyF6 && has(shift, keys::CtrlMask | keys::ShiftMask)) {
        keyCode = 0;
        shell_.activateNextDocument(true);
    } else if (keyCode == keys::vbKeyF6 && ctrl) {
        keyCode = 0;
        shell_.activateNextDocument(false);
    } else if (keyCode == keys::vbKeyF4 && ctrl) {
        keyCode = 0;
        shell_.unloadDocument(this);
    }
}

} // namespace tsl
