// The tag list: its 89 templates, double clicks with and without a selection, and drags.
#include "markup/tag_list.h"
#include "editor_fixture.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two three");

enum Shape { Anchor, Paired, Single, Input };
struct Node {
    QString name;
    Shape shape;
};
// After the two anchors, in alphabetical order; paired unless listed as single.
const QStringList kNames =
    QStringList{"A HREF", "A NAME"} +
    words("ACRONYM ADDRESS APPLET AREA B BASE BASEFONT BGSOUND BIG BLINK BLOCKQUOTE BODY BR "
          "CAPTION CENTER CITE CODE DD DEL DFN DIR DIV DL DT EM FONT FORM FRAME FRAMESET H1 H2 "
          "H3 H4 H5 H6 HEAD HR HTML I IMG INPUT INS ISINDEX KBD LI LINK LISTING MAP MARQUEE MENU "
          "META MULTICOL NEXTID NOBR NOFRAMES NOSCRIPT NOTE OL OPTION P PARAM PLAINTEXT PRE S "
          "SAMP SCRIPT SELECT SMALL SPACER STRIKE STRONG STYLE SUB SUP TAB TABLE TD TEXTAREA TH "
          "TITLE TR TT U UL VAR WBR XMP");
const QStringList kSingles =
    words("AREA BASE BASEFONT BGSOUND BR DD DT HR IMG ISINDEX LI LINK META NEXTID OPTION SPACER "
          "TAB");

Node nodeAt(int index) {
    const QString& name = kNames.at(index);
    return {name, index < 2                 ? Anchor
                  : name == "INPUT"         ? Input
                  : kSingles.contains(name) ? Single
                                            : Paired};
}

QString templateOf(const Node& node) {
    const QString& n = node.name;
    switch (node.shape) {
    case Anchor:
        return QStringLiteral("<") + n + QStringLiteral("=\"\">  </A>");
    case Paired:
        return QStringLiteral("<%1>  </%1>").arg(n);
    case Single:
        return QStringLiteral("<%1>").arg(n);
    case Input:
        break;
    }
    return QStringLiteral("<INPUT TYPE=></INPUT>");
}

// The inserted text: lower case, the placeholder gone.
QString insertedOf(const Node& node) {
    return templateOf(node).remove(QStringLiteral("  ")).toLower();
}

void addNodeRows() {
    QTest::addColumn<int>("index");
    QCOMPARE(kNames.size(), 89);
    for (int i = 0; i < 89; ++i)
        QTest::newRow(qPrintable(kNames.at(i))) << i;
}

codeEditor& documentAndNode(TestShell& ts, int index, int caret = 4) {
    codeEditor& doc = documentWith(ts, kText, caret);
    ts->part<TagList>().tvwTags_MouseDown(index);
    return doc;
}
} // namespace

class TagListTest : public QObject {
    Q_OBJECT

  private slots:
    void templates_data() { addNodeRows(); }
    void templates() {
        QFETCH(int, index);
        TestShell ts;
        ts.load();
        QCOMPARE(ts->part<TagList>().tvwTags.ListCount(), 89);
        QCOMPARE(ts->part<TagList>().tvwTags.List(index), templateOf(nodeAt(index)));
    }

