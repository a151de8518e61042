// The desktop's services for real: the file dialog, online files over HTTP, printing to PDF.
#include "editor/file_system.h"
#include "platform/common_dialog.h"
#include "print/print_pane_text.h"
#include "ui/desktop/net_transfer.h"
#include "ui/desktop/qt_platform.h"
#include "ui/desktop/qt_printer.h"
#include "ui_helpers.h"
#include <QPrinter>
#include <QTcpServer>
#include <QTcpSocket>
#include <fcntl.h>
#include <unistd.h>

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

namespace {
// Types a name into the next file dialog and presses Return.
void typeIntoTheDialog(const QString& name) {
    auto* timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, name] {
        auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        auto* edit = box ? box->findChild<QLineEdit*>(u"fileNameEdit"_s) : nullptr;
        if (!edit) return;
        timer->deleteLater();
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    timer->start(20);
}

// Shows an Open dialog in `folder` for `name`; answers the dialog as the program reads it.
CommonDialog openDialogIn(QtPlatform& platform, const QString& folder, const QString& name) {
    CommonDialog dialog(platform);
    dialog.Flags = 524802; // Explorer, several files, overwrite prompt: as File > Open sets it
    dialog.InitDir = folder;
    dialog.Filter = u"HTML Files (*.htm)|*.htm|All|*"_s;
    dialog.FilterIndex = 2;
    typeIntoTheDialog(name);
    if (!platform.showOpen(dialog)) dialog.FileName.clear();
    return dialog;
}

const QString kFailed =
    u"Could not open the file you requested. Check your filename and connection."_s;
const QByteArray kPage = "<html>\r\n<body>Gr\xc3\xbc\xc3\x9f"
                         "e from the server</body>\r\n</html>";
const QString kPageText = u"<html>\n<body>Grüße from the server</body>\n</html>"_s;
const QByteArray kSheet = "body { color: red; }\n";
const QByteArray kMissing = "<html><body>404 Not Found</body></html>";

// Answers GET requests for a few paths, others with a 404 page; a silent one never answers.
class SmallHttpServer : public QTcpServer {
  public:
    explicit SmallHttpServer(bool silent = false) {
        connect(this, &QTcpServer::newConnection, this, [this, silent] {
            while (QTcpSocket* socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket, silent] {
                    requests.append(QString::fromLatin1(socket->readAll().split(' ').value(1)));
                    if (!silent) serve(socket, requests.last());
                });
        });
        listen(QHostAddress::LocalHost);
    }
    QString url(const QString& path) const {
        return u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path);
    }
    QStringList requests;

  private:
    static void serve(QTcpSocket* socket, const QString& path) {
        QByteArray status = "200 OK", type = "text/html", body = kPage, extra;
        if (path == QLatin1String("/site.css")) {
            body = kSheet;
            type = "text/css";
        } else if (path == QLatin1String("/moved")) {
            status = "301 Moved Permanently";
            extra = "Location: /page.html\r\n";
        } else if (path != QLatin1String("/page.html")) {
            status = "404 Not Found";
            body = kMissing;
        }
        socket->write("HTTP/1.1 " + status + "\r\nContent-Type: " + type +
                      "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + extra +
                      "Connection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    }
};

// File > Open online file for an address, through a real transfer.
struct Fetch {
    NetTransfer transfer;
    TestShell ts;
    explicit Fetch(const QString& url, int timeoutMs) : transfer(timeoutMs) {
        ts.platform.useTransfer = &transfer;
        ts.load();
        ts.platform.inputAnswers.enqueue(url);
    }
};

QString run(const QString& program, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty()) qFatal("%s is missing: run scripts/install-deps.sh", qPrintable(program));
    QProcess process;
    process.start(path, arguments);
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput()).remove(QRegularExpression(u"\\s"_s));
}

// Numbered lines that wrap and fill pages, and a few words too long for a line.
QString severalPages() {
    QString text;
    for (int i = 0; i < 220; ++i) {
        text += u"%1:"_s.arg(i, 3, 10, QChar(u'0'));
        for (int w = 0; w < i % 23; ++w)
            text += u" w%1x%2"_s.arg(i).arg(w);
        text += u'\n';
        if (i % 31 == 0) text += u'\n';
        if (i % 50 == 7) text += QString(150, QLatin1Char('z')) + u'\n';
    }
    return text;
}
} // namespace

