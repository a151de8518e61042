// Which commands a document needs: off when the last one closes (and in Preview), on again
// when one comes.
#include "shell/shell_core.h"

namespace tsl {

namespace {
// The menu items that work on a document, Undo and Remove Formatting included.
const char* const kDocumentMenuItems[] = {"mnuFileClose",
                                          "mnuFileSave",
                                          "mnuFileSaveas",
                                          "mnuFilePrint",
                                          "mnuFilePreview",
                                          "mnuFileCloseAll",
                                          "mnuFileSaveAll",
                                          "mnuEditUndo",
                                          "mnuEditCut",
                                          "mnuEditCopy",
                                          "mnuEditPaste",
                                          "mnuEditFind",
                                          "mnuEditSelectall",
                                          "mnuEditProperties",
                                          "mnuInsertAnchor",
                                          "mnuInsertHR",
                                          "mnuInsertHyperlink",
                                          "mnuInsertImage",
                                          "mnuInsertMarquee",
                                          "mnuInsertTrade",
                                          "mnuInsertCopyright",
                                          "mnuInsertAmpersand",
                                          "mnuInsertLess",
                                          "mnuInsertGreater",
                                          "mnuInsertQuote",
                                          "mnuInsertReg",
                                          "mnuInsertFormSettings",
                                          "mnuInsertForm",
                                          "mnuInsertFrames",
                                          "mnuInsertBullet",
                                          "mnuInsertTable",
                                          "mnuInsertComment",
                                          "mnuInsertCSS",
                                          "mnuInsertLink",
                                          "mnuInsertBasefont",
                                          "mnuInsertFont",
                                          "mnuTagsBold",
                                          "mnuTagsItalic",
                                          "mnuTagsUnderline",
                                          "mnuTagsStrike",
                                          "mnuSup",
                                          "mnuSub",
                                          "mnuInsertBreak",
                                          "mnuInsertParagraph",
                                          "mnuInsertSpace",
                                          "mnuTagsCenter",
                                          "mnuTagsRight",
                                          "mnuTagsBlock",
                                          "mnuInsertDate1",
                                          "mnuInsertDate2",
                                          "mnuInsertDate3",
                                          "mnuInsertDate4",
                                          "mnuH1",
                                          "mnuH2",
                                          "mnuH3",
                                          "mnuH4",
                                          "mnuH5",
                                          "mnuH6",
                                          "mnuFormatRemove"};
const int kMainButtonsOff[] = {3, 5, 7, 8, 9, 11, 13, 14, 19, 20, 22, 24};
// Enabling leaves Paste to the clipboard and Undo to the history; 13 is a separator.
const int kMainButtonsOn[] = {3, 5, 7, 8, 13, 14, 19, 20, 22, 24};
const int kTagsButtons[] = {0, 2, 4, 5, 6, 8, 9, 11, 13, 14, 16, 17, 18, 19, 21, 22, 24};
const int kFormsButtons[] = {0, 2, 3, 4, 5, 6, 7, 9, 10};

// The menu items a style sheet cannot use, besides Preview in Browser and Page Properties.
const char* const kCssOffItems[] = {
    "mnuInsertAnchor",   "mnuInsertHR",     "mnuInsertHyperlink",    "mnuInsertImage",
    "mnuInsertMarquee",  "mnuInsertSC",     "mnuInsertFormSettings", "mnuInsertForm",
    "mnuInsertFrames",   "mnuInsertBullet", "mnuInsertTable",        "mnuInsertComment",
    "mnuInsertBasefont", "mnuInsertFont",   "mnuTagsBold",           "mnuTagsItalic",
    "mnuTagsUnderline",  "mnuTagsStrike",   "mnuInsertBreak",        "mnuInsertParagraph",
    "mnuInsertSpace",    "mnuTagsCenter",   "mnuTagsBlock",          "mnuViewFmtTlb",
    "mnuViewForms",      "mnuViewTagList",  "mnuInsertLink",         "mnuHeadings"};

void setItem(ShellCore& shell, const char* name, bool on) {
    shell.menu(QLatin1String(name)).setEnabled(on);
}
} // namespace

void ShellCore::DisableDocumentCommands() {
    for (const char* name : kDocumentMenuItems) {
        menu(QLatin1String(name)).setEnabled(false);
    }
    for (int i : kMainButtonsOff) {
        tbrMain.setButtonEnabled(i, false);
    }
    for (int i : kTagsButtons) {
        tbrTags.setButtonEnabled(i, false);
    }
    for (int i : kFormsButtons) {
        tbrForms.setButtonEnabled(i, false);
    }
    for (int i = 0; i < tbrTags.ButtonCount(); ++i) {
        tbrTags.setButtonChecked(i, false);
    }
    const codeEditor* active = ActiveForm();
    if (active && active->SelectedTab == 3) return;
    TabStrip1.setVisible(false);
    bCommandsDisabled = true;
}

void ShellCore::EnableDocumentCommands() {
    for (const char* name : kDocumentMenuItems) {
        const QLatin1String item(name);
        // Undo follows the document's own history; Remove Formatting only Layout view.
        if (item == QLatin1String("mnuEditUndo") || item == QLatin1String("mnuFormatRemove"))
            continue;
        menu(item).setEnabled(true);
    }
    menu(QStringLiteral("mnuInsertSC")).setEnabled(true);
    for (int i : kMainButtonsOn)
        tbrMain.setButtonEnabled(i, true);
    for (int i : kTagsButtons)
        tbrTags.setButtonEnabled(i, true);
    for (int i : kFormsButtons)
        tbrForms.setButtonEnabled(i, true);
    // Paste, menu item and button 9, by the clipboard.
    setPasteEnabled(!platform_.clipboardText().isEmpty());
    TabStrip1.setVisible(true);
    bCommandsDisabled = false;
}

void ShellCore::SetCssCommandState() {
    setItem(*this, "mnuInsertCSS", true);
    tbrMain.setButtonEnabled(19, true);
    setItem(*this, "mnuFilePreview", false);
    setItem(*this, "mnuEditProperties", false);
    for (int i : {14, 16, 20, 24, 17, 16})
        tbrMain.setButtonEnabled(i, false);
    for (const char* name : kCssOffItems)
        setItem(*this, name, false);
    // Hidden without touching the flags, so that an HTML document brings them back.
    cReBar1.setBandVisible(BandTags, false);
    cReBar1.setBandVisible(BandForms, false);
    Picture1.setVisible(false);
    emit paneChanged();
    OpenSave.FilterIndex = kCssFilterIndex;
}

void ShellCore::SetHtmlCommandState() {
    OpenSave.FilterIndex = kHtmlFilterIndex;
    setItem(*this, "mnuFilePreview", true);
    setItem(*this, "mnuEditProperties", true);
    for (int i : {14, 16, 19})
        tbrMain.setButtonEnabled(i, true);

    // Each band, and its View item, as its flag says.
    cReBar1.setBandVisible(BandStandard, bStandardToolbarOpen);
    menu(QStringLiteral("mnuViewStdTlb")).setChecked(bStandardToolbarOpen);
    cReBar1.setBandVisible(BandTags, bTagsToolbarOpen);
    menu(QStringLiteral("mnuViewFmtTlb")).setChecked(bTagsToolbarOpen);
    cReBar1.setBandVisible(BandForms, bFormsToolbarOpen);
    menu(QStringLiteral("mnuViewForms")).setChecked(bFormsToolbarOpen);
    tbrMain.setButtonChecked(16, bFormsToolbarOpen);
    Picture1.setVisible(bTagListOpen);
    menu(QStringLiteral("mnuViewTagList")).setChecked(bTagListOpen);
    tbrMain.setButtonChecked(17, bTagListOpen);
    emit paneChanged();

    for (const char* name : kCssOffItems)
        setItem(*this, name, true);
    for (int i : {17, 20, 24})
        tbrMain.setButtonEnabled(i, true);
}

void ShellCore::setOpenButtons() {
    tbrMain.setButtonEnabled(19, true);
    tbrMain.setButtonEnabled(20, true);
    tbrTags.setButtonEnabled(11, true);
    const codeEditor* doc = ActiveForm();
    const bool selection = doc && doc->codebox().SelLength() > 0;
    tbrMain.setButtonEnabled(7, selection);
    tbrMain.setButtonEnabled(8, selection);
    if (platform_.clipboardText().isEmpty()) setPasteEnabled(false);
    tbrTags.setButtonEnabled(18, true);
}

} // namespace tsl
