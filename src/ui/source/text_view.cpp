#include "ui/source/text_view.h"
#include "ui/source/text_moves.h"
#include "ui/source/text_view_accessible.h"
#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QTextLayout>
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace tsl {

namespace {
// Rows laid out and kept: a screenful and the last screenful of a large window, with room;
// and their characters, which bound the memory the layouts take (some 40 bytes each).
constexpr size_t kKept = 300;
constexpr int kKeptCharacters = 256 * 1024;
// The width a row that does not wrap is laid out in.
constexpr qreal kNoWrapWidth = 1e6;

const QString& noText() {
    static const QString empty;
    return empty;
}
} // namespace

TextView::TextView(QWidget* parent) : QAbstractScrollArea(parent), text_(&noText()) {
    static const bool accessible = [] {
        QAccessible::installFactory(&textViewAccessible);
        return true;
    }();
    Q_UNUSED(accessible);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    viewport()->setAcceptDrops(true);
    setAcceptDrops(true);
    setAttribute(Qt::WA_InputMethodEnabled);
    setFocusPolicy(Qt::StrongFocus);
    updateMetrics();
}

TextView::~TextView() = default;

void TextView::setSource(const QString* text) {
    text_ = text ? text : &noText();
    textReset();
}

// ---- the text and the caret ----

void TextView::textReset() {
    rows_.reset(*text_);
    forgetAll();
    widest_ = 0;
    anchor_ = position_ = 0;
    goalX_ = -1;
    top_ = {0, 0};
    left_ = 0;
    dropCaret_ = -1;
    bottomKnown_ = false;
    updateScrollBars();
    viewport()->update();
}

void TextView::textReplaced(int start, int removed, int added) {
    const TextRows::Change change = rows_.replaced(*text_, start, removed, added);
    const int shift = change.newEnd - change.oldEnd;
    // What to repaint: the rows edited, or all below them when the rows below moved.
    constexpr int kFewRows = 8;
    bool below = shift != 0 || change.newEnd - change.first > kFewRows;
    int oldHeight = 0;
    if (wraps_ && !below) {
        for (int row = change.first; row < change.oldEnd && !below; ++row) {
            const auto kept = std::find_if(cache_.begin(), cache_.end(),
                                           [row](const Kept& k) { return k.row == row; });
            if (kept == cache_.end())
                below = true;
            else
                oldHeight += kept->layout->lineCount() * lineSpacing_;
        }
    }
    forget(change.first, change.oldEnd, shift);
    if (wraps_ && !below) {
        int newHeight = 0;
        for (int row = change.first; row < change.newEnd; ++row)
            newHeight += rowHeight(row);
        below = newHeight != oldHeight;
    }
    const Spot top = top_;
    // Positions behind the edit move with their text; those in what went away go to its start.
    const auto follow = [&](int p) {
        if (p < start) return p;
        if (p >= start + removed) return p + added - removed;
        return start;
    };
    anchor_ = follow(anchor_);
    position_ = follow(position_);
    dropCaret_ = -1;
    goalX_ = -1;
    if (top_.row >= change.oldEnd)
        top_.row += shift;
    else if (top_.row >= change.first)
        top_.row = std::max(change.first, std::min(top_.row, change.newEnd - 1));
    bottomKnown_ = false;
    clampTop();
    updateScrollBars();
    if (top_.row != top.row || top_.y != top.y)
        viewport()->update();
    else
        repaintRows(change.first, change.newEnd - 1, below);
}

void TextView::setCaret(int anchor, int position, bool keepGoal) {
    const int length = static_cast<int>(text_->size());
    anchor = std::clamp(anchor, 0, length);
    position = std::clamp(position, 0, length);
    if (!keepGoal) goalX_ = -1;
    if (anchor == anchor_ && position == position_) return;
    if (!preedit_.isEmpty()) {
        const int row = rows_.rowOf(position_);
        forget(row, row + 1, 0);
    }
    const int oldAnchor = anchor_;
    const int oldPosition = position_;
    anchor_ = anchor;
    position_ = position;
    if (!preedit_.isEmpty()) {
        const int row = rows_.rowOf(position_);
        forget(row, row + 1, 0);
        viewport()->update();
        return;
    }
    // The rows of both carets, and those where the selection grew or shrank.
    const auto repaint = [this](int a, int b) {
        repaintRows(rows_.rowOf(std::min(a, b)), rows_.rowOf(std::max(a, b)), false);
    };
    repaint(oldPosition, oldPosition);
    repaint(position_, position_);
    if (oldAnchor != oldPosition || anchor_ != position_) {
        repaint(std::min(oldAnchor, oldPosition), selectionStart());
        repaint(std::max(oldAnchor, oldPosition), selectionEnd());
    }
}

// Repaints rows `first` to `last`, or from `first` to the bottom of the view.
void TextView::repaintRows(int first, int last, bool toBottom) {
    const int height = viewport()->height();
    if (!toBottom && last < top_.row) return;
    const int top = first <= top_.row ? 0 : yOfRow(first);
    if (top >= height) return;
    const int bottom = toBottom ? height : std::min(height, yOfRow(last) + rowHeight(last));
    if (bottom > top) viewport()->update(QRect(0, top, viewport()->width(), bottom - top));
}

void TextView::placeCaret(int anchor, int position) {
    setCaret(anchor, position);
    ensureCaretVisible();
}

void TextView::setSelection(int anchor, int position) {
    placeCaret(anchor, position);
    reportSelection();
}

void TextView::reportSelection() {
    if (anchor_ == reportedAnchor_ && position_ == reportedPosition_) return;
    reportedAnchor_ = anchor_;
    reportedPosition_ = position_;
    if (hasFocus()) QGuiApplication::inputMethod()->update(Qt::ImQueryInput);
    emit selectionMoved();
}

void TextView::edit(int start, int end, const QString& text) {
    if (start == end && text.isEmpty()) return;
    replaceByUser(start, end, text);
    ensureCaretVisible();
    reportSelection();
}

// ---- copy and paste ----

QMimeData* TextView::createMimeDataFromSelection() const {
    auto* mime = new QMimeData;
    mime->setText(text_->mid(selectionStart(), selectionEnd() - selectionStart()));
    return mime;
}

void TextView::insertFromMimeData(const QMimeData* source) {
    if (source && source->hasText()) edit(selectionStart(), selectionEnd(), source->text());
}

void TextView::copy() {
    if (hasSelection()) QGuiApplication::clipboard()->setMimeData(createMimeDataFromSelection());
}

void TextView::cut() {
    if (!hasSelection()) return;
    copy();
    edit(selectionStart(), selectionEnd(), QString());
}

void TextView::paste() {
    insertFromMimeData(QGuiApplication::clipboard()->mimeData());
}

void TextView::selectAll() {
    setCaret(0, static_cast<int>(text_->size()));
    toPrimarySelection();
    reportSelection();
}

void TextView::toPrimarySelection() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (hasSelection() && clipboard->supportsSelection())
        clipboard->setMimeData(createMimeDataFromSelection(), QClipboard::Selection);
}

