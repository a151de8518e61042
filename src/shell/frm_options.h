#pragma once
// The Preferences dialog: editor font, wrap, bracket pairing, secondary browser, default
// folder and relative paths.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "platform/common_dialog.h"

namespace tsl {

class ShellMDI;

class frmOptions : public Form {
  public:
    explicit frmOptions(ShellMDI& shell);

    Label fraEditor{QStringLiteral("fraEditor")};
    Label fraLocations{QStringLiteral("fraLocations")};
    Label lblFontFace{QStringLiteral("lblFontFace")};
    ComboBox FontFace{QStringLiteral("FontFace")};
    Label lblSize{QStringLiteral("lblSize")};
    TextBox Size{QStringLiteral("Size")};
    UpDown UpDown1{QStringLiteral("UpDown1")};
    CheckBox chkWordWrap{QStringLiteral("chkWordWrap")};
    CheckBox chkAutoClose{QStringLiteral("chkAutoClose")};
    Label lblBrowser{QStringLiteral("lblBrowser")};
    TextBox Text1{QStringLiteral("Text1")};
    CommandButton Command1{QStringLiteral("Command1")};
    Label lblDefaultDir{QStringLiteral("lblDefaultDir")};
    TextBox PreviewBox{QStringLiteral("PreviewBox")};
    CommandButton Command2{QStringLiteral("Command2")};
    CheckBox chkRelative{QStringLiteral("chkRelative")};
    Label Label1{QStringLiteral("Label1")};
    CommandButton OK{QStringLiteral("OK")};
    CommandButton Cancel{QStringLiteral("Cancel")};
    CommonDialog Browser;

    void Form_Load();
    void Size_KeyPress(int& keyAscii);
    void Command1_Click();
    void Command2_Click();
    void OK_Click();
    void Cancel_Click();

  private:
    void closeAndReturn();
    ShellMDI& shell_;
};

} // namespace tsl
