// Form Components, Insert Form and the mail-to helper on screen.
#include "dialogs/frm_form.h"
#include "ui/kit/form_host.h"
#include "ui/kit/form_kit.h"

namespace tsl {

using namespace kit;

namespace {
// A panel of label + field rows, the room below them left empty.
Item fields(Label& panel, std::vector<Item> rows, std::vector<Item> below = {}) {
    std::vector<Item> items{Rows(std::move(rows))};
    for (Item& item : below)
        items.push_back(std::move(item));
    items.push_back(Stretch());
    return Panel(panel, std::move(items));
}
} // namespace

// The kind on top; below it, in one place, the panel of the kind chosen.
void buildFormView(frmForm& f, FormDialog& dialog, DialogContext& shell) {
    build(
        dialog, shell,
        Column(
            {Rows({Field(f.lblInputType, Combo(f.cmbInputType, 200))}),
             Group(f.fraProperties,
                   {Panels(
                       {fields(f.picButton, {Field(f.lblTextBoxName, Text(f.txtTextBoxName)),
                                             Field(f.lblTextBoxValue, Text(f.txtTextBoxValue)),
                                             Field(f.lblButtonType,
                                                   Inline({Option(f.optNorm), Option(f.optSubmit),
                                                           Option(f.optReset)}))}),
                        fields(f.picCheckbox, {Field(f.lblCheckboxName, Text(f.txtCheckboxName)),
                                               Field(f.lblCheckVal, Text(f.txtCheckVal)),
                                               Field(f.lblState, Check(f.chkChecked))}),
                        fields(f.picList,
                               {Field(f.lblListName, Text(f.txtListName)),
                                Field(f.lblListHeight, Spin(f.txtListHeight, f.udListHeight)),
                                Field(f.lblItems, Spin(f.txtItems, f.udItems))},
                               {Check(f.chkMultiple)}),
                        fields(f.picOption,
                               {Field(f.lblGrName, Text(f.txtGrName)),
                                Field(f.lblOptVal, Text(f.txtOptVal))},
                               {Check(f.chkSelected)}),
                        fields(f.picText, {Field(f.lblName, Text(f.txtName)),
                                           Field(f.lblValue, Text(f.txtValue)),
                                           Field(f.lblSize, Text(f.txtSize, 80)),
                                           Field(f.lblMax, Text(f.txtMax, 80))}),
                        fields(f.picMulti,
                               {Field(f.lblMultiName, Text(f.txtMultiName)),
                                Field(f.lblMultiText, Text(f.txtMultiText)),
                                Field(f.lblMultiWidth, Text(f.txtMultiWidth, 80)),
                                Field(f.lblMultiHeight, Text(f.txtMultiHeight, 80))},
                               {Note(f.lblMultiNote, Wrapped)}),
                        fields(f.picImage, {Field(f.lblImgName, Text(f.txtImgName)),
                                            Field(f.lblImgSrc, Picked(f.txtImgSrc, f.Command1)),
                                            Field(f.lblImgWidth, Text(f.txtImgWidth, 80)),
                                            Field(f.lblImgHeight, Text(f.txtImgHeight, 80)),
                                            Field(f.lblImgAlign, Combo(f.cmbImgAlign, 140))}),
                        fields(f.picHidden, {Field(f.lblHiddenName, Text(f.txtHiddenName)),
                                             Field(f.lblHiddenValue, Text(f.txtHiddenValue))})})}),
             Buttons({&f.cmdOK, &f.cmdCancel})}));
    dialog.setMinimumWidth(420);
}

void buildFormSettingsView(frmFormSettings& f, FormDialog& dialog, DialogContext& shell) {
    build(dialog, shell,
          Column({Group(f.fraProperties,
                        {Field(f.lblAction, Text(f.txtAction)), Row({Stretch(), Button(f.cmdMail)}),
                         Field(f.lblMethod, Combo(f.cmbMethod)),
                         Field(f.lblEncoding, Combo(f.cmbEncoding)),
                         Field(f.lblTarget, Combo(f.cmbTarget))}),
                  Buttons({&f.cmdOK, &f.cmdCancel})}));
    dialog.setMinimumWidth(440);
}

void buildFormEmailView(frmFormEmail& f, FormDialog& dialog, DialogContext& shell) {
    build(dialog, shell,
          Column({FormGroup(f.fraAddress, {Field(f.lblAddress, Text(f.txtAddress))}),
                  Buttons({&f.cmdOK, &f.cmdCancel})}));
    dialog.setMinimumWidth(360);
}

} // namespace tsl
