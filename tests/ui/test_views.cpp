// The three views on the real engine: an edit in Layout reaches the Source text at once, and
// Preview shows the page beside its document, relative image and all.
#include "program_fixture.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "test_shell.h"
#include "ui/layout_surface.h"
#include "ui/main_window.h"
#include "ui/workbench.h"
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
};

int main(int argc, char* argv[]) {
    // As the program does: the engine, loaded later, shares its graphics contexts.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    ViewsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_views.moc"
