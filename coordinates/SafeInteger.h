#pragma once
// Conversions to whole numbers that stay defined for any double or integer a user can type or
// a file can hold: NaN, infinities and values beyond 64 bits would otherwise be undefined
// behaviour in a plain cast or in std::abs.

#include <cmath>
#include <cstdint>

// Largest magnitude kept; beyond it values are clamped. Far outside any zone, band or degree.
constexpr std::int64_t integerLimit = 4000000000000000000LL;

// x truncated toward zero, clamped to +-integerLimit; NaN gives 0.
inline std::int64_t truncateToInteger(double x) {
    if (std::isnan(x))
        return 0;
    if (x >= static_cast<double>(integerLimit))
        return integerLimit;
    if (x <= -static_cast<double>(integerLimit))
        return -integerLimit;
    return static_cast<std::int64_t>(x);
}

// |x| that cannot overflow (INT64_MIN is clamped to the limit).
inline std::int64_t absoluteInteger(std::int64_t x) {
    if (x < -integerLimit)
        return integerLimit;
    return x < 0 ? -x : x;
}
