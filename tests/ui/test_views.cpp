// The three views on the real engine: an edit in Layout reaches the Source text at once, and
// Preview shows the page beside its document, relative image and all.
#include "program_fixture.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "test_shell.h"
#include "ui/layout/layout_surface.h"
#include "ui/window/main_window.h"
#include "ui/window/workbench.h"
#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
QByteArray pngBytes() {
    QImage image(8, 6, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QVariant evaluate(EnginePage* page, const QString& script) {
    // Shared with the callback, which may come after a timeout has given up on it.
    auto answer = std::make_shared<std::pair<bool, QVariant>>();
    page->runScript(script, [answer](const QVariant& v) { *answer = {true, v}; });
    if (!QTest::qWaitFor([&] { return answer->first; }, 10000)) return {};
    return answer->second;
}

// The program with a page opened through the file dialog, as a user opens it.
struct PageProgram : ProgramFixture {
    void open(const QString& path) {
        start();
        platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        shell().dispatch([&] { shell().mnuFileOpen_Click(); });
    }
};

const QByteArray kPage = "<html><head><title>t</title></head><body>\n<p>Hello world</p>\n"
                         "<img src=\"pic.png\">\n\n</body></html>";

// A page far beyond what the engine takes inline, ending in a paragraph that says so.
QByteArray largePage(const QString& line, int lines) {
    QString text = QStringLiteral("<html><body>\n");
    for (int i = 0; i < lines; ++i)
        text += line;
    return (text + QStringLiteral("<p id=\"end\">the end</p>\n</body></html>")).toUtf8();
}

QtLayoutSurface& surfaceOf(codeEditor& doc) {
    return dynamic_cast<QtLayoutSurface&>(doc.DHTMLEdit1());
}
} // namespace

class ViewsTest : public QObject {
    Q_OBJECT

  private slots:
    void anEditInLayoutReachesSourceWhenSwitchingStraightBack() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), kPage);
        PageProgram bench;
        bench.open(path);
        codeEditor& doc = *bench.shell().ActiveForm();
        auto& layout = dynamic_cast<QtLayoutSurface&>(doc.DHTMLEdit1());

        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(2); });
        QVERIFY(bench.shell().bLayoutActive);
        QTRY_VERIFY_WITH_TIMEOUT(layout.isReady(), 30000);
        QVERIFY(!layout.IsDirty());
        // Select "world" in the page, then bold it as the toolbar would.
        const QVariant selected = evaluate(
            layout.page(),
            QStringLiteral("const t = document.querySelector('p').firstChild;"
                           "const r = document.createRange(); r.setStart(t, 6); r.setEnd(t, 11);"
                           "getSelection().removeAllRanges(); getSelection().addRange(r);"
                           "getSelection().toString()"));
        QCOMPARE(selected.toString(), QStringLiteral("world"));
        bench.shell().dispatch([&] { bench.shell().tbrTags.press(4); });
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(1); });

        const QString text = doc.codebox().Text();
        QVERIFY2(text.contains(QStringLiteral("Hello <b>world</b>")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("<img src=\"pic.png\"></body>")), qPrintable(text));
        QVERIFY(!bench.shell().bLayoutActive);
        // The caret stands just inside the body.
        QCOMPARE(doc.codebox().SelStart(), text.indexOf(QStringLiteral("<body>")) + 6);
        QCOMPARE(doc.nDoneIndex, 1);
    }

    void previewShowsThePageBesideItsDocument() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), kPage);
        writeFile(dir, QStringLiteral("pic.png"), pngBytes());
        PageProgram bench;
        bench.open(path);
        codeEditor& doc = *bench.shell().ActiveForm();
        auto& browser = dynamic_cast<QtBrowserSurface&>(doc.WebBrowser1());
        QSignalSpy loaded(&browser, &QtBrowserSurface::loadFinished);

        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(3); });
        const QString preview = dir.filePath(QStringLiteral("~tssln.htm"));
        QCOMPARE(readFile(preview), kPage);
        QTRY_VERIFY_WITH_TIMEOUT(loaded.count() > 0, 30000);
        QVERIFY(loaded.first().first().toBool());
        QCOMPARE(browser.page()->url(), QUrl::fromLocalFile(preview));
        QTRY_COMPARE_WITH_TIMEOUT(
            evaluate(browser.page(), QStringLiteral("document.images[0].naturalWidth")).toInt(), 8,
            10000);
        // Only print and preview remain among the document commands; Save stays for the file.
        QVERIFY(!bench.shell().menu(QStringLiteral("mnuTagsBold")).Enabled());
        QVERIFY(bench.shell().menu(QStringLiteral("mnuFilePrint")).Enabled());

        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(1); });
        QVERIFY(!QFile::exists(preview));
        QCOMPARE(doc.codebox().FileName(), path);
    }
    void aLargePageShowsInLayoutAndSavesWhole_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("lines");
        QTest::addColumn<bool>("fromCommandLine");
        // Plain markup swells threefold as an inline address, Cyrillic letters sixfold.
        QTest::newRow("markup, 1.4 M characters")
            << QStringLiteral("<p>x</p>\n") << 155000 << false;
        QTest::newRow("Cyrillic, 1 MB")
            << QStringLiteral("Съешь же ещё этих мягких булок\n") << 20000 << false;
        QTest::newRow("from the command line") << QStringLiteral("<p>x</p>\n") << 290000 << true;
    }
    void aLargePageShowsInLayoutAndSavesWhole() {
        QFETCH(QString, line);
        QFETCH(int, lines);
        QFETCH(bool, fromCommandLine);
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("big.htm"), largePage(line, lines));
        PageProgram bench;
        if (fromCommandLine)
            bench.start(path);
        else
            bench.open(path);
        codeEditor& doc = *bench.shell().ActiveForm();
        QCOMPARE(doc.codebox().FileName(), path);
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(2); });
        QTRY_VERIFY_WITH_TIMEOUT(surfaceOf(doc).isReady(), 30000);
        QCOMPARE(evaluate(surfaceOf(doc).page(), QStringLiteral("document.getElementById('end')"
                                                                ".textContent"))
                     .toString(),
                 QStringLiteral("the end"));

        bench.shell().dispatch([&] { bench.shell().mnuFileSave_Click(); });
        const QString saved = QString::fromUtf8(readFile(path));
        QVERIFY2(saved.contains(QStringLiteral("the end</p>")), qPrintable(saved.left(200)));
        QVERIFY(saved.count(line.trimmed()) == lines);
    }

    void aPageTheSurfaceCouldNotLoadIsNeverSavedInPlaceOfTheText() {
        // No folder to put a large untitled page in: Layout stays blank, the text stays whole.
        QTemporaryDir dir;
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", writeFile(dir, QStringLiteral("not a folder"), "x").toLocal8Bit());
        PageProgram bench;
        bench.start();
        codeEditor& doc = *bench.shell().ActiveForm();
        const QString text = QString::fromUtf8(largePage(QStringLiteral("<p>x</p>\n"), 290000));
        doc.codebox().setText(text);
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(2); });
        QTest::qWait(1500);
        qputenv("TMPDIR", oldTemp);
        QVERIFY(!surfaceOf(doc).isReady());
        const QString path = dir.filePath(QStringLiteral("saved.htm"));
        bench.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        bench.shell().dispatch([&] { bench.shell().mnuFileSave_Click(); });
        QCOMPARE(readFile(path), text.toUtf8());
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(1); });
        QCOMPARE(doc.codebox().Text(), text);
    }

    void theLayoutSurfaceNeverLeavesTheUsersPage_data() {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QString>("script");
        QTest::newRow("refresh") << QByteArray(
                                        "<meta http-equiv=\"refresh\" content=\"0;url=OTHER\">")
                                 << QString();
        QTest::newRow("link") << QByteArray()
                              << QStringLiteral("document.getElementById('a').click()");
        QTest::newRow("form") << QByteArray() << QStringLiteral("document.forms[0].submit()");
        QTest::newRow("location") << QByteArray() << QStringLiteral("location.href = 'OTHER'");
    }
    void theLayoutSurfaceNeverLeavesTheUsersPage() {
        QFETCH(QByteArray, head);
        QFETCH(QString, script);
        QTemporaryDir dir;
        const QString other = writeFile(dir, QStringLiteral("other.htm"),
                                        "<html><body><p>somebody else's page</p></body></html>");
        const QByteArray otherUrl = QUrl::fromLocalFile(other).toEncoded();
        const QByteArray page = "<html><head>" + head.replace("OTHER", otherUrl) +
                                "</head><body><p>mine</p><a id=\"a\" href=\"" + otherUrl +
                                "\">go</a><form action=\"" + otherUrl +
                                "\"><input name=\"q\"></form></body></html>";
        const QString path = writeFile(dir, QStringLiteral("page.htm"), page);
        PageProgram bench;
        bench.open(path);
        codeEditor& doc = *bench.shell().ActiveForm();
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(2); });
        QTRY_VERIFY_WITH_TIMEOUT(surfaceOf(doc).isReady(), 30000);
        if (!script.isEmpty())
            evaluate(surfaceOf(doc).page(), script.replace(QStringLiteral("OTHER"), other));
        QTest::qWait(1500);
        QVERIFY(!doc.DHTMLEdit1().DocumentHTML().contains(QStringLiteral("somebody else")));

        bench.shell().dispatch([&] { bench.shell().mnuFileSave_Click(); });
        const QByteArray saved = readFile(path);
        QVERIFY2(saved.contains("<p>mine</p>"), saved.constData());
    }

    void previewFollowsALinkButNotAPageThatMovesByItself() {
        QTemporaryDir dir;
        const QString other = writeFile(dir, QStringLiteral("other.htm"),
                                        "<html><body><p>next page</p></body></html>");
        const QByteArray otherUrl = QUrl::fromLocalFile(other).toEncoded();
        const QString path = writeFile(
            dir, QStringLiteral("page.htm"),
            "<html><head><meta http-equiv=\"refresh\" content=\"0;url=" + otherUrl +
                "\"></head><body><a id=\"a\" href=\"" + otherUrl + "\">go</a></body></html>");
        PageProgram bench;
        bench.open(path);
        codeEditor& doc = *bench.shell().ActiveForm();
        auto& browser = dynamic_cast<QtBrowserSurface&>(doc.WebBrowser1());
        QSignalSpy loaded(&browser, &QtBrowserSurface::loadFinished);
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(3); });
        const QUrl preview = QUrl::fromLocalFile(dir.filePath(QStringLiteral("~tssln.htm")));
        QTRY_VERIFY_WITH_TIMEOUT(loaded.count() > 0, 30000);
        QTest::qWait(1500);
        QCOMPARE(browser.page()->url(), preview);

        evaluate(browser.page(), QStringLiteral("document.getElementById('a').click()"));
        QTRY_COMPARE_WITH_TIMEOUT(browser.page()->url(), QUrl::fromLocalFile(other), 10000);
        bench.shell().dispatch([&] { doc.tabEditor.SelectTab(1); });
        QVERIFY(doc.codebox().Text().contains(QStringLiteral("id=\"a\"")));
    }
};

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    ViewsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_views.moc"
