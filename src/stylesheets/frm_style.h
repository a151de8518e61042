#pragma once
// The style dialog: about a hundred fields on six tabs that describe one CSS rule, the saved
// definitions behind its name list, and OK, which writes the rule into the document.
#include "dialogs/dialog_shapes.h"
#include "gadgets/tab_control.h"
#include "gadgets/toolbar.h"
#include "stylesheets/style_session.h"

namespace tsl {

class codeEditor;

inline const QString kNewStyle = QStringLiteral("(New Style)");

class frmStyle : public ElementDialog {
  public:
    explicit frmStyle(DialogContext& shell);

    // Above the tabs.
    cToolbar tbrStyle{QStringLiteral("tbrStyle")};
    Label lblName{this, "lblName", "&Name:"};
    ComboBox cmbItemName{this, "cmbItemName", ComboBox::DropDownList};
    Label lblTag{this, "lblTag", "Tag:"};
    ComboBox TagName{this, "TagName", ComboBox::DropDownCombo};
    Label lblClass{this, "lblClass", "Class Name:"};
    TextBox ClassBox{this, "ClassBox"};
    TabControl SSTab1{this, "SSTab1"};

    // Tab "   Font   ".
    Label lblFontFace{this, "lblFontFace", "Font Face:"};
    ComboBox FontFaceCmb{this, "FontFaceCmb", ComboBox::DropDownList};
    Label lblSecondFont{this, "lblSecondFont", "Secondary Font:"};
    CheckBox SecondFontChk{this, "SecondFontChk", ""};
    ComboBox FontFaceCmb2{this, "FontFaceCmb2", ComboBox::DropDownList};
    Label lblGenFont{this, "lblGenFont", "Generic Font:"};
    CheckBox GenFontChk{this, "GenFontChk", ""};
    ComboBox FontGenCmb{this, "FontGenCmb", ComboBox::DropDownList};
    Label lblSize{this, "lblSize", "Size:"};
    ComboBox FntSizeCmb{this, "FntSizeCmb", ComboBox::DropDownList};
    TextBox FontSizeBox{this, "FontSizeBox"};
    UpDown UpDown3{this, "UpDown3", FontSizeBox, 0, 100};
    ComboBox FontSizeCmb{this, "FontSizeCmb", ComboBox::DropDownList};
    Label lblWeight{this, "lblWeight", "Weight:"};
    ComboBox BoldCmb{this, "BoldCmb", ComboBox::DropDownList};
    Label lblStyle{this, "lblStyle", "Style:"};
    ComboBox ItalicCmb{this, "ItalicCmb", ComboBox::DropDownList};
    CheckBox SmlCaps{this, "SmlCaps", "Small Caps"};
    Label lblColour{this, "lblColour", "Colour:"};
    TextBox ColourBox{this, "ColourBox"};
    CommandButton CmdcoloursMore{this, "CmdcoloursMore", "..."};
    Label lblAlign{this, "lblAlign", "Alignment:"};
    ComboBox AlignCmb{this, "AlignCmb", ComboBox::DropDownList};
    Label lblVAlign{this, "lblVAlign", "Vertical Alignment:"};
    ComboBox VCmb{this, "VCmb", ComboBox::DropDownList};
    TextBox ValignBox{this, "ValignBox"};
    UpDown UpDownVA{this, "UpDownVA", ValignBox, -100, 100};
    Label lblLineHt{this, "lblLineHt", "Line Height:"};
    TextBox LineHtBox{this, "LineHtBox"};
    UpDown UpDown4{this, "UpDown4", LineHtBox, -50, 100};
    ComboBox LineHtCmb{this, "LineHtCmb", ComboBox::DropDownList};
    Label lblLtrSpace{this, "lblLtrSpace", "Letter Spacing:"};
    TextBox LtrSpaceBox{this, "LtrSpaceBox"};
    UpDown UpDown1{this, "UpDown1", LtrSpaceBox, -40, 100};
    ComboBox LtrSpaceCmb{this, "LtrSpaceCmb", ComboBox::DropDownList};
    Label lblWrdSpace{this, "lblWrdSpace", "Word Spacing:"};
    TextBox WrdSpaceBox{this, "WrdSpaceBox"};
    UpDown UpDown2{this, "UpDown2", WrdSpaceBox, -30, 100};
    ComboBox WrdSpaceCmb{this, "WrdSpaceCmb", ComboBox::DropDownList};
    Label lblIndent{this, "lblIndent", "Text Indent:"};
    TextBox IndentBox{this, "IndentBox"};
    UpDown UpDown5{this, "UpDown5", IndentBox, -200, 100};
    ComboBox IndentCmb{this, "IndentCmb", ComboBox::DropDownList};
    Label lblCase{this, "lblCase", "Case:"};
    ComboBox CaseCmb{this, "CaseCmb", ComboBox::DropDownList};
    Label lblDeco{this, "lblDeco", "Decoration:"};
    ComboBox TextDecoCmb{this, "TextDecoCmb", ComboBox::DropDownList};

