#include "shell/relative_path.h"
#include "runtime/resume.h"
#include "shell/shell_core.h"

namespace tsl {

namespace {
QString dropRight(const QString& s, qsizetype count) {
    return s.left(qMax<qsizetype>(0, s.size() - count));
}

// The last `count` characters; a negative count is an invalid call.
QString lastChars(const QString& s, qsizetype count) {
    if (count < 0) raise(ErrInvalidProcedureCall);
    return s.right(count);
}

QString forwardSlashes(QString s, QChar separator) {
    return s.replace(separator, QLatin1Char('/'));
}
} // namespace

RelativeLink relativeLink(const QString& documentPath, const QString& documentTitle,
                          const QString& fileName, const QString& fileTitle, QChar separator) {
    // The first character stands for the drive: another drive, or no document file at all,
    // gives the full path.
    if (documentPath.left(1).toLower() != fileName.left(1).toLower()) return {fileName};
    if (fileName.startsWith(QString(2, separator))) return {fileTitle};

    QString base = dropRight(documentPath, documentTitle.size());
    QString folder = dropRight(fileName, fileTitle.size());
    if (base.toLower() == folder.toLower()) return {fileTitle};
    if (folder.toLower().startsWith(base.toLower()))
        return {forwardSlashes(folder.mid(base.size()) + fileTitle, separator)};

    base.chop(1);
    folder.chop(1);
    QString prefix;
    qsizetype common = 0;
    // Compares one character fewer than the folder's path up to the separator, so folders that
    // differ in their last letter meet a level too soon. Kept as the program has always done.
    for (qsizetype p = base.size() - 1; p > 0; --p) {
        if (base.at(p) != separator) continue;
        prefix.prepend(QStringLiteral("../"));
        if (base.left(p - 1).toLower() == folder.left(p - 1).toLower()) {
            common = p + 1;
            break;
        }
    }
    const qsizetype rest = folder.size() - common;
    const QString link = rest < 0 ? prefix + lastChars(folder, rest + 1) + fileTitle
                                  : prefix + lastChars(folder, rest) + QLatin1Char('/') + fileTitle;
    return {forwardSlashes(link, separator), true};
}

void ShellCore::RelativePath(CommonDialog& dialog, TextBox& target) {
    // No error reaches the user: a cancel or a failing step leaves the target as it was.
    silentExit([&] {
        dialog.FileName.clear();
        dialog.ShowOpen();
        if (dialog.FileName.isEmpty()) return;
        if (!bUseRelative) {
            target.setText(dialog.FileName);
            return;
        }
        codeEditor* doc = ActiveForm();
        const RelativeLink relative = relativeLink(txtTemp1, doc ? doc->txtFileTitle : QString(),
                                                   dialog.FileName, dialog.FileTitle);
        txtTemp2 = relative.link;
        target.setText(relative.link);
        if (relative.up) bRelativeUp = true;
    });
}

} // namespace tsl
