// The three views of a document: the Source text, the Layout surface that edits a copy of
// it, and the Preview of a temporary file. Moving between them moves the text.
#include "editor/text_pane.h"
#include "runtime/resume.h"
#include "runtime/vb_strings.h"
#include "shell/code_editor.h"
#include "shell/shell_core.h"
#include <QFile>
#include <algorithm>

namespace tsl {

namespace {
const QString kPreviewFile = QStringLiteral("~tssln.htm");
const QString kSecondPreviewFile = QStringLiteral("~tssln2.htm");

void setMenu(ShellCore& shell, const char* name, bool on) {
    shell.menu(QLatin1String(name)).setEnabled(on);
}
} // namespace

void codeEditor::buildViews() {
    using S = QString;
    for (const char* caption : {"  Source  ", "  Layout  ", "  Preview  "})
        tabEditor.AddTab(QLatin1String(caption));
    tabEditor.TabClick = [this] {
        SelectedTab = tabEditor.SelectedTab();
        tabEditor_TabClick();
    };

    for (const char* style :
         {"Address", "Bulleted List", "Definition Term", "Definition", "Directory List",
          "Formatted", "Heading 1", "Heading 2", "Heading 3", "Heading 4", "Heading 5", "Heading 6",
          "Menu List", "Normal", "Numbered List"})
        cmbStyles.AddItem(QLatin1String(style));
    QStringList fonts = shell_.FontNames;
    std::sort(fonts.begin(), fonts.end());
    for (qsizetype i = 1; i < fonts.size(); ++i)
        cmbFonts.AddItem(fonts.at(i));
    for (int size = 1; size <= 7; ++size)
        cmbFontSize.AddItem(QString::number(size));
    for (ComboBox* combo : {&cmbStyles, &cmbFonts, &cmbFontSize})
        combo->setVisible(false);
    cmbStyles.Click = [this] { cmbStyles_Click(); };
    cmbFonts.Click = [this] { cmbFonts_Click(); };
    cmbFontSize.Click = [this] { cmbFontSize_Click(); };

    tbrLayout.ImageFile = S("resources/Toolbar4.tbr");
    tbrLayout.CreateToolbar(16);
    tbrLayout.AddButton(S("Font Color"), 0);
    tbrLayout.AddSeparator();
    tbrLayout.AddButton(S("Decrease Indent"), 1);
    tbrLayout.AddButton(S("Increase Indent"), 2);
    tbrLayout.AddSeparator();
    tbrLayout.AddButton(S("Bulleted List"), 3, cToolbar::Check);
    tbrLayout.AddButton(S("Numbered List"), 4, cToolbar::Check);
    tbrLayout.ButtonClick = [this](int index) { tbrLayout_ButtonClick(index); };

    tbrTable.ImageFile = S("resources/Toolbar5.tbr");
    tbrTable.CreateToolbar(16);
    tbrTable.AddButton(S("Draw Table"), 0);
    tbrTable.AddSeparator();
    tbrTable.AddButton(S("Insert Row"), 1);
    tbrTable.AddButton(S("Insert Column"), 2);
    tbrTable.AddSeparator();
    tbrTable.AddButton(S("Delete Cells"), 3);
    tbrTable.AddButton(S("Delete Rows"), 4);
    tbrTable.AddButton(S("Delete Columns"), 5);
    tbrTable.AddSeparator();
    tbrTable.AddButton(S("Merge Cells"), 6);
    tbrTable.AddButton(S("Split Cells"), 7);
    tbrTable.AddSeparator();
    // The handler keeps this button's pressed state itself, from the setting.
    tbrTable.AddButton(S("Show Borders"), 8);
    tbrTable.ButtonClick = [this](int index) { tbrTable_ButtonClick(index); };

    tbrWebBrowser.ImageFile = S("resources/toolbar6.tbr");
    tbrWebBrowser.CreateToolbar(16);
    tbrWebBrowser.AddButton(S("Back"), 0);
    tbrWebBrowser.AddButton(S("Forward"), 1);
    tbrWebBrowser.AddButton(S("Stop"), 2);
    tbrWebBrowser.AddButton(S("Refresh"), 3);
    tbrWebBrowser.ButtonClick = [this](int index) { tbrWebBrowser_ButtonClick(index); };

    layout_->DisplayChanged = [this] { DHTMLEdit1_DisplayChanged(); };
    browser_->BeforeNavigate2 = [this] { WebBrowser1_BeforeNavigate2(); };
}

void codeEditor::tabEditor_TabClick() {
    resumeNext(
        [&] { shell_.sDocFolder = txtFileName.left(txtFileName.size() - txtFileTitle.size()); });
    switch (SelectedTab) {
    case 1:
        toSource();
        break;
    case 2:
        toLayout();
        break;
    case 3:
        toPreview();
        break;
    default:
        break;
    }
    if (!shell_.bLayoutActive) resumeNext([&] { codebox_->SetFocus(); });
}

void codeEditor::toSource() {
    SourcePane& pane = *codebox_;
    for (ComboBox* combo : {&cmbStyles, &cmbFonts, &cmbFontSize})
        combo->setVisible(false);
    if (layout_->Visible()) {
        if (layout_->IsDirty()) {
            // The surface's page replaces the text, less the blanks and line ends that the
            // surface leaves before the closing body tag.
            TextPane rtfTags;
            resumeNext([&] { rtfTags.setText(layout_->DocumentHTML()); });
            const int end = rtfTags.Find(QStringLiteral("</body>"), 0);
            if (end >= 0) {
                while (rtfTags.SelStart() > 0) {
                    rtfTags.setSelStart(rtfTags.SelStart() - 1);
                    rtfTags.setSelLength(1);
                    const QString ch = rtfTags.SelText();
                    if (ch != QLatin1String("\n") && ch != QLatin1String(" ")) break;
                    rtfTags.setSelText(QString());
                }
            }
            resumeNext([&] { pane.setText(rtfTags.Text()); });
        }
        resumeNext([&] { pane.Find(QStringLiteral("<body"), 0); });
        resumeNext([&] { pane.Find(QStringLiteral(">"), pane.SelStart()); });
        resumeNext([&] { pane.setSelStart(pane.SelStart() + 1); });
        resumeNext([&] { pane.SetFocus(); });
    }
    layout_->setVisible(false);
    if (browser_->Visible()) {
        browser_->setVisible(false);
        resumeNext([&] { shell_.EnableDocumentCommands(); });
    }
    resumeNext([&] { layout_->NewDocument(); });
    QFile::remove(shell_.sDocFolder + kSecondPreviewFile);
    QFile::remove(shell_.sDocFolder + kPreviewFile);

    cToolbar& main = shell_.tbrMain;
    if (shell_.bLayoutActive) {
        // The surface kept its own history; the old steps no longer match the text.
        nDoneIndex = 1;
        nTopIndex = 1;
        resumeNext([&] {
            UndoStep& first = step(1);
            first.Text = pane.Text();
            first.SelLen = pane.SelLength();
            first.SelStart = pane.SelStart();
        });
        setMenu(shell_, "mnuEditUndo", false);
        setMenu(shell_, "mnuEditRedo", false);
        main.setButtonEnabled(11, false);
        main.setButtonEnabled(12, false);
    } else {
        setMenu(shell_, "mnuEditUndo", nDoneIndex != 1);
        main.setButtonEnabled(11, nDoneIndex != 1);
        setMenu(shell_, "mnuEditRedo", nDoneIndex < nTopIndex);
        main.setButtonEnabled(12, nDoneIndex < nTopIndex);
    }
    shell_.bLayoutActive = false;

    cToolbar& tags = shell_.tbrTags;
    for (int i = 0; i < tags.ButtonCount(); ++i)
        tags.setButtonChecked(i, false);
    main.setButtonEnabled(19, true);
    main.setButtonEnabled(20, true);
    tags.setButtonEnabled(11, true);
    const bool selected = pane.SelLength() > 0;
    main.setButtonEnabled(7, selected);
    main.setButtonEnabled(8, selected);
    if (shell_.platform().clipboardText().isEmpty()) {
        main.setButtonEnabled(9, false);
        setMenu(shell_, "mnuEditPaste", false);
    }
    tags.setButtonEnabled(18, true);
    for (const char* name : {"mnuEditProperties", "mnuInsertFrames", "mnuInsertComment"})
        setMenu(shell_, name, true);
    main.setButtonEnabled(22, true);
    main.setButtonEnabled(24, true);
    setMenu(shell_, "mnuInsertCSS", true);
    setMenu(shell_, "mnuInsertLink", true);
    setMenu(shell_, "mnuFormatRemove", false);
}

void codeEditor::toLayout() {
    layout_->setVisible(true);
    for (ComboBox* combo : {&cmbStyles, &cmbFonts, &cmbFontSize})
        combo->setVisible(true);
    if (browser_->Visible()) {
        browser_->setVisible(false);
        resumeNext([&] { shell_.EnableDocumentCommands(); });
    }
    if (CSSDoc == QLatin1String("Yes")) {
        shell_.platform().msgBox(QStringLiteral("Layout view can not be used with CSS documents."),
                                 MsgIcon::Exclamation);
        tabEditor.SelectTab(1);
        return;
    }
    cToolbar& main = shell_.tbrMain;
    main.setButtonVisible(12, true);
    shell_.tbrTags.setButtonEnabled(18, false);
    setMenu(shell_, "mnuInsertFrames", false);
    setMenu(shell_, "mnuInsertComment", false);
    main.setButtonEnabled(22, false);

    const QString folder = txtFileName.left(txtFileName.size() - txtFileTitle.size());
    resumeNext([&] { layout_->setDocumentHTML(codebox_->Text()); });
    resumeNext([&] { layout_->setBaseURL(folder); });
    shell_.bLayoutActive = true;

    const bool borders = shell_.settings().get(keys::Fuzzies, keys::ShowBorders,
                                               QStringLiteral("Yes")) != QLatin1String("No");
    layout_->setShowBorders(borders);
    tbrTable.setButtonChecked(12, borders);
}

void codeEditor::toPreview() {
    shell_.DisableDocumentCommands();
    setMenu(shell_, "mnuEditUndo", false);
    setMenu(shell_, "mnuEditRedo", false);
    cToolbar& main = shell_.tbrMain;
    main.setButtonEnabled(11, false);
    main.setButtonEnabled(12, false);
    for (int index : {5, 14, 3})
        main.setButtonEnabled(index, true);
    for (const char* name : {"mnuFilePrint", "mnuFilePreview", "mnuFileSave", "mnuFileSaveas",
                             "mnuFileSaveAll", "mnuFileCloseAll", "mnuFileClose"})
        setMenu(shell_, name, true);
    layout_->setVisible(false);
    if (shell_.bLayoutActive && layout_->IsDirty())
        resumeNext([&] { codebox_->setText(layout_->DocumentHTML()); });
    shell_.bLayoutActive = false;
    if (!codebox_->FileName().isEmpty())
        showTempFile(shell_.sDocFolder);
    else
        showTempFile(shell_.platform().tempFolder() + QLatin1Char('/'));
}

void codeEditor::showTempFile(const QString& folder) {
    if (CSSDoc == QLatin1String("Yes")) {
        shell_.platform().msgBox(QStringLiteral("Preview mode can not be used with CSS documents."),
                                 MsgIcon::Exclamation);
        tabEditor.SelectTab(1);
        return;
    }
    browser_->setVisible(true);
    // Beside the document, so that its relative links and images resolve.
    const QString path = folder + kPreviewFile;
    if (resumeNext([&] { codebox_->SaveFile(path, 1); }) == 0)
        resumeNext([&] { browser_->Navigate(path); });
}

void codeEditor::DHTMLEdit1_DisplayChanged() {
    if (shell_.bLayoutActive) {
        const LayoutSurface& layout = *layout_;
        const auto latched = [&](int id) {
            return layout.QueryStatus(id) == LayoutSurface::Latched;
        };
        const auto enabled = [&](int id) {
            return layout.QueryStatus(id) == LayoutSurface::Enabled;
        };
        const auto usable = [&](int id) {
            return layout.QueryStatus(id) != LayoutSurface::Disabled;
        };
        cToolbar& tags = shell_.tbrTags;
        cToolbar& main = shell_.tbrMain;
        tags.setButtonChecked(4, latched(layoutcmd::Bold));
        setMenu(shell_, "mnuFormatRemove", enabled(layoutcmd::RemoveFormat));
        tags.setButtonChecked(5, latched(layoutcmd::Italic));
        // A link is underlined by its nature; that says nothing of the Underline command.
        if (!latched(layoutcmd::Hyperlink)) tags.setButtonChecked(6, latched(layoutcmd::Underline));
        tags.setButtonChecked(8, latched(layoutcmd::JustifyCenter));
        tags.setButtonChecked(9, latched(layoutcmd::JustifyRight));
        tbrTable.setButtonEnabled(2, enabled(layoutcmd::InsertRow));
        tbrTable.setButtonEnabled(3, enabled(layoutcmd::InsertColumn));
        tbrTable.setButtonEnabled(5, enabled(layoutcmd::DeleteCells));
        tbrTable.setButtonEnabled(6, enabled(layoutcmd::DeleteRows));
        tbrTable.setButtonEnabled(7, enabled(layoutcmd::DeleteColumns));
        tbrTable.setButtonEnabled(9, enabled(layoutcmd::MergeCells));
        tbrTable.setButtonEnabled(10, enabled(layoutcmd::SplitCell));
        tbrLayout.setButtonChecked(5, latched(layoutcmd::OrderedList));
        tbrLayout.setButtonChecked(6, latched(layoutcmd::UnorderedList));
        const std::pair<const char*, int> shared[] = {{"mnuEditUndo", 11},
                                                      {"mnuEditRedo", 12},
                                                      {"mnuEditCut", 7},
                                                      {"mnuEditCopy", 8},
                                                      {"mnuEditPaste", 9}};
        const int ids[] = {layoutcmd::Undo, layoutcmd::Redo, layoutcmd::Cut, layoutcmd::Copy,
                           layoutcmd::Paste};
        for (int i = 0; i < 5; ++i) {
            setMenu(shell_, shared[i].first, usable(ids[i]));
            main.setButtonEnabled(shared[i].second, usable(ids[i]));
        }

        const auto follow = [&](ComboBox& combo, int getId, ComboBox& enabledOne) {
            const int status = layout.QueryStatus(getId);
            if (status == LayoutSurface::Enabled || status == LayoutSurface::Latched) {
                QString value;
                resumeNext([&] { value = layout_->ExecCommand(getId, 2); });
                if (getId == layoutcmd::GetFontSize && (value.isEmpty() || Val(value) < 1))
                    value.clear();
                resumeNext([&] { combo.setText(value); });
                combo.setEnabled(true);
            } else {
                resumeNext([&] { combo.setText(QString()); });
                enabledOne.setEnabled(status == LayoutSurface::Ninched);
            }
        };
        follow(cmbFonts, layoutcmd::GetFontName, cmbFonts);
        follow(cmbFontSize, layoutcmd::GetFontSize, cmbFontSize);
        // A mixed block format turns the font list on and leaves the styles as they were.
        follow(cmbStyles, layoutcmd::GetBlockFormat, cmbFonts);
    }
    Tag = QStringLiteral("Dirty");
}

void codeEditor::cmbStyles_Click() {
    layout_->ExecCommand(layoutcmd::SetBlockFormat, 2, cmbStyles.Text());
    layout_->SetFocus();
}

void codeEditor::cmbFonts_Click() {
    layout_->ExecCommand(layoutcmd::SetFontName, 2, cmbFonts.Text());
    layout_->SetFocus();
}

void codeEditor::cmbFontSize_Click() {
    layout_->ExecCommand(layoutcmd::SetFontSize, 2, QString::number(cmbFontSize.ListIndex() + 1));
    layout_->SetFocus();
}

void codeEditor::tbrLayout_ButtonClick(int index) {
    LayoutSurface& layout = *layout_;
    switch (index) {
    case 0:
        cdColor.ShowColor();
        layout.ExecCommand(layoutcmd::SetForeColor, 2, QString::number(cdColor.Color));
        break;
    // The list buttons send each other's command; kept as it always was.
    case 2:
        layout.ExecCommand(layoutcmd::Outdent, 2);
        break;
    case 3:
        layout.ExecCommand(layoutcmd::Indent, 2);
        break;
    case 5:
        layout.ExecCommand(layoutcmd::OrderedList, 2);
        break;
    case 6:
        layout.ExecCommand(layoutcmd::UnorderedList, 2);
        break;
    default:
        break;
    }
}

void codeEditor::tbrTable_ButtonClick(int index) {
    const std::pair<int, int> commands[] = {
        {2, layoutcmd::InsertRow},  {3, layoutcmd::InsertColumn},  {5, layoutcmd::DeleteCells},
        {6, layoutcmd::DeleteRows}, {7, layoutcmd::DeleteColumns}, {9, layoutcmd::MergeCells},
        {10, layoutcmd::SplitCell}};
    for (const auto& [button, id] : commands)
        if (index == button) layout_->ExecCommand(id, 2);
    if (index == 0) shell_.runAction(QStringLiteral("tableChooserFromTable"));
    if (index == 12) {
        const bool on = !tbrTable.ButtonChecked(12);
        shell_.settings().save(keys::Fuzzies, keys::ShowBorders,
                               on ? QStringLiteral("Yes") : QStringLiteral("No"));
        layout_->setShowBorders(on);
        tbrTable.setButtonChecked(12, on);
    }
}

void codeEditor::tbrWebBrowser_ButtonClick(int index) {
    // Going back with no history is an error of the browser; it is passed over.
    resumeNext([&] {
        switch (index) {
        case 0:
            browser_->GoBack();
            break;
        case 1:
            browser_->GoForward();
            break;
        case 2:
            browser_->Stop();
            break;
        case 3:
            browser_->Refresh();
            break;
        default:
            break;
        }
    });
}

void codeEditor::WebBrowser1_BeforeNavigate2() {
    tbrWebBrowser.setButtonEnabled(2, true);
}

} // namespace tsl
