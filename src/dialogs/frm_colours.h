#pragma once
// The Page Properties dialog: the colours and the background of the page, read from the body
// tag by text search in Source view, or from the page's document object in Layout view.
#include "dialogs/dialog_shapes.h"
#include "runtime/int16.h"
#include <vector>

namespace tsl {

class SourcePane;

// Six hexadecimal digits, "#" or not, as a number in red, green, blue order; the last six
// characters are read. False for a shorter text or any other character.
bool HexToColour(const QString& text, long& value);

class Colours : public ElementDialog {
  public:
    explicit Colours(DialogContext& shell);

    Label lblBack{this, "lblBack", "Background:"};
    tsl::TextBox Back{this, "Back"};
    CommandButton BackgroundMore{this, "BackgroundMore", "More..."};
    Label lblText{this, "lblText", "Text:"};
    tsl::TextBox TextBox{this, "TextBox"};
    CommandButton TextMore{this, "TextMore", "More..."};
    Label lblLink{this, "lblLink", "Link:"};
    tsl::TextBox LinkBox{this, "LinkBox"};
    CommandButton LinkMore{this, "LinkMore", "More..."};
    Label lblVLink{this, "lblVLink", "VLink:"};
    tsl::TextBox VlinkBox{this, "VlinkBox"};
    CommandButton VLinkMore{this, "VLinkMore", "More..."};
    Label lblALink{this, "lblALink", "ALink:"};
    tsl::TextBox ALinkBox{this, "ALinkBox"};
    CommandButton ALinkMore{this, "ALinkMore", "More..."};
    Label lblBGImg{this, "lblBGImg", "Background Image:"};
    tsl::TextBox BGImgBox{this, "BGImgBox"};
    CommandButton Command1{this, "Command1", "..."};
    CheckBox chkFixed{this, "chkFixed", "Fixed"};

    // The preview.
    Label fraPreview{this, "fraPreview", "Page Properties"};
    Label BGColor{this, "BGColor", QString()};
    Label ALink{this, "ALink", "Active Link"};
    Label VLink{this, "VLink", "Visited Link"};
    Label Link{this, "Link", "Unvisited Link"};
    Label Text{this, "Text", "Text"};

    CommandButton OK{this, "OK", "OK", CommandButton::DefaultRole};
    CommandButton Cancel{this, "Cancel", "Cancel", CommandButton::CancelRole};
    CommonDialog ColourDialog;

    // Where the body tag was found and just behind its ">". They outlive the dialog, so a
    // Cancel in Layout view uses what the last Source view opening found.
    static Int16 BodyStart;
    static Int16 BodyEnd;
    bool ColourFound = false;

    void Form_Load() override;
    void OK_Click();
    void Cancel_Click();
    void FindColour(const QString& name, int position);
    // Keys of the five colour boxes.
    void colourKeyFilter(tsl::TextBox& box, int& keyAscii);

  private:
    struct ColourField {
        tsl::TextBox& box;
        CommandButton& more;
        Label& preview;
        long fallback;
        bool back; // the preview's back colour, not its text colour
        const char* keyword;
        const char* property;
    };
    std::vector<ColourField> fields();
    void showPreview(const ColourField& field);
    void paint(const ColourField& field, int colour);
    void readTag();
    void readAttribute(SourcePane& pane, const QString& keyword, tsl::TextBox& box);
};

} // namespace tsl
