#include "dialogs/frm_marquee.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

namespace {
const QString kClose = QStringLiteral("</marquee>");
} // namespace

frmMarquee::frmMarquee(DialogContext& shell)
    : ElementDialog(QStringLiteral("frmMarquee"), shell), cdColour(shell.platform()) {
    setCaption(QStringLiteral("Insert Marquee"));
    useKeyFilter(numericKeyFilter, {&AmountBox, &DelayBox, &RepBox, &WidthBox, &HeightBox});
    OptionButton::group({&LeftOpt, &RightOpt});
    OptionButton::group({&ScrollOpt, &SlideOpt, &BounceOpt});
    OptionButton::group({&TopOpt, &MiddleOpt, &BottomOpt});
    OptionButton::group({&PixelOpt, &PercentOpt});
    OptionButton::group({&HPixOpt, &HPerOpt});
    PixelOpt.setValue(true);
    HPixOpt.setValue(true);
    RepBox.setText(QStringLiteral("0"));
    chkInfinite.setValue(1);

    chkWidth.Click = [this] { chkWidth_Click(); };
    chkHeight.Click = [this] { chkHeight_Click(); };
    chkInfinite.Click = [this] { chkInfinite_Click(); };
    MoreColours.Click = [this] { pickColour(cdColour, ColourBox); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
    chkWidth_Click();
    chkHeight_Click();
    chkInfinite_Click();
}

void frmMarquee::Form_Load() {
    enableControls({&UpDown2, &UpDown3, &UpDown4}, false);
    codeEditor* doc = shell().ActiveForm();
    if (doc && doc->codebox().SelLength() > 0) TextBox.setText(doc->codebox().SelText());
}

void frmMarquee::chkWidth_Click() {
    enableControls({&WidthBox, &UpDown2, &PixelOpt, &PercentOpt}, chkWidth.Value() == 1);
}

void frmMarquee::chkHeight_Click() {
    enableControls({&HeightBox, &UpDown3, &HPixOpt, &HPerOpt}, chkHeight.Value() == 1);
}

void frmMarquee::chkInfinite_Click() {
    enableControls({&RepBox, &UpDown4, &lblTimes}, chkInfinite.Value() != 1);
}

QString frmMarquee::markup() const {
    QString element = QStringLiteral("<marquee");
    const auto add = [&element](const char* name, const QString& value) {
        element += attribute(QLatin1String(name), value);
    };
    const auto chosen =
        [&add](const char* name,
               std::initializer_list<std::pair<const OptionButton*, const char*>> options) {
            for (const auto& [option, value] : options)
                if (option->Value()) add(name, QLatin1String(value));
        };
    chosen("direction", {{&LeftOpt, "left"}, {&RightOpt, "right"}});
    if (!AmountBox.Text().isEmpty()) add("scrollamount", AmountBox.Text());
    if (!DelayBox.Text().isEmpty()) add("scrolldelay", DelayBox.Text());
    chosen("behavior", {{&ScrollOpt, "scroll"}, {&SlideOpt, "slide"}, {&BounceOpt, "alternate"}});
    if (chkInfinite.Value() != 1 && RepBox.Text() != QLatin1String("0")) add("loop", RepBox.Text());
    chosen("align", {{&TopOpt, "top"}, {&MiddleOpt, "middle"}, {&BottomOpt, "bottom"}});
    if (chkWidth.Value() == 1)
        add("width", WidthBox.Text() + (PercentOpt.Value() ? QStringLiteral("%") : QString()));
    if (chkHeight.Value() == 1)
        add("height", HeightBox.Text() + (HPerOpt.Value() ? QStringLiteral("%") : QString()));
    if (!ColourBox.Text().isEmpty()) add("bgcolor", QLatin1Char('#') + ColourBox.Text());
    return element + QLatin1Char('>') + TextBox.Text() + kClose;
}

void frmMarquee::OK_Click() {
    DialogContext& s = shell();
    // A failure ends it here: the dialog stays open and the flags stay set.
    silentExit([&] {
        codeEditor& doc = required(s.ActiveForm());
        doc.AddSelectionToStack();
        s.bInsertingMarkup = true;
        const QString element = markup();
        if (s.bLayoutActive) {
            doc.DHTMLEdit1().pasteHTML(element);
        } else {
            // The text between the tags ends up selected, and the step knows where it is.
            SourcePane& pane = doc.codebox();
            const int text = static_cast<int>(TextBox.Text().size());
            const int back = static_cast<int>(kClose.size());
            pane.setSelText(element);
            pane.setSelStart(pane.SelStart() - back - text);
            s.nStepCaretAdvance = toInt16(text + back);
            s.nStepCaretBack = toInt16(back);
            doc.AddStep();
            pane.setSelLength(text);
        }
        Unload();
        doc.SetFocus();
        s.nStepCaretAdvance = 0;
        s.nStepCaretBack = 0;
        s.bInsertingMarkup = false;
        s.bCaretStepTaken = false;
    });
}

void bindMarqueeDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuInsertMarquee"), [&shell] { showDialog<frmMarquee>(shell); });
}

static const CommandSet marqueeDialogCommands{bindMarqueeDialog};

} // namespace tsl
