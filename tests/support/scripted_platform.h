#pragma once
// A platform for tests: every message box, input box and dialog answers from a queue the test
// fills, every message shown is logged with its exact text, title, icon and buttons, and the
// clock is set by hand. An unexpected question fails loudly instead of hanging.
#include "platform/common_dialog.h"
#include "platform/platform.h"
#include <QList>
#include <QQueue>
#include <QStringList>
#include <functional>
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
