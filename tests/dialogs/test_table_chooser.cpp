// The quick table chooser: its grid, the growth beyond the right and bottom edges, Cancel
// beyond the top and left, where it opens, and what a release inserts in either view.
#include "dialogs/table_chooser.h"
#include "dialogs_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
constexpr int kTwips = 15; // per pixel in these tests

// What the chooser shows after the pointer came to x, y: the size it reports, its label, the
// cells lit, and the picture's size. The chooser keeps the size it reports.
QString drawAt(TableChooser& chooser, int x, int y) {
    bool inside = false;
    int columns = -1, rows = -1, lit = 0;
    chooser.DrawTableChooser(x, y, 0, inside, columns, rows);
    for (const auto& cell : chooser.picDropDown.cells)
        lit += cell.highlighted ? 1 : 0;
    const bool kept = chooser.nTableColumns == columns && chooser.nTableRows == rows;
    return QStringLiteral("%1 %2x%3 %4, %5 lit, %6x%7%8")
        .arg(inside ? "in" : "out")
        .arg(columns)
        .arg(rows)
        .arg(chooser.picDropDown.label)
        .arg(lit)
        .arg(chooser.picDropDown.ScaleWidth)
        .arg(chooser.picDropDown.ScaleHeight)
        .arg(kept ? "" : ", another size kept");
}

QString bareTable(int columns, int rows) {
    const QString row =
        "   <tr>\n" + QStringLiteral("      <td>&nbsp;</td>\n").repeated(columns) + "   </tr>\n";
    return "<table width=\"100%\">\n" + row.repeated(rows) + "</table>";
}
} // namespace

class TableChooserTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts; // started before each test
    ShellMDI& shell() { return **ts; }
    TableChooser& chooser() { return shell().part<TableChooser>(); }
    // The chooser, shown at the top left.
    TableChooser& shown() {
        chooser().ShowTableChooser(0, 0);
        return chooser();
    }

  private slots:
    void init() {
        ts = std::make_unique<TestShell>();
        ts->load();
    }

    void opensWithFiveColumnsAndFourRows() {
        chooser().ShowTableChooser(3000, 400);
        const ChooserPicture& picture = chooser().picDropDown;
        QCOMPARE(picture.cells.size(), size_t(20));
        QCOMPARE(picture.cells.front().rect, QRect(QPoint(4, 4), QPoint(26, 26)));
        QCOMPARE(picture.cells.back().rect, QRect(QPoint(100, 76), QPoint(122, 98)));
        QCOMPARE(picture.labelRect, QRect(QPoint(4, 102), QPoint(123, 122)));
        QCOMPARE(drawAt(chooser(), 2, 2), QStringLiteral("in 1x1 1 x 1 table, 0 lit, 126x126"));
        QVERIFY(chooser().DropDown.IsShowing());
    }

    void wherePointsLand_data() {
        columns<QPoint, QString>({"point", "shown"});
        row("first cell", QPoint(10, 10), "in 1x1 1 x 1 table, 1 lit, 126x126");
        row("third column, second row", QPoint(60, 40), "in 3x2 3 x 2 table, 6 lit, 126x126");
        row("last cell", QPoint(110, 90), "in 5x4 5 x 4 table, 20 lit, 126x126");
        row("label panel", QPoint(60, 110), "in 3x4 3 x 4 table, 12 lit, 126x126");
        // At a cell's left edge counts, at its top edge does not.
        row("left edge of the second column", QPoint(28, 10), "in 2x1 2 x 1 table, 2 lit, 126x126");
        row("top edge of the second row", QPoint(10, 28), "in 1x1 1 x 1 table, 1 lit, 126x126");
        row("above", QPoint(60, -1), "out 0x0 Cancel, 0 lit, 126x126");
        row("left", QPoint(-1, 40), "out 0x0 Cancel, 0 lit, 126x126");
        // Beyond the right or bottom edge the grid grows by one cell, however far out.
        row("right", QPoint(130, 60), "in 6x3 6 x 3 table, 18 lit, 150x126");
        row("far right", QPoint(400, 60), "in 6x3 6 x 3 table, 18 lit, 150x126");
        row("below", QPoint(60, 130), "in 3x5 3 x 5 table, 15 lit, 126x150");
        // Below the bottom and left of the grid at once is growth, not Cancel.
        row("below and left", QPoint(-5, 130), "in 1x1 1 x 1 table, 0 lit, 126x150");
    }
    void wherePointsLand() {
        QFETCH(QPoint, point);
        QTEST(drawAt(shown(), point.x(), point.y()), "shown");
        QCOMPARE(chooser().DropDown.width(), chooser().picDropDown.ScaleWidth);
        QCOMPARE(chooser().DropDown.height(), chooser().picDropDown.ScaleHeight);
    }

    void theGridGrowsOneCellPerMoveAndStartsSmallAgain() {
        drawAt(shown(), 400, 60);
        QCOMPARE(drawAt(chooser(), 400, 60), QString("in 7x3 7 x 3 table, 21 lit, 174x126"));
        shown();
        QCOMPARE(chooser().DropDown.width(), 126);
        QCOMPARE(chooser().picDropDown.cells.size(), size_t(20));
    }

    // Beside the button of each toolbar; Draw Table opens it under its button.
    void opensBesideItsButton() {
        const auto at = [&] { return QPoint(chooser().DropDown.left(), chooser().DropDown.top()); };
        chooser().ShowTableChooser(3000, 400, TableChooser::MainToolbar);
        QCOMPARE(at(), QPoint(2795, 900));
        chooser().ShowTableChooser(3000, 400, TableChooser::TableToolbar);
        QCOMPARE(at(), QPoint(3100, 1400));
        chooser().DropDown.ButtonPosition = [](const QString& toolbar, int index) {
            return toolbar == QLatin1String("tbrTags") && index == 22 ? QPoint(6000, 700)
                                                                      : QPoint();
        };
        shell().tbrTags.press(22);
        QCOMPARE(at(), QPoint(5795, 1200));
        QVERIFY(chooser().DropDown.IsShowing());
    }

    // A release inserts a bare table of the size shown, in Source or Layout, as one step.
    void aReleaseInsertsABareTable() {
        SourcePane& pane = ts->active().codebox();
        const QString before = pane.Text();
        const int caret = pane.SelStart();
        shown().picDropDown_MouseMove(0, 0, 60 * kTwips, 40 * kTwips);
        chooser().picDropDown_MouseDown(1, 0, 60 * kTwips, 40 * kTwips);
        QVERIFY(chooser().DropDown.IsShowing());
        chooser().picDropDown_MouseUp(1, 0, 60 * kTwips, 40 * kTwips);
        QVERIFY(!chooser().DropDown.IsShowing());
        QCOMPARE(pane.Text(), insertedAt(before, caret, bareTable(3, 2)));
        QVERIFY(!shell().bInsertingMarkup);
        ts->run("mnuEditUndo");
        QCOMPARE(pane.Text(), before);
        shell().bLayoutActive = true;
        shown().picDropDown_MouseUp(1, 0, 10 * kTwips, 10 * kTwips);
        QCOMPARE(layoutOf(ts->active()).pasted, QStringList{bareTable(1, 1)});
    }

    // Beyond the top or left: nothing, but the step decision still ran and cleared the flags.
    void aReleaseBeyondTheTopOrLeftInsertsNothing() {
        const QString before = ts->active().codebox().Text();
        for (const QPoint at : {QPoint(-3, 50), QPoint(50, -3)}) {
            shell().bCaretStepTaken = true;
            shown().picDropDown_MouseUp(1, 0, at.x() * kTwips, at.y() * kTwips);
            QCOMPARE(chooser().picDropDown.label, QStringLiteral("Cancel"));
            QCOMPARE(ts->active().codebox().Text(), before);
            QVERIFY(!chooser().DropDown.IsShowing());
            QVERIFY(!shell().bInsertingMarkup && !shell().bCaretStepTaken);
        }
    }

    void aPressOutsideHidesTheWindow() {
        chooser().picDropDown_MouseDown(1, 0, 10, 10); // not showing: nothing happens
        QCOMPARE(chooser().picDropDown.label, QString());
        shown().picDropDown_MouseDown(1, 0, -10 * kTwips, 10 * kTwips);
        QVERIFY(!chooser().DropDown.IsShowing());
        QCOMPARE(chooser().picDropDown.label, QStringLiteral("Cancel"));
    }

    void aRefusedPasteIsExplained() {
        layoutOf(ts->active()).refusePaste = true;
        shell().bLayoutActive = shell().bCaretStepTaken = true;
        shown().picDropDown_MouseUp(1, 0, 10 * kTwips, 10 * kTwips);
        QCOMPARE(ts->platform.messages.size(), 1);
        const ShownMessage& m = ts->platform.messages[0];
        QCOMPARE(m.title + ": " + m.text,
                 QStringLiteral("Tessaline: You can not insert a table on top of another table."));
        QVERIFY(m.icon == MsgIcon::Exclamation && m.buttons == MsgButtons::OK);
        QVERIFY(shell().bInsertingMarkup && shell().bCaretStepTaken);
    }
};

QTEST_GUILESS_MAIN(TableChooserTest)
#include "test_table_chooser.moc"