    // Tab "Box - Border", frame "Border Style".
    Label fraBdrStyle{this, "fraBdrStyle", "Border Style"};
    OptionButton BdrAllOpt{this, "BdrAllOpt", "All Sides:"};
    ComboBox BdrAllCmb{this, "BdrAllCmb", ComboBox::DropDownList};
    Label lblBdrAllClr{this, "lblBdrAllClr", "Colour:"};
    TextBox ColourBBox{this, "ColourBBox"};
    CommandButton ColourButton{this, "ColourButton", "..."};
    OptionButton SpecBdrOpt{this, "SpecBdrOpt", "Specify Each Side"};
    Label lblBdrLeft{this, "lblBdrLeft", "Left:"};
    ComboBox BdrLeftCmb{this, "BdrLeftCmb", ComboBox::DropDownList};
    Label lblLClr{this, "lblLClr", "Colour:"};
    TextBox LBCBox{this, "LBCBox"};
    CommandButton LCMore{this, "LCMore", "..."};
    Label lblBdrRt{this, "lblBdrRt", "Right:"};
    ComboBox BdrRtCmb{this, "BdrRtCmb", ComboBox::DropDownList};
    Label lblRClr{this, "lblRClr", "Colour:"};
    TextBox RBCBox{this, "RBCBox"};
    CommandButton RCMore{this, "RCMore", "..."};
    Label lblBdrTop{this, "lblBdrTop", "Top:"};
    ComboBox BdrTopCmb{this, "BdrTopCmb", ComboBox::DropDownList};
    Label lblTClr{this, "lblTClr", "Colour:"};
    TextBox TBCBox{this, "TBCBox"};
    CommandButton TCMore{this, "TCMore", "..."};
    Label lblBdrBot{this, "lblBdrBot", "Bottom:"};
    ComboBox BdrBotCmb{this, "BdrBotCmb", ComboBox::DropDownList};
    Label lblBClr{this, "lblBClr", "Colour:"};
    TextBox BBCBox{this, "BBCBox"};
    CommandButton BCMore{this, "BCMore", "..."};

    // Same tab, frame "Border Width".
    Label fraBdrWidth{this, "fraBdrWidth", "Border Width"};
    OptionButton BAllOpt{this, "BAllOpt", "All Sides:"};
    ComboBox SizeAllCmb{this, "SizeAllCmb", ComboBox::DropDownList};
    TextBox BallCWBox{this, "BallCWBox"};
    UpDown UpDownBA{this, "UpDownBA", BallCWBox, 0, 100};
    ComboBox BallCmb{this, "BallCmb", ComboBox::DropDownList};
    OptionButton BSpecOpt{this, "BSpecOpt", "Specify Each Side"};
    Label lblSizeLeft{this, "lblSizeLeft", "Left:"};
    ComboBox LeftSizeCmb{this, "LeftSizeCmb", ComboBox::DropDownList};
    TextBox BLBox{this, "BLBox"};
    UpDown UpDownBL{this, "UpDownBL", BLBox, 0, 100};
    ComboBox BLCmb{this, "BLCmb", ComboBox::DropDownList};
    Label lblSizeRt{this, "lblSizeRt", "Right:"};
    ComboBox RtSizeCmb{this, "RtSizeCmb", ComboBox::DropDownList};
    TextBox BRBox{this, "BRBox"};
    UpDown UpDownBR{this, "UpDownBR", BRBox, 0, 100};
    ComboBox BRCmb{this, "BRCmb", ComboBox::DropDownList};
    Label lblSizeTop{this, "lblSizeTop", "Top:"};
    ComboBox TopSizeCmb{this, "TopSizeCmb", ComboBox::DropDownList};
    TextBox BTBox{this, "BTBox"};
    UpDown UpDownBT{this, "UpDownBT", BTBox, 0, 100};
    ComboBox BTCmb{this, "BTCmb", ComboBox::DropDownList};
    Label lblSizeBot{this, "lblSizeBot", "Bottom:"};
    ComboBox BotSizeCmb{this, "BotSizeCmb", ComboBox::DropDownList};
    TextBox BBBox{this, "BBBox"};
    UpDown UpDownBB{this, "UpDownBB", BBBox, 0, 100};
    ComboBox BBCmb{this, "BBCmb", ComboBox::DropDownList};

