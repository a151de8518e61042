#include "ui/layout/layout_surface.h"
#include "editor/text_file.h"
#include "runtime/runtime_error.h"
#include "ui/desktop/qt_printer.h"
#include "ui/layout/find_bar.h"
#include "ui/layout/layout_script.h"
#include <QBoxLayout>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QFontDialog>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLayout>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryFile>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace tsl {

namespace {
// The engine takes a page given inline as a percent-encoded address of at most 2 MiB; a larger
// page shows blank. Such pages go through a file beside the document instead.
constexpr qsizetype kInlineAddressLimit = 2 * 1024 * 1024 - 4096;
const QString kLargePageFile = QStringLiteral("~tssln2.htm");

// The length of the page as the engine's inline address, without building it.
qsizetype inlineAddressLength(const QByteArray& utf8) {
    qsizetype length = 0;
    for (const char c : utf8) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' || c == '~';
        length += plain ? 1 : 3;
    }
    return length;
}

QString quoted(const QString& text) {
    return QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("v"), text}})
                                 .toJson(QJsonDocument::Compact))
        .mid(5)
        .chopped(1);
}

QUrl folderUrl(const QString& folder) {
    if (folder.isEmpty() || !QFileInfo(folder).isAbsolute() || !QFileInfo(folder).isDir())
        return QUrl(QStringLiteral("about:blank"));
    return QUrl::fromLocalFile(QDir(folder).absolutePath() + QLatin1Char('/'));
}

// Colours come as the logic's numbers: red in the low byte.
QString cssColour(const QString& number) {
    const unsigned c = number.toUInt();
    return QStringLiteral("#%1%2%3")
        .arg(c & 0xFF, 2, 16, QLatin1Char('0'))
        .arg((c >> 8) & 0xFF, 2, 16, QLatin1Char('0'))
        .arg((c >> 16) & 0xFF, 2, 16, QLatin1Char('0'));
}

QString blockTag(const QString& style) {
    static const QHash<QString, QString> tags = {
        {QStringLiteral("Normal"), QStringLiteral("p")},
        {QStringLiteral("Formatted"), QStringLiteral("pre")},
        {QStringLiteral("Address"), QStringLiteral("address")},
        {QStringLiteral("Definition Term"), QStringLiteral("dt")},
        {QStringLiteral("Definition"), QStringLiteral("dd")},
        {QStringLiteral("Directory List"), QStringLiteral("dir")},
        {QStringLiteral("Menu List"), QStringLiteral("menu")}};
    if (style.startsWith(QLatin1String("Heading ")))
        return QStringLiteral("h") + style.mid(8).trimmed();
    return tags.value(style, QStringLiteral("p"));
}
} // namespace

QtLayoutSurface::QtLayoutSurface() = default;

QtLayoutSurface::~QtLayoutSurface() = default;

namespace {
// The engine's library could not be loaded: say so once, and the view stays empty.
std::unique_ptr<EnginePage> makePage(QWidget* host, bool editor) {
    Engine* web = engine();
    if (!web) {
        static bool told = false;
        if (!told)
            QMessageBox::warning(host, QStringLiteral("Tessaline"),
                                 QStringLiteral("The browser engine could not be loaded: ") +
                                     engineError());
        told = true;
        return nullptr;
    }
    std::unique_ptr<EnginePage> page = editor ? web->createEditor(host) : web->createBrowser(host);
    if (host->layout()) host->layout()->addWidget(page->widget());
    return page;
}
} // namespace

void QtLayoutSurface::ensurePage() {
    if (page_ || !host_) return;
    page_ = makePage(host_, true);
    if (!page_) return;
    page_->widget()->setObjectName(QStringLiteral("DHTMLEdit1"));
    // The page waits while its message is handled: the handler runs after it has returned.
    page_->consoleMessage = [this](const QString& message) {
        if (!message.startsWith(QLatin1String("tsl:"))) return;
        QMetaObject::invokeMethod(
            this, [this, m = message.mid(4)] { onMessage(m); }, Qt::QueuedConnection);
    };
    page_->loadFinished = [this](bool ok) { onLoaded(ok); };
}

void QtLayoutSurface::scheduleLoad() {
    ready_ = false;
    if (loadPending_) return;
    loadPending_ = true;
    // The page loads once the handler has set both the text and the folder.
    QTimer::singleShot(0, this, &QtLayoutSurface::load);
}

