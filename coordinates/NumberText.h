#pragma once
// Numbers to text by patterns of '#', '0' and '.', and text to numbers by the leading-number
// rule. Every written coordinate goes through here.
//
// Pattern rule: a '0' is a digit always written (padded with zero); a '#' is written only if it
// carries value. The places after '.' are the most fraction digits (the value is rounded to
// them), the '0's after '.' the fewest. '#'s before the point set no limit. '.' is written as
// the locale's decimal separator and a negative value gets the locale's minus sign in front.
//   12.3456789 in "##0.00####" -> "12.345679"      9 in "##0.00####" -> "9.00"
//   5.25 in "00.0##" -> "05.25"                    4982950.4 in "##########0.0" -> "4982950.4"
//
// Leading-number rule (ToDouble, ToInteger): the number at the start of the text is read and
// whatever follows is ignored; a text without one is 0. Blanks and tabs before the number are
// skipped, a sign is taken, and an exponent ("1.5e3") is read by ToDouble. The point is always a
// decimal separator; the comma is one too when the locale's decimal separator is a comma.
//   "45.00," -> 45    "12abc" -> 12    "abc" -> 0    "" -> 0    "-7.5 W" -> -7.5
//   "45,5" -> 45.5 under a comma locale, 45 under a point locale
// Overflowing numbers give +-infinity (ToDouble) or are clamped (ToInteger); nothing fails.

#include <QChar>
#include <QLocale>
#include <QString>
#include <QStringView>

#include <cstdint>

// The two characters of the user's locale that a number text depends on.
struct NumberLocale {
    QChar decimalPoint = QLatin1Char('.');
    QChar minusSign = QLatin1Char('-');

    static NumberLocale from(const QLocale& locale);
    // Qt's default locale: the system's in the application, a pinned one in tests.
    static NumberLocale current() { return from(QLocale()); }
    bool commaIsDecimal() const { return decimalPoint == QLatin1Char(','); }
};

// A parsed number pattern.
struct NumberPattern {
    int minIntegerDigits = 0;
    int minFractionDigits = 0;
    int maxFractionDigits = 0;

    static constexpr NumberPattern fromText(const char* pattern) {
        NumberPattern p;
        bool afterPoint = false;
        for (const char* c = pattern; *c; ++c) {
            if (*c == '.') {
                afterPoint = true;
            } else if (afterPoint) {
                ++p.maxFractionDigits;
                if (*c == '0')
                    ++p.minFractionDigits;
            } else if (*c == '0') {
                ++p.minIntegerDigits;
            }
        }
        return p;
    }
};

// The patterns in use.
namespace Patterns {
constexpr NumberPattern ddLongitude = NumberPattern::fromText("##0.00####");
constexpr NumberPattern ddLatitude = NumberPattern::fromText("#0.00####");
constexpr NumberPattern dmsDegrees = NumberPattern::fromText("##0");
constexpr NumberPattern dmsMinutes = NumberPattern::fromText("00");
constexpr NumberPattern dmsSeconds = NumberPattern::fromText("00.0##");
constexpr NumberPattern utmMetres = NumberPattern::fromText("##########0.0");
} // namespace Patterns

// Appends value written by the pattern to out.
void appendNumber(QString& out, double value, const NumberPattern& pattern,
                  const NumberLocale& locale);
QString formatNumber(double value, const NumberPattern& pattern, const NumberLocale& locale);

// The leading number of text; see the rule above.
double ToDouble(QStringView text, const NumberLocale& locale);
// The same number; wholeText tells whether the number is all of the text, with nothing before
// or after it but the blanks and tabs in front: "45.5" and " -1e3" are, "45.5 N", "45.5.1",
// "" and "." are not.
double ToDouble(QStringView text, const NumberLocale& locale, bool& wholeText);
std::int64_t ToInteger(QStringView text);
