#include "search/frm_ext_find.h"
#include "runtime/resume.h"
#include "search/frm_choose_files.h"
#include "search/replace_in_files.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

QStringList fileFilters() {
    return {QStringLiteral("*.htm;*.html;*.asp"), QStringLiteral("*.txt"), QStringLiteral("*.css")};
}

QString joinPath(const QString& folder, const QString& name) {
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

void dropBlank(int& keyAscii) {
    if (keyAscii == ' ') keyAscii = 0;
}

frmExtFind::frmExtFind(DialogContext& shell) : Form(QStringLiteral("frmExtFind")), shell_(shell) {
    setCaption(QStringLiteral("Extended Replace"));
    OptionButton::group({&optSpecFolder, &optSelected});
    for (const QString& filter : fileFilters())
        txtFilter.AddItem(filter);
    txtFilter.setText(fileFilters().first());
    filesInFolder.setPattern(fileFilters().first());
    filesInFolder.setVisible(false);
    pbProgress.setVisible(false);

    optSelected.Click = [this] { optSelected_Click(); };
    optSpecFolder.Click = [this] { optSpecFolder_Click(); };
    FindBox.Change = [this] { FindBox_Change(); };
    txtFilter.KeyPress = dropBlank;
    cmdSelectDocFolder.Click = [this] { cmdSelectDocFolder_Click(); };
    cmdSelectDocFiles.Click = [this] { cmdSelectDocFiles_Click(); };
    ReplaceButton.Click = [this] { ReplaceButton_Click(); };
    CancelButton.Click = [this] { CancelButton_Click(); };
}

void frmExtFind::Form_Load() {
    optSpecFolder.setValue(true);
}

void frmExtFind::optSelected_Click() {
    enableControls({&lstFiles, &cmdSelectDocFiles}, true);
    enableControls({&cmdSelectDocFolder, &txtPath, &Label3, &txtFilter}, false);
    ReplaceButton.setEnabled(lstFiles.ListCount() > 0);
}

void frmExtFind::optSpecFolder_Click() {
    enableControls({&lstFiles, &cmdSelectDocFiles}, false);
    enableControls({&cmdSelectDocFolder, &txtPath, &Label3, &txtFilter}, true);
    ReplaceButton.setEnabled(!txtPath.Text().isEmpty());
}

void frmExtFind::FindBox_Change() {
    const bool noFolder = txtPath.Text().isEmpty() && !optSelected.Value();
    const bool noFiles = lstFiles.ListCount() == 0 && !optSpecFolder.Value();
    ReplaceButton.setEnabled(!FindBox.Text().isEmpty() && !noFolder && !noFiles);
}

void frmExtFind::cmdSelectDocFolder_Click() {
    std::optional<QString> chosen;
    try {
        chosen =
            shell_.platform().browseForFolder(QStringLiteral("Please select a default folder"));
    } catch (const RuntimeError&) {
        shell_.platform().msgBox(QStringLiteral("The device is unavailable."), MsgIcon::Critical);
        return;
    }
    if (!chosen) return;
    QString path = *chosen;
    const qsizetype nul = path.indexOf(QChar(0));
    if (nul >= 0) path.truncate(nul);
    txtPath.setText(path);
    if (!txtPath.Text().isEmpty()) ReplaceButton.setEnabled(true);
}

void frmExtFind::cmdSelectDocFiles_Click() {
    frmChooseFiles chooser(*this);
    chooser.Form_Load();
    shell_.forms().showModal(chooser);
}

void frmExtFind::ReplaceButton_Click() {
    Platform& platform = shell_.platform();
    filesInFolder.setPath(txtPath.Text());
    if (optSpecFolder.Value() && filesInFolder.ListCount() == 0) {
        platform.msgBox(QStringLiteral("There are no files in the selected folder."),
                        MsgIcon::Exclamation);
        return;
    }
    QStringList lstSorted;
    if (optSelected.Value()) {
        lstSorted = lstFiles.items();
    } else {
        filesInFolder.setPattern(txtFilter.Text());
        QString open;
        for (const QString& name : filesInFolder.items()) {
            const QString path = joinPath(txtPath.Text(), name);
            shell_.CheckFileOpen(path);
            if (shell_.bFileAlreadyOpen)
                open += QLatin1Char('\n') + path;
            else
                lstSorted.append(path);
            shell_.bFileAlreadyOpen = false;
        }
        if (!open.isEmpty()) {
            platform.msgBox(QStringLiteral("The following files you selected are already open in "
                                           "Tessaline:\n") +
                                open + QStringLiteral("\n\nThese files were not modified."),
                            MsgIcon::Exclamation);
            return;
        }
        // A filter that matches nothing leaves nothing to do.
        if (lstSorted.isEmpty()) {
            platform.msgBox(QStringLiteral("There are no files in the selected folder."),
                            MsgIcon::Exclamation);
            return;
        }
    }
    lstSorted.sort();
    lstSorted.erase(std::unique(lstSorted.begin(), lstSorted.end()), lstSorted.end());

    const MsgResult answer = platform.msgBox(
        QStringLiteral("You are about to replace strings in %1 files. This action is not "
                       "undoable. Do you want to continue?")
            .arg(lstSorted.size()),
        MsgIcon::Exclamation, MsgButtons::YesNo);
    if (answer == MsgResult::Yes) {
        const QDateTime started = platform.now();
        ReplaceInFiles(lstSorted);
        if (bReplaceFailed) {
            bReplaceFailed = false;
        } else {
            const qint64 seconds = started.secsTo(platform.now());
            platform.msgBox(QStringLiteral("Done! Tessaline completed the operation in %1 seconds.")
                                .arg(seconds),
                            MsgIcon::Information);
        }
    }
    pbProgress.setVisible(false);
}

void frmExtFind::ReplaceInFiles(const QStringList& files) {
    pbProgress.setVisible(true);
    pbProgress.Min = 0;
    pbProgress.Max = static_cast<int>(files.size());
    pbProgress.setValue(0);
    int options = 0;
    if (chkMatchCase.Value() == 1) options |= ReplaceMatchCase;
    if (chkWholeWord.Value() == 1) options |= ReplaceWholeWord;
    if (!tsl::ReplaceInFiles(files, FindBox.Text(), ReplaceBox.Text(), options, shell_.platform(),
                             [this](int done) { pbProgress.setValue(done); }))
        bReplaceFailed = true;
}

void frmExtFind::CancelButton_Click() {
    Unload();
    resumeNext([&] {
        if (!shell_.CurrentDocument) raise(ErrObjectRequired);
        shell_.CurrentDocument->SetFocus();
    });
}

void bindExtendedReplace(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuExtFind"), [&shell] {
        shell.CurrentDocument = shell.ActiveForm();
        frmExtFind form(shell);
        form.Form_Load();
        shell.forms().showModal(form);
    });
}

static const CommandSet extendedReplaceCommands{bindExtendedReplace};

} // namespace tsl
