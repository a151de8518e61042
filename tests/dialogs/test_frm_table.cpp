// The Insert Table dialog's own rules: its markup, the interplay of its fields, which boxes
// filter which keys, what its common dialog starts with, and OK from the menu. The shapes it
// shares with every dialog are tested once, in test_dialog_shapes.
#include "dialogs/frm_table.h"
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
} // namespace

class TableDialogTest : public QObject {
    Q_OBJECT
    std::unique_ptr<TestShell> ts; // started before each test, with the dialog open
    std::unique_ptr<frmTable> form;

  private slots:
    void init() {
        ts = std::make_unique<TestShell>();
        ts->load();
        form = std::make_unique<frmTable>(**ts);
    }

    // Fields set, then the table tag written; the rows as they come by default.
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
        QCOMPARE(form->markup(), tag + "\n" + rowOf(2) + rowOf(2) + "</table>");
    }

    // Alignment belongs to the rows; no rows leaves the table tags alone.
    void theRows() {
        setFields(*form, "Alignment=left;cmbVAlign=bottom;RowBox=3;ColBox=1");
        const QString tag = QStringLiteral("<table border=\"0\" width=\"100%\">\n");
        QCOMPARE(form->markup(),
                 tag + rowOf(1, " align=\"left\" valign=\"bottom\"").repeated(3) + "</table>");
        setFields(*form, "RowBox=0");
        QCOMPARE(form->markup(), tag + "</table>");
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
        (*ts)->OpenSave.InitDir = "/web/site/";
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

    // An empty count fails silently, the dialog open and the flag set; then the table goes in
    // at the caret as one step.
    void okFromTheMenu() {
        TestShell& ts = *this->ts;
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        const int caret = doc.codebox().SelStart();
        ts.forms.then<frmTable>([&](frmTable& f) {
            setFields(f, "RowBox=");
            f.OK.press();
            QVERIFY(f.isLoaded() && ts->bInsertingMarkup);
            QCOMPARE(doc.codebox().Text(), before);
            setFields(f, "ColBox=1;RowBox=1");
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        ts.run("mnuInsertTable");
        QCOMPARE(doc.codebox().Text(),
                 insertedAt(before, caret,
                            "<table border=\"0\" width=\"100%\">\n" + rowOf(1) + "</table>"));
        QVERIFY(!ts->bInsertingMarkup);
        QVERIFY(ts.platform.messages.isEmpty());
        ts.run("mnuEditUndo");
        QCOMPARE(doc.codebox().Text(), before);
    }
};

QTEST_GUILESS_MAIN(TableDialogTest)
#include "test_frm_table.moc"
