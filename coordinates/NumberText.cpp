#include "NumberText.h"

#include "SafeInteger.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <utility>

NumberLocale NumberLocale::from(const QLocale& locale) {
    NumberLocale result;
    result.decimalPoint = locale.decimalPoint();
    result.minusSign = locale.negativeSign();
    return result;
}

namespace {

constexpr int fastPlaces = 16; // 10^15 and below are whole doubles

// A value already scaled by 10^Places and rounded, written as to_chars writes it in fixed
// notation ("12.345679"). Places is a constant so that the divisions are multiplications.
template <std::size_t Places>
char* scaledDigits(char* digits, std::size_t size, std::uint64_t rounded) {
    std::uint64_t unit = 1;
    for (std::size_t i = 0; i < Places; ++i)
        unit *= 10;
    char* end = std::to_chars(digits, digits + size, rounded / unit).ptr;
    if (Places == 0)
        return end;
    *end++ = '.';
    std::uint64_t rest = rounded % unit;
    for (std::size_t i = Places; i-- > 0; rest /= 10)
        end[i] = static_cast<char>('0' + rest % 10);
    return end + Places;
}

using ScaledWriter = char* (*)(char*, std::size_t, std::uint64_t);

template <std::size_t... Places>
constexpr std::array<ScaledWriter, sizeof...(Places)>
scaledWriters(std::index_sequence<Places...>) {
    return {&scaledDigits<Places>...};
}

// |value| rounded to places fraction digits, written as to_chars writes it in fixed notation
// ("12.345679", "0.500"), into digits; the end of the text. The exact decimal rounding of a
// double is costly in general, and a file of a million locations writes six numbers a line, so
// the common case is done in integers: the value scaled by 10^places is rounded to the nearest
// whole number. The scaling may be off by half a unit in its last place; only when that could
// move the value across a half (a tie, or nearly one) does to_chars decide.
char* fixedDigits(char* digits, std::size_t size, double magnitude, int places) {
    static constexpr double powers[fastPlaces] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    static constexpr auto writers = scaledWriters(std::make_index_sequence<fastPlaces>());
    constexpr double exactIntegers = 9007199254740992.0; // 2^53
    if (places >= 0 && places < fastPlaces) {
        const double scaled = magnitude * powers[places];
        if (scaled < exactIntegers) { // false for NaN too
            const double whole = std::floor(scaled);
            const double fraction = scaled - whole; // exact below 2^53
            const double doubt = scaled * 0x1p-52;
            if (std::fabs(fraction - 0.5) > doubt) {
                const auto rounded = static_cast<std::uint64_t>(whole) + (fraction > 0.5 ? 1 : 0);
                return writers[static_cast<std::size_t>(places)](digits, size, rounded);
            }
        }
    }
    return std::to_chars(digits, digits + size, magnitude, std::chars_format::fixed, places).ptr;
}

} // namespace

void appendNumber(QString& out, double value, const NumberPattern& pattern,
                  const NumberLocale& locale) {
    // Shortest exact decimal rounding of |value| to the pattern's most fraction digits; the
    // largest finite double needs 309 integer digits.
    char digits[400];
    const double magnitude = std::fabs(value);
    const char* end = fixedDigits(digits, sizeof digits, magnitude, pattern.maxFractionDigits);
    if (!std::isfinite(value)) {
        if (value < 0)
            out += locale.minusSign;
        out += QLatin1String(digits, static_cast<int>(end - digits));
        return;
    }
    const char* point = digits;
    while (point < end && *point != '.')
        ++point;
    // Drop trailing fraction zeros beyond the fewest fraction digits.
    const char* fractionStart = point < end ? point + 1 : end;
    const char* fractionEnd = end;
    while (fractionEnd - fractionStart > pattern.minFractionDigits && fractionEnd[-1] == '0')
        --fractionEnd;

    // The whole text is put together here and appended at once.
    char16_t text[sizeof digits + 64];
    int length = 0;
    if (value < 0)
        text[length++] = locale.minusSign.unicode();
    int integerDigits = static_cast<int>(point - digits);
    const bool zeroInteger = integerDigits == 1 && digits[0] == '0';
    if (zeroInteger && pattern.minIntegerDigits == 0)
        integerDigits = 0;
    for (int pad = integerDigits; pad < pattern.minIntegerDigits && length < 64; ++pad)
        text[length++] = u'0';
    for (int i = 0; i < integerDigits; ++i)
        text[length++] = static_cast<char16_t>(digits[i]);
    if (fractionEnd > fractionStart) {
        text[length++] = locale.decimalPoint.unicode();
        for (const char* c = fractionStart; c < fractionEnd; ++c)
            text[length++] = static_cast<char16_t>(*c);
    }
    out.append(reinterpret_cast<const QChar*>(text), length);
}

QString formatNumber(double value, const NumberPattern& pattern, const NumberLocale& locale) {
    QString out;
    appendNumber(out, value, pattern, locale);
    return out;
}

