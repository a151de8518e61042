#include "dialogs/font_dialogs.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
const QString kNone = QStringLiteral("(None)");
const QString kNormal = QStringLiteral("Normal");
// Where no face is chosen the preview shows the browsers' usual serif face.
const QString kPreviewDefaultFace = QStringLiteral("Times New Roman");
} // namespace

StepCall fontStepCall(bool fontElement, bool nothingWritten, bool caretStepTaken) {
    if (fontElement) return caretStepTaken ? StepCall::AddStep : StepCall::CheckToAddStep;
    if (nothingWritten) return StepCall::DecreaseNDoneIndex;
    return caretStepTaken ? StepCall::None : StepCall::CheckToAddStep;
}

double fontPreviewPoints(const QString& size) {
    static const double kPoints[] = {8, 10, 12, 14, 18, 24, 36};
    bool number = false;
    const int n = size.toInt(&number);
    return number && n >= 1 && n <= 7 ? kPoints[n - 1] : 12;
}

fontSettings::fontSettings(DialogContext& shell)
    : ElementDialog(QStringLiteral("fontSettings"), shell), cdColour(shell.platform()) {
    setCaption(QStringLiteral("Font"));
    for (const QString& name : shell.platform().fontNames())
        Combo1.AddItem(name);
    Combo1.AddItem(kNone);
    Combo1.setText(kNone);
    Combo2.AddItem(kNormal);
    for (int size = 1; size <= 7; ++size)
        Combo2.AddItem(QString::number(size));
    Combo2.setText(kNormal);
    TextBox.MaxLength = 6;
    useKeyFilter(hexKeyFilter, {&TextBox});
    TextBox.setText(QStringLiteral("000000"));
    Label7.setVisible(false);

    Combo1.Click = [this] { Combo1_Click(); };
    Combo2.Click = [this] { Combo2_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Check1.Click = [this] { Label6.setFontBold(Check1.Value() == 1); };
    Check2.Click = [this] { Label6.setFontItalic(Check2.Value() == 1); };
    Check3.Click = [this] { Label6.setFontUnderline(Check3.Value() == 1); };
    Check4.Click = [this] { Label6.setFontStrikethru(Check4.Value() == 1); };
    Check5.Click = [this] { Check5_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Label6.setFontName(kPreviewDefaultFace);
    Label6.setFontSize(fontPreviewPoints(kNormal));
}

void fontSettings::Combo1_Click() {
    Label6.setFontName(Combo1.Text() == kNone ? kPreviewDefaultFace : Combo1.Text());
    Label6.setFontBold(Check1.Value() == 1);
    Label6.setFontItalic(Check2.Value() == 1);
}

void fontSettings::Combo2_Click() {
    Label6.setFontSize(fontPreviewPoints(Combo2.Text()));
}

void fontSettings::Command1_Click() {
    if (pickColour(cdColour, TextBox, QString(), false))
        Label6.setForeColor(static_cast<int>(cdColour.Color));
    TextBox.SetFocus();
}

void fontSettings::Check5_Click() {
    if (Check5.Value() == 1) {
        Label7.setCaption(Combo1.Text());
        const QString fixed = shell().platform().fixedFontName();
        if (Combo1.items().contains(fixed)) Combo1.setText(fixed);
        Label6.setFontName(fixed);
        Combo1.setEnabled(false);
    } else {
        Combo1.setEnabled(true);
        Combo1.setText(Label7.Caption());
        Combo1_Click();
    }
}

fontSettings::Tags fontSettings::tags() const {
    const bool typewriter = Check5.Value() == 1;
    QString attributes;
    if (Combo1.Text() != kNone && !typewriter)
        attributes += attribute(QStringLiteral("face"), Combo1.Text());
    if (Combo2.Text() != kNormal) attributes += attribute(QStringLiteral("size"), Combo2.Text());
    // Black is what the text is anyway.
    if (TextBox.Text() != QLatin1String("000000") && !TextBox.Text().isEmpty())
        attributes += attribute(QStringLiteral("color"), QLatin1Char('#') + TextBox.Text());
    Tags tags;
    const std::pair<bool, const char*> characterTags[] = {{typewriter, "tt"},
                                                          {Check4.Value() == 1, "strike"},
                                                          {Check1.Value() == 1, "b"},
                                                          {Check2.Value() == 1, "i"},
                                                          {Check3.Value() == 1, "u"}};
    for (const auto& [on, tag] : characterTags) {
        if (!on) continue;
        tags.open += QStringLiteral("<%1>").arg(QLatin1String(tag));
        tags.close.prepend(QStringLiteral("</%1>").arg(QLatin1String(tag)));
    }
    if (!attributes.isEmpty()) {
        tags.font = true;
        tags.open.prepend(QStringLiteral("<font") + attributes + QLatin1Char('>'));
        tags.close += QStringLiteral("</font>");
    }
    return tags;
}

void fontSettings::Command2_Click() {
    DialogContext& s = shell();
    // A failure ends it here, with the dialog open.
    silentExit([&] {
        const Tags t = tags();
        codeEditor& doc = required(s.ActiveForm());
        SourcePane& pane = doc.codebox();
        const int openLength = static_cast<int>(t.open.size());
        const int closeLength = static_cast<int>(t.close.size());
        if (pane.SelLength() > 0) {
            // Around the selection, which stays selected.
            doc.AddSelectionToStack();
            const int length = pane.SelLength();
            const int start = pane.SelStart();
            pane.setSelLength(0);
            pane.setSelText(t.open);
            pane.setSelStart(start + length + openLength);
            pane.setSelText(t.close);
            pane.setSelStart(start + openLength);
            pane.setSelLength(length);
        } else {
            // At the caret, which ends up inside.
            pane.setSelText(t.open + t.close);
            pane.setSelStart(pane.SelStart() - closeLength);
            s.nStepCaretAdvance = toInt16(closeLength);
            if (t.font) s.nStepCaretBack = toInt16(closeLength);
        }
        switch (fontStepCall(t.font, t.close.isEmpty(), s.bCaretStepTaken)) {
        case StepCall::CheckToAddStep:
            doc.CheckToAddStep(true);
            break;
        case StepCall::AddStep:
            doc.AddStep();
            break;
        case StepCall::DecreaseNDoneIndex:
            doc.DecreaseNDoneIndex();
            break;
        case StepCall::None:
            break;
        }
        Unload();
        doc.SetFocus();
        s.nStepCaretAdvance = 0;
        s.nStepCaretBack = 0;
    });
}

frmBasefont::frmBasefont(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmBasefont"), shell) {
    setCaption(QStringLiteral("Base Font"));
    cmbFace.AddItem(kNone);
    for (const QString& name : shell.platform().fontNames())
        cmbFace.AddItem(name);
    cmbFace.setListIndex(0);
    for (int size = 1; size <= 7; ++size)
        cmbSize.AddItem(QString::number(size));
    cmbSize.setText(QStringLiteral("3"));
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
}

QString frmBasefont::markup() const {
    QString element =
        QStringLiteral("<basefont") + attribute(QStringLiteral("size"), cmbSize.Text());
    if (cmbFace.Text() != kNone) element += attribute(QStringLiteral("face"), cmbFace.Text());
    return element + QStringLiteral(">\n");
}

void frmBasefont::OK_Click() {
    DialogContext& s = shell();
    codeEditor* doc = s.ActiveForm();
    // Each step is passed over when it fails. Without a body tag the element goes at the caret.
    resumeNext([&] {
        SourcePane& pane = required(doc).codebox();
        if (pane.Find(QStringLiteral("<body")) >= 0) pane.setSelLength(0);
    });
    resumeNext([&] { required(doc).codebox().setSelText(markup()); });
    resumeNext([&] { Unload(); });
    resumeNext([&] { required(doc).codebox().SetFocus(); });
    // The caret move made a step of its own; the step that follows takes its place.
    resumeNext([&] {
        if (s.bCaretStepTaken) required(doc).DecreaseNDoneIndex();
    });
    resumeNext([&] { required(doc).AddStep(); });
}

void frmBasefont::Cancel_Click() {
    resumeNext([&] { Unload(); });
    if (codeEditor* doc = shell().ActiveForm()) doc->codebox().SetFocus();
}

void bindFontDialogs(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertFont"), [&shell] { showDialog<fontSettings>(shell); });
    commands.bind(QStringLiteral("mnuInsertBasefont"),
                  [&shell] { showDialog<frmBasefont>(shell); });
}

static const CommandSet fontDialogCommands{bindFontDialogs};

} // namespace tsl
