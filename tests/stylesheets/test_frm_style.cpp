// The style dialog's own rules: what it opens with, the rules between its fields, the saved
// styles with their questions, frmATag, the colour boxes, and OK from the menu.
#include "style_fixture.h"
#include "stylesheets/frm_atag.h"
#include "stylesheets/profile_file.h"
#include "test_rows.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kNew = QStringLiteral("(New Style)");

void saveAs(StyleFixture& fx, frmStyle& form, const QString& name) {
    fx.ts.platform.inputAnswers.enqueue(name);
    form.tbrStyle_ButtonClick(2);
}
} // namespace

class TestFrmStyle : public QObject {
    Q_OBJECT

  private slots:
    void it_opens_on_a_new_style_with_the_load_defaults() {
        StyleFixture fx;
        fx.ts.settings.save("Saved Styles", "Zebra", "Zebra");
        auto form = fx.open();
        QCOMPARE(form->Caption(), QString("Style Settings"));
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew, "Zebra"}));
        QCOMPARE(form->cmbItemName.Text(), kNew);
        QCOMPARE(fx.ts.settings.get("Saved Styles", kNew), kNew);
        QCOMPARE(form->LineHtCmb.Text(), QString("pt"));
        // The first font of the list is missing from both lists.
        QCOMPARE(form->FontFaceCmb.items(),
                 QStringList({"(None)", "Arial", "Courier New", "Times New Roman"}));
        QCOMPARE(form->FontFaceCmb2.items(), form->FontFaceCmb.items());
        QVERIFY(!form->session().StyleDirty);
        QVERIFY(!form->FontSizeBox.Enabled());
        QVERIFY(!form->SecondFontChk.Enabled());
        QVERIFY(!form->BdrLeftCmb.Enabled());
        QVERIFY(form->PallBox.Enabled());
        QVERIFY(!form->PLBox.Enabled());
        QCOMPARE(form->SSTab1.TabCaption(1), QString("   Font   "));
        QCOMPARE(form->SSTab1.TabCaption(5), QString("Margins && Padding"));
    }

    void rules_between_fields() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, {"FontFaceCmb=Arial", "SecondFontChk=1", "GenFontChk=1"});
        QVERIFY(form->FontFaceCmb2.Enabled());
        setFields(*form, {"FontFaceCmb=(None)"});
        QCOMPARE(form->SecondFontChk.Value(), 0);
        QCOMPARE(form->GenFontChk.Value(), 0);
        QVERIFY(!form->FontFaceCmb2.Enabled());

        setFields(*form, {"SpecBdrOpt=1", "BdrLeftCmb=Solid", "LBCBox=1, 2, 3", "BdrTopCmb=Inset",
                          "TBCBox=4, 5, 6", "BdrLeftCmb=None"});
        QCOMPARE(form->LBCBox.Text(), QString("1, 2, 3")); // kept while it is off
        QVERIFY(!form->LBCBox.Enabled());
        setFields(*form, {"BdrAllOpt=1"});
        QCOMPARE(form->LBCBox.Text(), QString());
        QCOMPARE(form->TBCBox.Text(), QString());
        QCOMPARE(form->BdrTopCmb.Text(), QString("None"));

        setFields(*form, {"DisplayCmb=List-item", "URLBox=dot.gif", "ListCmb=Square"});
        QVERIFY(form->URLBox.Enabled());
        setFields(*form, {"DisplayCmb=Block"});
        QCOMPARE(form->URLBox.Text(), QString());
        QCOMPARE(form->ListCmb.Text(), QString("Disc"));

        setFields(*form, {"FixOpt=1", "XFixCmb=Custom", "Xbox=5"});
        QVERIFY(form->Xbox.Enabled());
        QVERIFY(!form->YBox.Enabled());
        setFields(*form, {"RepOpt=1"});
        QVERIFY(!form->XFixCmb.Enabled());
        QCOMPARE(form->XFixCmb.Text(), QString("Top"));
        QCOMPARE(form->Xbox.Text(), QString("0"));
    }

    void keys_and_spinners() {
        StyleFixture fx;
        auto form = fx.open();
        form->LeftBox.setText("");
        form->LeftBox.typeText("-5x");
        QCOMPARE(form->LeftBox.Text(), QString("-5"));
        form->PLBox.setText("");
        form->PLBox.typeText("-5x");
        QCOMPARE(form->PLBox.Text(), QString("5"));
        form->ValignBox.setText("");
        form->ValignBox.typeText("1.5em");
        QCOMPARE(form->ValignBox.Text(), QString("1.5em"));
        form->Xbox.setText("399");
        form->UpDown8.stepUp();
        form->UpDown8.stepUp();
        QCOMPARE(form->Xbox.Text(), QString("400"));
        form->Xbox.typeText("9");
        QCOMPARE(form->Xbox.Text(), QString("4009")); // typed digits may pass the bound
    }

    void a_colour_box_takes_red_green_blue_in_decimal() {
        StyleFixture fx;
        auto form = fx.open();
        fx.ts.platform.colorAnswers.enqueue(0x0A0B0Cu);
        form->BGColourMore.press();
        QCOMPARE(form->BGColour.Text(), QString("12, 11, 10"));
        fx.ts.platform.colorAnswers.enqueue(std::nullopt);
        form->BGColourMore.press();
        QCOMPARE(form->BGColour.Text(), QString("12, 11, 10"));
    }

    void every_field_change_marks_the_style() {
        StyleFixture fx;
        auto form = fx.open();
        for (const char* entry :
             {"ClassBox=x", "BoldCmb=Bold", "SmlCaps=1", "LeftOpt=1", "TagName=P", "URLBox=a"}) {
            form->session().StyleDirty = false;
            setFields(*form, {entry});
            QVERIFY2(form->session().StyleDirty, entry);
        }
        form->session().StyleDirty = false;
        form->SSTab1.SelectTab(3);
        QVERIFY(!form->session().StyleDirty);
    }

    void save_asks_a_name_and_refuses_the_placeholder() {
        StyleFixture fx;
        auto form = fx.open();
        fx.ts.platform.inputAnswers.enqueue(QString());
        form->tbrStyle_ButtonClick(2);
        QCOMPARE(form->cmbItemName.ListCount(), 1);
        saveAs(fx, *form, kNew);
        QCOMPARE(fx.ts.platform.messageTexts(), QStringList({"You cannot use this style name."}));
        QCOMPARE(fx.ts.platform.messages.last().icon, MsgIcon::Exclamation);
        saveAs(fx, *form, "(new style)");
        QCOMPARE(form->cmbItemName.Text(), QString("(new style)"));
        QVERIFY(QFile::exists(fx.file("(new style)")));
        QCOMPARE(fx.ts.platform.inputPrompts.last(), QString("Enter a name for your settings."));
    }

    void overwriting_a_name_moves_it_to_the_end() {
        StyleFixture fx;
        auto form = fx.open();
        saveAs(fx, *form, "Alpha");
        form->tbrStyle_ButtonClick(0);
        saveAs(fx, *form, "Beta");
        form->tbrStyle_ButtonClick(0);
        setFields(*form, {"TagName=H3"});
        fx.ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        saveAs(fx, *form, "Alpha");
        QCOMPARE(fx.ts.platform.messageTexts().last(),
                 QString("The style name [Alpha] already exists. Do you want to overwrite it?"));
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew, "Beta", "Alpha"}));
        QCOMPARE(form->cmbItemName.Text(), QString("Alpha"));
        QVERIFY(!form->session().StyleDirty);
        QVERIFY(!form->session().StyleListWalk);

        // No: back to the new style, fields and the mark kept.
        form->tbrStyle_ButtonClick(0);
        setFields(*form, {"TagName=H4"});
        fx.ts.platform.messageAnswers.enqueue(MsgResult::No);
        saveAs(fx, *form, "Beta");
        QCOMPARE(form->cmbItemName.Text(), kNew);
        QCOMPARE(form->TagName.Text(), QString("H4"));
        QVERIFY(form->session().StyleDirty);
        QVERIFY(!form->session().StyleListWalk);
    }

    void a_load_asks_about_changes_in_its_odd_order() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, {"TagName=H1"});
        saveAs(fx, *form, "One");
        form->tbrStyle_ButtonClick(0);
        setFields(*form, {"TagName=H2"});
        saveAs(fx, *form, "Two");

        // Cancel: the combo shows the new name, the old fields stay.
        setFields(*form, {"ClassBox=edited"});
        fx.ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        form->cmbItemName.setText("One");
        QCOMPARE(fx.ts.platform.messageTexts().last(),
                 QString("Save the changes made to your style settings?"));
        QCOMPARE(form->cmbItemName.Text(), QString("One"));
        QCOMPARE(form->TagName.Text(), QString("H2"));
        QVERIFY(form->session().StyleDirty);

        // Yes: the edited fields go under the name just chosen, then that file loads.
        fx.ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        form->cmbItemName.setText("Two");
        QCOMPARE(GetPrivateProfileString("Tessaline 2", "Class", "", fx.file("Two")),
                 QString("edited"));
        QCOMPARE(form->ClassBox.Text(), QString("edited"));
        QCOMPARE(form->TagName.Text(), QString("H2"));

        // No: the chosen file loads.
        setFields(*form, {"ClassBox=dropped"});
        fx.ts.platform.messageAnswers.enqueue(MsgResult::No);
        form->cmbItemName.setText("One");
        QCOMPARE(form->TagName.Text(), QString("H1"));
        QCOMPARE(form->ClassBox.Text(), QString());
        QVERIFY(!form->session().StyleDirty);
    }

    void new_asks_with_the_name_and_resets() {
        StyleFixture fx;
        auto form = fx.open();
        saveAs(fx, *form, "Mine");
        setFields(*form, {"TagName=P"});
        fx.ts.platform.messageAnswers.enqueue(MsgResult::Cancel);
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(fx.ts.platform.messageTexts().last(),
                 QString("Save the changes made to your style settings Mine?"));
        QCOMPARE(form->TagName.Text(), QString("P"));
        fx.ts.platform.messageAnswers.enqueue(MsgResult::No);
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(form->cmbItemName.Text(), kNew);
        QCOMPARE(form->TagName.Text(), QString());
        // New on the new style resets too.
        setFields(*form, {"TagName=P"});
        fx.ts.platform.messageAnswers.enqueue(MsgResult::No);
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(form->TagName.Text(), QString());
        QVERIFY(!form->session().StyleDirty);
    }

    void delete_refuses_the_placeholder_and_asks_first() {
        StyleFixture fx;
        auto form = fx.open();
        form->tbrStyle_ButtonClick(4);
        QCOMPARE(fx.ts.platform.messages.last().text,
                 QString("You cannot delete the style settings named (New Style)."));
        QCOMPARE(fx.ts.platform.messages.last().title, QString("Unable to Delete Settings"));
        setFields(*form, {"TagName=EM"});
        saveAs(fx, *form, "Gone");
        fx.ts.platform.messageAnswers.enqueue(MsgResult::No);
        form->tbrStyle_ButtonClick(4);
        QVERIFY(QFile::exists(fx.file("Gone")));
        QCOMPARE(fx.ts.platform.messages.last().title, QString("Continue with delete?"));
        QCOMPARE(fx.ts.platform.messages.last().text,
                 QString("Are you sure you want to delete the settings named Gone?"));
        fx.ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        form->tbrStyle_ButtonClick(4);
        QVERIFY(!QFile::exists(fx.file("Gone")));
        QCOMPARE(fx.ts.settings.get("Saved Styles", "Gone", "<none>"), QString("<none>"));
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew}));
        QCOMPARE(form->cmbItemName.Text(), kNew);
        QCOMPARE(form->TagName.Text(), QString());
    }

    void the_link_dialog_sets_the_selector_of_A() {
        StyleFixture fx;
        auto form = fx.open();
        fx.ts.forms.then<frmATag>([](frmATag& f) {
            QCOMPARE(f.Caption(), QString("Which form of Hyperlink?"));
            f.Aopt.setValue(true);
            f.OK.press();
        });
        form->TagName.setText("B");
        form->TagName.setListIndex(0); // "A" chosen from the list
        QCOMPARE(form->session().AType, QString("A:Active"));
        form->TagName.setText("A"); // typed: no dialog
        QCOMPARE(fx.ts.forms.shown, QStringList({"frmATag"}));
    }

    void ok_writes_the_rule_into_the_document_from_the_menu() {
        StyleFixture fx;
        fx.ts.load();
        codeEditor& doc = fx.ts.active();
        doc.codebox().setText("<html><head></head><body></body></html>");
        fx.ts.forms.then<frmStyle>([](frmStyle& f) {
            f.cmdOK.press(); // nothing chosen yet: refused, the dialog stays
            QVERIFY(f.isLoaded());
            setFields(f, {"TagName=H1", "BoldCmb=Bold"});
            f.cmdOK.press();
            QVERIFY(!f.isLoaded());
        });
        const int steps = doc.nDoneIndex;
        fx.ts.run("mnuInsertCSS");
        QCOMPARE(fx.ts.platform.messageTexts(),
                 QStringList({"You must specify a tag and/or a class"}));
        QCOMPARE(fx.ts.platform.messages.first().icon, MsgIcon::Critical);
        QCOMPARE(doc.codebox().Text(),
                 QString("<html><head></head>\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet "
                         "information from browsers that do not support Style Sheets */\n"
                         "  H1 {\n    font-weight: Bold;\n    }\n--></style><body></body></html>"));
        QCOMPARE(int(doc.nDoneIndex), steps + 1);

        // The second rule for H1 replaces the first, without a step.
        fx.ts.forms.then<frmStyle>([](frmStyle& f) {
            setFields(f, {"TagName=H1", "ItalicCmb=Italic"});
            f.cmdOK.press();
        });
        fx.ts.run("mnuInsertCSS");
        QCOMPARE(
            doc.codebox().Text(),
            QString("<html><head></head>\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet "
                    "information from browsers that do not support Style Sheets */\n"
                    "  H1 {\n    font-style: Italic;\n    }\n--></style><body></body></html>"));
        QCOMPARE(int(doc.nDoneIndex), steps + 1);
    }
};

QTEST_GUILESS_MAIN(TestFrmStyle)
#include "test_frm_style.moc"
