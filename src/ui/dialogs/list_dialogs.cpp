// Insert List, Insert Horizontal Line and Insert Marquee on screen.
#include "dialogs/frm_line.h"
#include "dialogs/frm_list.h"
#include "dialogs/frm_marquee.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

using namespace kit;

// The style on the left; on the right the fields of the style chosen.
void buildListView(frmList& f, FormDialog& dialog, DialogContext& shell) {
    build(
        dialog, shell,
        Column(
            {Row({Group(f.fraStyle,
                        {Option(f.BOpt), Option(f.NOpt), Check(f.chkConvertSelected), Stretch()}),
                  Panels(
                      {Panel(f.picBullet, {Rows({Field(f.lblType, Combo(f.cmbType, 120)),
                                                 Field(f.lblItems, Spin(f.ItemsBox, f.UpDown1))}),
                                           Stretch()}),
                       Panel(f.picOrdered, {Rows({Field(f.lblOrdered, Combo(f.cmbOrdered, 180)),
                                                  Field(f.lblUItems, Spin(f.UItemsBox, f.UpDown2)),
                                                  Field(f.lblStart, Spin(f.StartBox, f.UpDown3))}),
                                            Stretch()})})}),
             Buttons({&f.OK, &f.Cancel})}));
}

void buildLineView(frmLine& f, FormDialog& dialog, DialogContext& shell) {
    build(
        dialog, shell,
        Column({Row({Group(f.fraSize,
                           {Field(f.lblWidth, Inline({Spin(f.WidthBox, f.UpDown1),
                                                      Option(f.WPercOpt), Option(f.WPixOpt)})),
                            Field(f.lblHeight,
                                  Inline({Spin(f.SizeBox, f.UpDown2), Note(f.lblPixels)}))}),
                     Group(f.fraAlign, {Option(f.LeftOpt), Option(f.CentreOpt), Option(f.RtOpt)})}),
                Group(f.fraColour,
                      {Check(f.Check1), Field(f.lblColour, Picked(f.Colour, f.cmdMore, 90)),
                       Picture(f.Picture1, {Spacing(24)})}),
                Buttons({&f.OK, &f.Cancel})}));
}

void buildMarqueeView(frmMarquee& f, FormDialog& dialog, DialogContext& shell) {
    const QString width = QStringLiteral("Width");
    const QString height = QStringLiteral("Height");
    build(
        dialog, shell,
        Column(
            {Rows({Field(f.lblText, Text(f.TextBox))}),
             Row({Group(f.fraDirection, {Option(f.LeftOpt), Option(f.RightOpt), Stretch()}),
                  Group(f.fraAction,
                        {Option(f.ScrollOpt), Option(f.SlideOpt), Option(f.BounceOpt)}),
                  Group(f.fraAlign, {Option(f.TopOpt), Option(f.MiddleOpt), Option(f.BottomOpt)})}),
             Row({Group(f.fraMovement, {Field(f.lblAmount, Spin(f.AmountBox, f.UpDown1)),
                                        Field(f.lblDelay, Spin(f.DelayBox, f.DUD))}),
                  Group(f.fraRepeat,
                        {Check(f.chkInfinite), Inline({Spin(f.RepBox, f.UpDown4), Note(f.lblTimes)},
                                                      {QStringLiteral("Repeat times")})})}),
             Group(f.fraSize, {Inline({Check(f.chkWidth), Spin(f.WidthBox, f.UpDown2),
                                       Option(f.PixelOpt), Option(f.PercentOpt)},
                                      {QString(), width}),
                               Inline({Check(f.chkHeight), Spin(f.HeightBox, f.UpDown3),
                                       Option(f.HPixOpt), Option(f.HPerOpt)},
                                      {QString(), height})}),
             Rows({Rows({Field(f.lblColour, Picked(f.ColourBox, f.MoreColours, 90))})}),
             Buttons({&f.OK, &f.Cancel})}));
}

} // namespace tsl
