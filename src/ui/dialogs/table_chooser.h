#pragma once
// The table chooser on screen: a drop-down grid under a toolbar button that follows the
// logic's chooser. It paints what the chooser drew and hands it the mouse in twips.
// Open to the window, which makes the chooser's popup.
#include <QPointer>
#include <QWidget>

class QMainWindow;

namespace tsl {

class DialogContext;
class TableChooser;
class cDropDownToolWindow;

class TableChooserPopup : public QWidget {
    Q_OBJECT
  public:
    TableChooserPopup(DialogContext& shell, QWidget* owner);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void place();
    void follow();
    QPoint twips(const QPoint& pixels) const;
    DialogContext& shell_;
    TableChooser& chooser_;
    // Gone with the logic when the program closes before the window does.
    QPointer<cDropDownToolWindow> window_;
    bool pressed_ = false;
};

// Makes the chooser's window for the main window and tells the logic where its toolbar
// buttons stand.
void installTableChooser(DialogContext& shell, QMainWindow& window);

} // namespace tsl
