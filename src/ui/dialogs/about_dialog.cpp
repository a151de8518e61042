// The About box on screen: the name, the version and the two links, then OK.
#include "shell/frm_about.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

void buildAboutView(frmAbout& f, FormDialog& dialog, DialogContext& shell) {
    using namespace kit;
    build(dialog, shell,
          Column({Note(f.lblName, Centered | Big), Note(f.lblVersion, Centered), Spacing(8),
                  Link(f.Label, [&f] { f.Label_Click(); }),
                  Link(f.Labels, [&f] { f.Labels_Click(); }), Buttons({&f.OK})}));
    dialog.setMinimumWidth(320);
}

} // namespace tsl
