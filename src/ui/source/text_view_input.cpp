// What the user does in a TextView: keys, the mouse, the wheel, drag and drop, input methods.
#include "ui/desktop/dropped_files.h"
#include "ui/source/text_moves.h"
#include "ui/source/text_view.h"
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStyleHints>
#include <QTextCharFormat>
#include <algorithm>

namespace tsl {

namespace {
// Keys that a text editor takes before any shortcut of the window.
bool isEditorKey(const QKeyEvent* key) {
    const Qt::KeyboardModifiers modifiers = key->modifiers();
    if (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier ||
        modifiers == Qt::KeypadModifier) {
        if (key->key() < Qt::Key_Escape) return true;
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Delete:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Backspace:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Tab:
            return true;
        default:
            return false;
        }
    }
    for (QKeySequence::StandardKey standard :
         {QKeySequence::Copy, QKeySequence::Paste, QKeySequence::Cut, QKeySequence::Redo,
          QKeySequence::Undo, QKeySequence::MoveToNextWord, QKeySequence::MoveToPreviousWord,
          QKeySequence::MoveToStartOfDocument, QKeySequence::MoveToEndOfDocument,
          QKeySequence::SelectNextWord, QKeySequence::SelectPreviousWord,
          QKeySequence::SelectStartOfLine, QKeySequence::SelectEndOfLine,
          QKeySequence::SelectStartOfBlock, QKeySequence::SelectEndOfBlock,
          QKeySequence::SelectStartOfDocument, QKeySequence::SelectEndOfDocument,
          QKeySequence::SelectAll})
        if (key->matches(standard)) return true;
    return false;
}

// Whether a key's text is typed into the text.
bool isTyped(const QKeyEvent* key) {
    const QString text = key->text();
    if (text.isEmpty()) return false;
    const QChar c = text.at(0);
    if (c.category() == QChar::Other_Format) return true;
    // Ctrl with a letter is a command; AltGr (Ctrl+Alt) types.
    const Qt::KeyboardModifiers modifiers = key->modifiers();
    if (modifiers == Qt::ControlModifier || modifiers == (Qt::ShiftModifier | Qt::ControlModifier))
        return false;
    if (c.isPrint() || c.category() == QChar::Other_PrivateUse) return true;
    if (c.isHighSurrogate() && text.size() > 1 && text.at(1).isLowSurrogate()) return true;
    return c == u'\t';
}
} // namespace

