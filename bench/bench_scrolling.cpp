// Scrolling a large document in the Source pane: the mean and worst time of one Page Down, one
// notch of the wheel and one jump of the scroll bar, each painted, in a page of about a
// megabyte, wrapped and not; with "line", in a page of one 4 MB line, where a typed key is
// timed too. Runs offscreen.
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/main_window.h"
#include "ui/qt_platform.h"
#include "ui/source_editor.h"
#include "ui/workbench.h"
#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {
void measure(const char* what, int times, const std::function<void(int)>& step) {
    std::vector<double> ms;
    for (int i = 0; i < times; ++i) {
        QElapsedTimer timer;
        timer.start();
        step(i);
        QApplication::processEvents();
        ms.push_back(timer.nsecsElapsed() / 1e6);
    }
    double sum = 0;
    for (double t : ms)
        sum += t;
    std::sort(ms.begin(), ms.end());
    std::printf("%-28s mean %.3f ms, median %.3f ms, worst %.3f ms\n", what, sum / times,
                ms[ms.size() / 2], ms.back());
}
} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("large.htm"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) return 1;
        const bool oneLine = argc > 1 && qstrcmp(argv[1], "line") == 0;
        QByteArray row = "<tr><td class=\"cell\">Some text in a table cell</td><td>42</td></tr>";
        if (!oneLine) row += '\n';
        for (int i = 0; i < (oneLine ? 60000 : 15000); ++i)
            file.write(row);
    }
    tsl::QtPlatform platform;
    tsl::MemorySettingsStore settings;
    tsl::Workbench workbench(platform, settings);
    workbench.load(path);
    workbench.window().show();
    QApplication::processEvents();
    auto& pane = dynamic_cast<tsl::QtSourcePane&>(workbench.shell().ActiveForm()->codebox());
    QAbstractScrollArea* box = pane.widget();
    box->setFocus();
    for (bool wrap : {true, false}) {
        pane.setRightMargin(wrap ? 0 : 100000);
        pane.setSelStart(0);
        QApplication::processEvents();
        std::printf("%s\n", wrap ? "wrapped" : "not wrapped");
        measure("Page Down", 300, [&](int) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
            QApplication::sendEvent(box, &press);
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_PageDown, Qt::NoModifier);
            QApplication::sendEvent(box, &release);
        });
        measure("wheel notch", 300, [&](int i) {
            const QPointF at(50, 50);
            QWheelEvent wheel(at, box->viewport()->mapToGlobal(at), QPoint(),
                              QPoint(0, i < 150 ? 120 : -120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(box->viewport(), &wheel);
        });
        QScrollBar* bar = box->verticalScrollBar();
        measure("scroll bar jump", 100,
                [&](int i) { bar->setValue(bar->maximum() * ((i * 37) % 100) / 100); });
        measure("typed key", 100, [&](int) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
            QApplication::sendEvent(box, &press);
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
            QApplication::sendEvent(box, &release);
        });
    }
    return 0;
}
