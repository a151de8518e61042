#include "shell/frm_about.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

const QString frmAbout::kMailAddress = QStringLiteral("mailto:authors@tessaline.org");
const QString frmAbout::kHomePage = QStringLiteral("https://tessaline.org/");

frmAbout::frmAbout(DialogContext& shell) : Form(QStringLiteral("frmAbout")), shell_(shell) {
    setCaption(QStringLiteral("About Tessaline"));
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

void bindAboutDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuHelpAbout"), [&shell] { showDialog<frmAbout>(shell); });
    commands.bind(QStringLiteral("mnuHelpContents"), [&shell] {
        Platform& platform = shell.platform();
        platform.showHelp(platform.applicationFolder() + QStringLiteral("/tessaline.chm"));
    });
}

static const CommandSet aboutDialogCommands{bindAboutDialog};

} // namespace tsl
