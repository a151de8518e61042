// The tag list: its templates, double clicks with and without a selection, and drags.
#include "editor_fixture.h"
#include "markup/tag_list.h"
#include <QRegularExpression>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two three");

// The node of a tag by its name ("B", "A HREF"), pressed as the mouse does.
int press(TestShell& ts, const QString& tag) {
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
} // namespace

class TagListTest : public QObject {
    Q_OBJECT

  private slots:
    // The two anchors, then every tag by name: a pair with room for the content between, or
    // a single tag; INPUT is the odd one.
    void theList() {
        TestShell ts;
        ts.load();
        const ListBox& tags = ts->part<TagList>().tvwTags;
        QCOMPARE(tags.ListCount(), 89);
        QCOMPARE(tags.List(0), QStringLiteral("<A HREF=\"\">  </A>"));
        QCOMPARE(tags.List(1), QStringLiteral("<A NAME=\"\">  </A>"));
        const QRegularExpression shape(QStringLiteral("<([A-Z0-9]+)>(  </\\1>)?"));
        QString previous;
        for (int i = 2; i < 89; ++i) {
            const QString entry = tags.List(i);
            const auto match = shape.match(entry);
            const QString name = match.hasMatch() ? match.captured(1) : QStringLiteral("INPUT");
            QVERIFY2(match.hasMatch() ? match.capturedLength() == entry.size()
                                      : entry == QLatin1String("<INPUT TYPE=></INPUT>"),
                     qPrintable(entry));
            QVERIFY2(previous < name, qPrintable(name));
            previous = name;
        }
        QCOMPARE(tags.List(press(ts, "B")), QStringLiteral("<B>  </B>"));
        QCOMPARE(tags.List(press(ts, "H1")), QStringLiteral("<H1>  </H1>"));
        for (const char* single : {"BR", "LI", "HR", "IMG", "META", "TAB"})
            QCOMPARE(tags.List(press(ts, single)), QStringLiteral("<%1>").arg(single));
    }