// ---- settings ----

void TextView::setWrapping(bool on) {
    if (wraps_ == on) return;
    wraps_ = on;
    forgetAll();
    widest_ = 0;
    left_ = 0;
    top_.y = 0;
    bottomKnown_ = false;
    clampTop();
    updateScrollBars();
    viewport()->update();
}

void TextView::setMargin(int pixels) {
    if (margin_ == pixels) return;
    margin_ = pixels;
    forgetAll();
    bottomKnown_ = false;
    clampTop();
    updateScrollBars();
    viewport()->update();
}

void TextView::updateMetrics() {
    const QFontMetricsF metrics(font());
    lineSpacing_ = std::max(1, qCeil(metrics.lineSpacing()));
    averageWidth_ = std::max(1, qCeil(metrics.horizontalAdvance(QLatin1Char('x'))));
    tabStop_ = 4 * metrics.horizontalAdvance(QLatin1Char(' '));
}

void TextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        updateMetrics();
        forgetAll();
        widest_ = 0;
        top_.y = 0;
        bottomKnown_ = false;
        clampTop();
        updateScrollBars();
        viewport()->update();
    }
}

void TextView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    // Wrapped rows are laid out again for a new width only.
    if (wraps_ && viewport()->width() != laidOutWidth_) forgetAll();
    laidOutWidth_ = viewport()->width();
    bottomKnown_ = false;
    clampTop();
    updateScrollBars();
}

// ---- rows laid out ----

int TextView::caretOffset(int row) const {
    return position_ - rows_.start(row) + (preedit_.isEmpty() ? 0 : preeditCursor_);
}

int TextView::lineWidth() const {
    if (!wraps_) return static_cast<int>(kNoWrapWidth);
    const int cursor = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    return std::max(averageWidth_, viewport()->width() - 2 * margin_ - cursor);
}

