// The Source pane's editor on its own: keys move and select as a desktop editor's do, edits are
// exact and raise one Change, the mouse selects, lines wrap or scroll, a line of megabytes stays
// cheap, and the editor shows the pane's own text with layouts for the rows on screen only.
#include "test_rows.h"
#include "ui/source/source_editor.h"
#include "ui/source/text_moves.h"
#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTest>
#include <cstring>

using namespace tsl;
using namespace tsl::test;

namespace {
// A pane of its own, shown with a fixed font, counting its Change events.
struct Pane {
    QtSourcePane pane;
    int changes = 0;
    explicit Pane(const QString& text = QString(), bool wrap = true) {
        pane.Change = [this] { ++changes; };
        box()->resize(400, 200);
        pane.setFontName(QStringLiteral("Monospace"));
        pane.setFontSize(10);
        pane.setRightMargin(wrap ? 0 : 100000);
        pane.setText(text);
        box()->show();
        box()->setFocus();
        changes = 0;
    }
    CodeBox* box() const { return pane.widget(); }
    QWidget* viewport() const { return box()->viewport(); }
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
    bool caretInSight() const {
        return box()->viewport()->rect().contains(box()->cursorRect(box()->position()));
    }
};

// The region a widget repainted since the last look.
struct Painted : QObject {
    QRegion region;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

// The picture of the editor's view, or of a part of it.
QImage picture(QWidget* viewport, const QRegion& part = QRegion()) {
    QImage image(viewport->size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    viewport->render(&image, part.boundingRect().topLeft(),
                     part.isEmpty() ? QRegion(viewport->rect()) : part);
    return image;
}

// The rows of pixels where two pictures differ.
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
        text += QStringLiteral("line %1 of the text\n").arg(i);
    return text;
}
} // namespace

class TextViewTest : public QObject {
    Q_OBJECT

  private slots:
    // A key the editor uses goes no further, to the window around it.
    void init() { QTest::failOnWarning("Keyboard event not accepted by receiving widget"); }

