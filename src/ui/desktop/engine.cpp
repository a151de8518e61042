#include "ui/desktop/engine.h"
#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <QOpenGLContext>

// The toolkit's own setter of the context that its windows share, the one it makes at start
// when asked to before the application exists.
void qt_gl_set_global_share_context(QOpenGLContext* context);

namespace tsl {

namespace {
QString lastError;

// The browser engine draws through a graphics context shared with the windows. Made at start,
// it would load the graphics stack (tens of megabytes) into every run, though most runs never
// show a page; it is made here, just before the engine, instead.
QtMessageHandler otherMessages = nullptr;

// The engine's complaint that the context was not asked for at start says nothing a user
// could act on: it is the point of making it late.
void quietAboutLateContext(QtMsgType type, const QMessageLogContext& where, const QString& text) {
    if (type == QtWarningMsg && text.contains(QLatin1String("AA_ShareOpenGLContexts"))) return;
    if (otherMessages) otherMessages(type, where, text);
}

void shareGraphicsContext() {
    if (QOpenGLContext::globalShareContext()) return;
    otherMessages = qInstallMessageHandler(quietAboutLateContext);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // Shared even where it could not be made (no graphics stack): the engine asks it for its
    // format and then draws without one, as it would with the context the toolkit makes.
    auto* context = new QOpenGLContext(QCoreApplication::instance());
    context->setFormat(QSurfaceFormat::defaultFormat());
    context->create();
    qt_gl_set_global_share_context(context);
}

Engine* loadEngine() {
    shareGraphicsContext();
    // Beside the program, or one folder up for the test programs of a build.
    const QString app = QCoreApplication::applicationDirPath();
    for (const QString& folder : {app, app + QStringLiteral("/..")}) {
        QLibrary library(QDir(folder).filePath(QStringLiteral("tessaline_web")));
        if (!library.load()) {
            lastError = library.errorString();
            continue;
        }
        using Create = tsl::Engine* (*)();
        if (auto create = reinterpret_cast<Create>(library.resolve("tessalineCreateEngine")))
            return create(); // the library stays loaded for the rest of the run
        lastError = library.errorString();
    }
    return nullptr;
}
} // namespace

Engine* engine() {
    static Engine* const loaded = loadEngine();
    return loaded;
}

QString engineError() {
    return lastError;
}

} // namespace tsl
