#pragma once
// A menu item as the logic sees it: caption, state, and its click handler.
#include "gadgets/controls.h"
#include <vector>

namespace tsl {

class MenuItem : public Control {
  public:
    MenuItem(QString name, QString caption, QString shortcut = QString(), bool separator = false)
        : Control(std::move(name)), caption_(std::move(caption)), shortcut_(std::move(shortcut)),
          separator_(separator) {}
    const QString& Caption() const { return caption_; }
    void setCaption(const QString& caption);
    bool Checked() const { return checked_; }
    void setChecked(bool on);
    // The accelerator in portable text ("Ctrl+S"); empty when the item has none.
    const QString& shortcut() const { return shortcut_; }
    bool isSeparator() const { return separator_; }
    // The key of the item's picture among the menu icons ("New", "Save", ...); empty for none.
    const QString& iconKey() const { return iconKey_; }
    void setIconKey(const QString& key);
    // A caption shown as it stands, an ampersand included, with no access key (a file path).
    bool literalCaption = false;
    std::function<void()> Click;

  private:
    QString caption_;
    QString shortcut_;
    bool separator_;
    bool checked_ = false;
    QString iconKey_;
};

// One node of the menu bar: an item and, for a submenu, its children in display order.
struct MenuNode {
    MenuItem* item = nullptr;
    std::vector<MenuNode> children;
};

} // namespace tsl
