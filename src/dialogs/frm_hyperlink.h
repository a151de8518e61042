#pragma once
// Hyperlinks, named anchors and style sheet links: a link wrapped around the selection or an
// empty one at the caret, its e-mail helper, a named anchor, and a style sheet's link element
// put before the body tag.
#include "dialogs/dialog_shapes.h"

namespace tsl {

class frmHyperlink : public ElementDialog {
  public:
    explicit frmHyperlink(DialogContext& shell);

    Label Frame1{this, "Frame1", "Hyperlink Properties"};
    Label lblURL{this, "lblURL", "&URL:"};
    TextBox URLBox{this, "URLBox"};
    CommandButton cmdOpen{this, "cmdOpen", "..."};
    CommandButton cmdMail{this, "cmdMail", "E-&mail..."};
    Label lblOptional{this, "lblOptional", "Optional Stuff:"};
    Label lblAnchor{this, "lblAnchor", "&Anchor:"};
    TextBox AnchorBox{this, "AnchorBox"};
    Label lblTarget{this, "lblTarget", "&Frame target:"};
    ComboBox cmbTarget{this, "cmbTarget", ComboBox::DropDownList};
    Label lblFName{this, "lblFName", "&Frame name:"};
    TextBox FNameBox{this, "FNameBox"};
    CommandButton OK{this, "OK", "&OK", CommandButton::DefaultRole};
    CommandButton Command3{this, "Command3", "&Cancel", CommandButton::CancelRole};
    CommonDialog CLocal;

    void Form_Load() override;
    void cmbTarget_Click();
    void cmdMail_Click();
    void OK_Click();
    // The opening tag OK would write now.
    QString openingTag() const;
};

class frmEmail : public Form {
  public:
    explicit frmEmail(frmHyperlink& owner);

    Label Frame1{this, "Frame1", "E-mail Details"};
    Label lblAddress{this, "lblAddress", "&E-mail Address:"};
    TextBox txtAddress{this, "txtAddress"};
    Label lblSubject{this, "lblSubject", "&Subject (optional)"};
    TextBox txtSubject{this, "txtSubject"};
    CommandButton cmdOK{this, "cmdOK", "OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "Cancel", CommandButton::CancelRole};

    void cmdOK_Click();

  private:
    frmHyperlink& owner_;
};

class frmAnchor : public ElementDialog {
  public:
    explicit frmAnchor(DialogContext& shell);

    Label Frame1{this, "Frame1", "Anchor / Bookmark Properties"};
    Label lblName{this, "lblName", "&Name :"};
    TextBox AnchorBox{this, "AnchorBox"};
    CommandButton OK{this, "OK", "&OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "&Cancel", CommandButton::CancelRole};

    void OK_Click();
};

class frmLink : public ElementDialog {
  public:
    explicit frmLink(DialogContext& shell);

    Label Frame1{this, "Frame1", "CSS File Location"};
    Label lblLinkTo{this, "lblLinkTo", "&Link to:"};
    TextBox txtLinkTo{this, "txtLinkTo"};
    CommandButton cmdBrowse{this, "cmdBrowse", "..."};
    CommandButton cmdOK{this, "cmdOK", "&OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "&Cancel", CommandButton::CancelRole};
    CommonDialog cdLinkTo;

    void Form_Load() override;
    void cmdOK_Click();
};

} // namespace tsl
