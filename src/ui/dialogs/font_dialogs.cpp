// Font and Base Font on screen.
#include "dialogs/font_dialogs.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

using namespace kit;

// The face, size and colour; the character styles; the preview below them.
void buildFontView(fontSettings& f, FormDialog& dialog, DialogContext& shell) {
    build(dialog, shell,
          Column({FormGroup(f.Frame1, {Field(f.lblFace, Combo(f.Combo1, 220)),
                                       Field(f.lblSize, Combo(f.Combo2, 100)),
                                       Field(f.lblColour, Picked(f.TextBox, f.Command1, 90))}),
                  Row({Check(f.Check1), Check(f.Check2), Check(f.Check3), Check(f.Check4),
                       Check(f.Check5)}),
                  Picture(f.Picture1, {Note(f.Label6, Centered | Wrapped)}),
                  Buttons({&f.Command2, &f.Command3})}));
    dialog.setMinimumWidth(480);
}

void buildBasefontView(frmBasefont& f, FormDialog& dialog, DialogContext& shell) {
    build(dialog, shell,
          Column({FormGroup(f.Frame1, {Field(f.lblFace, Combo(f.cmbFace, 220)),
                                       Field(f.lblSize, Combo(f.cmbSize, 80))}),
                  Buttons({&f.OK, &f.Cancel})}));
}

} // namespace tsl
