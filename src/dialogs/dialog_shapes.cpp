#include "dialogs/dialog_shapes.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"

namespace tsl {

namespace {
constexpr int kBackspace = 8;

bool between(int key, char low, char high) {
    return key >= low && key <= high;
}
} // namespace

void numericKeyFilter(int& keyAscii) {
    if (keyAscii == kBackspace || between(keyAscii, '0', '9')) return;
    keyAscii = 0;
}

void hexKeyFilter(int& keyAscii) {
    if (between(keyAscii, 'a', 'f')) keyAscii -= 'a' - 'A';
    if (keyAscii == kBackspace || between(keyAscii, '0', '9') || between(keyAscii, 'A', 'F'))
        return;
    keyAscii = 0;
}

void useKeyFilter(void (*filter)(int&), std::initializer_list<TextBox*> boxes) {
    for (TextBox* box : boxes)
        box->KeyPress = filter;
}

QString hexColour(unsigned colour) {
    const unsigned red = colour & 0xFF;
    const unsigned green = (colour >> 8) & 0xFF;
    const unsigned blue = (colour >> 16) & 0xFF;
    return QString::number((red << 16) | (green << 8) | blue, 16)
        .toUpper()
        .rightJustified(6, QLatin1Char('0'));
}

bool ElementDialog::commitMarkup(const std::function<QString()>& build) {
    return silentExit([&] {
               codeEditor* doc = shell_.ActiveForm();
               shell_.bInsertingMarkup = true;
               shell_.InsertMarkup(build());
               Unload();
               returnTo(doc);
               if (!doc) raise(ErrObjectRequired);
               doc->AddInsertStep();
               shell_.bCaretStepTaken = false;
               shell_.bInsertingMarkup = false;
           }) == 0;
}

void ElementDialog::cancelDialog() {
    Unload();
    returnTo(shell_.ActiveForm());
}

void ElementDialog::returnTo(codeEditor* doc) {
    // The main window is already showing behind a modal dialog; the document takes the focus.
    if (doc) doc->SetFocus();
}

bool ElementDialog::pickColour(CommonDialog& dialog, TextBox& target, const QString& prefix,
                               bool focus) {
    // A cancel must not hand back the colour of an earlier choice.
    const bool cancelError = dialog.CancelError;
    dialog.CancelError = true;
    const int error = resumeNext([&] { dialog.ShowColor(); });
    dialog.CancelError = cancelError;
    if (error != 0) return false;
    target.setText(prefix + hexColour(dialog.Color));
    if (focus) target.SetFocus();
    return true;
}

void ElementDialog::browseFile(CommonDialog& dialog, TextBox& target, bool keepFolders) {
    codeEditor* doc = shell_.ActiveForm();
    shell_.txtTemp1 = doc ? doc->codebox().FileName() : QString();
    shell_.RelativePath(dialog, target);
    target.SetFocus();
    // Only a link that climbs keeps the folders the dialogs start in.
    if (!shell_.bRelativeUp && !keepFolders) {
        dialog.InitDir.clear();
        shell_.OpenSave.InitDir.clear();
    }
    shell_.bRelativeUp = false;
}

} // namespace tsl
