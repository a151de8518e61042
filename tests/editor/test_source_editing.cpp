// Editing in the Source pane: the commands that write markup without a dialog, the edit commands,
// the tag list and the pane's own keys, in Source and Layout view; and the undo history (steps,
// typing runs, caret moves, clicks, drops, Undo and Redo) with the text of a slot in pieces.
#include "editor/step_text.h"
#include "editor/text_pane.h"
#include "markup/tag_list.h"
#include "shell_helpers.h"
#include "test_rows.h"
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
void select(codeEditor& doc, int start, int length) {
    doc.codebox().setSelStart(start);
    doc.codebox().setSelLength(length);
}

// A loaded shell whose document has the text and a history restarted from it, as a freshly
// opened file has it: one step, Undo and Redo off, the markup flags clear.
struct Editing : TestShell {
    codeEditor& doc;
    explicit Editing(const QString& text, int caret = 0) : doc((load(), active())) {
        doc.codebox().setText(text);
        doc.codebox().setSelStart(caret);
        doc.Steps = {};
        doc.nDoneIndex = doc.nTopIndex = 0;
        doc.nLastStepTime = 0;
        doc.AddStep();
        shell->bInsertingMarkup = shell->bCaretStepTaken = false;
    }
};

// A text with the selection marked: "|" the caret, "[" and "]" around a selection.
QString marked(codeEditor& doc) {
    const SourcePane& pane = doc.codebox();
    QString text = pane.Text();
    if (pane.SelLength() == 0) return text.insert(pane.SelStart(), u'|');
    return text.insert(pane.SelStart() + pane.SelLength(), u']').insert(pane.SelStart(), u'[');
}
QString unmarked(QString text) {
    return text.remove(u'|').remove(u'[').remove(u']');
}
// Puts a marked text in the pane, selection and all; the history is left alone.
void setMarked(codeEditor& doc, const QString& text) {
    doc.codebox().setText(unmarked(text));
    const qsizetype caret = text.indexOf(u'|');
    const qsizetype start = caret >= 0 ? caret : text.indexOf(u'[');
    select(doc, int(start), caret >= 0 ? 0 : int(text.indexOf(u']') - start - 1));
}

// Presses a key in the Source pane and answers the key code the handler left.
int keyDown(codeEditor& doc, int keyCode, int shift) {
    doc.codebox_KeyDown(keyCode, shift);
    return keyCode;
}

const QString kText = QStringLiteral("one two three");
constexpr int Shift = 1, Ctrl = 2;

// Presses the node of a tag by its name ("B", "A HREF") and answers its index.
int pressTag(TestShell& ts, const QString& tag) {
    TagList& list = ts->part<TagList>();
    for (int i = 0; i < list.tvwTags.ListCount(); ++i) {
        const QString entry = list.tvwTags.List(i);
        if (entry.startsWith(u'<' + tag) && !entry.at(tag.size() + 1).isLetterOrNumber()) {
            list.tvwTags_MouseDown(i);
            return i;
        }
    }
    return -1;
}

// The shell's markup flag (m) and caret-step flag (c), as a string and back.
QString flags(TestShell& ts) {
    return QString(ts->bInsertingMarkup ? "m" : "") + (ts->bCaretStepTaken ? "c" : "");
}
void setFlags(TestShell& ts, const QString& on) {
    ts->bInsertingMarkup = on.contains(u'm');
    ts->bCaretStepTaken = on.contains(u'c');
}

// What the Layout surface was sent: commands as "id,option,value", pastes, and its focus.
QStringList surfaceLog(codeEditor& doc) {
    QStringList out;
    for (const auto& c : layoutOf(doc).commands)
        out << QStringLiteral("%1,%2,%3").arg(c.id).arg(c.option).arg(c.value);
    for (const QString& markup : layoutOf(doc).pasted)
        out << "paste " + markup;
    if (layoutOf(doc).focusCount > 0) out << "focus";
    return out;
}

// Does an action: "key:Ctrl+Shift+P" presses keys, "char:<" types a character, "tag:B" double-
// clicks a tag ("tag:": none chosen), "drop:B" drags it to the caret, "button:24" clicks a main
// toolbar button, anything else is a menu item. Answers the key or character the pane left.
int act(Editing& e, const QString& action) {
    static const QHash<QString, int> named = {
        {"Enter", 13}, {"Space", 32}, {"Insert", 45}, {"Delete", 46}, {"F12", 123}};
    const QString what = action.section(u':', 1);
    if (action.startsWith("key:")) {
        const QStringList keys = what.split(u'+');
        const int shift = (keys.contains("Shift") ? Shift : 0) +
                          (keys.contains("Ctrl") ? Ctrl : 0) + (keys.contains("Alt") ? 4 : 0);
        return keyDown(e.doc, named.value(keys.last(), keys.last().at(0).unicode()), shift);
    }
    int typed = action.startsWith("char:") ? what.at(0).unicode() : -1;
    if (action.startsWith("char:")) e.doc.codebox_KeyPress(typed);
    if ((action.startsWith("tag:") || action.startsWith("drop:")) && !what.isEmpty())
        pressTag(e, what);
    if (action.startsWith("tag:")) e->part<TagList>().tvwTags_DblClick();
    QString data;
    if (action.startsWith("drop:")) e->part<TagList>().tvwTags_OLEStartDrag(data);
    if (action.startsWith("drop:")) e.doc.codebox().setSelText(data); // the pane's own drop
    if (action.startsWith("drop:")) e->part<TagList>().tvwTags_OLECompleteDrag(1);
    if (action.startsWith("button:")) e->tbrMain_ButtonClick(what.toInt());
    if (!action.contains(u':')) e.run(qPrintable(action));
    return typed;
}

const QString kHello = QStringLiteral("hello world");

