#pragma once
// The About box: the program's name and two links, to its author by mail and to its home page.
#include "gadgets/controls.h"
#include "gadgets/form.h"

namespace tsl {

class ShellMDI;

class frmAbout : public Form {
  public:
    explicit frmAbout(ShellMDI& shell);

    static const QString kMailAddress;
    static const QString kHomePage;

    tsl::Label lblName{QStringLiteral("lblName")};
    tsl::Label lblVersion{QStringLiteral("lblVersion")};
    tsl::Label Label{QStringLiteral("Label")};
    tsl::Label Labels{QStringLiteral("Labels")};
    CommandButton OK{QStringLiteral("OK")};

    void Label_Click();
    void Labels_Click();
    void OK_Click();

  private:
    ShellMDI& shell_;
};

} // namespace tsl
