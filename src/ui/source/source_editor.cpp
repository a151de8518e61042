#include "ui/source/source_editor.h"
#include "runtime/runtime_error.h"
#include "shell/code_editor.h"
#include "shell/dialog_context.h"
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>

namespace tsl {

namespace {
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

CodeBox::CodeBox(QWidget* parent) : TextView(parent) {
    setObjectName(QStringLiteral("codebox"));
    setContextMenuPolicy(Qt::DefaultContextMenu);
    // Cut and Copy follow the selection, whether the user or a command moved it.
    connect(this, &TextView::selectionMoved, this, &CodeBox::selectionMoved);
}

void CodeBox::attach(DialogContext* shell, codeEditor* doc,
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
    return TextView::event(event);
}

void CodeBox::keyPressEvent(QKeyEvent* event) {
    // Shift+F10 opens the popup as the menu key does; the toolkit knows only the latter.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        requestKeyboardPopup();
        event->accept();
        return;
    }
    const bool already = keyDownDone_;
    keyDownDone_ = false;
    if (already ? swallowKey_ : !runKeyDown(event)) {
        swallowKey_ = false;
        event->accept();
        return;
    }
    swallowKey_ = false;
    if (docGuard_ && !event->text().isEmpty() && event->text().at(0).unicode() >= 32) {
        const int typed = event->text().at(0).unicode();
        int ascii = typed;
        codeEditor* doc = doc_;
        dispatch([&] { doc->codebox_KeyPress(ascii); });
        if (ascii == 0) {
            event->accept();
            return;
        }
        // The document may type another character in place of the key's.
        if (ascii != typed && ascii > 0 && ascii < 0x10000) {
            QKeyEvent other(QEvent::KeyPress, event->key(), event->modifiers(),
                            QString(QChar(static_cast<char16_t>(ascii))), event->isAutoRepeat());
            TextView::keyPressEvent(&other);
            event->setAccepted(other.isAccepted());
            return;
        }
    }
    // Return with Ctrl (after its "<br>") or Shift ends the line as Return does.
    TextView::keyPressEvent(event);
}

void CodeBox::keyReleaseEvent(QKeyEvent* event) {
    TextView::keyReleaseEvent(event);
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
    TextView::mousePressEvent(event);
}

void CodeBox::mouseReleaseEvent(QMouseEvent* event) {
    TextView::mouseReleaseEvent(event);
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
    if (event->reason() == QContextMenuEvent::Keyboard) requestKeyboardPopup();
    event->accept();
}

void CodeBox::requestKeyboardPopup() {
    if (!docGuard_) return;
    const QRect caret = cursorRect(position());
    keyboardPopup_ = viewport()->mapToGlobal(caret.bottomLeft());
    emit doc_->editMenuRequested();
}

QMimeData* CodeBox::createMimeDataFromSelection() const {
    auto* mime = new PaneMimeData(this);
    mime->setText(text().mid(selectionStart(), selectionEnd() - selectionStart()));
    return mime;
}

void CodeBox::replaceByUser(int start, int end, const QString& text) {
    if (pane_) pane_->replaceByUser(start, end, text);
}

void CodeBox::dropEvent(QDropEvent* event) {
    const QMimeData* mime = event->mimeData();
    if (!pane_ || !mime->hasText()) return TextView::dropEvent(event);
    const auto* own = dynamic_cast<const PaneMimeData*>(mime);
    const bool fromHere = own && own->origin == this;
    const int at = positionAt(event->position().toPoint());
    const int start = selectionStart();
    const int end = selectionEnd();
    const bool move = fromHere && event->dropAction() == Qt::MoveAction;
    const bool ontoItself = move && at >= start && at <= end;
    // The drop caret goes away as it does when a drag leaves.
    QDragLeaveEvent leave;
    TextView::dragLeaveEvent(&leave);
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
        pane_->moveByUser(start, end, at);
    else
        pane_->replaceByUser(at, at, mime->text());
}

void CodeBox::selectionMoved() {
    if (!docGuard_) return;
    codeEditor* doc = doc_;
    dispatch([doc] { doc->codebox_SelChange(); });
}

// ---- the pane ----

QtSourcePane::QtSourcePane() : edit_(new CodeBox) {
    edit_->pane_ = this;
    edit_->setSource(&text_);
}

QtSourcePane::~QtSourcePane() {
    if (edit_) {
        edit_->pane_ = nullptr;
        edit_->setSource(nullptr);
        edit_->deleteLater();
    }
}

void QtSourcePane::replaceExact(int start, int end, const QString& text) {
    text_.replace(start, end - start, text);
    edit_->textReplaced(start, end - start, static_cast<int>(text.size()));
}

void QtSourcePane::replaceByUser(int start, int end, const QString& text) {
    replaceExact(start, end, text);
    const int caret = start + static_cast<int>(text.size());
    edit_->placeCaret(caret, caret);
    edit_->dispatch([this] { raiseChange(); });
    edit_->reportSelection();
}

// Text dragged within the pane: the stretch between the text and where it goes is written
// once, moved text and all, so the document sees one change.
void QtSourcePane::moveByUser(int start, int end, int to) {
    if (to >= start && to <= end) return; // onto itself: nothing moves
    const QString moved = text_.mid(start, end - start);
    int caret = to;
    if (to > end) {
        replaceExact(start, to, text_.mid(end, to - end) + moved);
    } else {
        replaceExact(to, end, moved + text_.mid(to, start - to));
        caret = to + static_cast<int>(moved.size());
    }
    edit_->placeCaret(caret, caret);
    edit_->dispatch([this] { raiseChange(); });
    edit_->reportSelection();
}

void QtSourcePane::setText(const QString& text) {
    text_ = text;
    edit_->textReset();
    raiseChange();
    edit_->reportSelection();
}

int QtSourcePane::SelStart() const {
    return edit_->selectionStart();
}

void QtSourcePane::setSelStart(int position) {
    if (position < 0) raise(ErrInvalidPropertyValue);
    const int at = std::min(position, length());
    edit_->setSelection(at, at);
}

int QtSourcePane::SelLength() const {
    return edit_->selectionEnd() - edit_->selectionStart();
}

void QtSourcePane::setSelLength(int length) {
    if (length < 0) raise(ErrInvalidPropertyValue);
    const int start = edit_->selectionStart();
    edit_->setSelection(start, std::min(start + length, this->length()));
}

void QtSourcePane::select(int start, int length) {
    if (start < 0 || length < 0) raise(ErrInvalidPropertyValue);
    const int from = std::min(start, this->length());
    edit_->setSelection(from, std::min(from + length, this->length()));
}

QString QtSourcePane::SelText() const {
    return text_.mid(SelStart(), SelLength());
}

void QtSourcePane::setSelText(const QString& text) {
    const int start = edit_->selectionStart();
    replaceExact(start, edit_->selectionEnd(), text);
    const int caret = start + static_cast<int>(text.size());
    edit_->placeCaret(caret, caret);
    raiseChange();
    edit_->reportSelection();
}

void QtSourcePane::setRightMargin(int twips) {
    SourcePane::setRightMargin(twips);
    edit_->setWrapping(twips == 0);
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
}

void QtSourcePane::setSelIndent(int twips) {
    SourcePane::setSelIndent(twips);
    edit_->setMargin(std::max(4, twipsToPixels(twips, edit_)));
}

void QtSourcePane::SetFocus() {
    edit_->setFocus();
}

} // namespace tsl