bool TextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isEditorKey(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

// Tab is typed into the text; it does not move the focus.
bool TextView::focusNextPrevChild(bool) {
    return false;
}

// ---- keys ----

void TextView::keyPressEvent(QKeyEvent* event) {
    if (moveKey(event) || editKey(event))
        event->accept();
    else
        event->ignore();
}

bool TextView::moveKey(QKeyEvent* event) {
    struct Binding {
        QKeySequence::StandardKey key;
        Move move;
        bool select;
    };
    static const Binding bindings[] = {
        {QKeySequence::MoveToNextChar, Move::NextCharacter, false},
        {QKeySequence::MoveToPreviousChar, Move::PreviousCharacter, false},
        {QKeySequence::MoveToNextWord, Move::NextWord, false},
        {QKeySequence::MoveToPreviousWord, Move::PreviousWord, false},
        {QKeySequence::MoveToNextLine, Move::NextLine, false},
        {QKeySequence::MoveToPreviousLine, Move::PreviousLine, false},
        {QKeySequence::MoveToStartOfLine, Move::StartOfLine, false},
        {QKeySequence::MoveToEndOfLine, Move::EndOfLine, false},
        {QKeySequence::MoveToStartOfBlock, Move::StartOfParagraph, false},
        {QKeySequence::MoveToEndOfBlock, Move::EndOfParagraph, false},
        {QKeySequence::MoveToStartOfDocument, Move::Start, false},
        {QKeySequence::MoveToEndOfDocument, Move::End, false},
        {QKeySequence::MoveToNextPage, Move::NextPage, false},
        {QKeySequence::MoveToPreviousPage, Move::PreviousPage, false},
        {QKeySequence::SelectNextChar, Move::NextCharacter, true},
        {QKeySequence::SelectPreviousChar, Move::PreviousCharacter, true},
        {QKeySequence::SelectNextWord, Move::NextWord, true},
        {QKeySequence::SelectPreviousWord, Move::PreviousWord, true},
        {QKeySequence::SelectNextLine, Move::NextLine, true},
        {QKeySequence::SelectPreviousLine, Move::PreviousLine, true},
        {QKeySequence::SelectStartOfLine, Move::StartOfLine, true},
        {QKeySequence::SelectEndOfLine, Move::EndOfLine, true},
        {QKeySequence::SelectStartOfBlock, Move::StartOfParagraph, true},
        {QKeySequence::SelectEndOfBlock, Move::EndOfParagraph, true},
        {QKeySequence::SelectStartOfDocument, Move::Start, true},
        {QKeySequence::SelectEndOfDocument, Move::End, true},
        {QKeySequence::SelectNextPage, Move::NextPage, true},
        {QKeySequence::SelectPreviousPage, Move::PreviousPage, true},
    };
    for (const Binding& binding : bindings) {
        if (event->matches(binding.key)) {
            move(binding.move, binding.select);
            return true;
        }
    }
    return false;
}

bool TextView::editKey(QKeyEvent* event) {
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return true;
    }
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (event->matches(QKeySequence::Cut)) {
        cut();
        return true;
    }
    if (event->matches(QKeySequence::Paste)) {
        paste();
        return true;
    }
    // The history belongs to the owner of the text.
    if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) return true;
    const QString& text = *text_;
    const int from = selectionStart();
    const int to = selectionEnd();
    if (event->key() == Qt::Key_Backspace && !(event->modifiers() & ~Qt::ShiftModifier)) {
        if (from != to) {
            edit(from, to, QString());
        } else if (from > 0) {
            // One character back; a surrogate pair goes whole.
            int at = from - 1;
            if (at > 0 && text.at(at).isLowSurrogate() && text.at(at - 1).isHighSurrogate()) --at;
            edit(at, from, QString());
        }
        return true;
    }
    if (event->matches(QKeySequence::Delete)) {
        edit(from, from == to ? moves::nextCharacter(text, from) : to, QString());
        return true;
    }
    if (event->matches(QKeySequence::DeleteStartOfWord)) {
        edit(from == to ? moves::previousWord(text, from) : from, to, QString());
        return true;
    }
    if (event->matches(QKeySequence::DeleteEndOfWord)) {
        edit(from, from == to ? moves::nextWord(text, from) : to, QString());
        return true;
    }
    if (event->matches(QKeySequence::DeleteEndOfLine)) {
        const moves::Range paragraph = moves::paragraphAt(text, position_);
        if (from != to)
            edit(from, to, QString());
        else
            edit(from, paragraph.end == from ? moves::nextCharacter(text, from) : paragraph.end,
                 QString());
        return true;
    }
    if (event->matches(QKeySequence::DeleteCompleteLine)) {
        const moves::Range first = moves::paragraphAt(text, from);
        const moves::Range last = moves::paragraphAt(text, to);
        edit(first.start, std::min(last.end + 1, static_cast<int>(text.size())), QString());
        return true;
    }
    const Qt::KeyboardModifiers modifiers =
        event->modifiers() & ~(Qt::ShiftModifier | Qt::ControlModifier | Qt::KeypadModifier);
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        modifiers == Qt::NoModifier) {
        edit(from, to, QStringLiteral("\n"));
        return true;
    }
    if (isTyped(event)) {
        edit(from, to, event->text());
        return true;
    }
    return false;
}

void TextView::move(Move how, bool select) {
    const QString& text = *text_;
    const int length = static_cast<int>(text.size());
    int to = position_;
    bool keepGoal = false;
    switch (how) {
    case Move::NextCharacter:
        to = !select && hasSelection() ? selectionEnd() : moves::nextCharacter(text, position_);
        break;
    case Move::PreviousCharacter:
        to = !select && hasSelection() ? selectionStart()
                                       : moves::previousCharacter(text, position_);
        break;
    case Move::NextWord:
        to = moves::nextWord(text, position_);
        break;
    case Move::PreviousWord:
        to = moves::previousWord(text, position_);
        break;
    case Move::NextLine:
    case Move::PreviousLine:
        to = lineMove(position_, how == Move::NextLine ? 1 : -1);
        keepGoal = true;
        break;
    case Move::StartOfLine:
    case Move::EndOfLine: {
        const int row = rows_.rowOf(position_);
        const int start = rows_.start(row);
        QTextLayout* layout = layoutOf(row);
        QTextLine line = layout->lineForTextPosition(position_ - start);
        if (!line.isValid()) line = layout->lineAt(layout->lineCount() - 1);
        if (how == Move::StartOfLine) {
            to = start + line.textStart();
        } else {
            to = start + line.textStart() + line.textLength();
            // A wrapped line ends before the space it was wrapped at.
            if (line.lineNumber() + 1 < layout->lineCount() && to > start &&
                text.at(to - 1).isSpace() && text.at(to - 1) != u'\r')
                --to;
            to = std::min(to, rows_.end(row, text));
        }
        break;
    }
    case Move::StartOfParagraph:
        to = moves::paragraphAt(text, position_).start;
        break;
    case Move::EndOfParagraph:
        to = moves::paragraphAt(text, position_).end;
        break;
    case Move::Start:
        to = 0;
        break;
    case Move::End:
        to = length;
        break;
    case Move::NextPage:
    case Move::PreviousPage: {
        const int lines = std::max(1, viewport()->height() / lineSpacing_);
        const int sign = how == Move::NextPage ? 1 : -1;
        to = lineMove(position_, sign * lines);
        keepGoal = true;
        scrollBy(sign * lines * lineSpacing_);
        break;
    }
    }
    setCaret(select ? anchor_ : to, to, keepGoal);
    ensureCaretVisible();
    if (select) toPrimarySelection();
    reportSelection();
}

