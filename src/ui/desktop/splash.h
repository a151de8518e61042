#pragma once
// The picture shown while the program loads.
#include <QPixmap>

namespace tsl {
QPixmap splashPicture();
}
