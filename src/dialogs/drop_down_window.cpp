#include "dialogs/drop_down_window.h"

namespace tsl {

void cDropDownToolWindow::Show(int xTwips, int yTwips) {
    left_ = xTwips;
    top_ = yTwips;
    showing_ = true;
    emit shown();
}

void cDropDownToolWindow::Hide() {
    if (!showing_) return;
    showing_ = false;
    emit hidden();
}

bool cDropDownToolWindow::PointInside(int xTwips, int yTwips) const {
    return xTwips >= 0 && yTwips >= 0 && xTwips < width_ * TwipsPerPixelX &&
           yTwips < height_ * TwipsPerPixelY;
}

void cDropDownToolWindow::Resize(int widthPixels, int heightPixels) {
    if (width_ == widthPixels && height_ == heightPixels) return;
    width_ = widthPixels;
    height_ = heightPixels;
    emit changed();
}

} // namespace tsl