// Undo and Redo as menu item and toolbar button; the two must always agree.
bool undoOn(TestShell& ts) {
    const bool menu = ts->menu(QStringLiteral("mnuEditUndo")).Enabled();
    if (menu != ts->tbrMain.ButtonEnabled(11)) throw std::runtime_error("Undo button disagrees");
    return menu;
}
bool redoOn(TestShell& ts) {
    const bool menu = ts->menu(QStringLiteral("mnuEditRedo")).Enabled();
    if (menu != ts->tbrMain.ButtonEnabled(12)) throw std::runtime_error("Redo button disagrees");
    return menu;
}

// The pane (marked), the step, and which of Undo (u), Redo (r) and the caret step (c) are on.
QString note(Editing& e) {
    return marked(e.doc) + u' ' + QString::number(e.doc.nDoneIndex) + (undoOn(e) ? "u" : "") +
           (redoOn(e) ? "r" : "") + (e->bCaretStepTaken ? "c" : "");
}

// Plays a script and answers its notes. "x@t" types letter x and releases its key at t seconds
// past midnight; "kN@t" releases key N ("kN/S@t" with shift bits S); "click@t" and "rclick@t"
// release a mouse button; "+text" types without a key; "=text" replaces the text; "del" deletes
// the selection; "^n" puts the caret at n, "^n+l" selects l from there; "step" adds a step;
// "check" adds one unless the text is the one of the step below; "skip" makes the next key
// release pass; "S" gives slot 1 a selection; "drag" and "dropped" start and end a drag of the
// selection; "U" and "R" undo and redo, "noU" and "noR" turn their items off; "?" notes.
QString play(Editing& e, const QString& script) {
    QStringList notes;
    SourcePane& pane = e.doc.codebox();
    for (const QString& token : script.split(u' ', Qt::SkipEmptyParts)) {
        const QString head = token.section(u'@', 0, 0);
        const int ms = qRound(token.section(u'@', 1).toDouble() * 1000);
        if (token.contains(u'@')) e.platform.clock.setTime(QTime::fromMSecsSinceStartOfDay(ms));
        if (token == "?") notes << note(e);
        if (token == "U") e.doc.Undo();
        if (token == "R") e.doc.Redo();
        if (token == "noU") e->setUndoEnabled(false);
        if (token == "noR") e->setRedoEnabled(false);
        if (token == "step") e.doc.AddStep();
        if (token == "check") e.doc.CheckToAddStep();
        if (token == "skip") e.doc.bSkipKeyUp = true;
        if (token == "S") e.doc.Steps[1].SelLen = 3;
        if (token == "drag") e.doc.codebox_OLEStartDrag();
        if (token == "dropped") e.doc.codebox_OLECompleteDrag();
        if (token == "del") pane.setSelText(QString());
        if (head.startsWith(u'^'))
            select(e.doc, head.mid(1).section(u'+', 0, 0).toInt(), head.section(u'+', 1).toInt());
        if (head.startsWith(u'+')) pane.setSelText(head.mid(1));
        if (head.startsWith(u'=')) pane.setText(head.mid(1));
        if (head == "click") e.doc.codebox_MouseUp(keys::vbLeftButton, 0);
        if (head == "rclick") e.doc.codebox_MouseUp(keys::vbRightButton, 0);
        if (head.size() == 1 && token.contains(u'@')) pane.setSelText(head);
        if (head.size() == 1 && token.contains(u'@'))
            e.doc.codebox_KeyUp(head[0].toUpper().unicode(), 0);
        if (head.startsWith(u'k') && head.size() > 1)
            e.doc.codebox_KeyUp(head.mid(1).section(u'/', 0, 0).toInt(),
                                head.section(u'/', 1).toInt());
    }
    return notes.join(QStringLiteral(" ; "));
}

// A large text with no two lines alike, so that a wrong piece cannot read back right.
QString largeText() {
    QString text;
    for (int i = 0; i < 4000; ++i)
        text += QStringLiteral("<p id=\"%1\">line %1 of the page</p>\n").arg(i);
    return text;
}
} // namespace

class SourceEditingTest : public QObject {
    Q_OBJECT

