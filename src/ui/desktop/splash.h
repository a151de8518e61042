#pragma once
// The picture shown while the program loads.
// Used by main() alone.
#include <QPixmap>

namespace tsl {
QPixmap splashPicture();
}
