// The Source pane keeps the exact text through every edit: characters the editor shows another
// way (a lone carriage return, the paragraph separator, the noncharacters U+FDD0 and U+FDD1)
// come back as they were after typing, Return, deleting, pasting, copying and dragging beside
// or over them, and the file is saved with the bytes it had.
#include "editor/text_file.h"
#include "random_documents.h"
#include "test_rows.h"
#include "ui_helpers.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <memory>

using namespace tsl;
using namespace tsl::test;

namespace {
struct Program : UiProgram {
    explicit Program(const QString& commandLine = QString()) {
        start(commandLine);
        window().activateWindow();
        box()->setFocus();
    }
    void select(int anchor, int position) { box()->setSelection(anchor, position); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(box(), key, modifiers);
    }
    // Drops mime data where the pointer is over the given position; answers the position the
    // editor took for it.
    int drop(const QMimeData& mime, int position, Qt::DropAction action) {
        const QPoint where = box()->cursorRect(position).center();
        const int taken = box()->positionAt(where);
        QWidget* viewport = box()->viewport();
        QDragEnterEvent enter(where, action, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(where, action, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        QDropEvent dropped(where, action, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &dropped);
        return taken;
    }
};

QString text(const char16_t* utf16) {
    return QString::fromUtf16(utf16);
}

// The exact text as a desktop text editor's document holds it: one character for each, with a
// paragraph end for a line feed and for the characters taken as paragraph ends.
QString shownAs(const QString& exact) {
    QString shown = exact;
    for (QChar& c : shown) {
        if (c == u'\r') c = QChar(0x240D);
        if (c == u'\n' || c == QChar(0x2029) || c == QChar(0xFDD0) || c == QChar(0xFDD1))
            c = QChar(0x2029);
    }
    return shown;
}
} // namespace

class SourcePaneExactTest : public QObject {
    Q_OBJECT

