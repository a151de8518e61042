#pragma once
// Font: a font element and character tags around the selection or at the caret. Base Font: a
// basefont element ahead of the body tag.
#include "dialogs/dialog_shapes.h"

namespace tsl {

// The undo call the Font dialog makes after it wrote: with a font element a taken caret step
// is kept apart; without one it is the step, and no tags at all changed nothing.
enum class StepCall { None, CheckToAddStep, AddStep, DecreaseNDoneIndex };
StepCall fontStepCall(bool fontElement, bool nothingWritten, bool caretStepTaken);

// The preview size in points of each size of the Font dialog's list ("Normal" and "1" to "7").
double fontPreviewPoints(const QString& size);

class fontSettings : public ElementDialog {
  public:
    explicit fontSettings(DialogContext& shell);

    Label Frame1{this, "Frame1", "Font Properties"};
    Label lblFace{this, "lblFace", "Font &Face:"};
    ComboBox Combo1{this, "Combo1", ComboBox::DropDownList};
    Label lblSize{this, "lblSize", "Font &Size:"};
    ComboBox Combo2{this, "Combo2", ComboBox::DropDownList};
    Label lblColour{this, "lblColour", "Font &Colour:"};
    tsl::TextBox TextBox{this, "TextBox"};
    CommandButton Command1{this, "Command1", "Choose colour"};
    CheckBox Check1{this, "Check1", "Bold"};
    CheckBox Check2{this, "Check2", "Italic"};
    CheckBox Check3{this, "Check3", "Underline"};
    CheckBox Check4{this, "Check4", "Strikethrough"};
    CheckBox Check5{this, "Check5", "Typewriter"};
    Label Picture1{this, "Picture1", "Preview"};
    Label Label6{this, "Label6", "The font face, font size, and other attributes are shown here."};
    // The face chosen before Typewriter took its place.
    Label Label7{this, "Label7", QString()};
    CommandButton Command2{this, "Command2", "&OK", CommandButton::DefaultRole};
    CommandButton Command3{this, "Command3", "&Cancel", CommandButton::CancelRole};
    CommonDialog cdColour;

    void Combo1_Click();
    void Combo2_Click();
    void Command1_Click();
    void Check5_Click();
    void Command2_Click();
    void Command3_Click() { cancelDialog(); }
    // What Command2 writes before and after the selection.
    struct Tags {
        QString open;
        QString close;
        bool font = false;
    };
    Tags tags() const;
};

class frmBasefont : public ElementDialog {
  public:
    explicit frmBasefont(DialogContext& shell);

    Label Frame1{this, "Frame1", "Base Font Properties"};
    Label lblFace{this, "lblFace", "&Face:"};
    ComboBox cmbFace{this, "cmbFace", ComboBox::DropDownList};
    Label lblSize{this, "lblSize", "&Size:"};
    ComboBox cmbSize{this, "cmbSize", ComboBox::DropDownList};
    CommandButton OK{this, "OK", "&OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "&Cancel", CommandButton::CancelRole};

    void OK_Click();
    void Cancel_Click();
    // The element OK writes, with its line feed.
    QString markup() const;
};

} // namespace tsl
