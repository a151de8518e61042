#pragma once
// The document tab strip: tabs with a Key and a Caption, in the order they were added.
// Selecting a different tab raises Click, whether the user or the program selected it.
#include "gadgets/controls.h"
#include <QList>

namespace tsl {

class TabStrip : public Control {
  public:
    struct Tab {
        QString Key;
        QString Caption;
    };
    using Control::Control;

    int count() const { return static_cast<int>(tabs_.size()); }
    const Tab& tab(int index) const { return tabs_.at(index); }
    void add(const QString& key, const QString& caption);
    void remove(int index);
    void setCaption(int index, const QString& caption);
    void setKey(int index, const QString& key);
    // The first tab whose lower-cased Key equals the lower-cased text; -1 when none.
    int findKeyIgnoringCase(const QString& key) const;

    int selectedIndex() const { return selected_; }
    void select(int index);
    void selectLast() { select(count() - 1); }
    std::function<void()> Click;

  private:
    QList<Tab> tabs_;
    int selected_ = -1;
};

} // namespace tsl
