#pragma once
// External browsers and pages fetched by address: the handlers of File > Preview in Browser and
// File > Open online file.
#include <QString>

namespace tsl {

class ShellCore;
class Commands;

// The active document's file in the desktop's default browser.
void mnuFilePrevDef_Click(ShellCore& shell);
// The active document's file in the browser named in the settings.
void mnuFilePrevSec_Click(ShellCore& shell);
// A page fetched by address into a new untitled document.
void mnuNet_Click(ShellCore& shell);
// The progress of the transfer, in the first panel of the status bar.
void Inet1_StateChanged(ShellCore& shell, int state);

namespace preview {
// The question before a browser is launched for a changed or unsaved file.
QString saveQuestion();
// The box shown when no secondary browser is named.
QString noBrowserText();
QString noBrowserTitle();
QString urlPrompt();
QString urlTitle();
QString fetchFailedText();
} // namespace preview

void bindBrowserPreview(ShellCore& shell, Commands& commands);

} // namespace tsl