  private slots:
    // Return at the very start of a file whose first character the editor shows as a break.
    void returnBeforeABreakKeepsIt_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("paragraph separator") << QByteArray("\xE2\x80\xA9x");
        QTest::newRow("U+FDD0") << QByteArray("\xEF\xB7\x90x");
        QTest::newRow("U+FDD1") << QByteArray("\xEF\xB7\x91x");
        QTest::newRow("line separator") << QByteArray("\xE2\x80\xA8x");
        QTest::newRow("lone carriage return") << QByteArray("\rx");
    }
    void returnBeforeABreakKeepsIt() {
        QFETCH(QByteArray, bytes);
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), bytes);
        Program p(path);
        p.key(Qt::Key_Home, Qt::ControlModifier);
        p.key(Qt::Key_Return);
        p.key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(readFile(path), "\n" + bytes);
    }

    // Keys of the editor itself beside and over the characters it shows another way.
    void keysBesideBreaksKeepThem_data() {
        columns<QString, int, int, QString, QString>(
            {"before", "anchor", "position", "keys", "after"});
        const QString ps = text(u"\u2029");
        QTest::newRow("Return between two separators")
            << ps + ps << 1 << 1 << "R" << ps + "\n" + ps;
        QTest::newRow("Return after a separator at the end") << "x" + ps << 2 << 2 << "R"
                                                             << "x" + ps + "\n";
        QTest::newRow("Return over a selected separator") << "a" + ps + "b" << 1 << 2 << "R"
                                                          << "a\nb";
        QTest::newRow("Return over a selection ending at U+FDD0")
            << text(u"ab\uFDD0c") << 1 << 2 << "R" << text(u"a\n\uFDD0c");
        QTest::newRow("letters at the start of a line after U+FDD1")
            << text(u"a\uFDD1b") << 2 << 2 << "xy" << text(u"a\uFDD1xyb");
        QTest::newRow("Shift+Return before a separator")
            << ps + "x" << 0 << 0 << "S" << text(u"\n\u2029x");
        QTest::newRow("Delete of a line feed before a separator")
            << "a\n" + ps + "b" << 1 << 1 << "D"
            << "a" + ps + "b";
        QTest::newRow("Backspace of a separator after a line feed")
            << "a\n" + ps + "b" << 3 << 3 << "B"
            << "a\nb";
        QTest::newRow("Backspace of a carriage return before a separator")
            << "a\r" + ps << 2 << 2 << "B"
            << "a" + ps;
        QTest::newRow("Return, then Backspace, beside a carriage return")
            << "a\r\nb" << 2 << 2 << "RB"
            << "a\r\nb";
        QTest::newRow("typing over a selection of breaks")
            << text(u"a\r\u2029\n\uFDD0b") << 1 << 5 << "x"
            << "axb";
    }
    void keysBesideBreaksKeepThem() {
        QFETCH(QString, before);
        QFETCH(int, anchor);
        QFETCH(int, position);
        QFETCH(QString, keys);
        Program p;
        p.pane().setText(before);
        p.select(anchor, position);
        for (QChar k : keys) {
            if (k == u'R') p.key(Qt::Key_Return);
            if (k == u'S') p.key(Qt::Key_Return, Qt::ShiftModifier);
            if (k == u'D') p.key(Qt::Key_Delete);
            if (k == u'B') p.key(Qt::Key_Backspace);
            if (k.isLower()) QTest::keyClicks(p.box(), QString(k));
        }
        QTEST(p.pane().Text(), "after");
        QCOMPARE(rowsProblem(p), QString());
    }

    // Pasted line ends stay as they were; the editor's own copy and drag carry the exact text,
    // not the picture it shows for a carriage return.
    void copyAndDragCarryTheExactText() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), "<p>\n");
        Program p(path);
        p.platform.clipboard = QStringLiteral("one\r\ntwo\n");
        p.key(Qt::Key_End, Qt::ControlModifier);
        p.key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(p.pane().Text(), QStringLiteral("<p>\none\r\ntwo\n"));
        p.select(4, 9); // "one\r\n"
        const std::unique_ptr<QMimeData> mime(p.box()->createMimeDataFromSelection());
        QCOMPARE(mime->text(), QStringLiteral("one\r\n"));
        p.key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("one\r\n"));
        // Dragged behind "two": the line moves with its carriage return, in one step of the
        // history.
        const int steps = p.shell().ActiveForm()->nDoneIndex;
        p.drop(*mime, 13, Qt::MoveAction);
        QCOMPARE(p.pane().Text(), QStringLiteral("<p>\ntwo\none\r\n"));
        QCOMPARE(p.shell().ActiveForm()->nDoneIndex, steps + 1);
        p.key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(readFile(path), QByteArray("<p>\ntwo\none\r\n"));
        p.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(p.pane().Text(), QStringLiteral("<p>\none\r\ntwo\n"));
    }

    // Text that comes from elsewhere (a drop from another program, the selection clipboard)
    // goes in as it is; the drop is no drag of the document's own.
    void textFromElsewhereGoesInExactly() {
        Program p;
        p.pane().setText(QStringLiteral("ab"));
        const int steps = p.shell().ActiveForm()->nDoneIndex;
        QMimeData mime;
        const QString dropped = text(u"x\r\ny\u2029z\uFDD0\r");
        mime.setText(dropped);
        p.drop(mime, 1, Qt::CopyAction);
        QCOMPARE(p.pane().Text(), "a" + dropped + "b");
        QCOMPARE(p.shell().ActiveForm()->nDoneIndex, steps);
        p.select(0, 0);
        p.box()->insertFromMimeData(&mime);
        QCOMPARE(p.pane().Text(), dropped + "a" + dropped + "b");
        QCOMPARE(rowsProblem(p), QString());
    }

    // Random files edited at random places by the editor's keys, by commands, by pastes and
    // drags: the pane's text always equals a model kept here on the side, and the editor's rows
    // of it, kept up edit by edit, are what they should be. TSL_FUZZ_CASES and TSL_FUZZ_SEED make a
    // long run.
    void randomEditsKeepTheExactText() {
        const FuzzRun run(3000);
        Program p;
        for (int i = 0; i < run.cases; ++i) {
            RandomDocuments random(run.caseGenerator(i));
            QString model = decodeText(random.fileBytes()).text;
            p.pane().setText(model);
            QString done;
            const int edits = 1 + random.below(8);
            for (int e = 0; e < edits; ++e) {
                QString problem;
                done += edit(p, random, model, problem) + QLatin1Char(' ');
                if (!problem.isEmpty())
                    QFAIL(qPrintable(QStringLiteral("seed %1 case %2 after %3: %4")
                                         .arg(run.seed)
                                         .arg(i)
                                         .arg(done, problem)));
                if (p.pane().Text() != model || !rowsProblem(p).isEmpty())
                    QFAIL(qPrintable(QStringLiteral("seed %1 case %2 after %3: %4 instead of %5")
                                         .arg(run.seed)
                                         .arg(i)
                                         .arg(done, QString::fromLatin1(hexOf(p.pane().Text())),
                                              QString::fromLatin1(hexOf(model)))));
            }
        }
    }

  private:
    // What is wrong with the rows the editor keeps for the pane's text after its edits, and
    // whether it shows the pane's own text rather than a copy: empty when all is right.
    static QString rowsProblem(Program& p) {
        if (p.box()->text().constData() != p.pane().Text().constData())
            return QStringLiteral("the editor holds a copy");
        return TextRows::check(p.box()->rows(), p.pane().Text());
    }
    // A position that does not split a surrogate pair.
    static int whole(const QString& text, int position) {
        if (position > 0 && position < text.size() && text.at(position).isLowSurrogate() &&
            text.at(position - 1).isHighSurrogate())
            return position - 1;
        return position;
    }
    // The length of the character before or after a position, a surrogate pair counted whole.
    static int charBefore(const QString& text, int at) {
        if (at >= 2 && text.at(at - 1).isLowSurrogate() && text.at(at - 2).isHighSurrogate())
            return 2;
        return at > 0 ? 1 : 0;
    }
    static int charAfter(const QString& text, int at) {
        if (at + 1 < text.size() && text.at(at).isHighSurrogate() &&
            text.at(at + 1).isLowSurrogate())
            return 2;
        return at < text.size() ? 1 : 0;
    }

    // One random edit, made on the pane and on the model; answers its name.
    static QString edit(Program& p, RandomDocuments& random, QString& model, QString& problem) {
        const int length = static_cast<int>(model.size());
        const int anchor = whole(model, random.below(length + 1));
        const int position = random.chance(60) ? anchor : whole(model, random.below(length + 1));
        p.select(anchor, position);
        const int start = std::min(anchor, position);
        const int end = std::max(anchor, position);
        const auto replace = [&](const QString& with) { model.replace(start, end - start, with); };
        switch (random.below(13)) {
        case 0: {
            const QString letter = QString(QChar(u'a' + random.below(26)));
            QTest::keyClicks(p.box(), letter);
            replace(letter);
            return QStringLiteral("type");
        }
        case 1:
            p.key(Qt::Key_Return);
            replace(QStringLiteral("\n"));
            return QStringLiteral("Return");
        case 2:
            p.key(Qt::Key_Return, Qt::ShiftModifier);
            replace(QStringLiteral("\n"));
            return QStringLiteral("Shift+Return");
        case 3:
            p.key(Qt::Key_Backspace);
            if (start == end)
                model.remove(start - charBefore(model, start), charBefore(model, start));
            else
                replace(QString());
            return QStringLiteral("Backspace");
        case 4:
            p.key(Qt::Key_Delete);
            if (start == end)
                model.remove(start, charAfter(model, start));
            else
                replace(QString());
            return QStringLiteral("Delete");
        case 5: {
            const QString piece = random.textPiece();
            p.pane().setSelText(piece);
            replace(piece);
            return QStringLiteral("SelText");
        }
        case 6: {
            QMimeData mime;
            mime.setText(random.textPiece());
            p.box()->insertFromMimeData(&mime);
            replace(mime.text());
            return QStringLiteral("insert");
        }
        case 7: {
            const std::unique_ptr<QMimeData> mime(p.box()->createMimeDataFromSelection());
            if (start == end) return QStringLiteral("nothing to drag");
            const int at = p.drop(*mime, whole(model, random.below(length + 1)), Qt::MoveAction);
            if (at < start || at > end) {
                const QString moved = model.mid(start, end - start);
                model.remove(start, end - start);
                model.insert(at > end ? at - (end - start) : at, moved);
            }
            return QStringLiteral("drag to %1").arg(at);
        }
        case 8: {
            p.box()->copy();
            const QString copied = QGuiApplication::clipboard()->text();
            if (copied != model.mid(start, end - start) && start != end)
                problem = QStringLiteral("the copy held ") + QString::fromLatin1(hexOf(copied));
            return QStringLiteral("copy");
        }
        case 9:
        case 10: {
            // The editor's word deletion takes the selection, or else the way to the start or
            // the end of the word as its own cursor moves.
            const bool back = random.chance(50);
            QTextDocument shown;
            shown.setPlainText(shownAs(model));
            QTextCursor word(&shown);
            word.setPosition(anchor);
            word.setPosition(position, QTextCursor::KeepAnchor);
            if (!word.hasSelection())
                word.movePosition(back ? QTextCursor::PreviousWord : QTextCursor::NextWord,
                                  QTextCursor::KeepAnchor);
            const int from = word.selectionStart();
            const int to = word.selectionEnd();
            p.key(back ? Qt::Key_Backspace : Qt::Key_Delete, Qt::ControlModifier);
            model.remove(from, to - from);
            return back ? QStringLiteral("Ctrl+Backspace") : QStringLiteral("Ctrl+Delete");
        }
        case 11: {
            const QString committed =
                random.chance(50) ? QStringLiteral("\u00E9t\u00E9") : QStringLiteral("\u20AC");
            QInputMethodEvent event;
            event.setCommitString(committed);
            QApplication::sendEvent(p.box(), &event);
            replace(committed);
            return QStringLiteral("input method");
        }
        default: {
            const QString piece = random.textPiece();
            p.pane().setText(piece);
            model = piece;
            return QStringLiteral("Text");
        }
        }
    }
};

QTEST_MAIN(SourcePaneExactTest)
#include "test_source_pane_exact.moc"