  private slots:
    // action # before: flags, view and history # pane before # pane after # flags after #
    // steps after # pane after one Undo ("=": as before; none: not tried) # what the Layout
    // surface got, messages shown, the clipboard if changed, "taken" when the key was taken
    // from the pane, "skip" when its release is to pass, "paste on" when Paste was turned on #
    // pane after Redo, when not as after. Flags: m markup, c caret step; L Layout view, P
    // Preview, s a style sheet, a auto close off, b the text after already one step below, r one
    // step above (undone), S a selection saved in the step, X the text after 32764 characters,
    // so that positions from "one [two]" on need more than 16 bits. "|" caret, "[..]" selection.
    void actions_data() {
        columns<QString, QString, QString, QString, QString, int, QString, QString, QString>(
            {"action", "in", "before", "after", "out", "steps", "undo", "log", "redo"});
        QStringList rows;
        // Wraps keep the selection, saved below first; the flags end clear. Past 16 bits a wrap
        // fails after the selection collapsed and before any markup: silently, but for three
        // (!), with the flags as the command set them at its start.
        for (const char* w :
             {"mnuH1 h1 m", "mnuH2 h2 c", "mnuH3 h3 c", "mnuH4 h4 c", "mnuH5 h5 c", "mnuH6 h6 c",
              "mnuSub sub m", "mnuSup sup m", "mnuTagsBlock blockquote m!", "mnuTagsBold b m",
              "mnuTagsCenter center m!", "mnuTagsItalic i -", "mnuTagsRight - m!",
              "mnuTagsStrike strike m", "mnuTagsUnderline u m"}) {
            const QStringList f = words(w);
            if (f[1] != "-")
                rows << QStringLiteral("%1##one [two] three#one <%2>[two]</%2> three##2#=")
                            .arg(f[0], f[1]);
            rows << QStringLiteral("%1#X#one [two] three#one |two three#%2#1#%3")
                        .arg(f[0], QString(f[2]).remove(u'-').remove(u'!'),
                             f[2].endsWith(u'!') ? "#Run-time error '6': Overflow" : "");
        }
        // Single inserts. The first four save the selection and after a caret move add no
        // step, flags left; the others add their step.
        const char* const entities[] = {"Ampersand amp", "Copyright copy", "Greater gt", "Less lt",
                                        "Quote quot",    "Reg reg",        "Trade trade"};
        for (int i = 0; i < 7; ++i) {
            const QStringList f = words(entities[i]);
            const QString row = QStringLiteral("mnuInsert%1#%3#one [two] three#one &%2;| three#%4");
            rows << row.arg(f[0], f[1], "", "#2#=")
                 << row.arg(f[0], f[1], "mc", i < 4 ? "mc#1#" : "#2#=");
        }
        for (const char* key : {"B", "I", "U", "E"}) // menu shortcuts leave the work to the menu
            rows << QStringLiteral("key:Ctrl+%1##one [two] three#one [two] three#m#1##skip")
                        .arg(key);
        // Paste keys put the clipboard over the selection; cut keys take it away as a step.
        for (const char* key : {"Shift+Insert", "Ctrl+V", "Ctrl+Shift+V"})
            rows << QStringLiteral("key:%1##one [two] three#one TWO| three#m#2#=#taken").arg(key);
        for (const char* key : {"Ctrl+X", "Shift+Delete", "Ctrl+Shift+Delete"})
            rows << QStringLiteral("key:%1##one [two] three#one | three##2#=#clip two; taken; "
                                   "skip; paste on")
                        .arg(key);
        const char* const fixed[] = {
            "mnuTagsRight##one [two] three#one <p align=\"right\">[two]</p> three##2#|one two "
            "three",
            // No selection: an empty pair, the caret between; Redo puts it back there.
            "mnuH2##one |two three#one <h2>|</h2>two three##2#=",
            "mnuTagsRight##one |two three#one <p align=\"right\">|</p>two three##2#=",
            // After a caret move, the result one step below: a step only if the command set m.
            "mnuH1#bc#one |two three#one <h1>|</h1>two three##3#",
            "mnuH2#bc#one |two three#one <h2>|</h2>two three##2#",
            // Layout view: the surface's command, or the pane's wrap where there is none.
            "mnuH1#Lc#one |two three#one |two three#mc#1##5043,2,Heading 1",
            "mnuH2#Lc#one |two three#one |two three#c#1##5043,2,Heading 2",
            "mnuH6#Lc#one |two three#one |two three#c#1##5043,2,Heading 6",
            "mnuSub#Lc#one |two three#one <sub>|</sub>two three##2#",
            "mnuSup#Lc#one |two three#one <sup>|</sup>two three##2#",
            "mnuTagsBlock#Lc#one |two three#one |two three#mc#1##5018,0,",
            "mnuTagsBold#Lc#one |two three#one |two three##1##5000,2,",
            "mnuTagsCenter#Lc#one |two three#one |two three##1##5024,2,; focus",
            "mnuTagsItalic#Lc#one |two three#one |two three##1##5000,2,",
            "mnuTagsRight#Lc#one |two three#one |two three##1##5026,2,; focus",
            "mnuTagsStrike#Lc#one |two three#one |two three##1##5000,2,",
            "mnuTagsUnderline#Lc#one |two three#one |two three##1##5000,2,",
            // Paragraph, line break (a line feed alone, no selection saved) and comment.
            "mnuInsertParagraph##one [two] three#one <p>[two] three##2#=",
            "mnuInsertParagraph##|one two three#<p>|one two three##2#=",
            "mnuInsertParagraph#L#one |two three#one |two three##1##paste <p>",
            "mnuInsertParagraph#b#one |two three#one <p>|two three##2#",
            "mnuInsertBreak##one [two] three#one <br>\n| three##2#one two| three",
            "mnuInsertBreak#L#one |two three#one |two three##1##paste <br>",
            "mnuInsertBreak#b#one |two three#one <br>\n|two three##2#",
            "mnuInsertComment##one [two] three#one <!-- [two] --> three##2#=",
            "mnuInsertComment##one |two three#one <!-- | -->two three##2#=",
            "mnuInsertComment#s#one [two] three#one /* [two] */ three##2#=",
            "mnuInsertComment#s#one |two three#one /* | */two three##2#=",
            "mnuInsertComment#b#one |two three#one <!-- | -->two three##2#",
            // The space saves no selection.
            "mnuInsertSpace##one [two] three#one &nbsp;| three##2#one two| three",
            "mnuInsertSpace#mc#one [two] three#one &nbsp;| three##2#one two| three",
            "mnuInsertAmpersand#Lc#one |two three#one |two three#c#1##paste &amp;",
            "mnuInsertQuote#Lc#one |two three#one |two three##1##paste &quot;",
            "mnuInsertSpace#Lc#one |two three#one |two three##1##paste &nbsp;",
            "mnuInsertQuote#b#one |two three#one &quot;|two three##2#",
            "mnuInsertSpace#b#one |two three#one &nbsp;|two three##2#",
            // Dates: no selection saved, no step after a caret move.
            "mnuInsertDate4##one [two] three#one 05/03/26 7:05:09| three##2#one two| three",
            "mnuInsertDate4#mc#one [two] three#one 05/03/26 7:05:09| three#mc#1#",
            "mnuInsertDate3#Lc#one |two three#one |two three#c#1##paste 05/03/26",
            // Edit commands. Paste leaves the markup flag set, no step after a caret move.
            "mnuEditPaste##one [two] three#one TWO| three#m#2#=",
            "mnuEditPaste#c#one [two] three#one TWO| three#mc#1#",
            "mnuEditCut##[one] two three#| two three##2#=#clip one; paste on",
            "mnuEditCopy##one [two] three#one [two] three##1##clip two; paste on",
            "mnuEditSelectall##one| two three#[one two three]##1#",
            "mnuEditCut#L#[one] two three#[one] two three##1##5003,0,; focus; paste on",
            "mnuEditCopy#L#[one] two three#[one] two three##1##5002,0,; focus; paste on",
            "mnuEditPaste#L#[one] two three#[one] two three#m#1##5032,0,; focus",
            "mnuEditSelectall#L#[one] two three#[one] two three##1##5035,0,",
            "mnuEditUndo#L#[one] two three#[one] two three##1##5049,0,",
            "mnuEditRedo#L#[one] two three#[one] two three##1##5033,0,",
            "mnuFormatRemove#L#[one] two three#[one] two three##1##5034,0,",
            "mnuFormatRemove##one |two three#one |two three##1##5034,0,",

            // The tag list, in lower case: the caret between the tags, or between the quotes of
            // an anchor (Redo keeps it before the closing tag); a selection stays selected.
            "tag:A HREF##one |two three#one <a href=\"|\"></a>two three##2#=##"
            "one <a href=\"\">|</a>two three",
            "tag:A HREF##one [two] three#one <a href=\"\">[two]</a> three##2#=",
            "tag:A NAME##one |two three#one <a name=\"|\"></a>two three##2#=##"
            "one <a name=\"\">|</a>two three",
            "tag:B##one |two three#one <b>|</b>two three##2#=",
            "tag:B##one [two] three#one <b>[two]</b> three##2#=",
            "tag:BLOCKQUOTE##one |two three#one <blockquote>|</blockquote>two three##2#=",
            "tag:H1##one [two] three#one <h1>[two]</h1> three##2#=",
            "tag:BR##one |two three#one <br>|two three##2#=",
            "tag:BR##one [two] three#one <br>[two] three##2#=",
            "tag:LI##one [two] three#one <li>[two] three##2#=",
            // The odd entry has no room for content: Redo and the selection land astray.
            "tag:INPUT##one |two three#one <input type=></input>|two three##2#=##"
            "one| <input type=></input>two three",
            "tag:INPUT##one [two] three#one <input [typ]e=>two</input> three##2#=",
            "tag:B#S#one |two three#one <b>|</b>two three##2#=",
            "tag:B#L#one |two three#one |two three##1#",
            // No tag chosen, or a selection past 16 bits: the flag stays, silently.
            "tag:##one [two] three#one [two] three#m#1#",
            "tag:B#X#one [two] three#one [two] three#m#1#",
            "tag:AREA#X#one [two] three#one [two] three#m#1#",
            // A drop puts the caret inside the tag and leaves the markup flag for later.
            "drop:H1##one |two three#one <h1>|</h1>two three#m#2#=",
            "drop:A HREF##one |two three#one <a href=\"|\"></a>two three#m#2#=##"
            "one <a href=\"\">|</a>two three",
            "drop:BR##one |two three#one <br>|two three#m#2#=",
            "drop:INPUT##one |two three#one <input type=></input>|two three#m#2#=##"
            "one| <input type=></input>two three",
            "drop:H1#S#one |two three#one <h1>|</h1>two three#m#2#=",
            // The badge: a link to the home page around its logo, on a line of its own.
            "button:24##one |two three#one \n<p><a href=\"https://www.tessaline.org/\">\n<img "
            "src=\""
            "https://www.tessaline.org/images/tessaline-88x31.png\" width=\"88\" height=\"31\" "
            "border=\"0\" alt=\"Tessaline Home Page\"></a>|two three##2#=",
            "button:24#L#one |two three#one |two three##1##paste <p><a href=\"https://www.tessaline"
            ".org/\">\n<img src=\"https://www.tessaline.org/images/tessaline-88x31.png\" "
            "width=\"88\" "
            "height=\"31\" border=\"0\" alt=\"Tessaline Home Page\"></a>",
            "tag:B#P#one |two three#one |two three##1#",
            // The pane's keys. Those of a menu shortcut leave the work to it.
            "key:Ctrl+Enter##one |two three#one <br>|two three##1#",
            "key:Ctrl+Enter##one [two] three#one <br>| three##1#",
            "key:Enter##one |two three#one |two three##1#",
            "key:Ctrl+Shift+P##one |two three#one <p>|two three##1#",
            "key:Ctrl+Shift+P##one [two] three#one <p>[two] three##1#",
            "key:Ctrl+Alt+Shift+P##one [two] three#one <p>[two] three##1#",
            "key:Ctrl+P##one [two] three#one [two] three##1#",
            "key:Ctrl+Shift+Q##one |two three#one </p>|two three##1#",
            "key:Ctrl+Shift+Q##one [two] three#one [two]</p> three##1#",
            "key:Ctrl+Shift+P#X#one [tw]o three#one <p>[tw]o three##1#",
            "key:Ctrl+Shift+Q#X#one[ t]wo three#one[ t]</p>wo three##1#",
            "key:Ctrl+Shift+Q#X#one [tw]o three#one [tw]o three##1##Run-time error '6': Overflow",
            "key:Ctrl+Shift+Space##one |two three#one &nbsp;|two three##1#",
            "key:Shift+Space##one |two three#one |two three##1#",
            "key:Ctrl+Shift+B##one |two three#one |two three#m#1##skip",
            "key:B##one |two three#one |two three##1#",
            "key:F12##one |two three#one |two three#m#1##skip",
            "key:Alt+F12##one |two three#one |two three#m#1##skip",
            "key:Ctrl+Z#b#one!| two three#one| two three##1##taken",
            "key:Ctrl+Y#r#one| two three#one!| two three##2##taken",
            "key:Insert##one [two] three#one [two] three##1#",
            "key:V##one [two] three#one [two] three##1#",
            "key:Shift+Delete##one| two three#one| two three##2##clip ; taken; skip; paste on",
            "key:Delete##one [two] three#one [two] three##1#",
            "key:X##one [two] three#one [two] three##1#",
            // "<" types a pair, the caret inside, as a step of its own whose caret is past it.
            "char:<##one |two three#one <|>two three##2#=#taken#one <>|two three",
            "char:<##one [two] three#one <|> three##2##taken",
            "char:<#a#one |two three#one |two three##1#",
            "char:>##one |two three#one |two three##1#",
        };
        for (const char* row : fixed)
            rows << QString::fromUtf8(row);
        for (const QString& row : rows) {
            const QStringList f = row.split(u'#');
            QTest::newRow(qPrintable(QString(row).replace(u'\n', u' ')))
                << f[0] << f[1] << f[2] << f[3] << f[4] << f[5].toInt() << f[6] << f.value(7)
                << f.value(8, f[3]);
        }
    }
    void actions() {
        QFETCH(QString, in);
        QFETCH(QString, before);
        QFETCH(QString, after);
        const QString pad = in.contains(u'X') ? QString(32764, u'x') : QString();
        Editing e(pad + unmarked(in.contains(u'b') ? after : before));
        setMarked(e.doc, pad + before);
        if (in.contains(u'b')) e.doc.AddStep();
        if (in.contains(u'r')) setMarked(e.doc, after), e.doc.AddStep(), e.doc.Undo();
        e.doc.CSSDoc = in.contains(u's') ? QStringLiteral("Yes") : QStringLiteral("No");
        e.doc.SelectedTab = in.contains(u'P') ? 3 : 1;
        e->bLayoutActive = in.contains(u'L');
        e->bAutoCloseTag = !in.contains(u'a');
        setFlags(e, in);
        if (in.contains(u'S')) e.doc.Steps[1].SelLen = 3;
        e->setPasteEnabled(false);
        e.platform.clipboard = QStringLiteral("TWO");
        e.platform.clock = QDateTime(QDate(2026, 3, 5), QTime(7, 5, 9));
        QFETCH(QString, action);
        int left = -1;
        e->dispatch([&] { left = act(e, action); });
        QCOMPARE(marked(e.doc).mid(pad.size()), after);
        QTEST(flags(e), "out");
        QTEST(int(e.doc.nDoneIndex), "steps");
        QCOMPARE(e->nStepCaretAdvance + e->nStepCaretBack, 0);
        QStringList log = surfaceLog(e.doc);
        for (const ShownMessage& message : e.platform.messages)
            log << message.text.simplified();
        if (e.platform.clipboard != QLatin1String("TWO")) log << "clip " + e.platform.clipboard;
        if (left == 0) log << "taken";
        if (e.doc.bSkipKeyUp) log << "skip";
        if (e->menu(QStringLiteral("mnuEditPaste")).Enabled() && e->tbrMain.ButtonEnabled(9))
            log << "paste on";
        QTEST(log.join(QStringLiteral("; ")), "log");
        QFETCH(QString, undo);
        if (undo.isEmpty()) return;
        e.doc.Undo();
        QCOMPARE(marked(e.doc), undo == QLatin1String("=") ? before : undo);
        e.doc.Redo();
        QTEST(marked(e.doc), "redo");
    }

