#pragma once
// Which state of a link an "A" selector means. There is no Cancel: the dialog stays in front
// until OK.
#include "dialogs/dialog_shapes.h"

namespace tsl {

class frmATag : public ElementDialog {
  public:
    explicit frmATag(DialogContext& shell);

    OptionButton LinkOpt{this, "LinkOpt", "Unvisited link"};
    Label lblLink{this, "lblLink", "Page linked to has never been visited before."};
    OptionButton Vopt{this, "Vopt", "Visited link"};
    Label lblVisited{this, "lblVisited", "Page linked to has been visited before."};
    OptionButton Aopt{this, "Aopt", "Active link"};
    Label lblActive{this, "lblActive", "User has selected link"};
    OptionButton AllOpt{this, "AllOpt", "All"};
    Label lblAll{this, "lblAll", "Specifies all of the above"};
    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};

    void OK_Click();
    // The close box does not close it.
    void closeBox() override {}
};

} // namespace tsl
