// Search speed: Extended Replace over 2,000 files of 20 KB against `sed -i` on an identical
// copy, and Find Next and Replace All in a 32 KB document in the real Source pane. Runs
// offscreen.
#include "editor/text_pane.h"
#include "platform/platform.h"
#include "platform/printer_device.h"
#include "platform/url_transfer.h"
#include "search/find_replace.h"
#include "search/replace_in_files.h"
#include "ui/source/source_editor.h"
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

namespace {
// Answers every box with OK and shows nothing.
class SilentPlatform : public tsl::Platform {
  public:
    tsl::MsgResult messageBox(const tsl::MessageBoxRequest&) override { return tsl::MsgResult::OK; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override {
        return std::nullopt;
    }
    bool showOpen(tsl::CommonDialog&) override { return false; }
    bool showSave(tsl::CommonDialog&) override { return false; }
    bool showColor(tsl::CommonDialog&) override { return false; }
    std::optional<QString> browseForFolder(const QString&) override { return std::nullopt; }
    QString clipboardText() override { return {}; }
    void setClipboardText(const QString&) override {}
    void beep() override {}
    QDateTime now() override { return QDateTime::currentDateTime(); }
    bool shellOpen(const QString&) override { return false; }
    bool startProgram(const QString&, const QStringList&) override { return false; }
    bool startCommandLine(const QString&, const QStringList&) override { return false; }
    struct NoTransfer : tsl::UrlTransfer {
        QString OpenURL(const QString&) override { fail(QStringLiteral("No network")); }
    } transfer_;
    tsl::UrlTransfer& transfer() override { return transfer_; }
    std::unique_ptr<tsl::PrinterDevice> defaultPrinter() override { return nullptr; }
    void showHelp(const QString&) override {}
    QString tempFolder() override { return QDir::tempPath(); }
    QStringList fontNames() override { return {}; }
    QString applicationFolder() override { return {}; }
};

QStringList makeFiles(const QString& folder, int count) {
    QByteArray page;
    const QByteArray row = "<p>Some foo text in a paragraph of the page, foo and more</p>\r\n";
    while (page.size() < 20 * 1024)
        page += row;
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString path = folder + QStringLiteral("/page%1.htm").arg(i);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) return {};
        file.write(page);
        files.append(path);
    }
    return files;
}

double millis(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}
} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    SilentPlatform platform;
    QTemporaryDir ours;
    QTemporaryDir theirs;
    const QStringList files = makeFiles(ours.path(), 2000);
    makeFiles(theirs.path(), 2000);

    // Both runs count until their files are on the disk: ours flushes at its end, sed is
    // followed by sync. Each starts with nothing else waiting to be written.
    const auto sync = [] { QProcess::execute(QStringLiteral("sync"), {}); };
    QElapsedTimer timer;
    sync();
    timer.start();
    tsl::ReplaceInFiles(files, QStringLiteral("foo"), QStringLiteral("bar"), 0, platform, {});
    const double replace = millis(timer);
    sync();
    timer.restart();
    QProcess::execute(
        QStringLiteral("sh"),
        {QStringLiteral("-c"),
         QStringLiteral("find '%1' -name '*.htm' -exec sed -i 's/foo/bar/g' {} + && sync")
             .arg(theirs.path())});
    const double sed = millis(timer);
    std::printf("Extended Replace, 2000 files of 20 KB: %.0f ms (sed -i and sync: %.0f ms)\n",
                replace, sed);

    QString text;
    while (text.size() < 32000)
        text += QStringLiteral("<p>a line with foo in it, foo twice</p>\n");
    // The real Source pane, as the search meets it in the program.
    tsl::QtSourcePane pane;
    pane.setText(text);
    tsl::FindState state;
    state.FindText = QStringLiteral("missing");
    timer.restart();
    tsl::FindNextMatch(state, pane, 0, platform);
    std::printf("Find Next through 32 KB: %.2f ms\n", millis(timer));

    pane.setText(text.left(32000));
    pane.setSelStart(0);
    state.FindText = QStringLiteral("foo");
    state.FindChanged = true;
    timer.restart();
    const int count = tsl::ReplaceAllMatches(state, pane, QStringLiteral("bar"), platform);
    std::printf("Replace All of %d matches in 32 KB: %.2f ms\n", count, millis(timer));
    return 0;
}
