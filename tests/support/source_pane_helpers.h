#pragma once
// Shared by the Source pane's widget tests.
#include <QString>
#include <QTest>

namespace tsl::test {

// One row of a data table in one line: row("name", text, 1, 2).
template <typename... T> void row(const char* name, const T&... values) {
    (QTest::newRow(name) << ... << values);
}

// A position that does not split a surrogate pair.
inline int whole(const QString& text, int position) {
    if (position > 0 && position < text.size() && text.at(position).isLowSurrogate() &&
        text.at(position - 1).isHighSurrogate())
        return position - 1;
    return position;
}

} // namespace tsl::test
