#pragma once
// The Frame Hanger: a four page wizard that writes a frameset at the caret. The user picks one
// of ten layouts, clicks the frames of its map to give each its settings, and presses Finish.
#include "dialogs/dialog_shapes.h"
#include "dialogs/frame_layouts.h"
#include <array>
#include <memory>
#include <vector>

namespace tsl {

// What one frame is given; raw values from the page until Finish turns them into attributes.
struct FrameSettings {
    QString name, src, scrolling, marginwidth, marginheight, noresize;
};

// A layout's clickable map: its container and one image per region, in the order of
// layout->regions, where each image's place in the picture is given.
struct FrameMap {
    const FrameLayout* layout;
    std::unique_ptr<Label> container;
    std::vector<std::unique_ptr<ImageBox>> images;
};

class frmFrames : public ElementDialog {
  public:
    explicit frmFrames(DialogContext& shell);

    // The pages, one visible at a time, in the order 2, 0, 1, 3; captions are their headings.
    Label Frame1[4]{{this, "Frame1_0", "1. Choose a frame set ..."},
                    {this, "Frame1_1", "2. Specify the settings for your frames"},
                    {this, "Frame1_2", "Welcome!"},
                    {this, "Frame1_3", "3. Finished!"}};

    Label lblWelcome1{this, "lblWelcome1", "Welcome to the Tessaline Frame Hanger."};
    Label lblWelcome2{this, "lblWelcome2",
                      "This utility generates frameset code based on selections you make in a "
                      "few simple steps."};
    Label lblWelcome3{this, "lblWelcome3",
                      "The Frame Hanger first allows you to choose from a selection of common "
                      "frameset types. It then allows you to specify the settings for each "
                      "frames page. Finally it inserts the frameset code into the currently "
                      "open file."};

    ListBox lstFrameType{this, "lstFrameType"};
    Label lblSettings{this, "lblSettings", "Frameset Settings:"};
    CheckBox chkBorders{this, "chkBorders", "Borders"};
    Label Label13{this, "Label13", "Border Color:"};
    TextBox txtBorderColor{this, "txtBorderColor"};
    CommandButton cmdColor{this, "cmdColor", "..."};

    Label lblFrameName{this, "lblFrameName", "Frame Name:"};
    TextBox txtFrameName{this, "txtFrameName"};
    Label lblFrameURL{this, "lblFrameURL", "Frame Source:"};
    TextBox txtFrameURL{this, "txtFrameURL"};
    CommandButton cmdURL{this, "cmdURL", "..."};
    Label lblScrolling{this, "lblScrolling", "Scrolling:"};
    ComboBox cmbScrolling{this, "cmbScrolling", ComboBox::DropDownCombo};
    Label lblMWidth{this, "lblMWidth", "Margin Width:"};
    TextBox txtMWidth{this, "txtMWidth"};
    Label lblMHeight{this, "lblMHeight", "Margin Height:"};
    TextBox txtMHeight{this, "txtMHeight"};
    CheckBox chkNoResize{this, "chkNoResize", "No Resize"};

    Label lblFinished1{this, "lblFinished1", "Click the Finish button to complete this operation."};
    Label lblFinished2{this, "lblFinished2",
                       "The frameset code will be inserted in the currently open file at the "
                       "cursor position."};
    Label lblFinished3{this, "lblFinished3",
                       "Frame dimensions can then be adjusted in the Source window."};

    CommandButton Command3{this, "Command3", "Cancel", CommandButton::CancelRole};
    CommandButton cmdBack{this, "cmdBack", "< Back"};
    CommandButton NextButton{this, "NextButton", "Next >", CommandButton::DefaultRole};
    CommandButton cmdFinish{this, "cmdFinish", "Finish"};
    CommonDialog cdOpenSave;

    // The preview of list entry `index`, on page 1.
    Label& Picture1(int index) const { return *pictures_.at(static_cast<size_t>(index)); }
    // The clickable maps of page 2, by list index.
    const std::vector<FrameMap>& maps() const { return maps_; }
    const FrameMap& map(int index) const { return maps_.at(static_cast<size_t>(index)); }

    // The frame settings of slot 1 to 4.
    const FrameSettings& slot(int n) const { return slots_.at(static_cast<size_t>(n - 1)); }
    int FrameType = 0;
    FrameRegion CurrentRegion = Contents;
    // They follow the rows or cols of every frameset tag, in this order.
    QString BorderColorAttr;
    QString BorderOffAttr;

    void Form_Load() override;
    void lstFrameType_Click();
    void NextButton_Click();
    void cmdBack_Click();
    void cmdFinish_Click();
    void Command3_Click() { cancelDialog(); }
    void region_Click(ImageBox& clicked);
    void chkBorders_Click();
    void cmdColor_Click() { pickColour(cdOpenSave, txtBorderColor, QStringLiteral("#")); }
    void cmdURL_Click() { browseFile(cdOpenSave, txtFrameURL); }
    // The frameset of the current layout from the slots as FormatFrame left them.
    QString frameset() const;

  private:
    FrameSettings& settings(int n) { return slots_.at(static_cast<size_t>(n - 1)); }
    void SaveFrame(int n);
    void LoadFrame(int n);
    void ClearFrame(int n);
    void FormatFrame(int n);
    // The page showing: an index of Frame1.
    int page() const;
    void showPage(int index);
    // The layout with that frame type; its number of regions is its number of slots.
    const FrameMap* mapOfType(int frameType) const;

    std::vector<std::unique_ptr<Label>> pictures_;
    std::vector<FrameMap> maps_;
    std::array<FrameSettings, 4> slots_;
};

} // namespace tsl
