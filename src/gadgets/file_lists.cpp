#include "gadgets/file_lists.h"
#include "platform/file_names.h"
#include "runtime/runtime_error.h"
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

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
    // The folder's files by the bytes of their names, so that a name written by an 8-bit
    // program is listed (and later opened) as it stands.
    QStringList names;
    if (!path_.isEmpty()) {
        QList<QRegularExpression> filters;
        for (const QString& filter : pattern_.split(QLatin1Char(';'), Qt::SkipEmptyParts))
            filters.append(QRegularExpression(
                QRegularExpression::wildcardToRegularExpression(filter.trimmed()),
                QRegularExpression::CaseInsensitiveOption));
        for (const QString& name : filesInFolder(path_)) {
            // The pattern is matched against the name as shown, which is valid text.
            QString shown = name;
            for (QChar& c : shown)
                if (isFileNameEscape(c)) c = QChar::ReplacementCharacter;
            for (const QRegularExpression& filter : filters)
                if (filter.match(shown).hasMatch()) {
                    names.append(name);
                    break;
                }
        }
    }
    items_ = names;
    selected_ = QList<bool>(names.size(), false);
    listIndex_ = -1;
    emit changed();
}

} // namespace tsl
