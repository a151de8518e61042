#include "search/frm_choose_files.h"
#include "runtime/resume.h"
#include "search/find_replace.h"
#include "search/frm_ext_find.h"
#include "shell/settings_store.h"
#include <QDir>

namespace tsl {

frmChooseFiles::frmChooseFiles(frmExtFind& owner)
    : Form(QStringLiteral("frmChooseFiles")), owner_(owner) {
    setCaption(QStringLiteral("Choose files"));
    cmdAdd.ToolTipText = QStringLiteral("Add selected files");
    cmdDelete2.ToolTipText = QStringLiteral("Delete selected file");
    lstHTMLFiles.MultiSelect = true;
    for (const QString& filter : fileFilters())
        txtFilter.AddItem(filter);
    txtFilter.setText(fileFilters().first());
    fileList.setPattern(fileFilters().first());
    cmdDelete2.setEnabled(false);

    dirHTML.Change = [this] { dirHTML_Change(); };
    drvDrive.Change = [this] { drvDrive_Change(); };
    txtFilter.Change = [this] { txtFilter_Change(); };
    txtFilter.Click = [this] { txtFilter_Click(); };
    txtFilter.KeyPress = dropBlank;
    cmdAdd.Click = [this] { cmdAdd_Click(); };
    fileList.DblClick = [this] { fileList_DblClick(); };
    cmdDelete2.Click = [this] { cmdDelete2_Click(); };
    lstHTMLFiles.DblClick = [this] { lstHTMLFiles_DblClick(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    connect(this, &Form::unloaded, this, [this] { Form_Unload(); });
}

void frmChooseFiles::Form_Load() {
    DialogContext& shell = owner_.shell();
    QString start = shell.part<SearchSession>().sLastChooseDir;
    if (start.isEmpty()) start = shell.settings().get(keys::Fuzzies, keys::DefaultDir);
    // With nowhere remembered, the chooser opens in the home folder.
    if (start.isEmpty()) start = QDir::homePath();
    resumeNext([&] { drvDrive.setDrive(start.left(1)); });
    resumeNext([&] { dirHTML.setPath(start); });
    if (dirHTML.Path().isEmpty()) resumeNext([&] { dirHTML.setPath(QDir::homePath()); });
    for (const QString& path : owner_.lstFiles.items())
        lstHTMLFiles.AddItem(path);
    resumeNext([&] { fileList.setPattern(txtFilter.Text()); });
    if (lstHTMLFiles.ListCount() > 0) {
        lstHTMLFiles.setListIndex(0);
        lstHTMLFiles.setSelected(0, true);
        cmdDelete2.setEnabled(true);
    }
    rememberedDrive_ = drvDrive.Drive();
}

void frmChooseFiles::Form_Unload() {
    owner_.shell().part<SearchSession>().sLastChooseDir = dirHTML.Path();
}

void frmChooseFiles::dirHTML_Change() {
    fileList.setPath(dirHTML.Path());
}

void frmChooseFiles::drvDrive_Change() {
    try {
        dirHTML.setPath(drvDrive.Drive());
        rememberedDrive_ = drvDrive.Drive();
    } catch (const RuntimeError&) {
        owner_.shell().platform().msgBox(QStringLiteral("The device is not available."),
                                         MsgIcon::Critical);
        resumeNext([&] { drvDrive.setDrive(rememberedDrive_); });
    }
}

void frmChooseFiles::txtFilter_Change() {
    resumeNext([&] { fileList.setPattern(txtFilter.Text()); });
}

void frmChooseFiles::txtFilter_Click() {
    fileList.setPattern(txtFilter.Text());
}

bool frmChooseFiles::addFile(const QString& name, QString& path) {
    DialogContext& shell = owner_.shell();
    path = joinPath(dirHTML.Path(), name);
    shell.CheckFileOpen(path);
    const bool open = shell.bFileAlreadyOpen;
    shell.bFileAlreadyOpen = false;
    if (!open) lstHTMLFiles.AddItem(path);
    return !open;
}

void frmChooseFiles::afterAdding() {
    if (lstHTMLFiles.ListCount() == 0) return;
    cmdDelete2.setEnabled(true);
    lstHTMLFiles.setListIndex(0);
    lstHTMLFiles.SetFocus();
}

void frmChooseFiles::cmdAdd_Click() {
    QString open;
    for (int i = 0; i < fileList.ListCount(); ++i) {
        if (!fileList.Selected(i)) continue;
        QString path;
        if (!addFile(fileList.List(i), path))
            open += QStringLiteral("   ") + path + QLatin1Char('\n');
    }
    afterAdding();
    if (!open.isEmpty())
        owner_.shell().platform().msgBox(
            QStringLiteral("The following file(s) you selected are already open.\n\n") + open +
                QStringLiteral("\nFiles must be closed before this operation can be executed on "
                               "them."),
            MsgIcon::Exclamation);
}

void frmChooseFiles::fileList_DblClick() {
    if (fileList.ListIndex() < 0) return;
    QString path;
    if (!addFile(fileList.List(fileList.ListIndex()), path)) {
        owner_.shell().platform().msgBox(
            QStringLiteral("The file you selected, ") + path +
                QStringLiteral(", is already open.\n\nFiles must be closed before using this "
                               "procedure."),
            MsgIcon::Exclamation);
        return;
    }
    afterAdding();
}

void frmChooseFiles::cmdDelete2_Click() {
    for (int i = lstHTMLFiles.ListCount() - 1; i >= 0; --i)
        if (lstHTMLFiles.Selected(i)) lstHTMLFiles.RemoveItem(i);
    if (lstHTMLFiles.ListCount() > 0) {
        lstHTMLFiles.setListIndex(0);
        lstHTMLFiles.SetFocus();
    } else {
        cmdDelete2.setEnabled(false);
    }
}

void frmChooseFiles::lstHTMLFiles_DblClick() {
    if (lstHTMLFiles.ListIndex() < 0) return;
    lstHTMLFiles.RemoveItem(lstHTMLFiles.ListIndex());
    if (lstHTMLFiles.ListCount() == 0) {
        cmdDelete2.setEnabled(false);
    } else {
        lstHTMLFiles.setListIndex(lstHTMLFiles.ListCount() - 1);
        lstHTMLFiles.SetFocus();
    }
}

void frmChooseFiles::cmdOK_Click() {
    owner_.lstFiles.Clear();
    for (const QString& path : lstHTMLFiles.items())
        owner_.lstFiles.AddItem(path);
    if (!owner_.FindBox.Text().isEmpty()) owner_.ReplaceButton.setEnabled(true);
    if (owner_.lstFiles.ListCount() == 0) owner_.ReplaceButton.setEnabled(false);
    Unload();
}

} // namespace tsl