class DesktopServicesTest : public QObject {
    Q_OBJECT

    SmallHttpServer server;
    std::optional<QTemporaryDir> dir;

  private slots:
    void init() { dir.emplace(); }
    void aTypedNameThatDoesNotExistIsTaken() {
        QtPlatform platform;
        const CommonDialog dialog = openDialogIn(platform, dir->path(), u"missing.htm"_s);
        QCOMPARE(dialog.FileName, dir->filePath(u"missing.htm"_s));
        // A dialog with no folder of its own starts where the last one was left.
        QCOMPARE(openDialogIn(platform, QString(), u"other.htm"_s).FileName,
                 dir->filePath(u"other.htm"_s));
        QCOMPARE(dialog.FileTitle, u"missing.htm"_s);
        QCOMPARE(dialog.FilterIndex, 2); // the filter shown, counted from 1
        // The dialog lists a filter's patterns in its brackets; a name without patterns goes.
        QCOMPARE(qtNameFilters(u"HTML Files (*.htm)|*.htm;*.html|All|*|None"_s),
                 (QStringList{"HTML Files (*.htm *.html)", "All (*)"}));
    }

    // A browser's command line as typed, then the page's path as one argument, blanks and all.
    void aPathWithBlanksIsOneArgument() {
        const QString script = dir->filePath(u"browser"_s);
        const QString out = dir->filePath(u"args"_s);
        writeFileBytes(script, "#!/bin/sh\nprintf '%s|' \"$#\" \"$@\" > \"$1.args\"\n");
        QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        QtPlatform platform;
        QVERIFY(
            platform.startCommandLine(script + u" "_s + out, {dir->filePath(u"my page.htm"_s)}));
        QTRY_COMPARE(readFile(out + u".args"_s),
                     "2|" + QFile::encodeName(out) + "|" +
                         QFile::encodeName(dir->filePath(u"my page.htm"_s)) + "|");
    }

    void aNameTheToolkitCannotReadComesBackWhole() {
        const QByteArray raw = QFile::encodeName(dir->path()) + "/caf\xE9.htm";
        const int fd = ::open(raw.constData(), O_WRONLY | O_CREAT, 0644);
        QVERIFY(fd >= 0);
        ::close(fd);
        QtPlatform platform;
        const CommonDialog dialog = openDialogIn(platform, dir->path(), u"caf\uFFFD.htm"_s);
        QCOMPARE(fileNameBytes(dialog.FileName), raw);
    }

    void fetchThroughTheMenu_data() {
        columns<QString, QString, QString>({"path", "text", "css"});
        QTest::newRow("page, decoded as a file is") << "/page.html" << kPageText << "No";
        QTest::newRow("style sheet") << "/site.css" << QString::fromLatin1(kSheet) << "Yes";
        QTest::newRow("error page is the text") << "/gone" << QString::fromLatin1(kMissing) << "No";
        QTest::newRow("redirect followed") << "/moved" << kPageText << "No";
    }
    void fetchThroughTheMenu() {
        QFETCH(QString, path);
        Fetch f(server.url(path), 20000);
        QStringList panel;
        connect(&f.ts->StatusBar1, &Control::changed, this,
                [&] { panel.append(f.ts->StatusBar1.PanelText(1)); });
        QElapsedTimer clock;
        clock.start();
        f.ts.run("mnuNet");
        QVERIFY(clock.elapsed() < 10000); // the answer ends the wait, not the time limit
        QVERIFY(f.ts.platform.messages.isEmpty());
        QCOMPARE(f.ts->documents().size(), size_t(2));
        QTEST(f.ts.active().codebox().Text(), "text");
        QTEST(f.ts.active().CSSDoc, "css");
        QCOMPARE(f.ts.active().lblOnlineFile, u"Yes"_s);
        QCOMPARE(panel, (QStringList{"Looking up host...", "Host found. Waiting for reply...",
                                     "Requesting file...", ""}));
    }

