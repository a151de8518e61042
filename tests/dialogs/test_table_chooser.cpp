// The quick table chooser: its grid, the growth beyond the right and bottom edges, Cancel
// beyond the top and left, where it opens, and what a release inserts in either view.
#include "dialogs/table_chooser.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
constexpr int kTwips = 15; // per pixel in these tests

struct Drawn {
    bool inside = false;
    int columns = -1;
    int rows = -1;
};

Drawn drawAt(TableChooser& chooser, int x, int y) {
    Drawn d;
    chooser.DrawTableChooser(x, y, 0, d.inside, d.columns, d.rows);
    return d;
}

// The shell's chooser, shown at the top left.
TableChooser& shownChooser(TestShell& ts) {
    ts->part<TableChooser>().ShowTableChooser(0, 0);
    return ts->part<TableChooser>();
}

int litCells(const ChooserPicture& picture) {
    int lit = 0;
    for (const auto& cell : picture.cells)
        lit += cell.highlighted ? 1 : 0;
    return lit;
}

} // namespace

class TableChooserTest : public QObject {
    Q_OBJECT

  private slots:
    void opensWithFiveColumnsAndFourRows() {
        TestShell ts;
        TableChooser& chooser = ts->part<TableChooser>();
        chooser.ShowTableChooser(3000, 400);
        const ChooserPicture& picture = chooser.picDropDown;
        QCOMPARE(picture.ScaleWidth, 126);
        QCOMPARE(picture.ScaleHeight, 126);
        QCOMPARE(picture.cells.size(), size_t(20));
        QCOMPARE(picture.cells.front().rect, QRect(QPoint(4, 4), QPoint(26, 26)));
        QCOMPARE(picture.cells.back().rect, QRect(QPoint(100, 76), QPoint(122, 98)));
        QCOMPARE(litCells(picture), 0);
        QCOMPARE(picture.label, QStringLiteral("1 x 1 table"));
        QCOMPARE(picture.labelRect, QRect(QPoint(4, 102), QPoint(123, 122)));
        QVERIFY(chooser.DropDown.IsShowing());
    }

    void wherePointsLand_data() {
        columns<QPoint, QString, int>({"point", "label", "lit"});
        QTest::newRow("margin") << QPoint(2, 2) << "1 x 1 table" << 0;
        QTest::newRow("first cell") << QPoint(10, 10) << "1 x 1 table" << 1;
        QTest::newRow("third column, second row") << QPoint(60, 40) << "3 x 2 table" << 6;
        QTest::newRow("last cell") << QPoint(110, 90) << "5 x 4 table" << 20;
        QTest::newRow("label panel") << QPoint(60, 110) << "3 x 4 table" << 12;
        // At a cell's left edge counts, at its top edge does not.
        QTest::newRow("left edge of the second column") << QPoint(28, 10) << "2 x 1 table" << 2;
        QTest::newRow("top edge of the second row") << QPoint(10, 28) << "1 x 1 table" << 1;
        QTest::newRow("above") << QPoint(60, -1) << "Cancel" << 0;
        QTest::newRow("left") << QPoint(-1, 40) << "Cancel" << 0;
    }
    void wherePointsLand() {
        QFETCH(QPoint, point);
        QFETCH(QString, label);
        QFETCH(int, lit);
        TestShell ts;
        TableChooser& chooser = shownChooser(ts);
        const Drawn d = drawAt(chooser, point.x(), point.y());
        QCOMPARE(chooser.picDropDown.label, label);
        QCOMPARE(litCells(chooser.picDropDown), lit);
        const bool cancel = label == QLatin1String("Cancel");
        QCOMPARE(d.inside, !cancel);
        QCOMPARE(QStringLiteral("%1 x %2 table").arg(d.columns).arg(d.rows) == label, !cancel);
        QCOMPARE(chooser.nTableColumns, d.columns);
        QCOMPARE(chooser.nTableRows, d.rows);
        if (cancel) QCOMPARE(d.columns + d.rows, 0);
    }

    void theGridGrowsOneCellPerMoveBeyondAnEdge() {
        TestShell ts;
        TableChooser& chooser = shownChooser(ts);
        Drawn d = drawAt(chooser, 130, 60);
        QVERIFY(d.inside);
        QCOMPARE(chooser.picDropDown.ScaleWidth, 150);
        QCOMPARE(chooser.DropDown.width(), 150);
        QCOMPARE(chooser.picDropDown.label, QStringLiteral("6 x 3 table"));
        d = drawAt(chooser, 400, 60); // far out still grows by one cell only
        QCOMPARE(chooser.picDropDown.ScaleWidth, 174);
        QCOMPARE(d.columns, 7);
        d = drawAt(chooser, 60, 200);
        QCOMPARE(chooser.picDropDown.ScaleHeight, 150);
        QCOMPARE(chooser.DropDown.height(), 150);
        QCOMPARE(d.rows, 5);
        // Below the bottom and left of the grid at once is growth, not Cancel.
        d = drawAt(chooser, -5, 160);
        QVERIFY(d.inside);
        QCOMPARE(chooser.picDropDown.ScaleHeight, 174);
        // A fresh opening starts small again.
        chooser.ShowTableChooser(0, 0);
        QCOMPARE(chooser.DropDown.width(), 126);
        QCOMPARE(chooser.picDropDown.cells.size(), size_t(20));
    }

