// The Insert Table dialog's own rules: its markup, the interplay of its fields, which boxes
// filter which keys, what its common dialog starts with, and OK from the menu. The shapes it
// shares with every dialog are tested once, in test_dialog_shapes.
#include "dialogs/table_chooser.h"
#include "dialogs/frm_table.h"
#include "runtime/runtime_error.h"
#include "test_shell.h"
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kDefaultRows =
    QStringLiteral("   <tr>\n      <td>&nbsp;</td>\n      <td>&nbsp;</td>\n"
                   "   </tr>\n   <tr>\n      <td>&nbsp;</td>\n"
                   "      <td>&nbsp;</td>\n   </tr>\n");

// The first line of the markup: the table tag.
QString tableTag(const frmTable& form) {
    return form.markup().section(QLatin1Char('\n'), 0, 0);
}

} // namespace

class TableDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void theDefaultTable() {
        TestShell ts;
        frmTable form(*ts);
        QCOMPARE(form.markup(), QStringLiteral("<table border=\"0\" width=\"100%\">\n") +
                                    kDefaultRows + QStringLiteral("</table>"));
    }

    void tableAttributes_data() {
        QTest::addColumn<std::function<void(frmTable&)>>("fill");
        QTest::addColumn<QString>("tag");
        using F = std::function<void(frmTable&)>;
        QTest::newRow("spacing 2 and padding 1 write nothing") << F([](frmTable& f) {
            f.Spacing.setText("2");
            f.Padding.setText("1");
        }) << "<table border=\"0\" width=\"100%\">";
        QTest::newRow("spacing and padding 0 are written") << F([](frmTable& f) {
            f.Spacing.setText("0");
            f.Padding.setText("0");
        }) << "<table cellspacing=\"0\" cellpadding=\"0\" border=\"0\" width=\"100%\">";
        QTest::newRow("empty border") << F([](frmTable& f) { f.BorderBox.setText(""); })
                                      << "<table border=\"\" width=\"100%\">";
        QTest::newRow("border as typed") << F([](frmTable& f) { f.BorderBox.setText("2px"); })
                                         << "<table border=\"2px\" width=\"100%\">";
        QTest::newRow("width in pixels") << F([](frmTable& f) {
            f.PixelsOpt.setValue(true);
            f.WidthBox.setText("640");
        }) << "<table border=\"0\" width=\"640\">";
        QTest::newRow("no custom width")
            << F([](frmTable& f) { f.WidthCheck.setValue(0); }) << "<table border=\"0\">";
        QTest::newRow("background colour and file") << F([](frmTable& f) {
            f.txtBGColour.setText("FF8000");
            f.BackgroundBox.setText("img/bg.gif");
        }) << "<table border=\"0\" width=\"100%\" bgcolor=\"#FF8000\" background=\"img/bg.gif\">";
        QTest::newRow("all sides, colour left empty") << F([](frmTable& f) {
            f.BorderBox.setText("1");
            f.optAllSides.setValue(true);
        }) << "<table border=\"1\" width=\"100%\" bordercolor=\"\">";
        QTest::newRow("lighter and darker without #")
            << F([](frmTable& f) {
                   f.BorderBox.setText("1");
                   f.optSpecLD.setValue(true);
                   f.txtLB.setText("EEEEEE");
                   f.txtDB.setText("333333");
               })
            << "<table border=\"1\" width=\"100%\" bordercolorlight=\"EEEEEE\" "
               "bordercolordark=\"333333\">";
        QTest::newRow("everything, in order")
            << F([](frmTable& f) {
                   f.Spacing.setText("5");
                   f.Padding.setText("4");
                   f.BorderBox.setText("3");
                   f.WidthBox.setText("80");
                   f.txtBGColour.setText("000000");
                   f.BackgroundBox.setText("b.gif");
                   f.optAllSides.setValue(true);
                   f.txtBC.setText("FF0000");
               })
            << "<table cellspacing=\"5\" cellpadding=\"4\" border=\"3\" width=\"80%\" "
               "bgcolor=\"#000000\" background=\"b.gif\" bordercolor=\"FF0000\">";
    }
    void tableAttributes() {
        QFETCH(std::function<void(frmTable&)>, fill);
        QFETCH(QString, tag);
        TestShell ts;
        frmTable form(*ts);
        fill(form);
        QCOMPARE(tableTag(form), tag);
    }

    void alignmentGoesOnEveryRow() {
        TestShell ts;
        frmTable form(*ts);
        form.Alignment.setText("left");
        form.cmbVAlign.setText("bottom");
        form.RowBox.setText("3");
        form.ColBox.setText("1");
        QCOMPARE(form.markup(),
                 QStringLiteral("<table border=\"0\" width=\"100%\">\n") +
                     QStringLiteral("   <tr align=\"left\" valign=\"bottom\">\n      "
                                    "<td>&nbsp;</td>\n   </tr>\n")
                         .repeated(3) +
                     QStringLiteral("</table>"));
    }

    void noRowsLeavesTheTableTagsAlone() {
        TestShell ts;
        frmTable form(*ts);
        form.RowBox.setText("0");
        QCOMPARE(form.markup(), QStringLiteral("<table border=\"0\" width=\"100%\">\n</table>"));
    }

    void theBorderWidthRulesTheBorderOptions() {
        TestShell ts;
        frmTable form(*ts);
        QVERIFY(form.optNone.Value());
        QVERIFY(!form.optAllSides.Enabled() && !form.optSpecLD.Enabled());
        form.BorderBox.setText("2");
        QVERIFY(form.optAllSides.Enabled() && form.optSpecLD.Enabled());
        QVERIFY(form.optNone.Value()); // the current option stays
        form.optAllSides.setValue(true);
        form.txtBC.setText("ABCDEF");
        form.BorderBox.setText("");
        QVERIFY(form.optNone.Value());
        QVERIFY(!form.optAllSides.Enabled() && !form.optSpecLD.Enabled());
        QCOMPARE(form.txtBC.Text(), QString());
        QVERIFY(!form.txtBC.Enabled() && !form.cmdBC.Enabled() && !form.lblBC.Enabled());
        QCOMPARE(form.markup().section('\n', 0, 0),
                 QStringLiteral("<table border=\"\" width=\"100%\">"));
    }

    void theBorderOptionsSwitchTheirColourFields() {
        TestShell ts;
        frmTable form(*ts);
        form.BorderBox.setText("1");
        const auto enabled = [&](std::initializer_list<Control*> controls) {
            QStringList on;
            for (Control* c : controls)
                if (c->Enabled()) on.append(c->name());
            return on;
        };
        const std::initializer_list<Control*> all = {&form.txtBC, &form.lblBC, &form.cmdBC,
                                                     &form.txtLB, &form.lblLB, &form.cmdLB,
                                                     &form.txtDB, &form.lblDB, &form.cmdDB};
        QVERIFY(enabled(all).isEmpty());
        form.optAllSides.setValue(true);
        QCOMPARE(enabled(all), (QStringList{"txtBC", "lblBC", "cmdBC"}));
        form.txtBC.setText("111111");
        form.optSpecLD.setValue(true);
        QCOMPARE(enabled(all), (QStringList{"txtLB", "lblLB", "cmdLB", "txtDB", "lblDB", "cmdDB"}));
        QCOMPARE(form.txtBC.Text(), QString());
        form.txtLB.setText("222222");
        form.txtDB.setText("333333");
        form.optAllSides.setValue(true);
        QCOMPARE(form.txtLB.Text(), QString());
        QCOMPARE(form.txtDB.Text(), QString());
        form.optNone.setValue(true);
        QVERIFY(enabled(all).isEmpty());
    }

    void theWidthFields() {
        TestShell ts;
        frmTable form(*ts);
        form.WidthCheck.setValue(0);
        QVERIFY(!form.PercentOpt.Enabled() && !form.PixelsOpt.Enabled() &&
                !form.WidthBox.Enabled());
        form.WidthCheck.setValue(1);
        QVERIFY(form.PercentOpt.Enabled() && form.PixelsOpt.Enabled() && form.WidthBox.Enabled());
        form.WidthBox.setText("100");
        form.UpDown1.stepUp();
        QCOMPARE(form.WidthBox.Text(), QStringLiteral("100"));
        form.PixelsOpt.setValue(true);
        QCOMPARE(form.WidthBox.Text(), QStringLiteral("100")); // the box is not touched
        form.UpDown1.stepUp();
        QCOMPARE(form.WidthBox.Text(), QStringLiteral("101"));
        form.WidthBox.setText("2000");
        form.UpDown1.stepUp();
        QCOMPARE(form.WidthBox.Text(), QStringLiteral("2000"));
        form.PercentOpt.setValue(true);
        form.UpDown1.stepUp();
        QCOMPARE(form.WidthBox.Text(), QStringLiteral("100"));
    }

    // Digits in the counts and the width, hex digits in the colours, anything in the border.
    void whichBoxesFilterWhichKeys() {
        TestShell ts;
        frmTable form(*ts);
        QStringList kept;
        for (Control* control : form.controls()) {
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
        TestShell ts;
        ts.load();
        ts.active().codebox().setFileName("/web/site/page.htm");
        ts.active().txtFileTitle = "page.htm";
        ts->OpenSave.InitDir = "/web/site/";
        frmTable form(*ts);
        form.Form_Load();
        QCOMPARE(form.cdTable.InitDir, QStringLiteral("/web/site/"));
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file("/web/site/img/bg.gif"));
        form.Browse.press();
        QCOMPARE(form.BackgroundBox.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(ts.platform.fileDialogsShown.last().Filter,
                 QStringLiteral("All Formats|*.gif; *.jpeg; *.jpg|GIF Format (*.gif)|*.gif|"
                                "JPEG Format (*.jpg; *.jpeg)|*.jpg; *.jpeg"));
        ts.platform.colorAnswers.enqueue(0x0080FFu);
        form.BGBrowse.press();
        QCOMPARE(form.txtBGColour.Text(), QStringLiteral("FF8000"));
    }

    void okInsertsAtTheCaretAndRecordsAStep() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        const int caret = doc.codebox().SelStart();
        ts.forms.then<frmTable>([](frmTable& f) {
            f.ColBox.setText("1");
            f.RowBox.setText("1");
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        ts->menu("mnuInsertTable").Click();
        const QString table = QStringLiteral("<table border=\"0\" width=\"100%\">\n   <tr>\n      "
                                             "<td>&nbsp;</td>\n   </tr>\n</table>");
        QCOMPARE(doc.codebox().Text(), insertedAt(before, caret, table));
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QVERIFY(!ts->bInsertingMarkup);
        QVERIFY(!ts->bCaretStepTaken);
        QVERIFY(ts->menu("mnuEditUndo").Enabled());
        QCOMPARE(ts->CurrentDocument, &doc);
        ts->mnuEditUndo_Click();
        QCOMPARE(doc.codebox().Text(), before);
    }

    void anEmptyCountKeepsTheDialogOpenWithTheFlagSet() {
        TestShell ts;
        ts.load();
        const QString before = ts.active().codebox().Text();
        bool stayed = false;
        ts.forms.then<frmTable>([&](frmTable& f) {
            f.RowBox.setText("");
            f.OK.press();
            stayed = f.isLoaded();
        });
        ts.run("mnuInsertTable");
        QVERIFY(stayed);
        QVERIFY(ts->bInsertingMarkup);
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void theDrawTableButtonsOfTheTagsBar() {
        TestShell ts;
        ts.load();
        ts.forms.then<frmTable>([](frmTable& f) { f.Cancel.press(); });
        ts->tbrTags.press(21);
        QCOMPARE(ts.forms.shown, QStringList{"frmTable"});
        ts->tbrTags.press(22);
        QVERIFY(ts->part<TableChooser>().DropDown.IsShowing());
    }
};

QTEST_GUILESS_MAIN(TableDialogTest)
#include "test_frm_table.moc"
