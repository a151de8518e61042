#pragma once
// A small dialog with one field of each shape: the example a new dialog follows, and the one
// the shapes every dialog shares are tested against.
#include "dialogs/dialog_shapes.h"
#include "runtime/int16.h"
#include "runtime/vb_strings.h"
#include <cmath>

namespace tsl::test {

class frmTiny : public ElementDialog {
  public:
    explicit frmTiny(DialogContext& shell)
        : ElementDialog(QStringLiteral("frmTiny"), shell), cdTiny(shell.platform()) {
        setCaption(QStringLiteral("Insert Tiny"));
        useKeyFilter(numericKeyFilter, {&txtSize});
        useKeyFilter(hexKeyFilter, {&txtColour});
        txtColour.MaxLength = 6;
        txtSize.setText(QStringLiteral("1"));
        cmdColour.Click = [this] { pickColour(cdTiny, txtColour); };
        cmdFile.Click = [this] { browseFile(cdTiny, txtFile); };
        OK.Click = [this] { commitMarkup([this] { return markup(); }); };
        Cancel.Click = [this] { cancelDialog(); };
    }

    Label fraTiny{this, "fraTiny", "Tiny"};
    Label lblSize{this, "lblSize", "&Size:"};
    TextBox txtSize{this, "txtSize"};
    UpDown udSize{this, "udSize", txtSize, 1, 9};
    Label lblColour{this, "lblColour", "Colour:"};
    TextBox txtColour{this, "txtColour"};
    CommandButton cmdColour{this, "cmdColour", "..."};
    Label lblFile{this, "lblFile", "File:"};
    TextBox txtFile{this, "txtFile"};
    CommandButton cmdFile{this, "cmdFile", "..."};
    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog cdTiny;

    // Its one rule: a size that is no number fails, as the count of a table does.
    QString markup() const {
        const int size = toInt16(std::llround(toNumber(txtSize.Text())));
        return QStringLiteral("<tiny size=\"%1\" color=\"%2\">").arg(size).arg(txtColour.Text());
    }
};

} // namespace tsl::test
