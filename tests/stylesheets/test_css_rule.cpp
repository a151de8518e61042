// The rule of the style dialog's fields, text for text, and where it goes in a style sheet or
// a page.
#include "editor/text_pane.h"
#include "runtime/runtime_error.h"
#include "style_fixture.h"
#include "stylesheets/css_rule.h"
#include "test_rows.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kNewBlock = QStringLiteral("\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet "
                                         "information from browsers that do not support Style "
                                         "Sheets */\n");
// A rule head and its properties, each behind the separator.
QString rule(const QString& head, const QStringList& properties) {
    QString text = "  " + head + " {\n    ";
    for (const QString& p : properties)
        text += p + ";\n    ";
    return text + "}";
}
} // namespace

class TestCssRule : public QObject {
    Q_OBJECT

  private slots:
    // Fields set, then the rule's head and its properties (";" apart).
    // Fields set, then the rule: its head, "|", and its properties (";" apart).
    void rules_data() {
        test::columns<QString, QString>({"fields", "rule"});
        row("a bare tag", "TagName=H1", "H1|");
        row("a class alone", "ClassBox=note", ".note|");
        row("tag and class", "TagName=p;ClassBox=intro", "p.intro|");
        row("font families",
            "TagName=P;FontFaceCmb=Arial;SecondFontChk=1;FontFaceCmb2=Courier "
            "New;GenFontChk=1;FontGenCmb=Sans-serif",
            "P|font-family: \"Arial\", \"Courier New\", Sans-serif");
        row("a font with its generic family only", "TagName=P;FontFaceCmb=Arial;GenFontChk=1",
            "P|font-family: \"Arial\", Serif");
        row("a font face takes its checks away when it goes",
            "TagName=P;FontFaceCmb=Arial;SecondFontChk=1;FontFaceCmb=(None)", "P|");
        row("sizes, case, colour and text, in the rule's own order",
            "TagName=H2;TextDecoCmb=Underline;ColourBox=255, 0, 0;CaseCmb=UPPER "
            "CASE;AlignCmb=Left;FntSizeCmb=x-large;BoldCmb=Bold;ItalicCmb=Italic;SmlCaps=1",
            "H2|font-size: x-large;text-align: Left;text-transform: uppercase;color: RGB(255, 0, "
            "0);text-decoration: Underline;font-weight: Bold;font-style: Italic;font-variant: "
            "small-caps");
        row("sizes and spacing; a zero indent writes nothing, the letters take the unit of the "
            "words",
            "TagName=P;FntSizeCmb=custom;FontSizeBox=14;FontSizeCmb=px;VCmb=Percentage;ValignBox=-"
            "30;LineHtBox=2;LineHtCmb=em;IndentBox=0;LtrSpaceBox=2;LtrSpaceCmb=px;WrdSpaceCmb=pt;"
            "RightOpt=1;BothOpt=1",
            "P|font-size: 14px;vertical-align: -30%;line-height: 2em;letter-spacing: 2pt;float: "
            "right;clear: both");
        row("a box, and word spacing writes zero too",
            "TagName=DIV;WrdSpaceBox=0;WrdSpaceCmb=em;WidthCmb=Custom;CWBox=50;CWCmb=px;HeightCmb="
            "Custom;CHBox=10;CHCmb=in",
            "DIV|width: 50px;height: 10in;word-spacing: 0em");
        row("margins side by side, zero and empty left out, and one padding",
            "TagName=P;LeftBox=-5;LMCmb=em;RightBox=;TopBox=0;BottomBox=12;PallBox=4;PACmb=px",
            "P|margin-left: -5em;margin-bottom: 12pt;padding: 4px");
        row("the height is tested on the width box",
            "TagName=DIV;WidthCmb=Custom;CWBox=0;HeightCmb=Custom;CHBox=10", "DIV|");
        row("display, white space and a list item",
            "TagName=LI;DisplayCmb=List-item;WhiteSpCmb=Pre;ListCmb=Lower "
            "Alphabet;LPosCmb=Inside;URLBox=dot.gif",
            "LI|display: List-item;white-space: Pre;list-style: url(dot.gif) Inside lower-alpha");
        row("a list type as it stands, behind a second blank",
            "TagName=LI;DisplayCmb=List-item;ListCmb=Square",
            "LI|display: List-item;list-style:  Square");
        row("list style None with nothing else still writes the property",
            "TagName=LI;DisplayCmb=List-item;ListCmb=None", "LI|display: List-item;list-style: ");
        row("a background colour alone", "TagName=BODY;BGColour=1, 2, 3;NoRepOpt=1",
            "BODY|background: rgb(1, 2, 3)");
        row("a fixed position without an image writes no background", "TagName=BODY;FixOpt=1",
            "BODY|");
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
    void rules() {
        QFETCH(QString, fields);
        QFETCH(QString, rule);
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, fields);
        QCOMPARE(styleRule(*form, QString()),
                 ::rule(rule.section(u'|', 0, 0), items(rule.section(u'|', 1))));
    }

