// Insert Image on screen: the three sources with their browse buttons, then the text,
// alignment, size and spacing.
#include "dialogs/new_image.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildImageView(NewImage& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({FormGroup(f.Frame1, {Field(f.lblFileName, Picked(f.FileName, f.Browse)),
                                       Field(f.lblLowSrc, Picked(f.LowSrc, f.BrowseLS)),
                                       Field(f.lblAVI, Picked(f.AVIBox, f.Command1)),
                                       Field(f.lblAlt, Text(f.AltText)),
                                       Field(f.lblAlign, Combo(f.Alignment, 140)),
                                       Field(f.lblWidth, Spin(f.WidthB, f.WidthUpDown)),
                                       Field(f.lblHeight, Spin(f.HeightB, f.HeightUpDown)),
                                       Field(f.lblVspace, Spin(f.Vspace, f.VspaceUpDown)),
                                       Field(f.lblHSpace, Spin(f.HSpace, f.HSpaceUpDown))}),
                  Buttons({&f.OK, &f.Cancel})}));
    dialog.setMinimumWidth(460);
}

} // namespace tsl
