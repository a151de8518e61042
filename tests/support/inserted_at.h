#pragma once
// Where an insert at the caret leaves a text, for the tests of every command that inserts.
#include <QString>

namespace tsl::test {

// A text with `markup` put in at `caret`.
inline QString insertedAt(const QString& before, int caret, const QString& markup) {
    return before.left(caret) + markup + before.mid(caret);
}

} // namespace tsl::test
