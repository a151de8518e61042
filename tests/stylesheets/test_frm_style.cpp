// The style dialog: fields, the rule and where it goes, saved styles, frmATag; the .def files.
#include "dialogs_helpers.h"
#include "editor/text_pane.h"
#include "stylesheets/css_rule.h"
#include "stylesheets/frm_atag.h"
#include "stylesheets/frm_style.h"
#include "stylesheets/profile_file.h"
#include "stylesheets/style_session.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>
#include <QTemporaryDir>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kNew = QStringLiteral("(New Style)");
const QString kSection = QStringLiteral("Tessaline 2");
const QString kNewBlock = QStringLiteral("\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet "
                                         "information from browsers that do not support Style "
                                         "Sheets */\n");

// A shell on scripted services with a styles folder of its own and a fresh style session.
struct StyleFixture {
    QTemporaryDir program;
    TestShell ts;
    StyleFixture() {
        resetStyleSession();
        ts.platform.appFolder = program.path();
        QFile(program.filePath(QStringLiteral("CMakeCache.txt"))).open(QIODevice::WriteOnly);
        QDir(program.path()).mkdir(QStringLiteral("styles"));
        ts->FontNames = items("Aharoni;Arial;Courier New;Times New Roman");
    }
    // The dialog as the menu opens it.
    std::unique_ptr<frmStyle> open() {
        auto form = std::make_unique<frmStyle>(*ts);
        form->Form_Load();
        return form;
    }
    QString file(const QString& name) const {
        return program.filePath(QStringLiteral("styles/") + name + QStringLiteral(".def"));
    }
    // Save with the name question answered.
    void saveAs(frmStyle& form, const QString& name) {
        ts.platform.inputAnswers.enqueue(name);
        form.tbrStyle_ButtonClick(2);
    }
    QString read(const QString& name, const QString& key) const {
        return GetPrivateProfileString(kSection, key, "<none>", file(name));
    }
};

// What a save and a load carry: every field but the name list.
QMap<QString, QString> styleValues(const frmStyle& form) {
    QMap<QString, QString> values = fieldValues(form);
    values.remove(QStringLiteral("cmbItemName"));
    return values;
}

// A rule head and its properties, each behind the separator.
QString rule(const QString& head, const QStringList& properties) {
    QString text = "  " + head + " {\n    ";
    for (const QString& p : properties)
        text += p + ";\n    ";
    return text + "}";
}
} // namespace

class TestFrmStyle : public QObject {
    Q_OBJECT
    std::unique_ptr<StyleFixture> fx;
    std::unique_ptr<frmStyle> form; // opened on the fixture before each test

    // Save, then load in a new opening: all comes back but the fixed position's units ("%").
    void roundTrip() {
        form->session().AType = "A:Visited";
        QMap<QString, QString> expected = styleValues(*form);
        if (form->FixOpt.Value()) expected["XCmb"] = expected["YCmb"] = "%";
        fx->saveAs(*form, "mine");
        form.reset();
        form = fx->open();
        form->session().AType.clear();
        form->cmbItemName.setText("mine");
        QCOMPARE(styleValues(*form), expected);
        QVERIFY(form->session().AType == "A:Visited" && !form->session().StyleDirty);
    }

  private slots:
    void init() {
        fx = std::make_unique<StyleFixture>();
        form = fx->open();
    }
    void cleanup() { form.reset(), fx.reset(); }

