#include "NumberText.h"

#include "SafeInteger.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

NumberLocale NumberLocale::from(const QLocale& locale) {
    NumberLocale result;
    result.decimalPoint = locale.decimalPoint();
    result.minusSign = locale.negativeSign();
    return result;
}

void appendNumber(QString& out, double value, const NumberPattern& pattern,
                  const NumberLocale& locale) {
    // Shortest exact decimal rounding of |value| to the pattern's most fraction digits; the
    // largest finite double needs 309 integer digits.
    char digits[400];
    const double magnitude = std::fabs(value);
    const auto written = std::to_chars(digits, digits + sizeof digits, magnitude,
                                       std::chars_format::fixed, pattern.maxFractionDigits);
    const char* end = written.ptr;
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

    if (value < 0)
        out += locale.minusSign;
    int integerDigits = static_cast<int>(point - digits);
    const bool zeroInteger = integerDigits == 1 && digits[0] == '0';
    if (zeroInteger && pattern.minIntegerDigits == 0)
        integerDigits = 0;
    for (int pad = integerDigits; pad < pattern.minIntegerDigits; ++pad)
        out += QLatin1Char('0');
    if (integerDigits > 0)
        out += QLatin1String(digits, integerDigits);
    if (fractionEnd > fractionStart) {
        out += locale.decimalPoint;
        out += QLatin1String(fractionStart, static_cast<int>(fractionEnd - fractionStart));
    }
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

// Appends the run of ASCII digits at i to out.
void readDigits(QStringView text, int& i, std::string& out) {
    while (i < text.size() && isAsciiDigit(text[i]))
        out += static_cast<char>(text[i++].unicode());
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

// The leading number of text; end is where it stops, 0 when the text has no digit there.
double readLeadingNumber(QStringView text, const NumberLocale& locale, int& end) {
    end = 0;
    int i = skipBlanks(text);
    const bool negative = readSign(text, i);
    std::string number = "0"; // so that ".5" reads as 0.5
    readDigits(text, i, number);
    const bool hasPoint =
        i < text.size() &&
        (text[i] == QLatin1Char('.') || (locale.commaIsDecimal() && text[i] == QLatin1Char(',')));
    if (hasPoint) {
        ++i;
        number += '.';
        readDigits(text, i, number);
    }
    if (number == "0" || number == "0.")
        return 0.0; // no digit at all: not a number, which reads as 0
    // Decimal order of the leading significant digit. A number out of range overflows when its
    // order with the exponent is positive: 400 digits without an exponent are infinite, not 0.
    const std::size_t pointAt = std::min(number.find('.'), number.size());
    const std::size_t leadingAt = number.find_first_not_of("0.");
    long order = 0;
    if (leadingAt != std::string::npos)
        order = leadingAt < pointAt ? static_cast<long>(pointAt - leadingAt) - 1
                                    : -static_cast<long>(leadingAt - pointAt);
    long exponent = 0;
    if (readExponent(text, i, exponent))
        number += 'e' + std::to_string(exponent);
    end = i;

    double value = 0;
    const auto parsed = std::from_chars(number.data(), number.data() + number.size(), value);
    if (parsed.ec == std::errc::result_out_of_range)
        value = order + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
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
