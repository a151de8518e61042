#pragma once
// Undo, Redo, Cut, Copy and Paste are each a menu item and a tbrMain button shared by all
// documents; the editor turns both on and off together.
#include "shell/shell_mdi.h"

namespace tsl {

// The tbrMain buttons of the shared edit commands.
namespace mainbutton {
enum Index { Cut = 7, Copy = 8, Paste = 9, Undo = 11, Redo = 12 };
}

inline void setUndoCommand(ShellMDI& shell, bool on) {
    shell.setUndoEnabled(on);
    shell.tbrMain.setButtonEnabled(mainbutton::Undo, on);
}

inline void setRedoCommand(ShellMDI& shell, bool on) {
    shell.setRedoEnabled(on);
    shell.tbrMain.setButtonEnabled(mainbutton::Redo, on);
}

inline void setCutCopyCommands(ShellMDI& shell, bool on) {
    shell.setCutCopyEnabled(on);
    shell.tbrMain.setButtonEnabled(mainbutton::Cut, on);
    shell.tbrMain.setButtonEnabled(mainbutton::Copy, on);
}

inline void setPasteCommand(ShellMDI& shell, bool on) {
    shell.setPasteEnabled(on);
    shell.tbrMain.setButtonEnabled(mainbutton::Paste, on);
}

} // namespace tsl
