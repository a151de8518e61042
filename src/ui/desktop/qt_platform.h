#pragma once
// The desktop services of the real program, on Qt.
// Open to the window and main(); the logic sees it only as a Platform.
#include "platform/platform.h"
#include "ui/desktop/net_transfer.h"
#include <QObject>
#include <QPointer>

class QWidget;

namespace tsl {

// A file dialog filter of the form "description|patterns|description|patterns" as Qt's name
// filters ("description (patterns)"), the patterns separated by blanks.
QStringList qtNameFilters(const QString& filter);

class QtPlatform : public QObject, public Platform {
    Q_OBJECT
  public:
    QtPlatform();
    // The window that owns the boxes and dialogs.
    void setMainWindow(QWidget* window) { mainWindow_ = window; }

    MsgResult messageBox(const MessageBoxRequest& request) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText) override;
    bool showOpen(CommonDialog& dialog) override;
    bool showSave(CommonDialog& dialog) override;
    bool showColor(CommonDialog& dialog) override;
    std::optional<QString> browseForFolder(const QString& title) override;
    QString clipboardText() override { return clipboard_; }
    void setClipboardText(const QString& text) override;
    void beep() override;
    QDateTime now() override;
    bool shellOpen(const QString& fileOrUrl) override;
    bool startProgram(const QString& program, const QStringList& arguments) override;
    bool startCommandLine(const QString& commandLine, const QStringList& arguments) override;
    UrlTransfer& transfer() override { return transfer_; }
    std::unique_ptr<PrinterDevice> defaultPrinter() override;
    void showHelp(const QString& helpFile) override;
    QString tempFolder() override;
    QStringList fontNames() override;
    QString fixedFontName() override;
    QString applicationFolder() override;

  private:
    QWidget* owner() const;
    bool showFileDialog(CommonDialog& dialog, bool save);
    QPointer<QWidget> mainWindow_;
    // Kept current from the clipboard's own signal: the caret reads it on every move.
    QString clipboard_;
    // The folder of the file last chosen in a file dialog: where a dialog with no folder of
    // its own starts, as the desktop's file dialogs go on where the user left them.
    QString lastFolder_;
    NetTransfer transfer_;
};

// A command line as a program and its arguments. The program is the longest run of words from
// the start that names a program file, so that a program in a folder with blanks in its name
// needs no quotes; the rest is split at blanks, as the program would split it.
QStringList splitCommandLine(const QString& commandLine);

} // namespace tsl
