// The Source pane's editor on its own: keys, mouse, rows, wrapping, painting, large texts.
#include "random_documents.h"
#include "ui_helpers.h"

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

namespace {
// A pane of its own, shown with a fixed font, counting its Change events.
struct Pane {
    QtSourcePane pane;
    int changes = 0;
    explicit Pane(const QString& text = QString(), bool wrap = true) {
        pane.Change = [this] { ++changes; };
        box()->resize(400, 200);
        pane.setFontName(u"Monospace"_s);
        pane.setFontSize(10);
        pane.setRightMargin(wrap ? 0 : 100000);
        pane.setText(text);
        box()->show();
        box()->setFocus();
        changes = 0;
    }
    CodeBox* box() const { return pane.widget(); }
    QWidget* viewport() const { return box()->viewport(); }
    QPair<int, int> selection() const { return {box()->anchor(), box()->position()}; }
    // Keys written as "Ctrl+Shift+Right", separated by spaces.
    void keys(const QString& sequence) {
        for (const QString& name : sequence.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QKeyCombination key = QKeySequence::fromString(name)[0];
            QTest::keyClick(box(), key.key(), key.keyboardModifiers());
        }
    }
    QPoint at(int position) const { return box()->cursorRect(position).center(); }
    void mouse(QEvent::Type type, const QPoint& where, Qt::MouseButton button,
               Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMouseEvent event(type, where, viewport()->mapToGlobal(where), button, held, modifiers);
        QApplication::sendEvent(viewport(), &event);
    }
    void click(const QPoint& where, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseButtonPress, where, button, button, modifiers);
        mouse(QEvent::MouseButtonRelease, where, button, Qt::NoButton, modifiers);
    }
    bool caretInSight() const {
        return box()->viewport()->rect().contains(box()->cursorRect(box()->position()));
    }
};

struct Painted : QObject {
    QRegion region;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

QImage picture(QWidget* viewport, const QRegion& part = QRegion()) {
    QImage image(viewport->size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    viewport->render(&image, part.boundingRect().topLeft(),
                     part.isEmpty() ? QRegion(viewport->rect()) : part);
    return image;
}

QPair<int, int> differing(const QImage& a, const QImage& b) {
    int first = -1, last = -1;
    for (int y = 0; y < a.height(); ++y)
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), a.bytesPerLine()) != 0) {
            if (first < 0) first = y;
            last = y;
        }
    return {first, last};
}

QString paragraphs(int count) {
    QString text;
    for (int i = 0; i < count; ++i)
        text += u"line %1 of the text\n"_s.arg(i);
    return text;
}

// Text with lines short and long, every kind of break, and characters outside the basic plane.
QString randomPiece(QRandomGenerator& random) {
    static const QStringList pieces =
        u"\n|\r\n|\r|\u2028|\u2029|\uFDD0|\uFDD1|\U0001F600|a"_s.split(u'|');
    const int kind = random.bounded(12);
    if (kind < 9) return pieces[kind];
    const int length = kind == 11 ? random.bounded(3 * TextRows::kMaxRow) : random.bounded(40);
    QString run;
    for (int i = 0; i < length; ++i)
        run += random.bounded(50) == 0 ? u"\U0001F600"_s : u"x"_s;
    return run;
}
} // namespace

class TextViewTest : public QObject {
    Q_OBJECT

