#include "stylesheets/style_fields.h"
#include "runtime/resume.h"
#include "stylesheets/frm_style.h"
#include "stylesheets/profile_file.h"

namespace tsl {

namespace styleKeys {
using K = FieldKind;
// clang-format off
const std::vector<StyleKey> common = {
    {"Tag", "TagName", K::EditCombo, ""},
    {"Class", "ClassBox", K::Text, ""},
    {"AType", nullptr, K::LinkType, ""},
    {"Font1", "FontFaceCmb", K::FontCombo, "(None)"},
    {"SecondFontOn", "SecondFontChk", K::Check, "No"},
    {"SecondFont", "FontFaceCmb2", K::FontCombo, "(None)"},
    {"GenFontOn", "GenFontChk", K::Check, "No"},
    {"GenFont", "FontGenCmb", K::ListCombo, "Serif"},
    {"Alignment", "AlignCmb", K::ListCombo, "[None]"},
    {"VAlign1", "VCmb", K::ListCombo, "[None]"},
    {"VAlign2", "ValignBox", K::Text, "0"},
    {"LineHeight1", "LineHtBox", K::Text, ""},
    {"LineHeight2", "LineHtCmb", K::ListCombo, "pt"},
    {"LtrSpace1", "LtrSpaceBox", K::Text, ""},
    {"LtrSpace2", "LtrSpaceCmb", K::ListCombo, "pt"},
    {"WrdSpace1", "WrdSpaceBox", K::Text, ""},
    {"WrdSpace2", "WrdSpaceCmb", K::ListCombo, "pt"},
    {"Indent1", "IndentBox", K::Text, ""},
    {"Indent2", "IndentCmb", K::ListCombo, "pt"},
    {"FontSize1", "FntSizeCmb", K::ListCombo, "[None]"},
    {"FontSize2", "FontSizeBox", K::Text, ""},
    {"FontSize3", "FontSizeCmb", K::ListCombo, "pt"},
    {"Weight", "BoldCmb", K::ListCombo, "[None]"},
    {"Italic", "ItalicCmb", K::ListCombo, "[None]"},
    {"Decoration", "TextDecoCmb", K::ListCombo, "[None]"},
    {"Case", "CaseCmb", K::ListCombo, "[None]"},
    {"SmallCaps", "SmlCaps", K::LooseCheck, "No"},
    {"ForeColour", "ColourBox", K::Text, ""},
};
const std::vector<StyleKey> borderAll = {
    {"BdrAllType", "BdrAllCmb", K::ListCombo, "None"},
    {"BdrAllClr", "ColourBBox", K::Text, ""},
};
const std::vector<StyleKey> borderSides = {
    {"BdrLftType", "BdrLeftCmb", K::ListCombo, "None"},
    {"BdrRtType", "BdrRtCmb", K::ListCombo, "None"},
    {"BdrTopType", "BdrTopCmb", K::ListCombo, "None"},
    {"BdrBotType", "BdrBotCmb", K::ListCombo, "None"},
    {"ClrL", "LBCBox", K::Text, ""},
    {"ClrR", "RBCBox", K::Text, ""},
    {"ClrT", "TBCBox", K::Text, ""},
    {"ClrB", "BBCBox", K::Text, ""},
};
const std::vector<StyleKey> widthAll = {
    {"SizeAllCmb", "SizeAllCmb", K::ListCombo, "Medium"},
    {"SizeAllBox", "BallCWBox", K::Text, "0"},
    {"BAllCmb", "BallCmb", K::ListCombo, "pt"},
};
const std::vector<StyleKey> widthSides = {
    {"SizeLft", "LeftSizeCmb", K::ListCombo, "Medium"},
    {"SizeRt", "RtSizeCmb", K::ListCombo, "Medium"},
    {"SizeTop", "TopSizeCmb", K::ListCombo, "Medium"},
    {"SizeBot", "BotSizeCmb", K::ListCombo, "Medium"},
    {"SizeBoxL", "BLBox", K::Text, "0"},
    {"SizeBoxR", "BRBox", K::Text, "0"},
    {"SizeBoxT", "BTBox", K::Text, "0"},
    {"SizeBoxB", "BBBox", K::Text, "0"},
    {"MeasureSizeL", "BLCmb", K::ListCombo, "pt"},
    {"MeasureSizeR", "BRCmb", K::ListCombo, "pt"},
    {"MeasureSizeT", "BTCmb", K::ListCombo, "pt"},
    {"MeasureSizeB", "BBCmb", K::ListCombo, "pt"},
};
const std::vector<StyleKey> box = {
    {"ConWidth", "WidthCmb", K::ListCombo, "Auto"},
    {"ConWidth2", "CWBox", K::Text, "0"},
    {"ConWidth3", "CWCmb", K::ListCombo, "pt"},
    {"ConHeight", "HeightCmb", K::ListCombo, "Auto"},
    {"ConHeight2", "CHBox", K::Text, "0"},
    {"ConHeight3", "CHCmb", K::ListCombo, "pt"},
    {"Display", "DisplayCmb", K::ListCombo, "[None]"},
    {"White Space", "WhiteSpCmb", K::ListCombo, "Normal"},
    {"List Style", "ListCmb", K::ListCombo, "Disc"},
    {"List Position", "LPosCmb", K::ListCombo, "Outside"},
    {"List Image", "URLBox", K::Text, ""},
};
const std::vector<StyleKey> paddingAll = {
    {"PallBox", "PallBox", K::Text, "0"},
    {"PACmb", "PACmb", K::ListCombo, "pt"},
};
const std::vector<StyleKey> paddingSides = {
    {"PLBox", "PLBox", K::Text, "0"}, {"PLCmb", "PLCmb", K::ListCombo, "pt"},
    {"PRBox", "PRBox", K::Text, "0"}, {"PRCmb", "PRCmb", K::ListCombo, "pt"},
    {"PTBox", "PTBox", K::Text, "0"}, {"PTCmb", "PTCmb", K::ListCombo, "pt"},
    {"PBBox", "PBBox", K::Text, "0"}, {"PBCmb", "PBCmb", K::ListCombo, "pt"},
};
const std::vector<StyleKey> margins = {
    {"MarginLeft", "LeftBox", K::Text, "0"},
    {"MarginLeftCmb", "LMCmb", K::ListCombo, "pt"},
    {"MarginRight", "RightBox", K::Text, "0"},
    {"MarginRightCmb", "RMCmb", K::ListCombo, "pt"},
    {"MarginTop", "TopBox", K::Text, "0"},
    {"MarginTopCmb", "TMCmb", K::ListCombo, "pt"},
    {"MarginBottom", "BottomBox", K::Text, "0"},
    {"MarginBottomCmb", "BMCmb", K::ListCombo, "pt"},
};
// The two units are written under one pair of keys and read under another, so the unit of a
// fixed position never comes back: a load always shows "%".
const std::vector<StyleKey> fixedPosition = {
    {"RepeatXCmb", "XFixCmb", K::ListCombo, "Top"},
    {"RepeatXBox", "Xbox", K::Text, "0"},
    {"RepeatXCmbMeasure", "XCmb", K::ListCombo, "%", "RepeatXMeasure"},
    {"RepeatYCmb", "YFixCmb", K::ListCombo, "Left"},
    {"RepeatYBox", "YBox", K::Text, "0"},
    {"RepeatYCmbMeasure", "YCmb", K::ListCombo, "%", "RepeatYMeasure"},
};
const std::vector<StyleKey> background = {
    {"BGColour", "BGColour", K::Text, ""},
    {"ImgURL", "ImgURL", K::Text, ""},
    {"Attachment", "AttachCmb", K::ListCombo, "Scroll"},
};
const std::vector<StyleChoice> floating = {
    {"NoneOpt", "None"}, {"LeftOpt", "Left"}, {"RightOpt", "Right"}};
const std::vector<StyleChoice> clearing = {
    {"NneOpt", "None"}, {"LftOpt", "Left"}, {"RtOpt", "Right"}, {"BothOpt", "Both"}};
// "Fixed" (FixOpt) is the fifth value, with the keys of its position behind it.
const std::vector<StyleChoice> repeat = {
    {"RepOpt", "Repeat"}, {"NoRepOpt", "No-repeat"}, {"RepHorzOpt", "Repeat-horz"},
    {"RepVertOpt", "Repeat-vert"}};
// clang-format on
} // namespace styleKeys

namespace {

const QString kSection = QStringLiteral("Tessaline 2");
const QString kYes = QStringLiteral("Yes");
const QString kNo = QStringLiteral("No");

class Walk {
  public:
    Walk(frmStyle& form, QString file) : form_(form), file_(std::move(file)) {}

