// The undo history of a document: whole-text snapshots, and the rules that decide when typing,
// caret moves, clicks and drops become a step.
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/shell_core.h"
#include <cmath>

namespace tsl {

namespace {
// The clock reading kept for the typing rule: whole seconds, rounded half to even.
qint32 wholeSeconds(double seconds) {
    return static_cast<qint32>(std::nearbyint(seconds));
}

bool isCaretKey(int keyCode) {
    return keyCode >= keys::vbKeyPageUp && keyCode <= keys::vbKeyDown;
}
} // namespace

UndoStep& codeEditor::step(int index) {
    if (index < 0 || index >= kSlots) raise(ErrSubscriptOutOfRange);
    return Steps[static_cast<size_t>(index)];
}

void codeEditor::AddStep() {
    SourcePane& pane = *codebox_;
    if (nDoneIndex == 25) {
        for (int i = 1; i <= 24; ++i)
            Steps[static_cast<size_t>(i)] = Steps[static_cast<size_t>(i + 1)];
        nDoneIndex = 24;
    }
    nDoneIndex = incrementInt16(nDoneIndex);
    UndoStep& s = step(nDoneIndex);
    keepText(s, pane.Text());
    if (shell_.nStepCaretAdvance > 0) {
        s.SelStart = pane.SelStart() + shell_.nStepCaretAdvance;
    } else {
        s.SelStart = pane.SelStart() + (bAutoCloseStep ? 1 : 0);
        bAutoCloseStep = false;
    }
    shell_.nStepCaretAdvance = 0;
    s.CaretBack = shell_.nStepCaretBack > 0 ? shell_.nStepCaretBack : 0;
    shell_.nStepCaretBack = 0;
    s.SelLen = pane.SelLength();
    nTopIndex = nDoneIndex;
    shell_.setUndoEnabled(nDoneIndex > 1);
    shell_.setRedoEnabled(false);
}

void codeEditor::CheckToAddStep(bool) {
    if (nDoneIndex > 0 && step(nDoneIndex - 1).Text == codebox_->Text()) return;
    AddStep();
}

void codeEditor::AddInsertStep() {
    if (!shell_.bCaretStepTaken)
        CheckToAddStep(false);
    else
        AddStep();
}

void codeEditor::AddSelectionToStack() {
    UndoStep& s = step(nDoneIndex);
    s.SelLen = codebox_->SelLength();
    s.SelStart = codebox_->SelStart();
}

void codeEditor::keepText(UndoStep& slot, const QString& text) {
    // The slot below is the nearest older text; a slot with none keeps its text whole.
    const int below = static_cast<int>(&slot - Steps.data()) - 1;
    if (below >= 1)
        slot.Text.assign(text, Steps[static_cast<size_t>(below)].Text);
    else
        slot.Text = text;
}

void codeEditor::overwriteCurrentStep() {
    UndoStep& s = step(nDoneIndex);
    keepText(s, codebox_->Text());
    s.SelLen = codebox_->SelLength();
    s.SelStart = codebox_->SelStart();
}

void codeEditor::Undo() {
    if (!shell_.menu(QStringLiteral("mnuEditUndo")).Enabled() || nDoneIndex <= 1) return;
    SourcePane& pane = *codebox_;
    // Every statement resumes past a slot outside the array.
    resumeNext([&] {
        if (step(nDoneIndex - 1).Text != pane.Text())
            nDoneIndex = toInt16(nDoneIndex - 1);
        else
            nDoneIndex = toInt16(nDoneIndex - 2);
    });
    resumeNext([&] { pane.setText(step(nDoneIndex).Text); });
    resumeNext([&] {
        const UndoStep& s = step(nDoneIndex);
        const UndoStep& t = step(nDoneIndex + 1);
        const qint32 aboveSelLen = t.SelLen;
        if (s.SelLen > 0) {
            pane.setSelStart(s.SelStart);
            pane.setSelLength(s.SelLen);
        } else if (aboveSelLen > 0 && nDoneIndex > 1) {
            Undo();
        } else if (aboveSelLen > 0) {
            pane.setSelStart(s.SelStart);
        } else {
            pane.setSelStart(t.SelStart - static_cast<int>(t.Text.size() - s.Text.size()));
        }
    });
    shell_.setUndoEnabled(nDoneIndex != 1);
    shell_.setRedoEnabled(true);
}

void codeEditor::Redo() {
    if (!shell_.menu(QStringLiteral("mnuEditRedo")).Enabled()) return;
    SourcePane& pane = *codebox_;
    resumeNext([&] {
        if (step(nDoneIndex + 1).Text != pane.Text())
            nDoneIndex = toInt16(nDoneIndex + 1);
        else
            nDoneIndex = toInt16(nDoneIndex + 2);
    });
    resumeNext([&] { pane.setText(step(nDoneIndex).Text); });
    resumeNext([&] {
        const UndoStep& s = step(nDoneIndex);
        pane.setSelStart(s.CaretBack != 0 ? s.SelStart - s.CaretBack : s.SelStart);
    });
    resumeNext([&] { pane.setSelLength(step(nDoneIndex).SelLen); });
    shell_.setRedoEnabled(nDoneIndex < nTopIndex);
    shell_.setUndoEnabled(true);
}

void codeEditor::updateUndoRedoState() {
    const bool online = lblOnlineFile == QLatin1String("Yes") || shell_.bLoadingOnline;
    const int floor = online ? 2 : 1;
    shell_.setUndoEnabled(nDoneIndex > floor);
    shell_.setRedoEnabled(nDoneIndex < nTopIndex);
}

void codeEditor::codebox_KeyUp(int keyCode, int shift) {
    const bool ctrl = shift & keys::CtrlMask;
    if (ctrl && !(shift & keys::ShiftMask) && !(shift & keys::AltMask)) return;
    if (bSkipKeyUp) {
        bSkipKeyUp = false;
        return;
    }
    SourcePane& pane = *codebox_;
    if (isCaretKey(keyCode)) {
        if (nDoneIndex < 1) return;
        const StepText& below = step(nDoneIndex - 1).Text;
        if (below.isEmpty()) return;
        if (below != pane.Text()) {
            AddStep();
            shell_.bCaretStepTaken = true;
        }
        return;
    }
    if (keyCode == keys::vbKeyDelete) AddStep();
    if (step(nDoneIndex).Text == pane.Text()) return;
    const double now = shell_.platform().timer();
    const double elapsed = now - nLastStepTime;
    if (elapsed <= 1.5 && nLastStepTime != 0) {
        overwriteCurrentStep();
        step(nDoneIndex).CaretBack = 0;
        if (nDoneIndex == 2 && step(1).SelLen > 0) step(1).SelLen = 0;
    } else if (nDoneIndex < 1) {
        shell_.nStepCaretAdvance = 0;
        shell_.nStepCaretBack = 0;
        AddStep();
    } else if (step(nDoneIndex - 1).Text != step(nDoneIndex).Text) {
        step(nDoneIndex).CaretBack = 0;
        AddStep();
    }
    nLastStepTime = wholeSeconds(now);
    shell_.setUndoEnabled(true);
}

void codeEditor::codebox_MouseUp(int button, int) {
    if (button == keys::vbRightButton) {
        emit editMenuRequested();
        return;
    }
    if (nDoneIndex <= 1) return;
    if (step(nDoneIndex - 1).Text != codebox_->Text()) {
        step(nDoneIndex).CaretBack = 0;
        AddStep();
    }
    nLastStepTime = wholeSeconds(shell_.platform().timer());
    shell_.bCaretStepTaken = true;
}

void codeEditor::codebox_Change() {
    Tag = QStringLiteral("Dirty");
    SourcePane& pane = *codebox_;
    if (shell_.bDropPending) {
        if (step(nDoneIndex - 1).Text != pane.Text()) {
            if (shell_.bInsertingMarkup)
                CheckToAddStep(true);
            else
                AddStep();
        }
        UndoStep& below = step(nDoneIndex - 1);
        if (shell_.bTagDropPending && below.SelLen > 0) {
            below.SelStart = pane.SelStart() - (shell_.nTagDropBack - 1);
            below.SelLen = 0;
        }
        overwriteCurrentStep();
        shell_.setUndoEnabled(true);
    }
    shell_.bTagDropPending = false;
    shell_.bDropPending = false;
    shell_.nStepCaretAdvance = 0;
    shell_.nStepCaretBack = 0;
    if (!shell_.bInsertingMarkup) shell_.bCaretStepTaken = false;
    if (shell_.bLoadingOnline) AddStep();
}

void codeEditor::codebox_OLEStartDrag() {
    overwriteCurrentStep();
    step(nDoneIndex).CaretBack = 0;
}

void codeEditor::codebox_OLECompleteDrag() {
    shell_.bDropPending = true;
}

} // namespace tsl