    // The paragraph keys fail on a selection longer than 16 bits.
    void paragraphKeysOnLongSelections() {
        for (const char* keys : {"key:Ctrl+Shift+P", "key:Ctrl+Shift+Q"}) {
            Editing e(QString(40000, u'x'));
            select(e.doc, 10, 32768);
            e->dispatch([&] { act(e, keys); });
            QCOMPARE(e.platform.messageTexts(), QStringList{"Run-time error '6':\n\nOverflow"});
            QCOMPARE(e.doc.codebox().length(), 40000);
        }
    }

    // The captions follow the clock as the menu opens; the first date's state goes to all four.
    void dateCaptions() {
        Editing e(kText);
        e.platform.clock = QDateTime(QDate(2026, 3, 5), QTime(7, 5, 9));
        const QLocale locale = QLocale::system();
        const QString longDate =
            locale.dayName(4) + QStringLiteral(" 5 ") + locale.monthName(3) + " 2026";
        const QStringList expected = {longDate, longDate + " 7:05:09", "05/03/26",
                                      "05/03/26 7:05:09"};
        e->menu(QStringLiteral("mnuInsertDate1")).setEnabled(false);
        e.run("mnuInsert");
        for (int n = 1; n <= 4; ++n) {
            const MenuItem& entry = e->menu(QStringLiteral("mnuInsertDate%1").arg(n));
            QCOMPARE(entry.Caption(), expected[n - 1]);
            QVERIFY(!entry.Enabled());
        }
    }

