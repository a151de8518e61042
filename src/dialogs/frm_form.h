#pragma once
// Forms: one form control at a time in one of eight kinds (Form Components), the form element
// around the selection or at the caret (Insert Form), and its helper that makes the action a
// mail-to address.
#include "dialogs/dialog_shapes.h"

namespace tsl {

class frmForm : public ElementDialog {
  public:
    explicit frmForm(DialogContext& shell);

    Label fraProperties{this, "fraProperties", "Form Component Properties"};
    Label lblInputType{this, "lblInputType", "Input &Type:"};
    ComboBox cmbInputType{this, "cmbInputType", ComboBox::DropDownList};

    Label picButton{this, "picButton", "Button"};
    Label lblTextBoxName{this, "lblTextBoxName", "&Name:"};
    TextBox txtTextBoxName{this, "txtTextBoxName"};
    Label lblTextBoxValue{this, "lblTextBoxValue", "&Value/Label:"};
    TextBox txtTextBoxValue{this, "txtTextBoxValue"};
    Label lblButtonType{this, "lblButtonType", "&Type:"};
    OptionButton optNorm{this, "optNorm", "Normal"};
    OptionButton optSubmit{this, "optSubmit", "Submit"};
    OptionButton optReset{this, "optReset", "Reset"};

    Label picCheckbox{this, "picCheckbox", "Check Box"};
    Label lblCheckboxName{this, "lblCheckboxName", "&Name:"};
    TextBox txtCheckboxName{this, "txtCheckboxName"};
    Label lblCheckVal{this, "lblCheckVal", "&Value:"};
    TextBox txtCheckVal{this, "txtCheckVal"};
    Label lblState{this, "lblState", "&State:"};
    CheckBox chkChecked{this, "chkChecked", "Checked"};

    Label picList{this, "picList", "List"};
    Label lblListName{this, "lblListName", "&Name:"};
    TextBox txtListName{this, "txtListName"};
    Label lblListHeight{this, "lblListHeight", "&Height in lines:"};
    TextBox txtListHeight{this, "txtListHeight"};
    UpDown udListHeight{this, "udListHeight", txtListHeight, 1, 20};
    Label lblItems{this, "lblItems", "&Number of items:"};
    TextBox txtItems{this, "txtItems"};
    UpDown udItems{this, "udItems", txtItems, 1, 99};
    CheckBox chkMultiple{this, "chkMultiple", "Multiple selection"};

    Label picOption{this, "picOption", "Radio Button"};
    Label lblGrName{this, "lblGrName", "Group &Name:"};
    TextBox txtGrName{this, "txtGrName"};
    Label lblOptVal{this, "lblOptVal", "&Value:"};
    TextBox txtOptVal{this, "txtOptVal"};
    CheckBox chkSelected{this, "chkSelected", "Selected"};

    Label picText{this, "picText", "Text Box"};
    Label lblName{this, "lblName", "&Name:"};
    TextBox txtName{this, "txtName"};
    Label lblValue{this, "lblValue", "&Default text:"};
    TextBox txtValue{this, "txtValue"};
    Label lblSize{this, "lblSize", "&Size:"};
    TextBox txtSize{this, "txtSize"};
    Label lblMax{this, "lblMax", "&Max Length:"};
    TextBox txtMax{this, "txtMax"};

    Label picMulti{this, "picMulti", "Multi-row Text Box"};
    Label lblMultiName{this, "lblMultiName", "&Name:"};
    TextBox txtMultiName{this, "txtMultiName"};
    Label lblMultiText{this, "lblMultiText", "&Default text:"};
    TextBox txtMultiText{this, "txtMultiText"};
    Label lblMultiWidth{this, "lblMultiWidth", "&Width:"};
    TextBox txtMultiWidth{this, "txtMultiWidth"};
    Label lblMultiHeight{this, "lblMultiHeight", "&Height:"};
    TextBox txtMultiHeight{this, "txtMultiHeight"};
    Label lblMultiNote{this, "lblMultiNote",
                       "The width and height measurements are in characters."};

    Label picImage{this, "picImage", "Image"};
    Label lblImgName{this, "lblImgName", "&Name:"};
    TextBox txtImgName{this, "txtImgName"};
    Label lblImgSrc{this, "lblImgSrc", "&Source:"};
    TextBox txtImgSrc{this, "txtImgSrc"};
    CommandButton Command1{this, "Command1", "..."};
    Label lblImgWidth{this, "lblImgWidth", "&Width:"};
    TextBox txtImgWidth{this, "txtImgWidth"};
    Label lblImgHeight{this, "lblImgHeight", "&Height:"};
    TextBox txtImgHeight{this, "txtImgHeight"};
    Label lblImgAlign{this, "lblImgAlign", "&Align:"};
    ComboBox cmbImgAlign{this, "cmbImgAlign", ComboBox::DropDownList};

    Label picHidden{this, "picHidden", "Hidden Field"};
    Label lblHiddenName{this, "lblHiddenName", "&Name:"};
    TextBox txtHiddenName{this, "txtHiddenName"};
    Label lblHiddenValue{this, "lblHiddenValue", "&Value:"};
    TextBox txtHiddenValue{this, "txtHiddenValue"};

    CommandButton cmdOK{this, "cmdOK", "&OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "&Cancel", CommandButton::CancelRole};
    CommonDialog cdOpen;

    // The panels in the order of the kinds in cmbInputType.
    std::vector<Label*> panels();
    // The document the dialog was opened on.
    codeEditor* document = nullptr;

    void Form_Load() override;
    void cmbInputType_Click();
    // The label follows the button's type while it is still one of the three captions.
    void optionClicked(const QString& caption);
    void Command1_Click() { browseFile(cdOpen, txtImgSrc, true); }
    void cmdOK_Click();
    // The markup OK writes for the kind chosen; an empty number of list items is a run-time
    // error.
    QString markup() const;
};

class frmFormSettings : public ElementDialog {
  public:
    explicit frmFormSettings(DialogContext& shell);

    Label fraProperties{this, "fraProperties", "Form Properties"};
    Label lblAction{this, "lblAction", "&Action:"};
    TextBox txtAction{this, "txtAction"};
    CommandButton cmdMail{this, "cmdMail", "E-ma&il..."};
    Label lblMethod{this, "lblMethod", "&Method:"};
    ComboBox cmbMethod{this, "cmbMethod"};
    Label lblEncoding{this, "lblEncoding", "&Encoding Type:"};
    ComboBox cmbEncoding{this, "cmbEncoding"};
    Label lblTarget{this, "lblTarget", "&Target:"};
    ComboBox cmbTarget{this, "cmbTarget"};
    CommandButton cmdOK{this, "cmdOK", "&OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "&Cancel", CommandButton::CancelRole};

    void cmdMail_Click();
    void cmdOK_Click();
    // The opening tag OK writes.
    QString openingTag() const;
};

class frmFormEmail : public Form {
  public:
    explicit frmFormEmail(frmFormSettings& owner);

    Label fraAddress{this, "fraAddress", "E-mail Address"};
    Label lblAddress{this, "lblAddress", "&E-mail Address:"};
    TextBox txtAddress{this, "txtAddress"};
    CommandButton cmdOK{this, "cmdOK", "OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "Cancel", CommandButton::CancelRole};

  private:
    frmFormSettings& owner_;
};

// The kinds of form control, in the order of the list and of the forms toolbar.
const QStringList& formComponentKinds();

} // namespace tsl
