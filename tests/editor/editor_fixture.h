#pragma once
// Shared set-up of the Source editor tests: a document with a known text and a one-step
// history, texts with their selection marked, the shell's markup flags, a hand-driven clock,
// and the state of the shared edit commands.
#include "editor/text_pane.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QTest>

namespace tsl::test {

// The document of a loaded shell, its text replaced and its history restarted from that text,
// as a freshly opened file has it: one step, Undo and Redo off.
inline codeEditor& documentWith(TestShell& ts, const QString& text, int caret = 0) {
    ts.load();
    codeEditor& doc = ts.active();
    doc.codebox().setText(text);
    doc.codebox().setSelStart(caret);
    doc.Steps = {};
    doc.nDoneIndex = 0;
    doc.nTopIndex = 0;
    doc.nLastStepTime = 0;
    doc.AddStep();
    ts->bInsertingMarkup = false;
    ts->bCaretStepTaken = false;
    return doc;
}

// A shell and its one document, for the tests that need no more.
struct Editing : TestShell {
    codeEditor& doc;
    explicit Editing(const QString& text, int caret = 0) : doc(documentWith(*this, text, caret)) {}
};

inline void select(codeEditor& doc, int start, int length) {
    doc.codebox().setSelStart(start);
    doc.codebox().setSelLength(length);
}

// A text with the selection marked: "|" the caret, "[" and "]" around a selection.
inline QString marked(codeEditor& doc) {
    const SourcePane& pane = doc.codebox();
    QString text = pane.Text();
    if (pane.SelLength() == 0) return text.insert(pane.SelStart(), u'|');
    return text.insert(pane.SelStart() + pane.SelLength(), u']').insert(pane.SelStart(), u'[');
}
inline QString unmarked(QString text) {
    return text.remove(u'|').remove(u'[').remove(u']');
}
// Puts a marked text in the pane, selection and all; the history is left alone.
inline void setMarked(codeEditor& doc, const QString& text) {
    doc.codebox().setText(unmarked(text));
    const qsizetype caret = text.indexOf(u'|');
    const qsizetype start = caret >= 0 ? caret : text.indexOf(u'[');
    select(doc, int(start), caret >= 0 ? 0 : int(text.indexOf(u']') - start - 1));
}

// The shell's markup flag (m) and caret-step flag (c), as a string and back.
inline QString flags(TestShell& ts) {
    return QString(ts->bInsertingMarkup ? "m" : "") + (ts->bCaretStepTaken ? "c" : "");
}
inline void setFlags(TestShell& ts, const QString& on) {
    ts->bInsertingMarkup = on.contains(u'm');
    ts->bCaretStepTaken = on.contains(u'c');
}

// Sets the clock to a number of seconds since midnight.
inline void setClock(TestShell& ts, double seconds) {
    ts.platform.clock = QDateTime(ts.platform.clock.date(),
                                  QTime::fromMSecsSinceStartOfDay(qRound(seconds * 1000)));
}

// Releases a key at the given time.
inline void release(TestShell& ts, codeEditor& doc, int keyCode, double seconds, int shift = 0) {
    setClock(ts, seconds);
    doc.codebox_KeyUp(keyCode, shift);
}

// Presses a key in the Source pane and answers the key code the handler left.
inline int keyDown(codeEditor& doc, int keyCode, int shift) {
    doc.codebox_KeyDown(keyCode, shift);
    return keyCode;
}

// Types one letter at the caret and releases its key at the given time.
inline void typeLetter(TestShell& ts, codeEditor& doc, QChar letter, double seconds) {
    doc.codebox().setSelText(QString(letter));
    release(ts, doc, letter.toUpper().unicode(), seconds);
}

// Undo and Redo as menu item and toolbar button; the two must always agree.
inline bool undoOn(TestShell& ts) {
    const bool menu = ts->menu(QStringLiteral("mnuEditUndo")).Enabled();
    if (menu != ts->tbrMain.ButtonEnabled(11)) throw std::runtime_error("Undo button disagrees");
    return menu;
}
inline bool redoOn(TestShell& ts) {
    const bool menu = ts->menu(QStringLiteral("mnuEditRedo")).Enabled();
    if (menu != ts->tbrMain.ButtonEnabled(12)) throw std::runtime_error("Redo button disagrees");
    return menu;
}

// What the Layout surface was sent: commands as "id,option,value", pastes, and its focus.
inline QString surfaceLog(codeEditor& doc) {
    QStringList out;
    for (const auto& c : layoutOf(doc).commands)
        out << QStringLiteral("%1,%2,%3").arg(c.id).arg(c.option).arg(c.value);
    for (const QString& markup : layoutOf(doc).pasted)
        out << QStringLiteral("paste ") + markup;
    if (layoutOf(doc).focusCount > 0) out << QStringLiteral("focus");
    return out.join(QStringLiteral("; "));
}

} // namespace tsl::test