    void it_opens_on_a_new_style_with_the_load_defaults() {
        fx->ts.settings.save("Saved Styles", "Zebra", "Zebra");
        form = fx->open();
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew, "Zebra"}));
        QCOMPARE(valuesOf(*form, "cmbItemName;LineHtCmb"), kNew + ";pt");
        QCOMPARE(fx->ts.settings.get("Saved Styles", kNew), kNew);
        // The first font of the list is missing from both lists.
        QCOMPARE(form->FontFaceCmb.items(), items("(None);Arial;Courier New;Times New Roman"));
        QCOMPARE(form->FontFaceCmb2.items(), form->FontFaceCmb.items());
        QVERIFY(!form->session().StyleDirty);
        fx->ts.platform.appFolder = "/opt/t";
        form->cmdHelp.press();
        QCOMPARE(fx->ts.platform.helpShown, QStringList{"/opt/t/tessaline.chm"});
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
        setFields(*form, fields);
        QTEST(enabledOf(*form, "SecondFontChk;GenFontChk;FontFaceCmb2;FontGenCmb;FontSizeBox;"
                               "UpDown3;ValignBox;UpDownVA;ColourBBox;BdrAllCmb;BallCWBox;"
                               "SizeAllCmb;BdrLeftCmb;BdrTopCmb;TBCBox;LBCBox;LeftSizeCmb;"
                               "BotSizeCmb;BBBox;BLBox;PallBox;PLBox;PTBox;CWBox;CHBox;ListCmb;"
                               "URLBox;XFixCmb;YFixCmb;Xbox;YBox"),
              "on");
    }

    // Fields, then the rule ("head|property;..."); then the fields through a save and a load.
    void the_rule_data() {
        test::columns<QString, QString>({"fields", "rule"});
        row("a bare tag", "TagName=H1", "H1|");
        row("capitals", "TagName=H1;CaseCmb=Capitalize", "H1|text-transform: capitalize");
        row("lower case", "TagName=H1;CaseCmb=lower case", "H1|text-transform: lowercase");
        row("a class alone", "ClassBox=note", ".note|");
        row("tag and class", "TagName=p;ClassBox=intro", "p.intro|");
        row("font families",
            "TagName=P;FontFaceCmb=Arial;SecondFontChk=1;FontFaceCmb2=Courier "
            "New;GenFontChk=1;FontGenCmb=Sans-serif",
            "P|font-family: \"Arial\", \"Courier New\", Sans-serif");
        row("a font with its generic family only", "TagName=P;FontFaceCmb=Arial;GenFontChk=1",
            "P|font-family: \"Arial\", Serif");
        row("sizes, case, colour and text, in the rule's own order",
            "TagName=H2;TextDecoCmb=Underline;ColourBox=255, 0, 0;CaseCmb=UPPER "
            "CASE;AlignCmb=Left;FntSizeCmb=x-large;BoldCmb=Bold;ItalicCmb=Italic;SmlCaps=1",
            "H2|font-size: x-large;text-align: Left;text-transform: uppercase;color: RGB(255, 0, "
            "0);text-decoration: Underline;font-weight: Bold;font-style: Italic;font-variant: "
            "small-caps");
        row("sizes and spacing, letters in the unit of the words",
            "TagName=P;FntSizeCmb=custom;FontSizeBox=14;FontSizeCmb=px;VCmb=Percentage;ValignBox=-"
            "30;LineHtBox=2;LineHtCmb=em;IndentBox=0;LtrSpaceBox=2;LtrSpaceCmb=px;WrdSpaceCmb=pt;"
            "RightOpt=1;BothOpt=1",
            "P|font-size: 14px;vertical-align: -30%;line-height: 2em;letter-spacing: 2pt;float: "
            "right;clear: both");
        row("a box, and word spacing writes zero too",
            "TagName=DIV;WrdSpaceBox=0;WrdSpaceCmb=em;WidthCmb=Custom;CWBox=50;CWCmb=px;HeightCmb="
            "Custom;CHBox=10;CHCmb=in",
            "DIV|width: 50px;height: 10in;word-spacing: 0em");
        row("margins, zero and empty left out, and one padding",
            "TagName=P;LeftBox=-5;LMCmb=em;RightBox=;TopBox=0;BottomBox=12;PallBox=4;PACmb=px",
            "P|margin-left: -5em;margin-bottom: 12pt;padding: 4px");
        row("the height is tested on the width box",
            "TagName=DIV;WidthCmb=Custom;CWBox=0;HeightCmb=Custom;CHBox=10", "DIV|");
        row("display, white space and a list item",
            "TagName=LI;DisplayCmb=List-item;WhiteSpCmb=Pre;ListCmb=Lower "
            "Alphabet;LPosCmb=Inside;URLBox=dot.gif",
            "LI|display: List-item;white-space: Pre;list-style: url(dot.gif) Inside lower-alpha");
        row("a list type behind a second blank", "TagName=LI;DisplayCmb=List-item;ListCmb=Square",
            "LI|display: List-item;list-style:  Square");
        row("list style None with nothing else still writes the property",
            "TagName=LI;DisplayCmb=List-item;ListCmb=None", "LI|display: List-item;list-style: ");
        row("a background colour alone", "TagName=BODY;BGColour=1, 2, 3;NoRepOpt=1",
            "BODY|background: rgb(1, 2, 3)");
        row("a fixed position without an image", "TagName=BODY;FixOpt=1", "BODY|");
        row("an image that repeats across, fixed",
            "TagName=BODY;ImgURL=bg.gif;RepHorzOpt=1;AttachCmb=Fixed",
            "BODY|background:  url(bg.gif) repeat-x Fixed");
        row("an image at a fixed position, X with the vertical words",
            "TagName=BODY;BGColour=0, 0, "
            "0;ImgURL=bg.gif;FixOpt=1;XFixCmb=Bottom;YFixCmb=Custom;YBox=20;YCmb=px",
            "BODY|background: rgb(0, 0, 0) url(bg.gif) Bottom 20px");
        row("one border for all",
            "TagName=TD;BdrAllCmb=Solid;ColourBBox=0, 0, "
            "255;SizeAllCmb=Custom;BallCWBox=2;BallCmb=px",
            "TD|border: Solid 2px rgb(0, 0, 255)");
        row("one style, widths for each side",
            "TagName=TD;BdrAllCmb=Dotted;BSpecOpt=1;LeftSizeCmb=Thin;BotSizeCmb=Custom;BBBox=3;"
            "BBCmb=mm",
            "TD|border-left: Dotted Thin;border-right: Dotted Medium;border-top: Dotted "
            "Medium;border-bottom: Dotted 3mm");
        row("one style None still writes the four sides", "TagName=TD;BSpecOpt=1",
            "TD|border-left: None ;border-right: None ;border-top: None ;border-bottom: None ");
        row("styles for each side with one width",
            "TagName=TD;SpecBdrOpt=1;BdrLeftCmb=Double;LBCBox=1, 1, 1;SizeAllCmb=Thick",
            "TD|border-left: Double Thick rgb(1, 1, 1);border-right: None Thick;border-top: None "
            "Thick;border-bottom: None Thick");
        row("both specified, defaults", "TagName=TD;SpecBdrOpt=1;BSpecOpt=1",
            "TD|border-left: None Medium;border-right: None Medium;border-top: None "
            "Medium;border-bottom: None Medium");
        row("padding for each side, zeros included", "TagName=P;PSpecOpt=1",
            "P|padding: 0pt 0pt 0pt 0pt");
        row("padding for each side in the order top, right, bottom, left",
            "TagName=P;PSpecOpt=1;PLBox=1;PRBox=2;PRCmb=em;PTBox=3;PBBox=4;PBCmb=%",
            "P|padding: 3pt 2em 4% 1pt");
    }
    void the_rule() {
        QFETCH(QString, fields);
        QFETCH(QString, rule);
        setFields(*form, fields);
        QCOMPARE(styleRule(*form, QString()),
                 ::rule(rule.section(u'|', 0, 0), items(rule.section(u'|', 1))));
        roundTrip();
    }

    // The fields the rules above leave at their defaults, and the other branches.
    void every_field_round_trips() {
        setFields(*form, "IndentBox=-5;IndentCmb=mm;RightBox=3;RMCmb=%;TopBox=1;TMCmb=em;"
                         "BMCmb=cm;SpecBdrOpt=1;BdrRtCmb=Solid;RBCBox=2, 2, 2;BdrBotCmb=Inset;"
                         "BBCBox=4, 4, 4;TBCBox=;BSpecOpt=1;RtSizeCmb=Thin;TopSizeCmb=Thick;"
                         "LeftSizeCmb=Custom;BLBox=2;BLCmb=em;PSpecOpt=1;PLCmb=px;PTCmb=em;"
                         "RepVertOpt=1;ListCmb=Upper Roman;LPosCmb=Inside");
        roundTrip();
        setFields(*form, "FixOpt=1;XFixCmb=Custom;Xbox=10;XCmb=px;YFixCmb=Custom;YBox=30");
        roundTrip();
    }

    // Text, style sheet or page, the rule's head, the text after, where it went (or refused).
    void placing_the_rule_data() {
        test::columns<QString, bool, QString, QString, QString>(
            {"before", "styleSheet", "head", "after", "place"});
        const QString r = rule("H1", {"color: RGB(1, 2, 3)"});
        row("a style sheet gets the rule at its end", "BODY {\n}", true, "H1", "BODY {\n}\n\n" + r,
            "Appended");
        row("a style sheet's rule of the same selector is replaced",
            "BODY {\n}\nh1 {\n    color: red;\n}\nP {\n}", true, "H1",
            "BODY {\n}\n" + r.mid(2) + "\nP {\n}", "Replaced");
        row("the whole word: H1 does not match XH1", "XH1 {\n}", true, "H1", "XH1 {\n}\n\n" + r,
            "Appended");
        row("a page's rule with a class is replaced",
            "<style>\n  P.x {\n    color: red;\n}\n</style>", false, "P.x",
            "<style>\n  " + rule("P.x", {}).mid(2) + "\n</style>", "Replaced");
        row("into the page's block that hides from old browsers",
            "<head><style>\n<!--\nB {\n}\n--></style></head>", false, "H1",
            "<head><style>\n<!--\nB {\n}\n\n" + r + "\n--></style></head>", "InBlock");
        row("into the page's plain block", "<head><style>\nB {\n}\n</style></head>", false, "H1",
            "<head><style>\nB {\n}\n\n" + r + "\n</style></head>", "InBlock");
        row("a new block stands behind the head",
            "<html><head><title>t</title></head><body></body></html>", false, "H1",
            "<html><head><title>t</title></head>" + kNewBlock + r +
                "\n--></style><body></body></html>",
            "NewBlock");
        row("without a head the block goes 7 characters behind the caret", "0123456789", false,
            "H1", "0123456" + kNewBlock + r + "\n--></style>789", "NewBlock");
        row("no closing brace", "P.x {\n  color: red;\n", true, "P.x", "P.x {\n  color: red;\n",
            "refused");
        row("no closing brace after another rule", "B {}\nP.x {\n", true, "P.x", "B {}\nP.x {\n",
            "refused");
    }
    void placing_the_rule() {
        QFETCH(QString, before);
        QFETCH(bool, styleSheet);
        QFETCH(QString, head);
        TextPane pane;
        pane.setText(before);
        const QString selector = head.section(u'.', 0, 0), className = head.section(u'.', 1);
        const QString r =
            rule(head, className.isEmpty() ? items("color: RGB(1, 2, 3)") : items(""));
        RulePlace placed = RulePlace::Replaced;
        const int error =
            test::errorOf([&] { placed = placeRule(pane, styleSheet, selector, className, r); });
        QTEST(pane.Text(), "after");
        const char* names[] = {"Replaced", "Appended", "InBlock", "NewBlock"};
        QTEST(QString(error ? "refused" : names[int(placed)]), "place");
    }

    // Fields reset by others, the keys, the colour boxes, and the mark of a changed style.
    void field_rules() {
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
        // A colour box takes red, green and blue in decimal; a cancel keeps it.
        fx->ts.platform.colorAnswers << 0x0A0B0Cu << std::nullopt;
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

    // Save asks a name, refuses the placeholder, overwrites on Yes (the name moves to the end).
    void save() {
        fx->saveAs(*form, QString());
        QCOMPARE(form->cmbItemName.ListCount(), 1);
        fx->saveAs(*form, kNew);
        QCOMPARE(fx->ts.platform.messageTexts(), QStringList({"You cannot use this style name."}));
        QCOMPARE(fx->ts.platform.messages.last().icon, MsgIcon::Exclamation);
        QCOMPARE(fx->ts.platform.inputPrompts.last(), QString("Enter a name for your settings."));
        for (const char* name : {"(new style)", "Beta", "Gamma"}) {
            fx->saveAs(*form, name);
            QCOMPARE(form->cmbItemName.Text(), QString(name));
            form->tbrStyle_ButtonClick(0);
        }
        setFields(*form, "TagName=H3");
        fx->ts.platform.messageAnswers.enqueue(MsgResult::Yes);
        fx->saveAs(*form, "Beta");
        QCOMPARE(fx->ts.platform.messageTexts().last(),
                 QString("The style name [Beta] already exists. Do you want to overwrite it?"));
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew, "(new style)", "Gamma", "Beta"}));
        QCOMPARE(form->cmbItemName.Text() + fx->read("Beta", "Tag"), QString("BetaH3"));
        QVERIFY(!form->session().StyleDirty && !form->session().StyleListWalk);
        setFields(*form, "TagName=H5");
        form->tbrStyle_ButtonClick(2);
        QCOMPARE(fx->read("Beta", "Tag"), QString("H5"));
        // No: back to the new style, fields and the mark kept.
        form->tbrStyle_ButtonClick(0);
        setFields(*form, "TagName=H4");
        fx->ts.platform.messageAnswers.enqueue(MsgResult::No);
        fx->saveAs(*form, "Gamma");
        QCOMPARE(valuesOf(*form, "cmbItemName;TagName") + fx->read("Gamma", "Tag"), kNew + ";H4");
        QVERIFY(form->session().StyleDirty && !form->session().StyleListWalk);
    }

    // A load asks about changes: Cancel keeps them, Yes saves them, No drops them; New too.
    void load_and_new() {
        setFields(*form, "TagName=H1");
        fx->saveAs(*form, "One");
        form->tbrStyle_ButtonClick(0);
        setFields(*form, "TagName=H2");
        fx->saveAs(*form, "Two");
        const QString fields = QStringLiteral("cmbItemName;TagName;ClassBox");
        setFields(*form, "ClassBox=edited");
        fx->ts.platform.messageAnswers << MsgResult::Cancel << MsgResult::Yes << MsgResult::No;
        form->cmbItemName.setText("One");
        QCOMPARE(fx->ts.platform.messageTexts().last(),
                 QString("Save the changes made to your style settings?"));
        QCOMPARE(valuesOf(*form, fields), QString("One;H2;edited"));
        QVERIFY(form->session().StyleDirty);
        form->cmbItemName.setText("Two");
        QCOMPARE(valuesOf(*form, fields) + fx->read("Two", "Class"),
                 QString("Two;H2;editededited"));
        setFields(*form, "ClassBox=dropped");
        form->cmbItemName.setText("One");
        QCOMPARE(valuesOf(*form, fields), QString("One;H1;"));
        QVERIFY(!form->session().StyleDirty);

        setFields(*form, "TagName=P");
        fx->ts.platform.messageAnswers << MsgResult::Cancel << MsgResult::No << MsgResult::No;
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(fx->ts.platform.messageTexts().last(),
                 QString("Save the changes made to your style settings One?"));
        QCOMPARE(form->TagName.Text(), QString("P"));
        form->tbrStyle_ButtonClick(0);
        QCOMPARE(valuesOf(*form, fields), kNew + ";;");
        setFields(*form, "TagName=P"); // New on the new style resets too
        form->tbrStyle_ButtonClick(0);
        QVERIFY(form->TagName.Text().isEmpty() && !form->session().StyleDirty);
    }

    void delete_refuses_the_placeholder_and_asks_first() {
        const QList<ShownMessage>& shown = fx->ts.platform.messages;
        form->tbrStyle_ButtonClick(4);
        QCOMPARE(shown.last().title + ": " + shown.last().text,
                 QString("Unable to Delete Settings: You cannot delete the style settings named "
                         "(New Style)."));
        setFields(*form, "TagName=EM");
        fx->saveAs(*form, "Gone");
        fx->ts.platform.messageAnswers << MsgResult::No << MsgResult::Yes;
        form->tbrStyle_ButtonClick(4);
        QVERIFY(QFile::exists(fx->file("Gone")));
        QCOMPARE(shown.last().title + ": " + shown.last().text,
                 QString("Continue with delete?: Are you sure you want to delete the settings "
                         "named Gone?"));
        form->tbrStyle_ButtonClick(4);
        QVERIFY(!QFile::exists(fx->file("Gone")) &&
                fx->ts.settings.get("Saved Styles", "Gone", "<none>") == "<none>");
        QCOMPARE(form->cmbItemName.items(), QStringList({kNew}));
        QCOMPARE(form->TagName.Text(), QString());
    }

    // "A" chosen from the list asks which links it means; typed, it asks nothing.
    void the_link_dialog_sets_the_selector_of_A() {
        for (const char* choice :
             {"LinkOpt=A:Link", "Vopt=A:Visited", "Aopt=A:Active", "AllOpt=A"}) {
            const QString option = QString(choice).section('=', 0, 0);
            fx->ts.forms.then<frmATag>([&](frmATag& f) {
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
        QCOMPARE(fx->ts.forms.shown.size(), 4);
        // The link type is the selector of "A" in capitals, and of nothing else.
        setFields(*form, "ClassBox=nav");
        QCOMPARE(styleRule(*form, "A:Visited"), rule("A:Visited.nav", {}));
        setFields(*form, "TagName=a");
        QCOMPARE(styleRule(*form, "A:Visited"), rule("a.nav", {}));
    }

    void ok_writes_the_rule_into_the_document_from_the_menu() {
        const auto page = [](const char* property) {
            return "<html><head></head>" + kNewBlock + rule("H1", {property}) +
                   "\n--></style><body></body></html>";
        };
        fx->ts.load();
        codeEditor& doc = fx->ts.active();
        doc.codebox().setText("<html><head></head><body></body></html>");
        fx->ts.forms.then<frmStyle>([](frmStyle& f) {
            f.cmdOK.press(); // nothing chosen yet: refused, the dialog stays
            QVERIFY(f.isLoaded());
            setFields(f, "TagName=H1;BoldCmb=Bold");
            f.cmdOK.press();
            QVERIFY(!f.isLoaded());
        });
        const int steps = doc.nDoneIndex;
        fx->ts.run("mnuInsertCSS");
        QCOMPARE(fx->ts.platform.messageTexts(),
                 QStringList({"You must specify a tag and/or a class"}));
        QCOMPARE(fx->ts.platform.messages.first().icon, MsgIcon::Critical);
        QCOMPARE(doc.codebox().Text(), page("font-weight: Bold"));
        QCOMPARE(int(doc.nDoneIndex), steps + 1);

        // The second rule for H1 replaces the first, without a step.
        fx->ts.forms.then<frmStyle>([](frmStyle& f) {
            setFields(f, "TagName=H1;ItalicCmb=Italic");
            f.cmdOK.press();
        });
        fx->ts.run("mnuInsertCSS");
        QCOMPARE(doc.codebox().Text(), page("font-style: Italic"));
        QCOMPARE(int(doc.nDoneIndex), steps + 1);
    }

    // A file as it was, the key and value written (none: a read), the file after or the read.
    void profiles_data() {
        columns<QString, QString, QString, QString>({"before", "key", "value", "after"});
        const char* h = "[Tessaline 2]\n";
        row("a new file", "<none>", "Tag", "H1", "[Tessaline 2]\nTag=H1\n");
        row("a key is updated where it stands", h + QString("Tag=H1\nClass=big\nFont1=Arial\n"),
            "Class", "small", h + QString("Tag=H1\nClass=small\nFont1=Arial\n"));
        row("a key matches in another case", h + QString("BdrAllOn=No\nSizeLft=Thin\n"), "BDRALLON",
            "Yes", h + QString("BDRALLON=Yes\nSizeLft=Thin\n"));
        row("a new key goes to the end of its section, not of the file",
            h + QString("Tag=H1\n\n[Other]\nX=1\n"), "Float", "Left",
            h + QString("Tag=H1\nFloat=Left\n\n[Other]\nX=1\n"));
        row("the section matches in another case", "[tessaline 2]\nTag=H1\n", "Class", "",
            "[tessaline 2]\nTag=H1\nClass=\n");
        row("a missing section goes to the end", "[Other]\nX=1\n", "Tag", "P",
            "[Other]\nX=1\n[Tessaline 2]\nTag=P\n");
        row("line ends of the file stay", "[Tessaline 2]\r\nTag=H1\r\n", "Tag", "H2",
            "[Tessaline 2]\r\nTag=H2\r\n");
        row("a comment is not a key", h + QString(";Tag=old\nTag=H1\n"), "Tag", "Zapf Ärger",
            h + QString(";Tag=old\nTag=Zapf Ärger\n"));
        // Reads: the default is "dflt".
        row("a missing file gives the default", "<none>", "Font1", "<read>", "dflt");
        row("a key in another case", h + QString("smallcaps=Yes\n"), "SmallCaps", "<read>", "Yes");
        row("blanks around the value go", h + QString("Tag =  H1  \n"), "Tag", "<read>", "H1");
        row("blanks inside a key name", h + QString("White Space=Pre\n"), "White Space", "<read>",
            "Pre");
        row("a missing key", h + QString("Tag=H1\n"), "Class", "<read>", "dflt");
        row("a key of another section", "[Other]\nTag=H1\n[Tessaline 2]\n", "Tag", "<read>",
            "dflt");
        row("an empty value is a value", h + QString("Class=\n"), "Class", "<read>", "");
        row("an equals sign in the value", h + QString("ImgURL=a.png?x=1\n"), "ImgURL", "<read>",
            "a.png?x=1");
        row("no carriage return in a value", "[Tessaline 2]\r\nTag=H1\r\n", "Tag", "<read>", "H1");
        row("the first of two equal keys", h + QString("Tag=H1\nTAG=H2\n"), "Tag", "<read>", "H1");
        row("a read is cut at 254 characters", h + QString("ImgURL=") + QString(300, 'u'), "ImgURL",
            "<read>", QString(254, 'u'));
    }
    void profiles() {
        QFETCH(QString, before);
        QFETCH(QString, key);
        QFETCH(QString, value);
        const QString path = fx->file("style");
        if (before != "<none>") writeFile(fx->program, "styles/style.def", before.toUtf8());
        if (value == "<read>") {
            QTEST(GetPrivateProfileString(kSection, key, "dflt", path), "after");
            QCOMPARE(QFile::exists(path), before != "<none>");
            return;
        }
        QVERIFY(WritePrivateProfileString(kSection, key, value, path));
        QTEST(QString::fromUtf8(readFile(path)), "after");
        QCOMPARE(GetPrivateProfileString(kSection, key, "?", path), value);
    }

    void a_write_into_a_missing_folder_fails() {
        const QString inMissing = fx->program.filePath(QStringLiteral("no/such/style.def"));
        QVERIFY(!WritePrivateProfileString(kSection, "Tag", "H1", inMissing) &&
                !QFile::exists(inMissing));
    }

    // A save leaves the keys of branches not taken as they were; a load does not read them.
    void keys_a_save_leaves_alone() {
        setFields(*form, "BSpecOpt=1;LeftSizeCmb=Thick;LeftOpt=1;NoRepOpt=1;PSpecOpt=1;PLBox=6");
        fx->saveAs(*form, "both");
        QCOMPARE(fx->read("both", "SizeAllCmb") + fx->read("both", "BdrLftType"),
                 QString("<none><none>")); // the branches not taken are not written
        setFields(*form, "BAllOpt=1;SizeAllCmb=Thin;LeftOpt=0;NoRepOpt=0;PSpecOpt=0;PLBox=0");
        QVERIFY(!form->BSpecOpt.Value()); // the two are one group
        form->tbrStyle_ButtonClick(2);
        QString read;
        for (const char* key : {"SizeLft", "BAllOn", "Float", "Repeat", "AllPaddingOn", "PLBox"})
            read += fx->read("both", key) + ';';
        QCOMPARE(read, QString("Thick;Yes;Left;No-repeat;No;6;"));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("both");
        QCOMPARE(valuesOf(*form, "SizeAllCmb;LeftSizeCmb"), QString("Thin;Medium"));
    }

    // Hand-edited keys: an unknown value shows the default (a font joins); checks read Yes/No.
    void odd_values_in_a_file() {
        fx->saveAs(*form, "odd");
        for (const char* entry : {"LineHeight2=PT", "Weight=heavy", "Font1=Aharoni",
                                  "SecondFont=Frutiger", "SecondFontOn=Maybe", "SmallCaps=Maybe",
                                  "Float=Centre", "BdrAllOn=Perhaps", "Class=still-read"})
            QVERIFY(WritePrivateProfileString(kSection, QString(entry).section('=', 0, 0),
                                              QString(entry).section('=', 1), fx->file("odd")));
        form->tbrStyle_ButtonClick(0);
        form->cmbItemName.setText("odd");
        QCOMPARE(valuesOf(*form, "LineHtCmb;BoldCmb;FontFaceCmb;FontFaceCmb2;SecondFontChk;"
                                 "SmlCaps;NoneOpt;BdrAllOpt;ClassBox"),
                 QString("pt;[None];Aharoni;Frutiger;0;1;on;on;still-read"));
    }
};

QTEST_GUILESS_MAIN(TestFrmStyle)
#include "test_frm_style.moc"
