// The Insert Table dialog: its markup, the interplay of its fields, the key filters, the colour
// picker and file browse it shares with the other dialogs, OK in both views and Cancel.
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

    void spinnerRanges_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<int>("min");
        QTest::addColumn<int>("max");
        for (const auto& [box, min, max] :
             {std::tuple{"ColBox", 1, 99}, std::tuple{"RowBox", 1, 99},
              std::tuple{"Spacing", 1, 50}, std::tuple{"Padding", 1, 50},
              std::tuple{"BorderBox", 0, 72}, std::tuple{"WidthBox", 1, 100}})
            QTest::newRow(box) << QString::fromUtf8(box) << min << max;
    }
    void spinnerRanges() {
        QFETCH(QString, box);
        QFETCH(int, min);
        QFETCH(int, max);
        TestShell ts;
        frmTable form(*ts);
        UpDown* spinner = nullptr;
        for (UpDown* s : {&form.ColUpDown, &form.RowUpDown, &form.UpDownS, &form.UpDownP,
                          &form.UpDownB, &form.UpDown1})
            if (s->buddy->name() == box) spinner = s;
        QVERIFY(spinner);
        spinner->buddy->setText(QString::number(max));
        spinner->stepUp();
        QCOMPARE(spinner->buddy->Text(), QString::number(max));
        spinner->buddy->setText(QString::number(min));
        spinner->stepDown();
        QCOMPARE(spinner->buddy->Text(), QString::number(min));
        spinner->stepUp();
        QCOMPARE(spinner->buddy->Text(), QString::number(min + 1));
    }

    // Box, typed, shown: numbers, hex digits in upper case, each up to its length.
    void keyFilters_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const QStringList rows =
            QStringLiteral("ColBox|a1-b2|12|RowBox|123|12|WidthBox|6x4.0|640|"
                           "txtBGColour|#ff00Gg|FF00|txtBC|abcdef01|ABCDEF|BorderBox|1px|1px|"
                           "BackgroundBox|a b.gif|a b.gif")
                .split(u'|');
        for (int i = 0; i < rows.size(); i += 3)
            QTest::newRow(qPrintable(rows.at(i))) << rows.at(i) << rows.at(i + 1) << rows.at(i + 2);
    }
    void keyFilters() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        TestShell ts;
        frmTable form(*ts);
        form.BorderBox.setText("1");
        form.optAllSides.setValue(true);
        TextBox* target = nullptr;
        for (TextBox* t : {&form.ColBox, &form.RowBox, &form.WidthBox, &form.txtBGColour,
                           &form.txtBC, &form.BorderBox, &form.BackgroundBox})
            if (t->name() == box) target = t;
        target->setText(QString());
        target->typeText(typed);
        QCOMPARE(target->Text(), shown);
        target->typeKey(8);
        QCOMPARE(target->Text(), shown.left(shown.size() - 1));
    }

    void theColourPicker() {
        TestShell ts;
        frmTable form(*ts);
        int focused = 0;
        connect(&form.txtBGColour, &Control::focusRequested, this, [&] { ++focused; });
        ts.platform.colorAnswers.enqueue(0x0080FFu); // red FF, green 80, blue 00
        form.BGBrowse.press();
        QCOMPARE(form.txtBGColour.Text(), QStringLiteral("FF8000"));
        QCOMPARE(focused, 1);
        ts.platform.colorAnswers.enqueue(0x050000u); // blue alone, padded to six digits
        form.BGBrowse.press();
        QCOMPARE(form.txtBGColour.Text(), QStringLiteral("000005"));
        ts.platform.colorAnswers.enqueue(std::nullopt);
        form.BGBrowse.press();
        QCOMPARE(form.txtBGColour.Text(), QStringLiteral("000005"));
        QCOMPARE(focused, 2);
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void theFileBrowse() {
        TestShell ts;
        ts.load();
        ts.active().codebox().setFileName("/web/site/page.htm");
        ts.active().txtFileTitle = "page.htm";
        ts->OpenSave.InitDir = "/web/site/";
        frmTable form(*ts);
        form.Form_Load();
        QCOMPARE(form.cdTable.InitDir, QStringLiteral("/web/site/"));
        // A link that climbs keeps the start folders.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file("/web/img/bg.gif"));
        form.Browse.press();
        QCOMPARE(form.BackgroundBox.Text(), QStringLiteral("../img/bg.gif"));
        QCOMPARE(ts.platform.fileDialogsShown.last().Filter,
                 QStringLiteral("All Formats|*.gif; *.jpeg; *.jpg|GIF Format (*.gif)|*.gif|"
                                "JPEG Format (*.jpg; *.jpeg)|*.jpg; *.jpeg"));
        QCOMPARE(form.cdTable.InitDir, QStringLiteral("/web/site/"));
        QVERIFY(!ts->bRelativeUp);
        // Anything else clears them, a cancel too.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file("/web/site/img/bg.gif"));
        form.Browse.press();
        QCOMPARE(form.BackgroundBox.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTable.InitDir, QString());
        QCOMPARE(ts->OpenSave.InitDir, QString());
        form.cdTable.InitDir = "/x/";
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        form.Browse.press();
        QCOMPARE(form.BackgroundBox.Text(), QStringLiteral("img/bg.gif"));
        QCOMPARE(form.cdTable.InitDir, QString());
    }

    void okInsertsAtTheCaretAndRecordsAStep() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        ts.forms.then<frmTable>([](frmTable& f) {
            f.ColBox.setText("1");
            f.RowBox.setText("1");
            f.OK.press();
            QVERIFY(!f.isLoaded());
        });
        ts->menu("mnuInsertTable").Click();
        const QString table = QStringLiteral("<table border=\"0\" width=\"100%\">\n   <tr>\n      "
                                             "<td>&nbsp;</td>\n   </tr>\n</table>");
        QCOMPARE(doc.codebox().Text(), before.left(106) + table + before.mid(106));
        QCOMPARE(doc.Tag, QStringLiteral("Dirty"));
        QVERIFY(!ts->bInsertingMarkup);
        QVERIFY(!ts->bCaretStepTaken);
        QVERIFY(ts->menu("mnuEditUndo").Enabled());
        QCOMPARE(ts->CurrentDocument, &doc);
        ts->mnuEditUndo_Click();
        QCOMPARE(doc.codebox().Text(), before);
    }

    void okInLayoutViewPastesIntoTheSurface() {
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        const QString before = ts.active().codebox().Text();
        ts.forms.then<frmTable>([](frmTable& f) { f.OK.press(); });
        ts.run("mnuInsertTable");
        auto& layout = dynamic_cast<DetachedLayout&>(ts.active().DHTMLEdit1());
        QCOMPARE(layout.pasted.size(), 1);
        QVERIFY(layout.pasted[0].startsWith("<table border=\"0\" width=\"100%\">\n"));
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(!ts->bInsertingMarkup);
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

    void aRefusedPasteKeepsTheDialogOpen() {
        TestShell ts;
        ShellMDI& shell = ts.load();
        ScriptedPlatform& platform = ts.platform;
        ScriptedForms& forms = ts.forms;
        layoutOf(ts.active()).refusePaste = true;
        shell.bLayoutActive = true;
        bool stayed = false;
        forms.then<frmTable>([&](frmTable& f) {
            f.OK.press();
            stayed = f.isLoaded();
        });
        ts.run("mnuInsertTable");
        QVERIFY(stayed);
        QVERIFY(shell.bInsertingMarkup);
        QVERIFY(platform.messages.isEmpty());
    }

    void cancelChangesNothing() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const QString before = doc.codebox().Text();
        int focused = 0;
        connect(&doc, &codeEditor::focusRequested, this, [&] { ++focused; });
        ts.forms.then<frmTable>([](frmTable& f) {
            f.RowBox.setText("5");
            f.Cancel.press();
            QVERIFY(!f.isLoaded());
        });
        ts.run("mnuInsertTable");
        QCOMPARE(doc.codebox().Text(), before);
        QCOMPARE(doc.Tag, QStringLiteral("Clean"));
        QVERIFY(!ts->menu("mnuEditUndo").Enabled());
        QCOMPARE(focused, 1);
    }

    void theDrawTableButtonsOfTheTagsBar() {
        TestShell ts;
        ts.load();
        ts.forms.then<frmTable>([](frmTable& f) { f.Cancel.press(); });
        ts->tbrTags.press(21);
        QCOMPARE(ts.forms.shown, QStringList{"frmTable"});
        ts->tbrTags.press(22);
        QVERIFY(ts->tableChooser.DropDown.IsShowing());
    }
};

QTEST_GUILESS_MAIN(TableDialogTest)
#include "test_frm_table.moc"
