#include "ui/source/text_moves.h"
#include <QTextLayout>
#include <algorithm>

namespace tsl::moves {

namespace {
constexpr char16_t kReturnPicture = 0x240D;
// How far a word move looks each way; a character move needs far less.
constexpr int kWordReach = 4096;
constexpr int kCharacterReach = 64;

struct Window {
    int from;
    int to;
};

// The part of the position's paragraph around it, at most `reach` characters each way.
Window around(const QString& text, int position, int reach) {
    int from = position;
    const int low = std::max(0, position - reach);
    while (from > low && !isParagraphEnd(text.at(from - 1).unicode()))
        --from;
    int to = position;
    const int high = std::min(static_cast<int>(text.size()), position + reach);
    while (to < high && !isParagraphEnd(text.at(to).unicode()))
        ++to;
    return {from, to};
}

bool paragraphStartsAt(const QString& text, int position) {
    return position == 0 || isParagraphEnd(text.at(position - 1).unicode());
}

bool paragraphEndsAt(const QString& text, int position) {
    return position == text.size() || isParagraphEnd(text.at(position).unicode());
}

// One step forward within the paragraph, by the text layout's own rules.
int forward(const QString& text, int position, int reach, QTextLayout::CursorMode mode) {
    int at = position;
    for (;;) {
        const Window window = around(text, at, reach);
        QTextLayout layout(shown(QStringView(text).mid(window.from, window.to - window.from)));
        const int next = window.from + layout.nextCursorPosition(at - window.from, mode);
        // A window that ended inside the paragraph may have cut the step short.
        if (next < window.to || next == at || paragraphEndsAt(text, window.to)) return next;
        at = next;
    }
}

int backward(const QString& text, int position, int reach, QTextLayout::CursorMode mode) {
    int at = position;
    for (;;) {
        const Window window = around(text, at, reach);
        QTextLayout layout(shown(QStringView(text).mid(window.from, window.to - window.from)));
        const int previous = window.from + layout.previousCursorPosition(at - window.from, mode);
        if (previous > window.from || previous == at || paragraphStartsAt(text, window.from))
            return previous;
        at = previous;
    }
}

// The punctuation at which a word ends, as text layouts count it.
bool isWordSeparator(QChar c) {
    switch (c.unicode()) {
    case '.':
    case ',':
    case '?':
    case '!':
    case '@':
    case '#':
    case '$':
    case ':':
    case ';':
    case '-':
    case '<':
    case '>':
    case '[':
    case ']':
    case '(':
    case ')':
    case '{':
    case '}':
    case '=':
    case '/':
    case '+':
    case '%':
    case '&':
    case '^':
    case '*':
    case '\'':
    case '"':
    case '`':
    case '~':
    case '|':
    case '\\':
        return true;
    default:
        return false;
    }
}

bool isSpaceShown(QChar c) {
    return c != u'\r' && c.isSpace();
}
} // namespace

QString shown(QStringView text) {
    QString result = text.toString();
    result.replace(QLatin1Char('\r'), QChar(kReturnPicture));
    return result;
}

int nextCharacter(const QString& text, int position) {
    if (position >= text.size()) return static_cast<int>(text.size());
    if (paragraphEndsAt(text, position)) return position + 1;
    return forward(text, position, kCharacterReach, QTextLayout::SkipCharacters);
}

int previousCharacter(const QString& text, int position) {
    if (position <= 0) return 0;
    if (paragraphStartsAt(text, position)) return position - 1;
    return backward(text, position, kCharacterReach, QTextLayout::SkipCharacters);
}

int nextWord(const QString& text, int position) {
    if (position >= text.size()) return static_cast<int>(text.size());
    if (paragraphEndsAt(text, position)) return position + 1;
    return forward(text, position, kWordReach, QTextLayout::SkipWords);
}

int previousWord(const QString& text, int position) {
    if (position <= 0) return 0;
    if (paragraphStartsAt(text, position)) return position - 1;
    return backward(text, position, kWordReach, QTextLayout::SkipWords);
}

Range wordAt(const QString& text, int position) {
    // The start: the word the position stands in, or the one before the spaces it stands in.
    int start = position;
    if (!paragraphStartsAt(text, position)) {
        const bool atEnd = paragraphEndsAt(text, position);
        const QChar before = text.at(position - 1);
        if (!(atEnd && (isSpaceShown(before) || isWordSeparator(before))))
            start = previousWord(text, atEnd ? position : position + 1);
    }
    // The end: past the word, or the run of punctuation, that starts there.
    int end = start;
    if (end < text.size() && !paragraphEndsAt(text, end)) {
        if (isWordSeparator(text.at(end))) {
            while (end < text.size() && !paragraphEndsAt(text, end) &&
                   isWordSeparator(text.at(end)))
                ++end;
        } else {
            while (end < text.size() && !paragraphEndsAt(text, end) &&
                   !isSpaceShown(text.at(end)) && !isWordSeparator(text.at(end)))
                ++end;
        }
    }
    return {start, end};
}

Range paragraphAt(const QString& text, int position) {
    int start = position;
    while (!paragraphStartsAt(text, start))
        --start;
    int end = position;
    while (!paragraphEndsAt(text, end))
        ++end;
    return {start, end};
}

} // namespace tsl::moves
