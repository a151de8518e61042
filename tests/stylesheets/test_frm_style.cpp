// The style dialog's own rules: what it opens with, the rules between its fields, the saved
// styles with their questions, frmATag, the colour boxes, and OK from the menu.
#include "style_fixture.h"
#include "stylesheets/frm_atag.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kNew = QStringLiteral("(New Style)");
const QString kHiddenBlock =
    QStringLiteral("<html><head></head>\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet "
                   "information from browsers that do not support Style Sheets */\n  H1 {\n    "
                   "%1;\n    }\n--></style><body></body></html>");
} // namespace

class TestFrmStyle : public QObject {
    Q_OBJECT

  private slots:
    void it_opens_on_a_new_style_with_the_load_defaults() {
        StyleFixture fx;
        fx.ts.settings.save("Saved Styles", "Zebra", "Zebra");
        auto form = fx.open();
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew, "Zebra"}));
        QCOMPARE(valuesOf(*form, "cmbItemName;LineHtCmb"), kNew + ";pt");
        QCOMPARE(fx.ts.settings.get("Saved Styles", kNew), kNew);
        // The first font of the list is missing from both lists.
        QCOMPARE(form->FontFaceCmb.items(), items("(None);Arial;Courier New;Times New Roman"));
        QCOMPARE(form->FontFaceCmb2.items(), form->FontFaceCmb.items());
        QVERIFY(!form->session().StyleDirty);
        QCOMPARE(form->SSTab1.TabCaption(1), QString("   Font   "));
        QCOMPARE(form->SSTab1.TabCaption(5), QString("Margins && Padding"));
        fx.ts.platform.appFolder = "/opt/t";
        form->cmdHelp.press();
        QCOMPARE(fx.ts.platform.helpShown, QStringList{"/opt/t/tessaline.chm"});
    }

    // Fields set in order, then those of the watched fields that their rules leave enabled.
    void which_fields_are_enabled_data() {
        test::columns<QString, QString>({"fields", "on"});
        const QString start = QStringLiteral("BdrAllCmb;SizeAllCmb;PallBox");
        row("at the start", "", start);
        row("a font", "FontFaceCmb=Arial", "SecondFontChk;GenFontChk;" + start);
        row("both checks", "FontFaceCmb=Arial;SecondFontChk=1;GenFontChk=1",
            "SecondFontChk;GenFontChk;FontFaceCmb2;FontGenCmb;" + start);
        row("no font takes the checks away",
            "FontFaceCmb=Arial;SecondFontChk=1;GenFontChk=1;FontFaceCmb=(None)", start);
        row("custom values",
            "FntSizeCmb=custom;VCmb=Percentage;BdrAllCmb=Solid;SizeAllCmb=Custom;WidthCmb=Custom;"
            "HeightCmb=Custom;DisplayCmb=List-item",
            "FontSizeBox;UpDown3;ValignBox;UpDownVA;ColourBBox;BdrAllCmb;BallCWBox;SizeAllCmb;"
            "PallBox;CWBox;CHBox;ListCmb;URLBox");
        row("named values again",
            "FntSizeCmb=custom;FntSizeCmb=large;VCmb=Percentage;VCmb=Top;BdrAllCmb=Solid;"
            "BdrAllCmb=None;SizeAllCmb=Custom;SizeAllCmb=Thin;WidthCmb=Custom;WidthCmb=Auto;"
            "HeightCmb=Custom;HeightCmb=Auto;DisplayCmb=List-item;DisplayCmb=Block",
            start);
        row("each side", "SpecBdrOpt=1;BdrTopCmb=Inset;BSpecOpt=1;BotSizeCmb=Custom;PSpecOpt=1",
            "BdrLeftCmb;BdrTopCmb;TBCBox;LeftSizeCmb;BotSizeCmb;BBBox;PLBox;PTBox");
        row("all sides again",
            "SpecBdrOpt=1;BdrTopCmb=Inset;BSpecOpt=1;BotSizeCmb=Custom;PSpecOpt=1;BdrAllOpt=1;"
            "BAllOpt=1;Option1=1",
            start);
        row("a fixed position", "FixOpt=1;XFixCmb=Custom", start + ";XFixCmb;YFixCmb;Xbox");
        row("a repeat again", "FixOpt=1;XFixCmb=Custom;YFixCmb=Custom;RepOpt=1", start);
    }
    void which_fields_are_enabled() {
        QFETCH(QString, fields);
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, fields);
        QTEST(enabledOf(*form, "SecondFontChk;GenFontChk;FontFaceCmb2;FontGenCmb;FontSizeBox;"
                               "UpDown3;ValignBox;UpDownVA;ColourBBox;BdrAllCmb;BallCWBox;"
                               "SizeAllCmb;BdrLeftCmb;BdrTopCmb;TBCBox;LBCBox;LeftSizeCmb;"
                               "BotSizeCmb;BBBox;BLBox;PallBox;PLBox;PTBox;CWBox;CHBox;ListCmb;"
                               "URLBox;XFixCmb;YFixCmb;Xbox;YBox"),
              "on");
    }

    // The rules that empty or reset fields as others change, the keys and spinners, the
    // colour boxes, and the mark of a changed style.
    void field_rules() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, "SpecBdrOpt=1;BdrLeftCmb=Solid;LBCBox=1, 2, 3;BdrTopCmb=Inset;"
                         "TBCBox=4, 5, 6;BdrLeftCmb=None");
        QCOMPARE(form->LBCBox.Text(), QString("1, 2, 3")); // kept while it is off
        setFields(*form, "BdrAllOpt=1;DisplayCmb=List-item;URLBox=dot.gif;ListCmb=Square;"
                         "DisplayCmb=Block;FixOpt=1;XFixCmb=Custom;Xbox=5;RepOpt=1");
        QCOMPARE(valuesOf(*form, "LBCBox;TBCBox;BdrTopCmb;URLBox;ListCmb;XFixCmb;Xbox"),
                 ";;None;;Disc;Top;0");
        // Signed margins, unsigned padding, anything in the vertical alignment.
        setFields(*form, "LeftBox=;PLBox=;ValignBox=");
        for (TextBox* box : {&form->LeftBox, &form->PLBox, &form->ValignBox})
            box->typeText("-5.x");
        QCOMPARE(valuesOf(*form, "LeftBox;PLBox;ValignBox"), QString("-5;5;-5.x"));
        form->Xbox.setText("399");
        form->UpDown8.stepUp();
        form->UpDown8.stepUp();
        form->Xbox.typeText("9"); // typed digits may pass the bound
        QCOMPARE(form->Xbox.Text(), QString("4009"));
        // A colour box takes red, green and blue in decimal; a cancel keeps it.
        fx.ts.platform.colorAnswers << 0x0A0B0Cu << std::nullopt;
        form->BGColourMore.press();
        form->BGColourMore.press();
        QCOMPARE(form->BGColour.Text(), QString("12, 11, 10"));
        // Every change of a field marks the style; a change of tab does not.
        for (const char* entry :
             {"ClassBox=x", "BoldCmb=Bold", "SmlCaps=1", "LeftOpt=1", "TagName=P", "URLBox=a"}) {
            form->session().StyleDirty = false;
            setFields(*form, entry);
            QVERIFY2(form->session().StyleDirty, entry);
        }
        form->session().StyleDirty = false;
        form->SSTab1.SelectTab(3);
        QVERIFY(!form->session().StyleDirty);
    }

    // Each option turns the others of its group off, and only those.
    void the_option_groups() {
        StyleFixture fx;
        auto form = fx.open();
        frmATag atag(*fx.ts);
        for (const char* group :
             {"BdrAllOpt;SpecBdrOpt", "BAllOpt;BSpecOpt", "NoneOpt;LeftOpt;RightOpt",
              "NneOpt;LftOpt;RtOpt;BothOpt", "Option1;PSpecOpt",
              "RepOpt;RepHorzOpt;RepVertOpt;NoRepOpt;FixOpt", "LinkOpt;Vopt;Aopt;AllOpt"}) {
            Form& owner = group[0] == 'L' ? static_cast<Form&>(atag) : *form;
            for (const QString& chosen : items(group)) {
                setFields(owner, chosen + "=1");
                QCOMPARE(valuesOf(owner, group),
                         QString(group)
                             .replace(QRegularExpression("\\w+"), "off")
                             .replace(items(group).indexOf(chosen) * 4, 3, "on"));
            }
        }
    }

    // Save asks a name for the new style and refuses the placeholder; a name that exists is
    // overwritten on Yes and moves to the end of the list; a named style saves unasked.
    void save() {
        StyleFixture fx;
        auto form = fx.open();
        fx.saveAs(*form, QString());
        QCOMPARE(form->cmbItemName.ListCount(), 1);
        fx.saveAs(*form, kNew);
        QCOMPARE(fx.ts.platform.messageTexts(), QStringList({"You cannot use this style name."}));
        QCOMPARE(fx.ts.platform.messages.last().icon, MsgIcon::Exclamation);
        QCOMPARE(fx.ts.platform.inputPrompts.last(), QString("Enter a name for your settings."));
        for (const char* name : {"(new style)", "Beta", "Gamma"}) {
            fx.saveAs(*form, name);
            QCOMPARE(form->cmbItemName.Text(), QString(name));
            form->tbrStyle_ButtonClick(0);
        }
        setFields(*form, "TagName=H3");
        fx.ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        fx.saveAs(*form, "Beta");
        QCOMPARE(fx.ts.platform.messageTexts().last(),
                 QString("The style name [Beta] already exists. Do you want to overwrite it?"));
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew, "(new style)", "Gamma", "Beta"}));
        QCOMPARE(form->cmbItemName.Text() + fx.read("Beta", "Tag"), QString("BetaH3"));
        QVERIFY(!form->session().StyleDirty && !form->session().StyleListWalk);
        setFields(*form, "TagName=H5");
        form->tbrStyle_ButtonClick(2);
        QCOMPARE(fx.read("Beta", "Tag"), QString("H5"));
        // No: back to the new style, fields and the mark kept.
        form->tbrStyle_ButtonClick(0);
        setFields(*form, "TagName=H4");
        fx.ts.platform.messageAnswers.enqueue(MsgResult::No);
        fx.saveAs(*form, "Gamma");
        QCOMPARE(valuesOf(*form, "cmbItemName;TagName") + fx.read("Gamma", "Tag"), kNew + ";H4");
        QVERIFY(form->session().StyleDirty && !form->session().StyleListWalk);
    }

    // A load asks about changes: Cancel keeps the fields under the new name, Yes saves them
    // under the name just chosen and loads it, No loads it. New asks with the name, and resets.
    void load_and_new() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, "TagName=H1");
        fx.saveAs(*form, "One");
        form->tbrStyle_ButtonClick(0);
        setFields(*form, "TagName=H2");
        fx.saveAs(*form, "Two");
        const QString fields = QStringLiteral("cmbItemName;TagName;ClassBox");
        setFields(*form, "ClassBox=edited");
        fx.ts.platform.messageAnswers << MsgResult::Cancel << MsgResult::Yes << MsgResult::No;
        form->cmbItemName.setText("One");
        QCOMPARE(fx.ts.platform.messageTexts().last(),
                 QString("Save the changes made to your style settings?"));
        QCOMPARE(valuesOf(*form, fields), QString("One;H2;edited"));
        QVERIFY(form->session().StyleDirty);
        form->cmbItemName.setText("Two");
        QCOMPARE(valuesOf(*form, fields) + fx.read("Two", "Class"), QString("Two;H2;editededited"));
        setFields(*form, "ClassBox=dropped");
        form->cmbItemName.setText("One");
        QCOMPARE(valuesOf(*form, fields), QString("One;H1;"));
        QVERIFY(!form->session().StyleDirty);

        setFields(*form, "TagName=P");
        fx.ts.platform.messageAnswers << MsgResult::Cancel << MsgResult::No << MsgResult::No;
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(fx.ts.platform.messageTexts().last(),
                 QString("Save the changes made to your style settings One?"));
        QCOMPARE(form->TagName.Text(), QString("P"));
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(valuesOf(*form, fields), kNew + ";;");
        setFields(*form, "TagName=P"); // New on the new style resets too
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(form->TagName.Text(), QString());
        QVERIFY(!form->session().StyleDirty);
    }

    void delete_refuses_the_placeholder_and_asks_first() {
        StyleFixture fx;
        auto form = fx.open();
        const auto last = [&] {
            const ShownMessage& m = fx.ts.platform.messages.last();
            return m.title + ": " + m.text;
        };
        form->tbrStyle_ButtonClick(4);
        QCOMPARE(last(), QString("Unable to Delete Settings: You cannot delete the style "
                                 "settings named (New Style)."));
        setFields(*form, "TagName=EM");
        fx.saveAs(*form, "Gone");
        fx.ts.platform.messageAnswers << MsgResult::No << MsgResult::Yes;
        form->tbrStyle_ButtonClick(4);
        QVERIFY(QFile::exists(fx.file("Gone")));
        QCOMPARE(last(), QString("Continue with delete?: Are you sure you want to delete the "
                                 "settings named Gone?"));
        form->tbrStyle_ButtonClick(4);
        QVERIFY(!QFile::exists(fx.file("Gone")));
        QCOMPARE(fx.ts.settings.get("Saved Styles", "Gone", "<none>"), QString("<none>"));
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew}));
        QCOMPARE(form->TagName.Text(), QString());
    }

    // "A" chosen from the list asks which links it means; typed, it asks nothing.
    void the_link_dialog_sets_the_selector_of_A() {
        StyleFixture fx;
        auto form = fx.open();
        for (const char* choice :
             {"LinkOpt=A:Link", "Vopt=A:Visited", "Aopt=A:Active", "AllOpt=A"}) {
            const QString option = QString(choice).section('=', 0, 0);
            fx.ts.forms.then<frmATag>([&](frmATag& f) {
                QCOMPARE(f.Caption(), QString("Which form of Hyperlink?"));
                f.closeBox();
                QVERIFY(f.isLoaded()); // only OK closes it
                setFields(f, "LinkOpt=1;" + option + "=1");
                f.OK.press();
            });
            form->TagName.setListIndex(1);
            form->TagName.setListIndex(0);
            QCOMPARE(form->session().AType, QString(choice).section('=', 1));
        }
        form->TagName.setText("A");
        QCOMPARE(fx.ts.forms.shown.size(), 4);
    }

    void ok_writes_the_rule_into_the_document_from_the_menu() {
        StyleFixture fx;
        fx.ts.load();
        codeEditor& doc = fx.ts.active();
        doc.codebox().setText("<html><head></head><body></body></html>");
        fx.ts.forms.then<frmStyle>([](frmStyle& f) {
            f.cmdOK.press(); // nothing chosen yet: refused, the dialog stays
            QVERIFY(f.isLoaded());
            setFields(f, "TagName=H1;BoldCmb=Bold");
            f.cmdOK.press();
            QVERIFY(!f.isLoaded());
        });
        const int steps = doc.nDoneIndex;
        fx.ts.run("mnuInsertCSS");
        QCOMPARE(fx.ts.platform.messageTexts(),
                 QStringList({"You must specify a tag and/or a class"}));
        QCOMPARE(fx.ts.platform.messages.first().icon, MsgIcon::Critical);
        QCOMPARE(doc.codebox().Text(), kHiddenBlock.arg("font-weight: Bold"));
        QCOMPARE(int(doc.nDoneIndex), steps + 1);

        // The second rule for H1 replaces the first, without a step.
        fx.ts.forms.then<frmStyle>([](frmStyle& f) {
            setFields(f, "TagName=H1;ItalicCmb=Italic");
            f.cmdOK.press();
        });
        fx.ts.run("mnuInsertCSS");
        QCOMPARE(doc.codebox().Text(), kHiddenBlock.arg("font-style: Italic"));
        QCOMPARE(int(doc.nDoneIndex), steps + 1);
    }
};

QTEST_GUILESS_MAIN(TestFrmStyle)
#include "test_frm_style.moc"
