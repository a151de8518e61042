#pragma once
// Choosing files by hand for Extended Replace: a drive, a folder, its files under a filter,
// and the list of paths chosen so far.
#include "gadgets/controls.h"
#include "gadgets/file_lists.h"
#include "gadgets/form.h"

namespace tsl {

class frmExtFind;

class frmChooseFiles : public Form {
  public:
    explicit frmChooseFiles(frmExtFind& owner);

    DriveListBox drvDrive{this, "drvDrive"};
    DirListBox dirHTML{this, "dirHTML"};
    FileListBox fileList{this, "fileList"};
    Label Label3{this, "Label3", "File &filter:"};
    ComboBox txtFilter{this, "txtFilter"};
    CommandButton cmdAdd{this, "cmdAdd", "&Add >>"};
    CommandButton cmdDelete2{this, "cmdDelete2", "&Remove"};
    ListBox lstHTMLFiles{this, "lstHTMLFiles"};
    CommandButton cmdOK{this, "cmdOK", "&OK", CommandButton::DefaultRole};
    CommandButton cmdCancel{this, "cmdCancel", "&Cancel", CommandButton::CancelRole};

    void Form_Load();
    void Form_Unload();
    void dirHTML_Change();
    void drvDrive_Change();
    void txtFilter_Change();
    void txtFilter_Click();
    void cmdAdd_Click();
    void fileList_DblClick();
    void cmdDelete2_Click();
    void lstHTMLFiles_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click() { Unload(); }

  private:
    // Adds the path of a file of the folder, or answers false when it is open.
    bool addFile(const QString& name, QString& path);
    void afterAdding();
    frmExtFind& owner_;
    QString rememberedDrive_;
};

} // namespace tsl
