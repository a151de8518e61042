#pragma once
// Insert List: a bulleted or numbered list, of empty items or of the selected lines.
#include "dialogs/dialog_shapes.h"

namespace tsl {

// The selected lines as items: "<li>" before the first and after every line feed, so a text
// that ends in a line feed ends in an empty item.
QString listItemsOf(const QString& lines);

class frmList : public ElementDialog {
  public:
    explicit frmList(DialogContext& shell);

    Label fraStyle{this, "fraStyle", "List Style"};
    OptionButton BOpt{this, "BOpt", "Bulleted"};
    OptionButton NOpt{this, "NOpt", "Numbered"};
    CheckBox chkConvertSelected{this, "chkConvertSelected", "Convert selection"};

    Label picBullet{this, "picBullet", "Bulleted list"};
    Label lblType{this, "lblType", "&Type:"};
    ComboBox cmbType{this, "cmbType"};
    Label lblItems{this, "lblItems", "No. of &Items:"};
    TextBox ItemsBox{this, "ItemsBox"};
    UpDown UpDown1{this, "UpDown1", ItemsBox, 1, 999};

    Label picOrdered{this, "picOrdered", "Numbered list"};
    Label lblOrdered{this, "lblOrdered", "&Type:"};
    ComboBox cmbOrdered{this, "cmbOrdered", ComboBox::DropDownList};
    Label lblUItems{this, "lblUItems", "No. of &Items:"};
    TextBox UItemsBox{this, "UItemsBox"};
    UpDown UpDown2{this, "UpDown2", UItemsBox, 1, 999};
    Label lblStart{this, "lblStart", "Start &Number:"};
    TextBox StartBox{this, "StartBox"};
    UpDown UpDown3{this, "UpDown3", StartBox, 0, 10};

    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    // The selected text the conversion works on; never shown.
    TextBox rtfConverter{this, "rtfConverter"};

    void Form_Load() override;
    void BOpt_Click();
    void NOpt_Click();
    void chkConvertSelected_Click();
    void OK_Click();
    void Cancel_Click() { cancelDialog(); }
    // The list OK would write now; a count box without a number is a run-time error.
    QString markup() const;
};

} // namespace tsl