void QtLayoutSurface::load() {
    loadPending_ = false;
    if (!visible_) return;
    ensurePage();
    if (!page_) return;
    loading_ = true;
    const QUrl base = folderUrl(BaseURL());
    const QByteArray utf8 = html_.toUtf8();
    if (inlineAddressLength(utf8) <= kInlineAddressLimit) {
        page_->setHtml(html_, base);
        return;
    }
    // Beside the document, so that relative images resolve; an untitled document, or one in a
    // folder that cannot be written, uses a file of its own in the temporary folder.
    if (base.isLocalFile()) {
        const QString path = base.toLocalFile() + kLargePageFile;
        try {
            writeFileBytes(path, utf8);
            page_->load(QUrl::fromLocalFile(path));
            return;
        } catch (const RuntimeError&) {
        }
    }
    largePage_ = std::make_unique<QTemporaryFile>(QDir::tempPath() +
                                                  QStringLiteral("/tessaline-XXXXXX.htm"));
    if (largePage_->open() && largePage_->write(utf8) == utf8.size() && largePage_->flush()) {
        page_->load(QUrl::fromLocalFile(largePage_->fileName()));
        return;
    }
    // Nowhere to put the page: the view stays blank, and the text stays as it was.
    loading_ = false;
}

void QtLayoutSurface::onLoaded(bool ok) {
    // Only the program's own load counts; a page that failed to load shows nothing of the
    // user's text and must never be read back in its place.
    if (!loading_) return;
    loading_ = false;
    if (!ok) return;
    run(kLayoutScript, true);
    run(QStringLiteral("__tsl.borders(%1)").arg(ShowBorders() ? "true" : "false"), true);
    ready_ = true;
    emit ready();
}

void QtLayoutSurface::onMessage(const QString& message) {
    const QJsonObject state = QJsonDocument::fromJson(message.toUtf8()).object();
    dirty_ = state.value(QStringLiteral("dirty")).toBool();
    const QJsonObject states = state.value(QStringLiteral("states")).toObject();
    for (auto it = states.begin(); it != states.end(); ++it)
        statuses_.insert(it.key().toInt(), it.value().toInt());
    const QJsonObject values = state.value(QStringLiteral("values")).toObject();
    for (auto it = values.begin(); it != values.end(); ++it)
        values_.insert(it.key().toInt(), it.value().toVariant().toString());
    if (dispatch_)
        dispatch_([this] { raiseDisplayChanged(); });
    else
        raiseDisplayChanged();
}

