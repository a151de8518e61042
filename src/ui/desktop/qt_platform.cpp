#include "ui/desktop/qt_platform.h"
#include "editor/file_system.h"
#include "platform/common_dialog.h"
#include "ui/desktop/qt_printer.h"
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QSplashScreen>
#include <QStandardPaths>
#include <QUrl>

namespace tsl {

QStringList qtNameFilters(const QString& filter) {
    QStringList filters;
    const QStringList parts = filter.split(QLatin1Char('|'));
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts.at(i).trimmed();
        // A description that lists its patterns in brackets gets the clean list instead.
        const int bracket = static_cast<int>(description.indexOf(QLatin1String(" (")));
        if (bracket > 0 && description.endsWith(QLatin1Char(')'))) description.truncate(bracket);
        QStringList patterns = parts.at(i + 1).split(QRegularExpression(QStringLiteral("[;,\\s]+")),
                                                     Qt::SkipEmptyParts);
        filters.append(description + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                       QLatin1Char(')'));
    }
    return filters;
}

QtPlatform::QtPlatform() {
    if (QClipboard* clipboard = QGuiApplication::clipboard()) {
        clipboard_ = clipboard->text();
        connect(clipboard, &QClipboard::dataChanged, this,
                [this, clipboard] { clipboard_ = clipboard->text(); });
    }
}

QWidget* QtPlatform::owner() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return mainWindow_;
}

MsgResult QtPlatform::messageBox(const MessageBoxRequest& request) {
    // A message during start-up must not hide behind the splash picture.
    for (QWidget* top : QApplication::topLevelWidgets())
        if (qobject_cast<QSplashScreen*>(top)) top->hide();
    QMessageBox box(owner());
    box.setWindowTitle(request.title.isEmpty() ? QStringLiteral("Tessaline") : request.title);
    box.setText(request.text);
    switch (request.icon) {
    case MsgIcon::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    case MsgIcon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case MsgIcon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case MsgIcon::Information:
        box.setIcon(QMessageBox::Information);
        break;
    case MsgIcon::None:
        break;
    }
    using B = QMessageBox;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape = B::NoButton;
    switch (request.buttons) {
    case MsgButtons::OK:
        buttons = B::Ok;
        escape = B::Ok;
        break;
    case MsgButtons::OKCancel:
        buttons = B::Ok | B::Cancel;
        escape = B::Cancel;
        break;
    case MsgButtons::AbortRetryIgnore:
        buttons = B::Abort | B::Retry | B::Ignore;
        break;
    case MsgButtons::YesNoCancel:
        buttons = B::Yes | B::No | B::Cancel;
        escape = B::Cancel;
        break;
    case MsgButtons::YesNo:
        buttons = B::Yes | B::No;
        break;
    case MsgButtons::RetryCancel:
        buttons = B::Retry | B::Cancel;
        escape = B::Cancel;
        break;
    }
    box.setStandardButtons(buttons);
    if (escape != B::NoButton) box.setEscapeButton(escape);
    switch (box.exec()) {
    case B::Ok:
        return MsgResult::OK;
    case B::Cancel:
        return MsgResult::Cancel;
    case B::Abort:
        return MsgResult::Abort;
    case B::Retry:
        return MsgResult::Retry;
    case B::Ignore:
        return MsgResult::Ignore;
    case B::Yes:
        return MsgResult::Yes;
    case B::No:
        return MsgResult::No;
    default:
        return MsgResult::Cancel;
    }
}

std::optional<QString> QtPlatform::inputBox(const QString& prompt, const QString& title,
                                            const QString& defaultText) {
    bool ok = false;
    const QString text =
        QInputDialog::getText(owner(), title.isEmpty() ? QStringLiteral("Tessaline") : title,
                              prompt, QLineEdit::Normal, defaultText, &ok);
    if (!ok) return std::nullopt;
    return text;
}

namespace {
// The toolkit's Open dialog refuses a typed name that does not exist, with a message of its
// own. Unless the caller asks for an existing file, such a name is taken as it stands: the
// caller has its own answer for a file that is not there.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget* owner, bool mustExist) : QFileDialog(owner), mustExist_(mustExist) {}
    QStringList chosen() const { return chosen_; }

    void accept() override {
        const QStringList files = selectedFiles();
        if (acceptMode() == AcceptOpen && !mustExist_ && files.size() == 1 &&
            !QFileInfo::exists(files.first())) {
            chosen_ = files;
            QDialog::accept();
            return;
        }
        QFileDialog::accept();
    }
    void done(int result) override {
        if (result == Accepted && chosen_.isEmpty()) chosen_ = selectedFiles();
        QFileDialog::done(result);
    }

  private:
    bool mustExist_;
    QStringList chosen_;
};
} // namespace

