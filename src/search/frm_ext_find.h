#pragma once
// Extended Replace: a string replaced in every file of a folder that matches a filter, or in
// files picked by hand, rewritten in place with no undo.
#include "gadgets/controls.h"
#include "gadgets/file_lists.h"
#include "gadgets/form.h"
#include "shell/dialog_context.h"

namespace tsl {

class frmExtFind : public Form {
  public:
    explicit frmExtFind(DialogContext& shell);

    Label Frame1{this, "Frame1", "Search Details"};
    Label Label1{this, "Label1", "&Find what:"};
    TextBox FindBox{this, "FindBox"};
    Label Label2{this, "Label2", "&Replace with:"};
    TextBox ReplaceBox{this, "ReplaceBox"};
    CheckBox chkMatchCase{this, "chkMatchCase", "Match &case"};
    CheckBox chkWholeWord{this, "chkWholeWord", "Find whole &word only"};
    Label Frame2{this, "Frame2", "Target Files"};
    OptionButton optSpecFolder{this, "optSpecFolder", "&All in specified folder"};
    TextBox txtPath{this, "txtPath"};
    CommandButton cmdSelectDocFolder{this, "cmdSelectDocFolder", "..."};
    Label Label3{this, "Label3", "File &filter:"};
    ComboBox txtFilter{this, "txtFilter"};
    OptionButton optSelected{this, "optSelected", "&Selected files"};
    ListBox lstFiles{this, "lstFiles"};
    CommandButton cmdSelectDocFiles{this, "cmdSelectDocFiles", "C&hoose..."};
    ProgressBar pbProgress{this, "pbProgress"};
    CommandButton ReplaceButton{this, "ReplaceButton", "&Replace", CommandButton::DefaultRole};
    CommandButton CancelButton{this, "CancelButton", "&Close", CommandButton::CancelRole};
    FileListBox filesInFolder{this, "filesInFolder"};

    bool bReplaceFailed = false;

    void Form_Load();
    void optSelected_Click();
    void optSpecFolder_Click();
    void FindBox_Change();
    void cmdSelectDocFolder_Click();
    void cmdSelectDocFiles_Click();
    void ReplaceButton_Click();
    void ReplaceInFiles(const QStringList& files);
    void CancelButton_Click();

    DialogContext& shell() const { return shell_; }

  private:
    DialogContext& shell_;
};

// The filters both file dialogs offer; the first is shown at first.
QStringList fileFilters();
// A folder and a name as one path, with one separator between them.
QString joinPath(const QString& folder, const QString& name);
// The blank key has no place in a filter.
void dropBlank(int& keyAscii);

} // namespace tsl
