#pragma once
// What every element dialog shares: the way markup is committed to the document, Cancel, the
// numeric and hex key filters, the colour picker, the file browse, and spinners with their
// text boxes. A dialog derives from ElementDialog and wires its controls with these pieces.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "platform/common_dialog.h"
#include <functional>
#include <initializer_list>

namespace tsl {

class ShellMDI;
class codeEditor;

// Key filters for a text box's KeyPress: a dropped key is set to 0, without a sound.
// Digits and backspace only.
void numericKeyFilter(int& keyAscii);
// Hex digits and backspace; "a" to "f" become capitals. No "#" can be typed.
void hexKeyFilter(int& keyAscii);
void useKeyFilter(void (*filter)(int&), std::initializer_list<TextBox*> boxes);

// A spinner bound to its text box, with its range.
void bindSpinner(UpDown& spinner, TextBox& buddy, int min, int max);

// A colour of the colour dialog (red in the lowest byte) as six capital hex digits, red first.
QString hexColour(unsigned colour);

class ElementDialog : public Form {
  public:
    ElementDialog(QString formName, ShellMDI& shell) : Form(std::move(formName)), shell_(shell) {}
    ShellMDI& shell() const { return shell_; }

  protected:
    // The commit sequence. A failure while building or inserting ends it at once, with no
    // message: the dialog stays open and bInsertingMarkup stays set. False in that case.
    bool commitMarkup(const std::function<QString()>& build);
    // Cancel: unload, then back to the document; no text changes, no step.
    void cancelDialog();
    // The colour dialog into `target` (with `prefix` in front); a cancel changes nothing.
    void pickColour(CommonDialog& dialog, TextBox& target, const QString& prefix = QString());
    // A file into `target`, as a link relative to the active document where it can be.
    void browseFile(CommonDialog& dialog, TextBox& target);

  private:
    void returnTo(codeEditor* doc);
    ShellMDI& shell_;
};

} // namespace tsl
