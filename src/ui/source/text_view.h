#pragma once
// A plain text editor that shows a text it does not own. The text stays where its owner keeps
// it and is never copied: the view paints straight from it, keeps the start of each row
// (TextRows) and lays out only the rows on screen, in a small cache. Edits the user makes go to
// the owner (replaceByUser), who changes the text and tells the view (textReplaced). Positions
// are indices into the text. The caret does not blink and nothing repaints on a timer.
//
// Scrolling: the vertical scroll bar counts rows (a line, or a cut of a very long line), and a
// row taller than one line (a wrapped line) scrolls within itself by pixels; the largest value
// is found from the last screenful alone. Everything stays linear in the rows on screen.
// Internal to the Source pane; the window reaches the editor through QtSourcePane.
#include "ui/source/text_moves.h"
#include "ui/source/text_rows.h"
#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QTextLayout>
#include <memory>
#include <vector>

class QMimeData;

namespace tsl {

class TextView : public QAbstractScrollArea {
    Q_OBJECT
  public:
    explicit TextView(QWidget* parent = nullptr);
    ~TextView() override;

    // The text shown. Its owner reports every change to it.
    void setSource(const QString* text);
    const QString& text() const { return *text_; }
    // All of the text changed: the caret goes to its start, the view to its top.
    void textReset();
    // text[start, start + removed) became `added` characters.
    void textReplaced(int start, int removed, int added);

    int position() const { return position_; }
    int anchor() const { return anchor_; }
    int selectionStart() const { return std::min(anchor_, position_); }
    int selectionEnd() const { return std::max(anchor_, position_); }
    bool hasSelection() const { return anchor_ != position_; }
    // Selects from anchor to position (clamped to the text), brings the caret into sight and
    // reports the move.
    void setSelection(int anchor, int position);
    // The same without the report, for an owner that reports after its own work.
    void placeCaret(int anchor, int position);
    // Reports a move of the caret or selection made since the last report, if there was one.
    void reportSelection();

    // Wrapped at the view's edge, or one row for each line with horizontal scrolling.
    void setWrapping(bool on);
    bool wraps() const { return wraps_; }
    // Pixels around the text.
    void setMargin(int pixels);
    int margin() const { return margin_; }

    // Scrolls a position into sight; the caret stays where it is.
    void reveal(int position);
    // The caret's rectangle at a position, and the position at a point, in the viewport.
    QRect cursorRect(int position);
    int positionAt(const QPoint& point);

    void copy();
    void cut();
    void paste();
    void selectAll();
    // Text leaves and enters as the exact text: copy, cut, drag, drop and paste all come here.
    virtual QMimeData* createMimeDataFromSelection() const;
    virtual void insertFromMimeData(const QMimeData* source);

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    const TextRows& rows() const { return rows_; }
    // Rows laid out and kept for painting.
    int layoutsKept() const { return static_cast<int>(cache_.size()); }

  signals:
    // The caret or the selection moved, by a move or by an edit.
    void selectionMoved();

  protected:
    // The user replaces text[start, end) by `text`: the owner changes its text, reports it with
    // textReplaced and puts the caret behind what went in.
    virtual void replaceByUser(int start, int end, const QString& text) = 0;
    // One edit of the user's: the caret ends in sight.
    void edit(int start, int end, const QString& text);

    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    enum class Move {
        NextCharacter,
        PreviousCharacter,
        NextWord,
        PreviousWord,
        NextLine,
        PreviousLine,
        StartOfLine,
        EndOfLine,
        StartOfParagraph,
        EndOfParagraph,
        Start,
        End,
        NextPage,
        PreviousPage,
    };
    enum class Unit { Character, Word, Paragraph };
    struct Kept {
        int row;
        std::unique_ptr<QTextLayout> layout;
        quint64 used;
    };
    // A place in the rows: a row and pixels down from its top.
    struct Spot {
        int row;
        int y;
    };

    bool moveKey(QKeyEvent* event);
    bool editKey(QKeyEvent* event);
    void move(Move how, bool select);
    int lineMove(int position, int lines);
    int caretOffset(int row) const;
    Spot wholeLines(Spot spot);
    void setCaret(int anchor, int position, bool keepGoal = false);
    void ensureCaretVisible() { reveal(position_); }
    void toPrimarySelection();

    QTextLayout* layoutOf(int row);
    void forget(int fromRow, int toRow, int shift);
    void forgetAll();
    void repaintRows(int first, int last, bool toBottom);
    int rowHeight(int row);
    int lineSpacing() const { return lineSpacing_; }
    int lineWidth() const;
    int textLeft() const;
    int firstRowY() const;
    Spot back(Spot from, int pixels);
    int yOfRow(int row);
    void scrollBy(int pixels);
    void setTop(Spot top);
    void scrollFrom(Spot old);
    void clampTop();
    void updateBottom();
    void updateScrollBars();
    void updateMetrics();
    void extendSelection(const QPoint& point);
    void startDrag();
    moves::Range surrounding() const;

    const QString* text_;
    TextRows rows_;
    int anchor_ = 0;
    int position_ = 0;
    int reportedAnchor_ = -1;
    int reportedPosition_ = -1;
    int goalX_ = -1;
    bool wraps_ = true;
    int margin_ = 4;
    int lineSpacing_ = 1;
    int averageWidth_ = 1;
    qreal tabStop_ = 32;
    int widest_ = 0;
    // The top of the view, and the largest top the text allows.
    Spot top_{0, 0};
    Spot bottom_{0, 0};
    bool bottomKnown_ = false;
    int laidOutWidth_ = -1;
    int left_ = 0;
    bool syncing_ = false;
    std::vector<Kept> cache_;
    quint64 uses_ = 0;
    int keptCharacters_ = 0;
    // The mouse: selecting by units from the first unit pressed, a drag of the selection about
    // to start, and the time of the last double click (a third click selects the paragraph).
    bool selecting_ = false;
    Unit unit_ = Unit::Character;
    int unitStart_ = 0;
    int unitEnd_ = 0;
    bool dragPending_ = false;
    QPoint pressPoint_;
    QPoint doubleClickPoint_;
    ulong doubleClickTime_ = 0;
    bool doubleClicked_ = false;
    QPoint mousePoint_;
    QBasicTimer autoScroll_;
    int dropCaret_ = -1;
    // An input method's text being composed at the caret.
    QString preedit_;
    int preeditCursor_ = 0;
    QList<QTextLayout::FormatRange> preeditFormats_;
};

} // namespace tsl
