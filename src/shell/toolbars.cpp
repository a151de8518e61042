// The three toolbars of the main window and what their buttons do.
#include "runtime/resume.h"
#include "shell/shell_mdi.h"
#include <iterator>

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
    // Center and Right are check buttons: a press turns their pressed state over, and in
    // Layout view the state after the press picks the alignment.
    constexpr int N = cToolbar::Normal;
    constexpr int C = cToolbar::Check;
    const struct {
        const char* tip;
        int image;
        int style;
    } tags[] = {{"Heading Tags", 0, N},
                {nullptr, -1, N},
                {"Font Settings", 2, N},
                {nullptr, -1, N},
                {"Bold", 3, N},
                {"Italic", 4, N},
                {"Underline", 5, N},
                {nullptr, -1, N},
                {"Center", 6, C},
                {"Right", 7, C},
                {nullptr, -1, N},
                {"Page Properties", 8, N},
                {nullptr, -1, N},
                {"Insert Anchor", 9, N},
                {"Insert Hyperlink", 10, N},
                {nullptr, -1, N},
                {"Insert Image", 11, N},
                {"Insert Marquee", 12, N},
                {"Insert List", 13, N},
                {"Insert Blockquote", 17, N},
                {nullptr, -1, N},
                {"Insert Table", 14, N},
                {"Draw Table", 15, N},
                {nullptr, -1, N},
                {"Insert Paragraph", 16, N}};
    for (const auto& button : tags) {
        if (!button.tip)
            tbrTags.AddSeparator();
        else
            tbrTags.AddButton(QString::fromLatin1(button.tip), button.image, button.style);
    }
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
    tbrForms.ButtonClick = [this](int index) { tbrForms_ButtonClick(index); };

    buildBands();
}

void ShellMDI::buildBands() {
    // The bands in picHolder, in this order; the text of each is empty, the key names it.
    cReBar1.CreateRebar();
    cReBar1.AddBandByHwnd(&tbrMain, QString(), QStringLiteral("Toolbar1"));
    cReBar1.AddBandByHwnd(&tbrTags, QString(), QStringLiteral("Toolbar2"));
    cReBar1.AddBandByHwnd(&tbrForms, QString(), QStringLiteral("Toolbar3"));
}

void ShellMDI::tbrMain_ButtonClick(int index) {
    using S = QString;
    switch (index) {
    case 0:
        mnuFileNewHTML_Click();
        break;
    case 1:
        mnuFileOpen_Click();
        break;
    case 2:
        runMenuClick(S("mnuNet"));
        break;
    case 3:
        mnuFileSave_Click();
        break;
    case 5:
        runMenuClick(S("mnuFilePrint"));
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
    case 14:
        runMenuClick(S("mnuFilePrevDef"));
        break;
    case 16:
        mnuViewForms_Click();
        break;
    case 17:
        mnuViewTagList_Click();
        break;
    case 19:
        runMenuClick(S("mnuInsertCSS"));
        break;
    case 20:
        runMenuClick(S("mnuInsertLink"));
        break;
    case 22:
        mnuInsertComment_Click();
        break;
    case 24:
        insertBadge();
        break;
    default:
        break; // separators
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
            // The pressed state picks: off 5025 (left), on 5024 (center).
            layout.ExecCommand(
                tbrTags.ButtonChecked(8) ? layoutcmd::JustifyCenter : layoutcmd::JustifyLeft, 2);
            return;
        case 9:
            // Off 5025 (left), on 5026 (right).
            layout.ExecCommand(
                tbrTags.ButtonChecked(9) ? layoutcmd::JustifyRight : layoutcmd::JustifyLeft, 2);
            return;
        default:
            break;
        }
    }
    switch (index) {
    case 0:
        emit popupMenuRequested(QStringLiteral("mnuHeadings"));
        break;
    case 2:
        runMenuClick(QStringLiteral("mnuInsertFont"));
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
    case 11:
        runMenuClick(QStringLiteral("mnuEditProperties"));
        break;
    case 13:
        runMenuClick(QStringLiteral("mnuInsertAnchor"));
        break;
    case 14:
        runMenuClick(QStringLiteral("mnuInsertHyperlink"));
        break;
    case 16:
        runMenuClick(QStringLiteral("mnuInsertImage"));
        break;
    case 17:
        runMenuClick(QStringLiteral("mnuInsertMarquee"));
        break;
    case 18:
        runMenuClick(QStringLiteral("mnuInsertBullet"));
        break;
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
        break; // separators
    }
}

QString ShellMDI::FormsButtonKind(int index) {
    // The field kind each button presets in cmbInputType; 1 and 8 are separators.
    static const char* const kinds[] = {
        nullptr, nullptr,        "Button",      "Check Box",
        "List",  "Radio Button", "Text Box",    "Multi-row Text Box",
        nullptr, "Image",        "Hidden Field"};
    if (index < 0 || index >= static_cast<int>(std::size(kinds)) || !kinds[index]) return {};
    return QString::fromLatin1(kinds[index]);
}

void ShellMDI::tbrForms_ButtonClick(int index) {
    if (index == 0) {
        runMenuClick(QStringLiteral("mnuInsertFormSettings"));
        return;
    }
    const QString kind = FormsButtonKind(index);
    if (!kind.isEmpty()) ShowFormComponent(kind);
}

// Shows frmForm modally with its field kind set first (the form dialog is not built yet).
void ShellMDI::ShowFormComponent(const QString&) {
    notAvailableYet();
}

} // namespace tsl
