#pragma once
// The find bar of the Layout view: a search in the page as it is shown, above the page.
// Return finds the next occurrence, Shift+Return the one before, Escape closes the bar.
// Internal to the Layout surface.
#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace tsl {

class EnginePage;

class FindBar : public QWidget {
    Q_OBJECT
  public:
    explicit FindBar(QWidget* parent = nullptr);
    // The page searched; the bar shows itself with the keyboard in its box.
    void open(EnginePage* page);
    QLineEdit* box() const { return box_; }
    void find(bool backward);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    EnginePage* page_ = nullptr;
    QLineEdit* box_;
    QCheckBox* matchCase_;
    QLabel* status_;
};

} // namespace tsl
