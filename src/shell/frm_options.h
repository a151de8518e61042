#pragma once
// The Preferences dialog: editor font, wrap, bracket pairing, secondary browser, default
// folder and relative paths.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "platform/common_dialog.h"
#include "shell/dialog_context.h"

namespace tsl {

class frmOptions : public Form {
  public:
    explicit frmOptions(DialogContext& shell);

    Label fraEditor{this, "fraEditor", "Editor Settings"};
    Label fraLocations{this, "fraLocations", "File Locations"};
    Label lblFontFace{this, "lblFontFace", "Font &Name:"};
    ComboBox FontFace{this, "FontFace"};
    Label lblSize{this, "lblSize", "Font &Size:"};
    TextBox Size{this, "Size"};
    UpDown UpDown1{this, "UpDown1", Size, 6, 72};
    CheckBox chkWordWrap{this, "chkWordWrap", "&Word Wrap"};
    CheckBox chkAutoClose{this, "chkAutoClose", "Auto &Close Bracket"};
    Label lblBrowser{this, "lblBrowser", "Secondary B&rowser:"};
    TextBox Text1{this, "Text1"};
    CommandButton Command1{this, "Command1", "..."};
    Label lblDefaultDir{this, "lblDefaultDir", "Default Directory:"};
    TextBox PreviewBox{this, "PreviewBox"};
    CommandButton Command2{this, "Command2", "..."};
    CheckBox chkRelative{this, "chkRelative", "Calculate Relative Paths"};
    Label Label1{this, "Label1",
                 "Note: your default browser has already been defined by Tessaline, based on "
                 "your computer's associations for htm / html file types."};
    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog Browser;

    void Form_Load();
    void Size_KeyPress(int& keyAscii);
    void Command1_Click();
    void Command2_Click();
    void OK_Click();
    void Cancel_Click();

  private:
    void closeAndReturn();
    DialogContext& shell_;
};

} // namespace tsl
