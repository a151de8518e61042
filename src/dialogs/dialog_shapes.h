#pragma once
// What every element dialog shares: the way markup is committed to the document, Cancel, the
// numeric and hex key filters, the colour picker and the file browse. A dialog derives from
// ElementDialog, declares its controls with their names and captions, and wires them with
// these pieces.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "platform/common_dialog.h"
#include "shell/dialog_context.h"
#include <functional>
#include <initializer_list>

namespace tsl {

class codeEditor;

// Key filters for a text box's KeyPress: a dropped key is set to 0, without a sound.
// Digits and backspace only.
void numericKeyFilter(int& keyAscii);
// Hex digits and backspace; "a" to "f" become capitals. No "#" can be typed.
void hexKeyFilter(int& keyAscii);
void useKeyFilter(void (*filter)(int&), std::initializer_list<TextBox*> boxes);

// An attribute as markup writes it: a blank, the name, and the value in quotes as typed.
inline QString attribute(const QString& name, const QString& value) {
    return QLatin1Char(' ') + name + QStringLiteral("=\"") + value + QLatin1Char('"');
}

// A colour of the colour dialog (red in the lowest byte) as six capital hex digits, red first.
QString hexColour(unsigned colour);

class ElementDialog : public Form {
  public:
    ElementDialog(QString formName, DialogContext& shell)
        : Form(std::move(formName)), shell_(shell) {}
    DialogContext& shell() const { return shell_; }
    // Most dialogs need nothing more when they load.
    virtual void Form_Load() {}

  protected:
    // The commit sequence. A failure while building or inserting ends it at once, with no
    // message: the dialog stays open and bInsertingMarkup stays set. False in that case.
    bool commitMarkup(const std::function<QString()>& build);
    // Cancel: unload, then back to the document; no text changes, no step.
    void cancelDialog();
    // The colour dialog into `target` (with `prefix` in front), which then gets the focus
    // unless `focus` is false. A cancel changes nothing and answers false.
    bool pickColour(CommonDialog& dialog, TextBox& target, const QString& prefix = QString(),
                    bool focus = true);
    // A file into `target`, as a link relative to the active document where it can be. A
    // browse that ends without a link climbing the folders forgets the folders the dialogs
    // start in, unless `keepFolders`.
    void browseFile(CommonDialog& dialog, TextBox& target, bool keepFolders = false);

  private:
    void returnTo(codeEditor* doc);
    DialogContext& shell_;
};

} // namespace tsl
