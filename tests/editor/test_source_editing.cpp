// Editing in the Source pane: the commands that write markup without a dialog, the edit
// commands, the tag list and the pane's own keys, in Source and Layout view.
#include "editor_fixture.h"
#include "markup/tag_list.h"
#include <QRegularExpression>
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
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
    // step above (undone), S a
    // selection saved in the step, X the text after 32764 characters, so that positions from
    // "one [two]" on need more than 16 bits. "|" is the caret, "[..]" the selection.
    void actions_data() {
        columns<QString, QString, QString, QString, QString, int, QString, QString, QString>(
            {"action", "in", "before", "after", "out", "steps", "undo", "log", "redo"});
        const char* const rows[] = {
            // Wraps keep the selection, saved below first (but not Right's); the flags end clear.
            "mnuH1##one [two] three#one <h1>[two]</h1> three##2#=",
            "mnuH2##one [two] three#one <h2>[two]</h2> three##2#=",
            "mnuH6##one [two] three#one <h6>[two]</h6> three##2#=",
            "mnuSub##one [two] three#one <sub>[two]</sub> three##2#=",
            "mnuSup##one [two] three#one <sup>[two]</sup> three##2#=",
            "mnuTagsBlock##one [two] three#one <blockquote>[two]</blockquote> three##2#=",
            "mnuTagsBold##one [two] three#one <b>[two]</b> three##2#=",
            "mnuTagsCenter##one [two] three#one <center>[two]</center> three##2#=",
            "mnuTagsItalic##one [two] three#one <i>[two]</i> three##2#=",
            "mnuTagsRight##one [two] three#one <p align=\"right\">[two]</p> three##2#|one two "
            "three",
            "mnuTagsStrike##one [two] three#one <strike>[two]</strike> three##2#=",
            "mnuTagsUnderline##one [two] three#one <u>[two]</u> three##2#=",
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
            // Single inserts. A (ampersand to less) saves the selection and after a caret move adds
            // no step, flags left; B (quote to trade) adds its step; C (space) as B, no selection.
            "mnuInsertAmpersand##one [two] three#one &amp;| three##2#=",
            "mnuInsertCopyright##one [two] three#one &copy;| three##2#=",
            "mnuInsertGreater##one [two] three#one &gt;| three##2#=",
            "mnuInsertLess##one [two] three#one &lt;| three##2#=",
            "mnuInsertQuote##one [two] three#one &quot;| three##2#=",
            "mnuInsertReg##one [two] three#one &reg;| three##2#=",
            "mnuInsertTrade##one [two] three#one &trade;| three##2#=",
            "mnuInsertSpace##one [two] three#one &nbsp;| three##2#one two| three",
            "mnuInsertAmpersand#mc#one [two] three#one &amp;| three#mc#1#",
            "mnuInsertCopyright#mc#one [two] three#one &copy;| three#mc#1#",
            "mnuInsertGreater#mc#one [two] three#one &gt;| three#mc#1#",
            "mnuInsertLess#mc#one [two] three#one &lt;| three#mc#1#",
            "mnuInsertQuote#mc#one [two] three#one &quot;| three##2#=",
            "mnuInsertReg#mc#one [two] three#one &reg;| three##2#=",
            "mnuInsertTrade#mc#one [two] three#one &trade;| three##2#=",
            "mnuInsertSpace#mc#one [two] three#one &nbsp;| three##2#one two| three",
            "mnuInsertAmpersand#Lc#one |two three#one |two three#c#1##paste &amp;",
            "mnuInsertQuote#Lc#one |two three#one |two three##1##paste &quot;",
            "mnuInsertSpace#Lc#one |two three#one |two three##1##paste &nbsp;",
            "mnuInsertQuote#b#one |two three#one &quot;|two three##2#",
            "mnuInsertSpace#b#one |two three#one &nbsp;|two three##2#",
            // Dates (group D): no selection saved, no step after a caret move.
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
            // Past 16 bits a wrap fails after the selection collapsed and before any markup:
            // silently, but for three, with the flags as the command set them at its start.
            "mnuH1#X#one [two] three#one |two three#m#1#",
            "mnuH2#X#one [two] three#one |two three#c#1#",
            "mnuH3#X#one [two] three#one |two three#c#1#",
            "mnuH4#X#one [two] three#one |two three#c#1#",
            "mnuH5#X#one [two] three#one |two three#c#1#",
            "mnuH6#X#one [two] three#one |two three#c#1#",
            "mnuSub#X#one [two] three#one |two three#m#1#",
            "mnuSup#X#one [two] three#one |two three#m#1#",
            "mnuTagsBlock#X#one [two] three#one |two three#m#1##Run-time error '6': Overflow",
            "mnuTagsBold#X#one [two] three#one |two three#m#1#",
            "mnuTagsCenter#X#one [two] three#one |two three#m#1##Run-time error '6': Overflow",
            "mnuTagsItalic#X#one [two] three#one |two three##1#",
            "mnuTagsRight#X#one [two] three#one |two three#m#1##Run-time error '6': Overflow",
            "mnuTagsStrike#X#one [two] three#one |two three#m#1#",
            "mnuTagsUnderline#X#one [two] three#one |two three#m#1#",
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
            "key:Ctrl+B##one [two] three#one [two] three#m#1##skip",
            "key:Ctrl+I##one [two] three#one [two] three#m#1##skip",
            "key:Ctrl+U##one [two] three#one [two] three#m#1##skip",
            "key:Ctrl+E##one [two] three#one [two] three#m#1##skip",
            "key:Ctrl+Shift+B##one |two three#one |two three#m#1##skip",
            "key:B##one |two three#one |two three##1#",
            "key:F12##one |two three#one |two three#m#1##skip",
            "key:Alt+F12##one |two three#one |two three#m#1##skip",
            "key:Ctrl+Z#b#one!| two three#one| two three##1##taken",
            "key:Ctrl+Y#r#one| two three#one!| two three##2##taken",
            // Paste keys put the clipboard over the selection; cut keys take it away as a step.
            "key:Shift+Insert##one [two] three#one TWO| three#m#2#=#taken",
            "key:Ctrl+V##one [two] three#one TWO| three#m#2#=#taken",
            "key:Ctrl+Shift+V##one [two] three#one TWO| three#m#2#=#taken",
            "key:Insert##one [two] three#one [two] three##1#",
            "key:V##one [two] three#one [two] three##1#",
            "key:Ctrl+X##one [two] three#one | three##2#=#clip two; taken; skip; paste on",
            "key:Shift+Delete##one [two] three#one | three##2#=#clip two; taken; skip; paste on",
            "key:Ctrl+Shift+Delete##one [two] three#one | three##2#=#clip two; taken; skip; paste "
            "on",
            "key:Shift+Delete##one| two three#one| two three##2##clip ; taken; skip; paste on",
            "key:Delete##one [two] three#one [two] three##1#",
            "key:X##one [two] three#one [two] three##1#",
            // "<" types a pair, the caret inside, as a step of its own whose caret is past it.
            "char:<##one |two three#one <|>two three##2#=#taken#one <>|two three",
            "char:<##one [two] three#one <|> three##2##taken",
            "char:<#a#one |two three#one |two three##1#",
            "char:>##one |two three#one |two three##1#",
        };
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'#');
            QTest::newRow(qPrintable(QString::fromUtf8(row).replace(u'\n', u' ')))
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
        TestShell ts;
        ts.load();
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
        TestShell ts;
        ts.load();
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
};

QTEST_GUILESS_MAIN(SourceEditingTest)
#include "test_source_editing.moc"
