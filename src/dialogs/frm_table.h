#pragma once
// The Insert Table dialog: size, layout, width, background and border colours of a table.
#include "dialogs/dialog_shapes.h"

namespace tsl {

// A table of empty cells: `tableAttributes` on the table, `rowAttributes` on every row.
QString tableMarkup(const QString& tableAttributes, const QString& rowAttributes, int rows,
                    int columns);

class frmTable : public ElementDialog {
  public:
    explicit frmTable(DialogContext& shell);

    // Layout.
    Label fraLayout{this, "fraLayout", "Layout"};
    Label lblCols{this, "lblCols", "Columns:"};
    TextBox ColBox{this, "ColBox"};
    UpDown ColUpDown{this, "ColUpDown", ColBox, 1, 99};
    Label lblRows{this, "lblRows", "Rows:"};
    TextBox RowBox{this, "RowBox"};
    UpDown RowUpDown{this, "RowUpDown", RowBox, 1, 99};
    Label lblSpacing{this, "lblSpacing", "Cell Spacing:"};
    TextBox Spacing{this, "Spacing"};
    UpDown UpDownS{this, "UpDownS", Spacing, 1, 50};
    Label lblPadding{this, "lblPadding", "Cell Padding:"};
    TextBox Padding{this, "Padding"};
    UpDown UpDownP{this, "UpDownP", Padding, 1, 50};
    Label lblBorder{this, "lblBorder", "Border Width:"};
    TextBox BorderBox{this, "BorderBox"};
    UpDown UpDownB{this, "UpDownB", BorderBox, 0, 72};
    Label lblAlignment{this, "lblAlignment", "Alignment:"};
    Label lblHorizontal{this, "lblHorizontal", "Horizontal:"};
    ComboBox Alignment{this, "Alignment", ComboBox::DropDownList};
    Label lblVertical{this, "lblVertical", "Vertical:"};
    ComboBox cmbVAlign{this, "cmbVAlign", ComboBox::DropDownList};

    // Table Width.
    Label fraWidth{this, "fraWidth", "Table Width"};
    CheckBox WidthCheck{this, "WidthCheck", "Custom Width"};
    Label lblWidth{this, "lblWidth", "Width:"};
    TextBox WidthBox{this, "WidthBox"};
    UpDown UpDown1{this, "UpDown1", WidthBox, 1, 100};
    OptionButton PercentOpt{this, "PercentOpt", "In Percent"};
    OptionButton PixelsOpt{this, "PixelsOpt", "In Pixels"};

    // Background.
    Label fraBackground{this, "fraBackground", "Background"};
    Label lblBGColour{this, "lblBGColour", "Background Colour:"};
    TextBox txtBGColour{this, "txtBGColour"};
    CommandButton BGBrowse{this, "BGBrowse", "..."};
    Label lblBackground{this, "lblBackground", "Background file:"};
    TextBox BackgroundBox{this, "BackgroundBox"};
    CommandButton Browse{this, "Browse", "..."};

    // Border Colours.
    Label fraBorder{this, "fraBorder", "Border Colours"};
    OptionButton optNone{this, "optNone", "&None"};
    OptionButton optAllSides{this, "optAllSides", "&All Sides Same Colour"};
    OptionButton optSpecLD{this, "optSpecLD", "Specify Lighter and Darker Borders"};
    Label lblBC{this, "lblBC", "Border Colour:"};
    TextBox txtBC{this, "txtBC"};
    CommandButton cmdBC{this, "cmdBC", "..."};
    Label lblLB{this, "lblLB", "Lighter Border:"};
    TextBox txtLB{this, "txtLB"};
    CommandButton cmdLB{this, "cmdLB", "..."};
    Label lblDB{this, "lblDB", "Darker Border:"};
    TextBox txtDB{this, "txtDB"};
    CommandButton cmdDB{this, "cmdDB", "..."};

    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog cdTable;

    void Form_Load() override;
    void OK_Click();
    void Cancel_Click() { cancelDialog(); }
    void BorderBox_Change();
    void optNone_Click();
    void optAllSides_Click();
    void optSpecLD_Click();
    void WidthCheck_Click();
    void PercentOpt_Click() { UpDown1.Max = 100; }
    void PixelsOpt_Click() { UpDown1.Max = 2000; }

    // The markup OK would insert now; fails like OK when a count is not a number.
    QString markup() const;

  private:
    void wireHandlers();
    void setBorderColour(bool on);
    void setLighterDarker(bool on);
};

} // namespace tsl
