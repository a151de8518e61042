#pragma once
// The view tabs of a document window: tabs by 1-based index, the selected one, and TabClick
// when the selection changes, whether the user or the program selected it.
#include "gadgets/controls.h"

namespace tsl {

class TabControl : public Control {
  public:
    using Control::Control;
    void AddTab(const QString& caption) {
        captions_.append(caption);
        emit changed();
    }
    int TabCount() const { return static_cast<int>(captions_.size()); }
    // A caption by 1-based index; an index that is not there raises an error that names it.
    QString TabCaption(int index) const;
    int SelectedTab() const { return selected_; }
    void SelectTab(int index);
    std::function<void()> TabClick;

  private:
    QStringList captions_;
    int selected_ = 1;
};

} // namespace tsl
