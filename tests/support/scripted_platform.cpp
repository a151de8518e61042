#include "scripted_platform.h"

namespace tsl::test {

FileDialogAnswer FileDialogAnswer::files(const QString& folder, const QStringList& names) {
    QString result = folder;
    for (const QString& name : names)
        result += QChar(0) + name;
    return {true, result, names.isEmpty() ? QString() : names.first()};
}

MsgResult ScriptedPlatform::messageBox(const MessageBoxRequest& request) {
    messages.append(
        {request.text, request.title, request.icon, request.buttons, request.systemModal});
    if (onMessage) onMessage();
    if (!messageAnswers.isEmpty()) return messageAnswers.dequeue();
    // A box with only OK needs no script.
    if (request.buttons == MsgButtons::OK) return MsgResult::OK;
    throw UnexpectedPrompt("unexpected question: " + request.text.toStdString());
}

std::optional<QString> ScriptedPlatform::inputBox(const QString& prompt, const QString&,
                                                  const QString&) {
    inputPrompts.append(prompt);
    if (inputAnswers.isEmpty())
        throw UnexpectedPrompt("unexpected input box: " + prompt.toStdString());
    return inputAnswers.dequeue();
}

bool ScriptedPlatform::answerFile(CommonDialog& dialog) {
    fileDialogsShown.append(dialog);
    if (fileAnswers.isEmpty()) throw UnexpectedPrompt("unexpected file dialog");
    const FileDialogAnswer answer = fileAnswers.dequeue();
    if (!answer.accept) return false;
    dialog.FileName = answer.fileName;
    dialog.FileTitle = answer.fileTitle.isEmpty() ? fileTitleOf(answer.fileName) : answer.fileTitle;
    return true;
}

bool ScriptedPlatform::showColor(CommonDialog& dialog) {
    if (colorAnswers.isEmpty()) throw UnexpectedPrompt("unexpected colour dialog");
    const auto answer = colorAnswers.dequeue();
    if (!answer) return false;
    dialog.Color = *answer;
    return true;
}

std::optional<QString> ScriptedPlatform::browseForFolder(const QString& title) {
    folderTitles.append(title);
    if (folderAnswers.isEmpty()) throw UnexpectedPrompt("unexpected folder picker");
    return folderAnswers.dequeue();
}

bool ScriptedPlatform::shellOpen(const QString& target) {
    shellOpened.append(target);
    return shellSucceeds;
}

bool ScriptedPlatform::startProgram(const QString& program, const QStringList& arguments) {
    programsStarted.append(QStringList{program} + arguments);
    return shellSucceeds;
}

QStringList ScriptedPlatform::messageTexts() const {
    QStringList texts;
    for (const ShownMessage& m : messages)
        texts.append(m.text);
    return texts;
}

} // namespace tsl::test
