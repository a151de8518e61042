#pragma once
// Shared set-up of the Source editor tests: a document with a known text and a one-step
// history, a hand-driven clock, typing, and the state of the shared edit commands.
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

inline void select(codeEditor& doc, int start, int length) {
    doc.codebox().setSelStart(start);
    doc.codebox().setSelLength(length);
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

} // namespace tsl::test
