#include "stylesheets/frm_style.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "stylesheets/css_rule.h"
#include "stylesheets/frm_atag.h"
#include "stylesheets/style_folder.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
const QString kNone = QStringLiteral("[None]");
const QString kBorderNone = QStringLiteral("None");
const QString kCustom = QStringLiteral("Custom");
const QString kMedium = QStringLiteral("Medium");
const QString kPt = QStringLiteral("pt");
const QString kZero = QStringLiteral("0");

void fill(ComboBox& combo, const QStringList& items) {
    for (const QString& item : items)
        combo.AddItem(item);
}

void fill(std::initializer_list<ComboBox*> combos, const QStringList& items) {
    for (ComboBox* combo : combos)
        fill(*combo, items);
}

void select(std::initializer_list<ComboBox*> combos, const QString& item) {
    for (ComboBox* combo : combos)
        resumeNext([&] { combo->setText(item); });
}

const QStringList kUnits8 = {"pt", "in", "cm", "mm", "em", "ex", "px", "pc"};
const QStringList kUnits9 = kUnits8 + QStringList{"%"};
const QStringList kBorderStyles = {"None",  "Dotted", "Dashed", "Double", "Groove",
                                   "Inset", "Outset", "Ridge",  "Solid"};
const QStringList kWidths = {"Thick", "Medium", "Thin", "Custom"};
} // namespace

frmStyle::frmStyle(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmStyle"), shell), Colours(shell.platform()) {
    setCaption(QStringLiteral("Style Settings"));
    cmbItemName.ToolTipText = QStringLiteral("Choose a saved style to edit");
    for (const char* caption : {"   Font   ", "Box - Border", "Box - Other", "Classification",
                                "Margins && Padding", "Background"})
        SSTab1.AddTab(QLatin1String(caption));
    fillLists();
    OptionButton::group({&BdrAllOpt, &SpecBdrOpt});
    OptionButton::group({&BAllOpt, &BSpecOpt});
    OptionButton::group({&NoneOpt, &LeftOpt, &RightOpt});
    OptionButton::group({&NneOpt, &LftOpt, &RtOpt, &BothOpt});
    OptionButton::group({&Option1, &PSpecOpt});
    OptionButton::group({&RepOpt, &RepHorzOpt, &RepVertOpt, &NoRepOpt, &FixOpt});
    useKeyFilter(numericKeyFilter, {&BallCWBox, &BLBox, &BRBox, &BTBox, &BBBox, &FontSizeBox,
                                    &PallBox, &PLBox, &PRBox, &PTBox, &PBBox, &Xbox, &YBox});
    const auto signedFilter = [](int& key) {
        if (key != '-') numericKeyFilter(key);
    };
    for (TextBox* box : {&LeftBox, &RightBox, &TopBox, &BottomBox, &LineHtBox, &LtrSpaceBox,
                         &WrdSpaceBox, &IndentBox})
        box->KeyPress = signedFilter;
    startDisabled();
    wireHandlers();
}

