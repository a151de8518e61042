#pragma once
// The inside of a document window: the three views in a stack, the view tabs below them, and
// the tool strips and combos of the Layout and Preview views. WebEngine comes in only when a
// document first shows Layout or Preview.
// Internal to the window.
#include <QWidget>

class QStackedWidget;
class QTabBar;

namespace tsl {

class ShellCore;
class codeEditor;
class MenuBinder;

class DocumentView : public QWidget {
    Q_OBJECT
  public:
    DocumentView(ShellCore& shell, codeEditor& doc, MenuBinder& menus, QWidget* parent = nullptr);
    QTabBar* viewTabs() const { return tabs_; }
    QStackedWidget* views() const { return stack_; }
    // Gives the pane back before the window goes: the document owns it.
    void releasePane();
    // The keyboard goes to the view in front: the Source pane, or the Layout surface.
    void focusView();

  private:
    void syncTabs();
    ShellCore& shell_;
    codeEditor& doc_;
    QStackedWidget* stack_ = nullptr;
    QTabBar* tabs_ = nullptr;
    QWidget* source_ = nullptr;
};

} // namespace tsl
