#include "ui/source/text_rows.h"
#include <algorithm>

namespace tsl {

namespace {
// The rows of one line (with its break, if it has one) from `from` to `to`: one row, or for a
// long line as many rows of about equal length as it needs, never cutting a surrogate pair.
void appendLine(std::vector<int>& out, const QString& text, int from, int to) {
    out.push_back(from);
    const int length = to - from;
    if (length <= TextRows::kMaxRow) return;
    const int pieces = (length + TextRows::kMaxRow - 1) / TextRows::kMaxRow;
    for (int i = 1; i < pieces; ++i) {
        int at = from + static_cast<int>(static_cast<qint64>(length) * i / pieces);
        if (text.at(at).isLowSurrogate() && text.at(at - 1).isHighSurrogate()) --at;
        out.push_back(at);
    }
}

// The rows of text[from, to), where the rows after `to` (if any) are kept. A row that would be
// empty is left out unless it is the last (an empty text, or one ending in a line break, has an
// empty last row).
void appendRows(std::vector<int>& out, const QString& text, int from, int to, bool last) {
    const char16_t* chars = reinterpret_cast<const char16_t*>(text.constData());
    int line = from;
    for (int i = from; i < to; ++i) {
        if (TextRows::isBreak(chars[i])) {
            appendLine(out, text, line, i + 1);
            line = i + 1;
        }
    }
    if (line < to || last) appendLine(out, text, line, to);
}
} // namespace

void TextRows::reset(const QString& text) {
    starts_.clear();
    length_ = static_cast<int>(text.size());
    appendRows(starts_, text, 0, length_, true);
}

int TextRows::rowOf(int position) const {
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), position);
    return std::max(0, static_cast<int>(after - starts_.begin()) - 1);
}

TextRows::Change TextRows::replaced(const QString& text, int start, int removed, int added) {
    const int delta = added - removed;
    int first = rowOf(start);
    // Text put in at a cut inside a long line may belong to the row before it.
    if (first > 0 && this->start(first) == start && !isBreak(text.at(start - 1).unicode())) --first;
    const int last = rowOf(start + removed);
    const bool tail = last + 1 < count();
    const int oldTo = next(last);
    length_ += delta;
    std::vector<int> fresh;
    appendRows(fresh, text, this->start(first), tail ? oldTo + delta : length_, !tail);
    const auto from = starts_.begin() + first;
    const auto to = starts_.begin() + last + 1;
    for (auto it = to; it != starts_.end(); ++it)
        *it += delta;
    const auto kept = starts_.erase(from, to);
    starts_.insert(kept, fresh.begin(), fresh.end());
    return {first, last + 1, first + static_cast<int>(fresh.size())};
}

QString TextRows::check(const TextRows& rows, const QString& text) {
    if (rows.length() != text.size()) return QStringLiteral("length %1").arg(rows.length());
    if (rows.count() == 0 || rows.start(0) != 0) return QStringLiteral("no row at 0");
    for (int r = 0; r < rows.count(); ++r) {
        const int from = rows.start(r);
        const int to = rows.next(r);
        const QString where = QStringLiteral("row %1 [%2, %3): ").arg(r).arg(from).arg(to);
        if (to < from) return where + QStringLiteral("backwards");
        if (to == from &&
            (r + 1 < rows.count() || (from > 0 && !isBreak(text.at(from - 1).unicode()))))
            return where + QStringLiteral("empty");
        if (to - from > kMaxRow + 1) return where + QStringLiteral("too long");
        for (int i = from; i + 1 < to; ++i)
            if (isBreak(text.at(i).unicode())) return where + QStringLiteral("break inside");
        if (r + 1 < rows.count() && to > 0 && text.at(to - 1).isHighSurrogate() &&
            text.at(to).isLowSurrogate())
            return where + QStringLiteral("cuts a surrogate pair");
        if (r + 1 == rows.count() && to != text.size()) return where + QStringLiteral("short");
        if (r + 1 == rows.count() && to > from && isBreak(text.at(to - 1).unicode()))
            return where + QStringLiteral("no row after the last break");
    }
    return {};
}

} // namespace tsl