    void write(const QString& key, const QString& value) {
        WritePrivateProfileString(kSection, key, value, file_);
    }
    QString read(const QString& key, const QString& def) {
        return GetPrivateProfileString(kSection, key, def, file_);
    }

    QString valueOf(const StyleKey& k) {
        Control* control = k.field ? form_.control(QLatin1String(k.field)) : nullptr;
        switch (k.kind) {
        case FieldKind::Text:
            return static_cast<TextBox*>(control)->Text();
        case FieldKind::EditCombo:
        case FieldKind::ListCombo:
        case FieldKind::FontCombo:
            return static_cast<ComboBox*>(control)->Text();
        case FieldKind::Check:
        case FieldKind::LooseCheck:
            return static_cast<CheckBox*>(control)->Value() == 0 ? kNo : kYes;
        case FieldKind::LinkType:
            return form_.session().AType;
        }
        return QString();
    }

    void put(const StyleKey& k, const QString& value) {
        Control* control = k.field ? form_.control(QLatin1String(k.field)) : nullptr;
        switch (k.kind) {
        case FieldKind::Text:
            static_cast<TextBox*>(control)->setText(value);
            return;
        case FieldKind::EditCombo:
            static_cast<ComboBox*>(control)->setText(value);
            return;
        case FieldKind::ListCombo:
        case FieldKind::FontCombo: {
            auto* combo = static_cast<ComboBox*>(control);
            if (!combo->items().contains(value)) {
                // A hand-edited value or a font that is not installed must not end the load:
                // a font keeps its name, which the page's reader may well have; any other
                // field shows its default.
                if (k.kind == FieldKind::FontCombo && !value.isEmpty())
                    combo->AddItem(value);
                else {
                    resumeNext([&] { combo->setText(QLatin1String(k.defaultValue)); });
                    return;
                }
            }
            combo->setText(value);
            return;
        }
        case FieldKind::Check:
            if (value == kNo) static_cast<CheckBox*>(control)->setValue(0);
            if (value == kYes) static_cast<CheckBox*>(control)->setValue(1);
            return;
        case FieldKind::LooseCheck:
            static_cast<CheckBox*>(control)->setValue(value == kNo ? 0 : 1);
            return;
        case FieldKind::LinkType:
            form_.session().AType = value;
            return;
        }
    }

