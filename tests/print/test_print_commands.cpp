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
    for (int i = 0; i < 300; ++i)
        text += QStringLiteral("line %1 ").arg(i) + QString(i % 13 * 9, QChar(u'a' + i % 26)) +
                (i % 17 == 0 ? "\n\n" : "\n");
    return text;
}
} // namespace

class PrintCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    // Each page starts at the first character that did not fit on the one before: across all
    // pages every character comes once, in order. Every page is laid out in the same rectangle:
    // one-inch margins on Letter paper less the printable area's offset (13 pixels at 600 dpi
    // are 31.2 twips, taken whole; 150 are a quarter inch).
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
        printer.offsetX = 13;
        printer.offsetY = 150;
        PrintPaneText(pane, printer, 1440, 1440, 1440, 1440);

        QVERIFY(!printer.pages.isEmpty());
        QCOMPARE(printer.calls.first(), QStringLiteral("Print[ ]"));
        QCOMPARE(printer.calls.last(), QStringLiteral("EndDoc"));
        QCOMPARE(printer.calls.count(QStringLiteral("NewPage")), printer.pages.size() - 1);
        QCOMPARE(printer.calls.count(QStringLiteral("Print[ ]")), printer.pages.size());
        QString printed;
        for (const QString& page : printer.pages)
            printed += QString(page).remove(u'\n');
        QCOMPARE(printed, QString(text).remove(u'\n'));
        for (const TwipsRect& r : printer.drawings)
            QCOMPARE(QList<int>({r.left, r.top, r.right, r.bottom}),
                     QList<int>({1409, 1080, 10769, 14040}));
        QCOMPARE(printer.fontName, QStringLiteral("Courier New"));
        QCOMPARE(printer.fontSize, 10.0);
        if (text.isEmpty()) QCOMPARE(printer.pages, QStringList{QString()});
        if (text.size() > 5000) QVERIFY(printer.pages.size() > 2);
    }

    // Source prints its text with one-inch margins, Layout hands the work to its surface,
    // Preview to the browser with its own print dialog; with no printer the user is told.
    void printFromEachView_data() {
        columns<int, bool>({"view", "printer"});
        for (int view : {1, 2, 3})
            for (bool printer : {true, false})
                QTest::addRow("view %d%s", view, printer ? "" : ", no printer") << view << printer;
    }
    void printFromEachView() {
        QFETCH(int, view);
        QFETCH(bool, printer);
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.open(writeFile(dir, "p.htm", "<html><body>text</body></html>"));
        doc.tabEditor.SelectTab(view);
        QCOMPARE(ts->bLayoutActive, view == 2);
        std::shared_ptr<ScriptedPrinter> device = ts.platform.printer;
        if (!printer) ts.platform.printer.reset();
        ts.run("mnuFilePrint");

        const bool told = !printer && view != 3; // the browser's dialog says it for itself
        QCOMPARE(ts.platform.messageTexts(),
                 told ? QStringList{"There is no printer on this system to print to."}
                      : QStringList{});
        if (told) QCOMPARE(ts.platform.messages[0].icon, MsgIcon::Exclamation);
        const bool source = view == 1 && printer;
        QCOMPARE(device->pages, source ? QStringList{doc.codebox().Text()} : QStringList{});
        if (source) {
            const TwipsRect r = device->drawings.first();
            QCOMPARE(QList<int>({r.left, r.top, r.right, r.bottom}),
                     QList<int>({1440, 1440, 10800, 14400}));
        }
        QCOMPARE(layoutOf(doc).printed, view == 2 && printer ? 1 : 0);
        const auto& browser = static_cast<DetachedBrowser&>(doc.WebBrowser1());
        QCOMPARE(browser.calls.contains(QStringLiteral("ExecWB 6 1")), view == 3);
    }
};

QTEST_GUILESS_MAIN(PrintCommandsTest)
#include "test_print_commands.moc"
