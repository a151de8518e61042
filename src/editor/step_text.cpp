#include "editor/step_text.h"
#include <algorithm>
#include <cstring>

namespace tsl {

namespace {
using Piece = StepText::Piece;

// Below this a text is simply shared whole: pieces would save next to nothing.
constexpr qsizetype kSmallText = qsizetype(64) * 1024;
// A text in more pieces than this is kept whole again, which bounds every walk over them.
constexpr size_t kMostPieces = 256;
constexpr qsizetype kBlock = 4096;

bool same(QStringView a, QStringView b) {
    return a.size() == b.size() && (a.data() == b.data() || a == b);
}

bool sameBlock(const QChar* a, const QChar* b) {
    return a == b || std::memcmp(a, b, kBlock * sizeof(QChar)) == 0;
}

// Characters two texts of the same length have in common at their start, a block at a time.
qsizetype commonStart(QStringView a, QStringView b) {
    qsizetype at = 0;
    while (at + kBlock <= a.size() && sameBlock(a.data() + at, b.data() + at))
        at += kBlock;
    while (at < a.size() && a[at] == b[at])
        ++at;
    return at;
}

// The same at their end.
qsizetype commonEnd(QStringView a, QStringView b) {
    const qsizetype size = a.size();
    qsizetype n = 0;
    while (n + kBlock <= size &&
           sameBlock(a.data() + size - n - kBlock, b.data() + size - n - kBlock))
        n += kBlock;
    while (n < size && a[size - 1 - n] == b[size - 1 - n])
        ++n;
    return n;
}

// Characters `text` has in common with the pieces at its start.
qsizetype prefixWith(const std::vector<Piece>& pieces, QStringView text) {
    qsizetype at = 0;
    for (const Piece& piece : pieces) {
        const QStringView view = piece.view();
        const qsizetype n = std::min(view.size(), text.size() - at);
        const qsizetype common = commonStart(view.first(n), text.sliced(at, n));
        at += common;
        if (common < view.size()) break;
    }
    return at;
}

// Characters `text` has in common with the pieces at its end, `limit` at the most.
qsizetype suffixWith(const std::vector<Piece>& pieces, QStringView text, qsizetype limit) {
    qsizetype n = 0;
    for (auto it = pieces.rbegin(); it != pieces.rend(); ++it) {
        const QStringView view = it->view();
        const qsizetype room = std::min(view.size(), limit - n);
        const qsizetype common = commonEnd(view.last(room), text.first(text.size() - n).last(room));
        n += common;
        if (common < view.size()) break;
    }
    return n;
}

// The pieces that make up characters `from` to `to` of `in`.
void appendRange(std::vector<Piece>& out, const std::vector<Piece>& in, qsizetype from,
                 qsizetype to) {
    qsizetype at = 0;
    for (const Piece& piece : in) {
        if (at >= to) break;
        const qsizetype start = std::max(from, at);
        const qsizetype end = std::min(to, at + piece.length);
        if (start < end) out.push_back({piece.source, piece.from + (start - at), end - start});
        at += piece.length;
    }
}

// Whether two texts in pieces are the same characters, where the pieces part aside.
template <typename A, typename B> bool samePieces(const A& a, const B& b) {
    auto i = a.begin();
    auto j = b.begin();
    qsizetype atA = 0;
    qsizetype atB = 0;
    while (true) {
        for (; i != a.end() && atA == i->size(); ++i)
            atA = 0;
        for (; j != b.end() && atB == j->size(); ++j)
            atB = 0;
        if (i == a.end() || j == b.end()) return i == a.end() && j == b.end();
        const qsizetype n = std::min(i->size() - atA, j->size() - atB);
        if (!same(i->sliced(atA, n), j->sliced(atB, n))) return false;
        atA += n;
        atB += n;
    }
}

std::vector<QStringView> views(const std::vector<Piece>& pieces) {
    std::vector<QStringView> out;
    out.reserve(pieces.size());
    for (const Piece& piece : pieces)
        out.push_back(piece.view());
    return out;
}
} // namespace

StepText::StepText(const QString& whole) {
    *this = whole;
}

StepText& StepText::operator=(const QString& whole) {
    pieces_.clear();
    if (!whole.isEmpty()) pieces_.push_back({whole, 0, whole.size()});
    size_ = whole.size();
    return *this;
}

void StepText::assign(const QString& text, const StepText& reference) {
    if (text.size() < kSmallText || reference.size_ < kSmallText) {
        *this = text;
        return;
    }
    const std::vector<Piece>& old = reference.pieces_;
    const qsizetype prefix = prefixWith(old, text);
    const qsizetype suffix = suffixWith(old, text, std::min(reference.size_, text.size()) - prefix);
    const qsizetype middle = text.size() - prefix - suffix;
    // More than a quarter new is kept whole, and the next steps lean on it.
    if (middle > text.size() / 4) {
        *this = text;
        return;
    }
    std::vector<Piece> pieces;
    appendRange(pieces, old, 0, prefix);
    if (middle > 0) pieces.push_back({QString(text.constData() + prefix, middle), 0, middle});
    appendRange(pieces, old, reference.size_ - suffix, reference.size_);
    if (pieces.size() > kMostPieces) {
        *this = text;
        return;
    }
    pieces_ = std::move(pieces);
    size_ = text.size();
}

bool StepText::isWhole() const {
    return pieces_.empty() ||
           (pieces_.size() == 1 && pieces_.front().length == pieces_.front().source.size());
}

qsizetype StepText::charactersBeyond(const QString& whole) const {
    qsizetype n = 0;
    for (const Piece& piece : pieces_)
        if (piece.source.constData() != whole.constData()) n += piece.length;
    return n;
}

QString StepText::toString() const {
    if (pieces_.empty()) return QString();
    if (isWhole()) return pieces_.front().source;
    QString text;
    text.reserve(size_);
    for (const Piece& piece : pieces_)
        text.append(piece.view());
    return text;
}

bool StepText::operator==(const StepText& other) const {
    return size_ == other.size_ && samePieces(views(pieces_), views(other.pieces_));
}

bool StepText::operator==(const QString& text) const {
    return size_ == text.size() && samePieces(views(pieces_), std::vector<QStringView>{text});
}

} // namespace tsl
