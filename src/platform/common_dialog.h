#pragma once
// The state of a common file/colour dialog control, shared by the commands that use it.
// ShowOpen/ShowSave/ShowColor hand it to the platform and apply the CancelError rule.
#include <QString>

namespace tsl {

class Platform;

class CommonDialog {
  public:
    enum Flags : int {
        OverwritePrompt = 2,
        HideReadOnly = 4,
        AllowMultiSelect = 512,
        PathMustExist = 2048,
        FileMustExist = 4096,
        Explorer = 524288,
    };

    explicit CommonDialog(Platform& platform) : platform_(&platform) {}

    QString DialogTitle;
    QString Filter;
    int FilterIndex = 1;
    int Flags = 0;
    QString InitDir;
    QString FileName;
    QString FileTitle;
    QString DefaultExt;
    bool CancelError = false;
    int MaxFileSize = 260;
    unsigned Color = 0;

    void ShowOpen();
    void ShowSave();
    void ShowColor();

    bool hasFlag(int flag) const { return (Flags & flag) == flag; }

  private:
    void afterShow(bool accepted);
    Platform* platform_;
};

// The file name with its folder taken off: what a dialog gives as FileTitle.
QString fileTitleOf(const QString& path);

} // namespace tsl