    // No answer: the message, the panel emptied and no window.
    void failedTransfers_data() {
        columns<int>({"kind"});
        QTest::newRow("refused port") << 0;
        QTest::newRow("server that never answers") << 1;
        QTest::newRow("host that does not exist") << 2;
    }
    void failedTransfers() {
        QFETCH(int, kind);
        SmallHttpServer quiet(true);
        QTcpServer closed;
        closed.listen(QHostAddress::LocalHost);
        const QString url = kind == 0 ? u"http://127.0.0.1:%1/page.html"_s.arg(closed.serverPort())
                            : kind == 1 ? quiet.url(u"/page.html"_s)
                                        : u"http://no-such-host.invalid/page.html"_s;
        closed.close();
        Fetch f(url, 1500);
        // A command set off during the wait, as an assistive tool sets one off, does not run.
        bool ranDuring = false;
        QTimer during;
        during.setSingleShot(true);
        connect(&during, &QTimer::timeout, this,
                [&] { ranDuring = f.ts->dispatch([&] { f.ts.run("mnuFileNewHTML"); }); });
        if (kind == 1) during.start(300);
        f.ts.run("mnuNet");
        QVERIFY(!ranDuring);
        QVERIFY(!during.isActive());
        QCOMPARE(f.ts.platform.messageTexts(), QStringList{kFailed});
        QCOMPARE(f.ts->StatusBar1.PanelText(1), QString());
        QCOMPARE(f.ts->documents().size(), size_t(1));
        if (kind == 1) QCOMPARE(quiet.requests, QStringList{"/page.html"});
    }

    void sourceTextToPdf_data() {
        columns<int, QString>({"size", "name"});
        QTest::newRow("Letter") << int(QPageSize::Letter) << "612x792";
        QTest::newRow("A4") << int(QPageSize::A4) << "595x842";
    }
    void sourceTextToPdf() {
        QFETCH(int, size);
        QFETCH(QString, name);
        const QString pdf = dir->filePath(u"out.pdf"_s);
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdf);
        printer->setPageSize(QPageSize(QPageSize::PageSizeId(size)));
        // A printable area that begins a quarter of an inch from the edge.
        printer->setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Point);
        QtPrinterDevice device(std::move(printer));
        QCOMPARE(DrawingRect(device, 1440, 1440, 1440, 1440).left, 1080);
        TextPane pane;
        const QString text = severalPages();
        pane.setText(text);
        pane.setFontName(u"DejaVu Sans Mono"_s);
        pane.setFontSize(11);
        PrintPaneText(pane, device, 1440, 1440, 1440, 1440);

        const QString info = run(u"pdfinfo"_s, {pdf});
        QVERIFY2(info.contains(u"Pagesize:"_s + name), qPrintable(info));
        QVERIFY2(info.contains(QRegularExpression(u"Pages:([3-9]|\\d\\d)"_s)), qPrintable(info));
        // Every character, once and in order, page after page.
        QCOMPARE(run(u"pdftotext"_s, {u"-layout"_s, pdf, "-"}),
                 QString(text).remove(QRegularExpression(u"\\s"_s)));

        // The words fill the page up to one-inch margins (72 points), the left edge right on it.
        const QString boxes = run(u"pdftotext"_s, {u"-bbox"_s, pdf, "-"});
        // The least of an attribute, or the greatest.
        const auto edge = [&](const char* name, bool greatest = false) {
            QList<double> found;
            for (auto it = QRegularExpression(u"%1=\"([\\d.]+)\""_s.arg(name)).globalMatch(boxes);
                 it.hasNext();)
                found.append(it.next().captured(1).toDouble());
            return greatest ? *std::max_element(found.begin(), found.end())
                            : *std::min_element(found.begin(), found.end());
        };
        const double width = edge("width"), height = edge("height"), left = edge("xMin");
        const double top = edge("yMin"), right = edge("xMax", true), bottom = edge("yMax", true);
        const QByteArray box =
            QString::asprintf("%g %g %g %g", left, top, right, bottom).toLatin1();
        QVERIFY2(qAbs(left - 72) < 1.5 && top >= 71 && top < 80, box);
        QVERIFY2(right <= width - 72 + 0.5 && right > width - 72 - 40, box);
        QVERIFY2(bottom <= height - 72 + 0.5 && bottom > height - 72 - 40, box);
    }
};

QTEST_MAIN(DesktopServicesTest)
#include "test_desktop_services.moc"
