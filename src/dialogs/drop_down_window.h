#pragma once
// A window that drops down beside a toolbar button and shows a picture surface, one object for
// the whole program. The logic places it in twips and sizes its content in pixels; the view
// shows it and answers where a toolbar button stands.
#include "gadgets/controls.h"
#include <QPoint>
#include <functional>

namespace tsl {

class cDropDownToolWindow : public Control {
    Q_OBJECT
  public:
    using Control::Control;

    void Show(int xTwips, int yTwips);
    void Hide();
    bool IsShowing() const { return showing_; }
    // A point of the content, in twips from its top left corner.
    bool PointInside(int xTwips, int yTwips) const;
    void Resize(int widthPixels, int heightPixels);

    int left() const { return left_; } // twips, on the screen
    int top() const { return top_; }
    int width() const { return width_; } // pixels
    int height() const { return height_; }

    // The screen's twips per pixel; the view sets the real ones.
    int TwipsPerPixelX = 15;
    int TwipsPerPixelY = 15;
    // Where a toolbar button's top left corner stands on the screen, in twips.
    std::function<QPoint(const QString& toolbar, int index)> ButtonPosition;

  signals:
    void shown();
    void hidden();

  private:
    bool showing_ = false;
    int left_ = 0;
    int top_ = 0;
    int width_ = 0;
    int height_ = 0;
};

} // namespace tsl
