// The Page Properties dialog on screen: the five colours and the background image on the left,
// the preview frame with its four labels on the right, then OK and Cancel.
#include "dialogs/frm_colours.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildColoursView(Colours& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({Row({Rows({Field(f.lblBack, Picked(f.Back, f.BackgroundMore, 80)),
                             Field(f.lblText, Picked(f.TextBox, f.TextMore, 80)),
                             Field(f.lblLink, Picked(f.LinkBox, f.LinkMore, 80)),
                             Field(f.lblVLink, Picked(f.VlinkBox, f.VLinkMore, 80)),
                             Field(f.lblALink, Picked(f.ALinkBox, f.ALinkMore, 80)),
                             Field(f.lblBGImg, Picked(f.BGImgBox, f.Command1)), Check(f.chkFixed)}),
                       Stretched(1, Group(f.fraPreview,
                                          {Picture(f.BGColor, {Note(f.ALink), Note(f.VLink),
                                                               Note(f.Link), Note(f.Text)})}))}),
                  Buttons({&f.OK, &f.Cancel})}));
}

} // namespace tsl
