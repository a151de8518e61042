// The Insert Table dialog on screen: the groups Layout and Table Width on the left, Background
// and Border Colours on the right, then OK and Cancel. Every label and field in Tahoma.
#include "dialogs/frm_table.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildTableView(frmTable& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    dialog.setFont(QFont(QStringLiteral("Tahoma"), dialog.font().pointSize()));
    build(
        dialog, shell,
        Column(
            {Row({Column(
                      {Group(f.fraLayout,
                             {Field(f.lblCols, Spin(f.ColBox, f.ColUpDown)),
                              Field(f.lblRows, Spin(f.RowBox, f.RowUpDown)),
                              Field(f.lblSpacing, Spin(f.Spacing, f.UpDownS)),
                              Field(f.lblPadding, Spin(f.Padding, f.UpDownP)),
                              Field(f.lblBorder, Spin(f.BorderBox, f.UpDownB)),
                              Note(f.lblAlignment), Field(f.lblHorizontal, Combo(f.Alignment)),
                              Field(f.lblVertical, Combo(f.cmbVAlign)), Stretch()}),
                       Group(f.fraWidth,
                             {Check(f.WidthCheck), Field(f.lblWidth, Spin(f.WidthBox, f.UpDown1)),
                              Option(f.PercentOpt), Option(f.PixelsOpt), Stretch()})}),
                  Stretched(
                      1, Column({Group(f.fraBackground,
                                       {Field(f.lblBGColour, Picked(f.txtBGColour, f.BGBrowse, 70)),
                                        Field(f.lblBackground, Picked(f.BackgroundBox, f.Browse))}),
                                 Group(f.fraBorder, {Option(f.optNone), Option(f.optAllSides),
                                                     Option(f.optSpecLD),
                                                     Field(f.lblBC, Picked(f.txtBC, f.cmdBC, 70)),
                                                     Field(f.lblLB, Picked(f.txtLB, f.cmdLB, 70)),
                                                     Field(f.lblDB, Picked(f.txtDB, f.cmdDB, 70))}),
                                 Stretch()}))}),
             Buttons({&f.OK, &f.Cancel})}));
}

} // namespace tsl
