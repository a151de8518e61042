// Markup commands without a dialog, edit commands, the tag list and the pane's keys; the undo
// history; and the switches between the three views, the Layout surface's state on the toolbars.
#include "dialogs/table_chooser.h"
#include "editor/step_text.h"
#include "editor/text_pane.h"
#include "markup/tag_list.h"
#include "shell_helpers.h"
#include "test_rows.h"
#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tsl;
using namespace tsl::test;

namespace {
void select(codeEditor& doc, int start, int length) {
    doc.codebox().setSelStart(start);
    doc.codebox().setSelLength(length);
}

// A loaded shell whose document has the text and a fresh history of one step, flags clear.
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

// "key:Ctrl+P", "char:<", "tag:B" (double-click), "drop:B", "button:24", else a menu item.
// Answers the key or character the pane left.
int act(Editing& e, const QString& action) {
    static const QHash<QString, int> named = {
        {"Enter", 13}, {"Space", 32}, {"Insert", 45}, {"Delete", 46}, {"F12", 123}};
    const QString what = action.section(u':', 1);
    if (action.startsWith("key:")) {
        const QStringList keys = what.split(u'+');
        const int shift = (keys.contains("Shift") ? Shift : 0) +
                          (keys.contains("Ctrl") ? Ctrl : 0) + (keys.contains("Alt") ? 4 : 0);
        int code = named.value(keys.last(), keys.last().at(0).unicode());
        e.doc.codebox_KeyDown(code, shift);
        return code;
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

const QString kPage = QStringLiteral("<html>\n<body>\n<p>x</p>\n</body>\n</html>");

// A shell whose active document is a page opened from a file of a temporary folder.
struct Views {
    QTemporaryDir dir;
    TestShell ts;
    codeEditor* doc = nullptr;

    explicit Views(const QString& name = QStringLiteral("page.htm"), const QString& text = kPage) {
        ts.platform.temp = dir.filePath(QStringLiteral("temp"));
        QDir().mkpath(ts.platform.temp);
        ts.load();
        doc = &ts.open(writeFile(dir, name, text.toUtf8()));
    }
    DetachedLayout& layout() { return layoutOf(*doc); }
    DetachedBrowser& browser() { return static_cast<DetachedBrowser&>(doc->WebBrowser1()); }
    void show(int view) { doc->tabEditor.SelectTab(view); }
    QString folder() const { return dir.path() + QLatin1Char('/'); }
    bool menuOn(const char* name) { return ts->menu(QLatin1String(name)).Enabled(); }
    void editInLayout(const QString& html) {
        show(2);
        layout().edit(html);
    }
};
} // namespace

class SourceEditingTest : public QObject {
    Q_OBJECT

  private slots:
    // action # in # pane before # after # flags after # steps # after Undo ("=" as before) #
    // surface log, messages, clipboard, "taken" key, "skip" release, "paste on" # after Redo.
    // In: m markup, c caret step, L Layout, P Preview, s style sheet, a auto close off, b after
    // already a step below, r one undone above, S a saved selection, X 32764 characters before.
    void actions_data() {
        columns<QString, QString, QString, QString, QString, int, QString, QString, QString>(
            {"action", "in", "before", "after", "out", "steps", "undo", "log", "redo"});
        QStringList rows;
        // Wraps keep the selection, flags end clear. Past 16 bits a wrap fails silently (but "!").
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
        // Single inserts: the first four add no step after a caret move.
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
            "mnuH1#bc#one |two three#one <h1>|</h1>two three##3#",
            "mnuH2#bc#one |two three#one <h2>|</h2>two three##2#",
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

            // The tag list, in lower case: the caret between the tags or an anchor's quotes.
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

    // The two anchors, then every tag by name, a pair or single; a press outside keeps the choice.
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
            // A left click closes the run and starts the next one's clock; a right click does not.
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

    // A step keeps the caret past what an insertion put after it, or one on after the pair.
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

    // An edit of a large text is kept as cheap pieces against the slot below; else kept whole.
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
        QTest::newRow("small, whole") << QString("<p>a</p>") << QString("<p>ab</p>") << -1;
        QTest::newRow("empty, whole") << QString() << QString() << -1;
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

    void toLayoutCopiesTheTextAndSetsTheStrips() {
        Views v;
        QCOMPARE(v.doc->tabEditor.TabCount(), 3);
        QCOMPARE(v.doc->tabEditor.TabCaption(2), "  Layout  ");
        QCOMPARE(errorOf([&] { v.show(4); }), 5);
        QCOMPARE(errorOf([&] { v.show(0); }), 5);
        v.show(2);
        QVERIFY(v.layout().Visible() && v.ts->bLayoutActive);
        QCOMPARE(v.layout().DocumentHTML(), kPage);
        QCOMPARE(v.layout().BaseURL(), v.folder());
        for (const ComboBox* combo : {&v.doc->cmbStyles, &v.doc->cmbFonts, &v.doc->cmbFontSize})
            QVERIFY(combo->Visible());
        QVERIFY(!v.ts->tbrTags.ButtonEnabled(18) && !v.ts->tbrMain.ButtonEnabled(22));
        QVERIFY(!v.menuOn("mnuInsertFrames") && !v.menuOn("mnuInsertComment"));
        QVERIFY(v.ts->tbrMain.ButtonVisible(12));
        QCOMPARE(v.ts.platform.messages.size(), 0);
    }

    // Borders show unless the setting says exactly "No"; the button turns them and remembers.
    void showBordersReadsItsSetting_data() {
        columns<QString, bool>({"stored", "on"});
        QTest::newRow("never written") << QString() << true;
        QTest::newRow("No") << "No" << false;
        QTest::newRow("no") << "no" << true;
        QTest::newRow("Yes") << "Yes" << true;
    }
    void showBordersReadsItsSetting() {
        QFETCH(QString, stored);
        QFETCH(bool, on);
        Views v;
        if (!stored.isNull()) v.ts.settings.save(keys::Fuzzies, keys::ShowBorders, stored);
        v.show(2);
        QCOMPARE(v.layout().ShowBorders(), on);
        QCOMPARE(v.doc->tbrTable.ButtonChecked(12), on);
        v.doc->tbrTable.press(12);
        QCOMPARE(v.layout().ShowBorders(), !on);
        QCOMPARE(v.doc->tbrTable.ButtonChecked(12), !on);
        QCOMPARE(v.ts.settings.get(keys::Fuzzies, keys::ShowBorders), on ? "No" : "Yes");
    }

    void backFromLayoutUneditedKeepsTheTextAndDropsTheHistory() {
        Views v;
        v.doc->codebox().setSelText(QStringLiteral("edit "));
        v.doc->AddStep();
        v.show(2);
        v.show(1);
        const QString text = QStringLiteral("edit ") + kPage;
        QCOMPARE(v.doc->codebox().Text(), text);
        QCOMPARE(v.doc->codebox().SelStart(), text.indexOf("<body>") + 6);
        QCOMPARE(v.doc->nDoneIndex, 1);
        QCOMPARE(v.doc->nTopIndex, 1);
        QCOMPARE(v.doc->step(1).Text, text);
        QVERIFY(!v.menuOn("mnuEditUndo") && !v.ts->tbrMain.ButtonEnabled(11));
        QVERIFY(!v.layout().Visible() && !v.ts->bLayoutActive);
        QCOMPARE(v.layout().newDocuments, 1);
        for (const ComboBox* combo : {&v.doc->cmbStyles, &v.doc->cmbFonts, &v.doc->cmbFontSize})
            QVERIFY(!combo->Visible());
    }

    // An edited page comes back without the blanks before </body>; the caret goes past "<body>".
    void anEditedPageComesBack_data() {
        columns<QString, QString, int>({"edited", "text", "caret"});
        QTest::newRow("with a body") << "<html><body>\n<p>y</p> \n \n</body></html>"
                                     << "<html><body>\n<p>y</p></body></html>" << 12;
        QTest::newRow("no body, no >") << "just words"
                                       << "just words" << 1;
        QTest::newRow("no body") << "<b>no body</b>"
                                 << "<b>no body</b>" << 3;
    }
    void anEditedPageComesBack() {
        Views v;
        QFETCH(QString, edited);
        v.editInLayout(edited);
        v.show(1);
        QTEST(v.doc->codebox().Text(), "text");
        QTEST(v.doc->codebox().SelStart(), "caret");
    }

    void aStyleSheetHasNoLayoutAndNoPreview_data() {
        columns<int, QString>({"view", "message"});
        QTest::newRow("Layout") << 2 << "Layout view can not be used with CSS documents.";
        QTest::newRow("Preview") << 3 << "Preview mode can not be used with CSS documents.";
    }
    void aStyleSheetHasNoLayoutAndNoPreview() {
        QFETCH(int, view);
        QFETCH(QString, message);
        Views v(QStringLiteral("site.css"), QStringLiteral("p { color: red }"));
        QCOMPARE(v.doc->CSSDoc, QStringLiteral("Yes"));
        v.show(view);
        QCOMPARE(v.ts.platform.messageTexts(), QStringList{message});
        QCOMPARE(v.ts.platform.messages.first().icon, MsgIcon::Exclamation);
        QCOMPARE(v.doc->SelectedTab, 1);
        QVERIFY(!v.layout().Visible() && !v.ts->bLayoutActive);
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("p { color: red }"));
        QVERIFY(v.browser().navigated.isEmpty());
    }

    void previewWritesTheFileBesideTheDocument() {
        Views v;
        const QString page = QStringLiteral("<html><body>z \n</body></html>");
        v.editInLayout(page);
        v.show(3);
        // From Layout straight to Preview the page comes back untrimmed.
        QCOMPARE(v.doc->codebox().Text(), page);
        const QString preview = v.folder() + QStringLiteral("~tssln.htm");
        QCOMPARE(readFile(preview), page.toUtf8());
        QCOMPARE(v.browser().navigated, QStringList{preview});
        QCOMPARE(v.doc->codebox().FileName(), v.folder() + QStringLiteral("page.htm"));
        QVERIFY(!v.ts->bLayoutActive);
        QVERIFY(v.doc->tbrWebBrowser.ButtonEnabled(2));
        QVERIFY(!v.menuOn("mnuTagsBold") && !v.menuOn("mnuEditUndo") && !v.menuOn("mnuEditRedo"));
        for (const char* name : {"mnuFilePrint", "mnuFilePreview", "mnuFileSave", "mnuFileSaveas",
                                 "mnuFileSaveAll", "mnuFileClose", "mnuFileCloseAll"})
            QVERIFY2(v.menuOn(name), name);
        for (int button : {3, 5, 14})
            QVERIFY(v.ts->tbrMain.ButtonEnabled(button));
        // The browser's strip passes over an empty history.
        v.doc->tbrWebBrowser.press(0);
        v.doc->tbrWebBrowser.press(3);
        QCOMPARE(v.browser().calls, QStringList({"GoBack", "Refresh"}));
        QCOMPARE(v.ts.platform.messages.size(), 0);
        // Back in Source both preview files are gone.
        writeFile(v.dir, QStringLiteral("~tssln2.htm"), "x");
        v.show(1);
        QVERIFY(!QFile::exists(preview));
        QVERIFY(!QFile::exists(v.folder() + QStringLiteral("~tssln2.htm")));
        QVERIFY(v.menuOn("mnuTagsBold"));
    }

    // Preview turns Undo and Redo off; back in Source they follow the history again.
    void undoAndRedoThroughPreview() {
        Views v;
        v.doc->codebox().setSelText(QStringLiteral("a"));
        v.doc->AddStep();
        v.doc->Undo();
        for (int view : {1, 3, 1}) {
            v.show(view);
            QCOMPARE(QString::number(undoOn(v.ts)) + QString::number(redoOn(v.ts)),
                     view == 3 ? "00" : "01");
        }
    }

    void anUntitledPagePreviewsFromTheTemporaryFolder() {
        Views v;
        v.ts->mnuFileNewHTML_Click();
        codeEditor& untitled = v.ts.active();
        untitled.tabEditor.SelectTab(3);
        const QString preview = v.ts.platform.temp + QStringLiteral("/~tssln.htm");
        QCOMPARE(static_cast<DetachedBrowser&>(untitled.WebBrowser1()).navigated,
                 QStringList{preview});
        untitled.tabEditor.SelectTab(1);
        QVERIFY(QFile::exists(preview)); // files of the temporary folder stay
    }

    // A status (1 disabled, 3 enabled, 7 latched) and the control that shows it.
    void displayChangedBringsTheToolbarsUpToDate_data() {
        columns<int, int, QString, bool>({"command", "status", "target", "expected"});
        const QStringList rows =
            words("5000 7 tags.checked:4 1  5000 3 tags.checked:4 0  5023 7 tags.checked:5 1 "
                  "5048 7 tags.checked:6 1  5024 7 tags.checked:8 1  5026 7 tags.checked:9 1 "
                  "5034 3 menu:mnuFormatRemove 1  5034 7 menu:mnuFormatRemove 0 "
                  "5021 3 table.enabled:2 1  5020 1 table.enabled:3 0  5005 3 table.enabled:5 1 "
                  "5007 3 table.enabled:6 1  5006 3 table.enabled:7 1  5029 3 table.enabled:9 1 "
                  "5047 3 table.enabled:10 1  5030 7 layout.checked:5 1  5051 7 layout.checked:6 1 "
                  "5049 0 menu:mnuEditUndo 1  5049 1 menu:mnuEditUndo 0  5033 3 main.enabled:12 1 "
                  "5003 1 main.enabled:7 0  5002 7 menu:mnuEditCopy 1  5032 1 main.enabled:9 0");
        for (int i = 0; i < rows.size(); i += 4)
            QTest::newRow(qPrintable(rows.mid(i, 3).join(u' ')))
                << rows[i].toInt() << rows[i + 1].toInt() << rows[i + 2] << (rows[i + 3] == "1");
    }
    void displayChangedBringsTheToolbarsUpToDate() {
        QFETCH(int, command);
        QFETCH(int, status);
        QFETCH(QString, target);
        Views v;
        v.show(2);
        v.layout().statuses.insert(command, status);
        v.doc->Tag = QStringLiteral("Clean");
        v.layout().edit(kPage);
        QCOMPARE(v.doc->Tag, "Dirty"); // any change on the surface
        const QString where = target.section(u':', 0, 0), what = target.section(u':', 1);
        const int button = what.toInt();
        const bool actual = where == "menu"             ? v.ts->menu(what).Enabled()
                            : where == "tags.checked"   ? v.ts->tbrTags.ButtonChecked(button)
                            : where == "table.enabled"  ? v.doc->tbrTable.ButtonEnabled(button)
                            : where == "layout.checked" ? v.doc->tbrLayout.ButtonChecked(button)
                                                        : v.ts->tbrMain.ButtonEnabled(button);
        QTEST(actual, "expected");
    }

    void underlineIsLeftAloneInsideALink() {
        Views v;
        v.show(2);
        v.ts->tbrTags.setButtonChecked(6, true);
        v.layout().statuses = {{5016, 7}, {5048, 3}};
        v.layout().edit(kPage);
        QVERIFY(v.ts->tbrTags.ButtonChecked(6));
        v.layout().statuses = {{5016, 3}, {5048, 3}};
        v.layout().edit(kPage);
        QVERIFY(!v.ts->tbrTags.ButtonChecked(6));
    }

    void theCombosFollowTheirGetCommands() {
        Views v;
        v.show(2);
        DetachedLayout& layout = v.layout();
        layout.statuses = {{5013, 3}, {5014, 7}, {5011, 11}};
        layout.values = {{5013, QStringLiteral("Arial")}, {5014, QStringLiteral("0")}};
        v.doc->cmbStyles.setEnabled(false);
        v.doc->cmbFonts.setEnabled(false);
        layout.edit(kPage);
        QCOMPARE(v.doc->cmbFonts.Text(), QStringLiteral("Arial"));
        QCOMPARE(v.doc->cmbFontSize.Text(), QString()); // a size below 1 shows nothing
        QVERIFY(v.doc->cmbFontSize.Enabled());
        // A mixed block format clears the styles, enables the fonts, leaves the styles be.
        QCOMPARE(v.doc->cmbStyles.Text(), QString());
        QVERIFY(!v.doc->cmbStyles.Enabled());
        QVERIFY(v.doc->cmbFonts.Enabled());
        layout.statuses = {{5013, 1}};
        layout.edit(kPage);
        QCOMPARE(v.doc->cmbFonts.Text(), QString());
        QVERIFY(!v.doc->cmbFonts.Enabled());
    }

    // The list buttons send each other's command; the combos send their choice.
    void theStripsSendTheirCommands() {
        Views v;
        v.show(2);
        DetachedLayout& layout = v.layout();
        layout.commands.clear();
        for (int button : {2, 3, 5, 6})
            v.doc->tbrLayout.press(button);
        for (int button : {2, 3, 5, 6, 7, 9, 10})
            v.doc->tbrTable.press(button);
        v.doc->cmbFontSize.setListIndex(2);
        v.doc->cmbStyles.setListIndex(6);
        QStringList sent;
        for (const DetachedLayout::Command& c : layout.commands)
            sent << QStringLiteral("%1,%2,%3").arg(c.id).arg(c.option).arg(c.value);
        QCOMPARE(sent.join(u' '), "5031,2, 5018,2, 5030,2, 5051,2, 5021,2, 5020,2, 5005,2, "
                                  "5007,2, 5006,2, 5029,2, 5047,2, 5045,2,3 5043,2,Heading 1");
        // Draw Table opens the chooser below its own button.
        auto& dropDown = v.ts->part<TableChooser>().DropDown;
        dropDown.ButtonPosition = [](const QString& toolbar, int index) {
            return toolbar == QLatin1String("tbrTable") && index == 0 ? QPoint(3000, 2000)
                                                                      : QPoint();
        };
        v.doc->tbrTable.press(0);
        QVERIFY(dropDown.IsShowing());
        QCOMPARE(QPoint(dropDown.left(), dropDown.top()), QPoint(3100, 3000));
    }
};

QTEST_MAIN(SourceEditingTest)
#include "test_source_editing.moc"
