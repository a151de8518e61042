// Opening and saving large files: the time to read, decode and load a page of 10 MB and of
// 100 MB into the real Source pane, and to encode and write it back, for LF and CRLF line ends.
// Decoding and encoding are also timed on their own. Runs offscreen.
#include "editor/text_file.h"
#include "shell/code_editor.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/window/main_window.h"
#include "ui/desktop/qt_platform.h"
#include "ui/source/source_editor.h"
#include "ui/window/workbench.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

// Rows of an HTML table until the file has the size asked for.
bool writePage(const QString& path, qint64 megabytes, bool crlf) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    const QByteArray end = crlf ? "\r\n" : "\n";
    const QByteArray row =
        "<tr><td class=\"cell\">Some text in a table cell</td><td>42</td></tr>" + end;
    QByteArray chunk;
    while (chunk.size() < (1 << 20))
        chunk += row;
    for (qint64 written = 0; written < megabytes << 20; written += chunk.size())
        if (file.write(chunk) != chunk.size()) return false;
    return true;
}

// The best of a few runs, in milliseconds.
double bestOf(int runs, const std::function<void()>& work) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, timer.nsecsElapsed() / 1e6);
    }
    return best;
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    tsl::QtPlatform platform;
    tsl::MemorySettingsStore settings;
    tsl::Workbench workbench(platform, settings);
    workbench.load(QString());
    workbench.window().show();
    QApplication::processEvents();
    tsl::SourcePane& pane = workbench.shell().ActiveForm()->codebox();

    std::printf("%-10s %6s %10s %10s %10s %10s\n", "file", "lines", "decode ms", "open ms",
                "encode ms", "save ms");
    for (const qint64 megabytes : {10, 100}) {
        for (const bool crlf : {false, true}) {
            const QString path = dir.filePath(QStringLiteral("page.htm"));
            const QString copy = dir.filePath(QStringLiteral("saved.htm"));
            if (!writePage(path, megabytes, crlf)) return 1;
            const int runs = megabytes > 10 ? 2 : 3;
            const QByteArray bytes = tsl::readFileBytes(path);
            tsl::DecodedText decoded;
            const double decode = bestOf(runs, [&] { decoded = tsl::decodeText(bytes); });
            const double open = bestOf(runs, [&] {
                pane.LoadFile(path, 1);
                QApplication::processEvents();
            });
            QByteArray encoded;
            const double encode =
                bestOf(runs, [&] { encoded = tsl::encodeText(decoded.text, decoded.format); });
            const double save = bestOf(runs, [&] { pane.SaveFile(copy, 1); });
            if (encoded != bytes || tsl::readFileBytes(copy) != bytes) {
                std::printf("the file did not come back byte for byte\n");
                return 1;
            }
            std::printf("%3lld MB %-4s %8lld %10.1f %10.1f %10.1f %10.1f\n",
                        static_cast<long long>(megabytes), crlf ? "CRLF" : "LF",
                        static_cast<long long>(bytes.count('\n')), decode, open, encode, save);
            std::fflush(stdout);
            pane.setText(QString());
            QFile::remove(path);
            QFile::remove(copy);
        }
    }
    return 0;
}
