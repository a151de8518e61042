// The style dialog on screen: the toolbar, name, tag and class above six tabs, then OK,
// Cancel and Help; and the small dialog that asks which state of a link "A" means.
#include "stylesheets/frm_atag.h"
#include "stylesheets/frm_style.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

namespace {
using namespace kit;

// A size or length: its box with the spinner, then its unit.
Item measure(TextBox& box, UpDown& spin, ComboBox& unit, const QString& name) {
    return Inline({Spin(box, spin), Combo(unit)}, {QString(), name + QStringLiteral(" unit")});
}

Item fontTab(frmStyle& f) {
    return Row(
        {Rows({Field(f.lblFontFace, Combo(f.FontFaceCmb, 180)),
               Field(f.lblSecondFont, Inline({Check(f.SecondFontChk), Combo(f.FontFaceCmb2, 160)},
                                             {QString(), QStringLiteral("Secondary font face")})),
               Field(f.lblGenFont, Inline({Check(f.GenFontChk), Combo(f.FontGenCmb)},
                                          {QString(), QStringLiteral("Generic font family")})),
               Field(f.lblSize, Inline({Combo(f.FntSizeCmb), Spin(f.FontSizeBox, f.UpDown3),
                                        Combo(f.FontSizeCmb)},
                                       {QString(), QStringLiteral("Custom size"),
                                        QStringLiteral("Custom size unit")})),
               Field(f.lblWeight, Combo(f.BoldCmb)), Field(f.lblStyle, Combo(f.ItalicCmb)),
               Check(f.SmlCaps), Field(f.lblColour, Picked(f.ColourBox, f.CmdcoloursMore, 110))}),
         Spacing(12),
         Rows({Field(f.lblAlign, Combo(f.AlignCmb)),
               Field(f.lblVAlign, Inline({Combo(f.VCmb), Spin(f.ValignBox, f.UpDownVA)},
                                         {QString(), QStringLiteral("Vertical percentage")})),
               Field(f.lblLineHt, measure(f.LineHtBox, f.UpDown4, f.LineHtCmb, "Line height")),
               Field(f.lblLtrSpace,
                     measure(f.LtrSpaceBox, f.UpDown1, f.LtrSpaceCmb, "Letter spacing")),
               Field(f.lblWrdSpace,
                     measure(f.WrdSpaceBox, f.UpDown2, f.WrdSpaceCmb, "Word spacing")),
               Field(f.lblIndent, measure(f.IndentBox, f.UpDown5, f.IndentCmb, "Text indent")),
               Field(f.lblCase, Combo(f.CaseCmb)), Field(f.lblDeco, Combo(f.TextDecoCmb))}),
         Stretch()});
}

Item borderTab(frmStyle& f) {
    std::vector<Item> styles{
        Inline({Option(f.BdrAllOpt), Combo(f.BdrAllCmb),
                Beside(f.lblBdrAllClr, Picked(f.ColourBBox, f.ColourButton, 110))},
               {QString(), QStringLiteral("Border style of all sides")}),
        Option(f.SpecBdrOpt)};
    std::vector<Item> widths{
        Inline({Option(f.BAllOpt), Combo(f.SizeAllCmb), Spin(f.BallCWBox, f.UpDownBA),
                Combo(f.BallCmb)},
               {QString(), QStringLiteral("Border width of all sides"),
                QStringLiteral("Custom width of all sides"), QStringLiteral("Unit of all sides")}),
        Option(f.BSpecOpt)};
    Label* const sizeLabels[] = {&f.lblSizeLeft, &f.lblSizeRt, &f.lblSizeTop, &f.lblSizeBot};
    for (int i = 0; i < 4; ++i) {
        frmStyle::BorderSide s = f.side(i);
        const QString side = s.label.Caption().chopped(1);
        styles.push_back(
            Field(s.label,
                  Inline({Combo(s.style), Beside(s.colourLabel, Picked(s.colour, s.more, 110))})));
        widths.push_back(Field(*sizeLabels[i],
                               Inline({Combo(s.size), Spin(s.sizeBox, s.sizeSpin), Combo(s.unit)},
                                      {QString(), side + QStringLiteral(" custom width"),
                                       side + QStringLiteral(" width unit")})));
    }
    return Column({Group(f.fraBdrStyle, styles), Group(f.fraBdrWidth, widths)});
}

Item otherTab(frmStyle& f) {
    return Rows(
        {Field(f.lblFloat, Inline({Option(f.NoneOpt), Option(f.LeftOpt), Option(f.RightOpt)})),
         Field(f.lblClear,
               Inline({Option(f.NneOpt), Option(f.LftOpt), Option(f.RtOpt), Option(f.BothOpt)})),
         Note(f.lblContainer),
         Field(f.lblWidth,
               Inline({Combo(f.WidthCmb), Spin(f.CWBox, f.UpDown6), Combo(f.CWCmb)},
                      {QString(), QStringLiteral("Custom width"), QStringLiteral("Width unit")})),
         Field(f.lblHeight, Inline({Combo(f.HeightCmb), Spin(f.CHBox, f.UpDown7), Combo(f.CHCmb)},
                                   {QString(), QStringLiteral("Custom height"),
                                    QStringLiteral("Height unit")}))});
}

Item classificationTab(frmStyle& f) {
    return Rows({Field(f.lblDisplay, Combo(f.DisplayCmb)), Field(f.lblWhiteSp, Combo(f.WhiteSpCmb)),
                 Field(f.lblList, Combo(f.ListCmb)), Field(f.lblLPos, Combo(f.LPosCmb)),
                 Field(f.lblURL, Picked(f.URLBox, f.ListBrowse))});
}

Item marginsTab(frmStyle& f) {
    std::vector<Item> padding{
        Inline({Option(f.Option1), Spin(f.PallBox, f.UpDownPA), Combo(f.PACmb)},
               {QString(), QStringLiteral("Padding of all sides"),
                QStringLiteral("Padding unit of all sides")}),
        Option(f.PSpecOpt)};
    for (int i = 0; i < 4; ++i) {
        frmStyle::PaddingSide s = f.paddingSide(i);
        padding.push_back(Field(
            s.label, measure(s.box, s.spin, s.unit, s.label.Caption().chopped(1) + " padding")));
    }
    padding.push_back(Stretch());
    return Row(
        {Group(f.fraMargins,
               {Field(f.lblMLeft, measure(f.LeftBox, f.UpDownL, f.LMCmb, "Left margin")),
                Field(f.lblMRight, measure(f.RightBox, f.UpDownR, f.RMCmb, "Right margin")),
                Field(f.lblMTop, measure(f.TopBox, f.UpDownT, f.TMCmb, "Top margin")),
                Field(f.lblMBottom, measure(f.BottomBox, f.UpDownB, f.BMCmb, "Bottom margin")),
                Stretch()}),
         Group(f.fraPadding, padding)});
}

Item backgroundTab(frmStyle& f) {
    return Rows(
        {Field(f.lblBGColour, Picked(f.BGColour, f.BGColourMore, 110)),
         Field(f.lblImgURL, Picked(f.ImgURL, f.Command2)),
         Field(f.lblRepeat, Inline({Option(f.RepOpt), Option(f.RepHorzOpt), Option(f.RepVertOpt),
                                    Option(f.NoRepOpt)})),
         Option(f.FixOpt),
         Field(f.lblX, Inline({Combo(f.XFixCmb), Spin(f.Xbox, f.UpDown8), Combo(f.XCmb)},
                              {QString(), QStringLiteral("X position"), QStringLiteral("X unit")})),
         Field(f.lblY, Inline({Combo(f.YFixCmb), Spin(f.YBox, f.UpDown9), Combo(f.YCmb)},
                              {QString(), QStringLiteral("Y position"), QStringLiteral("Y unit")})),
         Field(f.lblAttach, Combo(f.AttachCmb))});
}
} // namespace

void buildStyleView(frmStyle& f, FormDialog& dialog, DialogContext& shell) {
    build(dialog, shell,
          Column({Row({Toolbar(f.tbrStyle), Rows({Field(f.lblName, Combo(f.cmbItemName, 200))}),
                       Rows({Field(f.lblTag, Combo(f.TagName, 120))}),
                       Rows({Field(f.lblClass, Text(f.ClassBox, 140))}), Stretch()}),
                  Tabs(f.SSTab1, {fontTab(f), borderTab(f), otherTab(f), classificationTab(f),
                                  marginsTab(f), backgroundTab(f)}),
                  Buttons({&f.cmdOK, &f.cmdCancel, &f.cmdHelp})}));
}

void buildATagView(frmATag& f, FormDialog& dialog, DialogContext& shell) {
    build(dialog, shell,
          Column({Inline({Option(f.LinkOpt), Note(f.lblLink)}),
                  Inline({Option(f.Vopt), Note(f.lblVisited)}),
                  Inline({Option(f.Aopt), Note(f.lblActive)}),
                  Inline({Option(f.AllOpt), Note(f.lblAll)}), Buttons({&f.OK})}));
}

} // namespace tsl
