#pragma once
// The Source pane on screen: the pane holds the exact text, once, and its editor (CodeBox, a
// TextView) shows and edits that same text, so no character is ever rewritten and the logic's
// many reads of the whole text cost nothing.
// Open to the window, which makes a pane for each document.
#include "editor/surfaces.h"
#include "ui/source/text_view.h"
#include <QPointer>
#include <optional>
#include <utility>

namespace tsl {

class codeEditor;
class QtSourcePane;
class DialogContext;

// Key codes and shift bits of the logic from a Qt key event.
int keyCodeOf(int qtKey);
int shiftBitsOf(Qt::KeyboardModifiers modifiers);

class CodeBox : public TextView {
    Q_OBJECT
  public:
    explicit CodeBox(QWidget* parent = nullptr);
    // The document window whose handlers receive the pane's events, and the test of whether
    // a key belongs to a menu item (which then gets it after the pane has seen it).
    void attach(DialogContext* shell, codeEditor* doc,
                std::function<bool(const QKeySequence&)> isMenuShortcut);
    // Runs a handler as a user's event: through the shell's dispatcher once attached.
    bool dispatch(const std::function<void()>& handler);

    // Mime data that a drop can tell comes from this pane.
    QMimeData* createMimeDataFromSelection() const override;
    // Where the Edit popup goes when the keyboard asked for it (the menu key, Shift+F10): at
    // the caret, in screen coordinates. Empty when a mouse asked; taken once.
    std::optional<QPoint> takeKeyboardPopup() { return std::exchange(keyboardPopup_, {}); }

  protected:
    void replaceByUser(int start, int end, const QString& text) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    friend class QtSourcePane;
    // Runs KeyDown of the window and of the pane; false when they swallowed the key.
    bool runKeyDown(QKeyEvent* event);
    void requestKeyboardPopup();
    std::optional<QPoint> keyboardPopup_;
    void selectionMoved();
    std::function<bool(const QKeySequence&)> isMenuShortcut_;
    QPointer<QObject> docGuard_;
    DialogContext* shell_ = nullptr;
    codeEditor* doc_ = nullptr;
    // The key press whose KeyDown already ran at the shortcut stage.
    bool keyDownDone_ = false;
    bool swallowKey_ = false;
    QtSourcePane* pane_ = nullptr;
};

class QtSourcePane : public QObject, public SourcePane {
    Q_OBJECT
  public:
    QtSourcePane();
    ~QtSourcePane() override;
    CodeBox* widget() const { return edit_; }

    QString Text() const override { return text_; }
    void setText(const QString& text) override;
    int SelStart() const override;
    void setSelStart(int position) override;
    int SelLength() const override;
    void setSelLength(int length) override;
    void select(int start, int length) override;
    QString SelText() const override;
    void setSelText(const QString& text) override;
    int length() const override { return static_cast<int>(text_.size()); }

    void setRightMargin(int twips) override;
    void setFontName(const QString& name) override;
    void setFontSize(double points) override;
    void setSelIndent(int twips) override;
    void SetFocus() override;

    QString exactText(int start, int end) const { return text_.mid(start, end - start); }
    // Edits made by the user in the editor (keys, input methods, drops, pastes, a drag taken
    // out): the exact text goes in, the caret behind it, and one Change is raised.
    void replaceByUser(int start, int end, const QString& text);
    void moveByUser(int start, int end, int to);

  private:
    // Puts exact text in place of a range and tells the editor; raises nothing.
    void replaceExact(int start, int end, const QString& text);
    QPointer<CodeBox> edit_;
    QString text_;
};

} // namespace tsl