    void keysMoveAndSelect_data() {
        columns<QString, int, int, QString, int, int>(
            {"text", "anchor", "position", "keys", "newAnchor", "newPosition"});
        const QString two = QStringLiteral("one two\nthree four\nfive");
        QTest::newRow("Right") << two << 0 << 0 << "Right" << 1 << 1;
        QTest::newRow("Left at the start") << two << 0 << 0 << "Left" << 0 << 0;
        QTest::newRow("Right at the end") << two << 23 << 23 << "Right" << 23 << 23;
        QTest::newRow("Right over a line feed") << two << 7 << 7 << "Right" << 8 << 8;
        QTest::newRow("Right over a surrogate pair")
            << QString::fromUtf16(u"a\U0001F600b") << 1 << 1 << "Right" << 3 << 3;
        QTest::newRow("Left over a surrogate pair")
            << QString::fromUtf16(u"a\U0001F600b") << 3 << 3 << "Left" << 1 << 1;
        QTest::newRow("Right over a carriage return")
            << QStringLiteral("a\rb") << 1 << 1 << "Right" << 2 << 2;
        QTest::newRow("Shift+Right twice") << two << 0 << 0 << "Shift+Right Shift+Right" << 0 << 2;
        QTest::newRow("Left ends a selection at its start") << two << 2 << 6 << "Left" << 2 << 2;
        QTest::newRow("Right ends a selection at its end") << two << 6 << 2 << "Right" << 6 << 6;
        QTest::newRow("Ctrl+Right") << two << 0 << 0 << "Ctrl+Right" << 4 << 4;
        QTest::newRow("Ctrl+Right to the line end") << two << 4 << 4 << "Ctrl+Right" << 7 << 7;
        QTest::newRow("Ctrl+Right over the line end") << two << 7 << 7 << "Ctrl+Right" << 8 << 8;
        QTest::newRow("Ctrl+Left") << two << 7 << 7 << "Ctrl+Left" << 4 << 4;
        QTest::newRow("Ctrl+Left at a line start") << two << 8 << 8 << "Ctrl+Left" << 7 << 7;
        const QString longWord = QString(5000, QLatin1Char('x')) + QStringLiteral(" y");
        QTest::newRow("Ctrl+Right over a word of thousands")
            << longWord << 0 << 0 << "Ctrl+Right" << 5001 << 5001;
        QTest::newRow("Ctrl+Left over a word of thousands")
            << longWord << 5001 << 5001 << "Ctrl+Left" << 0 << 0;
        QTest::newRow("Ctrl+Right stops at punctuation")
            << QStringLiteral("<p>text</p>") << 0 << 0 << "Ctrl+Right Ctrl+Right" << 2 << 2;
        QTest::newRow("Ctrl+Shift+Right") << two << 0 << 0 << "Ctrl+Shift+Right" << 0 << 4;
        QTest::newRow("Home") << two << 12 << 12 << "Home" << 8 << 8;
        QTest::newRow("End") << two << 9 << 9 << "End" << 18 << 18;
        QTest::newRow("Shift+End") << two << 9 << 9 << "Shift+End" << 9 << 18;
        QTest::newRow("Shift+Home") << two << 12 << 12 << "Shift+Home" << 12 << 8;
        QTest::newRow("Ctrl+Home") << two << 12 << 12 << "Ctrl+Home" << 0 << 0;
        QTest::newRow("Ctrl+End") << two << 3 << 3 << "Ctrl+End" << 23 << 23;
        QTest::newRow("Ctrl+Shift+End") << two << 3 << 3 << "Ctrl+Shift+End" << 3 << 23;
        QTest::newRow("Down keeps the column") << two << 2 << 2 << "Down" << 10 << 10;
        QTest::newRow("Down past a short line and back")
            << QStringLiteral("abcdef\nab\nabcdef") << 5 << 5 << "Down Down" << 15 << 15;
        QTest::newRow("Up on the first line stays") << two << 2 << 2 << "Up" << 2 << 2;
        QTest::newRow("Down on the last line stays") << two << 21 << 21 << "Down" << 21 << 21;
        QTest::newRow("Shift+Down") << two << 2 << 2 << "Shift+Down" << 2 << 10;
        QTest::newRow("Up") << two << 21 << 21 << "Up" << 10 << 10;
        QTest::newRow("a line separator breaks the line")
            << QString::fromUtf16(u"ab\u2028cd") << 1 << 1 << "Down" << 4 << 4;
        QTest::newRow("a carriage return does not")
            << QStringLiteral("ab\rcd\nxy") << 1 << 1 << "Down" << 7 << 7;
        QTest::newRow("Ctrl+A") << two << 5 << 5 << "Ctrl+A" << 0 << 23;
        const QString many = paragraphs(100);
        QTest::newRow("PageDown moves a screenful")
            << many << 0 << 0 << "PgDown" << many.indexOf(QLatin1String("line 10 ")) << -1;
        QTest::newRow("PageDown, PageUp") << many << 0 << 0 << "PgDown PgUp" << 0 << 0;
        QTest::newRow("Shift+PgDown")
            << many << 0 << 0 << "Shift+PgDown" << 0 << many.indexOf(QLatin1String("line 10 "));
    }
    void keysMoveAndSelect() {
        QFETCH(QString, text);
        QFETCH(int, anchor);
        QFETCH(int, position);
        QFETCH(QString, keys);
        QFETCH(int, newAnchor);
        QFETCH(int, newPosition);
        Pane p(text);
        // Ten lines of the view: a page is ten lines.
        p.box()->resize(400, p.box()->height() - p.box()->viewport()->height() +
                                 p.box()->cursorRect(0).height() * 10 + 2 * p.box()->margin());
        p.box()->setSelection(anchor, position);
        p.keys(keys);
        if (newPosition < 0) newPosition = newAnchor;
        QCOMPARE(p.box()->anchor(), newAnchor);
        QCOMPARE(p.box()->position(), newPosition);
        QCOMPARE(p.changes, 0);
        QVERIFY(p.caretInSight());
    }

