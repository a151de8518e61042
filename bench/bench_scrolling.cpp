// Scrolling a large document in the Source pane: the mean and worst time of one Page Down, one
// notch of the wheel and one jump of the scroll bar, each painted, in a page of about a
// megabyte, wrapped and not; with "line", in a page of one 4 MB line, where a typed key is
// timed too. Runs offscreen.
#include "large_page.h"
#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScrollBar>
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
    bench::LargePage page(argc > 1 && qstrcmp(argv[1], "line") == 0);
    tsl::QtSourcePane& pane = page.pane();
    QAbstractScrollArea* box = &page.box();
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
