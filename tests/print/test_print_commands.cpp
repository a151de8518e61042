// File > Print from each view, and the paging of the Source text onto the printer.
#include "print/print_pane_text.h"
#include "search_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

class PrintCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    // Source pages its text, Layout and Preview hand it on; with no printer nothing happens.
    void printFromEachView_data() {
        columns<int, bool, QString>({"view", "printer", "text"});
        QString lines; // of varied length, some longer than a printed line, some empty
        for (int i = 0; i < 300; ++i)
            lines += QStringLiteral("line %1 ").arg(i) + QString(i % 13 * 9, QChar(u'a' + i % 26)) +
                     (i % 17 == 0 ? "\n\n" : "\n");
        for (int view : {1, 2, 3})
            for (bool printer : {true, false})
                QTest::addRow("view %d%s", view, printer ? "" : ", no printer")
                    << view << printer << lines;
        QTest::newRow("one long line") << 1 << true << QString(20000, u'x');
        QTest::newRow("only line feeds") << 1 << true << QString(500, u'\n');
        QTest::newRow("empty: one blank page") << 1 << true << QString();
    }
    void printFromEachView() {
        QFETCH(int, view);
        QFETCH(bool, printer);
        QFETCH(QString, text);
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setText(text);
        doc.codebox().setFontName(QStringLiteral("Courier New"));
        doc.codebox().setFontSize(10);
        doc.tabEditor.SelectTab(view);
        std::shared_ptr<ScriptedPrinter> device = ts.platform.printer;
        device->offsetX = 13;  // 31.2 twips at 600 dpi, taken whole
        device->offsetY = 150; // a quarter of an inch
        if (!printer) ts.platform.printer.reset();
        ts.run("mnuFilePrint");

        QCOMPARE(ts.platform.messageTexts(), QStringList{});
        QCOMPARE(layoutOf(doc).printed, view == 2 && printer ? 1 : 0);
        const auto& browser = static_cast<DetachedBrowser&>(doc.WebBrowser1());
        QCOMPARE(browser.calls.contains(QStringLiteral("ExecWB 6 1")), view == 3);
        QCOMPARE(device->calls.isEmpty(), view != 1 || !printer);
        if (device->calls.isEmpty()) return;
        // Every character once, in order; one-inch margins less the offset, in the pane's font.
        QString printed;
        for (const QString& page : device->pages)
            printed += QString(page).remove(u'\n');
        QCOMPARE(printed, QString(text).remove(u'\n'));
        QCOMPARE(device->calls.first() + device->calls.last(), QStringLiteral("Print[ ]EndDoc"));
        QCOMPARE(device->calls.count(QStringLiteral("NewPage")), device->pages.size() - 1);
        QCOMPARE(device->calls.count(QStringLiteral("Print[ ]")), device->pages.size());
        for (const TwipsRect& r : device->drawings)
            QCOMPARE(QList<int>({r.left, r.top, r.right, r.bottom}),
                     QList<int>({1409, 1080, 10769, 14040}));
        QCOMPARE(device->fontName + QString::number(device->fontSize), "Courier New10");
        if (text.isEmpty()) QCOMPARE(device->pages, QStringList{QString()});
        if (text.size() > 5000) QVERIFY(device->pages.size() > 2);
    }
};

TSL_TEST_MAIN(PrintCommandsTest)
#include "test_print_commands.moc"
