// Which view builds the dialog of each form.
#include "ui/form_host.h"

namespace tsl {

void buildOptionsView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildAboutView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildTableView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildFindView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildHyperlinkView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildEmailView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildAnchorView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildLinkView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildImageView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildColoursView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildExtFindView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildChooseFilesView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildStyleView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildATagView(Form& form, FormDialog& dialog, ShellMDI& shell);

void registerFormViews(QtFormHost& host) {
    host.registerView(QStringLiteral("frmOptions"), buildOptionsView);
    host.registerView(QStringLiteral("frmAbout"), buildAboutView);
    host.registerView(QStringLiteral("frmTable"), buildTableView);
    host.registerView(QStringLiteral("frmFind"), buildFindView);
    host.registerView(QStringLiteral("frmHyperlink"), buildHyperlinkView);
    host.registerView(QStringLiteral("frmEmail"), buildEmailView);
    host.registerView(QStringLiteral("frmAnchor"), buildAnchorView);
    host.registerView(QStringLiteral("frmLink"), buildLinkView);
    host.registerView(QStringLiteral("NewImage"), buildImageView);
    host.registerView(QStringLiteral("Colours"), buildColoursView);
    host.registerView(QStringLiteral("frmExtFind"), buildExtFindView);
    host.registerView(QStringLiteral("frmChooseFiles"), buildChooseFilesView);
    host.registerView(QStringLiteral("frmStyle"), buildStyleView);
    host.registerView(QStringLiteral("frmATag"), buildATagView);
}

} // namespace tsl