    // The two anchors, then every tag by name: a pair with room for the content between, or
    // a single tag; INPUT is the odd one. A press outside the nodes keeps the one chosen.
    void theTagList() {
        Loaded ts;
        TagList& list = ts->part<TagList>();
        QCOMPARE(list.tvwTags.ListCount(), 89);
        QCOMPARE(list.tvwTags.List(0), "<A HREF=\"\">  </A>");
        QCOMPARE(list.tvwTags.List(1), "<A NAME=\"\">  </A>");
        const QRegularExpression shape(
            QStringLiteral("<([A-Z0-9]+)>(  </\\1>)?|<INPUT TYPE=></INPUT>"));
        QString previous;
        for (int i = 2; i < 89; ++i) {
            const auto match = shape.match(list.tvwTags.List(i));
            const QString name = match.captured(1).isEmpty() ? "INPUT" : match.captured(1);
            QVERIFY2(match.capturedLength() == list.tvwTags.List(i).size(), qPrintable(name));
            QVERIFY2(previous < name, qPrintable(name));
            previous = name;
        }
        for (const char* single : {"BR", "LI", "HR", "IMG", "META", "TAB"})
            QCOMPARE(list.tvwTags.List(pressTag(ts, single)), QStringLiteral("<%1>").arg(single));
        QCOMPARE(list.tvwTags.List(pressTag(ts, "B")), "<B>  </B>");
        for (int outside : {-1, 89})
            list.tvwTags_MouseDown(outside);
        QCOMPARE(list.tvwTags.ListIndex(), 6);
        QCOMPARE(list.sDraggedTag, "<B>  </B>");
    }

