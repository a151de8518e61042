#include "ui/engine.h"
#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

namespace tsl {

namespace {
QString lastError;

Engine* loadEngine() {
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