    // Per tag: a double click at the caret, where Redo puts the caret, a double click around a
    // selection, and the drag's text with how far the caret goes back after the drop, the
    // step's advance and its caret back.
    void insertsAndDrags_data() {
        columns<QString, QString, QString, QString, QString>(
            {"tag", "atCaret", "redo", "aroundSelection", "drag"});
        const char* const rows[] = {
            "A HREF#one <a href=\"|\"></a>two three#one <a href=\"\">|</a>two three#"
            "one <a href=\"\">[two]</a> three#<a href=\"\"></a> 6 4 4",
            "A NAME#one <a name=\"|\"></a>two three#one <a name=\"\">|</a>two three#"
            "one <a name=\"\">[two]</a> three#<a name=\"\"></a> 6 4 4",
            "B#one <b>|</b>two three#=#one <b>[two]</b> three#<b></b> 4 4 4",
            "H1#one <h1>|</h1>two three#=#one <h1>[two]</h1> three#<h1></h1> 5 5 5",
            "BLOCKQUOTE#one <blockquote>|</blockquote>two three#=#"
            "one <blockquote>[two]</blockquote> three#<blockquote></blockquote> 13 13 13",
            "BR#one <br>|two three#=#one <br>[two] three#<br> 0 0 0",
            "LI#one <li>|two three#=#one <li>[two] three#<li> 0 0 0",
            // The odd entry: no room for content, so Redo and the selection land astray.
            "INPUT#one <input type=></input>|two three#one| <input type=></input>two three#"
            "one <input [typ]e=>two</input> three#<input type=></input> 0 8 22",
        };
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'#');
            QTest::newRow(qPrintable(f[0])) << f[0] << f[1] << f[2] << f[3] << f[4];
        }
    }
    void insertsAndDrags() {
        QFETCH(QString, tag);
        QFETCH(QString, atCaret);
        { // At the caret: one step, the flags and the caret's advance and back all clear.
            Editing e(kText, 4);
            press(e, tag);
            e->part<TagList>().tvwTags_DblClick();
            QCOMPARE(marked(e.doc), atCaret);
            QCOMPARE(e.doc.nDoneIndex, Int16(2));
            QCOMPARE(flags(e), QString());
            QCOMPARE(e->nStepCaretAdvance + e->nStepCaretBack, 0);
            e.doc.Undo();
            QCOMPARE(marked(e.doc), QStringLiteral("one |two three"));
            e.doc.Redo();
            QFETCH(QString, redo);
            QCOMPARE(marked(e.doc), redo == QLatin1String("=") ? atCaret : redo);
        }
        { // Around a selection, which stays selected and comes back with Undo.
            Editing e(kText);
            press(e, tag);
            select(e.doc, 4, 3);
            e->part<TagList>().tvwTags_DblClick();
            QTEST(marked(e.doc), "aroundSelection");
            QCOMPARE(e.doc.nDoneIndex, Int16(2));
            e.doc.Undo();
            QCOMPARE(marked(e.doc), QStringLiteral("one [two] three"));
        }
        Editing e(kText, 4);
        press(e, tag);
        QString data;
        QVERIFY(e->part<TagList>().tvwTags_OLEStartDrag(data));
        QFETCH(QString, drag);
        QCOMPARE(QStringLiteral("%1 %2 %3 %4")
                     .arg(data)
                     .arg(e->nTagDropBack)
                     .arg(e->nStepCaretAdvance)
                     .arg(e->nStepCaretBack),
                 drag);
        QVERIFY(e->bDropPending && e->bTagDropPending && e->bInsertingMarkup);
    }

    // In Layout and in Preview neither a double click nor a drag inserts.
    void sourceViewOnly() {
        for (const auto& [layout, tab] : {std::pair{true, 2}, std::pair{false, 3}}) {
            Editing e(kText, 4);
            press(e, "B");
            e->bLayoutActive = layout;
            e.doc.SelectedTab = tab;
            e->part<TagList>().tvwTags_DblClick();
            QCOMPARE(e.doc.codebox().Text(), kText);
            QVERIFY(!e->bInsertingMarkup);
            QString data;
            QVERIFY(!e->part<TagList>().tvwTags_OLEStartDrag(data));
            e.doc.SelectedTab = 1;
            e->bLayoutActive = false;
            QVERIFY(e->part<TagList>().tvwTags_OLEStartDrag(data));
        }
    }

    void failuresEndSilentlyWithFlagsSet_data() {
        columns<QString, int>({"tag", "start"});
        QTest::newRow("no node selected") << "" << 4;
        QTest::newRow("paired, selection past 32767") << "B" << 33000;
        QTest::newRow("single, selection past 32767") << "AREA" << 33000;
    }
    void failuresEndSilentlyWithFlagsSet() {
        QFETCH(QString, tag);
        QFETCH(int, start);
        const QString big(40000, QLatin1Char('x'));
        Editing e(big);
        if (!tag.isEmpty()) QVERIFY(press(e, tag) > 0);
        select(e.doc, start, 5);
        e->dispatch([&] { e->part<TagList>().tvwTags_DblClick(); });
        QVERIFY(e.platform.messages.isEmpty());
        QCOMPARE(e.doc.codebox().Text(), big);
        QVERIFY(e->bInsertingMarkup);
    }

    void staleSelectionOfTheStepIsCleared() {
        Editing e(kText, 4);
        press(e, "B");
        e.doc.Steps[1].SelLen = 3;
        e->part<TagList>().tvwTags_DblClick();
        QCOMPARE(e.doc.Steps[1].SelLen, 0);
        e.doc.Undo();
        QCOMPARE(marked(e.doc), QStringLiteral("one |two three"));
    }

    void pressOnEmptySpaceKeepsTheNode() {
        TestShell ts;
        ts.load();
        TagList& list = ts->part<TagList>();
        list.tvwTags_MouseDown(6);
        for (int outside : {-1, 89}) {
            list.tvwTags_MouseDown(outside);
            QCOMPARE(list.tvwTags.ListIndex(), 6);
            QCOMPARE(list.sDraggedTag, QStringLiteral("<B>  </B>"));
        }
    }

    // The pane drops the text itself; the completed drag puts the caret inside the tag. A
    // selection saved in the step below gives way to a caret just inside the dropped tag.
    void drop_data() {
        columns<int>({"savedSelection"});
        QTest::newRow("caret below") << 0;
        QTest::newRow("selection below") << 3;
    }
    void drop() {
        Editing e(kText);
        press(e, "H1");
        QFETCH(int, savedSelection);
        e.doc.Steps[1].SelLen = savedSelection;
        QString data;
        e->part<TagList>().tvwTags_OLEStartDrag(data);
        e.doc.codebox().setSelStart(4);
        e.doc.codebox().setSelText(data);
        e->part<TagList>().tvwTags_OLECompleteDrag(1);
        QCOMPARE(marked(e.doc), QStringLiteral("one <h1>|</h1>two three"));
        QCOMPARE(e.doc.nDoneIndex, Int16(2));
        QCOMPARE(e.doc.Steps[1].SelLen, 0);
        QCOMPARE(e.doc.Steps[1].SelStart, savedSelection ? 9 : 0);
        QVERIFY(!e->bDropPending);
        QVERIFY(e->bInsertingMarkup); // left for a later command to clear
        e.doc.Undo();
        QCOMPARE(marked(e.doc), QStringLiteral("one |two three"));
    }

    void refusedDropLeavesTheCaret() {
        Editing e(kText, 6);
        press(e, "H1");
        auto& pane = static_cast<TextPane&>(e.doc.codebox());
        const int focus = pane.focusCount();
        QString data;
        e->part<TagList>().tvwTags_OLEStartDrag(data);
        e->part<TagList>().tvwTags_OLECompleteDrag(0);
        QCOMPARE(pane.SelStart(), 6);
        QCOMPARE(pane.focusCount(), focus + 1);
    }
};

QTEST_GUILESS_MAIN(TagListTest)
#include "test_tag_list.moc"
