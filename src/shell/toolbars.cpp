// The three toolbars of the main window and what their buttons do.
#include "runtime/resume.h"
#include "shell/shell_mdi.h"
#include <iterator>

namespace tsl {

namespace {
constexpr int N = cToolbar::Normal;
constexpr int C = cToolbar::Check;
constexpr int D = cToolbar::DropDown;

// One button: its tool tip, image and style, and the menu item whose handler it runs. A row
// without a tip is a separator; separators count in the indexes.
struct Button {
    const char* tip;
    int image = -1;
    int style = N;
    const char* item = nullptr;
};

// clang-format off
const Button kMainButtons[] = {
    {"New", 0, D, "mnuFileNewHTML"}, {"Open", 1, N, "mnuFileOpen"},
    {"Open On-line File", 2, N, "mnuNet"}, {"Save", 3, N, "mnuFileSave"}, {nullptr},
    {"Print", 4, N, "mnuFilePrint"}, {nullptr},
    {"Cut", 5, N, "mnuEditCut"}, {"Copy", 6, N, "mnuEditCopy"}, {"Paste", 7, N, "mnuEditPaste"},
    {nullptr},
    {"Undo", 8, N, "mnuEditUndo"}, {"Redo", 16, N, "mnuEditRedo"}, {nullptr},
    {"Preview in Browser", 9, D, "mnuFilePrevDef"}, {nullptr},
    {"Show Forms Toolbar", 10, C, "mnuViewForms"}, {"Show Tag List", 11, C, "mnuViewTagList"},
    {nullptr},
    {"Style Settings", 12, N, "mnuInsertCSS"}, {"Link to Style Sheet", 13, N, "mnuInsertLink"},
    {nullptr},
    {"Insert Comment", 14, N, "mnuInsertComment"}, {nullptr},
    {"Tell the world about Tessaline!", 15}, // the badge
};

// Center and Right are check buttons: a press turns their pressed state over, and in Layout
// view the state after the press picks the alignment. Right does nothing in Source view.
const Button kTagsButtons[] = {
    {"Heading Tags", 0}, {nullptr}, {"Font Settings", 2, N, "mnuInsertFont"}, {nullptr},
    {"Bold", 3, N, "mnuTagsBold"}, {"Italic", 4, N, "mnuTagsItalic"},
    {"Underline", 5, N, "mnuTagsUnderline"}, {nullptr},
    {"Center", 6, C, "mnuTagsCenter"}, {"Right", 7, C}, {nullptr},
    {"Page Properties", 8, N, "mnuEditProperties"}, {nullptr},
    {"Insert Anchor", 9, N, "mnuInsertAnchor"}, {"Insert Hyperlink", 10, N, "mnuInsertHyperlink"},
    {nullptr},
    {"Insert Image", 11, N, "mnuInsertImage"}, {"Insert Marquee", 12, N, "mnuInsertMarquee"},
    {"Insert List", 13, N, "mnuInsertBullet"}, {"Insert Blockquote", 17, N, "mnuTagsBlock"},
    {nullptr},
    {"Insert Table", 14, N, "mnuInsertTable"}, {"Draw Table", 15}, {nullptr},
    {"Insert Paragraph", 16, N, "mnuInsertParagraph"},
};

const Button kFormsButtons[] = {
    {"Insert Form", 0, N, "mnuInsertFormSettings"}, {nullptr},
    {"Insert Button", 1}, {"Insert Checkbox", 2}, {"Insert Combo Box", 3},
    {"Insert Radio Button", 4}, {"Insert Text Box", 5}, {"Insert Multi-row Text Box", 6},
    {nullptr},
    {"Insert Image", 7}, {"Insert Hidden Field", 8},
};
// clang-format on

template <size_t n> void addButtons(cToolbar& toolbar, const char* strip, const Button (&rows)[n]) {
    toolbar.ImageFile = QString::fromLatin1(strip);
    toolbar.CreateToolbar(16);
    for (const Button& button : rows) {
        if (!button.tip)
            toolbar.AddSeparator();
        else
            toolbar.AddButton(QString::fromLatin1(button.tip), button.image, button.style);
    }
}

// The menu item a button runs; empty for a separator and the buttons with work of their own.
template <size_t n> QString itemOf(const Button (&rows)[n], int index) {
    if (index < 0 || index >= static_cast<int>(n) || !rows[index].item) return {};
    return QString::fromLatin1(rows[index].item);
}
} // namespace

void ShellMDI::buildToolbars() {
    addButtons(tbrMain, "resources/toolbar1.tbr", kMainButtons);
    tbrMain.ButtonClick = [this](int index) { tbrMain_ButtonClick(index); };
    tbrMain.ButtonDropDown = [this](int index) {
        if (index == 0) emit popupMenuRequested(QStringLiteral("mnuFileNew"));
        if (index == 14) emit popupMenuRequested(QStringLiteral("mnuFilePreview"));
    };
    addButtons(tbrTags, "resources/toolbar2.tbr", kTagsButtons);
    tbrTags.ButtonClick = [this](int index) { tbrTags_ButtonClick(index); };
    addButtons(tbrForms, "resources/toolbar3.tbr", kFormsButtons);
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
    if (index == 24) {
        runAction(QStringLiteral("insertBadge"));
        return;
    }
    const QString item = itemOf(kMainButtons, index);
    if (!item.isEmpty()) runMenuClick(item);
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
    if (index == 0) {
        emit popupMenuRequested(QStringLiteral("mnuHeadings"));
        return;
    }
    if (index == 22) {
        runAction(QStringLiteral("tableChooserFromTags"));
        return;
    }
    const QString item = itemOf(kTagsButtons, index);
    if (!item.isEmpty()) runMenuClick(item);
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
    const QString item = itemOf(kFormsButtons, index);
    if (!item.isEmpty()) {
        runMenuClick(item);
        return;
    }
    // Form Components, with the button's kind chosen.
    const QString kind = FormsButtonKind(index);
    if (!kind.isEmpty()) runAction(QStringLiteral("formComponent:") + kind);
}

} // namespace tsl