    void keysEditExactly_data() {
        columns<QString, int, int, QString, QString, int>(
            {"text", "anchor", "position", "keys", "after", "caret"});
        QTest::newRow("a letter") << "ab" << 1 << 1 << "x"
                                  << "axb" << 2;
        QTest::newRow("a letter over a selection") << "abcd" << 1 << 3 << "x"
                                                   << "axd" << 2;
        QTest::newRow("Tab") << "ab" << 1 << 1 << "Tab"
                             << "a\tb" << 2;
        QTest::newRow("Return") << "ab" << 1 << 1 << "Return"
                                << "a\nb" << 2;
        QTest::newRow("Ctrl+Return ends the line too") << "ab" << 1 << 1 << "Ctrl+Return"
                                                       << "a\nb" << 2;
        QTest::newRow("Shift+Return ends the line too") << "ab" << 1 << 1 << "Shift+Return"
                                                        << "a\nb" << 2;
        QTest::newRow("Backspace") << "abc" << 2 << 2 << "Backspace"
                                   << "ac" << 1;
        QTest::newRow("Backspace of a surrogate pair")
            << QString::fromUtf16(u"a\U0001F600b") << 3 << 3 << "Backspace"
            << "ab" << 1;
        QTest::newRow("Backspace of a carriage return alone") << "a\r\nb" << 2 << 2 << "Backspace"
                                                              << "a\nb" << 1;
        QTest::newRow("Backspace at the start") << "ab" << 0 << 0 << "Backspace"
                                                << "ab" << 0;
        QTest::newRow("Delete") << "abc" << 1 << 1 << "Del"
                                << "ac" << 1;
        QTest::newRow("Delete of a line feed") << "a\nb" << 1 << 1 << "Del"
                                               << "ab" << 1;
        QTest::newRow("Delete of a selection") << "abcd" << 3 << 1 << "Del"
                                               << "ad" << 1;
        QTest::newRow("Ctrl+Backspace") << "one two" << 7 << 7 << "Ctrl+Backspace"
                                        << "one " << 4;
        QTest::newRow("Ctrl+Delete") << "one two" << 0 << 0 << "Ctrl+Del"
                                     << "two" << 0;
        QTest::newRow("Shift+Left, then a letter") << "abc" << 3 << 3 << "Shift+Left Shift+Left z"
                                                   << "az" << 2;
    }
    void keysEditExactly() {
        QFETCH(QString, text);
        QFETCH(int, anchor);
        QFETCH(int, position);
        QFETCH(QString, keys);
        Pane p(text);
        p.box()->setSelection(anchor, position);
        p.keys(keys);
        QTEST(p.pane.Text(), "after");
        QTEST(p.box()->position(), "caret");
        QCOMPARE(p.box()->anchor(), p.box()->position());
        // One Change for each key that changed the text.
        QFETCH(QString, after);
        QCOMPARE(p.changes > 0, after != text);
        QVERIFY(p.changes <= keys.count(QLatin1Char(' ')) + 1);
        QCOMPARE(TextRows::check(p.box()->rows(), p.pane.Text()), QString());
    }

    // What breaks a row on screen and what is one character wide in it.
    void rowsBreakWhereTheTextBreaks_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("breaks");
        QTest::newRow("line feed") << QStringLiteral("a\nb") << true;
        QTest::newRow("paragraph separator") << QString::fromUtf16(u"a\u2029b") << true;
        QTest::newRow("U+FDD0") << QString::fromUtf16(u"a\uFDD0b") << true;
        QTest::newRow("U+FDD1") << QString::fromUtf16(u"a\uFDD1b") << true;
        QTest::newRow("line separator") << QString::fromUtf16(u"a\u2028b") << true;
        QTest::newRow("carriage return") << QStringLiteral("a\rb") << false;
        QTest::newRow("tab") << QStringLiteral("a\tb") << false;
    }
    void rowsBreakWhereTheTextBreaks() {
        QFETCH(QString, text);
        QFETCH(bool, breaks);
        Pane p(text, false);
        const QRect before = p.box()->cursorRect(1);
        const QRect after = p.box()->cursorRect(2);
        QCOMPARE(after.top() > before.top(), breaks);
        QCOMPARE(p.box()->rows().count(), breaks ? 2 : 1);
        // A character shown in the row takes room of its own, a carriage return as its picture.
        if (!breaks) QVERIFY(after.left() > before.left());
    }