QTextLayout* TextView::layoutOf(int row) {
    for (Kept& kept : cache_) {
        if (kept.row == row) {
            kept.used = ++uses_;
            return kept.layout.get();
        }
    }
    const QString& text = *text_;
    const int start = rows_.start(row);
    const int end = rows_.end(row, text);
    auto layout = std::make_unique<QTextLayout>(
        moves::shown(QStringView(text).mid(start, end - start)), font());
    QTextOption option;
    option.setTabStopDistance(tabStop_);
    option.setWrapMode(wraps_ ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    if (!preedit_.isEmpty() && rows_.rowOf(position_) == row) {
        const int at = position_ - start;
        layout->setPreeditArea(at, preedit_);
        QList<QTextLayout::FormatRange> formats = preeditFormats_;
        for (QTextLayout::FormatRange& range : formats)
            range.start += at;
        layout->setFormats(formats);
    }
    const qreal width = lineWidth();
    layout->beginLayout();
    for (int y = 0;; y += lineSpacing_) {
        QTextLine line = layout->createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
    }
    layout->endLayout();
    if (!wraps_) {
        const int wide = qCeil(layout->maximumWidth());
        if (wide > widest_) {
            widest_ = wide;
            updateScrollBars();
        }
    }
    const int characters = static_cast<int>(layout->text().size());
    while (!cache_.empty() &&
           (cache_.size() >= kKept || keptCharacters_ + characters > kKeptCharacters)) {
        const auto oldest =
            std::min_element(cache_.begin(), cache_.end(),
                             [](const Kept& a, const Kept& b) { return a.used < b.used; });
        keptCharacters_ -= static_cast<int>(oldest->layout->text().size());
        cache_.erase(oldest);
    }
    keptCharacters_ += characters;
    cache_.push_back({row, std::move(layout), ++uses_});
    return cache_.back().layout.get();
}

// Drops the layouts of rows [fromRow, toRow) and renumbers those after them.
void TextView::forget(int fromRow, int toRow, int shift) {
    const auto gone = std::partition(cache_.begin(), cache_.end(), [&](const Kept& kept) {
        return kept.row < fromRow || kept.row >= toRow;
    });
    for (auto it = gone; it != cache_.end(); ++it)
        keptCharacters_ -= static_cast<int>(it->layout->text().size());
    cache_.erase(gone, cache_.end());
    if (shift == 0) return;
    for (Kept& kept : cache_)
        if (kept.row >= toRow) kept.row += shift;
}

void TextView::forgetAll() {
    cache_.clear();
    keptCharacters_ = 0;
}

int TextView::rowHeight(int row) {
    return wraps_ ? layoutOf(row)->lineCount() * lineSpacing_ : lineSpacing_;
}

// ---- painting ----

int TextView::textLeft() const {
    return margin_ - left_;
}

int TextView::firstRowY() const {
    return (top_.row == 0 ? margin_ : 0) - top_.y;
}

void TextView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QRect area = event->rect();
    const QString& text = *text_;
    const bool focused = hasFocus();
    const QPalette::ColorGroup group = focused ? QPalette::Active : QPalette::Inactive;
    QTextCharFormat selected;
    selected.setBackground(palette().brush(group, QPalette::Highlight));
    selected.setForeground(palette().brush(group, QPalette::HighlightedText));
    painter.setPen(palette().color(group, QPalette::Text));
    const int from = selectionStart();
    const int to = selectionEnd();
    const int caretRow = rows_.rowOf(position_);
    const int cursorWidth = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    const QPointF left(textLeft(), 0);
    int y = firstRowY();
    int row = top_.row;
    if (!wraps_ && area.top() > y) {
        // Rows of one line each: the first one to paint is found by arithmetic.
        const int skip = (area.top() - y) / lineSpacing_;
        row += skip;
        y += skip * lineSpacing_;
    }
    for (; row < rows_.count() && y <= area.bottom(); ++row) {
        QTextLayout* layout = layoutOf(row);
        const int rowPixels = layout->lineCount() * lineSpacing_;
        if (y + rowPixels > area.top()) {
            const QPointF at = left + QPointF(0, y);
            const int start = rows_.start(row);
            const int end = rows_.end(row, text);
            QList<QTextLayout::FormatRange> selections;
            const bool composing = !preedit_.isEmpty() && row == caretRow;
            if (from < to && from <= end && to >= start && !composing) {
                const int a = std::max(from, start) - start;
                const int b = std::min(to, end) - start;
                if (b > a) selections.append({a, b - a, selected});
                // A selected line break shows as a little selection behind the line.
                if (to > end && end < rows_.next(row)) {
                    const QTextLine last = layout->lineAt(layout->lineCount() - 1);
                    painter.fillRect(QRectF(at.x() + last.naturalTextWidth(), at.y() + last.y(),
                                            averageWidth_, lineSpacing_),
                                     selected.background());
                }
            }
            layout->draw(&painter, at, selections, area);
            if (focused && row == caretRow && dropCaret_ < 0)
                layout->drawCursor(&painter, at, caretOffset(row), cursorWidth);
            if (dropCaret_ >= 0 && rows_.rowOf(dropCaret_) == row)
                layout->drawCursor(&painter, at, dropCaret_ - start, cursorWidth);
        }
        y += rowPixels;
    }
}

