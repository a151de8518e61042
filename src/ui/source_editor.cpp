#include "ui/source_editor.h"
#include "runtime/runtime_error.h"
#include "shell/code_editor.h"
#include "shell/shell_mdi.h"
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

namespace tsl {

namespace {
// A carriage return on its own would become a line break in the editor and shift every
// position after it; it is shown as its control picture instead, one character for one. The
// editor makes a paragraph end of a line feed, a paragraph separator and the two
// noncharacters it uses as frame marks, and hands each back as a paragraph separator.
constexpr char16_t kReturnPicture = 0x240D;
constexpr char16_t kParagraph = 0x2029;

QChar shownAs(QChar c) {
    switch (c.unicode()) {
    case u'\r':
        return QChar(kReturnPicture);
    case u'\n':
    case kParagraph:
    case 0xFDD0:
    case 0xFDD1:
        return QChar(kParagraph);
    default:
        return c;
    }
}

QString forDisplay(QString text) {
    return text.replace(QLatin1Char('\r'), QChar(kReturnPicture));
}

// Whether exact text from `at` to `end` is shown as the editor's text from `shownAt` on.
bool shownSame(const QString& exact, int at, int end, const QString& shown, int shownAt) {
    for (; at < end; ++at, ++shownAt)
        if (shownAs(exact.at(at)) != shown.at(shownAt)) return false;
    return true;
}

// Text the editor put in by itself, from a key: its paragraph ends are line feeds.
QString typedText(QString text) {
    return text.replace(QChar(kParagraph), QLatin1Char('\n'));
}

QString documentText(QTextDocument* document, int from, int to) {
    if (from >= to) return QString();
    QTextCursor cursor(document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

// Mime data made by a pane, so that a drop can tell a drag within the same pane.
class PaneMimeData : public QMimeData {
  public:
    explicit PaneMimeData(const CodeBox* origin) : origin(origin) {}
    const CodeBox* const origin;
};

// Pixels of the screen for twips (1440 to the inch).
int twipsToPixels(int twips, const QWidget* widget) {
    return twips * widget->logicalDpiX() / 1440;
}
} // namespace

int keyCodeOf(int qtKey) {
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return qtKey; // same codes as ASCII capitals
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Backspace:
        return keys::vbKeyBack;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return keys::vbKeyReturn;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return keys::vbKeySpace;
    case Qt::Key_PageUp:
        return keys::vbKeyPageUp;
    case Qt::Key_PageDown:
        return keys::vbKeyPageDown;
    case Qt::Key_End:
        return keys::vbKeyEnd;
    case Qt::Key_Home:
        return keys::vbKeyHome;
    case Qt::Key_Left:
        return keys::vbKeyLeft;
    case Qt::Key_Up:
        return keys::vbKeyUp;
    case Qt::Key_Right:
        return keys::vbKeyRight;
    case Qt::Key_Down:
        return keys::vbKeyDown;
    case Qt::Key_Insert:
        return keys::vbKeyInsert;
    case Qt::Key_Delete:
        return keys::vbKeyDelete;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    default:
        return 255; // a key the logic has no code for; never 0, which means "no key"
    }
}

int shiftBitsOf(Qt::KeyboardModifiers modifiers) {
    int bits = 0;
    if (modifiers & Qt::ShiftModifier) bits |= keys::ShiftMask;
    if (modifiers & Qt::ControlModifier) bits |= keys::CtrlMask;
    if (modifiers & Qt::AltModifier) bits |= keys::AltMask;
    return bits;
}

// ---- the widget ----

CodeBox::CodeBox(QWidget* parent) : QPlainTextEdit(parent) {
    setUndoRedoEnabled(false); // the document window keeps the history
    setObjectName(QStringLiteral("codebox"));
    setContextMenuPolicy(Qt::DefaultContextMenu);
    // Cut and Copy follow the selection, whether the user or a command moved it.
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &CodeBox::selectionMoved);
    connect(this, &QPlainTextEdit::selectionChanged, this, &CodeBox::selectionMoved);
}

void CodeBox::attach(ShellMDI* shell, codeEditor* doc,
                     std::function<bool(const QKeySequence&)> isMenuShortcut) {
    shell_ = shell;
    doc_ = doc;
    docGuard_ = doc;
    isMenuShortcut_ = std::move(isMenuShortcut);
}

bool CodeBox::dispatch(const std::function<void()>& handler) {
    if (shell_) return shell_->dispatch(handler);
    try {
        handler();
    } catch (const RuntimeError&) {
        return false;
    }
    return true;
}

bool CodeBox::runKeyDown(QKeyEvent* event) {
    if (!shell_ || !docGuard_) return true;
    int keyCode = keyCodeOf(event->key());
    const int shift = shiftBitsOf(event->modifiers());
    codeEditor* doc = doc_;
    dispatch([&] {
        doc->Form_KeyDown(keyCode, shift);
        if (keyCode != 0) doc->codebox_KeyDown(keyCode, shift);
    });
    return keyCode != 0;
}

bool CodeBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        keyDownDone_ = true;
        swallowKey_ = !runKeyDown(key);
        if (swallowKey_) {
            event->accept(); // no menu shortcut, and the key press is dropped below
            return true;
        }
        // A key of a menu item goes to the menu, after the pane has seen it.
        if (isMenuShortcut_ && isMenuShortcut_(QKeySequence(key->keyCombination()))) {
            event->ignore();
            return false;
        }
    }
    return QPlainTextEdit::event(event);
}

