#pragma once
// Insert Horizontal Line: the width, height, alignment and shading of a rule.
#include "dialogs/dialog_shapes.h"

namespace tsl {

class frmLine : public ElementDialog {
  public:
    explicit frmLine(DialogContext& shell);

    Label fraSize{this, "fraSize", "Size"};
    Label lblWidth{this, "lblWidth", "&Width:"};
    TextBox WidthBox{this, "WidthBox"};
    UpDown UpDown1{this, "UpDown1", WidthBox, 0, 100};
    OptionButton WPercOpt{this, "WPercOpt", "Percent"};
    OptionButton WPixOpt{this, "WPixOpt", "Pixels"};
    Label lblHeight{this, "lblHeight", "&Height:"};
    TextBox SizeBox{this, "SizeBox"};
    UpDown UpDown2{this, "UpDown2", SizeBox, 0, 100};
    Label lblPixels{this, "lblPixels", "Pixels"};

    Label fraAlign{this, "fraAlign", "Alignment"};
    OptionButton LeftOpt{this, "LeftOpt", "&Left"};
    OptionButton CentreOpt{this, "CentreOpt", "&Center"};
    OptionButton RtOpt{this, "RtOpt", "&Right"};

    Label fraColour{this, "fraColour", "Colour"};
    CheckBox Check1{this, "Check1", "&No shading"};
    Label lblColour{this, "lblColour", "&Colour:"};
    TextBox Colour{this, "Colour"};
    CommandButton cmdMore{this, "cmdMore", "..."};
    // Shows the colour typed or picked.
    Label Picture1{this, "Picture1", QString()};

    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog cdColour;

    void Check1_Click();
    void Colour_Change();
    void WPercOpt_Click();
    void WPixOpt_Click();
    void OK_Click();
    void Cancel_Click();
    // The rule OK would write now.
    QString markup() const;
};

} // namespace tsl
