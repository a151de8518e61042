#pragma once
// The text of an undo slot. Neighbouring slots of a large page differ by an edit or two, so a
// slot is kept as pieces: runs of whole texts other slots hold too (shared, not copied) and the
// few characters its edits put in. Twenty-five steps on a 10 MB page then cost about one copy
// of it, not twenty-five.
#include <QString>
#include <QStringView>
#include <vector>

namespace tsl {

class StepText {
  public:
    StepText() = default;
    // A whole text, shared with the string it came from.
    StepText(const QString& whole); // NOLINT: a slot is assigned a text as it stands
    StepText& operator=(const QString& whole);

    // `text`, kept as the pieces of `reference` it has in common with it at both ends and what
    // lies between; whole when that would not be much smaller.
    void assign(const QString& text, const StepText& reference);

    // The text itself: the shared whole, or made up from the pieces.
    QString toString() const;
    operator QString() const { return toString(); } // NOLINT

    qsizetype size() const { return size_; }
    bool isEmpty() const { return size_ == 0; }
    bool isWhole() const;
    // Characters of the pieces that are not from `whole`: what this slot costs beyond it.
    qsizetype charactersBeyond(const QString& whole) const;

    bool operator==(const StepText& other) const;
    bool operator!=(const StepText& other) const { return !(*this == other); }
    bool operator==(const QString& text) const;
    bool operator!=(const QString& text) const { return !(*this == text); }

    struct Piece {
        QString source; // shared, never changed
        qsizetype from = 0;
        qsizetype length = 0;
        QStringView view() const { return QStringView(source).sliced(from, length); }
    };
    const std::vector<Piece>& pieces() const { return pieces_; }

  private:
    std::vector<Piece> pieces_;
    qsizetype size_ = 0;
};

inline bool operator==(const QString& text, const StepText& step) {
    return step == text;
}
inline bool operator!=(const QString& text, const StepText& step) {
    return step != text;
}

} // namespace tsl
