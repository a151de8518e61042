// The link dialogs on screen: Insert Hyperlink with its e-mail helper, Insert Anchor and the
// style sheet link.
#include "dialogs/frm_hyperlink.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildHyperlinkView(frmHyperlink& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({Group(f.Frame1, {Field(f.lblURL, Picked(f.URLBox, f.cmdOpen)),
                                   Row({Stretch(), Button(f.cmdMail)}), Note(f.lblOptional),
                                   Field(f.lblAnchor, Text(f.AnchorBox)),
                                   Field(f.lblTarget, Combo(f.cmbTarget)),
                                   Field(f.lblFName, Text(f.FNameBox))}),
                  Buttons({&f.OK, &f.Command3})}));
    dialog.setMinimumWidth(440);
}

void buildEmailView(frmEmail& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({FormGroup(f.Frame1, {Field(f.lblAddress, Text(f.txtAddress)),
                                       Field(f.lblSubject, Text(f.txtSubject))}),
                  Buttons({&f.cmdOK, &f.cmdCancel})}));
    dialog.setMinimumWidth(400);
}

void buildAnchorView(frmAnchor& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({FormGroup(f.Frame1, {Field(f.lblName, Text(f.AnchorBox))}),
                  Buttons({&f.OK, &f.Cancel})}));
    dialog.setMinimumWidth(360);
}

void buildLinkView(frmLink& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({FormGroup(f.Frame1, {Field(f.lblLinkTo, Picked(f.txtLinkTo, f.cmdBrowse))}),
                  Buttons({&f.cmdOK, &f.cmdCancel})}));
    dialog.setMinimumWidth(400);
}

} // namespace tsl