  private slots:
    // Keys move and select as a desktop editor's do; edits are exact and raise one Change each.
    void keys_data() {
        columns<QString, int, int, QString, QString, int, int>(
            {"text", "anchor", "position", "keys", "after", "newAnchor", "newPosition"});
        const auto move = [](const char* name, const QString& text, int anchor, int position,
                             const char* keys, int newAnchor, int newPosition) {
            row(name, text, anchor, position, keys, text, newAnchor, newPosition);
        };
        const auto edit = [](const char* name, const QString& text, int anchor, int position,
                             const char* keys, const QString& after, int caret) {
            row(name, text, anchor, position, keys, after, caret, caret);
        };
        const QString two = u"one two\nthree four\nfive"_s;
        const QString pair = u"a\U0001F600b"_s;
        move("Right", two, 0, 0, "Right", 1, 1);
        move("Left at the start", two, 0, 0, "Left", 0, 0);
        move("Right at the end", two, 23, 23, "Right", 23, 23);
        move("Right over a line feed", two, 7, 7, "Right", 8, 8);
        move("Right over a surrogate pair", pair, 1, 1, "Right", 3, 3);
        move("Left over a surrogate pair", pair, 3, 3, "Left", 1, 1);
        move("Right over a carriage return", u"a\rb"_s, 1, 1, "Right", 2, 2);
        move("Shift+Right twice", two, 0, 0, "Shift+Right Shift+Right", 0, 2);
        move("Left ends a selection at its start", two, 2, 6, "Left", 2, 2);
        move("Right ends a selection at its end", two, 6, 2, "Right", 6, 6);
        move("Ctrl+Right", two, 0, 0, "Ctrl+Right", 4, 4);
        move("Ctrl+Right to the line end", two, 4, 4, "Ctrl+Right", 7, 7);
        move("Ctrl+Right over the line end", two, 7, 7, "Ctrl+Right", 8, 8);
        move("Ctrl+Left", two, 7, 7, "Ctrl+Left", 4, 4);
        move("Ctrl+Left at a line start", two, 8, 8, "Ctrl+Left", 7, 7);
        const QString longWord = QString(5000, QLatin1Char('x')) + u" y"_s;
        move("Ctrl+Right over a word of thousands", longWord, 0, 0, "Ctrl+Right", 5001, 5001);
        move("Ctrl+Left over a word of thousands", longWord, 5001, 5001, "Ctrl+Left", 0, 0);
        move("Ctrl+Right stops at <", u"<p>text</p>"_s, 0, 0, "Ctrl+Right Ctrl+Right", 2, 2);
        move("Ctrl+Shift+Right", two, 0, 0, "Ctrl+Shift+Right", 0, 4);
        move("Home", two, 12, 12, "Home", 8, 8);
        move("End", two, 9, 9, "End", 18, 18);
        move("Shift+End", two, 9, 9, "Shift+End", 9, 18);
        move("Shift+Home", two, 12, 12, "Shift+Home", 12, 8);
        move("Ctrl+Home", two, 12, 12, "Ctrl+Home", 0, 0);
        move("Ctrl+End", two, 3, 3, "Ctrl+End", 23, 23);
        move("Ctrl+Shift+End", two, 3, 3, "Ctrl+Shift+End", 3, 23);
        move("Down keeps the column", two, 2, 2, "Down", 10, 10);
        move("Down past a short line and back", u"abcdef\nab\nabcdef"_s, 5, 5, "Down Down", 15, 15);
        move("Up on the first line stays", two, 2, 2, "Up", 2, 2);
        move("Down on the last line stays", two, 21, 21, "Down", 21, 21);
        move("Shift+Down", two, 2, 2, "Shift+Down", 2, 10);
        move("Up", two, 21, 21, "Up", 10, 10);
        move("a line separator breaks the line", u"ab\u2028cd"_s, 1, 1, "Down", 4, 4);
        move("a carriage return does not", u"ab\rcd\nxy"_s, 1, 1, "Down", 7, 7);
        move("Ctrl+A", two, 5, 5, "Ctrl+A", 0, 23);
        const QString many = paragraphs(100);
        const int tenth = static_cast<int>(many.indexOf(QLatin1String("line 10 ")));
        move("PageDown moves a screenful", many, 0, 0, "PgDown", tenth, tenth);
        move("PageDown, PageUp", many, 0, 0, "PgDown PgUp", 0, 0);
        move("Shift+PgDown", many, 0, 0, "Shift+PgDown", 0, tenth);
        edit("a letter", "ab", 1, 1, "x", "axb", 2);
        edit("a letter over a selection", "abcd", 1, 3, "x", "axd", 2);
        edit("Tab", "ab", 1, 1, "Tab", "a\tb", 2);
        edit("Return", "ab", 1, 1, "Return", "a\nb", 2);
        edit("Ctrl+Return ends the line too", "ab", 1, 1, "Ctrl+Return", "a\nb", 2);
        edit("Shift+Return ends the line too", "ab", 1, 1, "Shift+Return", "a\nb", 2);
        edit("Backspace", "abc", 2, 2, "Backspace", "ac", 1);
        edit("Backspace of a surrogate pair", u"a\U0001F600b"_s, 3, 3, "Backspace", "ab", 1);
        edit("Backspace of a carriage return alone", "a\r\nb", 2, 2, "Backspace", "a\nb", 1);
        edit("Backspace at the start", "ab", 0, 0, "Backspace", "ab", 0);
        edit("Delete", "abc", 1, 1, "Del", "ac", 1);
        edit("Delete of a line feed", "a\nb", 1, 1, "Del", "ab", 1);
        edit("Delete of a selection", "abcd", 3, 1, "Del", "ad", 1);
        edit("Ctrl+Backspace", "one two", 7, 7, "Ctrl+Backspace", "one ", 4);
        edit("Ctrl+Delete", "one two", 0, 0, "Ctrl+Del", "two", 0);
        edit("Shift+Left, then a letter", "abc", 3, 3, "Shift+Left Shift+Left z", "az", 2);
        edit("Ctrl with a letter types nothing", "ab", 1, 1, "Ctrl+G", "ab", 1);
        // Separators and noncharacters beside or under an edit stay.
        const QString ps = u"\u2029"_s;
        for (QChar c : u"\u2029\uFDD0\uFDD1\u2028\r"_s)
            QTest::addRow("Return before U+%04X at the start", c.unicode())
                << c + u"x"_s << 0 << 0 << u"Return"_s << u"\n"_s + c + u"x"_s << 1 << 1;
        edit("Return between two separators", ps + ps, 1, 1, "Return", ps + "\n" + ps, 2);
        edit("Return after a separator at the end", "x" + ps, 2, 2, "Return", "x" + ps + "\n", 3);
        edit("Return over a selected separator", "a" + ps + "b", 1, 2, "Return", "a\nb", 2);
        edit("Return over a selection to U+FDD0", u"ab\uFDD0c"_s, 1, 2, "Return", u"a\n\uFDD0c"_s,
             2);
        edit("letters after U+FDD1", u"a\uFDD1b"_s, 2, 2, "x y", u"a\uFDD1xyb"_s, 4);
        edit("Shift+Return before a separator", ps + "x", 0, 0, "Shift+Return", "\n" + ps + "x", 1);
        edit("Delete of LF before PS", "a\n" + ps + "b", 1, 1, "Del", "a" + ps + "b", 1);
        edit("Backspace of PS after LF", "a\n" + ps + "b", 3, 3, "Backspace", "a\nb", 2);
        edit("Backspace of CR before PS", "a\r" + ps, 2, 2, "Backspace", "a" + ps, 1);
        edit("Backspace of LF after CR", "a\r\n\nb", 3, 3, "Backspace", "a\r\nb", 2);
        edit("typing over a selection of breaks", u"a\r\u2029\n\uFDD0b"_s, 1, 5, "x", "axb", 2);
    }
    void keys() {
        QFETCH(QString, text);
        QFETCH(int, anchor);
        QFETCH(int, position);
        QFETCH(QString, keys);
        QFETCH(QString, after);
        Pane p(text);
        // Ten lines of the view: a page is ten lines.
        p.box()->resize(400, p.box()->height() - p.viewport()->height() +
                                 p.box()->cursorRect(0).height() * 10 + 2 * p.box()->margin());
        p.box()->setSelection(anchor, position);
        p.keys(keys);
        QCOMPARE(p.pane.Text(), after);
        QTEST(p.box()->anchor(), "newAnchor");
        QTEST(p.box()->position(), "newPosition");
        QVERIFY(p.caretInSight());
        QCOMPARE(p.changes > 0, after != text);
        QVERIFY(p.changes <= keys.count(QLatin1Char(' ')) + 1);
        QCOMPARE(TextRows::check(p.box()->rows(), p.pane.Text()), QString());
    }

