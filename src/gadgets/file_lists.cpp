#include "gadgets/file_lists.h"
#include "runtime/runtime_error.h"
#include <QDir>
#include <QFileInfo>

namespace tsl {

DriveListBox::DriveListBox(Form* owner, QString name) : ListControl(owner, std::move(name)) {
    AddItem(QStringLiteral("/"));
    const QString home = QDir::homePath();
    if (home != QLatin1String("/")) AddItem(home);
    drive_ = List(0);
    listIndex_ = 0;
}

void DriveListBox::setDrive(const QString& drive) {
    const QString root = items_.contains(drive) ? drive : drive.left(1);
    if (!QFileInfo(root).isDir()) raise(ErrDeviceUnavailable);
    if (root == drive_) return;
    drive_ = root;
    listIndex_ = static_cast<int>(items_.indexOf(root));
    emit changed();
    if (Change) Change();
}

void DirListBox::setPath(const QString& path) {
    if (path.isEmpty() || !QFileInfo(path).isDir()) raise(ErrPathNotFound);
    const QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (clean == path_) return;
    path_ = clean;
    emit changed();
    if (Change) Change();
}

FileListBox::FileListBox(Form* owner, QString name) : ListControl(owner, std::move(name)) {
    MultiSelect = true;
}

void FileListBox::setPath(const QString& path) {
    path_ = path;
    refresh();
}

void FileListBox::setPattern(const QString& pattern) {
    if (pattern.trimmed().isEmpty() || pattern.contains(QLatin1Char('/')))
        raise(ErrInvalidPropertyValue);
    pattern_ = pattern;
    refresh();
}

void FileListBox::refresh() {
    QStringList names;
    if (!path_.isEmpty()) {
        const QStringList filters = pattern_.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        names = QDir(path_).entryList(filters, QDir::Files | QDir::Hidden, QDir::Name);
    }
    items_ = names;
    selected_ = QList<bool>(names.size(), false);
    listIndex_ = -1;
    emit changed();
}

} // namespace tsl
