// ToDouble and ToInteger with any text, under a locale with a decimal point and one with a
// decimal comma, and the number patterns applied to what they read. Every coordinate typed,
// imported or pasted passes through these. The input is UTF-16 (see FuzzInput.h); its first
// eight bytes are also written through the patterns as a raw double. A text that is a number
// and nothing else must read as the C library reads it.

#include "FuzzInput.h"

#include "coordinates/AngleText.h"
#include "coordinates/NumberText.h"
#include "coordinates/SafeInteger.h"

#include <QString>

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

const NumberPattern allPatterns[] = {Patterns::ddLongitude, Patterns::ddLatitude,
                                     Patterns::dmsDegrees,  Patterns::dmsMinutes,
                                     Patterns::dmsSeconds,  Patterns::utmMetres};

NumberLocale commaLocale() {
    NumberLocale locale;
    locale.decimalPoint = QLatin1Char(',');
    return locale;
}

// What a pattern writes reads back as the value rounded to the pattern's places.
void checkWrittenReadsBack(double value, const NumberLocale& locale) {
    for (const NumberPattern& pattern : allPatterns) {
        const QString text = formatNumber(value, pattern, locale);
        FUZZ_CHECK(!text.isEmpty());
        if (!std::isfinite(value))
            continue;
        const double back = ToDouble(text, locale);
        const double halfStep = 0.5 * std::pow(10.0, -pattern.maxFractionDigits);
        FUZZ_CHECK(std::fabs(back - value) <= halfStep * (1 + 1e-9) + std::fabs(value) * 1e-15);
    }
    FUZZ_CHECK(!DMSfromAngle(value, locale).isEmpty());
}

// The text as ASCII when all of it is one number in C notation: blanks or tabs, a sign,
// digits with at most one point and at least one digit, and an optional exponent with digits.
// Such a text has one right reading, the C library's, to compare with.
bool asPlainNumber(const QString& text, std::string& ascii, bool& whole) {
    ascii.clear();
    for (const QChar c : text) {
        if (c.unicode() > 0x7F)
            return false;
        ascii += static_cast<char>(c.unicode());
    }
    std::size_t i = 0;
    const auto digitsAt = [&](std::size_t& at) {
        const std::size_t start = at;
        while (at < ascii.size() && ascii[at] >= '0' && ascii[at] <= '9')
            ++at;
        return at - start;
    };
    while (i < ascii.size() && (ascii[i] == ' ' || ascii[i] == '\t'))
        ++i;
    if (i < ascii.size() && (ascii[i] == '+' || ascii[i] == '-'))
        ++i;
    std::size_t mantissaDigits = digitsAt(i);
    whole = mantissaDigits > 0 && i == ascii.size();
    if (i < ascii.size() && ascii[i] == '.') {
        ++i;
        mantissaDigits += digitsAt(i);
    }
    if (mantissaDigits == 0)
        return false;
    if (i < ascii.size() && (ascii[i] == 'e' || ascii[i] == 'E')) {
        ++i;
        if (i < ascii.size() && (ascii[i] == '+' || ascii[i] == '-'))
            ++i;
        if (digitsAt(i) == 0)
            return false;
    }
    return i == ascii.size();
}

// A number text that is nothing but a number reads as the C library reads it; a value too
// small for a normal double may also read as 0.
void checkAgainstCLibrary(const QString& text, double withPoint, std::int64_t whole) {
    std::string ascii;
    bool integral = false;
    if (!asPlainNumber(text, ascii, integral))
        return;
    const double expected = std::strtod(ascii.c_str(), nullptr);
    FUZZ_CHECK(sameBits(withPoint, expected) ||
               (std::fabs(expected) < DBL_MIN && withPoint == 0 &&
                std::signbit(withPoint) == std::signbit(expected)));
    if (integral) {
        long long c = std::strtoll(ascii.c_str(), nullptr, 10);
        c = c > integerLimit ? integerLimit : c < -integerLimit ? -integerLimit : c;
        FUZZ_CHECK(whole == c);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const NumberLocale point;
    const NumberLocale comma = commaLocale();

    FuzzInput raw(data, size);
    const double rawValue = raw.takeDouble();
    for (const NumberPattern& pattern : allPatterns) {
        FUZZ_CHECK(!formatNumber(rawValue, pattern, point).isEmpty());
        FUZZ_CHECK(!formatNumber(rawValue, pattern, comma).isEmpty());
    }

    FuzzInput input(data, size);
    const QString text = input.takeRestAsUtf16();
    const double withPoint = ToDouble(text, point);
    const double withComma = ToDouble(text, comma);
    FUZZ_CHECK(!std::isnan(withPoint) && !std::isnan(withComma));
    // Only a comma can make the two locales read a text differently.
    if (!text.contains(QLatin1Char(',')))
        FUZZ_CHECK(sameBits(withPoint, withComma));
    const std::int64_t whole = ToInteger(text);
    FUZZ_CHECK(whole >= -integerLimit && whole <= integerLimit);
    checkAgainstCLibrary(text, withPoint, whole);

    checkWrittenReadsBack(withPoint, point);
    checkWrittenReadsBack(withComma, comma);
    return 0;
}
