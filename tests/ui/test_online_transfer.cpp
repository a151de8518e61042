// The real transfer against a small HTTP server the test runs on 127.0.0.1: a page, a style
// sheet, an error page, a redirect, a refused port and a server that never answers, each
// through File > Open online file.
#include "preview/browser_preview.h"
#include "test_rows.h"
#include "test_shell.h"
#include "ui/desktop/net_transfer.h"
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kFailed =
    QStringLiteral("Could not open the file you requested. Check your filename and connection.");
const QByteArray kPage = "<html>\r\n<body>Gr\xc3\xbc\xc3\x9f"
                         "e from the server</body>\r\n</html>";
const QByteArray kSheet = "body { color: red; }\n";
const QByteArray kMissing = "<html><body>404 Not Found</body></html>";

// Answers GET requests from a table of paths; a path not in it is a 404 with its own page.
class SmallHttpServer : public QTcpServer {
  public:
    SmallHttpServer() {
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(socket); });
        });
    }
    bool silent = false; // accepts and never answers
    QStringList requests;

  private:
    void serve(QTcpSocket* socket) {
        const QByteArray request = socket->readAll();
        const QByteArray path = request.split(' ').value(1);
        requests.append(QString::fromLatin1(path));
        if (silent) return;
        QByteArray status = "200 OK", type = "text/html", body, extra;
        if (path == "/page.html") {
            body = kPage;
        } else if (path == "/site.css") {
            body = kSheet;
            type = "text/css";
        } else if (path == "/moved") {
            status = "301 Moved Permanently";
            extra = "Location: /page.html\r\n";
        } else {
            status = "404 Not Found";
            body = kMissing;
        }
        socket->write("HTTP/1.1 " + status + "\r\nContent-Type: " + type +
                      "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + extra +
                      "Connection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    }
};
} // namespace

class OnlineTransferTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QVERIFY(server.listen(QHostAddress::LocalHost)); }

    void fetchThroughTheMenu_data() {
        columns<QString, QString, QString>({"path", "text", "css"});
        QTest::newRow("page, decoded as a file is") << "/page.html"
                                                    << "<html>\n<body>Grüße from the "
                                                       "server</body>\n</html>"
                                                    << "No";
        QTest::newRow("style sheet") << "/site.css" << QString::fromLatin1(kSheet) << "Yes";
        QTest::newRow("error page is the text")
            << "/gone.htm" << QString::fromLatin1(kMissing) << "No";
        QTest::newRow("redirect followed") << "/moved"
                                           << "<html>\n<body>Grüße from the "
                                              "server</body>\n</html>"
                                           << "No";
    }
    void fetchThroughTheMenu() {
        QFETCH(QString, path);
        QFETCH(QString, text);
        QFETCH(QString, css);
        NetTransfer transfer;
        TestShell ts;
        ts.platform.useTransfer = &transfer;
        ts.load();
        QStringList panel;
        connect(&ts->StatusBar1, &Control::changed, this,
                [&] { panel.append(ts->StatusBar1.PanelText(1)); });
        ts.platform.inputAnswers.enqueue(
            QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort()) + path);
        ts.run("mnuNet");

        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->documents().size(), size_t(2));
        codeEditor& doc = ts.active();
        QCOMPARE(doc.codebox().Text(), text);
        QCOMPARE(doc.CSSDoc, css);
        QCOMPARE(doc.lblOnlineFile, QStringLiteral("Yes"));
        QCOMPARE(panel, (QStringList{"Looking up host...", "Host found. Waiting for reply...",
                                     "Requesting file...", ""}));
    }

    // No answer: the message, the panel emptied and the window gone.
    void failedTransfers_data() {
        columns<int>({"kind"});
        QTest::newRow("refused port") << 0;
        QTest::newRow("server that never answers") << 1;
        QTest::newRow("host that does not exist") << 2;
    }
    void failedTransfers() {
        QFETCH(int, kind);
        QString url;
        SmallHttpServer quiet;
        quiet.silent = true;
        if (kind == 0) {
            QTcpServer closed;
            QVERIFY(closed.listen(QHostAddress::LocalHost));
            url = QStringLiteral("http://127.0.0.1:%1/page.html").arg(closed.serverPort());
        } else if (kind == 1) {
            QVERIFY(quiet.listen(QHostAddress::LocalHost));
            url = QStringLiteral("http://127.0.0.1:%1/page.html").arg(quiet.serverPort());
        } else {
            url = QStringLiteral("http://no-such-host.invalid/page.html");
        }
        NetTransfer transfer(1500);
        TestShell ts;
        ts.platform.useTransfer = &transfer;
        ts.load();
        ts.platform.inputAnswers.enqueue(url);
        ts.run("mnuNet");
        QCOMPARE(ts.platform.messageTexts(), QStringList{kFailed});
        QCOMPARE(ts->StatusBar1.PanelText(1), QString());
        QCOMPARE(ts->documents().size(), size_t(1));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 1"));
        if (kind == 1) QCOMPARE(quiet.requests, QStringList{"/page.html"});
    }

  private:
    SmallHttpServer server;
};

QTEST_MAIN(OnlineTransferTest)
#include "test_online_transfer.moc"
