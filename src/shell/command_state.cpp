// Which commands a document needs: off when the last one closes (and in Preview), on again
// when one comes.
#include "shell/shell_mdi.h"

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
} // namespace

void ShellMDI::DisableDocumentCommands() {
    for (const char* name : kDocumentMenuItems)
        menu(QLatin1String(name)).setEnabled(false);
    const codeEditor* active = ActiveForm();
    if (active && active->SelectedTab == 3) return;
    TabStrip1.setVisible(false);
    bCommandsDisabled = true;
}

void ShellMDI::EnableDocumentCommands() {
    for (const char* name : kDocumentMenuItems) {
        const QLatin1String item(name);
        // Undo follows the document's own history; Remove Formatting only Layout view.
        if (item == QLatin1String("mnuEditUndo") || item == QLatin1String("mnuFormatRemove"))
            continue;
        menu(item).setEnabled(true);
    }
    menu(QStringLiteral("mnuInsertSC")).setEnabled(true);
    setPasteEnabled(!platform_.clipboardText().isEmpty());
    TabStrip1.setVisible(true);
    bCommandsDisabled = false;
}

} // namespace tsl
