// The Source pane keeps the exact text through pastes, copies, drags and random edits.
#include "editor/text_file.h"
#include "random_documents.h"
#include "shell/code_editor.h"
#include "ui_helpers.h"

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

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
    // Drops mime data over a position; answers the position the editor took for it.
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

// The text as a desktop editor's document holds it: a CR as its picture, breaks as U+2029.
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

    std::optional<QTemporaryDir> dir;

  private slots:
    void init() { dir.emplace(); }
    // Pasted line ends stay; the editor's copy and drag carry the exact text, not a CR's picture.
    void copyAndDragCarryTheExactText() {
        const QString path = writeFile(*dir, u"page.htm"_s, "<p>\n");
        Program p(path);
        p.platform.clipboard = u"one\r\ntwo\n"_s;
        p.key(Qt::Key_End, Qt::ControlModifier);
        p.key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(p.pane().Text(), u"<p>\none\r\ntwo\n"_s);
        p.select(4, 9); // "one\r\n"
        const std::unique_ptr<QMimeData> mime(p.box()->createMimeDataFromSelection());
        QCOMPARE(mime->text(), u"one\r\n"_s);
        p.key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"one\r\n"_s);
        // Dragged behind "two": the line moves with its CR, in one step of the history.
        const int steps = p.shell().ActiveForm()->nDoneIndex;
        p.drop(*mime, 13, Qt::MoveAction);
        QCOMPARE(p.pane().Text(), u"<p>\ntwo\none\r\n"_s);
        QCOMPARE(p.shell().ActiveForm()->nDoneIndex, steps + 1);
        p.key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(readFile(path), QByteArray("<p>\ntwo\none\r\n"));
        p.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(p.pane().Text(), u"<p>\none\r\ntwo\n"_s);
    }

    // Text another program drops goes in as it is, as no drag step.
    void textFromElsewhereGoesInExactly() {
        Program p;
        p.pane().setText(u"ab"_s);
        const int steps = p.shell().ActiveForm()->nDoneIndex;
        QMimeData mime;
        const QString dropped = u"x\r\ny\u2029z\uFDD0\r"_s;
        mime.setText(dropped);
        p.drop(mime, 1, Qt::CopyAction);
        QCOMPARE(p.pane().Text(), "a" + dropped + "b");
        QCOMPARE(p.shell().ActiveForm()->nDoneIndex, steps);
        QCOMPARE(rowsProblem(p), QString());
    }

    // A drop of the selection onto its own start or end is no edit, as if nothing was dragged.
    void aDropOntoItselfIsNoEdit() {
        QStringList after;
        for (int at : {0, 3}) {
            Program p(writeFile(*dir, u"page.htm"_s, "one two"));
            p.select(0, 3);
            const std::unique_ptr<QMimeData> mime(p.box()->createMimeDataFromSelection());
            p.drop(*mime, at, Qt::MoveAction);
            QCOMPARE(p.pane().Text(), u"one two"_s);
            QTest::keyClicks(p.box(), u"x"_s);
            QCOMPARE(p.active().nDoneIndex, 2);
            p.key(Qt::Key_Z, Qt::ControlModifier);
            after << QString::number(p.active().nDoneIndex) + p.pane().Text();
        }
        QCOMPARE(after.at(1), after.at(0));
    }

    // A large page is held once: the undo slot shares the pane's string, again after undoing.
    void aLargePageIsHeldOnce() {
        const auto shared = [](const QString& a, const QString& b) {
            return a.size() == b.size() && a.constData() == b.constData();
        };
        const QByteArray page =
            "<html><body>\n" + QByteArray("<p>a line of a large page</p>\n").repeated(349526);
        Program p;
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(writeFile(*dir, "large.htm", page)));
        p.shell().dispatch([&] { p.shell().mnuFileOpen_Click(); });
        codeEditor& doc = p.active();
        SourcePane& pane = doc.codebox();
        QCOMPARE(pane.length(), page.size());
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QVERIFY(shared(doc.step(1).Text, pane.Text()));
        constexpr int kEdits = 6;
        for (int i = 0; i < kEdits; ++i)
            p.shell().dispatch([&] {
                pane.setSelStart(i * 1600000);
                pane.setSelText(u"<b>%1</b>"_s.arg(i));
                doc.AddStep();
            });
        QCOMPARE(doc.nDoneIndex, Int16(kEdits + 1));
        QVERIFY(doc.step(kEdits + 1).Text == pane.Text());
        QVERIFY(!shared(doc.step(1).Text, pane.Text()));
        for (int i = 0; i < kEdits; ++i)
            p.shell().dispatch([&] { doc.Undo(); });
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QCOMPARE(pane.Text(), QString::fromLatin1(page));
        QVERIFY(shared(doc.step(1).Text, pane.Text()));
    }

    // Random files under random edits equal a model kept aside (TSL_FUZZ_CASES, TSL_FUZZ_SEED).
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
                const QString where =
                    QString::asprintf("seed %u case %d after ", run.seed, i) + done;
                QVERIFY2(problem.isEmpty(), qPrintable(where + problem));
                QVERIFY2(
                    p.pane().Text() == model && rowsProblem(p).isEmpty(),
                    qPrintable(where + hexOf(p.pane().Text()) + " instead of " + hexOf(model)));
            }
        }
    }

  private:
    // What is wrong with the editor's rows, or that it holds a copy of the text; empty if nothing.
    static QString rowsProblem(Program& p) {
        if (p.box()->text().constData() != p.pane().Text().constData())
            return u"the editor holds a copy"_s;
        return TextRows::check(p.box()->rows(), p.pane().Text());
    }
    // The length of the character before or after a position, a surrogate pair counted whole.
    static int charBefore(const QString& text, int at) {
        return at > 0 ? at - whole(text, at - 1) : 0;
    }
    static int charAfter(const QString& text, int at) {
        return at >= text.size() ? 0 : whole(text, at + 1) == at ? 2 : 1;
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
        switch (const int kind = random.below(13)) {
        case 0: {
            const QString letter = QString(QChar(u'a' + random.below(26)));
            QTest::keyClicks(p.box(), letter);
            replace(letter);
            return u"type"_s;
        }
        case 1:
        case 2:
            p.key(Qt::Key_Return, kind == 2 ? Qt::ShiftModifier : Qt::NoModifier);
            replace(u"\n"_s);
            return kind == 2 ? u"Shift+Return"_s : u"Return"_s;
        case 3:
            p.key(Qt::Key_Backspace);
            if (start == end)
                model.remove(start - charBefore(model, start), charBefore(model, start));
            else
                replace(QString());
            return u"Backspace"_s;
        case 4:
            p.key(Qt::Key_Delete);
            if (start == end)
                model.remove(start, charAfter(model, start));
            else
                replace(QString());
            return u"Delete"_s;
        case 5: {
            const QString piece = random.textPiece();
            p.pane().setSelText(piece);
            replace(piece);
            return u"SelText"_s;
        }
        case 6: {
            QMimeData mime;
            mime.setText(random.textPiece());
            p.box()->insertFromMimeData(&mime);
            replace(mime.text());
            return u"insert"_s;
        }
        case 7: {
            const std::unique_ptr<QMimeData> mime(p.box()->createMimeDataFromSelection());
            if (start == end) return u"nothing to drag"_s;
            const int at = p.drop(*mime, whole(model, random.below(length + 1)), Qt::MoveAction);
            if (at < start || at > end) {
                const QString moved = model.mid(start, end - start);
                model.remove(start, end - start);
                model.insert(at > end ? at - (end - start) : at, moved);
            }
            return u"drag to %1"_s.arg(at);
        }
        case 8: {
            p.box()->copy();
            const QString copied = QGuiApplication::clipboard()->text();
            if (copied != model.mid(start, end - start) && start != end)
                problem = u"the copy held "_s + QString::fromLatin1(hexOf(copied));
            return u"copy"_s;
        }
        case 9:
        case 10: {
            // Word deletion takes the selection, or else the way to the word's start or end.
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
            return back ? u"Ctrl+Backspace"_s : u"Ctrl+Delete"_s;
        }
        case 11: {
            const QString committed = random.chance(50) ? u"\u00E9t\u00E9"_s : u"\u20AC"_s;
            QInputMethodEvent event;
            event.setCommitString(committed);
            QApplication::sendEvent(p.box(), &event);
            replace(committed);
            return u"input method"_s;
        }
        default: {
            const QString piece = random.textPiece();
            p.pane().setText(piece);
            model = piece;
            return u"Text"_s;
        }
        }
    }
};

QTEST_MAIN(SourcePaneExactTest)
#include "test_source_pane_exact.moc"