    void wrapsAtTheEdgeOrScrolls() {
        const QString line = QStringLiteral("word ").repeated(60) + QStringLiteral("end\nnext");
        const int end = static_cast<int>(line.indexOf(QLatin1Char('\n')));
        Pane wrapped(line, true);
        QVERIFY(wrapped.box()->cursorRect(end).top() > wrapped.box()->cursorRect(0).top());
        QCOMPARE(wrapped.box()->horizontalScrollBar()->maximum(), 0);
        QVERIFY(wrapped.box()->cursorRect(end).right() < wrapped.viewport()->width());
        // End stops at the end of the row on screen, before the space it wrapped at.
        wrapped.keys(QStringLiteral("End"));
        QVERIFY(wrapped.box()->position() < end);
        QCOMPARE(line.at(wrapped.box()->position()), QLatin1Char(' '));
        QCOMPARE(wrapped.box()->cursorRect(wrapped.box()->position()).top(),
                 wrapped.box()->cursorRect(0).top());

        Pane unwrapped(line, false);
        QCOMPARE(unwrapped.box()->cursorRect(end).top(), unwrapped.box()->cursorRect(0).top());
        unwrapped.keys(QStringLiteral("End"));
        QCOMPARE(unwrapped.box()->position(), end);
        QVERIFY(unwrapped.box()->horizontalScrollBar()->value() > 0);
        QVERIFY(unwrapped.caretInSight());
        unwrapped.keys(QStringLiteral("Home"));
        QCOMPARE(unwrapped.box()->horizontalScrollBar()->value(), 0);

        // Switching over keeps the text and the caret.
        unwrapped.pane.setRightMargin(0);
        QVERIFY(unwrapped.box()->wraps());
        QCOMPARE(unwrapped.box()->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(unwrapped.pane.Text(), line);
    }

    void theMouseSelects() {
        const QString text = QStringLiteral("one two three\nfour five\nsix");
        Pane p(text);
        // A click puts the caret; a drag selects; Shift+click extends.
        p.mouse(QEvent::MouseButtonPress, p.at(4), Qt::LeftButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, p.at(4), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.box()->position(), 4);
        QVERIFY(!p.box()->hasSelection());
        p.mouse(QEvent::MouseButtonPress, p.at(4), Qt::LeftButton, Qt::LeftButton);
        p.mouse(QEvent::MouseMove, p.at(19), Qt::NoButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, p.at(19), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.box()->anchor(), 4);
        QCOMPARE(p.box()->position(), 19);
        p.mouse(QEvent::MouseButtonPress, p.at(2), Qt::LeftButton, Qt::LeftButton,
                Qt::ShiftModifier);
        p.mouse(QEvent::MouseButtonRelease, p.at(2), Qt::LeftButton, Qt::NoButton,
                Qt::ShiftModifier);
        QCOMPARE(p.box()->anchor(), 4);
        QCOMPARE(p.box()->position(), 2);
        // A click on the selection, let go without a drag, puts the caret there.
        p.box()->setSelection(0, 13);
        p.mouse(QEvent::MouseButtonPress, p.at(6), Qt::LeftButton, Qt::LeftButton);
        QCOMPARE(p.box()->selectionEnd(), 13);
        p.mouse(QEvent::MouseButtonRelease, p.at(6), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.box()->anchor(), 6);
        QCOMPARE(p.box()->position(), 6);
        // The right button does not move the caret.
        p.mouse(QEvent::MouseButtonPress, p.at(20), Qt::RightButton, Qt::RightButton);
        p.mouse(QEvent::MouseButtonRelease, p.at(20), Qt::RightButton, Qt::NoButton);
        QCOMPARE(p.box()->position(), 6);
        QCOMPARE(p.changes, 0);
    }

    void doubleAndTripleClicksSelectWordAndParagraph() {
        const QString text = QStringLiteral("one two three\nfour five\nsix");
        Pane p(text);
        const QPoint two = p.at(5);
        p.mouse(QEvent::MouseButtonPress, two, Qt::LeftButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, two, Qt::LeftButton, Qt::NoButton);
        p.mouse(QEvent::MouseButtonDblClick, two, Qt::LeftButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, two, Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.box()->selectionStart(), 4);
        QCOMPARE(p.box()->selectionEnd(), 7);
        // A drag after the double click goes on by whole words.
        p.mouse(QEvent::MouseButtonPress, p.at(5), Qt::LeftButton, Qt::LeftButton);
        QCOMPARE(p.box()->selectionStart(), 0);
        QCOMPARE(p.box()->selectionEnd(), 14); // the third click: the paragraph and its end
        p.mouse(QEvent::MouseMove, p.at(16), Qt::NoButton, Qt::LeftButton);
        p.mouse(QEvent::MouseButtonRelease, p.at(16), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(p.box()->selectionStart(), 0);
        QCOMPARE(p.box()->selectionEnd(), 24);
    }

    // The wheel scrolls without moving the caret, to the end and no further; a move of the
    // caret brings it back into sight, even where one row is taller than the view.
    void theWheelScrollsAndTheCaretStays() {
        for (const QString& text : {paragraphs(200), QStringLiteral("word ").repeated(1500)}) {
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
            p.keys(QStringLiteral("Right"));
            QCOMPARE(p.box()->position(), 1);
            QVERIFY(p.caretInSight());
            // The end of the wheel and of the scroll bar show the last line at the bottom.
            for (int i = 0; i < 2; ++i) {
                if (i == 0) wheel(-120 * 1000);
                QScrollBar* bar = p.box()->verticalScrollBar();
                if (i == 1) bar->setValue(bar->maximum());
                const QRect last = p.box()->cursorRect(p.pane.length());
                QVERIFY(last.bottom() <= p.viewport()->height());
                QVERIFY(last.top() > p.viewport()->height() / 2);
            }
        }
    }

    // An edit repaints the rows it changed and no others, the top one as well.
    void anEditRepaintsItsRowOnly() {
        Pane p(paragraphs(30));
        QVERIFY(QTest::qWaitForWindowExposed(p.box()));
        Painted painted;
        p.viewport()->installEventFilter(&painted);
        for (int row : {3, 0}) {
            const int at =
                static_cast<int>(p.pane.Text().indexOf(QStringLiteral("line %1 ").arg(row)));
            p.box()->setSelection(at, at);
            QTest::qWait(20);
            painted.region = QRegion();
            p.keys(QStringLiteral("x"));
            QTRY_VERIFY(!painted.region.isEmpty());
            const QRect line = p.box()->cursorRect(at);
            QVERIFY(painted.region.boundingRect().top() >= line.top() - p.box()->margin());
            QVERIFY(painted.region.boundingRect().bottom() <= line.bottom() + 1);
            QVERIFY(painted.region.contains(line.center()));
        }
    }

    // Any part of the view paints as the whole does; the caret shows in its row while the
    // editor has the keyboard; a drag shows where it would drop.
    void thePictureShowsTheTextAndOneCaret() {
        Pane p(QStringLiteral("word ").repeated(60) + QStringLiteral("\n") +
               QStringLiteral("more words ").repeated(30) + QStringLiteral("\nend"));
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
        const auto [first, last] = differing(focused, unfocused);
        QVERIFY(first >= row.top() && last <= row.bottom());

        QMimeData mime;
        mime.setText(QStringLiteral("dropped"));
        const auto drag = [&](QEvent::Type type, int at) {
            QDragMoveEvent event(p.at(at), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier,
                                 type);
            QApplication::sendEvent(view, &event);
        };
        drag(QEvent::DragEnter, 1);
        drag(QEvent::DragMove, 400);
        const QImage moved = picture(view);
        QDragLeaveEvent leave;
        QApplication::sendEvent(view, &leave);
        QCOMPARE(picture(view), unfocused);
        drag(QEvent::DragEnter, 400);
        QCOMPARE(moved, picture(view));
        QVERIFY(moved != unfocused);
    }

    void anInputMethodComposesAtTheCaret() {
        Pane p(QStringLiteral("ab"));
        p.box()->setSelection(1, 1);
        QInputMethodEvent compose(QStringLiteral("e\u0301"), {});
        QApplication::sendEvent(p.box(), &compose);
        QCOMPARE(p.pane.Text(), QStringLiteral("ab"));
        QCOMPARE(p.changes, 0);
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("\u00E9"));
        QApplication::sendEvent(p.box(), &commit);
        QCOMPARE(p.pane.Text(), QStringLiteral("a\u00E9b"));
        QCOMPARE(p.box()->position(), 2);
        QCOMPARE(p.changes, 1);
        QCOMPARE(p.box()->inputMethodQuery(Qt::ImSurroundingText).toString(),
                 QStringLiteral("a\u00E9b"));
        QCOMPARE(p.box()->inputMethodQuery(Qt::ImCursorPosition).toInt(), 2);
    }

    // Assistive technology finds an editable text with no name of its own, and reads its
    // text, caret, selection and lines.
    void assistiveTechnologyReadsTheText() {
        Pane p(QStringLiteral("one two\nthree"));
        QCOMPARE(p.box()->objectName(), QStringLiteral("codebox"));
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
        int start = 0;
        int end = 0;
        text->selection(0, &start, &end);
        QCOMPARE(start, 4);
        QCOMPARE(end, 7);
        QCOMPARE(text->textAtOffset(9, QAccessible::LineBoundary, &start, &end),
                 QStringLiteral("three"));
        QCOMPARE(text->textBeforeOffset(9, QAccessible::LineBoundary, &start, &end),
                 QStringLiteral("one two\n"));
        QCOMPARE(text->textAtOffset(5, QAccessible::WordBoundary, &start, &end),
                 QStringLiteral("two"));
        // A character's box is as wide as the character; the end of the text has one too.
        QCOMPARE(text->characterRect(0).width(),
                 p.box()->cursorRect(1).left() - p.box()->cursorRect(0).left());
        QVERIFY(text->characterRect(13).width() >= 1);
        text->setCursorPosition(2);
        QCOMPARE(p.box()->position(), 2);
        QCOMPARE(text->offsetAtPoint(p.viewport()->mapToGlobal(p.at(10))), 10);
    }

    // The pane's properties read back as set; a selection length below zero is refused.
    void thePanesPropertiesReadBack() {
        Pane p(QStringLiteral("abc"));
        p.pane.setSelIndent(1440);
        QCOMPARE(p.pane.SelIndent(), 1440);
        QCOMPARE(p.box()->margin(), p.box()->logicalDpiX());
        p.pane.setSelStart(1);
        QCOMPARE(errorOf([&] { p.pane.setSelLength(2); }), 0);
        QCOMPARE(p.pane.SelText(), QStringLiteral("bc"));
        QCOMPARE(errorOf([&] { p.pane.setSelLength(0); }), 0);
        QCOMPARE(p.pane.SelLength(), 0);
        QCOMPARE(errorOf([&] { p.pane.setSelLength(-1); }), 380);
    }

    // A page of one line of ten megabytes: cut into rows of a few thousand characters, it
    // opens, moves and takes keys with a few rows laid out.
    void aGiantLineStaysCheap() {
        QString giant;
        while (giant.size() < 10 * 1024 * 1024)
            giant += QStringLiteral("word and <b>tag</b> ");
        for (bool wrap : {false, true}) {
            Pane p(giant, wrap);
            QCOMPARE(p.box()->rows().count(),
                     (giant.size() + TextRows::kMaxRow - 1) / TextRows::kMaxRow);
            QCOMPARE(TextRows::check(p.box()->rows(), p.pane.Text()), QString());
            const int middle = static_cast<int>(giant.size() / 2);
            p.box()->setSelection(middle, middle);
            p.keys(QStringLiteral("x y Return Backspace Ctrl+Right Down End Ctrl+End Ctrl+Home"));
            QCOMPARE(p.box()->position(), 0);
            QCOMPARE(p.pane.Text().size(), giant.size() + 2);
            QCOMPARE(p.pane.Text().mid(middle, 3), QStringLiteral("xy") + giant.at(middle));
            QCOMPARE(TextRows::check(p.box()->rows(), p.pane.Text()), QString());
            QVERIFY(p.box()->layoutsKept() < 100);
            // The end of the scroll bar shows the end of the text, even in a tall last row.
            QScrollBar* bar = p.box()->verticalScrollBar();
            bar->setValue(bar->maximum());
            const QRect end = p.box()->cursorRect(p.pane.length());
            QVERIFY(end.top() >= 0 && end.bottom() < p.viewport()->height());
        }
    }

    // The text exists once: the editor paints the pane's own string, after edits too, and keeps
    // layouts for a few screens of rows however many rows the text has.
    void theTextIsHeldOnce() {
        const QString text = paragraphs(200000);
        Pane p(text);
        QCOMPARE(p.box()->text().constData(), p.pane.Text().constData());
        QCOMPARE(p.box()->rows().count(), 200001);
        p.keys(QStringLiteral("Ctrl+End a PgUp PgUp b Ctrl+Home c"));
        for (int i = 0; i < 50; ++i)
            p.keys(QStringLiteral("PgDown"));
        QCOMPARE(p.box()->text().constData(), p.pane.Text().constData());
        QCOMPARE(p.pane.length(), text.size() + 3);
        QVERIFY(p.box()->layoutsKept() > 0);
        QVERIFY(p.box()->layoutsKept() <= 300);
        // The index holds one number for each row.
        QCOMPARE(p.box()->rows().starts().size(), size_t(200001));
    }
};

QTEST_MAIN(TextViewTest)
#include "test_text_view.moc"
