// The saved styles: the load through the name list, and New, Save and Delete of the toolbar.
#include "runtime/resume.h"
#include "stylesheets/frm_style.h"
#include "stylesheets/style_fields.h"
#include <QFile>

namespace tsl {

namespace {
const QString kSavedStyles = QStringLiteral("Saved Styles");
const QString kTitle = QStringLiteral("Tessaline");
enum { NewButton = 0, SaveButton = 2, DeleteButton = 4 };
} // namespace

void frmStyle::cmbItemName_Click() {
    StyleSession& s = session();
    if (s.StyleListWalk || s.StyleSaving) return;
    if (s.StyleDirty) {
        const MsgResult answer = shell().platform().msgBox(
            QStringLiteral("Save the changes made to your style settings?"), MsgIcon::Question,
            MsgButtons::YesNoCancel, kTitle);
        if (answer == MsgResult::Cancel) return;
        // Yes saves the edited fields under the name just chosen, not the one being edited.
        if (answer == MsgResult::Yes) tbrStyle_ButtonClick(SaveButton);
    }
    readStyleFields(*this, definitionFile(cmbItemName.Text()));
    s.StyleDirty = false;
    s.StyleSaving = false;
}

void frmStyle::SaveStyleSettings(const QString& name) {
    shell().settings().save(kSavedStyles, name, name);
    writeStyleFields(*this, definitionFile(name));
    session().StyleSaving = true;
    cmbItemName.setText(name);
}

void frmStyle::tbrStyle_ButtonClick(int index) {
    switch (index) {
    case NewButton:
        runNew();
        break;
    case SaveButton:
        runSave();
        break;
    case DeleteButton:
        runDelete();
        break;
    default:
        break;
    }
}

void frmStyle::runSave() {
    // Every failure inside is passed over and the next step runs.
    StyleSession& s = session();
    Platform& platform = shell().platform();
    const auto finish = [&] {
        s.StyleDirty = false;
        s.StyleSaving = false;
        resumeNext([&] { tbrStyle.setButtonEnabled(DeleteButton, true); });
    };
    if (cmbItemName.Text() != kNewStyle) {
        resumeNext([&] { SaveStyleSettings(cmbItemName.Text()); });
        finish();
        return;
    }
    const QString answer =
        platform.inputBox(QStringLiteral("Enter a name for your settings."), QString(), QString())
            .value_or(QString());
    if (answer.isEmpty()) return;
    if (answer == kNewStyle) {
        platform.msgBox(QStringLiteral("You cannot use this style name."), MsgIcon::Exclamation);
        return;
    }
    resumeNext([&] { cmbItemName.setListIndex(0); });
    s.StyleListWalk = true;
    const int count = cmbItemName.ListCount();
    for (int i = 0; i < count; ++i) {
        if (cmbItemName.Text() == answer) {
            const MsgResult overwrite = platform.msgBox(
                QStringLiteral("The style name [") + answer +
                    QStringLiteral("] already exists. Do you want to overwrite it?"),
                MsgIcon::Question, MsgButtons::YesNo, kTitle);
            if (overwrite == MsgResult::No) {
                resumeNext([&] { cmbItemName.setText(kNewStyle); });
                s.StyleListWalk = false;
                return;
            }
            resumeNext([&] { SaveStyleSettings(answer); });
            resumeNext([&] { cmbItemName.setText(answer); });
            resumeNext([&] { cmbItemName.RemoveItem(cmbItemName.ListIndex()); });
            resumeNext([&] { cmbItemName.setText(answer); });
            s.StyleListWalk = false;
        }
        resumeNext([&] { cmbItemName.setListIndex(cmbItemName.ListIndex() + 1); });
    }
    // An overwritten style is written twice and moves to the end of the list.
    resumeNext([&] { cmbItemName.AddItem(answer); });
    resumeNext([&] { cmbItemName.setText(answer); });
    s.StyleListWalk = false;
    resumeNext([&] { SaveStyleSettings(answer); });
    finish();
}

void frmStyle::runNew() {
    StyleSession& s = session();
    if (s.StyleDirty) {
        const MsgResult answer = shell().platform().msgBox(
            QStringLiteral("Save the changes made to your style settings ") + cmbItemName.Text() +
                QStringLiteral("?"),
            MsgIcon::Question, MsgButtons::YesNoCancel, kTitle);
        if (answer == MsgResult::Cancel) return;
        if (answer == MsgResult::Yes)
            runSave();
        else
            s.StyleDirty = false;
    }
    // Choosing the item that is already chosen changes no selection; New resets all the same.
    if (cmbItemName.Text() == kNewStyle)
        cmbItemName_Click();
    else
        resumeNext([&] { cmbItemName.setText(kNewStyle); });
    s.StyleDirty = false;
    s.StyleSaving = false;
}

void frmStyle::runDelete() {
    Platform& platform = shell().platform();
    const QString name = cmbItemName.Text();
    if (name == kNewStyle) {
        platform.msgBox(QStringLiteral("You cannot delete the style settings named (New Style)."),
                        MsgIcon::Exclamation, MsgButtons::OK,
                        QStringLiteral("Unable to Delete Settings"));
        return;
    }
    if (platform.msgBox(QStringLiteral("Are you sure you want to delete the settings named ") +
                            name + QStringLiteral("?"),
                        MsgIcon::Exclamation, MsgButtons::YesNo,
                        QStringLiteral("Continue with delete?")) != MsgResult::Yes)
        return;
    const int index = cmbItemName.ListIndex();
    QFile::remove(definitionFile(name));
    resumeNext([&] { shell().settings().DeleteSetting(kAppName, kSavedStyles, name); });
    resumeNext([&] { cmbItemName.RemoveItem(index); });
    session().StyleDirty = false;
    session().StyleSaving = false;
    resumeNext([&] { cmbItemName.setText(kNewStyle); });
}

} // namespace tsl
