#include "shell/frm_about.h"
#include "runtime/resume.h"
#include "shell/shell_mdi.h"

namespace tsl {

const QString frmAbout::kMailAddress = QStringLiteral("mailto:authors@tessaline.org");
const QString frmAbout::kHomePage = QStringLiteral("https://tessaline.org/");

frmAbout::frmAbout(ShellMDI& shell) : Form(QStringLiteral("frmAbout")), shell_(shell) {
    Caption = QStringLiteral("About Tessaline");
    lblName.setCaption(QStringLiteral("Tessaline"));
    lblVersion.setCaption(QStringLiteral("Version 2"));
    Label.setCaption(QStringLiteral("authors@tessaline.org"));
    Labels.setCaption(QStringLiteral("tessaline.org"));
    OK.setCaption(QStringLiteral("OK"));
    OK.Click = [this] { OK_Click(); };
}

void frmAbout::Label_Click() {
    shell_.platform().shellOpen(kMailAddress);
}

void frmAbout::Labels_Click() {
    shell_.platform().shellOpen(kHomePage);
}

void frmAbout::OK_Click() {
    Unload();
    resumeNext([&] {
        if (!shell_.CurrentDocument) raise(ErrObjectRequired);
        shell_.CurrentDocument->SetFocus();
    });
}

void ShellMDI::mnuHelpAbout_Click() {
    CurrentDocument = ActiveForm();
    frmAbout form(*this);
    forms_.showModal(form);
}

void ShellMDI::mnuHelpContents_Click() {
    platform_.showHelp(platform_.applicationFolder() + QStringLiteral("/tessaline.chm"));
}

} // namespace tsl
