#include "preview/browser_preview.h"
#include "runtime/resume.h"
#include "shell/command_registry.h"
#include "shell/frm_options.h"
#include "shell/shell_core.h"

namespace tsl {

namespace {

// Asks whether to save first; Yes saves through File > Save.
void offerSave(ShellCore& shell) {
    const MsgResult answer =
        shell.platform().msgBox(preview::saveQuestion(), MsgIcon::Question, MsgButtons::YesNo);
    if (answer == MsgResult::Yes) shell.runMenuClick(QStringLiteral("mnuFileSave"));
}
} // namespace

namespace preview {
QString saveQuestion() {
    return QStringLiteral("The file you have selected to preview has been changed. Would you "
                          "like to save it now?\n\nClicking No will cancel launching the web "
                          "browser.");
}
QString noBrowserText() {
    return QStringLiteral("If you want to view your pages in a secondary browser, then you\n"
                          "will have to specify the location of your browser first.\n\n"
                          "\tPress OK to define browser settings.\n\n\tPress Cancel to close.");
}
QString noBrowserTitle() {
    return QStringLiteral("Secondary Browser not defined");
}
} // namespace preview

void mnuFilePrevDef_Click(ShellCore& shell) {
    shell.CurrentDocument = shell.ActiveForm();
    codeEditor& doc = required(shell.ActiveForm());
    if (doc.Tag == QLatin1String("Dirty") || doc.codebox().FileName().isEmpty()) offerSave(shell);
    // The test is the name alone: a dirty file whose save was declined shows as last saved.
    const QString file = required(shell.ActiveForm()).codebox().FileName();
    if (!file.isEmpty()) shell.platform().shellOpen(file);
}

void mnuFilePrevSec_Click(ShellCore& shell) {
    silentExit([&] {
        shell.CurrentDocument = shell.ActiveForm();
        codeEditor& doc = required(shell.ActiveForm());
        const qsizetype kept = doc.txtFileName.size() - doc.txtFileTitle.size();
        if (kept < 0) raise(ErrInvalidProcedureCall);
        const QString folder = doc.txtFileName.left(kept);

        SettingsStore& settings = shell.settings();
        QString browser = settings.get(keys::Browser, keys::BrowserLoc, QStringLiteral("None"));
        if (browser.isEmpty() || browser == QLatin1String("None")) {
            const MsgResult answer =
                shell.platform().msgBox(preview::noBrowserText(), MsgIcon::Exclamation,
                                        MsgButtons::OKCancel, preview::noBrowserTitle());
            if (answer != MsgResult::OK) return;
            frmOptions options(shell);
            options.Browser.FileName.clear();
            options.Browser.ShowOpen(); // Cancel raises and ends the handler: nothing is written
            settings.save(keys::Browser, keys::BrowserLoc, options.Browser.FileName);
            browser = settings.get(keys::Browser, keys::BrowserLoc, QStringLiteral("None"));
        }
        // Only a changed file is asked about here, never an untitled one.
        if (doc.Tag == QLatin1String("Dirty")) offerSave(shell);
        // The path reaches the browser as one argument, as it stands, blanks and all.
        const QString path = doc.codebox().FileName();
        if (!shell.platform().startCommandLine(browser,
                                               path.isEmpty() ? QStringList() : QStringList{path}))
            raise(ErrFileNotFound);
        shell.OpenSave.InitDir = folder;
    });
}

void bindBrowserPreview(ShellCore& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuFilePrevDef"), [&shell] { mnuFilePrevDef_Click(shell); });
    commands.bind(QStringLiteral("mnuFilePrevSec"), [&shell] { mnuFilePrevSec_Click(shell); });
    commands.bind(QStringLiteral("mnuNet"), [&shell] { mnuNet_Click(shell); });
}

static const CommandSet browserPreviewCommands{bindBrowserPreview};

} // namespace tsl
