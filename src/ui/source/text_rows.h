#pragma once
// The rows of a text as the Source pane shows them. A row ends after a line break; a line longer
// than kMaxRow characters is cut into rows of its own, so that painting a screenful never lays
// out more than a few thousand characters however long the line. The index keeps the start of
// each row and nothing else, and follows an edit in time proportional to the characters edited
// plus the number of rows; the text itself stays with its owner.
// Internal to the Source pane.
#include <QString>
#include <vector>

namespace tsl {

class TextRows {
  public:
    // Long enough that hand-written lines show whole, short enough that a screenful of such
    // rows is laid out in tens of milliseconds at the worst (a giant line, not wrapped).
    static constexpr int kMaxRow = 8192;

    // Characters after which a new row starts: the line feed, the line and paragraph separators
    // and the two noncharacters that mark frames. A carriage return is not one of them.
    static bool isBreak(char16_t c) {
        return c == u'\n' ||
               (c >= 0x2028 && (c == 0x2028 || c == 0x2029 || c == 0xFDD0 || c == 0xFDD1));
    }

    // The rows of a whole text.
    void reset(const QString& text);
    // After text[start, start + removed) was replaced by `added` characters (text is the new
    // text): answers the rows [first, oldEnd) that became the rows [first, newEnd).
    struct Change {
        int first;
        int oldEnd;
        int newEnd;
    };
    Change replaced(const QString& text, int start, int removed, int added);

    int count() const { return static_cast<int>(starts_.size()); }
    int start(int row) const { return starts_[static_cast<size_t>(row)]; }
    // Where the next row starts (the text's length after the last row).
    int next(int row) const { return row + 1 < count() ? start(row + 1) : length_; }
    // Where what the row shows ends: before its line break, if it has one.
    int end(int row, const QString& text) const {
        const int after = next(row);
        return after > start(row) && isBreak(text.at(after - 1).unicode()) ? after - 1 : after;
    }
    // The row a caret at `position` stands in: at a cut inside a long line, the later row.
    int rowOf(int position) const;
    int length() const { return length_; }
    const std::vector<int>& starts() const { return starts_; }

    // What is wrong with the rows of a text: empty when they are right. For tests.
    static QString check(const TextRows& rows, const QString& text);

  private:
    std::vector<int> starts_{0};
    int length_ = 0;
};

} // namespace tsl
