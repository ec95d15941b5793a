#include "DistanceFormatter.h"

#include <cmath>

namespace {

constexpr double metresPerFoot = 0.3048;
constexpr double metresPerMile = 1609.344;
constexpr NumberPattern whole = NumberPattern::fromText("0");
constexpr NumberPattern oneDecimal = NumberPattern::fromText("0.#");

// A large unit's amount: one decimal below 100, whole from there.
QString largeAmount(double amount, const NumberLocale& locale) {
    // Rounded first, so that 99.96 is written "100" and not "100.0".
    const double tenths = std::round(amount * 10) / 10;
    return formatNumber(tenths, tenths < 100 ? oneDecimal : whole, locale);
}

} // namespace

QString DistanceFormatter::stringFromDistance(double metres) const {
    const bool metric = Units == 1 || (Units != 2 && localeUsesMetric);
    if (!std::isfinite(metres) || metres < 0)
        return metric ? QStringLiteral("-- m") : QStringLiteral("-- ft");
    if (metric) {
        if (std::round(metres) < 1000)
            return formatNumber(metres, whole, locale) + QStringLiteral(" m");
        return largeAmount(metres / 1000, locale) + QStringLiteral(" km");
    }
    const double feet = metres / metresPerFoot;
    if (std::round(feet) < 1000)
        return formatNumber(feet, whole, locale) + QStringLiteral(" ft");
    return largeAmount(metres / metresPerMile, locale) + QStringLiteral(" mi");
}