    void doubleClickAtCaret_data() { addNodeRows(); }
    void doubleClickAtCaret() {
        QFETCH(int, index);
        const Node node = nodeAt(index);
        const int openLength = int(node.name.size()) + 2;
        const int length = insertedOf(node).size();
        // Where the caret stands after the click, and after Undo and Redo.
        const int caret = node.shape == Paired ? openLength : node.shape == Anchor ? 9 : length;
        const int redo = node.shape == Anchor ? 11 : node.shape == Input ? -1 : caret;
        TestShell ts;
        codeEditor& doc = documentAndNode(ts, index);
        ts->part<TagList>().tvwTags_DblClick();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one ") + insertedOf(node) + "two three");
        QCOMPARE(doc.codebox().SelStart(), 4 + caret);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QVERIFY(!ts->bInsertingMarkup);
        QCOMPARE(ts->nStepCaretAdvance, Int16(0));
        QCOMPARE(ts->nStepCaretBack, Int16(0));
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 4);
        doc.Redo();
        QCOMPARE(doc.codebox().SelStart(), 4 + redo);
    }

    void doubleClickAroundSelection_data() { addNodeRows(); }
    void doubleClickAroundSelection() {
        QFETCH(int, index);
        const Node node = nodeAt(index);
        const QString t = insertedOf(node);
        const int q = t.indexOf(QStringLiteral("</"));
        TestShell ts;
        codeEditor& doc = documentAndNode(ts, index);
        select(doc, 4, 3);
        ts->part<TagList>().tvwTags_DblClick();
        const QString text = q < 0
                                 ? QStringLiteral("one ") + t + "two three"
                                 : QStringLiteral("one ") + t.left(q) + "two" + t.mid(q) + " three";
        QCOMPARE(doc.codebox().Text(), text);
        // The same text stays selected; the odd INPUT entry lands 7 on.
        const int start = node.shape == Input ? 7 : q < 0 ? t.size() : q;
        QCOMPARE(doc.codebox().SelStart(), 4 + start);
        QCOMPARE(doc.codebox().SelLength(), 3);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 4);
        QCOMPARE(doc.codebox().SelLength(), 3);
    }

    void anchorsInWords() {
        TestShell ts;
        codeEditor& doc = documentWith(ts, QStringLiteral("click here"));
        ts->part<TagList>().tvwTags_MouseDown(0);
        select(doc, 6, 4);
        ts->part<TagList>().tvwTags_DblClick();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("click <a href=\"\">here</a>"));
        QCOMPARE(doc.codebox().SelText(), QStringLiteral("here"));
    }

    // In Layout and in Preview neither a double click nor a drag inserts.
    void sourceViewOnly() {
        for (const auto& [layout, tab] : {std::pair{true, 2}, std::pair{false, 3}}) {
            TestShell ts;
            codeEditor& doc = documentAndNode(ts, 6);
            ts->bLayoutActive = layout;
            doc.SelectedTab = tab;
            ts->part<TagList>().tvwTags_DblClick();
            QCOMPARE(doc.codebox().Text(), kText);
            QVERIFY(!ts->bInsertingMarkup);
            QString data;
            QVERIFY(!ts->part<TagList>().tvwTags_OLEStartDrag(data));
            doc.SelectedTab = 1;
            ts->bLayoutActive = false;
            QVERIFY(ts->part<TagList>().tvwTags_OLEStartDrag(data));
        }
    }

    void failuresEndSilentlyWithFlagsSet_data() {
        columns<int, int>({"node", "start"});
        QTest::newRow("no node selected") << -1 << 4;
        QTest::newRow("paired, selection past 32767") << 6 << 33000;
        QTest::newRow("single, selection past 32767") << 5 << 33000;
    }
    void failuresEndSilentlyWithFlagsSet() {
        QFETCH(int, node);
        QFETCH(int, start);
        TestShell ts;
        const QString big(40000, QLatin1Char('x'));
        codeEditor& doc = documentWith(ts, big);
        ts->part<TagList>().tvwTags_MouseDown(node);
        select(doc, start, 5);
        ts->dispatch([&] { ts->part<TagList>().tvwTags_DblClick(); });
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(doc.codebox().Text(), big);
        QVERIFY(ts->bInsertingMarkup);
    }

    void staleSelectionOfTheStepIsCleared() {
        TestShell ts;
        codeEditor& doc = documentAndNode(ts, 6);
        doc.Steps[1].SelLen = 3;
        ts->part<TagList>().tvwTags_DblClick();
        QCOMPARE(doc.Steps[1].SelLen, 0);
        doc.Undo();
        QCOMPARE(doc.codebox().SelStart(), 4);
        QCOMPARE(doc.codebox().SelLength(), 0);
    }

    void pressOnEmptySpaceKeepsTheNode() {
        TestShell ts;
        ts.load();
        ts->part<TagList>().tvwTags_MouseDown(6);
        QCOMPARE(ts->part<TagList>().tvwTags.ListIndex(), 6);
        QCOMPARE(ts->part<TagList>().sDraggedTag, QStringLiteral("<B>  </B>"));
        ts->part<TagList>().tvwTags_MouseDown(-1);
        ts->part<TagList>().tvwTags_MouseDown(89);
        QCOMPARE(ts->part<TagList>().tvwTags.ListIndex(), 6);
        QCOMPARE(ts->part<TagList>().sDraggedTag, QStringLiteral("<B>  </B>"));
    }

    void dragStart_data() { addNodeRows(); }
    void dragStart() {
        QFETCH(int, index);
        const Node node = nodeAt(index);
        const int length = insertedOf(node).size();
        const int close = int(node.name.size()) + 3;
        int back = 0, advance = 0, caretBack = 0;
        if (node.shape == Paired) back = close, advance = close, caretBack = close;
        if (node.shape == Anchor) back = 6, advance = 4, caretBack = 4;
        if (node.shape == Input) advance = 8, caretBack = length + 1;
        TestShell ts;
        documentAndNode(ts, index);
        QString data;
        QVERIFY(ts->part<TagList>().tvwTags_OLEStartDrag(data));
        QCOMPARE(data, insertedOf(node));
        QCOMPARE(int(ts->nTagDropBack), back);
        QCOMPARE(int(ts->nStepCaretAdvance), advance);
        QCOMPARE(int(ts->nStepCaretBack), caretBack);
        QVERIFY(ts->bDropPending);
        QVERIFY(ts->bTagDropPending);
        QVERIFY(ts->bInsertingMarkup);
    }

    void dropInTheMiddleOfALine() {
        TestShell ts;
        codeEditor& doc = documentAndNode(ts, 31, 0); // <H1>  </H1>
        QString data;
        ts->part<TagList>().tvwTags_OLEStartDrag(data);
        doc.codebox().setSelStart(4); // the pane's own drop
        doc.codebox().setSelText(data);
        ts->part<TagList>().tvwTags_OLECompleteDrag(1);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("one <h1></h1>two three"));
        QCOMPARE(doc.codebox().SelStart(), 8);
        QCOMPARE(doc.nDoneIndex, Int16(2));
        QVERIFY(!ts->bDropPending);
        QVERIFY(ts->bInsertingMarkup); // left for a later command to clear
        doc.Undo();
        QCOMPARE(doc.codebox().Text(), kText);
        QCOMPARE(doc.codebox().SelStart(), 4);
    }

    // A selection saved in the step below gives way to a caret just inside the dropped tag.
    void dropOverSavedSelection() {
        TestShell ts;
        codeEditor& doc = documentAndNode(ts, 31, 0);
        doc.Steps[1].SelLen = 3;
        QString data;
        ts->part<TagList>().tvwTags_OLEStartDrag(data);
        doc.codebox().setSelStart(4);
        doc.codebox().setSelText(data);
        QCOMPARE(doc.Steps[1].SelLen, 0);
        QCOMPARE(doc.Steps[1].SelStart, 9);
        doc.Undo();
        QCOMPARE(doc.codebox().SelLength(), 0);
    }

    void refusedDropLeavesTheCaret() {
        TestShell ts;
        codeEditor& doc = documentAndNode(ts, 31, 6);
        auto& pane = static_cast<TextPane&>(doc.codebox());
        const int focus = pane.focusCount();
        QString data;
        ts->part<TagList>().tvwTags_OLEStartDrag(data);
        ts->part<TagList>().tvwTags_OLECompleteDrag(0);
        QCOMPARE(pane.SelStart(), 6);
        QCOMPARE(pane.focusCount(), focus + 1);
    }
};

QTEST_GUILESS_MAIN(TagListTest)
#include "test_tag_list.moc"
