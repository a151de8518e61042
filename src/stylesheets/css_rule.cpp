#include "stylesheets/css_rule.h"
#include "editor/surfaces.h"
#include "runtime/runtime_error.h"
#include "stylesheets/frm_style.h"

namespace tsl {

namespace {

const QString kNone = QStringLiteral("[None]");
const QString kCustom = QStringLiteral("Custom");
const QChar kQuote = QLatin1Char('"');

bool emptyOrZero(const QString& text) {
    return text.isEmpty() || text == QLatin1String("0");
}

QString fontFamily(const frmStyle& f) {
    QString text = QStringLiteral("font-family: ") + kQuote + f.FontFaceCmb.Text() + kQuote;
    if (f.SecondFontChk.Value() == 1)
        text += QStringLiteral(", ") + kQuote + f.FontFaceCmb2.Text() + kQuote;
    if (f.GenFontChk.Value() == 1) text += QStringLiteral(", ") + f.FontGenCmb.Text();
    return text;
}

QString listStyle(const frmStyle& f) {
    QString text = QStringLiteral("list-style: ");
    if (!f.URLBox.Text().isEmpty()) text += QStringLiteral("url(") + f.URLBox.Text() + ')';
    if (f.LPosCmb.Text() != QLatin1String("Outside")) text += QStringLiteral(" Inside");
    const QString type = f.ListCmb.Text();
    static const std::pair<const char*, const char*> mapped[] = {{"Lower Roman", " lower-roman"},
                                                                 {"Upper Roman", " upper-roman"},
                                                                 {"Lower Alphabet", " lower-alpha"},
                                                                 {"Upper Alphabet", " upper-alpha"},
                                                                 {"None", ""}};
    for (const auto& [item, css] : mapped)
        if (type == QLatin1String(item)) return text + QLatin1String(css);
    return text + QLatin1Char(' ') + type;
}

// Empty when there is no background to write.
QString background(const frmStyle& f) {
    const QString colour = f.BGColour.Text().isEmpty()
                               ? QString()
                               : QStringLiteral("rgb(") + f.BGColour.Text() + QLatin1Char(')');
    if (f.ImgURL.Text().isEmpty())
        return colour.isEmpty() ? QString() : QStringLiteral("background: ") + colour;
    QString repeat;
    if (f.FixOpt.Value()) {
        const QString x =
            f.XFixCmb.Text() == kCustom ? f.Xbox.Text() + f.XCmb.Text() : f.XFixCmb.Text();
        const QString y =
            f.YFixCmb.Text() == kCustom ? f.YBox.Text() + f.YCmb.Text() : f.YFixCmb.Text();
        repeat = QLatin1Char(' ') + x + QLatin1Char(' ') + y;
    } else if (f.RepHorzOpt.Value()) {
        repeat = QStringLiteral(" repeat-x");
    } else if (f.RepVertOpt.Value()) {
        repeat = QStringLiteral(" repeat-y");
    } else if (f.NoRepOpt.Value()) {
        repeat = QStringLiteral(" no-repeat");
    }
    const QString attachment = f.AttachCmb.Text() != QLatin1String("Scroll")
                                   ? QLatin1Char(' ') + f.AttachCmb.Text()
                                   : QString();
    return QStringLiteral("background: ") + colour + QStringLiteral(" url(") + f.ImgURL.Text() +
           QLatin1Char(')') + repeat + attachment;
}

QString colourPart(const TextBox& box) {
    return box.Text().isEmpty() ? QString() : QStringLiteral(" rgb(") + box.Text() + ')';
}

QString width(const ComboBox& size, const TextBox& box, const ComboBox& unit) {
    return size.Text() == kCustom ? box.Text() + unit.Text() : size.Text();
}

QStringList borders(const frmStyle& f) {
    static const char* const names[] = {
        "border-left: ", "border-right: ", "border-top: ", "border-bottom: "};
    const QString all = width(f.SizeAllCmb, f.BallCWBox, f.BallCmb);
    QStringList out;
    auto& form = const_cast<frmStyle&>(f);
    if (f.BdrAllOpt.Value()) {
        const QString style = f.BdrAllCmb.Text();
        const QString colour = colourPart(f.ColourBBox);
        const bool none = style == QLatin1String("None");
        if (f.BAllOpt.Value()) {
            if (!none) out << QStringLiteral("border: ") + style + ' ' + all + colour;
            return out;
        }
        // Each side with the common style; "None" leaves the widths out but not the sides.
        for (int i = 0; i < 4; ++i) {
            const frmStyle::BorderSide s = form.side(i);
            out << QLatin1String(names[i]) + style + ' ' +
                       (none ? QString() : width(s.size, s.sizeBox, s.unit)) + colour;
        }
        return out;
    }
    for (int i = 0; i < 4; ++i) {
        const frmStyle::BorderSide s = form.side(i);
        out << QLatin1String(names[i]) + s.style.Text() + ' ' +
                   (f.BAllOpt.Value() ? all : width(s.size, s.sizeBox, s.unit)) +
                   colourPart(s.colour);
    }
    return out;
}

} // namespace

QString styleSelector(const frmStyle& f, const QString& aType) {
    return f.TagName.Text() == QLatin1String("A") ? aType : f.TagName.Text();
}

QString styleRule(const frmStyle& f, const QString& aType) {
    QStringList parts;
    if (f.FontFaceCmb.Text() != QLatin1String("(None)")) parts << fontFamily(f);
    if (f.FntSizeCmb.Text() != kNone)
        parts << QStringLiteral("font-size: ") + (f.FntSizeCmb.Text() == QLatin1String("custom")
                                                      ? f.FontSizeBox.Text() + f.FontSizeCmb.Text()
                                                      : f.FntSizeCmb.Text());
    if (f.AlignCmb.Text() != kNone) parts << QStringLiteral("text-align: ") + f.AlignCmb.Text();
    if (f.CaseCmb.Text() == QLatin1String("Capitalize"))
        parts << QStringLiteral("text-transform: capitalize");
    else if (f.CaseCmb.Text() == QLatin1String("UPPER CASE"))
        parts << QStringLiteral("text-transform: uppercase");
    else if (f.CaseCmb.Text() == QLatin1String("lower case"))
        parts << QStringLiteral("text-transform: lowercase");
    if (f.WidthCmb.Text() != QLatin1String("Auto") && f.CWBox.Text() != QLatin1String("0"))
        parts << QStringLiteral("width: ") + f.CWBox.Text() + f.CWCmb.Text();
    // The height is written on the test of the width box.
    if (f.HeightCmb.Text() != QLatin1String("Auto") && f.CWBox.Text() != QLatin1String("0"))
        parts << QStringLiteral("height: ") + f.CHBox.Text() + f.CHCmb.Text();
    if (!f.ColourBox.Text().isEmpty())
        parts << QStringLiteral("color: RGB(") + f.ColourBox.Text() + QLatin1Char(')');
    if (f.TextDecoCmb.Text() != kNone)
        parts << QStringLiteral("text-decoration: ") + f.TextDecoCmb.Text();
    if (f.BoldCmb.Text() != kNone) parts << QStringLiteral("font-weight: ") + f.BoldCmb.Text();
    if (f.ItalicCmb.Text() != kNone) parts << QStringLiteral("font-style: ") + f.ItalicCmb.Text();
    if (f.SmlCaps.Value() != 0) parts << QStringLiteral("font-variant: small-caps");
    if (f.VCmb.Text() != kNone)
        parts << QStringLiteral("vertical-align: ") + (f.VCmb.Text() == QLatin1String("Percentage")
                                                           ? f.ValignBox.Text() + QLatin1Char('%')
                                                           : f.VCmb.Text());
    if (!emptyOrZero(f.LineHtBox.Text()))
        parts << QStringLiteral("line-height: ") + f.LineHtBox.Text() + f.LineHtCmb.Text();
    if (!emptyOrZero(f.IndentBox.Text()))
        parts << QStringLiteral("text-indent: ") + f.IndentBox.Text() + f.IndentCmb.Text();
    if (f.DisplayCmb.Text() != kNone) parts << QStringLiteral("display: ") + f.DisplayCmb.Text();
    if (f.WhiteSpCmb.Text() != QLatin1String("Normal"))
        parts << QStringLiteral("white-space: ") + f.WhiteSpCmb.Text();
    if (f.DisplayCmb.Text() == QLatin1String("List-item")) parts << listStyle(f);
    // Letter spacing takes the unit of word spacing.
    if (!f.LtrSpaceBox.Text().isEmpty())
        parts << QStringLiteral("letter-spacing: ") + f.LtrSpaceBox.Text() + f.WrdSpaceCmb.Text();
    if (!f.WrdSpaceBox.Text().isEmpty())
        parts << QStringLiteral("word-spacing: ") + f.WrdSpaceBox.Text() + f.WrdSpaceCmb.Text();
    if (f.LeftOpt.Value()) parts << QStringLiteral("float: left");
    if (f.RightOpt.Value()) parts << QStringLiteral("float: right");
    if (f.LftOpt.Value()) parts << QStringLiteral("clear: left");
    if (f.RtOpt.Value()) parts << QStringLiteral("clear: right");
    if (f.BothOpt.Value()) parts << QStringLiteral("clear: both");
    if (const QString bg = background(f); !bg.isEmpty()) parts << bg;
    const std::pair<const char*, std::pair<const TextBox*, const ComboBox*>> sides[] = {
        {"margin-left: ", {&f.LeftBox, &f.LMCmb}},
        {"margin-right: ", {&f.RightBox, &f.RMCmb}},
        {"margin-top: ", {&f.TopBox, &f.TMCmb}},
        {"margin-bottom: ", {&f.BottomBox, &f.BMCmb}}};
    for (const auto& [name, field] : sides)
        if (!emptyOrZero(field.first->Text()))
            parts << QLatin1String(name) + field.first->Text() + field.second->Text();
    parts << borders(f);
    if (f.Option1.Value()) {
        if (!emptyOrZero(f.PallBox.Text()))
            parts << QStringLiteral("padding: ") + f.PallBox.Text() + f.PACmb.Text();
    } else {
        parts << QStringLiteral("padding: ") + f.PTBox.Text() + f.PTCmb.Text() + ' ' +
                     f.PRBox.Text() + f.PRCmb.Text() + ' ' + f.PBBox.Text() + f.PBCmb.Text() + ' ' +
                     f.PLBox.Text() + f.PLCmb.Text();
    }

    QString rule = QStringLiteral("  ") + styleSelector(f, aType);
    if (!f.ClassBox.Text().isEmpty()) rule += QLatin1Char('.') + f.ClassBox.Text();
    rule += QStringLiteral(" {\n    ");
    for (const QString& part : parts)
        rule += part + kRuleSeparator;
    return rule + QLatin1Char('}');
}

RulePlace placeRule(SourcePane& source, bool styleSheet, const QString& selector,
                    const QString& className, const QString& rule) {
    const int match =
        className.isEmpty()
            ? source.Find(selector + QStringLiteral(" {"), 0, -1, SourcePane::WholeWord)
            : source.Find(selector + QLatin1Char('.') + className + QStringLiteral(" {"), 0);
    const auto replace = [&] {
        // A rule with no "}" behind it is left alone: the command ends there, the text as it
        // was, rather than guessing how much of the page to overwrite.
        const int close = source.Find(QStringLiteral("}"), match);
        if (close < 0) raise(ErrInvalidPropertyValue);
        source.setSelStart(match);
        source.setSelLength(close - match + 1);
        source.setSelText(rule.mid(2));
        return RulePlace::Replaced;
    };
    if (styleSheet) {
        if (match >= 0) return replace();
        source.setSelStart(source.length());
        source.setSelText(QStringLiteral("\n\n") + rule);
        return RulePlace::Appended;
    }
    if (match >= 0) {
        if (!className.isEmpty()) return replace();
        if (source.Find(QStringLiteral("}"), match) >= 0) return replace();
    }
    const QString blockEnds[] = {QStringLiteral("--></style"), QStringLiteral("</style>")};
    const int steps[] = {4, 3};
    for (int i = 0; i < 2; ++i) {
        const int end = source.Find(blockEnds[i], 0);
        if (end < 0) continue;
        source.setSelStart(end);
        source.setSelText(QLatin1Char('\n') + rule + QLatin1Char('\n'));
        source.setSelStart(source.SelStart() + steps[i]);
        return RulePlace::InBlock;
    }
    // A new block, directly behind "</head>" (or 7 characters behind the selection when the
    // page has none).
    source.Find(QStringLiteral("</head>"), 0);
    source.setSelStart(source.SelStart() + 7);
    source.setSelText(QStringLiteral("\n<style type=\"text/css\">\n</style>"));
    source.setSelStart(source.SelStart() - 8);
    source.setSelText(QStringLiteral("<!-- /* Hide Style Sheet information from browsers that do "
                                     "not support Style Sheets */\n") +
                      rule + QStringLiteral("\n-->"));
    return RulePlace::NewBlock;
}

} // namespace tsl
