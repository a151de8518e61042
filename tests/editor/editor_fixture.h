#pragma once
// Shared set-up of the Source editor tests: a document with a known text and a one-step
// history, and texts with their selection marked.
#include "editor/text_pane.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QTest>

namespace tsl::test {

inline void select(codeEditor& doc, int start, int length) {
    doc.codebox().setSelStart(start);
    doc.codebox().setSelLength(length);
}

// A loaded shell whose document has the text and a history restarted from it, as a freshly
// opened file has it: one step, Undo and Redo off, the markup flags clear.
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

// Presses a key in the Source pane and answers the key code the handler left.
inline int keyDown(codeEditor& doc, int keyCode, int shift) {
    doc.codebox_KeyDown(keyCode, shift);
    return keyCode;
}

} // namespace tsl::test