    void opensBesideItsButton() {
        TestShell ts;
        TableChooser& chooser = ts->part<TableChooser>();
        chooser.ShowTableChooser(3000, 400, TableChooser::MainToolbar);
        QCOMPARE(QPoint(chooser.DropDown.left(), chooser.DropDown.top()), QPoint(2795, 900));
        chooser.ShowTableChooser(3000, 400, TableChooser::TableToolbar);
        QCOMPARE(QPoint(chooser.DropDown.left(), chooser.DropDown.top()), QPoint(3100, 1400));
        chooser.DropDown.ButtonPosition = [](const QString& toolbar, int index) {
            return toolbar == QLatin1String("tbrTags") && index == 22 ? QPoint(6000, 700)
                                                                      : QPoint();
        };
        ts->tbrTags.press(22);
        QCOMPARE(QPoint(chooser.DropDown.left(), chooser.DropDown.top()), QPoint(5795, 1200));
    }

    void aReleaseInsertsABareTable() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        const int caret = doc.codebox().SelStart();
        TableChooser& chooser = shownChooser(ts);
        chooser.picDropDown_MouseMove(0, 0, 60 * kTwips, 40 * kTwips);
        chooser.picDropDown_MouseDown(1, 0, 60 * kTwips, 40 * kTwips);
        QVERIFY(chooser.DropDown.IsShowing());
        chooser.picDropDown_MouseUp(1, 0, 60 * kTwips, 40 * kTwips);
        QVERIFY(!chooser.DropDown.IsShowing());
        const QString row = QStringLiteral("   <tr>\n") +
                            QStringLiteral("      <td>&nbsp;</td>\n").repeated(3) +
                            QStringLiteral("   </tr>\n");
        const QString table =
            QStringLiteral("<table width=\"100%\">\n") + row + row + QStringLiteral("</table>");
        QCOMPARE(doc.codebox().Text(), insertedAt(before, caret, table));
        QVERIFY(!ts->bInsertingMarkup);
        QVERIFY(ts->menu("mnuEditUndo").Enabled());
    }

    void theFirstCellGivesAOneByOneTable() {
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        TableChooser& chooser = shownChooser(ts);
        chooser.picDropDown_MouseUp(1, 0, 10 * kTwips, 10 * kTwips);
        QCOMPARE(layoutOf(ts.active()).pasted, QStringList{"<table width=\"100%\">\n   <tr>\n      "
                                                           "<td>&nbsp;</td>\n   </tr>\n</table>"});
    }

    void aReleaseBeyondTheTopOrLeftInsertsNothing() {
        for (const QPoint at : {QPoint(-3, 50), QPoint(50, -3)}) {
            TestShell ts;
            ts.load();
            const QString before = ts.active().codebox().Text();
            TableChooser& chooser = shownChooser(ts);
            chooser.picDropDown_MouseUp(1, 0, at.x() * kTwips, at.y() * kTwips);
            QCOMPARE(chooser.picDropDown.label, QStringLiteral("Cancel"));
            QCOMPARE(ts.active().codebox().Text(), before);
            QVERIFY(!chooser.DropDown.IsShowing());
            QCOMPARE(chooser.nTableColumns + chooser.nTableRows, 0);
            // The step decision still ran and cleared the flags.
            QVERIFY(!ts->bInsertingMarkup);
        }
    }

    void aPressOutsideHidesTheWindow() {
        TestShell ts;
        TableChooser& chooser = ts->part<TableChooser>();
        chooser.picDropDown_MouseDown(1, 0, 10, 10); // not showing: nothing happens
        QCOMPARE(chooser.picDropDown.label, QString());
        chooser.ShowTableChooser(0, 0);
        chooser.picDropDown_MouseDown(1, 0, -10 * kTwips, 10 * kTwips);
        QVERIFY(!chooser.DropDown.IsShowing());
        QCOMPARE(chooser.picDropDown.label, QStringLiteral("Cancel"));
    }

    void aRefusedPasteIsExplained() {
        TestShell ts;
        ShellMDI& shell = ts.load();
        ScriptedPlatform& platform = ts.platform;
        layoutOf(ts.active()).refusePaste = true;
        shell.bLayoutActive = true;
        shell.bCaretStepTaken = true;
        shell.part<TableChooser>().ShowTableChooser(0, 0);
        shell.part<TableChooser>().picDropDown_MouseUp(1, 0, 10 * kTwips, 10 * kTwips);
        QCOMPARE(platform.messages.size(), 1);
        QCOMPARE(platform.messages[0].text,
                 QStringLiteral("You can not insert a table on top of another table."));
        QCOMPARE(platform.messages[0].icon, MsgIcon::Exclamation);
        QCOMPARE(platform.messages[0].buttons, MsgButtons::OK);
        QCOMPARE(platform.messages[0].title, QStringLiteral("Tessaline"));
        QVERIFY(shell.bInsertingMarkup);
        QVERIFY(shell.bCaretStepTaken);
    }
};

QTEST_GUILESS_MAIN(TableChooserTest)
#include "test_table_chooser.moc"
