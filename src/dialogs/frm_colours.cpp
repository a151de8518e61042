#include "dialogs/frm_colours.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"

namespace tsl {

Int16 Colours::BodyStart = 0;
Int16 Colours::BodyEnd = 0;

namespace {
constexpr int kBackspace = 8;

const char* const kColourNames[] = {"Aqua",   "Black",  "Blue",  "Fuchsia", "Gray",   "Green",
                                    "Lime",   "Maroon", "Navy",  "Olive",   "Purple", "Red",
                                    "Silver", "Teal",   "White", "Yellow"};

// Find as the dialog holds its answer: a 16-bit position. A start before the text is refused.
Int16 findIn(SourcePane& pane, const QString& what, int start, int end = -1) {
    if (start < 0) raise(ErrInvalidPropertyValue);
    return toInt16(pane.Find(what, start, end));
}

void select(SourcePane& pane, int start, int length) {
    pane.setSelStart(start);
    pane.setSelLength(length);
}

// The platform's order has red in the lowest byte.
int platformOrder(long rgb) {
    return static_cast<int>(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
}
} // namespace

bool HexToColour(const QString& text, long& value) {
    value = 0;
    if (text.size() < 6) return false;
    const QString digits = text.right(6);
    for (int i = 0; i < 6; ++i) {
        const char16_t c = digits.at(i).unicode();
        int digit = -1;
        if (c >= u'0' && c <= u'9') digit = c - u'0';
        if (c >= u'A' && c <= u'F') digit = c - u'A' + 10;
        if (c >= u'a' && c <= u'f') digit = c - u'a' + 10;
        if (digit < 0) return false;
        value += static_cast<long>(digit) << (4 * (5 - i));
    }
    return true;
}

Colours::Colours(DialogContext& shell)
    : ElementDialog(QStringLiteral("Colours"), shell), ColourDialog(shell.platform()) {
    setCaption(QStringLiteral("Page Properties"));
    ColourDialog.Filter =
        QStringLiteral("GIF Files (*.gif)|*.gif|JPEG Files (*.jpg; *.jpeg)|*.jpg; *.jpeg");
    BGColor.setBackColor(0xC0C0C0);
    const char* const defaults[] = {"#C0C0C0", "#000000", "#0000FF", "#800080", "#FF0000"};
    int i = 0;
    for (const ColourField& field : fields()) {
        field.box.MaxLength = 7;
        field.box.setText(QLatin1String(defaults[i++]));
        showPreview(field);
        field.box.Change = [this, field] { showPreview(field); };
        field.box.KeyPress = [this, &box = field.box](int& key) { colourKeyFilter(box, key); };
        field.more.Click = [this, field] {
            if (pickColour(ColourDialog, field.box, QStringLiteral("#"), false))
                paint(field, static_cast<int>(ColourDialog.Color));
        };
    }
    Command1.Click = [this] { browseFile(ColourDialog, BGImgBox); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
}

std::vector<Colours::ColourField> Colours::fields() {
    return {{Back, BackgroundMore, BGColor, 0xC0C0C0, true, "bgcolor", "bgColor"},
            {TextBox, TextMore, Text, 0x000000, false, "text", "fgColor"},
            {LinkBox, LinkMore, Link, 0x0000FF, false, "link", "linkColor"},
            {VlinkBox, VLinkMore, VLink, 0x800080, false, "vlink", "vlinkColor"},
            {ALinkBox, ALinkMore, ALink, 0xFF0000, false, "alink", "alinkColor"}};
}

void Colours::showPreview(const ColourField& field) {
    long value = 0;
    if (!HexToColour(field.box.Text(), value)) value = field.fallback;
    paint(field, platformOrder(value));
}

void Colours::paint(const ColourField& field, int colour) {
    if (field.back)
        field.preview.setBackColor(colour);
    else
        field.preview.setForeColor(colour);
}

void Colours::colourKeyFilter(tsl::TextBox& box, int& keyAscii) {
    const QChar key(keyAscii);
    const bool hex = (key >= u'0' && key <= u'9') || (key >= u'A' && key <= u'F') ||
                     (key >= u'a' && key <= u'f');
    if (!hex && keyAscii != '#' && keyAscii != kBackspace) {
        keyAscii = 0;
        return;
    }
    // Six digits without "#" are a whole colour: only a selection lets them change.
    if (box.Text().size() == 6 && !box.Text().startsWith(QLatin1Char('#')) && box.SelLength == 0) {
        keyAscii = 0;
        shell().platform().beep();
    }
}

void Colours::FindColour(const QString& name, int position) {
    codeEditor* doc = shell().CurrentDocument;
    if (doc && findIn(doc->codebox(), name, position, position + 10) != -1) ColourFound = true;
}

void Colours::Form_Load() {
    codeEditor* doc = shell().CurrentDocument;
    if (shell().bLayoutActive) {
        if (!doc) return;
        for (const ColourField& field : fields())
            resumeNext([&] {
                field.box.setText(
                    doc->DHTMLEdit1().documentColour(QLatin1String(field.property)).toUpper());
            });
        return;
    }
    ColourDialog.InitDir = shell().OpenSave.InitDir;
    if (doc) readTag();
}

void Colours::readTag() {
    SourcePane& pane = shell().CurrentDocument->codebox();
    // Each statement passes over its failure, as a page without a body tag still opens.
    resumeNext([&] { BodyStart = findIn(pane, QStringLiteral("<BODY"), 0); });
    resumeNext([&] { BodyEnd = toInt16(findIn(pane, QStringLiteral(">"), BodyStart + 1) + 1); });
    resumeNext([&] { pane.setSelStart(pane.SelStart()); });
    for (const ColourField& field : fields())
        resumeNext([&] { readAttribute(pane, QLatin1String(field.keyword), field.box); });

    resumeNext([&] {
        const Int16 at = findIn(pane, QStringLiteral("background=\""), BodyStart, BodyEnd);
        if (at == -1) return;
        const Int16 close = findIn(pane, QStringLiteral("\""), at + 13);
        if (close == -1) return;
        select(pane, at + 12, close - at - 12);
        BGImgBox.setText(pane.SelText());
    });
    resumeNext([&] {
        if (findIn(pane, QStringLiteral("bgproperties=\"fixed\""), BodyStart, BodyEnd) != -1 ||
            findIn(pane, QStringLiteral("bgproperties=fixed"), BodyStart, BodyEnd) != -1)
            chkFixed.setValue(1);
    });
}

// The keyword has no word boundary, and the colour names are looked for 7 characters behind
// it whatever its length; the quotes are searched up to the tag's end, not the attribute's.
void Colours::readAttribute(SourcePane& pane, const QString& keyword, tsl::TextBox& box) {
    const Int16 at = findIn(pane, keyword, BodyStart, BodyEnd);
    if (at == -1) return;
    for (const char* name : kColourNames) {
        // A name window beyond the text fails on its own; the next name is still tried.
        resumeNext([&] { FindColour(QLatin1String(name), at + 7); });
        if (ColourFound) break;
    }
    if (ColourFound) {
        box.setText(pane.SelText());
        pane.setSelStart(0);
        ColourFound = false;
        return;
    }
    Int16 from = toInt16(pane.SelStart() + 6);
    const Int16 open = findIn(pane, QStringLiteral("\""), pane.SelStart(), BodyEnd);
    if (open != -1) {
        from = toInt16(open + 1);
        const Int16 close = findIn(pane, QStringLiteral("\""), from, BodyEnd);
        if (close != -1) {
            select(pane, from, close - from);
            box.setText(pane.SelText());
            return;
        }
    }
    const Int16 equals = findIn(pane, QStringLiteral("="), from, BodyEnd);
    if (equals == -1) return;
    from = toInt16(equals + 1);
    const Int16 blank = findIn(pane, QStringLiteral(" "), from, BodyEnd);
    if (blank != -1)
        select(pane, from, blank - from);
    else
        select(pane, from, BodyEnd - from - 1);
    box.setText(pane.SelText());
}

void Colours::OK_Click() {
    codeEditor* doc = shell().CurrentDocument;
    if (!doc) raise(ErrObjectRequired);
    if (shell().bLayoutActive) {
        for (const ColourField& field : fields())
            doc->DHTMLEdit1().setDocumentColour(QLatin1String(field.property), field.box.Text());
        Unload();
        doc->DHTMLEdit1().SetFocus();
        return;
    }
    SourcePane& pane = doc->codebox();
    const Int16 start = toInt16(pane.Find(QStringLiteral("<body")));
    // Without a body tag there is nothing to replace, and the page stays as it is.
    const Int16 end = toInt16(start == -1 ? -1 : pane.Find(QStringLiteral(">"), start + 1) + 1);
    pane.setSelStart(pane.SelStart());
    // All five are written, at their defaults and empty too.
    QString tag = QStringLiteral("<body");
    for (const ColourField& field : fields())
        tag += attribute(field.keyword, field.box.Text());
    if (!BGImgBox.Text().isEmpty()) {
        tag += attribute("background", BGImgBox.Text());
        if (chkFixed.Value() == 1) tag += attribute("bgproperties", QStringLiteral("fixed"));
    }
    Unload();
    if (start == -1 || end <= start) {
        doc->SetFocus();
        return;
    }
    select(pane, start, end - start);
    pane.setSelText(tag + QLatin1Char('>'));
    doc->SetFocus();
    doc->AddStep();
}

void Colours::Cancel_Click() {
    Unload();
    codeEditor* doc = shell().CurrentDocument;
    if (!doc) return;
    doc->SetFocus();
    // Behind the body tag the last Source reading found, even when Layout is in front.
    resumeNext([&] { doc->codebox().setSelStart(BodyEnd); });
    // The keyboard goes to the view the user sees.
    if (shell().bLayoutActive)
        doc->DHTMLEdit1().SetFocus();
    else
        doc->codebox().SetFocus();
}

void bindColoursDialog(DialogContext& shell, Commands& commands) {
    commands.bind(QStringLiteral("mnuEditProperties"), [&shell] { showDialog<Colours>(shell); });
}

static const CommandSet coloursDialogCommands{bindColoursDialog};

} // namespace tsl