// ---- where things are ----

int TextView::yOfRow(int row) {
    const int height = viewport()->height();
    int y = firstRowY();
    if (row >= top_.row) {
        if (!wraps_) return y + (row - top_.row) * lineSpacing_;
        for (int r = top_.row; r < row; ++r) {
            y += rowHeight(r);
            if (y > 2 * height) return y + (row - r - 1) * lineSpacing_; // far below: near enough
        }
        return y;
    }
    y = -top_.y;
    if (!wraps_) return y - (top_.row - row) * lineSpacing_;
    for (int r = top_.row - 1; r >= row; --r) {
        y -= rowHeight(r);
        if (y < -2 * height) return y - (r - row) * lineSpacing_;
    }
    return y;
}

QRect TextView::cursorRect(int position) {
    position = std::clamp(position, 0, static_cast<int>(text_->size()));
    const int row = rows_.rowOf(position);
    const int y = yOfRow(row);
    QTextLayout* layout = layoutOf(row);
    int offset = position - rows_.start(row);
    if (position == position_) offset = caretOffset(row);
    QTextLine line = layout->lineForTextPosition(offset);
    if (!line.isValid()) line = layout->lineAt(layout->lineCount() - 1);
    const int cursorWidth = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    return QRect(textLeft() + qRound(line.cursorToX(offset)), y + qRound(line.y()),
                 std::max(1, cursorWidth), lineSpacing_);
}

int TextView::positionAt(const QPoint& point) {
    int row = top_.row;
    int y = firstRowY();
    if (point.y() < y) {
        while (row > 0 && point.y() < y) {
            --row;
            y -= rowHeight(row);
        }
    } else {
        while (row + 1 < rows_.count() && point.y() >= y + rowHeight(row)) {
            y += rowHeight(row);
            ++row;
        }
    }
    QTextLayout* layout = layoutOf(row);
    const int index = std::clamp((point.y() - y) / lineSpacing_, 0, layout->lineCount() - 1);
    int offset = layout->lineAt(index).xToCursor(point.x() - textLeft());
    if (!preedit_.isEmpty() && row == rows_.rowOf(position_)) {
        const int at = position_ - rows_.start(row);
        if (offset > at) offset = std::max(at, offset - static_cast<int>(preedit_.size()));
    }
    return std::min(rows_.start(row) + offset, rows_.end(row, *text_));
}

// ---- scrolling ----

// The spot `pixels` above a spot.
TextView::Spot TextView::back(Spot from, int pixels) {
    int row = from.row;
    int y = from.y - pixels;
    while (y < 0 && row > 0) {
        --row;
        y += rowHeight(row);
    }
    return {row, std::max(0, y)};
}

// A top that shows its first line whole.
TextView::Spot TextView::wholeLines(Spot spot) {
    if (spot.y % lineSpacing_ == 0) return spot;
    spot.y = (spot.y / lineSpacing_ + 1) * lineSpacing_;
    if (spot.y >= rowHeight(spot.row) && spot.row + 1 < rows_.count()) return {spot.row + 1, 0};
    return spot;
}

void TextView::updateBottom() {
    bottomKnown_ = true;
    const int height = std::max(lineSpacing_, viewport()->height() - margin_);
    const int last = rows_.count() - 1;
    if (!wraps_) {
        bottom_ = {std::max(0, rows_.count() - height / lineSpacing_), 0};
        return;
    }
    bottom_ = wholeLines(back({last, rowHeight(last)}, height));
}

void TextView::clampTop() {
    if (!bottomKnown_) updateBottom();
    top_.row = std::clamp(top_.row, 0, std::max(0, rows_.count() - 1));
    if (top_.row > bottom_.row || (top_.row == bottom_.row && top_.y > bottom_.y)) top_ = bottom_;
    if (wraps_) {
        const int height = rowHeight(top_.row);
        if (top_.y >= height) top_.y = std::max(0, height - lineSpacing_);
    }
    top_.y = std::max(0, wraps_ ? top_.y : 0);
}

