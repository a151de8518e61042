#pragma once
// Desktop services the logic needs, behind one interface: the real one talks to Qt, the
// scripted one in the tests answers from queues and logs what was shown.
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace tsl {

class CommonDialog;
class PrinterDevice;
class UrlTransfer;

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { OK, OKCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class MsgResult { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct MessageBoxRequest {
    QString text;
    QString title;
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::OK;
    // The box stays above every window of the desktop until it is answered.
    bool systemModal = false;
};

class Platform {
  public:
    virtual ~Platform() = default;

    // Message boxes. An empty title stands for the program's own name.
    virtual MsgResult messageBox(const MessageBoxRequest& request) = 0;
    MsgResult msgBox(const QString& text, MsgIcon icon = MsgIcon::None,
                     MsgButtons buttons = MsgButtons::OK, const QString& title = QString()) {
        return messageBox({text, title, icon, buttons});
    }
    // An input box; no value when the user cancelled.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                            const QString& defaultText) = 0;

    // The common dialogs fill FileName and FileTitle (or Color) of the dialog's state and answer
    // false when the user cancelled. The CancelError rule is the dialog state's own.
    virtual bool showOpen(CommonDialog& dialog) = 0;
    virtual bool showSave(CommonDialog& dialog) = 0;
    virtual bool showColor(CommonDialog& dialog) = 0;
    // The folder picker; no value when nothing was chosen.
    virtual std::optional<QString> browseForFolder(const QString& title) = 0;

    virtual QString clipboardText() = 0;
    virtual void setClipboardText(const QString& text) = 0;
    bool clipboardHasText() { return !clipboardText().isEmpty(); }

    virtual void beep() = 0;
    virtual QDateTime now() = 0;
    // Seconds since midnight with fractions, as the typing rule measures time.
    double timer() {
        const QTime t = now().time();
        return t.msecsSinceStartOfDay() / 1000.0;
    }

    // Opens a file or an address with the desktop's handler; false when that failed.
    virtual bool shellOpen(const QString& fileOrUrl) = 0;
    // Starts a program with arguments; false when it could not be started.
    virtual bool startProgram(const QString& program, const QStringList& arguments) = 0;
    // Starts a program by a command line, as typed (the program and its arguments separated by
    // blanks), and after them `arguments`, each one argument as it stands. False when it could
    // not be started.
    virtual bool startCommandLine(const QString& commandLine, const QStringList& arguments) = 0;
    // The internet transfer of the main window.
    virtual UrlTransfer& transfer() = 0;
    // A job on the system's default printer; null when the system has no printer.
    virtual std::unique_ptr<PrinterDevice> defaultPrinter() = 0;
    virtual void showHelp(const QString& helpFile) = 0;

    virtual QString tempFolder() = 0;
    virtual QStringList fontNames() = 0;
    // The fixed-width face of the Typewriter style: Courier New, or the system's own.
    virtual QString fixedFontName() { return QStringLiteral("Courier New"); }
    // The folder of the program, where resources/ and styles/ stand.
    virtual QString applicationFolder() = 0;
};

} // namespace tsl