    // Outside Source a tag's drag is refused; a refused drop leaves the caret, focus on the pane.
    void refusedDrags() {
        Editing e(kText, 6);
        pressTag(e, "H1");
        QString data;
        for (const auto& [layout, tab] : {std::pair{true, 1}, std::pair{false, 3}}) {
            e->bLayoutActive = layout;
            e.doc.SelectedTab = tab;
            QVERIFY(!e->part<TagList>().tvwTags_OLEStartDrag(data));
        }
        auto& pane = static_cast<TextPane&>(e.doc.codebox());
        const int focus = pane.focusCount();
        e->part<TagList>().tvwTags_OLECompleteDrag(0);
        QCOMPARE(marked(e.doc), "one tw|o three");
        QCOMPARE(pane.focusCount(), focus + 1);
    }

    // Cut and Copy follow the selection, Paste the clipboard; a right click asks for the menu.
    void paneEvents() {
        for (const int selLength : {0, 2}) {
            for (const QString& clipboard : {QString(), QStringLiteral("x")}) {
                Editing e(kText);
                select(e.doc, 1, selLength);
                e.platform.clipboard = clipboard;
                e.doc.codebox_SelChange();
                const auto on = [&](const char* item) { return e->menu(item).Enabled(); };
                QCOMPARE(QList<bool>({on("mnuEditCut"), e->tbrMain.ButtonEnabled(7),
                                      on("mnuEditCopy"), e->tbrMain.ButtonEnabled(8)}),
                         QList<bool>(4, selLength > 0));
                QCOMPARE(QList<bool>({on("mnuEditPaste"), e->tbrMain.ButtonEnabled(9)}),
                         QList<bool>(2, !clipboard.isEmpty()));
            }
        }
        Editing e(kText);
        QSignalSpy asked(&e.doc, &codeEditor::editMenuRequested);
        e.doc.Form_MouseDown(keys::vbLeftButton, 0);
        e.doc.codebox_MouseUp(keys::vbLeftButton, 0);
        QCOMPARE(asked.count(), 0);
        e.doc.Form_MouseDown(keys::vbRightButton, 0);
        e.doc.codebox_MouseUp(keys::vbRightButton, 0);
        QCOMPARE(asked.count(), 2);
    }

    // Ctrl+F6 and Ctrl+Shift+F6 walk the documents; F6 and F4 alone pass; Ctrl+F4 closes.
    void windowKeys() {
        Loaded ts;
        ts->mnuFileNewHTML_Click();
        const auto windowKey = [&](int keyCode, int shift) {
            ts.active().Form_KeyDown(keyCode, shift);
            return keyCode;
        };
        const auto& docs = ts->documents();
        QCOMPARE(windowKey(keys::vbKeyF6, Ctrl), 0);
        QCOMPARE(ts->ActiveForm(), docs[0]);
        QCOMPARE(windowKey(keys::vbKeyF6, Ctrl + Shift), 0);
        QCOMPARE(ts->ActiveForm(), docs[1]);
        QCOMPARE(ts->TabStrip1.selectedIndex(), 1);
        QCOMPARE(windowKey(keys::vbKeyF6, 0), int(keys::vbKeyF6));
        QCOMPARE(windowKey(keys::vbKeyF4, 0), int(keys::vbKeyF4));
        QCOMPARE(ts->ActiveForm(), docs[1]);
        QCOMPARE(windowKey(keys::vbKeyF4, Ctrl), 0);
        QCOMPARE(docs.size(), size_t(1));
    }

    // One step, the caret inside the template's body, nothing to undo or redo.
    void newDocumentHasOneStepAndNothingToUndo() {
        TestShell ts;
        codeEditor& doc = (ts.load(), ts.active());
        QCOMPARE(doc.Steps[1].Text, doc.codebox().Text());
        QCOMPARE(doc.Steps[0].Text, QString());
        QCOMPARE(QList<int>({doc.nDoneIndex, doc.nTopIndex, doc.Steps[1].SelStart}),
                 QList<int>({1, 1, 106}));
        QVERIFY(!undoOn(ts) && !redoOn(ts));
    }