bool QtPlatform::showFileDialog(CommonDialog& dialog, bool save) {
    FileDialog box(owner(), dialog.hasFlag(CommonDialog::FileMustExist));
    box.setWindowTitle(!dialog.DialogTitle.isEmpty()
                           ? dialog.DialogTitle
                           : (save ? QStringLiteral("Save As") : QStringLiteral("Open")));
    box.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (save)
        box.setFileMode(QFileDialog::AnyFile);
    else
        box.setFileMode(dialog.hasFlag(CommonDialog::AllowMultiSelect) ? QFileDialog::ExistingFiles
                                                                       : QFileDialog::ExistingFile);
    if (save && !dialog.hasFlag(CommonDialog::OverwritePrompt))
        box.setOption(QFileDialog::DontConfirmOverwrite);
    const QStringList filters = qtNameFilters(dialog.Filter);
    if (!filters.isEmpty()) {
        box.setNameFilters(filters);
        const int index = std::clamp(dialog.FilterIndex, 1, static_cast<int>(filters.size()));
        box.selectNameFilter(filters.at(index - 1));
    }
    if (!dialog.DefaultExt.isEmpty()) box.setDefaultSuffix(dialog.DefaultExt);
    QString folder = dialog.InitDir;
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) folder = lastFolder_;
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) folder = QDir::homePath();
    box.setDirectory(folder);
    if (!dialog.FileName.isEmpty()) box.selectFile(dialog.FileName);
    if (box.exec() != QDialog::Accepted) return false;

    // The toolkit shows a byte of a name it cannot read as U+FFFD; the file is found again.
    QStringList chosen = box.chosen();
    if (chosen.isEmpty()) return false;
    for (QString& path : chosen)
        path = recoverFileName(path);
    dialog.FilterIndex = static_cast<int>(filters.indexOf(box.selectedNameFilter())) + 1;
    if (chosen.size() == 1) {
        dialog.FileName = QDir::toNativeSeparators(chosen.first());
    } else {
        // Several files come as the folder, then the names, separated by character 0.
        QStringList parts{QFileInfo(chosen.first()).absolutePath()};
        for (const QString& path : chosen)
            parts.append(QFileInfo(path).fileName());
        dialog.FileName = parts.join(QChar(0));
    }
    dialog.FileTitle = QFileInfo(chosen.first()).fileName();
    lastFolder_ = QFileInfo(chosen.first()).absolutePath();
    return true;
}

bool QtPlatform::showOpen(CommonDialog& dialog) {
    return showFileDialog(dialog, false);
}

bool QtPlatform::showSave(CommonDialog& dialog) {
    return showFileDialog(dialog, true);
}

bool QtPlatform::showColor(CommonDialog& dialog) {
    // Colours are kept as the numbers of the logic: red in the low byte, blue in the high one.
    const unsigned c = dialog.Color;
    const QColor initial(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF),
                         static_cast<int>((c >> 16) & 0xFF));
    const QColor chosen = QColorDialog::getColor(initial, owner());
    if (!chosen.isValid()) return false;
    dialog.Color = static_cast<unsigned>(chosen.red()) |
                   (static_cast<unsigned>(chosen.green()) << 8) |
                   (static_cast<unsigned>(chosen.blue()) << 16);
    return true;
}

std::optional<QString> QtPlatform::browseForFolder(const QString& title) {
    const QString folder = QFileDialog::getExistingDirectory(owner(), title, QDir::homePath());
    if (folder.isEmpty()) return std::nullopt;
    return folder;
}

void QtPlatform::setClipboardText(const QString& text) {
    clipboard_ = text;
    if (QClipboard* clipboard = QGuiApplication::clipboard()) clipboard->setText(text);
}

void QtPlatform::beep() {
    QApplication::beep();
}

QDateTime QtPlatform::now() {
    return QDateTime::currentDateTime();
}

bool QtPlatform::shellOpen(const QString& fileOrUrl) {
    const QUrl url = QFileInfo::exists(fileOrUrl) ? QUrl::fromLocalFile(fileOrUrl)
                                                  : QUrl::fromUserInput(fileOrUrl);
    return QDesktopServices::openUrl(url);
}

bool QtPlatform::startProgram(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

bool QtPlatform::startCommandLine(const QString& commandLine, const QStringList& arguments) {
    const QStringList words = splitCommandLine(commandLine);
    if (words.isEmpty()) return false;
    return QProcess::startDetached(words.first(), words.mid(1) + arguments);
}

QStringList splitCommandLine(const QString& commandLine) {
    const QString line = commandLine.trimmed();
    for (qsizetype end = line.size(); end > 0; end = line.lastIndexOf(u' ', end - 1)) {
        const QString program = line.left(end);
        const QFileInfo file(program);
        if (file.isFile() && file.isExecutable())
            return QStringList{program} + QProcess::splitCommand(line.mid(end));
    }
    const QStringList words = QProcess::splitCommand(line);
    if (words.isEmpty()) return {};
    const QString found = QStandardPaths::findExecutable(words.first());
    return QStringList{found.isEmpty() ? words.first() : found} + words.mid(1);
}

std::unique_ptr<PrinterDevice> QtPlatform::defaultPrinter() {
    std::unique_ptr<QPrinter> printer = makeDefaultPrinter();
    if (!printer) return nullptr;
    return std::make_unique<QtPrinterDevice>(std::move(printer));
}

void QtPlatform::showHelp(const QString& helpFile) {
    if (!QFileInfo::exists(helpFile) || !shellOpen(helpFile))
        msgBox(QStringLiteral("The help file ") + helpFile +
                   QStringLiteral(" could not be opened."),
               MsgIcon::Exclamation);
}

QString QtPlatform::tempFolder() {
    return QDir::tempPath();
}

QStringList QtPlatform::fontNames() {
    return QFontDatabase::families();
}

QString QtPlatform::fixedFontName() {
    const QStringList families = QFontDatabase::families();
    for (const char* face : {"Courier New", "Liberation Mono", "DejaVu Sans Mono"})
        if (families.contains(QLatin1String(face))) return QLatin1String(face);
    // The face the system's fixed font resolves to, which the face list holds.
    return QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
}

QString QtPlatform::applicationFolder() {
    return QCoreApplication::applicationDirPath();
}

} // namespace tsl