QVariant QtLayoutSurface::evaluate(const QString& script) const {
    if (!page_ || !ready_) return {};
    struct Answer {
        QVariant value;
        bool done = false;
        QEventLoop loop;
    };
    auto answer = std::make_shared<Answer>();
    page_->runScript(script, [answer](const QVariant& value) {
        answer->value = value;
        answer->done = true;
        answer->loop.quit();
    });
    if (!answer->done) {
        QTimer::singleShot(5000, &answer->loop, &QEventLoop::quit);
        answer->loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return answer->value;
}

void QtLayoutSurface::run(const QString& script, bool evenIfLoading) {
    if (page_ && (ready_ || evenIfLoading)) page_->runScript(script, nullptr);
}

QString QtLayoutSurface::DocumentHTML() const {
    const QVariant html = evaluate(QStringLiteral("__tsl.html()"));
    if (html.isValid()) const_cast<QtLayoutSurface*>(this)->html_ = html.toString();
    return html_;
}

void QtLayoutSurface::setDocumentHTML(const QString& html) {
    html_ = html;
    dirty_ = false;
    statuses_.clear();
    scheduleLoad();
}

void QtLayoutSurface::setBaseURL(const QString& folder) {
    LayoutSurface::setBaseURL(folder);
    scheduleLoad();
}

bool QtLayoutSurface::IsDirty() const {
    const QVariant dirty = evaluate(QStringLiteral("__tsl.dirty()"));
    if (dirty.isValid()) dirty_ = dirty.toBool();
    return dirty_;
}

void QtLayoutSurface::setVisible(bool on) {
    visible_ = on;
    // The engine comes with the load, after the handler: a style sheet, sent straight back to
    // Source, never starts it.
    if (on && !ready_) scheduleLoad();
}

void QtLayoutSurface::setShowBorders(bool on) {
    LayoutSurface::setShowBorders(on);
    run(QStringLiteral("__tsl.borders(%1)").arg(on ? "true" : "false"));
}

void QtLayoutSurface::NewDocument() {
    html_.clear();
    dirty_ = false;
    statuses_.clear();
    ready_ = false;
    loading_ = false;
    if (page_) page_->setHtml(QString(), QUrl(QStringLiteral("about:blank")));
    largePage_.reset();
}

void QtLayoutSurface::SetFocus() {
    if (page_) page_->widget()->setFocus();
}

QString QtLayoutSurface::ExecCommand(int id, int, const QString& value) {
    using namespace layoutcmd;
    if (!page_) return {};
    switch (id) {
    case GetBlockFormat:
    case GetFontName:
    case GetFontSize:
        // What the page reported with its last change, with the states of the same moment.
        return values_.value(id);
    // The clipboard and the history are the engine's own.
    case Copy:
        page_->trigger(EnginePage::Copy);
        return {};
    case Cut:
        page_->trigger(EnginePage::Cut);
        return {};
    case Paste:
        page_->trigger(EnginePage::Paste);
        return {};
    case Undo:
        page_->trigger(EnginePage::Undo);
        return {};
    case Redo:
        page_->trigger(EnginePage::Redo);
        return {};
    case SelectAll:
        page_->trigger(EnginePage::SelectAll);
        return {};
    case FontDialog: {
        bool ok = false;
        const QFont font = QFontDialog::getFont(&ok, page_->widget());
        if (ok) run(QStringLiteral("__tsl.exec(5044, %1)").arg(quoted(font.family())));
        return {};
    }
    case SetBlockFormat:
        run(QStringLiteral("__tsl.exec(5043, %1)").arg(quoted(blockTag(value))));
        return {};
    case SetForeColor:
        run(QStringLiteral("__tsl.exec(5046, %1)").arg(quoted(cssColour(value))));
        return {};
    case FindText:
        if (!findBar_ && host_) {
            findBar_ = new FindBar(host_);
            if (auto* column = qobject_cast<QBoxLayout*>(host_->layout()))
                column->insertWidget(0, findBar_);
        }
        if (findBar_) findBar_->open(page_.get());
        return {};
    default:
        run(QStringLiteral("__tsl.exec(%1, %2)").arg(id).arg(quoted(value)));
        return {};
    }
}

QString QtLayoutSurface::selectionText() const {
    return evaluate(QStringLiteral("String(getSelection())")).toString();
}

QString QtLayoutSurface::documentColour(const QString& property) const {
    return evaluate(QStringLiteral("__tsl.colour(%1)").arg(quoted(property))).toString();
}

void QtLayoutSurface::setDocumentColour(const QString& property, const QString& value) {
    // Waits for the page, so that a read of the page right after sees the colour.
    evaluate(QStringLiteral("__tsl.colour(%1, %2)").arg(quoted(property), quoted(value)));
}

void QtLayoutSurface::pasteHTML(const QString& markup) {
    // Waits for the page's answer: markup the page refuses, or a page not ready to take it,
    // is a failure the command reports, never a silent loss.
    const QVariant done = evaluate(QStringLiteral("__tsl.paste(%1)").arg(quoted(markup)));
    if (!done.toBool()) raise(ErrInvalidProcedureCall);
}

// ---- the browser ----

QtBrowserSurface::~QtBrowserSurface() = default;

void QtBrowserSurface::ensurePage() {
    if (page_ || !host_) return;
    page_ = makePage(host_, false);
    if (!page_) return;
    page_->widget()->setObjectName(QStringLiteral("WebBrowser1"));
    page_->loadStarted = [this] {
        if (BeforeNavigate2) BeforeNavigate2();
    };
    page_->loadFinished = [this](bool ok) { emit loadFinished(ok); };
}

void QtBrowserSurface::Navigate(const QString& path) {
    ensurePage();
    if (!page_) return;
    // A name without its folder stands in the program's working folder.
    page_->load(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()));
}

void QtBrowserSurface::GoBack() {
    if (!page_ || !page_->canGoBack()) raise(ErrInvalidProcedureCall);
    page_->back();
}

void QtBrowserSurface::GoForward() {
    if (!page_ || !page_->canGoForward()) raise(ErrInvalidProcedureCall);
    page_->forward();
}

void QtBrowserSurface::Stop() {
    if (page_) page_->stop();
}

void QtBrowserSurface::Refresh() {
    if (page_) page_->reload();
}

} // namespace tsl

namespace tsl {

// ---- printing ----

void QtLayoutSurface::PrintDocument() {
    if (!page_ || !ready_) return;
    std::shared_ptr<QPrinter> printer = makeDefaultPrinter();
    if (printer) printEnginePage(*page_, printer);
}

void QtBrowserSurface::ExecWB(int command, int option) {
    if (command != OLECMDID_PRINT || !page_) return;
    std::shared_ptr<QPrinter> printer = makeDefaultPrinter();
    if (!printer) printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    if (option == OLECMDEXECOPT_PROMPTUSER) {
        QPrintDialog dialog(printer.get(), host_);
        if (dialog.exec() != QDialog::Accepted) raise(ErrCancelled);
    }
    printEnginePage(*page_, printer);
}

} // namespace tsl
