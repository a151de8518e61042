// Insert Table's own rules, and the table chooser's grid (where it opens: test_document_window).
#include "dialogs/frm_table.h"
#include "dialogs/table_chooser.h"
#include "dialogs_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kColourFields =
    QStringLiteral("txtBC;lblBC;cmdBC;txtLB;lblLB;cmdLB;txtDB;lblDB;cmdDB");

QString rowOf(int columns, const QString& attributes = QString()) {
    return "   <tr" + attributes + ">\n" +
           QStringLiteral("      <td>&nbsp;</td>\n").repeated(columns) + "   </tr>\n";
}

// The table the chooser inserts.
QString bareTable(int columns, int rows) {
    return "<table width=\"100%\">\n" + rowOf(columns).repeated(rows) + "</table>";
}

constexpr int kTwips = 15; // per pixel in these tests

// After the pointer came to x, y: the size reported (and kept), label, cells lit, picture size.
QString drawAt(TableChooser& chooser, int x, int y) {
    bool inside = false;
    int columns = -1, rows = -1, lit = 0;
    chooser.DrawTableChooser(x, y, 0, inside, columns, rows);
    for (const auto& cell : chooser.picDropDown.cells)
        lit += cell.highlighted ? 1 : 0;
    const bool kept = chooser.nTableColumns == columns && chooser.nTableRows == rows;
    const auto& pic = chooser.picDropDown;
    const auto n = [](int v) { return QString::number(v); };
    return QString("%1 %2x%3 %4, %5 lit, %6x%7%8")
        .arg(inside ? "in" : "out", n(columns), n(rows), pic.label, n(lit), n(pic.ScaleWidth),
             n(pic.ScaleHeight), kept ? "" : ", another size kept");
}
} // namespace

class TableDialogTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts; // started before each test, with the dialog open
    std::unique_ptr<frmTable> form;
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
        form = std::make_unique<frmTable>(**ts);
    }

    // Fields set, then the table tag written (with the default rows), or the whole table.
    void tableAttributes_data() {
        columns<QString, QString>({"fields", "tag"});
        row("the default table", "", "<table border=\"0\" width=\"100%\">");
        row("spacing 2 and padding 1 write nothing", "Spacing=2;Padding=1",
            "<table border=\"0\" width=\"100%\">");
        row("spacing and padding 0 are written", "Spacing=0;Padding=0",
            "<table cellspacing=\"0\" cellpadding=\"0\" border=\"0\" width=\"100%\">");
        row("empty border", "BorderBox=", "<table border=\"\" width=\"100%\">");
        row("border as typed", "BorderBox=2px", "<table border=\"2px\" width=\"100%\">");
        row("width in pixels", "PixelsOpt=1;WidthBox=640", "<table border=\"0\" width=\"640\">");
        row("no custom width", "WidthCheck=0", "<table border=\"0\">");
        row("background colour and file", "txtBGColour=FF8000;BackgroundBox=img/bg.gif",
            "<table border=\"0\" width=\"100%\" bgcolor=\"#FF8000\" background=\"img/bg.gif\">");
        row("all sides, colour left empty", "BorderBox=1;optAllSides=1",
            "<table border=\"1\" width=\"100%\" bordercolor=\"\">");
        row("lighter and darker without #", "BorderBox=1;optSpecLD=1;txtLB=EEEEEE;txtDB=333333",
            "<table border=\"1\" width=\"100%\" bordercolorlight=\"EEEEEE\" "
            "bordercolordark=\"333333\">");
        const QString plain = QStringLiteral("<table border=\"0\" width=\"100%\">\n");
        row("alignment belongs to the rows", "Alignment=left;cmbVAlign=bottom;RowBox=3;ColBox=1",
            plain + rowOf(1, " align=\"left\" valign=\"bottom\"").repeated(3) + "</table>");
        row("no rows leaves the table tags alone", "RowBox=0", plain + "</table>");
        row("everything, in order",
            "Spacing=5;Padding=4;BorderBox=3;WidthBox=80;txtBGColour=000000;BackgroundBox=b.gif;"
            "optAllSides=1;txtBC=FF0000",
            "<table cellspacing=\"5\" cellpadding=\"4\" border=\"3\" width=\"80%\" "
            "bgcolor=\"#000000\" background=\"b.gif\" bordercolor=\"FF0000\">");
    }
    void tableAttributes() {
        QFETCH(QString, fields);
        QFETCH(QString, tag);
        setFields(*form, fields);
        if (!tag.endsWith("</table>")) tag += "\n" + rowOf(2) + rowOf(2) + "</table>";
        QCOMPARE(form->markup(), tag);
    }

    // The border width enables the border options; each option enables its colour fields
    // and empties the others'.
    void theBorderFields() {
        const QString fields = "optAllSides;optSpecLD;" + kColourFields;
        QCOMPARE(enabledOf(*form, fields), QString());
        setFields(*form, "BorderBox=2");
        QCOMPARE(enabledOf(*form, fields), QString("optAllSides;optSpecLD"));
        QVERIFY(form->optNone.Value()); // the current option stays
        setFields(*form, "optAllSides=1;txtBC=111111");
        QCOMPARE(enabledOf(*form, kColourFields), QString("txtBC;lblBC;cmdBC"));
        setFields(*form, "optSpecLD=1");
        QCOMPARE(enabledOf(*form, kColourFields), QString("txtLB;lblLB;cmdLB;txtDB;lblDB;cmdDB"));
        setFields(*form, "txtLB=222222;txtDB=333333;optAllSides=1");
        QCOMPARE(valuesOf(*form, "txtBC;txtLB;txtDB"), QString(";;"));
        QCOMPARE(enabledOf(*form, kColourFields), QString("txtBC;lblBC;cmdBC"));
        setFields(*form, "txtBC=444444;optNone=1");
        QCOMPARE(enabledOf(*form, fields), QString("optAllSides;optSpecLD"));
        setFields(*form, "optAllSides=1;txtBC=555555;BorderBox=");
        QVERIFY(form->optNone.Value());
        QCOMPARE(enabledOf(*form, fields), QString());
        QCOMPARE(form->txtBC.Text(), QString());
    }

    void theWidthFields() {
        const QString width = QStringLiteral("PercentOpt;PixelsOpt;WidthBox");
        setFields(*form, "WidthCheck=0");
        QCOMPARE(enabledOf(*form, width), QString());
        setFields(*form, "WidthCheck=1;WidthBox=100");
        QCOMPARE(enabledOf(*form, width), width);
        // The spinner's range follows the unit; the box is not touched when it changes.
        const auto step = [&](const char* fields) {
            setFields(*form, fields);
            form->UpDown1.stepUp();
            return form->WidthBox.Text();
        };
        QCOMPARE(step(""), QStringLiteral("100"));
        QCOMPARE(step("PixelsOpt=1"), QStringLiteral("101"));
        QCOMPARE(step("WidthBox=2000"), QStringLiteral("2000"));
        QCOMPARE(step("PercentOpt=1"), QStringLiteral("100"));
    }

    // Digits in the counts and the width, hex digits in the colours, anything in the border.
    void whichBoxesFilterWhichKeys() {
        QStringList kept;
        for (Control* control : form->controls()) {
            auto* box = dynamic_cast<TextBox*>(control);
            if (!box || !box->Enabled()) continue;
            box->setText(QString());
            box->typeText("1aZ");
            kept.append(box->name() + QLatin1Char('=') + box->Text());
        }
        QCOMPARE(kept.join(u' '), QStringLiteral("ColBox=1 RowBox=1 Spacing=1 Padding=1 "
                                                 "BorderBox=1aZ WidthBox=1 txtBGColour=1A "
                                                 "BackgroundBox=1aZ"));
    }

    void theCommonDialogStartsWithImagesAndTheOpenFolder() {
        shell().OpenSave.InitDir = "/web/site/";
        form->Form_Load();
        QCOMPARE(form->cdTable.InitDir, QStringLiteral("/web/site/"));
        ts->platform.fileAnswers.enqueue(FileDialogAnswer::file("/web/site/img/bg.gif"));
        form->Browse.press();
        QCOMPARE(form->BackgroundBox.Text(), QStringLiteral("/web/site/img/bg.gif"));
        QCOMPARE(ts->platform.fileDialogsShown.last().Filter,
                 QStringLiteral("All Formats|*.gif; *.jpeg; *.jpg|GIF Format (*.gif)|*.gif|"
                                "JPEG Format (*.jpg; *.jpeg)|*.jpg; *.jpeg"));
        ts->platform.colorAnswers.enqueue(0x0080FFu);
        form->BGBrowse.press();
        QCOMPARE(form->txtBGColour.Text(), QStringLiteral("FF8000"));
    }

    // An empty count fails silently, the dialog open; then the table goes in at the caret.
    void okFromTheMenu() {
        SourcePane& pane = ts->active().codebox();
        const QString before = pane.Text();
        const int caret = pane.SelStart();
        ts->forms.then<frmTable>([&](frmTable& f) {
            setFields(f, "RowBox=");
            f.OK.press();
            QVERIFY(f.isLoaded() && shell().bInsertingMarkup);
            setFields(f, "ColBox=1;RowBox=1");
            f.OK.press();
        });
        ts->run("mnuInsertTable");
        QCOMPARE(pane.Text(),
                 insertedAt(before, caret,
                            "<table border=\"0\" width=\"100%\">\n" + rowOf(1) + "</table>"));
        QVERIFY(!shell().bInsertingMarkup && ts->platform.messages.isEmpty());
    }

    void wherePointsLand_data() {
        columns<QPoint, QString>({"point", "shown"});
        // It opens with five columns and four rows, the first cell chosen.
        row("margin", QPoint(2, 2), "in 1x1 1 x 1 table, 0 lit, 126x126");
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
        QVERIFY(chooser().DropDown.IsShowing());
        QCOMPARE(chooser().DropDown.width(), chooser().picDropDown.ScaleWidth);
        QCOMPARE(chooser().DropDown.height(), chooser().picDropDown.ScaleHeight);
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
        chooser().picDropDown_MouseDown(1, 0, 10 * kTwips, 10 * kTwips); // not showing: ignored
        QCOMPARE(chooser().picDropDown.label, QStringLiteral("Cancel"));
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

QTEST_GUILESS_MAIN(TableDialogTest)
#include "test_frm_table.moc"