void CodeBox::keyPressEvent(QKeyEvent* event) {
    const bool already = keyDownDone_;
    keyDownDone_ = false;
    if (already ? swallowKey_ : !runKeyDown(event)) {
        swallowKey_ = false;
        event->accept();
        return;
    }
    swallowKey_ = false;
    if (docGuard_ && !event->text().isEmpty() && event->text().at(0).unicode() >= 32) {
        int ascii = event->text().at(0).unicode();
        codeEditor* doc = doc_;
        dispatch([&] { doc->codebox_KeyPress(ascii); });
        if (ascii == 0) {
            event->accept();
            return;
        }
    }
    // Return with Ctrl (after its "<br>") or Shift ends the line as Return does; the editor
    // would ignore the one and write a line separator for the other.
    const bool returnKey = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (returnKey && (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier))) {
        QKeyEvent plain(QEvent::KeyPress, event->key(), Qt::NoModifier, QStringLiteral("\r"));
        editingAtCaret_ = true;
        QPlainTextEdit::keyPressEvent(&plain);
        editingAtCaret_ = false;
        event->accept();
        return;
    }
    editingAtCaret_ = true;
    QPlainTextEdit::keyPressEvent(event);
    editingAtCaret_ = false;
}

void CodeBox::keyReleaseEvent(QKeyEvent* event) {
    QPlainTextEdit::keyReleaseEvent(event);
    // A key a shortcut took never reached keyPressEvent: its KeyDown mark ends here.
    keyDownDone_ = false;
    swallowKey_ = false;
    if (event->isAutoRepeat() || !docGuard_) return;
    const int keyCode = keyCodeOf(event->key());
    const int shift = shiftBitsOf(event->modifiers());
    codeEditor* doc = doc_;
    dispatch([&] { doc->codebox_KeyUp(keyCode, shift); });
}

void CodeBox::mousePressEvent(QMouseEvent* event) {
    // The right button only asks for the edit popup; it does not move the caret.
    if (event->button() == Qt::RightButton) {
        event->accept();
        return;
    }
    QPlainTextEdit::mousePressEvent(event);
}

void CodeBox::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (!docGuard_) return;
    int button = keys::vbLeftButton;
    if (event->button() == Qt::RightButton) button = keys::vbRightButton;
    if (event->button() == Qt::MiddleButton) button = keys::vbMiddleButton;
    const int shift = shiftBitsOf(event->modifiers());
    codeEditor* doc = doc_;
    dispatch([&] { doc->codebox_MouseUp(button, shift); });
}

void CodeBox::contextMenuEvent(QContextMenuEvent* event) {
    // The popup comes from the right button's release; the menu key asks for it too.
    if (event->reason() == QContextMenuEvent::Keyboard && docGuard_) emit doc_->editMenuRequested();
    event->accept();
}

QMimeData* CodeBox::createMimeDataFromSelection() const {
    if (!pane_) return QPlainTextEdit::createMimeDataFromSelection();
    const QTextCursor cursor = textCursor();
    auto* mime = new PaneMimeData(this);
    mime->setText(pane_->exactText(cursor.selectionStart(), cursor.selectionEnd()));
    return mime;
}

void CodeBox::insertFromMimeData(const QMimeData* source) {
    if (!pane_ || !source->hasText()) return QPlainTextEdit::insertFromMimeData(source);
    const QTextCursor cursor = textCursor();
    pane_->replaceByUser(cursor.selectionStart(), cursor.selectionEnd(), source->text());
}

