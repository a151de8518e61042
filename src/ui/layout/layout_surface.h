#pragma once
// The Layout surface on the browser engine: the page shown editable, the engine's own editing
// commands behind the published command ids. The engine is made on first use, never at
// start-up. The logic reads the page synchronously: a read waits for the page's answer in a
// nested event loop that lets no user input through, so an edit made just before a switch of
// views is never lost. Command states and values are pushed from the page at each change.
// Open to the window, which makes a surface for each document.
#include "editor/surfaces.h"
#include "ui/desktop/engine.h"
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QVariant>

class QWidget;
class QTemporaryFile;

namespace tsl {
class FindBar;
}

namespace tsl {

class QtLayoutSurface : public QObject, public LayoutSurface {
    Q_OBJECT
  public:
    QtLayoutSurface();
    ~QtLayoutSurface() override;
    // The widget the engine's view goes into when it is made.
    void setHost(QWidget* host) { host_ = host; }
    // How the page's events reach the logic: as the user's events, through the dispatcher.
    void setDispatcher(std::function<void(const std::function<void()>&)> dispatch) {
        dispatch_ = std::move(dispatch);
    }
    EnginePage* page() const { return page_.get(); }

    QString DocumentHTML() const override;
    void setDocumentHTML(const QString& html) override;
    void setBaseURL(const QString& folder) override;
    bool IsDirty() const override;
    bool Visible() const override { return visible_; }
    void setVisible(bool on) override;
    void setShowBorders(bool on) override;
    void NewDocument() override;
    void SetFocus() override;
    QString ExecCommand(int id, int option, const QString& value) override;
    int QueryStatus(int id) const override { return statuses_.value(id, NotSupported); }
    void pasteHTML(const QString& markup) override;
    QString selectionText() const override;
    QString documentColour(const QString& property) const override;
    void setDocumentColour(const QString& property, const QString& value) override;
    void PrintDocument() override;
    // The page has loaded and answers: for tests.
    bool isReady() const { return ready_; }

  signals:
    void ready();

  private:
    void ensurePage();
    void scheduleLoad();
    void load();
    void onLoaded(bool ok);
    void onMessage(const QString& message);
    // Runs a script in the page's world of the program and waits for its answer.
    QVariant evaluate(const QString& script) const;
    void run(const QString& script, bool evenIfLoading = false);

    QPointer<QWidget> host_;
    std::unique_ptr<EnginePage> page_;
    std::function<void(const std::function<void()>&)> dispatch_;
    QString html_;
    mutable bool dirty_ = false;
    bool visible_ = false;
    bool loadPending_ = false;
    // The program's own load is under way; the page answers for the text once it has ended well.
    bool loading_ = false;
    bool ready_ = false;
    // The find bar above the page, made on the first find.
    QPointer<FindBar> findBar_;
    // A large page of a document without a writable folder.
    std::unique_ptr<QTemporaryFile> largePage_;
    QHash<int, int> statuses_;
    QHash<int, QString> values_;
};

// The browser of the Preview view, made on first use.
class QtBrowserSurface : public QObject, public BrowserSurface {
    Q_OBJECT
  public:
    ~QtBrowserSurface() override;
    void setHost(QWidget* host) { host_ = host; }
    EnginePage* page() const { return page_.get(); }
    void Navigate(const QString& path) override;
    void GoBack() override;
    void GoForward() override;
    void Stop() override;
    void Refresh() override;
    bool Visible() const override { return visible_; }
    void setVisible(bool on) override { visible_ = on; }
    void ExecWB(int command, int option) override;

  signals:
    void loadFinished(bool ok);

  private:
    void ensurePage();
    QPointer<QWidget> host_;
    std::unique_ptr<EnginePage> page_;
    bool visible_ = false;
};

} // namespace tsl