    // Rows start after line breaks and at cuts of long lines; a CR or a tab takes room in a row.
    void rowsOfAText_data() {
        columns<QString, QList<int>>({"text", "starts"});
        row("empty", QString(), QList<int>{0});
        row("a break at the end", u"ab\n"_s, QList<int>{0, 3});
        row("every break", u"a\nb\u2028c\u2029d\uFDD0e\uFDD1f"_s, QList<int>{0, 2, 4, 6, 8, 10});
        row("none at a carriage return", u"a\rb\t\r\nc"_s, QList<int>{0, 6});
        const QString longLine(TextRows::kMaxRow + 2, QLatin1Char('x'));
        row("a long line in two rows", longLine, QList<int>{0, (TextRows::kMaxRow + 2) / 2});
        // The cut falls inside a pair.
        const QString pairs = u"\U0001F600"_s.repeated(TextRows::kMaxRow / 2 + 1);
        row("a cut between surrogate pairs", pairs,
            QList<int>{0, static_cast<int>(pairs.size()) / 2 - 1});
    }
    void rowsOfAText() {
        QFETCH(QString, text);
        QFETCH(QList<int>, starts);
        TextRows rows;
        rows.reset(text);
        QCOMPARE(QList<int>(rows.starts().begin(), rows.starts().end()), starts);
        QCOMPARE(TextRows::check(rows, text), QString());
        Pane p(text, false);
        QCOMPARE(p.box()->rows().count(), starts.size());
        for (int start : starts)
            QVERIFY(start == 0 || p.at(start).y() > p.at(start - 1).y());
        for (int i = 0; i < std::min(rows.end(0, text), 6); ++i)
            QVERIFY(text.at(i).isSurrogate() || p.at(i + 1).x() > p.at(i).x());
    }