void CodeBox::dropEvent(QDropEvent* event) {
    const QMimeData* mime = event->mimeData();
    if (!pane_ || isReadOnly() || !mime->hasText()) return QPlainTextEdit::dropEvent(event);
    const auto* own = dynamic_cast<const PaneMimeData*>(mime);
    const bool fromHere = own && own->origin == this;
    const int at = cursorForPosition(event->position().toPoint()).position();
    const QTextCursor selection = textCursor();
    const bool move = fromHere && event->dropAction() == Qt::MoveAction;
    const bool ontoItself =
        move && at >= selection.selectionStart() && at <= selection.selectionEnd();
    // The drop caret goes away as it does when a drag leaves.
    QDragLeaveEvent leave;
    QPlainTextEdit::dragLeaveEvent(&leave);
    // The pane makes the move itself: the drag must not take the text away again.
    event->acceptProposedAction();
    setFocus();
    if (ontoItself) return;
    // Text dragged within the pane is moved in one edit: the document hears of the drag and
    // of its end before that one change, which it then takes as the drop.
    if (fromHere && docGuard_) {
        codeEditor* doc = doc_;
        dispatch([doc] {
            doc->codebox_OLEStartDrag();
            doc->codebox_OLECompleteDrag();
        });
    }
    if (move)
        pane_->moveByUser(selection.selectionStart(), selection.selectionEnd(), at);
    else
        pane_->replaceByUser(at, at, mime->text());
}

void CodeBox::inputMethodEvent(QInputMethodEvent* event) {
    editingAtCaret_ = true;
    QPlainTextEdit::inputMethodEvent(event);
    editingAtCaret_ = false;
}

void CodeBox::selectionMoved() {
    if (!docGuard_) return;
    codeEditor* doc = doc_;
    dispatch([doc] { doc->codebox_SelChange(); });
}

// ---- the pane ----

QtSourcePane::QtSourcePane() : edit_(new CodeBox) {
    edit_->pane_ = this;
    QTextDocument* doc = edit_->document();
    connect(doc, &QTextDocument::contentsChange, this, &QtSourcePane::onContentsChange);
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] {
        if (!writing_) edit_->dispatch([this] { raiseChange(); });
    });
    connect(edit_, &QPlainTextEdit::cursorPositionChanged, this, &QtSourcePane::noteSelection);
    connect(edit_, &QPlainTextEdit::selectionChanged, this, &QtSourcePane::noteSelection);
}

QtSourcePane::~QtSourcePane() {
    if (edit_) {
        edit_->pane_ = nullptr;
        edit_->deleteLater();
    }
}

void QtSourcePane::noteSelection() {
    const QTextCursor cursor = edit_->textCursor();
    selStart_ = cursor.selectionStart();
    selEnd_ = cursor.selectionEnd();
}

// The editor reports its own edits (keys, an input method, a drag taken out) as a range it
// changed. The copy takes only what was put in from the editor; the characters around it stay
// as they are in the copy, since the editor shows some of them as other characters.
void QtSourcePane::onContentsChange(int position, int removed, int added) {
    if (writing_) return;
    QTextDocument* doc = edit_->document();
    const int oldLength = static_cast<int>(text_.size());
    const int newLength = doc->characterCount() - 1;
    // The document counts its final paragraph end in some reports; that is not text.
    int from = position;
    int oldEnd = std::min(position + removed, oldLength);
    int newEnd = oldEnd + newLength - oldLength;
    if (from < 0 || from > oldEnd || newEnd < from || newEnd > position + added) {
        from = 0; // a report that does not fit: the whole text is compared
        oldEnd = oldLength;
        newEnd = newLength;
    }
    const QString now = documentText(doc, from, newEnd);
    if (!takeEditAtCaret(from, oldEnd, now)) takeDifference(from, oldEnd, now);
    noteSelection();
}

// The editor edits at its cursor: it replaces the selection it had, or without one puts text
// in at the caret or takes it away beside it, and leaves the caret behind what it put in.
// False when the report is not such an edit.
bool QtSourcePane::takeEditAtCaret(int from, int oldEnd, const QString& now) {
    const int delta = static_cast<int>(now.size()) - (oldEnd - from);
    const int caret = edit_->textCursor().position();
    int start = selStart_;
    int end = selEnd_;
    if (start == end && delta < 0) {
        start = caret;
        end = caret - delta;
    }
    const int insertedEnd = end + delta;
    if (start < from || end > oldEnd || insertedEnd < start || caret != insertedEnd) return false;
    if (!shownSame(text_, from, start, now, 0) ||
        !shownSame(text_, end, oldEnd, now, insertedEnd - from))
        return false;
    // A report in which nothing visible changed is the editor's bookkeeping, unless a key made
    // it (Return over a selected paragraph separator).
    if (!edit_->editingAtCaret() && insertedEnd == end &&
        shownSame(text_, start, end, now, start - from))
        return true;
    text_.replace(start, end - start, typedText(now.mid(start - from, insertedEnd - start)));
    return true;
}

