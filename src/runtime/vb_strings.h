#pragma once
// Number readings of the BASIC family that the logic relies on.
#include <QString>

namespace tsl {

// The leading number of a text, 0 when there is none ("12px" gives 12, "" gives 0).
double Val(const QString& text);
// A whole text read as a number; anything else is a type mismatch (13).
double toNumber(const QString& text);

} // namespace tsl
