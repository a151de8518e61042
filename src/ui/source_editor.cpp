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
// position after it; it is shown as its control picture instead, one character for one.
constexpr char16_t kReturnPicture = 0x240D;
constexpr char16_t kParagraph = 0x2029;

QString forDisplay(QString text) {
    return text.replace(QLatin1Char('\r'), QChar(kReturnPicture));
}

QString fromDocument(QString text) {
    return text.replace(QChar(kParagraph), QLatin1Char('\n'));
}

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
        QPlainTextEdit::keyPressEvent(&plain);
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
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

void CodeBox::dropEvent(QDropEvent* event) {
    // Text dragged within the pane is moved in one edit: the document hears of the drag and
    // of its end before that one change, which it then takes as the drop.
    if (event->source() == this && docGuard_) {
        codeEditor* doc = doc_;
        dispatch([doc] {
            doc->codebox_OLEStartDrag();
            doc->codebox_OLECompleteDrag();
        });
    }
    QPlainTextEdit::dropEvent(event);
    setFocus();
}

void CodeBox::selectionMoved() {
    if (!docGuard_) return;
    codeEditor* doc = doc_;
    dispatch([doc] { doc->codebox_SelChange(); });
}

// ---- the pane ----

QtSourcePane::QtSourcePane() : edit_(new CodeBox) {
    QTextDocument* doc = edit_->document();
    connect(doc, &QTextDocument::contentsChange, this, &QtSourcePane::onContentsChange);
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] {
        if (!writing_) edit_->dispatch([this] { raiseChange(); });
    });
}

QtSourcePane::~QtSourcePane() {
    if (edit_) edit_->deleteLater();
}

void QtSourcePane::onContentsChange(int position, int removed, int added) {
    if (writing_) return;
    const int newLength = edit_->document()->characterCount() - 1;
    const int delta = newLength - static_cast<int>(text_.size());
    // The document counts its final block end in some reports; trim that to the real text.
    const int realRemoved = std::min(removed, static_cast<int>(text_.size()) - position);
    const int realAdded = realRemoved + delta;
    if (position < 0 || realRemoved < 0 || realAdded < 0 || realAdded > added + 1) {
        resync();
        return;
    }
    QTextCursor cursor(edit_->document());
    cursor.setPosition(position);
    cursor.setPosition(position + realAdded, QTextCursor::KeepAnchor);
    text_.replace(position, realRemoved, fromDocument(cursor.selectedText()));
}

void QtSourcePane::resync() {
    text_ = fromDocument(edit_->document()->toRawText());
    text_.replace(QChar(kReturnPicture), QLatin1Char('\r'));
}

void QtSourcePane::setText(const QString& text) {
    text_ = text;
    writing_ = true;
    edit_->setPlainText(forDisplay(text));
    writing_ = false;
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
