#pragma once
// Many positions are held in 16-bit signed integers; past 32767 the narrowing raises an
// overflow at the statement that narrows. Every such narrowing goes through here.
#include "runtime/runtime_error.h"
#include <cstdint>
#include <limits>

namespace tsl {

using Int16 = std::int16_t;

inline Int16 toInt16(long long value) {
    if (value > std::numeric_limits<Int16>::max() || value < std::numeric_limits<Int16>::min())
        raise(ErrOverflow);
    return static_cast<Int16>(value);
}

// A 16-bit counter that raises overflow when stepped past its range.
inline Int16 incrementInt16(Int16 value) {
    return toInt16(static_cast<long long>(value) + 1);
}

} // namespace tsl
