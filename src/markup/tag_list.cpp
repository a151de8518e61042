// The tag list: HTML tags as the text they insert, put in by double click or by drag.
#include "markup/tag_list.h"
#include "runtime/resume.h"
#include "shell/code_editor.h"
#include "shell/command_registry.h"
#include <algorithm>

namespace tsl {

namespace {
// Tags with a closing tag; a pair of blanks marks where the content goes.
const char* const kPaired[] = {
    "ACRONYM",  "ADDRESS", "APPLET", "B",        "BIG",    "BLINK",     "BLOCKQUOTE", "BODY",
    "CAPTION",  "CENTER",  "CITE",   "CODE",     "DEL",    "DFN",       "DIR",        "DIV",
    "DL",       "EM",      "FONT",   "FORM",     "FRAME",  "FRAMESET",  "H1",         "H2",
    "H3",       "H4",      "H5",     "H6",       "HEAD",   "HTML",      "I",          "INS",
    "KBD",      "LISTING", "MAP",    "MARQUEE",  "MENU",   "MULTICOL",  "NOBR",       "NOFRAMES",
    "NOSCRIPT", "NOTE",    "OL",     "P",        "PARAM",  "PLAINTEXT", "PRE",        "S",
    "SAMP",     "SCRIPT",  "SELECT", "SMALL",    "STRIKE", "STRONG",    "STYLE",      "SUB",
    "SUP",      "TABLE",   "TD",     "TEXTAREA", "TH",     "TITLE",     "TR",         "TT",
    "U",        "UL",      "VAR",    "WBR",      "XMP"};
const char* const kSingle[] = {"AREA", "BASE",   "BASEFONT", "BGSOUND", "BR", "DD",
                               "DT",   "HR",     "IMG",      "ISINDEX", "LI", "LINK",
                               "META", "NEXTID", "OPTION",   "SPACER",  "TAB"};

// A template taken apart: the text without its placeholder, where the placeholder stood (p)
// and where the closing tag starts (q); -1 when there is none.
struct TagParts {
    QString text;
    int p;
    int q;
    bool anchor;
};

TagParts takeApart(const QString& tagTemplate) {
    TagParts parts{tagTemplate, static_cast<int>(tagTemplate.indexOf(QLatin1String("  "))), -1,
                   tagTemplate.startsWith(QLatin1String("<A "))};
    if (parts.p >= 0) parts.text.remove(parts.p, 2);
    parts.q = static_cast<int>(parts.text.indexOf(QLatin1String("</")));
    return parts;
}

} // namespace

TagList::TagList(DialogContext& context) : shell_(context) {
    LoadTagList();
}

void TagList::LoadTagList() {
    QList<QPair<QString, QString>> byName;
    for (const char* name : kPaired) {
        const QString n = QString::fromLatin1(name);
        byName.append({n, QLatin1Char('<') + n + QStringLiteral(">  </") + n + QLatin1Char('>')});
    }
    for (const char* name : kSingle) {
        const QString n = QString::fromLatin1(name);
        byName.append({n, QLatin1Char('<') + n + QLatin1Char('>')});
    }
    byName.append({QStringLiteral("INPUT"), QStringLiteral("<INPUT TYPE=></INPUT>")});
    std::sort(byName.begin(), byName.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    tvwTags.Clear();
    tvwTags.AddItem(QStringLiteral("<A HREF=\"\">  </A>"));
    tvwTags.AddItem(QStringLiteral("<A NAME=\"\">  </A>"));
    for (const auto& entry : byName)
        tvwTags.AddItem(entry.second);
}

// nodeIndex is the node under the mouse, -1 for none. Errors are ignored statement by
// statement, so a press on empty space keeps the selection and the dragged tag.
void TagList::tvwTags_MouseDown(int nodeIndex) {
    const auto node = [&]() -> int {
        if (nodeIndex < 0 || nodeIndex >= tvwTags.ListCount()) raiseNoObject();
        return nodeIndex;
    };
    resumeNext([&] { tvwTags.setListIndex(node()); });
    resumeNext([&] { sDraggedTag = tvwTags.List(node()); });
}

void TagList::tvwTags_DblClick() {
    // One silent exit at the end: a failure leaves the flags set.
    silentExit([&] {
        // The tag list works in Source view only.
        if (shell_.bLayoutActive || required(shell_.ActiveForm()).SelectedTab == 3) return;
        shell_.CurrentDocument = shell_.ActiveForm();
        shell_.bInsertingMarkup = true;
        codeEditor& doc = required(shell_.ActiveForm());
        SourcePane& pane = doc.codebox();
        if (pane.SelLength() == 0 && doc.ReturnCurrStepSelLen() > 0) doc.AddSelectionToStack();
        if (tvwTags.ListIndex() < 0) raise(ErrObjectRequired, QStringLiteral("No tag is selected"));
        const TagParts parts = takeApart(tvwTags.List(tvwTags.ListIndex()));
        const QString lower = parts.text.toLower();
        const int textLength = static_cast<int>(lower.size());
        if (parts.q != -1) {
            if (pane.SelLength() > 0) {
                doc.AddSelectionToStack();
                const Int16 selected = toInt16(pane.SelLength());
                toInt16(pane.SelStart());
                pane.setSelStart(pane.SelStart());
                pane.setSelText(lower.left(parts.q));
                pane.setSelStart(pane.SelStart() + selected);
                pane.setSelText(lower.mid(parts.q));
                if (parts.anchor)
                    pane.setSelStart(pane.SelStart() - (selected + 4));
                else
                    pane.setSelStart(pane.SelStart() - selected - parts.q - 1);
                pane.setSelLength(selected);
                doc.AddStep();
            } else {
                pane.setSelText(lower);
                pane.setSelStart(pane.SelStart() - parts.p - 1);
                shell_.nStepCaretAdvance = toInt16(parts.p + 1);
                shell_.nStepCaretBack = toInt16(textLength - parts.p);
                doc.AddInsertStep();
                // The step keeps the caret before the closing tag; the caret itself goes
                // between the quotes of the empty attribute.
                if (parts.anchor) pane.setSelStart(pane.SelStart() + 6);
            }
        } else if (pane.SelLength() > 0) {
            doc.AddSelectionToStack();
            const Int16 selected = toInt16(pane.SelLength());
            toInt16(pane.SelStart());
            pane.setSelStart(pane.SelStart());
            pane.setSelText(lower);
            pane.setSelLength(selected);
            doc.AddStep();
        } else {
            pane.setSelText(lower);
            doc.AddInsertStep();
        }
        doc.SetFocus();
        shell_.bCaretStepTaken = false;
        shell_.bInsertingMarkup = false;
        shell_.nStepCaretAdvance = 0;
        shell_.nStepCaretBack = 0;
    });
}

bool TagList::tvwTags_OLEStartDrag(QString& data) {
    shell_.bTagDropPending = true;
    shell_.bInsertingMarkup = true;
    const bool allowed =
        !(shell_.bLayoutActive || (shell_.ActiveForm() && shell_.ActiveForm()->SelectedTab == 3));
    silentExit([&] {
        shell_.CurrentDocument = shell_.ActiveForm();
        data = sDraggedTag;
        const TagParts parts = takeApart(sDraggedTag);
        const int textLength = static_cast<int>(parts.text.size());
        if (parts.q != -1) {
            shell_.nTagDropBack = toInt16(parts.anchor ? 6 : parts.p + 1);
            shell_.nStepCaretAdvance = toInt16(textLength - parts.q);
            shell_.nStepCaretBack = toInt16(textLength - parts.p);
        } else {
            shell_.nTagDropBack = 0;
        }
        data = parts.text.toLower();
        shell_.bDropPending = true;
    });
    return allowed;
}

void TagList::tvwTags_OLECompleteDrag(int effect) {
    resumeNext([&] {
        SourcePane& pane = required(shell_.ActiveForm()).codebox();
        if (effect != 0) pane.setSelStart(pane.SelStart() - shell_.nTagDropBack);
    });
    resumeNext([&] { required(shell_.ActiveForm()).codebox().SetFocus(); });
}

// The list is filled as the program starts, before any pane shows it.
void bindTagList(DialogContext& context, Commands&) {
    context.part<TagList>();
}

static const CommandSet tagListCommands{bindTagList};

} // namespace tsl
