#pragma once
// A fresh main window on scripted services, thrown away after each test.
#include "editor/text_pane.h"
#include "scripted_forms.h"
#include "scripted_platform.h"
#include "shell/shell_mdi.h"
#include <QTemporaryDir>
#include <memory>

namespace tsl::test {

class TextPaneFactory : public SurfaceFactory {
  public:
    std::unique_ptr<SourcePane> createSourcePane() override { return std::make_unique<TextPane>(); }
    std::unique_ptr<LayoutSurface> createLayoutSurface() override {
        return std::make_unique<DetachedLayout>();
    }
};

struct TestShell {
    ScriptedPlatform platform;
    MemorySettingsStore settings;
    TextPaneFactory surfaces;
    ScriptedForms forms;
    std::unique_ptr<ShellMDI> shell;

    TestShell() { shell = std::make_unique<ShellMDI>(platform, settings, surfaces, forms); }
    ShellMDI* operator->() { return shell.get(); }
    ShellMDI& operator*() { return *shell; }
    // Runs the start-up load, with a command line when given.
    ShellMDI& load(const QString& commandLine = QString()) {
        shell->MDIForm_Load(commandLine);
        return *shell;
    }
    codeEditor& active() { return *shell->ActiveForm(); }
    // Runs a menu item's handler, as choosing it does.
    void run(const char* item) { shell->menu(QString::fromUtf8(item)).Click(); }
    // Opens a file through File > Open and answers the active document.
    codeEditor& open(const QString& path) {
        platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        shell->mnuFileOpen_Click();
        return active();
    }
};

// The document holds `text` with [from, to) selected, as its last step.
inline void startWith(codeEditor& doc, const QString& text, int from, int to) {
    doc.codebox().setText(text);
    doc.codebox().setSelStart(from);
    doc.codebox().setSelLength(to - from);
    doc.AddStep();
}

inline DetachedLayout& layoutOf(codeEditor& doc) {
    return static_cast<DetachedLayout&>(doc.DHTMLEdit1());
}

// Writes a file into a folder and answers its full path.
QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes);
QByteArray readFile(const QString& path);

// A text with `markup` put in at `caret`, where an insert at the caret leaves it.
inline QString insertedAt(const QString& before, int caret, const QString& markup) {
    return before.left(caret) + markup + before.mid(caret);
}

// A list of names written as one string, separated by spaces.
inline QStringList words(const char* text) {
    return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace tsl::test
