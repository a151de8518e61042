// The Preferences dialog on screen: the frames Editor Settings and File Locations, then OK and
// Cancel.
#include "shell/frm_options.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildOptionsView(frmOptions& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(
        dialog, shell,
        Column({FormGroup(f.fraEditor, {Field(f.lblFontFace, Combo(f.FontFace, 220)),
                                        Field(f.lblSize, Spin(f.Size, f.UpDown1)),
                                        Check(f.chkWordWrap), Check(f.chkAutoClose)}),
                FormGroup(f.fraLocations, {Field(f.lblBrowser, Picked(f.Text1, f.Command1)),
                                           Field(f.lblDefaultDir, Picked(f.PreviewBox, f.Command2)),
                                           Check(f.chkRelative), Note(f.Label1, Wrapped)}),
                Buttons({&f.OK, &f.Cancel})}));
    dialog.setMinimumWidth(460);
}

} // namespace tsl