    // After each random edit the rows kept up are valid, and each row's start is found in it.
    void rowsFollowRandomEdits() {
        const FuzzRun run(400);
        for (int c = 0; c < run.cases; ++c) {
            QRandomGenerator random(run.seed + static_cast<quint32>(c));
            QString text;
            for (int i = random.bounded(6); i > 0; --i)
                text += randomPiece(random);
            TextRows rows;
            rows.reset(text);
            for (int e = 0; e < 20; ++e) {
                const int length = static_cast<int>(text.size());
                const int start = whole(text, random.bounded(length + 1));
                const int end = random.bounded(3) == 0
                                    ? start
                                    : whole(text, start + random.bounded(length - start + 1));
                const QString added = random.bounded(3) == 0 ? QString() : randomPiece(random);
                text.replace(start, end - start, added);
                const TextRows::Change change =
                    rows.replaced(text, start, end - start, static_cast<int>(added.size()));
                const QString problem = TextRows::check(rows, text);
                QVERIFY2(problem.isEmpty(),
                         qPrintable(QString::asprintf("seed %u case %d edit %d: ", run.seed, c, e) +
                                    problem));
                QVERIFY(change.first <= change.newEnd && change.newEnd <= rows.count());
                for (int r = change.first; r < change.newEnd; ++r)
                    QCOMPARE(rows.rowOf(rows.start(r)), r);
            }
        }
    }

