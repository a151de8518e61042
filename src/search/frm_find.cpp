#include "search/frm_find.h"
#include "runtime/resume.h"
#include "search/find_replace.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {} // namespace

frmFind::frmFind(DialogContext& shell) : Form(QStringLiteral("frmFind")), shell_(shell) {
    setCaption(QStringLiteral("Find & Replace"));
    OptionButton::group({&optDirectionUp, &optDirectionDown});
    txtFind.Change = [this] { txtFind_Change(); };
    chkCase.Click = [this] { chkCase_Click(); };
    optDirectionUp.Click = [this] { optDirection_Click(0); };
    optDirectionDown.Click = [this] { optDirection_Click(1); };
    cmdFind.Click = [this] { cmdFind_Click(); };
    cmdReplace.Click = [this] { cmdReplace_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    connect(this, &Form::unloaded, this, [this] { Form_Unload(); });
}

void frmFind::Form_Load() {
    shell_.bFindOpen = true;
    cmdFind.setEnabled(false);
    optDirectionDown.setValue(true);
    shell_.part<SearchSession>().Search.FindDirection = 1;
}

void frmFind::Form_Unload() {
    shell_.bFindOpen = false;
    shell_.frmFind.clear();
}

void frmFind::txtFind_Change() {
    shell_.part<SearchSession>().Search.FindChanged = true;
    const bool any = !txtFind.Text().isEmpty();
    enableControls({&cmdFind, &txtReplace, &cmdReplace, &Command1, &Label2}, any);
}

void frmFind::chkCase_Click() {
    shell_.part<SearchSession>().Search.FindMatchCase = Int16(chkCase.Value());
}

void frmFind::optDirection_Click(int index) {
    shell_.part<SearchSession>().Search.FindDirection = Int16(index);
}

SourcePane& frmFind::codebox() const {
    return required(shell_.ActiveForm()).codebox();
}

void frmFind::cmdFind_Click() {
    shell_.part<SearchSession>().Search.FindText = txtFind.Text();
    SourcePane& pane = codebox();
    FindNextMatch(shell_.part<SearchSession>().Search, pane, pane.SelStart(), shell_.platform());
}

void frmFind::cmdReplace_Click() {
    SourcePane& pane = codebox();
    const QString selected = pane.SelText();
    const bool same = chkCase.Value() == 1 ? selected == txtFind.Text()
                                           : lowerFolded(selected) == lowerFolded(txtFind.Text());
    if (!same) {
        cmdFind_Click();
        return;
    }
    pane.setSelText(txtReplace.Text());
    pane.setSelStart(pane.SelStart());
    cmdFind_Click();
    required(shell_.ActiveForm()).CheckToAddStep(false);
}

void frmFind::Command1_Click() {
    shell_.part<SearchSession>().Search.FindText = txtFind.Text();
    const int replaced = ReplaceAllMatches(shell_.part<SearchSession>().Search, codebox(),
                                           txtReplace.Text(), shell_.platform());
    txtFind.SelectAll();
    SetFocus();
    if (replaced > 0) required(shell_.ActiveForm()).CheckToAddStep(false);
}

void frmFind::cmdCancel_Click() {
    resumeNext([&] { shell_.CurrentDocument = shell_.ActiveForm(); });
    resumeNext([&] { shell_.part<SearchSession>().Search.FindText = txtFind.Text(); });
    resumeNext([&] { shell_.part<SearchSession>().Search.FindMatchCase = Int16(chkCase.Value()); });
    Unload();
    resumeNext([&] { required(shell_.CurrentDocument).SetFocus(); });
}

void mnuEditFind_Click(DialogContext& shell) {
    codeEditor& doc = required(shell.ActiveForm());
    if (shell.bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::FindText, 0);
        return;
    }
    shell.CurrentDocument = &doc;
    // The window loads on its first use; an open one is brought forward with the new text.
    frmFind* form = dynamic_cast<frmFind*>(shell.frmFind.data());
    std::unique_ptr<frmFind> made;
    if (!form) {
        made = std::make_unique<frmFind>(shell);
        form = made.get();
        form->Form_Load();
    }
    SourcePane& pane = doc.codebox();
    form->txtFind.setText(pane.SelLength() > 0 ? pane.SelText()
                                               : shell.part<SearchSession>().Search.FindText);
    shell.part<SearchSession>().Search.FindChanged = true;
    if (shell.part<SearchSession>().Search.FindMatchCase != 0) form->chkCase.setValue(1);
    if (made) {
        shell.frmFind = made.get();
        shell.forms().showModeless(std::move(made));
    } else {
        form->Show();
    }
}

void bindFindReplace(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuEditFind"), [&shell] { mnuEditFind_Click(shell); });
}

static const CommandSet findReplaceCommands{bindFindReplace};

} // namespace tsl