void TextView::setTop(Spot top) {
    const Spot old = top_;
    top_ = top;
    clampTop();
    syncing_ = true;
    verticalScrollBar()->setValue(top_.row);
    syncing_ = false;
    scrollFrom(old);
}

// Moves what is on screen by as much as the top moved, so that only what comes into sight is
// painted.
void TextView::scrollFrom(Spot old) {
    if (old.row == top_.row && old.y == top_.y) return;
    // Each row is a line or more: a jump over more rows than fit is a page of its own.
    if (std::abs(top_.row - old.row) > viewport()->height() / lineSpacing_ + 1) {
        viewport()->update();
        return;
    }
    const Spot now = top_;
    top_ = old;
    const int shift = yOfRow(now.row) - ((now.row == 0 ? margin_ : 0) - now.y);
    top_ = now;
    if (std::abs(shift) < viewport()->height())
        viewport()->scroll(0, -shift);
    else
        viewport()->update();
}

void TextView::scrollBy(int pixels) {
    Spot top = top_;
    if (pixels < 0) {
        top = back(top, -pixels);
    } else {
        top.y += pixels;
        while (top.row + 1 < rows_.count() && top.y >= rowHeight(top.row)) {
            top.y -= rowHeight(top.row);
            ++top.row;
        }
    }
    setTop(top);
}

void TextView::updateScrollBars() {
    if (!bottomKnown_) updateBottom();
    syncing_ = true;
    QScrollBar* vertical = verticalScrollBar();
    vertical->setRange(0, bottom_.row);
    vertical->setPageStep(std::max(1, viewport()->height() / lineSpacing_));
    vertical->setSingleStep(1);
    vertical->setValue(top_.row);
    QScrollBar* horizontal = horizontalScrollBar();
    if (wraps_) {
        horizontal->setRange(0, 0);
        left_ = 0;
    } else {
        const int cursorWidth = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
        const int content = widest_ + 2 * margin_ + cursorWidth;
        horizontal->setRange(0, std::max(0, content - viewport()->width()));
        horizontal->setPageStep(viewport()->width());
        horizontal->setSingleStep(2 * averageWidth_);
        horizontal->setValue(left_);
        left_ = horizontal->value();
    }
    syncing_ = false;
}

void TextView::scrollContentsBy(int dx, int dy) {
    if (syncing_) return;
    const Spot old = top_;
    if (dy != 0) {
        // The end of the bar shows the end of the text, however tall its last row.
        const QScrollBar* bar = verticalScrollBar();
        if (!bottomKnown_) updateBottom();
        top_ = bar->value() == bar->maximum() ? bottom_ : Spot{bar->value(), 0};
        clampTop();
    }
    if (dx != 0) {
        left_ = horizontalScrollBar()->value();
        viewport()->scroll(dx, 0);
    }
    scrollFrom(old);
}

void TextView::reveal(int position) {
    position = std::clamp(position, 0, static_cast<int>(text_->size()));
    const int row = rows_.rowOf(position);
    const int offset = position == position_ ? caretOffset(row) : position - rows_.start(row);
    int lineTop = 0;
    int x = 0;
    {
        QTextLayout* layout = layoutOf(row);
        QTextLine line = layout->lineForTextPosition(offset);
        if (!line.isValid()) line = layout->lineAt(layout->lineCount() - 1);
        lineTop = qRound(line.y());
        x = qRound(line.cursorToX(offset));
    }
    const int height = viewport()->height();
    if (row < top_.row || (row == top_.row && lineTop < top_.y)) {
        setTop({row, lineTop});
    } else {
        // How far the bottom of the caret's line is below the top of the view.
        int below = INT_MAX;
        if (!wraps_) {
            below = firstRowY() + (row - top_.row) * lineSpacing_ + lineSpacing_;
        } else if (row - top_.row <= height / lineSpacing_ + 1) {
            below = firstRowY() + lineTop + lineSpacing_;
            for (int r = top_.row; r < row && below <= height; ++r)
                below += rowHeight(r);
        }
        if (below > height) setTop(wholeLines(back({row, lineTop + lineSpacing_}, height)));
    }
    if (wraps_) return;
    const int width = viewport()->width();
    const int cursorWidth = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    int left = left_;
    if (x < left)
        left = std::max(0, x - width / 4);
    else if (x + cursorWidth + 2 * margin_ > left + width)
        left = x + cursorWidth + 2 * margin_ - width + width / 4;
    if (left != left_) {
        left_ = left;
        updateScrollBars();
        viewport()->update();
    }
}

} // namespace tsl
