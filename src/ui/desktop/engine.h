#pragma once
// The browser engine behind the Layout and Preview views, as the view uses it. The engine
// lives in a library of its own that is loaded when a document first shows Layout or Preview,
// so that start-up neither loads nor pays for it.
// Open to every floor of the view above the desktop, and to the engine module (src/web).
#include <QString>
#include <QUrl>
#include <QVariant>
#include <functional>
#include <memory>

class QPrinter;
class QWidget;

namespace tsl {

// One page that scripts of the program can run in, apart from the page's own scripts.
class EnginePage {
  public:
    virtual ~EnginePage() = default;
    virtual QWidget* widget() = 0;
    virtual void setHtml(const QString& html, const QUrl& base) = 0;
    virtual void load(const QUrl& url) = 0;
    virtual QUrl url() const = 0;
    // Runs a script in the program's own world of the page; the answer comes later.
    virtual void runScript(const QString& script, std::function<void(const QVariant&)> answer) = 0;
    // Selects the next occurrence of the text in the page, or the one before; `found` hears
    // whether there was one.
    virtual void findText(const QString& text, bool backward, bool matchCase,
                          std::function<void(bool found)> found) = 0;
    enum Action { Copy, Cut, Paste, Undo, Redo, SelectAll };
    virtual void trigger(Action action) = 0;
    virtual bool canGoBack() const = 0;
    virtual bool canGoForward() const = 0;
    virtual void back() = 0;
    virtual void forward() = 0;
    virtual void stop() = 0;
    virtual void reload() = 0;
    // Prints the page on the printer; `done` hears when the job has been handed over.
    virtual void print(QPrinter* printer, std::function<void(bool ok)> done) = 0;

    std::function<void()> loadStarted;
    std::function<void(bool ok)> loadFinished;
    // What the program's scripts tell through the console.
    std::function<void(const QString&)> consoleMessage;
};

class Engine {
  public:
    virtual ~Engine() = default;
    // An editable page: its own scripts don't run and it never leaves the page the program
    // loaded into it. A browser follows the user but not a page that moves by itself.
    virtual std::unique_ptr<EnginePage> createEditor(QWidget* parent) = 0;
    virtual std::unique_ptr<EnginePage> createBrowser(QWidget* parent) = 0;
};

// The engine, loaded on the first call; null when its library cannot be loaded.
Engine* engine();
// The error of the last failed load, for the message the user sees.
QString engineError();

} // namespace tsl

// The one symbol the engine's library exports.
extern "C" tsl::Engine* tessalineCreateEngine();
