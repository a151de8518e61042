#pragma once
// Insert Image: the attributes of one img element, with its low resolution and movie sources.
#include "dialogs/dialog_shapes.h"

namespace tsl {

class NewImage : public ElementDialog {
  public:
    explicit NewImage(DialogContext& shell);

    Label Frame1{this, "Frame1", "Image Properties"};
    Label lblFileName{this, "lblFileName", "Static Image File:"};
    TextBox FileName{this, "FileName"};
    CommandButton Browse{this, "Browse", "..."};
    Label lblLowSrc{this, "lblLowSrc", "Low Source File:"};
    TextBox LowSrc{this, "LowSrc"};
    CommandButton BrowseLS{this, "BrowseLS", "..."};
    Label lblAVI{this, "lblAVI", "Movie File:"};
    TextBox AVIBox{this, "AVIBox"};
    CommandButton Command1{this, "Command1", "..."};
    Label lblAlt{this, "lblAlt", "Alternate Text:"};
    TextBox AltText{this, "AltText"};
    Label lblAlign{this, "lblAlign", "Align:"};
    ComboBox Alignment{this, "Alignment", ComboBox::DropDownList};
    Label lblWidth{this, "lblWidth", "Width:"};
    TextBox WidthB{this, "WidthB"};
    UpDown WidthUpDown{this, "WidthUpDown", WidthB, 0, 1000};
    Label lblHeight{this, "lblHeight", "Height:"};
    TextBox HeightB{this, "HeightB"};
    UpDown HeightUpDown{this, "HeightUpDown", HeightB, 0, 1000};
    Label lblVspace{this, "lblVspace", "Vertical Spacing:"};
    TextBox Vspace{this, "Vspace"};
    UpDown VspaceUpDown{this, "VspaceUpDown", Vspace, 0, 50};
    Label lblHSpace{this, "lblHSpace", "Horizontal Spacing:"};
    TextBox HSpace{this, "HSpace"};
    UpDown HSpaceUpDown{this, "HSpaceUpDown", HSpace, 0, 50};
    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog ImageFiles;

    void Form_Load() override;
    void OK_Click();
    void Cancel_Click();
    // The element OK would write now.
    QString markup() const;
};

} // namespace tsl
