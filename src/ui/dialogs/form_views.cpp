// Which view builds the dialog of each form.
#include "dialogs/font_dialogs.h"
#include "dialogs/frm_colours.h"
#include "dialogs/frm_form.h"
#include "dialogs/frm_frames.h"
#include "dialogs/frm_hyperlink.h"
#include "dialogs/frm_line.h"
#include "dialogs/frm_list.h"
#include "dialogs/frm_marquee.h"
#include "dialogs/frm_table.h"
#include "dialogs/new_image.h"
#include "search/frm_choose_files.h"
#include "search/frm_ext_find.h"
#include "search/frm_find.h"
#include "shell/frm_about.h"
#include "shell/frm_options.h"
#include "stylesheets/frm_atag.h"
#include "stylesheets/frm_style.h"
#include "ui/kit/form_host.h"

namespace tsl {

void buildOptionsView(frmOptions& f, FormDialog& dialog, DialogContext& shell);
void buildAboutView(frmAbout& f, FormDialog& dialog, DialogContext& shell);
void buildTableView(frmTable& f, FormDialog& dialog, DialogContext& shell);
void buildFindView(frmFind& f, FormDialog& dialog, DialogContext& shell);
void buildHyperlinkView(frmHyperlink& f, FormDialog& dialog, DialogContext& shell);
void buildEmailView(frmEmail& f, FormDialog& dialog, DialogContext& shell);
void buildAnchorView(frmAnchor& f, FormDialog& dialog, DialogContext& shell);
void buildLinkView(frmLink& f, FormDialog& dialog, DialogContext& shell);
void buildImageView(NewImage& f, FormDialog& dialog, DialogContext& shell);
void buildColoursView(Colours& f, FormDialog& dialog, DialogContext& shell);
void buildExtFindView(frmExtFind& f, FormDialog& dialog, DialogContext& shell);
void buildChooseFilesView(frmChooseFiles& f, FormDialog& dialog, DialogContext& shell);
void buildStyleView(frmStyle& f, FormDialog& dialog, DialogContext& shell);
void buildATagView(frmATag& f, FormDialog& dialog, DialogContext& shell);
void buildListView(frmList& f, FormDialog& dialog, DialogContext& shell);
void buildLineView(frmLine& f, FormDialog& dialog, DialogContext& shell);
void buildMarqueeView(frmMarquee& f, FormDialog& dialog, DialogContext& shell);
void buildFontView(fontSettings& f, FormDialog& dialog, DialogContext& shell);
void buildBasefontView(frmBasefont& f, FormDialog& dialog, DialogContext& shell);
void buildFormView(frmForm& f, FormDialog& dialog, DialogContext& shell);
void buildFormSettingsView(frmFormSettings& f, FormDialog& dialog, DialogContext& shell);
void buildFormEmailView(frmFormEmail& f, FormDialog& dialog, DialogContext& shell);
void buildFramesView(frmFrames& f, FormDialog& dialog, DialogContext& shell);

void registerFormViews(QtFormHost& host) {
    host.registerView(buildOptionsView);
    host.registerView(buildAboutView);
    host.registerView(buildTableView);
    host.registerView(buildFindView);
    host.registerView(buildHyperlinkView);
    host.registerView(buildEmailView, QtFormHost::ownedBy<frmHyperlink, frmEmail>());
    host.registerView(buildAnchorView);
    host.registerView(buildLinkView);
    host.registerView(buildImageView);
    host.registerView(buildColoursView);
    host.registerView(buildExtFindView);
    host.registerView(buildChooseFilesView, QtFormHost::ownedBy<frmExtFind, frmChooseFiles>());
    host.registerView(buildStyleView);
    host.registerView(buildATagView);
    host.registerView(buildListView);
    host.registerView(buildLineView);
    host.registerView(buildMarqueeView);
    host.registerView(buildFontView);
    host.registerView(buildBasefontView);
    host.registerView(buildFormView);
    host.registerView(buildFormSettingsView);
    host.registerView(buildFormEmailView, QtFormHost::ownedBy<frmFormSettings, frmFormEmail>());
    host.registerView(buildFramesView);
}

} // namespace tsl
