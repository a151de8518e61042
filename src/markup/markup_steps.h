#pragma once
// The shapes the commands that write markup in the Source pane end with.
#include <QString>

namespace tsl {

class codeEditor;
struct ShellState;

// `open` and `close` around the selection, which stays on the wrapped text, or as an empty
// pair with the caret between them; then the step (`codeEditor::AddInsertStep`).
struct Wrapping {
    QString open;
    QString close;
    bool addSelection = true; // the selection goes on the history first
    bool shortStart = false;  // the start is held in 16 bits, so fails past 32767
};
void wrapInSource(ShellState& state, codeEditor& doc, const Wrapping& wrapping);
// The writing alone, for a command with a step of its own. True where it wrapped a
// selection; an empty pair sets the caret's advance and back for the step, which the caller
// clears after it.
bool writePair(ShellState& state, codeEditor& doc, const Wrapping& wrapping);

} // namespace tsl
