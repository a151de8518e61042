// Start-up of the real program: the time from the process's start to the main window on the
// screen, and the resident memory then. Run by scripts/bench-startup.sh, which passes the
// moment it started the process (nanoseconds since the epoch).
#include "shell/settings_store.h"
#include "ui/window/main_window.h"
#include "ui/desktop/qt_platform.h"
#include "ui/desktop/splash.h"
#include "ui/window/workbench.h"
#include <QApplication>
#include <QFile>
#include <QSplashScreen>
#include <QTimer>
#include <cstdio>
#include <ctime>

namespace {
long long nowNanoseconds() {
    timespec ts{};
    clock_gettime(CLOCK_REALTIME, &ts);
    return static_cast<long long>(ts.tv_sec) * 1000000000LL + ts.tv_nsec;
}

QByteArray statusLine(const char* key) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(key)) return line.mid(static_cast<int>(qstrlen(key))).trimmed();
    return {};
}

bool webEngineMapped() {
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("WebEngine");
}
} // namespace

int main(int argc, char* argv[]) {
    const long long started = argc > 1 ? QByteArray(argv[1]).toLongLong() : nowNanoseconds();
    const auto mark = [started](const char* what) {
        std::printf("  %-28s %.1f ms\n", what, (nowNanoseconds() - started) / 1e6);
    };
    mark("main entered");
    QApplication app(argc, argv);
    mark("application made");
    QSplashScreen splash(tsl::splashPicture());
    splash.show();
    splash.repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    mark("splash shown");
    tsl::QtPlatform platform;
    tsl::QSettingsStore settings;
    tsl::Workbench workbench(platform, settings);
    platform.setMainWindow(&workbench.window());
    mark("window built");
    workbench.load(QString());
    mark("loaded");
    // Shown before the splash goes: finishing on a window not yet on screen waits for it.
    workbench.window().show();
    splash.finish(&workbench.window());
    QTimer::singleShot(0, [&] {
        // The first turn of the event loop after show(): the window has been painted.
        const double ms = (nowNanoseconds() - started) / 1e6;
        std::printf("start to main window shown: %.1f ms\n", ms);
        std::printf("resident memory then: %s\n", statusLine("VmRSS:").constData());
        std::printf("QtWebEngine mapped: %s\n", webEngineMapped() ? "yes" : "no");
        QApplication::quit();
    });
    return QApplication::exec();
}
