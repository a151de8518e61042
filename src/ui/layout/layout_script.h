#pragma once
// The script that the Layout surface runs in its own world of the page: it turns on editing,
// reports the command states at each change, and serves the reads and the table commands.
// Internal to the Layout surface.
#include <QString>

namespace tsl {
extern const QString kLayoutScript;
}
