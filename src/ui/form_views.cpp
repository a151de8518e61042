// Which view builds the dialog of each form.
#include "ui/form_host.h"

namespace tsl {

void buildOptionsView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildAboutView(Form& form, FormDialog& dialog, ShellMDI& shell);
void buildTableView(Form& form, FormDialog& dialog, ShellMDI& shell);

void registerFormViews(QtFormHost& host) {
    host.registerView(QStringLiteral("frmOptions"), buildOptionsView);
    host.registerView(QStringLiteral("frmAbout"), buildAboutView);
    host.registerView(QStringLiteral("frmTable"), buildTableView);
}

} // namespace tsl