    // name # pane at the start (none: "x|y") # script # its notes (see play()).
    void history_data() {
        columns<QString, QString, QString>({"start", "script", "notes"});
        const char* const rows[] = {
            "a typing run is one step##a@100 b@101 c@102 ? U ? R ?#xabc|y 2u ; x|y 1r ; xabc|y 2u",
            // The pause is measured from the previous release, read in whole seconds.
            "1.5 s exactly##a@99 b@100 c@101.5 ?#xabc|y 2u",
            "just over 1.5 s##a@99 b@100 c@101.6 ? U ?#xabc|y 3u ; xab|y 2ur",
            "two seconds##a@99 b@100 c@102 ?#xabc|y 3u",
            "rounded down, 1.2 s apart##a@99.4 b@100.4 c@101.6 ?#xabc|y 3u",
            "rounded up, 1.8 s apart##a@99.6 b@100.6 c@102.4 ?#xabc|y 2u",
            "over midnight##a@86398 b@86399 c@0.5 ?#xabc|y 2u",
            "typing after a caret move##a@100 b@100.5 ^0 k37@100.7 z@100.9 ? U ? U ?#"
            "z|xaby 3u ; |xaby 2ur ; x|y 1r",
            "a pause after a caret move reuses its step##a@100 k36@100.5 b@105 ? c@105.5 ? U ?#"
            "xab|y 3u ; xabc|y 3u ; xa|y 2ur",
            // Releases with Ctrl alone count for nothing; every delete is a step.
            "Delete##+z k46@100 ?#xz|y 2u",
            "Shift+Delete##+z k46/1@100 ?#xz|y 2u",
            "Ctrl+Delete##+z k46/2@100 ?#xz|y 1",
            "Ctrl+Shift+Delete##+z k46/3@100 ?#xz|y 2u",
            "Ctrl+Alt+Delete##+z k46/6@100 ?#xz|y 2u",
            "every delete#|hello#^0+1 del k46@100.1 ? ^0+1 del k46@100.2 ? ^0+1 del k46@100.3 ? U "
            "?#"
            "|ello 2u ; |llo 3u ; |lo 4u ; l|lo 3ur",
            "a skipped release##skip a@100 ? b@100.2 ?#xa|y 1 ; xab|y 2u",
            "a run in slot 2 clears the selection of slot 1##a@100 S b@100.5 U ?#x|y 1r",
            // A left click closes the run and starts the clock of the next one; a right click
            // asks for the menu only.
            "clicks##click@99 ? a@100 rclick@100.7 ? ^0 click@100.7 ? b@102.2 ?#"
            "x|y 1 ; xa|y 2u ; |xay 3uc ; b|xay 3u",
            "typing into an empty page#|#a@100 ?#a| 1u",
            "undo to the empty slot##a@100 ^1+1 del k8@100.5 ? U ?#x|y 2u ; | 0ur",
            "the check looks one slot down##=changed step =xy check ? =changed check ?#"
            "|xy 2u ; |changed 3u",
            "redo passes over a duplicate#a|#=ab step step =abc step U U ? =ab R ?#|a 1r ; |ab 3ur",
            // A drop is a step of its own, its selection saved below; other changes are not.
            "drop#|hello_world#^0+5 drag dropped del ? ^1 +hi ? U ?#|_world 2u ; _hi|world 2u ; "
            "[hello]_world 1r",
            "the items off##=other step noU U ? step U noR R ?#|other 2 ; |xy 1",
            "an undone step is ended by a new one##a@100 b@105 U ? +! step ?#xa|y 2ur ; xa!|y 3u",
        };
        QStringList all;
        // Caret keys (33 to 40) close the run; others do not.
        for (int key : {33, 34, 35, 36, 37, 38, 39, 40, 32, 41, 16})
            all << QStringLiteral("key %1##k%1@99 ? a@100 ^0 k%1@100.5 ?#x|y 1 ; |xay %2")
                       .arg(QString::number(key), key <= 40 && key >= 33 ? "3uc" : "2u");
        for (const char* row : rows)
            all << QString::fromUtf8(row);
        for (const QString& row : all) {
            const QStringList f = row.split(u'#');
            QTest::newRow(qPrintable(f[0])) << f[1] << f[2] << f[3];
        }
    }
    void history() {
        QFETCH(QString, start);
        if (start.isEmpty()) start = QStringLiteral("x|y");
        Editing e(unmarked(start), int(start.indexOf(u'|')));
        QFETCH(QString, script);
        QTEST(play(e, script), "notes");
    }

    // Where a step keeps the caret: past what an insertion put after it, or one on after the
    // automatic pair; the caret back is kept for Redo.
    void addStepFields_data() {
        columns<int, int, bool, int, int, bool>(
            {"advance", "back", "autoClose", "selStart", "caretBack", "autoCloseAfter"});
        QTest::newRow("plain") << 0 << 0 << false << 5 << 0 << false;
        QTest::newRow("auto close") << 0 << 0 << true << 6 << 0 << false;
        QTest::newRow("advance keeps auto close") << 3 << 2 << true << 8 << 2 << true;
        QTest::newRow("advance") << 4 << 4 << false << 9 << 4 << false;
        QTest::newRow("negatives count as none") << -2 << -3 << false << 5 << 0 << false;
    }
    void addStepFields() {
        Editing e(kHello, 5);
        QFETCH(int, advance);
        QFETCH(int, back);
        QFETCH(bool, autoClose);
        e->nStepCaretAdvance = Int16(advance);
        e->nStepCaretBack = Int16(back);
        e.doc.bAutoCloseStep = autoClose;
        e.doc.AddStep();
        QCOMPARE(e.doc.nTopIndex, Int16(2));
        QCOMPARE(e.doc.Steps[2].Text, kHello);
        QTEST(e.doc.Steps[2].SelStart, "selStart");
        QTEST(e.doc.Steps[2].CaretBack, "caretBack");
        QTEST(e.doc.bAutoCloseStep, "autoCloseAfter");
        QCOMPARE(e->nStepCaretAdvance + e->nStepCaretBack, 0);
        QCOMPARE(note(e), QStringLiteral("hello| world 2u"));
    }

    void fullStackDropsTheOldestStep() {
        Editing e(QStringLiteral("t1"));
        e.doc.Steps[0].Text = QStringLiteral("slot zero");
        for (int n = 2; n <= 26; ++n) {
            play(e, QStringLiteral("=t%1 step").arg(n));
            QCOMPARE(e.doc.nDoneIndex, Int16(qMin(n, 25)));
        }
        QStringList texts;
        for (int n : {0, 1, 24, 25})
            texts << e.doc.Steps[n].Text;
        QCOMPARE(texts, QStringList({"slot zero", "t2", "t25", "t26"}));
    }

    // A step without a selection of its own under one with a selection is passed over; at
    // slot 1 with a selection above, the caret goes where slot 1 had it.
    void undoPassesOverAStepWithoutItsOwnSelection() {
        Editing e(QStringLiteral("one"));
        play(e, "=one_two step =one_two_three step");
        e.doc.Steps[2].SelStart = 7;
        e.doc.Steps[3].SelLen = 2;
        QCOMPARE(play(e, "U ? R ?"), QStringLiteral("one| 1r ; one_two| 2ur"));
        e.doc.Steps[2].SelLen = 3;
        e.doc.Steps[1].SelStart = 2;
        QCOMPARE(play(e, "U ?"), QStringLiteral("on|e 1r"));
    }

