#pragma once
// Find & Replace: a window beside the documents that searches and replaces in the Source text
// of whichever document is in front. Its search state is the program's, not its own.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "shell/dialog_context.h"

namespace tsl {

class SourcePane;

class frmFind : public Form {
  public:
    explicit frmFind(DialogContext& shell);

    Label Label1{this, "Label1", "Fi&nd What:"};
    TextBox txtFind{this, "txtFind"};
    Label Label2{this, "Label2", "&Replace With:"};
    TextBox txtReplace{this, "txtReplace"};
    Label Frame1{this, "Frame1", "Direction"};
    OptionButton optDirectionUp{this, "optDirection0", "&Up"};
    OptionButton optDirectionDown{this, "optDirection1", "&Down"};
    CheckBox chkCase{this, "chkCase", "Match &Case"};
    CommandButton cmdFind{this, "cmdFind", "&Find", CommandButton::DefaultRole};
    CommandButton cmdReplace{this, "cmdReplace", "&Replace"};
    CommandButton Command1{this, "Command1", "Replace &All"};
    CommandButton cmdCancel{this, "cmdCancel", "Cancel", CommandButton::CancelRole};

    void Form_Load();
    void Form_Unload();
    void txtFind_Change();
    void chkCase_Click();
    void optDirection_Click(int index);
    void cmdFind_Click();
    void cmdReplace_Click();
    void Command1_Click();
    void cmdCancel_Click();

  private:
    SourcePane& codebox() const;
    DialogContext& shell_;
};

// Edit > Find & Replace: the window for the document in front, or the Layout surface's own
// find in Layout view.
void mnuEditFind_Click(DialogContext& shell);

} // namespace tsl
