// Typing in a large document: the mean and worst time of one key (press and release, with
// everything the document does for it) in a page of about a megabyte. Runs offscreen.
#include "large_page.h"
#include <QElapsedTimer>
#include <QKeyEvent>
#include <algorithm>
#include <cstdio>

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    bench::LargePage page;
    tsl::QtSourcePane& pane = page.pane();
    tsl::CodeBox* box = &page.box();
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