    // Undo back to the saved text still leaves the document dirty.
    void undoDirties() {
        Editing e(kHello, 5);
        play(e, "a@100 b@105");
        e.doc.Tag = QStringLiteral("Clean");
        e.doc.Undo();
        QCOMPARE(e.doc.Tag, QStringLiteral("Dirty"));
    }

    void activationShowsEachDocumentsOwnHistory() {
        Editing e(kHello, 5);
        codeEditor& first = e.doc;
        play(e, "a@100 U");
        e->mnuFileNewHTML_Click();
        QVERIFY(&e.active() != &first);
        QVERIFY(!undoOn(e) && !redoOn(e));
        first.ZOrder();
        QVERIFY(!undoOn(e) && redoOn(e));
        first.Redo();
        e->documents()[1]->ZOrder();
        first.ZOrder();
        QVERIFY(undoOn(e) && !redoOn(e));
    }

    // A fetched page counts its steps from slot 0, and its first step cannot be undone.
    void fetchedPageCountsFromZero() {
        Loaded ts;
        ts->bLoadingOnline = true;
        ts->NewHtmlDocument();
        codeEditor& doc = ts.active();
        QCOMPARE(doc.nDoneIndex, Int16(-1));
        doc.codebox().setText(QStringLiteral("<html>fetched</html>"));
        QCOMPARE(doc.nDoneIndex, Int16(0));
        QCOMPARE(doc.Steps[0].Text, "<html>fetched</html>");
        ts->bLoadingOnline = false;
        doc.lblOnlineFile = QStringLiteral("Yes");
        for (int done : {2, 3}) {
            doc.nDoneIndex = Int16(done);
            doc.Form_Activate();
            QCOMPARE(undoOn(ts), done == 3);
        }
    }

    // A slot's text against the one below: an edit of a large text is kept as pieces that read,
    // size and compare as the text and cost little beyond the text below; small texts and edits
    // that change much are kept whole, as a plain shared string.
    void stepText_data() {
        columns<QString, QString, int>({"below", "text", "beyond"});
        const QString large = largeText();
        const auto edit = [&](const char* name, int at, int removed, const char* inserted) {
            const qsizetype position = at < 0 ? large.size() + at + (removed ? 0 : 1) : at;
            QTest::newRow(name) << large << QString(large).replace(position, removed, inserted)
                                << int(strlen(inserted));
        };
        edit("insert at the start", 0, 0, "<b>");
        edit("insert in the middle", 60000, 0, "x");
        edit("insert at the end", -1, 0, "</html>");
        edit("delete at the start", 0, 10, "");
        edit("delete in the middle", 70000, 500, "");
        edit("delete at the end", -10, 10, "");
        edit("replace", 80000, 3, "abcdef");
        edit("a repeated character", 5, 0, "<");
        QTest::newRow("small, whole") << "<p>a</p>"
                                      << "<p>ab</p>" << -1;
        QTest::newRow("empty, whole") << ""
                                      << "" << -1;
        QTest::newRow("most of it new, whole")
            << large << QString(large).replace(10, 10, QString(100000, QLatin1Char('y'))) << -1;
        QTest::newRow("a small text below, whole") << "<p>" << large << -1;
    }
    void stepText() {
        QFETCH(QString, below);
        QFETCH(QString, text);
        QFETCH(int, beyond);
        StepText step;
        step.assign(text, StepText(below));
        QCOMPARE(step.isWhole(), beyond < 0);
        QCOMPARE(step.toString(), text);
        QCOMPARE(step.size(), text.size());
        QVERIFY(step == text && (step != below) == (text != below));
        QVERIFY(StepText(below) == below && (StepText(below) != step) == (text != below));
        if (beyond >= 0) QVERIFY(step.charactersBeyond(below) <= beyond);
        if (beyond < 0 && !text.isEmpty()) QCOMPARE(step.toString().constData(), text.constData());
    }

    // A run of edits, each step kept against the one below, as the undo stack keeps them.
    void manyStepsReadBackAndCompare() {
        QRandomGenerator random(20261123);
        QString model = largeText();
        const QString first = model;
        std::vector<StepText> steps{StepText(model)};
        for (int i = 0; i < 200; ++i) {
            const int at = int(random.bounded(int(model.size()) + 1));
            const int removed = int(random.bounded(std::min<qsizetype>(40, model.size() - at) + 1));
            const QString inserted = QString(int(random.bounded(6)), QChar(u'a' + i % 26));
            model.replace(at, removed, inserted);
            StepText step;
            step.assign(model, steps.back());
            QCOMPARE(step.toString(), model);
            QVERIFY(step == model);
            QVERIFY(step == StepText(model));
            steps.push_back(step);
        }
        // Every older step still reads as it was, and neighbours tell each other apart.
        QVERIFY(steps.front() == first);
        for (size_t i = 1; i < steps.size(); ++i)
            QVERIFY((steps[i] == steps[i - 1]) == (steps[i].toString() == steps[i - 1].toString()));
        // Only now and then is a step whole again (when its pieces grow many); the newest holds
        // little beyond the last whole one, which it shares.
        QString lastWhole;
        int wholeSteps = 0;
        for (const StepText& step : steps)
            if (step.isWhole()) {
                ++wholeSteps;
                lastWhole = step.toString();
            }
        QVERIFY2(wholeSteps <= 3, qPrintable(QString::number(wholeSteps)));
        QVERIFY(steps.back().charactersBeyond(lastWhole) < 200 * 6);
    }
};

QTEST_GUILESS_MAIN(SourceEditingTest)
#include "test_source_editing.moc"