    // Tab "Box - Other".
    Label lblFloat{this, "lblFloat", "Float:"};
    OptionButton NoneOpt{this, "NoneOpt", "None"};
    OptionButton LeftOpt{this, "LeftOpt", "Left"};
    OptionButton RightOpt{this, "RightOpt", "Right"};
    Label lblClear{this, "lblClear", " Clear:"};
    OptionButton NneOpt{this, "NneOpt", "None"};
    OptionButton LftOpt{this, "LftOpt", "Left"};
    OptionButton RtOpt{this, "RtOpt", "Right"};
    OptionButton BothOpt{this, "BothOpt", "Both"};
    Label lblContainer{this, "lblContainer", "Container:"};
    Label lblWidth{this, "lblWidth", "Width:"};
    ComboBox WidthCmb{this, "WidthCmb", ComboBox::DropDownList};
    TextBox CWBox{this, "CWBox"};
    UpDown UpDown6{this, "UpDown6", CWBox, 0, 100};
    ComboBox CWCmb{this, "CWCmb", ComboBox::DropDownList};
    Label lblHeight{this, "lblHeight", "Height:"};
    ComboBox HeightCmb{this, "HeightCmb", ComboBox::DropDownList};
    TextBox CHBox{this, "CHBox"};
    UpDown UpDown7{this, "UpDown7", CHBox, 0, 100};
    ComboBox CHCmb{this, "CHCmb", ComboBox::DropDownList};

    // Tab "Classification".
    Label lblDisplay{this, "lblDisplay", "Display:"};
    ComboBox DisplayCmb{this, "DisplayCmb", ComboBox::DropDownList};
    Label lblWhiteSp{this, "lblWhiteSp", "White Space:"};
    ComboBox WhiteSpCmb{this, "WhiteSpCmb", ComboBox::DropDownList};
    Label lblList{this, "lblList", "List Style:"};
    ComboBox ListCmb{this, "ListCmb", ComboBox::DropDownList};
    Label lblLPos{this, "lblLPos", "Position:"};
    ComboBox LPosCmb{this, "LPosCmb", ComboBox::DropDownList};
    Label lblURL{this, "lblURL", "Image URL:"};
    TextBox URLBox{this, "URLBox"};
    CommandButton ListBrowse{this, "ListBrowse", "..."};

    // Tab "Margins && Padding".
    Label fraMargins{this, "fraMargins", "Margins"};
    Label lblMLeft{this, "lblMLeft", "Left:"};
    TextBox LeftBox{this, "LeftBox"};
    UpDown UpDownL{this, "UpDownL", LeftBox, -250, 200};
    ComboBox LMCmb{this, "LMCmb", ComboBox::DropDownList};
    Label lblMRight{this, "lblMRight", "Right:"};
    TextBox RightBox{this, "RightBox"};
    UpDown UpDownR{this, "UpDownR", RightBox, -250, 200};
    ComboBox RMCmb{this, "RMCmb", ComboBox::DropDownList};
    Label lblMTop{this, "lblMTop", "Top:"};
    TextBox TopBox{this, "TopBox"};
    UpDown UpDownT{this, "UpDownT", TopBox, -250, 200};
    ComboBox TMCmb{this, "TMCmb", ComboBox::DropDownList};
    Label lblMBottom{this, "lblMBottom", "Bottom:"};
    TextBox BottomBox{this, "BottomBox"};
    UpDown UpDownB{this, "UpDownB", BottomBox, -250, 200};
    ComboBox BMCmb{this, "BMCmb", ComboBox::DropDownList};
    Label fraPadding{this, "fraPadding", "Padding"};
    OptionButton Option1{this, "Option1", "All:"};
    TextBox PallBox{this, "PallBox"};
    UpDown UpDownPA{this, "UpDownPA", PallBox, 0, 100};
    ComboBox PACmb{this, "PACmb", ComboBox::DropDownList};
    OptionButton PSpecOpt{this, "PSpecOpt", "Specify Each Side"};
    Label lblPLeft{this, "lblPLeft", "Left:"};
    TextBox PLBox{this, "PLBox"};
    UpDown UpDownPL{this, "UpDownPL", PLBox, 0, 100};
    ComboBox PLCmb{this, "PLCmb", ComboBox::DropDownList};
    Label lblPRight{this, "lblPRight", "Right:"};
    TextBox PRBox{this, "PRBox"};
    UpDown UpDownPR{this, "UpDownPR", PRBox, 0, 100};
    ComboBox PRCmb{this, "PRCmb", ComboBox::DropDownList};
    Label lblPTop{this, "lblPTop", "Top:"};
    TextBox PTBox{this, "PTBox"};
    UpDown UpDownPT{this, "UpDownPT", PTBox, 0, 100};
    ComboBox PTCmb{this, "PTCmb", ComboBox::DropDownList};
    Label lblPBottom{this, "lblPBottom", "Bottom:"};
    TextBox PBBox{this, "PBBox"};
    UpDown UpDownPB{this, "UpDownPB", PBBox, 0, 100};
    ComboBox PBCmb{this, "PBCmb", ComboBox::DropDownList};

