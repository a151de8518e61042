#include "dialogs/frm_line.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
bool isHexDigit(QChar c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

// Six hex digits as the user reads them, red first, as a colour with red in the lowest byte.
int colourOf(const QString& hex) {
    const unsigned value = hex.toUInt(nullptr, 16);
    return static_cast<int>(((value >> 16) & 0xFF) | (value & 0xFF00) | ((value & 0xFF) << 16));
}
} // namespace

frmLine::frmLine(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmLine"), shell), cdColour(shell.platform()) {
    setCaption(QStringLiteral("Insert Horizontal Line"));
    WidthBox.MaxLength = 4;
    SizeBox.MaxLength = 3;
    Colour.MaxLength = 6;
    useKeyFilter(numericKeyFilter, {&WidthBox, &SizeBox});
    WidthBox.setText(QStringLiteral("100"));
    SizeBox.setText(QStringLiteral("2"));
    OptionButton::group({&WPercOpt, &WPixOpt});
    OptionButton::group({&LeftOpt, &CentreOpt, &RtOpt});
    WPercOpt.setValue(true);
    LeftOpt.setValue(true);
    enableControls({&lblColour, &Colour, &cmdMore}, false);

    Check1.Click = [this] { Check1_Click(); };
    Colour.Change = [this] { Colour_Change(); };
    cmdMore.Click = [this] { pickColour(cdColour, Colour); };
    WPercOpt.Click = [this] { WPercOpt_Click(); };
    WPixOpt.Click = [this] { WPixOpt_Click(); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
}

void frmLine::Check1_Click() {
    enableControls({&lblColour, &Colour, &cmdMore}, Check1.Value() == 1);
}

void frmLine::Colour_Change() {
    // Whatever arrives (typed, pasted, set by a tool) keeps only hex digits, a beep for each
    // character dropped, and the caret where it was among the characters kept.
    const QString text = Colour.Text();
    int caret = Colour.SelStart;
    QString kept;
    for (QChar c : text) {
        if (isHexDigit(c)) {
            kept += c.toUpper();
        } else {
            shell().platform().beep();
            --caret;
        }
    }
    if (kept != text) Colour.setText(kept);
    Colour.SelStart = std::clamp(caret, 0, static_cast<int>(kept.size()));
    Colour.SelLength = 0;
    Picture1.setBackColor(colourOf(kept));
}

void frmLine::WPercOpt_Click() {
    UpDown1.Max = 100;
    if (WidthBox.Text().toInt() > 100) WidthBox.setText(QStringLiteral("100"));
}

void frmLine::WPixOpt_Click() {
    UpDown1.Max = 2000;
}

QString frmLine::markup() const {
    QString element = QStringLiteral("<hr");
    const QString width = WidthBox.Text();
    if (!width.isEmpty() && width != QLatin1String("0")) {
        // A rule across the whole width needs no attribute.
        if (WPercOpt.Value() && width != QLatin1String("100"))
            element += attribute(QStringLiteral("width"), width + QLatin1Char('%'));
        else if (WPixOpt.Value())
            element += attribute(QStringLiteral("width"), width);
    }
    const QString size = SizeBox.Text();
    if (!size.isEmpty() && size != QLatin1String("0") && size != QLatin1String("2"))
        element += attribute(QStringLiteral("size"), size);
    if (CentreOpt.Value()) element += attribute(QStringLiteral("align"), QStringLiteral("center"));
    if (RtOpt.Value()) element += attribute(QStringLiteral("align"), QStringLiteral("right"));
    if (Check1.Value() == 1)
        element += Colour.Text().isEmpty() ? QStringLiteral(" noshade")
                                           : QStringLiteral(" noshade color=#") + Colour.Text();
    return element + QLatin1Char('>');
}

void frmLine::OK_Click() {
    DialogContext& s = shell();
    codeEditor* doc = s.ActiveForm();
    const QString rule = markup();
    // Each step is passed over when it fails; the dialog closes whatever happens.
    resumeNext([&] {
        if (s.bLayoutActive)
            required(doc).DHTMLEdit1().pasteHTML(rule);
        else
            required(doc).codebox().setSelText(rule);
    });
    resumeNext([&] { Unload(); });
    resumeNext([&] { required(doc).codebox().SetFocus(); });
    resumeNext([&] { required(doc).AddStep(); });
}

void frmLine::Cancel_Click() {
    resumeNext([&] { Unload(); });
    if (codeEditor* doc = shell().ActiveForm()) doc->codebox().SetFocus();
}

void bindLineDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertHR"), [&shell] { showDialog<frmLine>(shell); });
}

static const CommandSet lineDialogCommands{bindLineDialog};

} // namespace tsl
