// Typing in a large document: the mean and worst time of one key (press and release, with
// everything the document does for it) in a page of about a megabyte. Runs offscreen.
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/main_window.h"
#include "ui/qt_platform.h"
#include "ui/source_editor.h"
#include "ui/workbench.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("large.htm"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) return 1;
        QByteArray row = "<tr><td class=\"cell\">Some text in a table cell</td><td>42</td></tr>\n";
        for (int i = 0; i < 15000; ++i)
            file.write(row);
    }
    tsl::QtPlatform platform;
    tsl::MemorySettingsStore settings;
    tsl::Workbench workbench(platform, settings);
    workbench.load(path);
    workbench.window().show();
    QApplication::processEvents();
    auto& pane = dynamic_cast<tsl::QtSourcePane&>(workbench.shell().ActiveForm()->codebox());
    tsl::CodeBox* box = pane.widget();
    box->setFocus();
    box->setSelection(pane.length() / 2, pane.length() / 2);

    const int keys = 300;
    std::vector<double> times;
    for (int i = 0; i < keys; ++i) {
        const QString text(QChar('a' + i % 26));
        const int key = Qt::Key_A + i % 26;
        QElapsedTimer timer;
        timer.start();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(box, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QApplication::sendEvent(box, &release);
        QApplication::processEvents();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    double sum = 0;
    for (double t : times)
        sum += t;
    std::sort(times.begin(), times.end());
    std::printf("document: %d characters\n", pane.length());
    std::printf("one key: mean %.3f ms, median %.3f ms, worst %.3f ms\n", sum / keys,
                times[times.size() / 2], times.back());
    return 0;
}
