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
    void rules_data() {
        test::columns<QStringList, QString>({"fields", "rule"});
        QTest::newRow("a bare tag") << QStringList{"TagName=H1"} << QString("  H1 {\n    }");
        QTest::newRow("a class alone")
            << QStringList{"ClassBox=note"} << QString("  .note {\n    }");
        QTest::newRow("tag and class")
            << QStringList{"TagName=p", "ClassBox=intro"} << rule("p.intro", {});
        QTest::newRow("font families")
            << QStringList{"TagName=P",       "FontFaceCmb=Arial",
                           "SecondFontChk=1", "FontFaceCmb2=Courier New",
                           "GenFontChk=1",    "FontGenCmb=Sans-serif"}
            << rule("P", {"font-family: \"Arial\", \"Courier New\", Sans-serif"});
        QTest::newRow("a font with its generic family only")
            << QStringList{"TagName=P", "FontFaceCmb=Arial", "GenFontChk=1"}
            << rule("P", {"font-family: \"Arial\", Serif"});
        QTest::newRow("a font face takes its checks away when it goes")
            << QStringList{"TagName=P", "FontFaceCmb=Arial", "SecondFontChk=1",
                           "FontFaceCmb=(None)"}
            << rule("P", {});
        QTest::newRow("sizes, case, colour and text, in the rule's own order")
            << QStringList{"TagName=H2",         "TextDecoCmb=Underline", "ColourBox=255, 0, 0",
                           "CaseCmb=UPPER CASE", "AlignCmb=Left",         "FntSizeCmb=x-large",
                           "BoldCmb=Bold",       "ItalicCmb=Italic",      "SmlCaps=1"}
            << rule("H2", {"font-size: x-large", "text-align: Left", "text-transform: uppercase",
                           "color: RGB(255, 0, 0)", "text-decoration: Underline",
                           "font-weight: Bold", "font-style: Italic", "font-variant: small-caps"});
        QTest::newRow("a custom font size")
            << QStringList{"TagName=P", "FntSizeCmb=custom", "FontSizeBox=14", "FontSizeCmb=px"}
            << rule("P", {"font-size: 14px"});
        QTest::newRow("vertical alignment by percentage")
            << QStringList{"TagName=SUP", "VCmb=Percentage", "ValignBox=-30"}
            << rule("SUP", {"vertical-align: -30%"});
        QTest::newRow("line height and indent; a zero writes nothing")
            << QStringList{"TagName=P", "LineHtBox=2", "LineHtCmb=em", "IndentBox=0"}
            << rule("P", {"line-height: 2em"});
        QTest::newRow("letter spacing takes the unit of word spacing")
            << QStringList{"TagName=P", "LtrSpaceBox=2", "LtrSpaceCmb=px", "WrdSpaceCmb=pt"}
            << rule("P", {"letter-spacing: 2pt"});
        QTest::newRow("word spacing writes zero too")
            << QStringList{"TagName=P", "WrdSpaceBox=0", "WrdSpaceCmb=em"}
            << rule("P", {"word-spacing: 0em"});
        QTest::newRow("width and height")
            << QStringList{"TagName=DIV",      "WidthCmb=Custom", "CWBox=50", "CWCmb=px",
                           "HeightCmb=Custom", "CHBox=10",        "CHCmb=in"}
            << rule("DIV", {"width: 50px", "height: 10in"});
        QTest::newRow("the height is tested on the width box")
            << QStringList{"TagName=DIV", "WidthCmb=Custom", "CWBox=0", "HeightCmb=Custom",
                           "CHBox=10"}
            << rule("DIV", {});
        QTest::newRow("display, white space and a list item")
            << QStringList{"TagName=LI",     "DisplayCmb=List-item",
                           "WhiteSpCmb=Pre", "ListCmb=Lower Alphabet",
                           "LPosCmb=Inside", "URLBox=dot.gif"}
            << rule("LI", {"display: List-item", "white-space: Pre",
                           "list-style: url(dot.gif) Inside lower-alpha"});
        QTest::newRow("a list type as it stands, behind a second blank")
            << QStringList{"TagName=LI", "DisplayCmb=List-item", "ListCmb=Square"}
            << rule("LI", {"display: List-item", "list-style:  Square"});
        QTest::newRow("list style None with nothing else still writes the property")
            << QStringList{"TagName=LI", "DisplayCmb=List-item", "ListCmb=None"}
            << rule("LI", {"display: List-item", "list-style: "});
        QTest::newRow("float and clear") << QStringList{"TagName=IMG", "RightOpt=1", "BothOpt=1"}
                                         << rule("IMG", {"float: right", "clear: both"});
        QTest::newRow("a background colour alone")
            << QStringList{"TagName=BODY", "BGColour=1, 2, 3", "NoRepOpt=1"}
            << rule("BODY", {"background: rgb(1, 2, 3)"});
        QTest::newRow("a fixed position without an image writes no background")
            << QStringList{"TagName=BODY", "FixOpt=1"} << rule("BODY", {});
        QTest::newRow("an image that repeats across, fixed")
            << QStringList{"TagName=BODY", "ImgURL=bg.gif", "RepHorzOpt=1", "AttachCmb=Fixed"}
            << rule("BODY", {"background:  url(bg.gif) repeat-x Fixed"});
        QTest::newRow("an image at a fixed position, X with the vertical words")
            << QStringList{"TagName=BODY",   "BGColour=0, 0, 0", "ImgURL=bg.gif", "FixOpt=1",
                           "XFixCmb=Bottom", "YFixCmb=Custom",   "YBox=20",       "YCmb=px"}
            << rule("BODY", {"background: rgb(0, 0, 0) url(bg.gif) Bottom 20px"});
        QTest::newRow("margins side by side, zero and empty left out")
            << QStringList{"TagName=P", "LeftBox=-5", "LMCmb=em",
                           "RightBox=", "TopBox=0",   "BottomBox=12"}
            << rule("P", {"margin-left: -5em", "margin-bottom: 12pt"});
        QTest::newRow("one border for all")
            << QStringList{"TagName=TD",        "BdrAllCmb=Solid", "ColourBBox=0, 0, 255",
                           "SizeAllCmb=Custom", "BallCWBox=2",     "BallCmb=px"}
            << rule("TD", {"border: Solid 2px rgb(0, 0, 255)"});
        QTest::newRow("one style, widths for each side")
            << QStringList{"TagName=TD",       "BdrAllCmb=Dotted",  "BSpecOpt=1",
                           "LeftSizeCmb=Thin", "BotSizeCmb=Custom", "BBBox=3",
                           "BBCmb=mm"}
            << rule("TD", {"border-left: Dotted Thin", "border-right: Dotted Medium",
                           "border-top: Dotted Medium", "border-bottom: Dotted 3mm"});
        QTest::newRow("one style None still writes the four sides")
            << QStringList{"TagName=TD", "BSpecOpt=1"}
            << rule("TD", {"border-left: None ", "border-right: None ", "border-top: None ",
                           "border-bottom: None "});
        QTest::newRow("styles for each side with one width")
            << QStringList{"TagName=TD", "SpecBdrOpt=1", "BdrLeftCmb=Double", "LBCBox=1, 1, 1",
                           "SizeAllCmb=Thick"}
            << rule("TD", {"border-left: Double Thick rgb(1, 1, 1)", "border-right: None Thick",
                           "border-top: None Thick", "border-bottom: None Thick"});
        QTest::newRow("both specified, defaults")
            << QStringList{"TagName=TD", "SpecBdrOpt=1", "BSpecOpt=1"}
            << rule("TD", {"border-left: None Medium", "border-right: None Medium",
                           "border-top: None Medium", "border-bottom: None Medium"});
        QTest::newRow("padding for all")
            << QStringList{"TagName=P", "PallBox=4", "PACmb=px"} << rule("P", {"padding: 4px"});
        QTest::newRow("padding for each side, zeros included")
            << QStringList{"TagName=P", "PSpecOpt=1"} << rule("P", {"padding: 0pt 0pt 0pt 0pt"});
        QTest::newRow("padding for each side in the order top, right, bottom, left")
            << QStringList{"TagName=P", "PSpecOpt=1", "PLBox=1", "PRBox=2",
                           "PRCmb=em",  "PTBox=3",    "PBBox=4", "PBCmb=%"}
            << rule("P", {"padding: 3pt 2em 4% 1pt"});
    }
    void rules() {
        QFETCH(QStringList, fields);
        QFETCH(QString, rule);
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, fields);
        QCOMPARE(styleRule(*form, QString()), rule);
    }

    void the_link_type_is_the_selector_of_A() {
        StyleFixture fx;
        auto form = fx.open();
        setFields(*form, {"TagName=A", "ClassBox=nav"});
        QCOMPARE(styleRule(*form, "A:Visited"), rule("A:Visited.nav", {}));
        setFields(*form, {"TagName=a"});
        QCOMPARE(styleRule(*form, "A:Visited"), rule("a.nav", {}));
    }

    void placing_data() {
        test::columns<QString, bool, QString, QString, QString, QString>(
            {"before", "styleSheet", "selector", "className", "after", "place"});
        const QString r = rule("H1", {"color: RGB(1, 2, 3)"});
        const QString rc = rule("P.x", {});
        QTest::newRow("a style sheet gets the rule at its end")
            << "BODY {\n}" << true << "H1"
            << ""
            << "BODY {\n}\n\n" + r << "Appended";
        QTest::newRow("a style sheet's rule of the same selector is replaced")
            << "BODY {\n}\nh1 {\n    color: red;\n}\nP {\n}" << true << "H1"
            << ""
            << "BODY {\n}\n" + r.mid(2) + "\nP {\n}"
            << "Replaced";
        QTest::newRow("the whole word: H1 does not match XH1") << "XH1 {\n}" << true << "H1"
                                                               << ""
                                                               << "XH1 {\n}\n\n" + r << "Appended";
        QTest::newRow("a page's rule with a class is replaced")
            << "<style>\n  P.x {\n    color: red;\n}\n</style>" << false << "P"
            << "x"
            << "<style>\n  " + rc.mid(2) + "\n</style>"
            << "Replaced";
        QTest::newRow("into the page's block that hides from old browsers")
            << "<head><style>\n<!--\nB {\n}\n--></style></head>" << false << "H1"
            << ""
            << "<head><style>\n<!--\nB {\n}\n\n" + r + "\n--></style></head>"
            << "InBlock";
        QTest::newRow("into the page's plain block")
            << "<head><style>\nB {\n}\n</style></head>" << false << "H1"
            << ""
            << "<head><style>\nB {\n}\n\n" + r + "\n</style></head>"
            << "InBlock";
        QTest::newRow("a new block stands behind the head")
            << "<html><head><title>t</title></head><body></body></html>" << false << "H1"
            << ""
            << "<html><head><title>t</title></head>\n<style type=\"text/css\">\n<!-- /* Hide "
               "Style Sheet information from browsers that do not support Style Sheets */\n" +
                   r + "\n--></style><body></body></html>"
            << "NewBlock";
        QTest::newRow("without a head the block goes 7 characters behind the caret")
            << "0123456789" << false << "H1"
            << ""
            << "0123456\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet information from "
               "browsers that do not support Style Sheets */\n" +
                   r + "\n--></style>789"
            << "NewBlock";
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