    void save(const std::vector<StyleKey>& keys) {
        for (const StyleKey& k : keys)
            write(QLatin1String(k.key), valueOf(k));
    }
    void load(const std::vector<StyleKey>& keys) {
        for (const StyleKey& k : keys) {
            const QString key = QLatin1String(k.readKey ? k.readKey : k.key);
            const QString value = read(key, QLatin1String(k.defaultValue));
            resumeNext([&] { put(k, value); });
        }
    }

    OptionButton& option(const char* name) {
        return *form_.find<OptionButton>(QLatin1String(name));
    }
    // The word of the first option of the group that is on; empty when none is.
    QString chosen(const std::vector<StyleChoice>& choices) {
        for (const StyleChoice& c : choices)
            if (option(c.option).Value()) return QLatin1String(c.value);
        return QString();
    }
    bool choose(const std::vector<StyleChoice>& choices, const QString& value) {
        for (const StyleChoice& c : choices) {
            if (value == QLatin1String(c.value)) {
                option(c.option).setValue(true);
                return true;
            }
        }
        return false;
    }

  private:
    frmStyle& form_;
    QString file_;
};

} // namespace

void writeStyleFields(frmStyle& f, const QString& file) {
    using namespace styleKeys;
    Walk walk(f, file);
    walk.save(common);
    if (f.BdrAllOpt.Value()) {
        walk.save(borderAll);
        walk.write(QStringLiteral("BdrAllOn"), kYes);
    } else {
        walk.write(QStringLiteral("BdrAllOn"), kNo);
        walk.save(borderSides);
    }
    walk.save(f.BAllOpt.Value() ? widthAll : widthSides);
    walk.write(QStringLiteral("BAllOn"), f.BAllOpt.Value() ? kYes : kNo);
    // Float and Clear only when one of their options is on.
    if (const QString value = walk.chosen(floating); !value.isEmpty())
        walk.write(QStringLiteral("Float"), value);
    if (const QString value = walk.chosen(clearing); !value.isEmpty())
        walk.write(QStringLiteral("Clear"), value);
    walk.save(box);
    if (f.Option1.Value()) {
        walk.write(QStringLiteral("AllPaddingOn"), kYes);
        walk.save(paddingAll);
    } else if (f.PSpecOpt.Value()) {
        walk.write(QStringLiteral("AllPaddingOn"), kNo);
        walk.save(paddingSides);
    }
    walk.save(margins);
    if (const QString value = walk.chosen(repeat); !value.isEmpty()) {
        walk.write(QStringLiteral("Repeat"), value);
    } else if (f.FixOpt.Value()) {
        walk.write(QStringLiteral("Repeat"), QStringLiteral("Fixed"));
        walk.save(fixedPosition);
    }
    walk.save(background);
}

void readStyleFields(frmStyle& f, const QString& file) {
    using namespace styleKeys;
    Walk walk(f, file);
    walk.load(common);
    // Turning an option on runs its click, which resets the fields of the other branch.
    const QString borderAllOn = walk.read(QStringLiteral("BdrAllOn"), kYes);
    if (borderAllOn == kYes) {
        f.BdrAllOpt.setValue(true);
        walk.load(borderAll);
    } else if (borderAllOn == kNo) {
        f.SpecBdrOpt.setValue(true);
        walk.load(borderSides);
    }
    const QString widthAllOn = walk.read(QStringLiteral("BAllOn"), kYes);
    if (widthAllOn == kYes) {
        f.BAllOpt.setValue(true);
        walk.load(widthAll);
    } else if (widthAllOn == kNo) {
        f.BSpecOpt.setValue(true);
        walk.load(widthSides);
    }
    walk.choose(floating, walk.read(QStringLiteral("Float"), QStringLiteral("None")));
    walk.choose(clearing, walk.read(QStringLiteral("Clear"), QStringLiteral("None")));
    walk.load(box);
    const QString paddingAllOn = walk.read(QStringLiteral("AllPaddingOn"), kYes);
    if (paddingAllOn == kYes) {
        f.Option1.setValue(true);
        walk.load(paddingAll);
    } else if (paddingAllOn == kNo) {
        f.PSpecOpt.setValue(true);
        walk.load(paddingSides);
    }
    walk.load(margins);
    const QString repeatValue = walk.read(QStringLiteral("Repeat"), QStringLiteral("Repeat"));
    if (!walk.choose(repeat, repeatValue) && repeatValue == QLatin1String("Fixed")) {
        f.FixOpt.setValue(true);
        walk.load(fixedPosition);
    }
    walk.load(background);
}

} // namespace tsl
