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

bool ScriptedPlatform::startCommandLine(const QString& commandLine, const QStringList& arguments) {
    // Each argument in brackets, so that a test sees where one ends.
    QString line = commandLine;
    for (const QString& argument : arguments)
        line += QStringLiteral(" [") + argument + u']';
    commandLines.append(line);
    return shellSucceeds;
}

namespace {
// The job handed out: the test keeps the printer and reads what was printed on it.
class SharedPrinter : public PrinterDevice {
  public:
    explicit SharedPrinter(std::shared_ptr<ScriptedPrinter> p) : p_(std::move(p)) {}
    void Print(const QString& text) override { p_->Print(text); }
    int Width() const override { return p_->Width(); }
    int Height() const override { return p_->Height(); }
    int ScaleWidth() const override { return p_->ScaleWidth(); }
    int ScaleHeight() const override { return p_->ScaleHeight(); }
    int PhysicalOffsetX() const override { return p_->PhysicalOffsetX(); }
    int PhysicalOffsetY() const override { return p_->PhysicalOffsetY(); }
    double TwipsPerPixelX() const override { return p_->TwipsPerPixelX(); }
    double TwipsPerPixelY() const override { return p_->TwipsPerPixelY(); }
    int FormatRange(const QString& text, int start, const QString& font, double size,
                    const TwipsRect& drawing, const TwipsRect& page, bool render) override {
        return p_->FormatRange(text, start, font, size, drawing, page, render);
    }
    void NewPage() override { p_->NewPage(); }
    void EndDoc() override { p_->EndDoc(); }

  private:
    std::shared_ptr<ScriptedPrinter> p_;
};
} // namespace

std::unique_ptr<PrinterDevice> ScriptedPlatform::defaultPrinter() {
    if (!printer) return nullptr;
    return std::make_unique<SharedPrinter>(printer);
}

int ScriptedPrinter::FormatRange(const QString& text, int start, const QString& font, double size,
                                 const TwipsRect& drawing, const TwipsRect&, bool render) {
    calls.append(QStringLiteral("FormatRange %1").arg(start));
    drawings.append(drawing);
    fontName = font;
    fontSize = size;
    const int columns = (drawing.right - drawing.left) * charsPerInch / 1440;
    const int rows = (drawing.bottom - drawing.top) * linesPerInch / 1440;
    QStringList lines;
    int pos = start;
    while (pos < text.size() && lines.size() < std::max(rows, 1)) {
        const int feed = static_cast<int>(text.indexOf(u'\n', pos));
        const int end = feed < 0 ? static_cast<int>(text.size()) : feed;
        const int take = std::min(end - pos, std::max(columns, 1));
        lines.append(text.mid(pos, take));
        pos += take;
        if (pos == end && feed >= 0) ++pos; // the line feed ends the line it stands in
    }
    if (render) pages.append(lines.join(u'\n'));
    return pos;
}

QString ScriptedTransfer::OpenURL(const QString& url) {
    requested.append(url);
    const Reply reply = replies.value(url, Reply{{icResolvingHost}, std::nullopt});
    for (int state : reply.states)
        raiseStateChanged(state);
    if (!reply.body) fail(QStringLiteral("Cannot connect"));
    return *reply.body;
}

} // namespace tsl::test