// The position `lines` lines below (above, when negative) a position, as near as can be to the
// caret's column; the position itself when there is no such line.
int TextView::lineMove(int position, int lines) {
    int row = rows_.rowOf(position);
    QTextLayout* layout = layoutOf(row);
    const int offset = position - rows_.start(row);
    QTextLine line = layout->lineForTextPosition(offset);
    if (!line.isValid()) line = layout->lineAt(layout->lineCount() - 1);
    if (goalX_ < 0) goalX_ = qRound(line.cursorToX(offset));
    int index = line.lineNumber();
    const int step = lines > 0 ? 1 : -1;
    int moved = 0;
    for (; moved != lines; moved += step) {
        if (step > 0) {
            if (index + 1 < layout->lineCount()) {
                ++index;
            } else if (row + 1 < rows_.count()) {
                layout = layoutOf(++row);
                index = 0;
            } else {
                break;
            }
        } else {
            if (index > 0) {
                --index;
            } else if (row > 0) {
                layout = layoutOf(--row);
                index = layout->lineCount() - 1;
            } else {
                break;
            }
        }
    }
    if (moved == 0) return position;
    const int at = rows_.start(row) + layout->lineAt(index).xToCursor(goalX_);
    return std::min(at, rows_.end(row, *text_));
}

// ---- the mouse ----

void TextView::mousePressEvent(QMouseEvent* event) {
    // Other buttons act on their release, which must come here too.
    if (event->button() != Qt::LeftButton) return;
    const QPoint point = event->position().toPoint();
    const int at = positionAt(point);
    const QString& text = *text_;
    const bool third =
        doubleClicked_ &&
        event->timestamp() - doubleClickTime_ <
            static_cast<ulong>(QGuiApplication::styleHints()->mouseDoubleClickInterval()) &&
        (point - doubleClickPoint_).manhattanLength() < QApplication::startDragDistance();
    doubleClicked_ = false;
    dragPending_ = false;
    selecting_ = true;
    if (third) {
        // The whole paragraph with its end.
        const moves::Range paragraph = moves::paragraphAt(text, at);
        unit_ = Unit::Paragraph;
        unitStart_ = paragraph.start;
        unitEnd_ = std::min(paragraph.end + 1, static_cast<int>(text.size()));
        setCaret(unitStart_, unitEnd_);
    } else if (!(event->modifiers() & Qt::ShiftModifier) && hasSelection() &&
               at >= selectionStart() && at < selectionEnd()) {
        // Pressed on the selection: a drag may start, or the release puts the caret there.
        dragPending_ = true;
        selecting_ = false;
        pressPoint_ = point;
        return;
    } else {
        unit_ = Unit::Character;
        setCaret(event->modifiers() & Qt::ShiftModifier ? anchor_ : at, at);
    }
    ensureCaretVisible();
    reportSelection();
}

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint point = event->position().toPoint();
    const moves::Range word = moves::wordAt(*text_, positionAt(point));
    unit_ = Unit::Word;
    unitStart_ = word.start;
    unitEnd_ = word.end;
    selecting_ = true;
    dragPending_ = false;
    doubleClicked_ = true;
    doubleClickTime_ = event->timestamp();
    doubleClickPoint_ = point;
    setCaret(word.start, word.end);
    ensureCaretVisible();
    toPrimarySelection();
    reportSelection();
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (dragPending_) {
        if ((point - pressPoint_).manhattanLength() >= QApplication::startDragDistance()) {
            dragPending_ = false;
            startDrag();
        }
        return;
    }
    if (!selecting_ || !(event->buttons() & Qt::LeftButton)) return;
    mousePoint_ = point;
    extendSelection(point);
    // Beyond the edge the view goes on scrolling while the button is held.
    const bool outside = point.y() < 0 || point.y() >= viewport()->height() ||
                         (!wraps_ && (point.x() < 0 || point.x() >= viewport()->width()));
    if (outside && !autoScroll_.isActive())
        autoScroll_.start(50, this);
    else if (!outside)
        autoScroll_.stop();
}