    void wrapsAtTheEdgeOrScrolls() {
        const QString line = u"word "_s.repeated(60) + "end\n" + paragraphs(20);
        const int end = static_cast<int>(line.indexOf(QLatin1Char('\n')));
        Pane wrapped(line, true);
        const int top = wrapped.box()->cursorRect(0).top();
        QVERIFY(wrapped.box()->cursorRect(end).top() > top);
        QCOMPARE(wrapped.box()->horizontalScrollBar()->maximum(), 0);
        QVERIFY(wrapped.box()->cursorRect(end).right() < wrapped.viewport()->width());
        // End stops before the space the row wrapped at; Down stays in sight.
        wrapped.keys(u"End"_s);
        QVERIFY(wrapped.box()->position() < end);
        QCOMPARE(line.at(wrapped.box()->position()), QLatin1Char(' '));
        QCOMPARE(wrapped.box()->cursorRect(wrapped.box()->position()).top(), top);
        wrapped.keys(u"Down"_s);
        QCOMPARE(wrapped.box()->cursorRect(0).top(), top);

        Pane unwrapped(line, false);
        QCOMPARE(unwrapped.box()->cursorRect(end).top(), unwrapped.box()->cursorRect(0).top());
        unwrapped.keys(u"End"_s);
        QCOMPARE(unwrapped.box()->position(), end);
        QVERIFY(unwrapped.box()->horizontalScrollBar()->value() > 0);
        QVERIFY(unwrapped.caretInSight());
        unwrapped.keys(u"Home"_s);
        QCOMPARE(unwrapped.box()->horizontalScrollBar()->value(), 0);

        unwrapped.pane.setRightMargin(0);
        QVERIFY(unwrapped.box()->wraps());
        QCOMPARE(unwrapped.box()->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(unwrapped.pane.Text(), line);
    }

    void theMouseSelects() {
        Pane p(u"one two three\nfour five\nsix"_s);
        p.click(p.at(4));
        QCOMPARE(p.selection(), qMakePair(4, 4));
        p.mouse(QEvent::MouseButtonPress, p.at(4), Qt::LeftButton, Qt::LeftButton);
        p.mouse(QEvent::MouseMove, p.at(19), Qt::NoButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, p.at(19), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.selection(), qMakePair(4, 19));
        p.click(p.at(2), Qt::ShiftModifier);
        QCOMPARE(p.selection(), qMakePair(4, 2));
        // A click on the selection without a drag puts the caret there.
        p.box()->setSelection(0, 13);
        p.mouse(QEvent::MouseButtonPress, p.at(6), Qt::LeftButton, Qt::LeftButton);
        QCOMPARE(p.box()->selectionEnd(), 13);
        p.mouse(QEvent::MouseButtonRelease, p.at(6), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.selection(), qMakePair(6, 6));
        // The right button does not move the caret; a click below the text finds its last line.
        p.click(p.at(20), Qt::NoModifier, Qt::RightButton);
        QCOMPARE(p.selection(), qMakePair(6, 6));
        p.click(QPoint(p.at(25).x(), p.viewport()->height() - 5));
        QCOMPARE(p.selection(), qMakePair(25, 25));
        // A double click selects a word, a third the paragraph, dragging by paragraphs.
        const QPoint two = p.at(5);
        p.click(two);
        p.mouse(QEvent::MouseButtonDblClick, two, Qt::LeftButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, two, Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.selection(), qMakePair(4, 7));
        p.mouse(QEvent::MouseButtonPress, p.at(5), Qt::LeftButton, Qt::LeftButton);
        QCOMPARE(p.selection(), qMakePair(0, 14));
        p.mouse(QEvent::MouseMove, p.at(16), Qt::NoButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, p.at(16), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.selection(), qMakePair(0, 24));
        QCOMPARE(p.changes, 0);
    }

    // The wheel scrolls to the end and no further, leaving the caret; moving it brings it back.
    void theWheelScrollsAndTheCaretStays() {
        for (const QString& text : {paragraphs(200), u"word "_s.repeated(1500)}) {
            Pane p(text);
            const auto wheel = [&](int degrees) {
                QWheelEvent event(QPointF(50, 50), p.viewport()->mapToGlobal(QPointF(50, 50)),
                                  QPoint(), QPoint(0, degrees), Qt::NoButton, Qt::NoModifier,
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(p.viewport(), &event);
            };
            wheel(-240);
            QVERIFY(!p.caretInSight());
            QCOMPARE(p.box()->position(), 0);
            p.keys(u"Right"_s);
            QCOMPARE(p.box()->position(), 1);
            QVERIFY(p.caretInSight());
            wheel(-240);
            p.pane.setSelStart(2);
            QVERIFY(p.caretInSight());
            wheel(-120 * 1000); // the last line at the bottom, no further
            const QRect last = p.box()->cursorRect(p.pane.length());
            QVERIFY(last.bottom() <= p.viewport()->height() &&
                    last.top() > p.viewport()->height() / 2);
        }
    }

    // An edit repaints its rows, a caret move the rows it left and entered; no others.
    void editsAndMovesRepaintTheirRowsOnly() {
        Pane p(paragraphs(30));
        QVERIFY(QTest::qWaitForWindowExposed(p.box()));
        Painted painted;
        p.viewport()->installEventFilter(&painted);
        const std::tuple<int, const char*> cases[] = {{3, "x"}, {0, "x"}, {5, "Down"}};
        for (const auto& [row, keys] : cases) {
            const int at = static_cast<int>(p.pane.Text().indexOf(u"line %1 "_s.arg(row)));
            p.box()->setSelection(at, at);
            QTest::qWait(20);
            painted.region = QRegion();
            p.keys(QLatin1String(keys));
            QTRY_VERIFY(!painted.region.isEmpty());
            const QRect first = p.box()->cursorRect(at);
            const QRect last = p.box()->cursorRect(p.box()->position());
            QVERIFY(painted.region.boundingRect().top() >= first.top() - p.box()->margin());
            QVERIFY(painted.region.boundingRect().bottom() <= last.bottom() + 1);
            QVERIFY(painted.region.contains(first.center()));
            QVERIFY(painted.region.contains(last.center()));
        }
    }

    // Parts paint as the whole; the caret shows while focused, a drag's drop point in its row.
    void thePictureShowsTheTextAndOneCaret() {
        Pane p(u"word "_s.repeated(60) + u"\n"_s + u"more words "_s.repeated(30) + u"\nend"_s);
        QVERIFY(QTest::qWaitForWindowActive(p.box()));
        QWidget* view = p.viewport();
        const QRect row = p.box()->cursorRect(400);
        p.box()->setSelection(400, 400);
        QTRY_VERIFY(p.box()->hasFocus());
        const QImage focused = picture(view);
        const QRect band(0, row.top() - 3, view->width(), 2 * row.height());
        QCOMPARE(picture(view, band).copy(band), focused.copy(band));
        p.box()->clearFocus();
        const QImage unfocused = picture(view);
        const auto inRow = [&](const QImage& image) {
            const auto [first, last] = differing(image, unfocused);
            return first >= row.top() && last <= row.bottom();
        };
        QVERIFY(inRow(focused));

        QMimeData mime;
        mime.setText(u"dropped"_s);
        const auto drag = [&](QEvent::Type type, int at) {
            QDragMoveEvent event(p.at(at), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier,
                                 type);
            QApplication::sendEvent(view, &event);
        };
        drag(QEvent::DragEnter, 1);
        drag(QEvent::DragMove, 400);
        const QImage moved = picture(view);
        QVERIFY(moved != unfocused && inRow(moved));
        QDragLeaveEvent leave;
        QApplication::sendEvent(view, &leave);
        QCOMPARE(picture(view), unfocused);
        drag(QEvent::DragEnter, 400);
        QCOMPARE(moved, picture(view));
        QMimeData image;
        image.setData(u"image/png"_s, "png");
        QDragMoveEvent refused(p.at(1), Qt::CopyAction, &image, Qt::LeftButton, Qt::NoModifier);
        refused.accept();
        QApplication::sendEvent(view, &refused);
        QVERIFY(!refused.isAccepted());
    }

    // Text being composed shows at the caret, with the input method's caret in it, until committed.
    void anInputMethodComposesAtTheCaret() {
        Pane p(u"ab"_s);
        p.box()->setSelection(1, 1);
        const auto caretX = [&] {
            return p.box()->inputMethodQuery(Qt::ImCursorRectangle).toRect().left();
        };
        const int before = caretX();
        QInputMethodEvent inside(u"xyz"_s, {{QInputMethodEvent::Cursor, 1, 1, QVariant()}});
        QApplication::sendEvent(p.box(), &inside);
        const int within = caretX();
        QInputMethodEvent atEnd(u"xyz"_s, {});
        QApplication::sendEvent(p.box(), &atEnd);
        QVERIFY(before < within && within < caretX());
        QCOMPARE(p.pane.Text(), u"ab"_s);
        QCOMPARE(p.changes, 0);
        QInputMethodEvent commit;
        commit.setCommitString(u"\u00E9"_s);
        QApplication::sendEvent(p.box(), &commit);
        QCOMPARE(p.pane.Text(), u"a\u00E9b"_s);
        QCOMPARE(p.box()->position(), 2);
        QCOMPARE(p.changes, 1);
        QCOMPARE(p.box()->inputMethodQuery(Qt::ImSurroundingText).toString(), u"a\u00E9b"_s);
        QCOMPARE(p.box()->inputMethodQuery(Qt::ImCursorPosition).toInt(), 2);
    }

    // Assistive technology finds a nameless editable text and reads text, caret and lines.
    void assistiveTechnologyReadsTheText() {
        Pane p(u"one two\nthree"_s);
        QCOMPARE(p.box()->objectName(), u"codebox"_s);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(p.box());
        QVERIFY(face);
        QCOMPARE(face->role(), QAccessible::EditableText);
        QCOMPARE(face->text(QAccessible::Name), QString());
        QVERIFY(face->state().multiLine);
        QAccessibleTextInterface* text = face->textInterface();
        QVERIFY(text);
        QCOMPARE(text->characterCount(), 13);
        p.box()->setSelection(4, 7);
        QCOMPARE(text->cursorPosition(), 7);
        int start = 0, end = 0;
        text->selection(0, &start, &end);
        QCOMPARE(qMakePair(start, end), qMakePair(4, 7));
        QCOMPARE(text->textAtOffset(9, QAccessible::LineBoundary, &start, &end), u"three"_s);
        QCOMPARE(text->textBeforeOffset(9, QAccessible::LineBoundary, &start, &end),
                 u"one two\n"_s);
        QCOMPARE(text->textAtOffset(5, QAccessible::WordBoundary, &start, &end), u"two"_s);
        QCOMPARE(text->characterRect(0).width(),
                 p.box()->cursorRect(1).left() - p.box()->cursorRect(0).left());
        QVERIFY(text->characterRect(13).width() >= 1);
        text->setCursorPosition(2);
        QCOMPARE(p.box()->position(), 2);
        QCOMPARE(text->offsetAtPoint(p.viewport()->mapToGlobal(p.at(10))), 10);
    }

    // The pane's properties read back as set; a selection length below zero is refused.
    void thePanesPropertiesReadBack() {
        Pane p(u"abc"_s);
        p.pane.setSelIndent(1440);
        QCOMPARE(p.pane.SelIndent(), 1440);
        QCOMPARE(p.box()->margin(), p.box()->logicalDpiX());
        p.pane.setSelStart(1);
        QCOMPARE(errorOf([&] { p.pane.setSelLength(2); }), 0);
        QCOMPARE(p.pane.SelText(), u"bc"_s);
        QCOMPARE(errorOf([&] { p.pane.setSelLength(0); }), 0);
        QCOMPARE(p.pane.SelLength(), 0);
        QCOMPARE(errorOf([&] { p.pane.setSelLength(-1); }), 380);
    }

    // Huge texts: the pane's own string is painted, layouts kept for a few screens only.
    void largeTextsStayCheap_data() {
        columns<QString, bool, int>({"text", "wrap", "rows"});
        const QString giant = u"word and <b>tag</b> "_s.repeated(10 * 1024 * 1024 / 20);
        const int cuts = static_cast<int>(giant.size() + TextRows::kMaxRow - 1) / TextRows::kMaxRow;
        row("a giant line", giant, false, cuts);
        row("a giant line wrapped", giant, true, cuts);
        row("200000 lines", paragraphs(200000), true, 200001);
    }
    void largeTextsStayCheap() {
        QFETCH(QString, text);
        QFETCH(bool, wrap);
        Pane p(text, wrap);
        QTEST(p.box()->rows().count(), "rows");
        const int middle = static_cast<int>(text.size() / 2);
        p.box()->setSelection(middle, middle);
        p.keys(u"x y Return Backspace Ctrl+Right Down End PgUp PgUp Ctrl+End"_s);
        QVERIFY(p.box()->layoutsKept() > 0 && p.box()->layoutsKept() < 100);
        p.keys(u"Ctrl+Home"_s + u" PgDown"_s.repeated(50));
        QVERIFY(p.box()->layoutsKept() <= 300);
        QCOMPARE(p.box()->text().constData(), p.pane.Text().constData());
        QCOMPARE(p.pane.Text().size(), text.size() + 2);
        QCOMPARE(p.pane.Text().mid(middle, 3), u"xy"_s + text.at(middle));
        QCOMPARE(TextRows::check(p.box()->rows(), p.pane.Text()), QString());
        // The scroll bar's end shows the text's end, even in a tall last row.
        QScrollBar* bar = p.box()->verticalScrollBar();
        bar->setValue(bar->maximum());
        const QRect end = p.box()->cursorRect(p.pane.length());
        QVERIFY(end.top() >= 0 && end.bottom() < p.viewport()->height());
    }
};

QTEST_MAIN(TextViewTest)
#include "test_text_view.moc"
