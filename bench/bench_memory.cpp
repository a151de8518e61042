// Memory of the real program in one situation, read from the kernel once it has settled:
// resident (RSS) and proportional (PSS) memory. Run by scripts/bench-memory.sh, once for each
// situation, each in a process of its own:
//   start            the main window shown
//   open FILE        FILE opened from the command line
//   undo FILE        FILE opened, then 25 edits that each make an undo step
//   save FILE        FILE opened, one character typed, then saved in place
//   layout           the first switch of "Document 1" to Layout, once the page is in
#include "shell/code_editor.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/layout/layout_surface.h"
#include "ui/window/main_window.h"
#include "ui/desktop/qt_platform.h"
#include "ui/window/workbench.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <cstdio>
#include <unistd.h>

namespace {
// Kilobytes of a line of /proc/self/smaps_rollup.
long long rollup(const char* key) {
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith(key))
            return line.mid(qstrlen(key)).trimmed().split(' ').first().toLongLong();
    return -1;
}

void settle(int ms) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < ms)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

// Kilobytes of the highest resident size so far: the peak of an open or a save.
long long peakResident() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').first().toLongLong();
    return -1;
}

void report(const QByteArray& what) {
    std::printf("%-34s RSS %7.1f MiB   PSS %7.1f MiB   peak RSS %7.1f MiB\n", what.constData(),
                rollup("Rss:") / 1024.0, rollup("Pss:") / 1024.0, peakResident() / 1024.0);
}
} // namespace

int main(int argc, char* argv[]) {
    // As the program does: the browser engine refuses its sandbox to the superuser.
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QApplication app(argc, argv);
    const QByteArray mode = argc > 1 ? argv[1] : "start";
    const QString file = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    tsl::QtPlatform platform;
    tsl::MemorySettingsStore settings;
    tsl::Workbench workbench(platform, settings);
    platform.setMainWindow(&workbench.window());
    workbench.load(mode == "open" || mode == "undo" || mode == "save" ? file : QString());
    workbench.window().show();
    settle(500);
    tsl::codeEditor& doc = *workbench.shell().ActiveForm();
    QByteArray what = mode;
    if (mode == "undo") {
        tsl::SourcePane& pane = doc.codebox();
        for (int i = 0; i < 25; ++i) {
            workbench.shell().dispatch([&] {
                pane.setSelStart(i * 100);
                pane.setSelText(QStringLiteral("x"));
                doc.AddStep();
            });
        }
        what += " (" + QByteArray::number(doc.nTopIndex) + " steps)";
    } else if (mode == "save") {
        workbench.shell().dispatch([&] {
            doc.codebox().setSelStart(0);
            doc.codebox().setSelText(QStringLiteral(" "));
            workbench.shell().mnuFileSave_Click();
        });
    } else if (mode == "layout") {
        workbench.shell().dispatch([&] { doc.tabEditor.SelectTab(2); });
        auto& layout = dynamic_cast<tsl::QtLayoutSurface&>(doc.DHTMLEdit1());
        QElapsedTimer clock;
        clock.start();
        while (!layout.isReady() && clock.elapsed() < 30000)
            QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    settle(1000);
    if (!file.isEmpty()) what += " " + QFile::encodeName(file).split('/').last();
    report(what);
    return 0;
}
