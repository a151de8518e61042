#pragma once
// The About box: the program's name and two links, to its author by mail and to its home page.
#include "gadgets/controls.h"
#include "gadgets/form.h"
#include "shell/dialog_context.h"

namespace tsl {

class frmAbout : public Form {
  public:
    explicit frmAbout(DialogContext& shell);

    static const QString kMailAddress;
    static const QString kHomePage;

    tsl::Label lblName{this, "lblName", "Tessaline"};
    tsl::Label lblVersion{this, "lblVersion", "Version 2"};
    tsl::Label Label{this, "Label", "authors@tessaline.org"};
    tsl::Label Labels{this, "Labels", "tessaline.org"};
    // OK is also what Escape and the close box press.
    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole | CommandButton::CancelRole};

    void Form_Load() {}
    void Label_Click();
    void Labels_Click();
    void OK_Click();

  private:
    DialogContext& shell_;
};

} // namespace tsl
