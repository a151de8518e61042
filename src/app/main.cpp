// Tessaline: the splash while the main window loads, then the main window.
#include "editor/file_system.h"
#include "shell/settings_store.h"
#include "ui/window/main_window.h"
#include "ui/desktop/qt_platform.h"
#include "ui/desktop/splash.h"
#include "ui/window/workbench.h"
#include <QApplication>
#include <QSplashScreen>
#include <unistd.h>

int main(int argc, char* argv[]) {
    // The browser engine refuses to start its sandbox for the superuser.
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tessaline"));
    QApplication::setOrganizationName(QStringLiteral("Tessaline"));

    QSplashScreen splash(tsl::splashPicture());
    splash.show();
    splash.repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);

    tsl::QtPlatform platform;
    tsl::QSettingsStore settings;
    tsl::Workbench workbench(platform, settings);
    platform.setMainWindow(&workbench.window());

    // The whole command line is one file name, blanks and quotes as they stand, its bytes
    // kept even where they are not valid UTF-8.
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(tsl::fileNameFromBytes(QByteArray(argv[i])));
    workbench.load(words.join(QLatin1Char(' ')));

    // Shown before the splash goes: finishing on a window not yet on screen waits for it.
    workbench.window().show();
    splash.finish(&workbench.window());
    return QApplication::exec();
}
