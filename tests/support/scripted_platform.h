#pragma once
// A platform for tests: every message box, input box and dialog answers from a queue the test
// fills, every message shown is logged with its exact text, title, icon and buttons, and the
// clock is set by hand. An unexpected question fails loudly instead of hanging.
#include "platform/common_dialog.h"
#include "platform/platform.h"
#include "platform/printer_device.h"
#include "platform/url_transfer.h"
#include <QHash>
#include <QList>
#include <QQueue>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>

namespace tsl::test {

struct ShownMessage {
    QString text;
    QString title;
    MsgIcon icon;
    MsgButtons buttons;
    bool systemModal = false;
};

// What a file dialog does when shown: accept with a name, or cancel.
struct FileDialogAnswer {
    bool accept = true;
    QString fileName;
    QString fileTitle; // derived from fileName when left empty
    static FileDialogAnswer cancel() { return {false, {}, {}}; }
    static FileDialogAnswer file(const QString& path) { return {true, path, {}}; }
    // Several files of one folder, given as the dialog gives them: folder, then names.
    static FileDialogAnswer files(const QString& folder, const QStringList& names);
};

class UnexpectedPrompt : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A transfer that answers from a table of addresses: the states it reports before the body,
// and the body, or a failure.
class ScriptedTransfer : public UrlTransfer {
  public:
    struct Reply {
        QList<int> states;
        std::optional<QString> body; // none: the transfer fails
    };
    QHash<QString, Reply> replies;
    QStringList requested;
    QString OpenURL(const QString& url) override;
};

// A printer whose pages hold a fixed number of lines of a fixed number of characters per inch
// of the drawing rectangle: enough to check the paging of the text, page by page.
class ScriptedPrinter : public PrinterDevice {
  public:
    int paperWidth = 12240, paperHeight = 15840; // Letter, in twips
    int offsetX = 0, offsetY = 0;                // device pixels
    double twipsPerPixel = 1440.0 / 600;         // a 600 dpi device
    int charsPerInch = 10, linesPerInch = 6;
    QStringList pages;         // the text drawn on each page, its lines joined by line feeds
    QList<TwipsRect> drawings; // the drawing rectangle of each format call
    QStringList calls;         // Print, NewPage, EndDoc, FormatRange in order
    QString fontName;
    double fontSize = 0;

    void Print(const QString& text) override {
        calls.append(QStringLiteral("Print[") + text + u']');
    }
    int Width() const override { return paperWidth; }
    int Height() const override { return paperHeight; }
    int ScaleWidth() const override { return paperWidth - 2 * int(offsetX * twipsPerPixel); }
    int ScaleHeight() const override { return paperHeight - 2 * int(offsetY * twipsPerPixel); }
    int PhysicalOffsetX() const override { return offsetX; }
    int PhysicalOffsetY() const override { return offsetY; }
    double TwipsPerPixelX() const override { return twipsPerPixel; }
    double TwipsPerPixelY() const override { return twipsPerPixel; }
    int FormatRange(const QString& text, int start, const QString& font, double size,
                    const TwipsRect& drawing, const TwipsRect& page, bool render) override;
    void NewPage() override { calls.append(QStringLiteral("NewPage")); }
    void EndDoc() override { calls.append(QStringLiteral("EndDoc")); }
};

class ScriptedPlatform : public Platform {
  public:
    // Queued answers.
    QQueue<MsgResult> messageAnswers;
    QQueue<std::optional<QString>> inputAnswers;
    QQueue<FileDialogAnswer> fileAnswers;
    QQueue<std::optional<unsigned>> colorAnswers;
    QQueue<std::optional<QString>> folderAnswers;

    // What was shown.
    QList<ShownMessage> messages;
    QStringList inputPrompts;
    QList<CommonDialog> fileDialogsShown; // state of the dialog when shown
    QStringList folderTitles;
    QStringList shellOpened;
    QList<QStringList> programsStarted;
    QStringList helpShown;
    int beeps = 0;

    QString clipboard;
    QDateTime clock = QDateTime(QDate(2026, 11, 22), QTime(10, 30, 0));
    QStringList fonts = {QStringLiteral("Arial"), QStringLiteral("Courier New"),
                         QStringLiteral("Times New Roman")};
    QString temp = QStringLiteral("/tmp");
    QString appFolder = QStringLiteral("/opt/tessaline");

    MsgResult messageBox(const MessageBoxRequest& request) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText) override;
    bool showOpen(CommonDialog& dialog) override { return answerFile(dialog); }
    bool showSave(CommonDialog& dialog) override { return answerFile(dialog); }
    bool showColor(CommonDialog& dialog) override;
    std::optional<QString> browseForFolder(const QString& title) override;
    QString clipboardText() override { return clipboard; }
    void setClipboardText(const QString& text) override { clipboard = text; }
    void beep() override { ++beeps; }
    QDateTime now() override { return clock; }
    bool shellOpen(const QString& target) override;
    bool startProgram(const QString& program, const QStringList& arguments) override;
    bool startCommandLine(const QString& commandLine, const QStringList& arguments) override;
    UrlTransfer& transfer() override { return useTransfer ? *useTransfer : transfer_; }
    // A real transfer in place of the scripted one.
    UrlTransfer* useTransfer = nullptr;
    // The next print jobs go to this printer; none: the system has no printer.
    std::shared_ptr<ScriptedPrinter> printer = std::make_shared<ScriptedPrinter>();
    std::unique_ptr<PrinterDevice> defaultPrinter() override;
    QStringList commandLines;
    ScriptedTransfer transfer_;
    void showHelp(const QString& helpFile) override { helpShown.append(helpFile); }
    QString tempFolder() override { return temp; }
    QStringList fontNames() override { return fonts; }
    QString applicationFolder() override { return appFolder; }

    // The texts of the messages shown, in order.
    QStringList messageTexts() const;
    // Runs as each message box is shown, for a test that looks at the state at that moment.
    std::function<void()> onMessage;
    bool shellSucceeds = true;

  private:
    bool answerFile(CommonDialog& dialog);
};

} // namespace tsl::test
