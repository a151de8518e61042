// File > Open online file: a page fetched by address into a new untitled document.
#include "platform/url_transfer.h"
#include "preview/browser_preview.h"
#include "runtime/resume.h"
#include "shell/shell_core.h"

namespace tsl {

namespace preview {
QString urlPrompt() {
    return QStringLiteral("Please enter URL to open. If you are not connected to the internet, "
                          "a blank screen will appear.");
}
QString urlTitle() {
    return QStringLiteral("Open URL");
}
QString fetchFailedText() {
    return QStringLiteral(
        "Could not open the file you requested. Check your filename and connection.");
}
} // namespace preview

namespace {} // namespace

void mnuNet_Click(ShellCore& shell) {
    resumeNext([&] { shell.CurrentDocument = shell.ActiveForm(); });
    shell.LockWindowUpdate(true);
    shell.bLoadingOnline = true;
    resumeNext([&] {
        shell.runMenuClick(QStringLiteral("mnuFileNewHTML"));
    }); // releases drawing at its end
    shell.bLoadingOnline = false;
    codeEditor* fetched = shell.ActiveForm();
    resumeNext([&] { required(shell.ActiveForm()).codebox().setText(QString()); });
    resumeNext([&] { required(shell.ActiveForm()).Tag = QStringLiteral("Clean"); });

    const QString answer = shell.platform()
                               .inputBox(preview::urlPrompt(), preview::urlTitle(), QString())
                               .value_or(QString());
    if (answer.isEmpty()) {
        resumeNext([&] { shell.unloadDocument(&required(shell.ActiveForm())); });
        return;
    }
    resumeNext([&] {
        codeEditor& doc = required(shell.ActiveForm());
        doc.CSSDoc =
            answer.right(4) == QLatin1String(".css") ? QStringLiteral("Yes") : QStringLiteral("No");
        doc.Show();
    });

    shell.bLoadingOnline = true;
    UrlTransfer& Inet1 = shell.platform().transfer();
    Inet1.StateChanged = [&shell](int state) { Inet1_StateChanged(shell, state); };
    // A transfer that fails has closed the window by now and raises, so no text is written.
    resumeNext([&] { required(shell.ActiveForm()).codebox().setText(Inet1.OpenURL(answer)); });
    Inet1.StateChanged = nullptr;
    resumeNext([&] { required(shell.ActiveForm()).codebox().SetFocus(); });
    shell.LockWindowUpdate(false);
    // Only the window made for the page is marked: after a failure another one is in front.
    if (fetched && fetched->isLoaded() && shell.ActiveForm() == fetched)
        fetched->lblOnlineFile = QStringLiteral("Yes");
    shell.bLoadingOnline = false;
}

void Inet1_StateChanged(ShellCore& shell, int state) {
    auto panel = [&shell](const QString& text) {
        resumeNext([&] { shell.StatusBar1.setPanelText(1, text); });
    };
    switch (state) {
    case UrlTransfer::icResolvingHost:
        panel(QStringLiteral("Looking up host..."));
        break;
    case UrlTransfer::icHostResolved:
        panel(QStringLiteral("Host found. Waiting for reply..."));
        break;
    case UrlTransfer::icConnecting:
        panel(QStringLiteral("Requesting file..."));
        break;
    case UrlTransfer::icResponseReceived:
        panel(QString());
        break;
    case UrlTransfer::icError:
        resumeNext(
            [&] { shell.platform().msgBox(preview::fetchFailedText(), MsgIcon::Information); });
        panel(QString());
        resumeNext([&] { shell.unloadDocument(&required(shell.ActiveForm())); });
        break;
    default:
        break;
    }
}

} // namespace tsl
