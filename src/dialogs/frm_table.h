#pragma once
// The Insert Table dialog: size, layout, width, background and border colours of a table.
#include "dialogs/dialog_shapes.h"

namespace tsl {

// A table of empty cells: `tableAttributes` on the table, `rowAttributes` on every row.
QString tableMarkup(const QString& tableAttributes, const QString& rowAttributes, int rows,
                    int columns);

class frmTable : public ElementDialog {
  public:
    explicit frmTable(ShellMDI& shell);

    // Layout.
    Label fraLayout{QStringLiteral("fraLayout")};
    Label lblCols{QStringLiteral("lblCols")};
    TextBox ColBox{QStringLiteral("ColBox")};
    UpDown ColUpDown{QStringLiteral("ColUpDown")};
    Label lblRows{QStringLiteral("lblRows")};
    TextBox RowBox{QStringLiteral("RowBox")};
    UpDown RowUpDown{QStringLiteral("RowUpDown")};
    Label lblSpacing{QStringLiteral("lblSpacing")};
    TextBox Spacing{QStringLiteral("Spacing")};
    UpDown UpDownS{QStringLiteral("UpDownS")};
    Label lblPadding{QStringLiteral("lblPadding")};
    TextBox Padding{QStringLiteral("Padding")};
    UpDown UpDownP{QStringLiteral("UpDownP")};
    Label lblBorder{QStringLiteral("lblBorder")};
    TextBox BorderBox{QStringLiteral("BorderBox")};
    UpDown UpDownB{QStringLiteral("UpDownB")};
    Label lblAlignment{QStringLiteral("lblAlignment")};
    Label lblHorizontal{QStringLiteral("lblHorizontal")};
    ComboBox Alignment{QStringLiteral("Alignment"), ComboBox::DropDownList};
    Label lblVertical{QStringLiteral("lblVertical")};
    ComboBox cmbVAlign{QStringLiteral("cmbVAlign"), ComboBox::DropDownList};

    // Table Width.
    Label fraWidth{QStringLiteral("fraWidth")};
    CheckBox WidthCheck{QStringLiteral("WidthCheck")};
    Label lblWidth{QStringLiteral("lblWidth")};
    TextBox WidthBox{QStringLiteral("WidthBox")};
    UpDown UpDown1{QStringLiteral("UpDown1")};
    OptionButton PercentOpt{QStringLiteral("PercentOpt")};
    OptionButton PixelsOpt{QStringLiteral("PixelsOpt")};

    // Background.
    Label fraBackground{QStringLiteral("fraBackground")};
    Label lblBGColour{QStringLiteral("lblBGColour")};
    TextBox txtBGColour{QStringLiteral("txtBGColour")};
    CommandButton BGBrowse{QStringLiteral("BGBrowse")};
    Label lblBackground{QStringLiteral("lblBackground")};
    TextBox BackgroundBox{QStringLiteral("BackgroundBox")};
    CommandButton Browse{QStringLiteral("Browse")};

    // Border Colours.
    Label fraBorder{QStringLiteral("fraBorder")};
    OptionButton optNone{QStringLiteral("optNone")};
    OptionButton optAllSides{QStringLiteral("optAllSides")};
    OptionButton optSpecLD{QStringLiteral("optSpecLD")};
    Label lblBC{QStringLiteral("lblBC")};
    TextBox txtBC{QStringLiteral("txtBC")};
    CommandButton cmdBC{QStringLiteral("cmdBC")};
    Label lblLB{QStringLiteral("lblLB")};
    TextBox txtLB{QStringLiteral("txtLB")};
    CommandButton cmdLB{QStringLiteral("cmdLB")};
    Label lblDB{QStringLiteral("lblDB")};
    TextBox txtDB{QStringLiteral("txtDB")};
    CommandButton cmdDB{QStringLiteral("cmdDB")};

    CommandButton OK{QStringLiteral("OK")};
    CommandButton Cancel{QStringLiteral("Cancel")};
    CommonDialog cdTable;

    void Form_Load();
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
    void setCaptions();
    void wireHandlers();
    void setBorderColour(bool on);
    void setLighterDarker(bool on);
};

} // namespace tsl