namespace {

bool isAsciiDigit(QChar c) {
    return c.unicode() >= '0' && c.unicode() <= '9';
}

// Position after leading blanks and tabs.
int skipBlanks(QStringView text) {
    int i = 0;
    while (i < text.size() && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t')))
        ++i;
    return i;
}

// Reads an optional sign at i; returns true for a minus.
bool readSign(QStringView text, int& i) {
    if (i < text.size() && (text[i] == QLatin1Char('-') || text[i] == QLatin1Char('+')))
        return text[i++] == QLatin1Char('-');
    return false;
}

// Moves i past the run of ASCII digits there.
void skipDigits(QStringView text, int& i) {
    while (i < text.size() && isAsciiDigit(text[i]))
        ++i;
}

// Reads an exponent at i ("e", optional sign, at least one digit), clamped to a magnitude that
// still over- or underflows every double. Leaves i alone when there is none.
bool readExponent(QStringView text, int& i, long& exponent) {
    if (i >= text.size() || (text[i] != QLatin1Char('e') && text[i] != QLatin1Char('E')))
        return false;
    int j = i + 1;
    const bool negative = readSign(text, j);
    if (j >= text.size() || !isAsciiDigit(text[j]))
        return false;
    long value = 0;
    while (j < text.size() && isAsciiDigit(text[j])) {
        if (value < 100000)
            value = value * 10 + (text[j].unicode() - '0');
        ++j;
    }
    exponent = negative ? -value : value;
    i = j;
    return true;
}

// Where the digits of a number lie in its text: before the point, and after it.
struct NumberDigits {
    QStringView integer;
    QStringView fraction;
    bool point = false;
};

// The value of the digits times 10^exponent when it is exact to compute: digits and power of
// ten both whole doubles, so that one multiplication or division rounds once, as a full
// conversion would. Coordinates ("-21.536011") nearly always are.
bool exactQuotient(const NumberDigits& d, long exponent, double& value) {
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr std::uint64_t exactIntegers = std::uint64_t(1) << 53;
    if (d.integer.size() + d.fraction.size() > 19)
        return false;
    std::uint64_t whole = 0;
    for (const QStringView part : {d.integer, d.fraction})
        for (const QChar c : part)
            whole = whole * 10 + (c.unicode() - '0');
    const long scale = exponent - static_cast<long>(d.fraction.size());
    constexpr long largest = static_cast<long>(std::size(powers)) - 1;
    if (whole >= exactIntegers || scale < -largest || scale > largest)
        return false;
    const auto w = static_cast<double>(whole);
    value = scale < 0 ? w / powers[-scale] : w * powers[scale];
    return true;
}

// The value of any digits, through the standard library's conversion.
double fullConversion(const NumberDigits& d, bool hasExponent, long exponent) {
    std::string number = "0"; // so that ".5" reads as 0.5
    for (const QChar c : d.integer)
        number += static_cast<char>(c.unicode());
    if (d.point)
        number += '.';
    for (const QChar c : d.fraction)
        number += static_cast<char>(c.unicode());
    // Decimal order of the leading significant digit. A number out of range overflows when its
    // order with the exponent is positive: 400 digits without an exponent are infinite, not 0.
    const std::size_t pointAt = std::min(number.find('.'), number.size());
    const std::size_t leadingAt = number.find_first_not_of("0.");
    long order = 0;
    if (leadingAt != std::string::npos)
        order = leadingAt < pointAt ? static_cast<long>(pointAt - leadingAt) - 1
                                    : -static_cast<long>(leadingAt - pointAt);
    if (hasExponent)
        number += 'e' + std::to_string(exponent);
    double value = 0;
    const auto parsed = std::from_chars(number.data(), number.data() + number.size(), value);
    if (parsed.ec == std::errc::result_out_of_range)
        value = order + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return value;
}

// The leading number of text; end is where it stops, 0 when the text has no digit there.
double readLeadingNumber(QStringView text, const NumberLocale& locale, int& end) {
    end = 0;
    int i = skipBlanks(text);
    const bool negative = readSign(text, i);
    NumberDigits d;
    int start = i;
    skipDigits(text, i);
    d.integer = text.mid(start, i - start);
    d.point = i < text.size() && (text[i] == QLatin1Char('.') ||
                                  (locale.commaIsDecimal() && text[i] == QLatin1Char(',')));
    if (d.point) {
        start = ++i;
        skipDigits(text, i);
        d.fraction = text.mid(start, i - start);
    }
    if (d.integer.isEmpty() && d.fraction.isEmpty())
        return 0.0; // no digit at all: not a number, which reads as 0
    long exponent = 0;
    const bool hasExponent = readExponent(text, i, exponent);
    end = i;
    double value = 0;
    if (!exactQuotient(d, exponent, value))
        value = fullConversion(d, hasExponent, exponent);
    return negative ? -value : value;
}

} // namespace

double ToDouble(QStringView text, const NumberLocale& locale) {
    int end = 0;
    return readLeadingNumber(text, locale, end);
}

double ToDouble(QStringView text, const NumberLocale& locale, bool& wholeText) {
    int end = 0;
    const double value = readLeadingNumber(text, locale, end);
    wholeText = end > 0 && end == text.size();
    return value;
}

std::int64_t ToInteger(QStringView text) {
    int i = skipBlanks(text);
    const bool negative = readSign(text, i);
    std::int64_t value = 0;
    while (i < text.size() && isAsciiDigit(text[i])) {
        const int digit = text[i++].unicode() - '0';
        value = value > (integerLimit - digit) / 10 ? integerLimit : value * 10 + digit;
    }
    return negative ? -value : value;
}
