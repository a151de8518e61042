#include "stylesheets/style_folder.h"
#include "platform/platform.h"
#include "stylesheets/style_session.h"
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tsl {

StyleSession& styleSession() {
    static StyleSession session;
    return session;
}

void resetStyleSession() {
    styleSession() = StyleSession();
}

QString stylesFolder(Platform& platform) {
    const QString program = platform.applicationFolder();
    // A build folder holds the build system's cache beside the program.
    if (QFileInfo::exists(program + QStringLiteral("/CMakeCache.txt")))
        return program + QStringLiteral("/styles");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                           QStringLiteral("/styles");
    QDir().mkpath(folder);
    return folder;
}

QString styleFile(Platform& platform, const QString& name) {
    return stylesFolder(platform) + QLatin1Char('/') + name + QStringLiteral(".def");
}

} // namespace tsl