void TextView::extendSelection(const QPoint& point) {
    const QString& text = *text_;
    const int at = positionAt(point);
    const int length = static_cast<int>(text.size());
    switch (unit_) {
    case Unit::Character:
        setCaret(anchor_, at);
        break;
    case Unit::Word: {
        const moves::Range word = moves::wordAt(text, at);
        if (at < unitStart_)
            setCaret(unitEnd_, word.start);
        else
            setCaret(unitStart_, std::max(word.end, unitEnd_));
        break;
    }
    case Unit::Paragraph: {
        const moves::Range paragraph = moves::paragraphAt(text, at);
        if (at < unitStart_)
            setCaret(unitEnd_, paragraph.start);
        else
            setCaret(unitStart_, std::max(std::min(paragraph.end + 1, length), unitEnd_));
        break;
    }
    }
    ensureCaretVisible();
    reportSelection();
}

void TextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != autoScroll_.timerId()) return QAbstractScrollArea::timerEvent(event);
    if (!selecting_ || !(QApplication::mouseButtons() & Qt::LeftButton)) {
        autoScroll_.stop();
        return;
    }
    extendSelection(mousePoint_);
}

void TextView::mouseReleaseEvent(QMouseEvent* event) {
    autoScroll_.stop();
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::LeftButton) {
        if (dragPending_) {
            dragPending_ = false;
            const int at = positionAt(point);
            setCaret(at, at);
            ensureCaretVisible();
            reportSelection();
        } else if (selecting_) {
            toPrimarySelection();
        }
        selecting_ = false;
        return;
    }
    if (event->button() == Qt::MiddleButton) {
        // The middle button pastes the selection of the desktop where it is pressed.
        QClipboard* clipboard = QGuiApplication::clipboard();
        if (!clipboard->supportsSelection()) return;
        const QMimeData* mime = clipboard->mimeData(QClipboard::Selection);
        if (!mime || !mime->hasText()) return;
        const int at = positionAt(point);
        setCaret(at, at);
        insertFromMimeData(mime);
    }
}

void TextView::wheelEvent(QWheelEvent* event) {
    const QPoint pixels = event->pixelDelta();
    const QPoint degrees = event->angleDelta();
    int down = 0;
    int right = 0;
    if (!pixels.isNull()) {
        down = -pixels.y();
        right = -pixels.x();
    } else {
        const int lines = QApplication::wheelScrollLines();
        down = -degrees.y() * lines * lineSpacing_ / 120;
        right = -degrees.x() * lines * averageWidth_ / 120;
    }
    if (down != 0) scrollBy(down);
    if (right != 0 && !wraps_)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + right);
    event->accept();
}

void TextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// ---- drag and drop ----

void TextView::startDrag() {
    selecting_ = false;
    auto* drag = new QDrag(this);
    drag->setMimeData(createMimeDataFromSelection());
    const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    // Text moved to another place takes itself away from here; a drop here moved it already.
    if (action == Qt::MoveAction && drag->target() != viewport() && drag->target() != this)
        edit(selectionStart(), selectionEnd(), QString());
}

