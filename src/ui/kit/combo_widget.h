#pragma once
// The combo box of the dialogs. It tells assistive tools the name of its field (its label),
// and its current text as its value; the toolkit's own combo would give the current text as
// its name on this desktop, so a screen reader would never say which field it is.
// Open to the dialog views and to the window (the Layout strip's combos).
#include <QComboBox>

namespace tsl {

class ComboWidget : public QComboBox {
    Q_OBJECT
  public:
    explicit ComboWidget(QWidget* parent = nullptr);
};

} // namespace tsl
