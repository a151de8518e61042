#pragma once
// The status bar of the main window: a row of text panels, numbered from 1.
#include "gadgets/controls.h"
#include <QStringList>

namespace tsl {

class StatusBar : public Control {
  public:
    using Control::Control;
    QString PanelText(int panel) const { return texts_.value(panel - 1); }
    void setPanelText(int panel, const QString& text) {
        while (texts_.size() < panel)
            texts_.append(QString());
        if (texts_[panel - 1] == text) return;
        texts_[panel - 1] = text;
        emit changed();
    }

  private:
    QStringList texts_;
};

} // namespace tsl