// Any other change: what stayed the same at both ends keeps its exact characters.
void QtSourcePane::takeDifference(int from, int oldEnd, const QString& now) {
    int newEnd = from + static_cast<int>(now.size());
    int start = from;
    while (start < oldEnd && start < newEnd && shownAs(text_.at(start)) == now.at(start - from))
        ++start;
    while (oldEnd > start && newEnd > start &&
           shownAs(text_.at(oldEnd - 1)) == now.at(newEnd - 1 - from)) {
        --oldEnd;
        --newEnd;
    }
    text_.replace(start, oldEnd - start, typedText(now.mid(start - from, newEnd - start)));
}

void QtSourcePane::replaceExact(int start, int end, const QString& text) {
    text_.replace(start, end - start, text);
    QTextCursor cursor(edit_->document());
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(forDisplay(text));
}

void QtSourcePane::replaceByUser(int start, int end, const QString& text) {
    writing_ = true;
    replaceExact(start, end, text);
    writing_ = false;
    QTextCursor caret = edit_->textCursor();
    caret.setPosition(start + static_cast<int>(text.size()));
    edit_->setTextCursor(caret);
    noteSelection();
    edit_->dispatch([this] { raiseChange(); });
}

void QtSourcePane::moveByUser(int start, int end, int to) {
    if (to >= start && to <= end) return; // onto itself: nothing moves
    const QString moved = text_.mid(start, end - start);
    const int target = to > end ? to - (end - start) : to;
    QTextCursor block(edit_->document());
    writing_ = true;
    block.beginEditBlock();
    replaceExact(start, end, QString());
    replaceExact(target, target, moved);
    block.endEditBlock();
    writing_ = false;
    QTextCursor caret = edit_->textCursor();
    caret.setPosition(target + static_cast<int>(moved.size()));
    edit_->setTextCursor(caret);
    noteSelection();
    edit_->dispatch([this] { raiseChange(); });
}

void QtSourcePane::setText(const QString& text) {
    text_ = text;
    writing_ = true;
    edit_->setPlainText(forDisplay(text));
    writing_ = false;
    noteSelection();
    raiseChange();
}

int QtSourcePane::SelStart() const {
    return edit_->textCursor().selectionStart();
}

void QtSourcePane::setSelStart(int position) {
    if (position < 0) raise(ErrInvalidPropertyValue);
    QTextCursor cursor = edit_->textCursor();
    cursor.setPosition(std::min(position, length()));
    edit_->setTextCursor(cursor);
}

int QtSourcePane::SelLength() const {
    const QTextCursor cursor = edit_->textCursor();
    return cursor.selectionEnd() - cursor.selectionStart();
}

void QtSourcePane::setSelLength(int length) {
    if (length < 0) raise(ErrInvalidPropertyValue);
    QTextCursor cursor = edit_->textCursor();
    const int start = cursor.selectionStart();
    cursor.setPosition(start);
    cursor.setPosition(std::min(start + length, this->length()), QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
}

void QtSourcePane::select(int start, int length) {
    if (start < 0 || length < 0) raise(ErrInvalidPropertyValue);
    QTextCursor cursor = edit_->textCursor();
    const int from = std::min(start, this->length());
    cursor.setPosition(from);
    cursor.setPosition(std::min(from + length, this->length()), QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
}

QString QtSourcePane::SelText() const {
    return text_.mid(SelStart(), SelLength());
}

void QtSourcePane::setSelText(const QString& text) {
    QTextCursor cursor = edit_->textCursor();
    const int start = cursor.selectionStart();
    text_.replace(start, cursor.selectionEnd() - start, text);
    writing_ = true;
    cursor.insertText(forDisplay(text));
    edit_->setTextCursor(cursor);
    writing_ = false;
    noteSelection();
    raiseChange();
}

void QtSourcePane::setRightMargin(int twips) {
    SourcePane::setRightMargin(twips);
    edit_->setLineWrapMode(twips == 0 ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}

void QtSourcePane::setFontName(const QString& name) {
    SourcePane::setFontName(name);
    QFont font = edit_->font();
    font.setFamily(name);
    font.setStyleHint(QFont::TypeWriter);
    edit_->setFont(font);
}

void QtSourcePane::setFontSize(double points) {
    SourcePane::setFontSize(points);
    QFont font = edit_->font();
    font.setPointSizeF(points);
    edit_->setFont(font);
    edit_->setTabStopDistance(4 * edit_->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
}

void QtSourcePane::setSelIndent(int twips) {
    SourcePane::setSelIndent(twips);
    edit_->document()->setDocumentMargin(std::max(4, twipsToPixels(twips, edit_)));
}

void QtSourcePane::SetFocus() {
    edit_->setFocus();
}

} // namespace tsl
