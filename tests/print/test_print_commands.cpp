// File > Print from each view, and the paging of the Source text onto the printer.
#include "editor/text_pane.h"
#include "print/print_pane_text.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
// Lines of varied length, some longer than a printed line, some empty.
QString severalPages() {
    QString text;
    for (int i = 0; i < 300; ++i) {
        text += QStringLiteral("line %1 ").arg(i) + QString(i % 13 * 9, QChar(u'a' + i % 26));
        if (i % 17 == 0) text += u'\n';
        text += u'\n';
    }
    return text;
}
} // namespace

class PrintCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    // Margins from the paper's edge, less the printable area's offset from it.
    void drawingRectangle_data() {
        columns<int, double, int, int, int, int>(
            {"offsetPixels", "twipsPerPixel", "left", "top", "right", "bottom"});
        // Letter paper, 12240 by 15840 twips, one-inch margins.
        QTest::newRow("no offset") << 0 << 2.4 << 1440 << 1440 << 10800 << 14400;
        // A quarter of an inch at 600 dots per inch: 150 pixels, 360 twips.
        QTest::newRow("quarter inch at 600 dpi") << 150 << 2.4 << 1080 << 1080 << 10440 << 14040;
        QTest::newRow("quarter inch at 300 dpi") << 75 << 4.8 << 1080 << 1080 << 10440 << 14040;
        // 13 pixels at 600 dpi are 31.2 twips: whole twips.
        QTest::newRow("rounded") << 13 << 2.4 << 1409 << 1409 << 10769 << 14369;
    }
    void drawingRectangle() {
        QFETCH(int, offsetPixels);
        QFETCH(double, twipsPerPixel);
        ScriptedPrinter printer;
        printer.offsetX = printer.offsetY = offsetPixels;
        printer.twipsPerPixel = twipsPerPixel;
        const TwipsRect r = DrawingRect(printer, 1440, 1440, 1440, 1440);
        QTEST(r.left, "left");
        QTEST(r.top, "top");
        QTEST(r.right, "right");
        QTEST(r.bottom, "bottom");
    }

    // Each page starts at the first character that did not fit on the one before: across all
    // pages every character comes once, in order.
    void pagingLosesAndRepeatsNothing_data() {
        columns<QString>({"text"});
        QTest::newRow("several pages") << severalPages();
        QTest::newRow("one long line") << QString(20000, u'x');
        QTest::newRow("only line feeds") << QString(500, u'\n');
        QTest::newRow("empty: one blank page") << QString();
    }
    void pagingLosesAndRepeatsNothing() {
        QFETCH(QString, text);
        TextPane pane;
        pane.setText(text);
        pane.setFontName(QStringLiteral("Courier New"));
        pane.setFontSize(10);
        ScriptedPrinter printer;
        printer.offsetX = printer.offsetY = 150;
        PrintPaneText(pane, printer, 1440, 1440, 1440, 1440);

        QVERIFY(!printer.pages.isEmpty());
        QCOMPARE(printer.calls.first(), QStringLiteral("Print[ ]"));
        QCOMPARE(printer.calls.last(), QStringLiteral("EndDoc"));
        QCOMPARE(printer.calls.count(QStringLiteral("NewPage")), printer.pages.size() - 1);
        QCOMPARE(printer.calls.count(QStringLiteral("Print[ ]")), printer.pages.size());
        // Page by page, the pages' characters are the text's, line ends aside.
        QString printed;
        for (const QString& page : printer.pages)
            printed += QString(page).remove(u'\n');
        QCOMPARE(printed, QString(text).remove(u'\n'));
        // Every page was laid out in the same rectangle, in the pane's font.
        for (const TwipsRect& r : printer.drawings) {
            QCOMPARE(r.left, 1080);
            QCOMPARE(r.right, 12240 - 1440 - 360);
        }
        QCOMPARE(printer.fontName, QStringLiteral("Courier New"));
        QCOMPARE(printer.fontSize, 10.0);
        if (text.isEmpty()) QCOMPARE(printer.pages, QStringList{QString()});
        if (text.size() > 5000) QVERIFY(printer.pages.size() > 2);
    }

    // Source prints the text, Layout hands the work to its surface, Preview to the browser
    // with its own print dialog; with no printer the user is told.
    void printFromEachView_data() {
        columns<int, bool, QString>({"view", "printer", "message"});
        const QString none = QStringLiteral("There is no printer on this system to print to.");
        QTest::newRow("Source") << 1 << true << "";
        QTest::newRow("Layout") << 2 << true << "";
        QTest::newRow("Preview") << 3 << true << "";
        QTest::newRow("Source, no printer") << 1 << false << none;
        QTest::newRow("Layout, no printer") << 2 << false << none;
        QTest::newRow("Preview, no printer: the dialog still") << 3 << false << "";
    }
    void printFromEachView() {
        QFETCH(int, view);
        QFETCH(bool, printer);
        QFETCH(QString, message);
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.open(writeFile(dir, "p.htm", "<html><body>text</body></html>"));
        doc.tabEditor.SelectTab(view);
        QCOMPARE(ts->bLayoutActive, view == 2);
        std::shared_ptr<ScriptedPrinter> device = ts.platform.printer;
        if (!printer) ts.platform.printer.reset();
        ts.run("mnuFilePrint");

        QCOMPARE(ts.platform.messageTexts(),
                 message.isEmpty() ? QStringList{} : QStringList{message});
        if (!message.isEmpty()) QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Exclamation);
        QCOMPARE(device->pages,
                 view == 1 && printer ? QStringList{doc.codebox().Text()} : QStringList{});
        QCOMPARE(layoutOf(doc).printed, view == 2 && printer ? 1 : 0);
        const auto& browser = static_cast<DetachedBrowser&>(doc.WebBrowser1());
        QCOMPARE(browser.calls.contains(QStringLiteral("ExecWB 6 1")), view == 3);
    }
};

QTEST_GUILESS_MAIN(PrintCommandsTest)
#include "test_print_commands.moc"