    // Tab "Background".
    Label lblBGColour{this, "lblBGColour", "Colour:"};
    TextBox BGColour{this, "BGColour"};
    CommandButton BGColourMore{this, "BGColourMore", "..."};
    Label lblImgURL{this, "lblImgURL", "Image URL:"};
    TextBox ImgURL{this, "ImgURL"};
    CommandButton Command2{this, "Command2", "..."};
    Label lblRepeat{this, "lblRepeat", "Repeat:"};
    OptionButton RepOpt{this, "RepOpt", "Repeat"};
    OptionButton RepHorzOpt{this, "RepHorzOpt", "Repeat Horizontal"};
    OptionButton RepVertOpt{this, "RepVertOpt", "Repeat Vertical"};
    OptionButton NoRepOpt{this, "NoRepOpt", "No Repeat"};
    OptionButton FixOpt{this, "FixOpt", "Fixed Repeat:"};
    Label lblX{this, "lblX", "X:"};
    ComboBox XFixCmb{this, "XFixCmb", ComboBox::DropDownList};
    TextBox Xbox{this, "Xbox"};
    UpDown UpDown8{this, "UpDown8", Xbox, 0, 400};
    ComboBox XCmb{this, "XCmb", ComboBox::DropDownList};
    Label lblY{this, "lblY", "Y:"};
    ComboBox YFixCmb{this, "YFixCmb", ComboBox::DropDownList};
    TextBox YBox{this, "YBox"};
    UpDown UpDown9{this, "UpDown9", YBox, 0, 400};
    ComboBox YCmb{this, "YCmb", ComboBox::DropDownList};
    Label lblAttach{this, "lblAttach", "Attachment:"};
    ComboBox AttachCmb{this, "AttachCmb", ComboBox::DropDownList};

    CommandButton cmdOK{this, "cmdOK", "OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "Cancel", CommandButton::CancelRole};
    CommandButton cmdHelp{this, "cmdHelp", "Help"};
    CommonDialog Colours;

    StyleSession& session() const { return styleSession(); }

    void Form_Load() override;
    void cmdOK_Click();
    void cmdCancel_Click() { cancelDialog(); }
    void cmdHelp_Click();
    void SSTab1_Click();
    void TagName_Click();

    // The saved styles.
    void cmbItemName_Click();
    void tbrStyle_ButtonClick(int index);
    void SaveStyleSettings(const QString& name);

    // The enabling and reset rules between the fields.
    void FontFaceCmb_Click();
    void SecondFontChk_Click() { FontFaceCmb2.setEnabled(SecondFontChk.Value() == 1); }
    void GenFontChk_Click() { FontGenCmb.setEnabled(GenFontChk.Value() == 1); }
    void FntSizeCmb_Click();
    void VCmb_Click();
    void BdrAllCmb_Click();
    void BdrSideCmb_Click(int side);
    void SizeAllCmb_Click();
    void SizeSideCmb_Click(int side);
    void BdrAllOpt_Click();
    void SpecBdrOpt_Click();
    void BAllOpt_Click();
    void BSpecOpt_Click();
    void Option1_Click();
    void PSpecOpt_Click();
    void WidthCmb_Click();
    void HeightCmb_Click();
    void DisplayCmb_Click();
    void RepeatOpt_Click();
    void FixOpt_Click();
    void XFixCmb_Click();
    void YFixCmb_Click();

    // The sides of the border, in the order left, right, top, bottom.
    struct BorderSide {
        Label& label;
        ComboBox& style;
        Label& colourLabel;
        TextBox& colour;
        CommandButton& more;
        ComboBox& size;
        TextBox& sizeBox;
        UpDown& sizeSpin;
        ComboBox& unit;
    };
    BorderSide side(int index);
    struct PaddingSide {
        Label& label;
        TextBox& box;
        UpDown& spin;
        ComboBox& unit;
    };
    PaddingSide paddingSide(int index);

    // The file of a style name in the styles folder.
    QString definitionFile(const QString& name) const;

  private:
    void fillLists();
    void wireHandlers();
    void startDisabled();
    void pickRgb(TextBox& target);
    void runSave();
    void runNew();
    void runDelete();
    void markDirty() { session().StyleDirty = true; }
};

// Shows the style dialog for the document in front.
void ShowStyleDialog(DialogContext& shell);

} // namespace tsl
