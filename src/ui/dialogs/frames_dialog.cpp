// The Frame Hanger on screen: four pages in one place, the row of wizard buttons below; the
// layouts drawn from their table as previews on page 1 and as clickable maps on page 2.
#include "dialogs/frm_frames.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

using namespace kit;

namespace {
// A layout's regions on the grid of its picture, each drawn by `piece`.
template <typename Piece> Item picture(const FrameLayout& layout, int size, const Piece& piece) {
    std::vector<Cell> cells;
    for (size_t i = 0; i < layout.regions.size(); ++i) {
        const RegionImage& r = layout.regions[i];
        cells.push_back({piece(i, r), r.x, r.y, r.width, r.height});
    }
    return Grid(4, 4, size, std::move(cells));
}

Item page(Label& frame, std::vector<Item> rows) {
    rows.insert(rows.begin(), Note(frame, Big));
    return Panel(frame, std::move(rows));
}
} // namespace

void buildFramesView(frmFrames& f, FormDialog& dialog, DialogContext& shell) {
    std::vector<Item> previews, maps;
    for (size_t i = 0; i < f.maps().size(); ++i) {
        const FrameMap& map = f.maps()[i];
        previews.push_back(Panel(f.Picture1(static_cast<int>(i)),
                                 {picture(*map.layout, 160, [](size_t, const RegionImage& r) {
                                     return Tile(regionName(r.region));
                                 })}));
        maps.push_back(
            Panel(*map.container, {picture(*map.layout, 220, [&map](size_t n, const RegionImage&) {
                return Image(*map.images[n]);
            })}));
    }
    build(dialog, shell,
          Column(
              {Panels(
                   {page(f.Frame1[2], {Note(f.lblWelcome1, Wrapped), Note(f.lblWelcome2, Wrapped),
                                       Note(f.lblWelcome3, Wrapped), Stretch()}),
                    page(f.Frame1[0],
                         {Row({Stretched(
                                   1, Named(QStringLiteral("Frame set"), List(f.lstFrameType, 10))),
                               Panels(previews)}),
                          Note(f.lblSettings), Check(f.chkBorders),
                          Rows({Field(f.Label13, Picked(f.txtBorderColor, f.cmdColor, 90))}),
                          Stretch()}),
                    page(f.Frame1[1],
                         {Row({Column({Rows({Field(f.lblFrameName, Text(f.txtFrameName)),
                                             Field(f.lblFrameURL, Picked(f.txtFrameURL, f.cmdURL)),
                                             Field(f.lblScrolling, Combo(f.cmbScrolling)),
                                             Field(f.lblMWidth, Text(f.txtMWidth, 60)),
                                             Field(f.lblMHeight, Text(f.txtMHeight, 60))}),
                                       Check(f.chkNoResize), Stretch()}),
                               Panels(maps)})}),
                    page(f.Frame1[3], {Note(f.lblFinished1, Wrapped), Note(f.lblFinished2, Wrapped),
                                       Note(f.lblFinished3, Wrapped), Stretch()})}),
               Buttons({&f.cmdBack, &f.NextButton, &f.cmdFinish, &f.Command3})}));
    dialog.setMinimumSize(560, 360);
}

} // namespace tsl
