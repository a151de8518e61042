#pragma once
// The menu bar and the toolbars on screen, made from the logic's menu tree and toolbar models.
// Captions, check marks and enabled states come from the models; clicks go back to them.
// Open to the window; the kit's toolbars use it too.
#include <QHash>
#include <QIcon>
#include <QKeySequence>
#include <QSet>
#include <QString>
#include <functional>

class QMenu;
class QMenuBar;
class QToolBar;
class QWidget;

namespace tsl {

class DialogContext;
class cToolbar;
class MenuItem;
struct MenuNode;

class MenuBinder {
  public:
    explicit MenuBinder(DialogContext& shell) : shell_(shell) {}
    // The picture of a menu item by its iconKey ("New", "Save", ...); when set before
    // buildMenuBar, items with a key show it.
    std::function<QIcon(const QString& key)> iconForKey;
    // The picture of an item without a key of its own (a recent file), asked each time its
    // caption changes; an empty icon for none.
    std::function<QIcon(const MenuItem& item)> iconForItem;
    void buildMenuBar(QMenuBar* bar, const std::vector<MenuNode>& tree);
    QMenu* menuNamed(const QString& name) const { return menus_.value(name); }
    bool isShortcut(const QKeySequence& keys) const { return shortcuts_.contains(keys); }
    // A toolbar for a model; its images come from the model's strip file, when there is one.
    QToolBar* buildToolBar(cToolbar& model, const QString& title, const QString& programFolder,
                           QWidget* parent);

    // The arrow menu of a drop-down button while it asks the logic what to show; a popup the
    // logic asks for then fills it.
    QMenu* pendingArrowMenu() const { return pendingArrow_; }

  private:
    QMenu* pendingArrow_ = nullptr;
    void addNodes(QMenu* menu, const std::vector<MenuNode>& nodes);
    DialogContext& shell_;
    QHash<QString, QMenu*> menus_;
    QSet<QKeySequence> shortcuts_;
};

} // namespace tsl
