// The three toolbars of the main window and what their buttons do.
#include "runtime/resume.h"
#include "shell/shell_mdi.h"

namespace tsl {

void ShellMDI::buildToolbars() {
    using S = QString;
    tbrMain.ImageFile = S("resources/toolbar1.tbr");
    tbrMain.CreateToolbar(16);
    tbrMain.AddButton(S("New"), 0, cToolbar::DropDown);
    tbrMain.AddButton(S("Open"), 1);
    tbrMain.AddButton(S("Open On-line File"), 2);
    tbrMain.AddButton(S("Save"), 3);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Print"), 4);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Cut"), 5);
    tbrMain.AddButton(S("Copy"), 6);
    tbrMain.AddButton(S("Paste"), 7);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Undo"), 8);
    tbrMain.AddButton(S("Redo"), 16);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Preview in Browser"), 9, cToolbar::DropDown);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Show Forms Toolbar"), 10, cToolbar::Check);
    tbrMain.AddButton(S("Show Tag List"), 11, cToolbar::Check);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Style Settings"), 12);
    tbrMain.AddButton(S("Link to Style Sheet"), 13);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Insert Comment"), 14);
    tbrMain.AddSeparator();
    tbrMain.AddButton(S("Tell the world about Tessaline!"), 15);
    tbrMain.ButtonClick = [this](int index) { tbrMain_ButtonClick(index); };
    tbrMain.ButtonDropDown = [this](int index) {
        if (index == 0) emit popupMenuRequested(QStringLiteral("mnuFileNew"));
        if (index == 14) emit popupMenuRequested(QStringLiteral("mnuFilePreview"));
    };

    tbrTags.ImageFile = S("resources/toolbar2.tbr");
    tbrTags.CreateToolbar(16);
    const std::pair<const char*, int> tags[] = {{"Heading Tags", 0},
                                                {nullptr, -1},
                                                {"Font Settings", 2},
                                                {nullptr, -1},
                                                {"Bold", 3},
                                                {"Italic", 4},
                                                {"Underline", 5},
                                                {nullptr, -1},
                                                {"Center", 6},
                                                {"Right", 7},
                                                {nullptr, -1},
                                                {"Page Properties", 8},
                                                {nullptr, -1},
                                                {"Insert Anchor", 9},
                                                {"Insert Hyperlink", 10},
                                                {nullptr, -1},
                                                {"Insert Image", 11},
                                                {"Insert Marquee", 12},
                                                {"Insert List", 13},
                                                {"Insert Blockquote", 17},
                                                {nullptr, -1},
                                                {"Insert Table", 14},
                                                {"Draw Table", 15},
                                                {nullptr, -1},
                                                {"Insert Paragraph", 16}};
    for (const auto& [tip, image] : tags) {
        if (!tip)
            tbrTags.AddSeparator();
        else
            tbrTags.AddButton(QString::fromLatin1(tip), image);
    }
    // Center and Right show their state in Layout view.
    tbrTags.ButtonClick = [this](int index) { tbrTags_ButtonClick(index); };

    tbrForms.ImageFile = S("resources/toolbar3.tbr");
    tbrForms.CreateToolbar(16);
    const char* const forms[] = {"Insert Form",
                                 nullptr,
                                 "Insert Button",
                                 "Insert Checkbox",
                                 "Insert Combo Box",
                                 "Insert Radio Button",
                                 "Insert Text Box",
                                 "Insert Multi-row Text Box",
                                 nullptr,
                                 "Insert Image",
                                 "Insert Hidden Field"};
    int image = 0;
    for (const char* tip : forms) {
        if (!tip)
            tbrForms.AddSeparator();
        else
            tbrForms.AddButton(QString::fromLatin1(tip), image++);
    }
    tbrForms.ButtonClick = [this](int) { notAvailableYet(); };
}

void ShellMDI::tbrMain_ButtonClick(int index) {
    switch (index) {
    case 0:
        mnuFileNewHTML_Click();
        break;
    case 1:
        mnuFileOpen_Click();
        break;
    case 3:
        mnuFileSave_Click();
        break;
    case 7:
        mnuEditCut_Click();
        break;
    case 8:
        mnuEditCopy_Click();
        break;
    case 9:
        mnuEditPaste_Click();
        break;
    case 11:
        mnuEditUndo_Click();
        break;
    case 12:
        mnuEditRedo_Click();
        break;
    case 17:
        mnuViewTagList_Click();
        break;
    case 22:
        mnuInsertComment_Click();
        break;
    case 24:
        insertBadge();
        break;
    default:
        notAvailableYet();
        break;
    }
}

void ShellMDI::tbrTags_ButtonClick(int index) {
    if (bLayoutActive) {
        codeEditor* doc = ActiveForm();
        if (!doc) return;
        LayoutSurface& layout = doc->DHTMLEdit1();
        switch (index) {
        case 2:
            layout.ExecCommand(layoutcmd::FontDialog);
            layout.SetFocus();
            return;
        case 4:
            layout.ExecCommand(layoutcmd::Bold, 2);
            return;
        case 5:
            layout.ExecCommand(layoutcmd::Italic, 2);
            return;
        case 6:
            layout.ExecCommand(layoutcmd::Underline, 2);
            return;
        case 8:
            layout.ExecCommand(
                tbrTags.ButtonChecked(8) ? layoutcmd::JustifyLeft : layoutcmd::JustifyCenter, 2);
            return;
        case 9:
            layout.ExecCommand(
                tbrTags.ButtonChecked(9) ? layoutcmd::JustifyLeft : layoutcmd::JustifyRight, 2);
            return;
        default:
            break;
        }
    }
    switch (index) {
    case 0:
        emit popupMenuRequested(QStringLiteral("mnuHeadings"));
        break;
    case 4:
        mnuTagsBold_Click();
        break;
    case 5:
        mnuTagsItalic_Click();
        break;
    case 6:
        mnuTagsUnderline_Click();
        break;
    case 8:
        mnuTagsCenter_Click();
        break;
    case 9:
        break; // deliberately nothing in Source view
    case 19:
        mnuTagsBlock_Click();
        break;
    case 21:
        mnuInsertTable_Click();
        break;
    case 22:
        tableChooser.ShowAtButton(tbrTags.name(), 22, TableChooser::MainToolbar);
        break;
    case 24:
        mnuInsertParagraph_Click();
        break;
    default:
        notAvailableYet();
        break;
    }
}

} // namespace tsl
