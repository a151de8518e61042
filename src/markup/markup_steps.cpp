#include "markup/markup_steps.h"
#include "shell/code_editor.h"
#include "shell/dialog_context.h"

namespace tsl {

bool writePair(ShellState& state, codeEditor& doc, const Wrapping& w) {
    SourcePane& pane = doc.codebox();
    const int open = static_cast<int>(w.open.size());
    const int close = static_cast<int>(w.close.size());
    if (pane.SelLength() > 0) {
        if (w.addSelection) doc.AddSelectionToStack();
        const int selected = pane.SelLength();
        pane.setSelStart(pane.SelStart());
        const int start = w.shortStart ? toInt16(pane.SelStart()) : pane.SelStart();
        pane.setSelText(w.open);
        pane.setSelStart(start + selected + open);
        pane.setSelText(w.close);
        pane.setSelStart(start + open);
        pane.setSelLength(selected);
        return true;
    }
    pane.setSelText(w.open + w.close);
    pane.setSelStart(pane.SelStart() - close);
    state.nStepCaretAdvance = toInt16(close);
    state.nStepCaretBack = toInt16(close);
    return false;
}

void wrapInSource(ShellState& state, codeEditor& doc, const Wrapping& w) {
    writePair(state, doc, w);
    doc.AddInsertStep();
    state.nStepCaretAdvance = 0;
    state.nStepCaretBack = 0;
}

} // namespace tsl
