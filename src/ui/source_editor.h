#pragma once
// The Source pane on screen: a plain text editor that keeps its own copy of the exact text, so
// that characters the editor would rewrite (carriage returns, paragraph separators) come back
// as they were, and so that the logic's many reads of the whole text cost nothing.
#include "editor/surfaces.h"
#include <QPlainTextEdit>
#include <QPointer>

namespace tsl {

class codeEditor;
class ShellMDI;

// Key codes and shift bits of the logic from a Qt key event.
int keyCodeOf(int qtKey);
int shiftBitsOf(Qt::KeyboardModifiers modifiers);

class CodeBox : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit CodeBox(QWidget* parent = nullptr);
    // The document window whose handlers receive the pane's events, and the test of whether
    // a key belongs to a menu item (which then gets it after the pane has seen it).
    void attach(ShellMDI* shell, codeEditor* doc,
                std::function<bool(const QKeySequence&)> isMenuShortcut);
    // Runs a handler as a user's event: through the shell's dispatcher once attached.
    bool dispatch(const std::function<void()>& handler);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // Runs KeyDown of the window and of the pane; false when they swallowed the key.
    bool runKeyDown(QKeyEvent* event);
    void selectionMoved();
    std::function<bool(const QKeySequence&)> isMenuShortcut_;
    QPointer<QObject> docGuard_;
    ShellMDI* shell_ = nullptr;
    codeEditor* doc_ = nullptr;
    // The key press whose KeyDown already ran at the shortcut stage.
    bool keyDownDone_ = false;
    bool swallowKey_ = false;
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
    QString SelText() const override;
    void setSelText(const QString& text) override;
    int length() const override { return static_cast<int>(text_.size()); }

    void setRightMargin(int twips) override;
    void setFontName(const QString& name) override;
    void setFontSize(double points) override;
    void setSelIndent(int twips) override;
    void SetFocus() override;

  private:
    void onContentsChange(int position, int removed, int added);
    void resync();
    QPointer<CodeBox> edit_;
    QString text_;
    bool writing_ = false;
};

} // namespace tsl