    void the_link_type_is_the_selector_of_A() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, "TagName=A;ClassBox=nav");
        QCOMPARE(styleRule(*form, "A:Visited"), rule("A:Visited.nav", {}));
        setFields(*form, "TagName=a");
        QCOMPARE(styleRule(*form, "A:Visited"), rule("a.nav", {}));
    }

    void placing_data() {
        test::columns<QString, bool, QString, QString, QString, QString>(
            {"before", "styleSheet", "selector", "className", "after", "place"});
        const QString r = rule("H1", {"color: RGB(1, 2, 3)"});
        const QString rc = rule("P.x", {});
        row("a style sheet gets the rule at its end", "BODY {\n}", true, "H1", "",
            "BODY {\n}\n\n" + r, "Appended");
        row("a style sheet's rule of the same selector is replaced",
            "BODY {\n}\nh1 {\n    color: red;\n}\nP {\n}", true, "H1", "",
            "BODY {\n}\n" + r.mid(2) + "\nP {\n}", "Replaced");
        row("the whole word: H1 does not match XH1", "XH1 {\n}", true, "H1", "", "XH1 {\n}\n\n" + r,
            "Appended");
        row("a page's rule with a class is replaced",
            "<style>\n  P.x {\n    color: red;\n}\n</style>", false, "P", "x",
            "<style>\n  " + rc.mid(2) + "\n</style>", "Replaced");
        row("into the page's block that hides from old browsers",
            "<head><style>\n<!--\nB {\n}\n--></style></head>", false, "H1", "",
            "<head><style>\n<!--\nB {\n}\n\n" + r + "\n--></style></head>", "InBlock");
        row("into the page's plain block", "<head><style>\nB {\n}\n</style></head>", false, "H1",
            "", "<head><style>\nB {\n}\n\n" + r + "\n</style></head>", "InBlock");
        row("a new block stands behind the head",
            "<html><head><title>t</title></head><body></body></html>", false, "H1", "",
            "<html><head><title>t</title></head>" + kNewBlock + r +
                "\n--></style><body></body></html>",
            "NewBlock");
        row("without a head the block goes 7 characters behind the caret", "0123456789", false,
            "H1", "", "0123456" + kNewBlock + r + "\n--></style>789", "NewBlock");
    }
    void placing() {
        QFETCH(QString, before);
        QFETCH(bool, styleSheet);
        QFETCH(QString, selector);
        QFETCH(QString, className);
        QFETCH(QString, after);
        QFETCH(QString, place);
        TextPane pane;
        pane.setText(before);
        const QString r = className.isEmpty() ? rule(selector, {"color: RGB(1, 2, 3)"})
                                              : rule(selector + "." + className, {});
        const RulePlace placed = placeRule(pane, styleSheet, selector, className, r);
        QCOMPARE(pane.Text(), after);
        const char* names[] = {"Replaced", "Appended", "InBlock", "NewBlock"};
        QCOMPARE(QString(names[int(placed)]), place);
    }

    void a_rule_without_its_brace_is_refused_and_the_text_stays() {
        TextPane pane;
        for (const QString& text : {QString("P.x {\n  color: red;\n"), QString("B {}\nP.x {\n")}) {
            pane.setText(text);
            QVERIFY(test::errorOf([&] { placeRule(pane, true, "P", "x", rule("P.x", {})); }) != 0);
            QCOMPARE(pane.Text(), text);
        }
    }
};

QTEST_GUILESS_MAIN(TestCssRule)
#include "test_css_rule.moc"