void frmStyle::fillLists() {
    fill(TagName,
         {"A",       "ADDRESS", "APPLET", "B",   "BIG", "BLOCKQUOTE", "BODY", "CENTER", "CITE",
          "CODE",    "DD",      "DFN",    "DIV", "DL",  "DT",         "EM",   "FORM",   "H1",
          "H2",      "H3",      "H4",     "H5",  "H6",  "I",          "IMG",  "KBD",    "LI",
          "LISTING", "MARQUEE", "MENU",   "OL",  "P",   "PLAINTEXT",  "PRE",  "SAMP",   "SMALL",
          "SPAN",    "STRIKE",  "STRONG", "SUB", "SUP", "TABLE",      "TD",   "TH",     "TR",
          "TT",      "U",       "UL",     "VAR", "XMP"});
    fill(FontGenCmb, {"Cursive", "Fantasy", "Monospace", "Sans-serif", "Serif"});
    fill(FntSizeCmb, {"[None]", "xx-small", "x-small", "small", "medium", "large", "x-large",
                      "xx-large", "larger", "smaller", "custom"});
    fill(BoldCmb, {"[None]", "Normal", "Bold", "Bolder", "Lighter", "100", "200", "300", "400",
                   "500", "600", "700", "800", "900"});
    fill(ItalicCmb, {"[None]", "Italic", "Oblique"});
    fill(AlignCmb, {"[None]", "Left", "Center", "Right", "Justify"});
    fill(VCmb, {"[None]", "Baseline", "Sub", "Super", "Top", "Text-top", "Middle", "Bottom",
                "Text-bottom", "Percentage"});
    fill({&FontSizeCmb, &LineHtCmb, &LtrSpaceCmb, &WrdSpaceCmb, &IndentCmb}, kUnits9);
    fill(CaseCmb, {"[None]", "Capitalize", "UPPER CASE", "lower case"});
    fill(TextDecoCmb, {"[None]", "None", "Blink", "Underline", "Line-through", "Overline"});
    fill({&BdrAllCmb, &BdrLeftCmb, &BdrRtCmb, &BdrTopCmb, &BdrBotCmb}, kBorderStyles);
    fill({&SizeAllCmb, &LeftSizeCmb, &RtSizeCmb, &TopSizeCmb, &BotSizeCmb}, kWidths);
    fill({&BallCmb, &BLCmb, &BRCmb, &BTCmb, &BBCmb, &CWCmb, &CHCmb}, kUnits8);
    fill({&WidthCmb, &HeightCmb}, {"Auto", "Custom"});
    fill(DisplayCmb, {"[None]", "None", "Block", "List-item", "Inline"});
    fill(WhiteSpCmb, {"Normal", "Pre"});
    fill(ListCmb, {"None", "Disc", "Circle", "Square", "Decimal", "Lower Roman", "Upper Roman",
                   "Lower Alphabet", "Upper Alphabet"});
    fill(LPosCmb, {"Inside", "Outside"});
    fill({&LMCmb, &RMCmb, &TMCmb, &BMCmb, &PACmb, &PLCmb, &PRCmb, &PTCmb, &PBCmb, &XCmb, &YCmb},
         kUnits9);
    // X offers the vertical words and Y the horizontal ones: that is how the lists stand.
    fill(XFixCmb, {"Top", "Center", "Bottom", "Custom"});
    fill(YFixCmb, {"Left", "Center", "Right", "Custom"});
    fill(AttachCmb, {"Scroll", "Fixed"});
}

// The fields that depend on another start disabled; their rules enable them.
void frmStyle::startDisabled() {
    enableControls({&SecondFontChk, &GenFontChk,   &FontFaceCmb2, &FontGenCmb, &FontSizeBox,
                    &FontSizeCmb,   &UpDown3,      &ValignBox,    &UpDownVA,   &lblBdrAllClr,
                    &ColourBBox,    &ColourButton, &BallCWBox,    &BallCmb,    &UpDownBA,
                    &CWBox,         &CWCmb,        &UpDown6,      &CHBox,      &CHCmb,
                    &UpDown7,       &lblList,      &ListCmb,      &lblLPos,    &LPosCmb,
                    &lblURL,        &URLBox,       &ListBrowse,   &lblX,       &lblY,
                    &XFixCmb,       &YFixCmb,      &Xbox,         &XCmb,       &UpDown8,
                    &YBox,          &YCmb,         &UpDown9},
                   false);
    for (int i = 0; i < 4; ++i) {
        BorderSide s = side(i);
        enableControls({&s.colourLabel, &s.colour, &s.more, &s.sizeBox, &s.sizeSpin, &s.unit},
                       false);
    }
}

frmStyle::BorderSide frmStyle::side(int index) {
    switch (index) {
    case 0:
        return {lblBdrLeft,  BdrLeftCmb, lblLClr,  LBCBox, LCMore,
                LeftSizeCmb, BLBox,      UpDownBL, BLCmb};
    case 1:
        return {lblBdrRt, BdrRtCmb, lblRClr, RBCBox, RCMore, RtSizeCmb, BRBox, UpDownBR, BRCmb};
    case 2:
        return {lblBdrTop, BdrTopCmb, lblTClr, TBCBox, TCMore, TopSizeCmb, BTBox, UpDownBT, BTCmb};
    default:
        return {lblBdrBot, BdrBotCmb, lblBClr, BBCBox, BCMore, BotSizeCmb, BBBox, UpDownBB, BBCmb};
    }
}

