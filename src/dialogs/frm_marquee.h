#pragma once
// Insert Marquee: a text that moves, with its direction, speed, behaviour, size and colour.
#include "dialogs/dialog_shapes.h"

namespace tsl {

class frmMarquee : public ElementDialog {
  public:
    explicit frmMarquee(DialogContext& shell);

    Label lblText{this, "lblText", "&Text:"};
    tsl::TextBox TextBox{this, "TextBox"};

    Label fraDirection{this, "fraDirection", "&Direction:"};
    OptionButton LeftOpt{this, "LeftOpt", "Left"};
    OptionButton RightOpt{this, "RightOpt", "Right"};

    Label fraMovement{this, "fraMovement", "&Movement:"};
    Label lblAmount{this, "lblAmount", "Amount:"};
    tsl::TextBox AmountBox{this, "AmountBox"};
    UpDown UpDown1{this, "UpDown1", AmountBox, 0, 1620};
    Label lblDelay{this, "lblDelay", "Delay:"};
    tsl::TextBox DelayBox{this, "DelayBox"};
    UpDown DUD{this, "DUD", DelayBox, 0, 1620};

    Label fraAction{this, "fraAction", "&Action:"};
    OptionButton ScrollOpt{this, "ScrollOpt", "Scroll"};
    OptionButton SlideOpt{this, "SlideOpt", "Slide"};
    OptionButton BounceOpt{this, "BounceOpt", "Bounce"};

    Label fraRepeat{this, "fraRepeat", "&Repeat:"};
    CheckBox chkInfinite{this, "chkInfinite", "Infinite"};
    tsl::TextBox RepBox{this, "RepBox"};
    UpDown UpDown4{this, "UpDown4", RepBox, 0, 250};
    Label lblTimes{this, "lblTimes", "times"};

    Label fraAlign{this, "fraAlign", "Align&ment:"};
    OptionButton TopOpt{this, "TopOpt", "Top"};
    OptionButton MiddleOpt{this, "MiddleOpt", "Middle"};
    OptionButton BottomOpt{this, "BottomOpt", "Bottom"};

    Label fraSize{this, "fraSize", "&Size:"};
    CheckBox chkWidth{this, "chkWidth", "Width"};
    tsl::TextBox WidthBox{this, "WidthBox"};
    UpDown UpDown2{this, "UpDown2", WidthBox, 0, 1620};
    OptionButton PixelOpt{this, "PixelOpt", "Pixels"};
    OptionButton PercentOpt{this, "PercentOpt", "Percent"};
    CheckBox chkHeight{this, "chkHeight", "Height"};
    tsl::TextBox HeightBox{this, "HeightBox"};
    UpDown UpDown3{this, "UpDown3", HeightBox, 0, 1620};
    OptionButton HPixOpt{this, "HPixOpt", "Pixels"};
    OptionButton HPerOpt{this, "HPerOpt", "Percent"};

    Label lblColour{this, "lblColour", "Background &Color:"};
    tsl::TextBox ColourBox{this, "ColourBox"};
    CommandButton MoreColours{this, "MoreColours", "..."};

    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog cdColour;

    void Form_Load() override;
    void chkWidth_Click();
    void chkHeight_Click();
    void chkInfinite_Click();
    void OK_Click();
    void Cancel_Click() { cancelDialog(); }
    // The element OK would write now.
    QString markup() const;
};

} // namespace tsl
