// The Edit commands every document shares (Cut, Copy, Paste, Select All, Undo, Redo) and the
// one path by which markup reaches the document in front.
#include "runtime/resume.h"
#include "shell/command_registry.h"
#include "shell/shell_core.h"

namespace tsl {

namespace {} // namespace

void ShellCore::InsertMarkup(const QString& markup) {
    codeEditor& doc = required(ActiveForm());
    if (bLayoutActive)
        doc.DHTMLEdit1().pasteHTML(markup);
    else
        doc.codebox().setSelText(markup);
}

void ShellCore::mnuEditCut_Click() {
    codeEditor& doc = required(ActiveForm());
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Cut);
        doc.DHTMLEdit1().SetFocus();
    } else {
        SourcePane& pane = doc.codebox();
        doc.AddSelectionToStack();
        platform_.setClipboardText(pane.SelText());
        pane.setSelText(QString());
        doc.AddStep();
        setUndoEnabled(true);
    }
    setPasteEnabled(true);
}

void ShellCore::mnuEditCopy_Click() {
    codeEditor& doc = required(ActiveForm());
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Copy);
        doc.DHTMLEdit1().SetFocus();
    } else {
        platform_.setClipboardText(QString());
        platform_.setClipboardText(doc.codebox().SelText());
    }
    setPasteEnabled(true);
}

void ShellCore::mnuEditPaste_Click() {
    codeEditor& doc = required(ActiveForm());
    // The markup flag stays set when this command ends; the next change reads it.
    bInsertingMarkup = true;
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Paste);
        doc.DHTMLEdit1().SetFocus();
        return;
    }
    doc.AddSelectionToStack();
    doc.codebox().setSelText(platform_.clipboardText());
    if (!bCaretStepTaken) doc.CheckToAddStep(false);
    setUndoEnabled(true);
}

void ShellCore::mnuEditSelectall_Click() {
    codeEditor& doc = required(ActiveForm());
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::SelectAll);
        return;
    }
    SourcePane& pane = doc.codebox();
    pane.setSelStart(0);
    pane.setSelLength(pane.length());
    pane.SetFocus();
}

void ShellCore::mnuEditUndo_Click() {
    codeEditor& doc = required(ActiveForm());
    if (bLayoutActive)
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Undo);
    else
        doc.Undo();
}

void ShellCore::mnuEditRedo_Click() {
    codeEditor& doc = required(ActiveForm());
    if (bLayoutActive)
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Redo);
    else
        doc.Redo();
}

void bindEditCommands(ShellCore& shell, Commands& commands) {
    ShellCore* s = &shell;
    const std::pair<const char*, void (ShellCore::*)()> items[] = {
        {"mnuEditUndo", &ShellCore::mnuEditUndo_Click},
        {"mnuEditRedo", &ShellCore::mnuEditRedo_Click},
        {"mnuEditCut", &ShellCore::mnuEditCut_Click},
        {"mnuEditCopy", &ShellCore::mnuEditCopy_Click},
        {"mnuEditPaste", &ShellCore::mnuEditPaste_Click},
        {"mnuEditSelectall", &ShellCore::mnuEditSelectall_Click},
    };
    for (const auto& [item, handler] : items)
        commands.bind(QLatin1String(item), [s, handler = handler] { (s->*handler)(); });
}

static const CommandSet editCommands{bindEditCommands};

} // namespace tsl