frmStyle::PaddingSide frmStyle::paddingSide(int index) {
    switch (index) {
    case 0:
        return {lblPLeft, PLBox, UpDownPL, PLCmb};
    case 1:
        return {lblPRight, PRBox, UpDownPR, PRCmb};
    case 2:
        return {lblPTop, PTBox, UpDownPT, PTCmb};
    default:
        return {lblPBottom, PBBox, UpDownPB, PBCmb};
    }
}

void frmStyle::wireHandlers() {
    FontFaceCmb.Click = [this] { FontFaceCmb_Click(); };
    SecondFontChk.Click = [this] { SecondFontChk_Click(); };
    GenFontChk.Click = [this] { GenFontChk_Click(); };
    FntSizeCmb.Click = [this] { FntSizeCmb_Click(); };
    VCmb.Click = [this] { VCmb_Click(); };
    BdrAllCmb.Click = [this] { BdrAllCmb_Click(); };
    SizeAllCmb.Click = [this] { SizeAllCmb_Click(); };
    for (int i = 0; i < 4; ++i) {
        side(i).style.Click = [this, i] { BdrSideCmb_Click(i); };
        side(i).size.Click = [this, i] { SizeSideCmb_Click(i); };
    }
    BdrAllOpt.Click = [this] { BdrAllOpt_Click(); };
    SpecBdrOpt.Click = [this] { SpecBdrOpt_Click(); };
    BAllOpt.Click = [this] { BAllOpt_Click(); };
    BSpecOpt.Click = [this] { BSpecOpt_Click(); };
    Option1.Click = [this] { Option1_Click(); };
    PSpecOpt.Click = [this] { PSpecOpt_Click(); };
    WidthCmb.Click = [this] { WidthCmb_Click(); };
    HeightCmb.Click = [this] { HeightCmb_Click(); };
    DisplayCmb.Click = [this] { DisplayCmb_Click(); };
    for (OptionButton* option : {&RepOpt, &RepHorzOpt, &RepVertOpt, &NoRepOpt})
        option->Click = [this] { RepeatOpt_Click(); };
    FixOpt.Click = [this] { FixOpt_Click(); };
    XFixCmb.Click = [this] { XFixCmb_Click(); };
    YFixCmb.Click = [this] { YFixCmb_Click(); };
    TagName.Click = [this] { TagName_Click(); };
    SSTab1.TabClick = [this] { SSTab1_Click(); };
    cmbItemName.Click = [this] { cmbItemName_Click(); };

    // Every other change of a field marks the style as changed; the six options that switch
    // a branch do not mark it themselves.
    const auto dirtyAfter = [this](std::function<void()> handler) {
        return [this, handler = std::move(handler)] {
            if (handler) handler();
            markDirty();
        };
    };
    for (Control* control : controls()) {
        if (control == &cmbItemName) continue;
        if (auto* box = dynamic_cast<TextBox*>(control)) {
            box->Change = dirtyAfter(box->Change);
        } else if (auto* combo = dynamic_cast<ComboBox*>(control)) {
            combo->Click = dirtyAfter(combo->Click);
            if (combo->style() != ComboBox::DropDownList) combo->Change = dirtyAfter(combo->Change);
        } else if (auto* check = dynamic_cast<CheckBox*>(control)) {
            check->Click = dirtyAfter(check->Click);
        } else if (auto* option = dynamic_cast<OptionButton*>(control)) {
            const bool switchesBranch = option == &BdrAllOpt || option == &SpecBdrOpt ||
                                        option == &BAllOpt || option == &BSpecOpt ||
                                        option == &Option1 || option == &PSpecOpt;
            if (!switchesBranch) option->Click = dirtyAfter(option->Click);
        }
    }

    const std::pair<CommandButton*, TextBox*> colours[] = {{&CmdcoloursMore, &ColourBox},
                                                           {&ColourButton, &ColourBBox},
                                                           {&LCMore, &LBCBox},
                                                           {&RCMore, &RBCBox},
                                                           {&TCMore, &TBCBox},
                                                           {&BCMore, &BBCBox},
                                                           {&BGColourMore, &BGColour}};
    for (const auto& [button, box] : colours)
        button->Click = [this, box = box] { pickRgb(*box); };
    ListBrowse.Click = [this] { browseFile(Colours, URLBox); };
    Command2.Click = [this] { browseFile(Colours, ImgURL); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    cmdHelp.Click = [this] { cmdHelp_Click(); };
    tbrStyle.ButtonClick = [this](int index) { tbrStyle_ButtonClick(index); };
}

void frmStyle::Form_Load() {
    // Every step may fail on its own; the next one runs.
    resumeNext([&] {
        select({&XCmb, &YCmb}, QStringLiteral("%"));
        select({&XFixCmb}, QStringLiteral("Top"));
        select({&YFixCmb}, QStringLiteral("Left"));
        select({&FntSizeCmb, &BoldCmb, &ItalicCmb, &VCmb, &AlignCmb, &DisplayCmb, &CaseCmb,
                &TextDecoCmb},
               kNone);
        select({&AttachCmb}, QStringLiteral("Scroll"));
        select({&WhiteSpCmb}, QStringLiteral("Normal"));
        select({&CWCmb, &CHCmb,   &IndentCmb, &FontSizeCmb, &WrdSpaceCmb, &LtrSpaceCmb, &LMCmb,
                &RMCmb, &TMCmb,   &BMCmb,     &PLCmb,       &PACmb,       &PRCmb,       &PTCmb,
                &PBCmb, &BallCmb, &BLCmb,     &BRCmb,       &BTCmb,       &BBCmb},
               kPt);
        select({&WidthCmb, &HeightCmb}, QStringLiteral("Auto"));
        select({&FontGenCmb}, QStringLiteral("Serif"));
        select({&ListCmb}, QStringLiteral("Disc"));
        select({&LPosCmb}, QStringLiteral("Outside"));
        select({&LineHtCmb}, QStringLiteral("%"));
        select({&LeftSizeCmb, &RtSizeCmb, &TopSizeCmb, &BotSizeCmb, &SizeAllCmb}, kMedium);
        select({&BdrLeftCmb, &BdrRtCmb, &BdrTopCmb, &BdrBotCmb, &BdrAllCmb}, kBorderNone);
    });
    // The first font of the list is left out of both lists.
    for (ComboBox* fonts : {&FontFaceCmb, &FontFaceCmb2}) {
        resumeNext([&] {
            fonts->AddItem(QStringLiteral("(None)"));
            fonts->setListIndex(0);
            for (qsizetype i = 1; i < shell().FontNames.size(); ++i)
                fonts->AddItem(shell().FontNames.at(i));
        });
    }

    // The name list, then the load of "(New Style)", which shows every field at its default.
    SettingsStore& store = shell().settings();
    resumeNext([&] { store.save(QStringLiteral("Saved Styles"), kNewStyle, kNewStyle); });
    resumeNext([&] {
        for (const auto& entry : store.GetAllSettings(kAppName, QStringLiteral("Saved Styles")))
            cmbItemName.AddItem(entry.first);
    });
    session().StyleDirty = false;
    resumeNext([&] { cmbItemName.setText(kNewStyle); });

    tbrStyle.ImageFile = QStringLiteral("resources/toolbar7.tbr");
    tbrStyle.CreateToolbar(16);
    tbrStyle.AddButton(QStringLiteral("New Style"), 0);
    tbrStyle.AddSeparator();
    tbrStyle.AddButton(QStringLiteral("Save Style"), 1);
    tbrStyle.AddSeparator();
    tbrStyle.AddButton(QStringLiteral("Delete Style"), 2);
    Colours.InitDir = shell().OpenSave.InitDir;
}

void frmStyle::FontFaceCmb_Click() {
    const bool none = FontFaceCmb.Text() == QLatin1String("(None)");
    SecondFontChk.setEnabled(!none);
    GenFontChk.setEnabled(!none);
    if (none) {
        SecondFontChk.setValue(0);
        GenFontChk.setValue(0);
    }
}

void frmStyle::FntSizeCmb_Click() {
    enableControls({&FontSizeBox, &FontSizeCmb, &UpDown3},
                   FntSizeCmb.Text() == QLatin1String("custom"));
}

void frmStyle::VCmb_Click() {
    enableControls({&ValignBox, &UpDownVA}, VCmb.Text() == QLatin1String("Percentage"));
}

void frmStyle::BdrAllCmb_Click() {
    enableControls({&lblBdrAllClr, &ColourBBox, &ColourButton}, BdrAllCmb.Text() != kBorderNone);
}

void frmStyle::BdrSideCmb_Click(int index) {
    // The colour box keeps its text while it is off.
    BorderSide s = side(index);
    enableControls({&s.colourLabel, &s.colour, &s.more}, s.style.Text() != kBorderNone);
}

void frmStyle::SizeAllCmb_Click() {
    enableControls({&BallCWBox, &BallCmb, &UpDownBA}, SizeAllCmb.Text() == kCustom);
}

void frmStyle::SizeSideCmb_Click(int index) {
    BorderSide s = side(index);
    enableControls({&s.sizeBox, &s.unit, &s.sizeSpin}, s.size.Text() == kCustom);
}

void frmStyle::BdrAllOpt_Click() {
    for (int i = 0; i < 4; ++i) {
        BorderSide s = side(i);
        enableControls({&s.style, &s.label}, false);
        resumeNext([&] { s.style.setText(kBorderNone); });
        s.colour.setText(QString());
    }
    BdrAllCmb.setEnabled(true);
}

void frmStyle::SpecBdrOpt_Click() {
    for (int i = 0; i < 4; ++i) {
        BorderSide s = side(i);
        enableControls({&s.style, &s.label}, true);
    }
    BdrAllCmb.setEnabled(false);
    resumeNext([&] { BdrAllCmb.setText(kBorderNone); });
    ColourBBox.setText(QString());
}

void frmStyle::BAllOpt_Click() {
    for (int i = 0; i < 4; ++i) {
        BorderSide s = side(i);
        s.size.setEnabled(false);
        resumeNext([&] { s.size.setText(kMedium); });
        s.sizeBox.setText(kZero);
        resumeNext([&] { s.unit.setText(kPt); });
    }
    SizeAllCmb.setEnabled(true);
}

void frmStyle::BSpecOpt_Click() {
    for (int i = 0; i < 4; ++i)
        side(i).size.setEnabled(true);
    enableControls({&SizeAllCmb, &BallCWBox, &BallCmb}, false);
    resumeNext([&] { SizeAllCmb.setText(kMedium); });
    BallCWBox.setText(kZero);
    resumeNext([&] { BallCmb.setText(kPt); });
}

void frmStyle::Option1_Click() {
    for (int i = 0; i < 4; ++i) {
        PaddingSide s = paddingSide(i);
        enableControls({&s.label, &s.box, &s.spin, &s.unit}, false);
        resumeNext([&] { s.unit.setText(kPt); });
        s.box.setText(kZero);
    }
    enableControls({&PallBox, &PACmb, &UpDownPA}, true);
}

void frmStyle::PSpecOpt_Click() {
    for (int i = 0; i < 4; ++i) {
        PaddingSide s = paddingSide(i);
        enableControls({&s.label, &s.box, &s.spin, &s.unit}, true);
    }
    enableControls({&PallBox, &PACmb, &UpDownPA}, false);
    PallBox.setText(kZero);
    resumeNext([&] { PACmb.setText(kPt); });
}

void frmStyle::WidthCmb_Click() {
    const bool custom = WidthCmb.Text() == kCustom;
    enableControls({&CWBox, &CWCmb, &UpDown6}, custom);
    if (custom) return;
    CWBox.setText(kZero);
    resumeNext([&] { CWCmb.setText(kPt); });
}

void frmStyle::HeightCmb_Click() {
    const bool custom = HeightCmb.Text() == kCustom;
    enableControls({&CHBox, &CHCmb, &UpDown7}, custom);
    if (custom) return;
    CHBox.setText(kZero);
    resumeNext([&] { CHCmb.setText(kPt); });
}

void frmStyle::DisplayCmb_Click() {
    const bool listItem = DisplayCmb.Text() == QLatin1String("List-item");
    enableControls({&ListCmb, &LPosCmb, &URLBox, &ListBrowse, &lblList, &lblLPos, &lblURL},
                   listItem);
    if (listItem) return;
    resumeNext([&] { ListCmb.setText(QStringLiteral("Disc")); });
    resumeNext([&] { LPosCmb.setText(QStringLiteral("Outside")); });
    URLBox.setText(QString());
}

void frmStyle::RepeatOpt_Click() {
    enableControls(
        {&Xbox, &YBox, &lblX, &lblY, &XFixCmb, &YFixCmb, &XCmb, &YCmb, &UpDown8, &UpDown9}, false);
    resumeNext([&] { YFixCmb.setText(QStringLiteral("Left")); });
    resumeNext([&] { XFixCmb.setText(QStringLiteral("Top")); });
}

void frmStyle::FixOpt_Click() {
    enableControls({&lblX, &lblY, &XFixCmb, &YFixCmb}, true);
    if (XFixCmb.Text() == kCustom) enableControls({&Xbox, &XCmb, &UpDown8}, true);
    if (YFixCmb.Text() == kCustom) enableControls({&YBox, &YCmb, &UpDown9}, true);
}

void frmStyle::XFixCmb_Click() {
    const bool custom = XFixCmb.Text() == kCustom;
    enableControls({&Xbox, &XCmb, &UpDown8}, custom);
    if (custom) return;
    Xbox.setText(kZero);
    resumeNext([&] { XCmb.setText(QStringLiteral("%")); });
}

void frmStyle::YFixCmb_Click() {
    const bool custom = YFixCmb.Text() == kCustom;
    enableControls({&YBox, &YCmb, &UpDown9}, custom);
    if (custom) return;
    YBox.setText(kZero);
    resumeNext([&] { YCmb.setText(QStringLiteral("%")); });
}

void frmStyle::TagName_Click() {
    if (TagName.Text() != QLatin1String("A")) return;
    frmATag choose(shell());
    shell().forms().showModal(choose);
}

void frmStyle::SSTab1_Click() {
    // The first field of the tab now shown takes the focus.
    Control* first[] = {&FontFaceCmb, &BdrAllOpt, &NoneOpt, &DisplayCmb, &Option1, &BGColour};
    const int tab = SSTab1.SelectedTab();
    if (tab >= 1 && tab <= 6) first[tab - 1]->SetFocus();
}

void frmStyle::pickRgb(TextBox& target) {
    const bool cancelError = Colours.CancelError;
    Colours.CancelError = true;
    const int error = resumeNext([&] { Colours.ShowColor(); });
    Colours.CancelError = cancelError;
    if (error == 0) {
        const unsigned c = Colours.Color;
        target.setText(
            QStringLiteral("%1, %2, %3").arg(c % 256).arg((c / 256) % 256).arg(c / 65536));
    }
    target.SetFocus();
}

void frmStyle::cmdHelp_Click() {
    shell().platform().showHelp(shell().platform().applicationFolder() +
                                QStringLiteral("/tessaline.chm"));
}

QString frmStyle::definitionFile(const QString& name) const {
    return styleFile(shell().platform(), name);
}

void frmStyle::cmdOK_Click() {
    // Any failure ends the handler at once, with the dialog open and the text as far as it got.
    silentExit([&] {
        if (TagName.Text().isEmpty() && ClassBox.Text().isEmpty()) {
            shell().platform().msgBox(QStringLiteral("You must specify a tag and/or a class"),
                                      MsgIcon::Critical, MsgButtons::OK,
                                      QStringLiteral("Tessaline"));
            return;
        }
        StyleSession& s = session();
        s.CSSRule = styleRule(*this, s.AType);
        codeEditor* target = shell().CurrentDocument;
        if (!target) raise(ErrObjectRequired);
        const bool layout = shell().bLayoutActive;
        if (layout) {
            codeEditor* active = shell().ActiveForm();
            if (!active) raise(ErrObjectRequired);
            active->codebox().setText(active->DHTMLEdit1().DocumentHTML());
        }
        const RulePlace place =
            placeRule(target->codebox(), target->CSSDoc == QLatin1String("Yes"),
                      styleSelector(*this, s.AType), ClassBox.Text(), s.CSSRule);
        if (place == RulePlace::NewBlock) shell().nStepCaretAdvance = 8;
        Unload();
        // A replaced rule records no step and leaves the Layout surface as it was.
        if (place == RulePlace::Replaced) return;
        if (layout) {
            target->DHTMLEdit1().setDocumentHTML(target->codebox().Text());
        } else {
            target->SetFocus();
            target->AddStep();
        }
    });
}

void ShowStyleDialog(DialogContext& shell) {
    showDialog<frmStyle>(shell);
}

void bindStyleDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertCSS"), [&shell] { ShowStyleDialog(shell); });
}

static const CommandSet styleDialogCommands{bindStyleDialog};

} // namespace tsl
