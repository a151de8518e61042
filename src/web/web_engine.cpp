// The browser engine on QtWebEngine, built as a library of its own and loaded on first use.
#include "ui/desktop/engine.h"
#include <QPointer>
#include <QWebEngineFindTextResult>
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
    // The program itself is about to load a page into this one.
    void expectOwnLoad() { ownLoad_ = true; }
    void loadEnded() {
        ownLoad_ = false;
        userNavigation_ = false;
    }

  protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int,
                                  const QString&) override {
        if (owner_.consoleMessage) owner_.consoleMessage(message);
    }
    // The page being edited stays the user's page: once the program's own load has begun,
    // nothing moves it elsewhere (a refresh, a link, a form, a script), or a Save would write
    // that other page into the user's file. The browser follows what the user does (a link, a
    // form, back, reload) and the redirects of that, but not a page that moves by itself.
    bool acceptNavigationRequest(const QUrl&, NavigationType type, bool main) override {
        if (!main) return !editor_ || type != NavigationTypeLinkClicked;
        if (ownLoad_) {
            // One navigation is the program's own; whatever the page does next is not.
            ownLoad_ = false;
            return true;
        }
        if (editor_) return false;
        switch (type) {
        case NavigationTypeLinkClicked:
        case NavigationTypeFormSubmitted:
        case NavigationTypeBackForward:
        case NavigationTypeReload:
        case NavigationTypeTyped:
            userNavigation_ = true;
            return true;
        case NavigationTypeRedirect:
            if (userNavigation_) return true;
            break;
        default:
            break;
        }
        return false;
    }

  private:
    EnginePage& owner_;
    bool editor_;
    bool ownLoad_ = false;
    bool userNavigation_ = false;
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
            page_->loadEnded();
            if (loadFinished) loadFinished(ok);
        });
    }
    ~WebPage() override { delete view_.data(); }

    QWidget* widget() override { return view_; }
    void setHtml(const QString& html, const QUrl& base) override {
        page_->expectOwnLoad();
        page_->setHtml(html, base);
    }
    void load(const QUrl& url) override {
        page_->expectOwnLoad();
        view_->load(url);
    }
    QUrl url() const override { return view_->url(); }
    void runScript(const QString& script, std::function<void(const QVariant&)> answer) override {
        // Every call takes an answer, even one nobody reads: calls without one upset the order
        // in which the engine hands answers back.
        page_->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                             [answer = std::move(answer)](const QVariant& value) {
                                 if (answer) answer(value);
                             });
    }
    void findText(const QString& text, bool backward, bool matchCase,
                  std::function<void(bool)> found) override {
        QWebEnginePage::FindFlags flags;
        if (backward) flags |= QWebEnginePage::FindBackward;
        if (matchCase) flags |= QWebEnginePage::FindCaseSensitively;
        page_->findText(text, flags, [found = std::move(found)](const QWebEngineFindTextResult& r) {
            if (found) found(r.numberOfMatches() > 0);
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
    void reload() override {
        page_->expectOwnLoad();
        view_->reload();
    }
    void print(QPrinter* printer, std::function<void(bool)> done) override {
        auto once = std::make_shared<QMetaObject::Connection>();
        *once = QObject::connect(view_, &QWebEngineView::printFinished, view_,
                                 [once, done = std::move(done)](bool ok) {
                                     QObject::disconnect(*once);
                                     if (done) done(ok);
                                 });
        view_->print(printer);
    }

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
