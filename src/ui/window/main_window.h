#pragma once
// The main window on screen: menus, toolbars, the document tab strip, the document windows,
// the tag list pane and the status bar, all following the logic's ShellMDI.
// Open to main() and the widget tests.
#include "ui/kit/menu_binder.h"
#include <QHash>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPointer>

class QMdiArea;
class QTabBar;
class QToolBar;
class QLabel;

namespace tsl {

class ShellMDI;
class codeEditor;
class TagPane;
class PaneSizer;

// One document window; its close box asks the document, which may stay.
class DocumentWindow : public QMdiSubWindow {
    Q_OBJECT
  public:
    DocumentWindow(ShellMDI& shell, codeEditor* doc);
    codeEditor* document() const { return doc_; }
    // The document has gone: the window may close for real.
    void release() { released_ = true; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    ShellMDI& shell_;
    codeEditor* doc_;
    bool released_ = false;
};

class ShellWindow : public QMainWindow {
    Q_OBJECT
  public:
    explicit ShellWindow(ShellMDI& shell, QWidget* parent = nullptr);
    ~ShellWindow() override;

    QMdiArea* mdiArea() const { return mdi_; }
    QTabBar* documentTabs() const { return tabs_; }
    TagPane* tagPane() const { return pane_; }
    QToolBar* toolBar(int index) const { return toolBars_[index]; }
    DocumentWindow* windowOf(codeEditor* doc) const { return windows_.value(doc); }
    MenuBinder& menus() { return menus_; }
    // Shows the toolbars as the bands of cReBar1 say, and the pane as Picture1.
    void applyViewState();
    // The context menu of the toolbars: the View menu's items.
    QMenu* createPopupMenu() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    // Files dropped from a file manager open as documents.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void addDocument(codeEditor* doc);
    void activateDocument(codeEditor* doc);
    // "Tessaline", and the name of the document in front when it is maximised.
    void updateTitle();
    void keepMaximised(QMdiSubWindow* window);
    void removeDocument(codeEditor* doc);
    void syncTabs();
    void syncPane();
    // The window's size, place and state and the tag pane's width, kept between runs.
    void restoreWindowPlace();
    void saveWindowPlace();
    void syncBands();
    // A menu as a popup, at a point of the screen (the pointer's, or the caret's when the
    // keyboard asked).
    void showPopup(const QString& menuName, const QPoint& at);
    void fillWindowList();
    // The Window menu's arrangements, by the logic's codes.
    void arrange(int code);
    int pixels(int twips) const;

    ShellMDI& shell_;
    MenuBinder menus_;
    QMdiArea* mdi_ = nullptr;
    QTabBar* tabs_ = nullptr;
    TagPane* pane_ = nullptr;
    PaneSizer* sizer_ = nullptr;
    QLabel* status_ = nullptr;
    QToolBar* toolBars_[3] = {};
    QHash<codeEditor*, DocumentWindow*> windows_;
    QList<QAction*> windowListActions_;
    QPointer<QMenu> arrowMenu_;
    bool activating_ = false;
    // A maximised document closed: the one that comes forward next is maximised too.
    bool maximiseNext_ = false;
    bool exiting_ = false;
};

} // namespace tsl
