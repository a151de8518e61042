// The browser engine on QtWebEngine, built as a library of its own and loaded on first use.
#include "ui/engine.h"
#include <QPointer>
#include <QWebEngineHistory>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <QWebEngineView>

namespace tsl {

namespace {
class Page : public QWebEnginePage {
  public:
    Page(QObject* parent, EnginePage& owner, bool editor)
        : QWebEnginePage(parent), owner_(owner), editor_(editor) {}

  protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int,
                                  const QString&) override {
        if (owner_.consoleMessage) owner_.consoleMessage(message);
    }
    // A page being edited is not browsed: a click on a link goes nowhere.
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool main) override {
        if (editor_ && type == NavigationTypeLinkClicked) return false;
        return QWebEnginePage::acceptNavigationRequest(url, type, main);
    }

  private:
    EnginePage& owner_;
    bool editor_;
};

class WebPage : public EnginePage {
  public:
    WebPage(QWidget* parent, bool editor) : view_(new QWebEngineView(parent)) {
        page_ = new Page(view_, *this, editor);
        // The page's own scripts do not run while it is edited; ours run in a world apart.
        if (editor) page_->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
        view_->setPage(page_);
        QObject::connect(view_, &QWebEngineView::loadStarted, view_, [this] {
            if (loadStarted) loadStarted();
        });
        QObject::connect(view_, &QWebEngineView::loadFinished, view_, [this](bool ok) {
            if (loadFinished) loadFinished(ok);
        });
    }
    ~WebPage() override { delete view_.data(); }

    QWidget* widget() override { return view_; }
    void setHtml(const QString& html, const QUrl& base) override { page_->setHtml(html, base); }
    void load(const QUrl& url) override { view_->load(url); }
    QUrl url() const override { return view_->url(); }
    void runScript(const QString& script, std::function<void(const QVariant&)> answer) override {
        // Every call takes an answer, even one nobody reads: calls without one upset the order
        // in which the engine hands answers back.
        page_->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                             [answer = std::move(answer)](const QVariant& value) {
                                 if (answer) answer(value);
                             });
    }
    void trigger(Action action) override {
        static const QWebEnginePage::WebAction actions[] = {
            QWebEnginePage::Copy, QWebEnginePage::Cut,  QWebEnginePage::Paste,
            QWebEnginePage::Undo, QWebEnginePage::Redo, QWebEnginePage::SelectAll};
        page_->triggerAction(actions[action]);
    }
    bool canGoBack() const override { return view_->history()->canGoBack(); }
    bool canGoForward() const override { return view_->history()->canGoForward(); }
    void back() override { view_->back(); }
    void forward() override { view_->forward(); }
    void stop() override { view_->stop(); }
    void reload() override { view_->reload(); }

  private:
    // The view may go with its window before the page object does.
    QPointer<QWebEngineView> view_;
    Page* page_;
};

class WebEngine : public Engine {
  public:
    std::unique_ptr<EnginePage> createEditor(QWidget* parent) override {
        return std::make_unique<WebPage>(parent, true);
    }
    std::unique_ptr<EnginePage> createBrowser(QWidget* parent) override {
        return std::make_unique<WebPage>(parent, false);
    }
};
} // namespace

} // namespace tsl

extern "C" Q_DECL_EXPORT tsl::Engine* tessalineCreateEngine() {
    static tsl::WebEngine engine;
    return &engine;
}