void TextView::dragEnterEvent(QDragEnterEvent* event) {
    // Files go to the window, which opens them.
    if (!event->mimeData()->hasText() || !droppedFiles(event->mimeData()).isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    dropCaret_ = positionAt(event->position().toPoint());
    viewport()->update();
}

void TextView::dragMoveEvent(QDragMoveEvent* event) {
    if (!event->mimeData()->hasText() || !droppedFiles(event->mimeData()).isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    const int at = positionAt(event->position().toPoint());
    if (at != dropCaret_) {
        dropCaret_ = at;
        viewport()->update();
    }
}

void TextView::dragLeaveEvent(QDragLeaveEvent*) {
    dropCaret_ = -1;
    viewport()->update();
}

void TextView::dropEvent(QDropEvent* event) {
    dropCaret_ = -1;
    viewport()->update();
    const QMimeData* mime = event->mimeData();
    if (!mime->hasText() || !droppedFiles(mime).isEmpty()) {
        event->ignore();
        return;
    }
    const int at = positionAt(event->position().toPoint());
    event->acceptProposedAction();
    setFocus();
    const bool here = event->source() == this;
    const int from = selectionStart();
    const int to = selectionEnd();
    if (here && event->dropAction() == Qt::MoveAction) {
        if (at >= from && at <= to) return;
        // The selection moves in one edit of the text between it and the drop.
        const QString& text = *text_;
        const QString moved = text.mid(from, to - from);
        if (at > to)
            edit(from, at, text.mid(to, at - to) + moved);
        else
            edit(at, to, moved + text.mid(at, from - at));
        const int end = at > to ? at : at + static_cast<int>(moved.size());
        setSelection(end, end);
        return;
    }
    setCaret(at, at);
    edit(at, at, mime->text());
}

// ---- input methods ----

void TextView::inputMethodEvent(QInputMethodEvent* event) {
    const int length = static_cast<int>(text_->size());
    int from = selectionStart();
    int to = selectionEnd();
    if (event->replacementLength() > 0) {
        from = std::clamp(position_ + event->replacementStart(), 0, length);
        to = std::clamp(from + event->replacementLength(), from, length);
    }
    const bool input = !event->commitString().isEmpty() || event->replacementLength() > 0 ||
                       event->preeditString() != preedit_;
    const int oldRow = rows_.rowOf(position_);
    forget(oldRow, oldRow + 1, 0);
    preedit_ = event->preeditString();
    preeditCursor_ = static_cast<int>(preedit_.size());
    preeditFormats_.clear();
    for (const QInputMethodEvent::Attribute& attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            preeditCursor_ = std::clamp(attribute.start, 0, static_cast<int>(preedit_.size()));
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            const QTextCharFormat format =
                qvariant_cast<QTextFormat>(attribute.value).toCharFormat();
            if (format.isValid())
                preeditFormats_.append({attribute.start, attribute.length, format});
        }
    }
    if (input) edit(from, to, event->commitString());
    const int row = rows_.rowOf(position_);
    forget(row, row + 1, 0);
    // A new selection, counted from the start of the text the input method was given.
    for (const QInputMethodEvent::Attribute& attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Selection) {
            const int base = surrounding().start;
            setSelection(base + attribute.start, base + attribute.start + attribute.length);
        }
    }
    ensureCaretVisible();
    viewport()->update();
    event->accept();
}

// The text around the caret that an input method may read: its paragraph, within reason.
moves::Range TextView::surrounding() const {
    constexpr int kReach = 1024;
    const QString& text = *text_;
    int from = position_;
    while (from > std::max(0, position_ - kReach) &&
           !moves::isParagraphEnd(text.at(from - 1).unicode()))
        --from;
    int to = position_;
    while (to < std::min(static_cast<int>(text.size()), position_ + kReach) &&
           !moves::isParagraphEnd(text.at(to).unicode()))
        ++to;
    return {from, to};
}

QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    auto* self = const_cast<TextView*>(this);
    const QString& text = *text_;
    const moves::Range around = surrounding();
    const int from = around.start;
    const int to = around.end;
    switch (query) {
    case Qt::ImEnabled:
        return true;
    case Qt::ImHints:
        return static_cast<int>(inputMethodHints() | Qt::ImhMultiLine);
    case Qt::ImCursorRectangle:
        return self->cursorRect(position_).translated(viewport()->pos());
    case Qt::ImFont:
        return font();
    case Qt::ImAbsolutePosition:
        return position_;
    case Qt::ImCursorPosition:
        return position_ - from;
    case Qt::ImAnchorPosition:
        return std::clamp(anchor_, from, to) - from;
    case Qt::ImSurroundingText:
        return text.mid(from, to - from);
    case Qt::ImTextBeforeCursor:
        return text.mid(from, position_ - from);
    case Qt::ImTextAfterCursor:
        return text.mid(position_, to - position_);
    case Qt::ImCurrentSelection:
        return text.mid(selectionStart(), selectionEnd() - selectionStart());
    case Qt::ImMaximumTextLength:
        return QVariant();
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

} // namespace tsl
