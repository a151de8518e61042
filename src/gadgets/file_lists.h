#pragma once
// The drive, folder and file lists of a file chooser. On this system a "drive" is where a path
// starts: the root "/" or the home folder; a path's first character names its drive.
#include "gadgets/controls.h"

namespace tsl {

class DriveListBox : public ListControl {
  public:
    DriveListBox(Form* owner, QString name);
    QString Drive() const { return drive_; }
    // A root of the list, or the first character of a path; a drive that is no folder is
    // refused (68). A change raises Change.
    void setDrive(const QString& drive);
    std::function<void()> Change;

  private:
    QString drive_;
};

class DirListBox : public Control {
  public:
    using Control::Control;
    const QString& Path() const { return path_; }
    // A folder that does not exist is refused (76). A change raises Change.
    void setPath(const QString& path);
    std::function<void()> Change;

  private:
    QString path_;
};

// The files of one folder that match a pattern ("*.htm;*.html"), by name, sorted; the user
// may pick several.
class FileListBox : public ListControl {
  public:
    FileListBox(Form* owner, QString name);
    const QString& Path() const { return path_; }
    void setPath(const QString& path);
    const QString& Pattern() const { return pattern_; }
    // A pattern that could name no file (empty, or with a folder in it) is refused (380).
    void setPattern(const QString& pattern);

  private:
    void refresh();
    QString path_;
    QString pattern_ = QStringLiteral("*.*");
};

} // namespace tsl
