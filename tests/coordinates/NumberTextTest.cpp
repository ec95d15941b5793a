// Number patterns and the leading-number reading of text, under a point locale and a comma
// locale: a coordinate written in Germany must read back the same. The expected texts are
// worked out by hand from the pattern rule and its examples, not taken from a run of the code.

#include "coordinates/NumberText.h"
#include "coordinates/PlainNumberText.h"
#include "coordinates/SafeInteger.h"
#include "support/QStringPrinting.h"
#include "support/TestLocales.h"

#include <QLocale>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace {

using testLocales::point;
const NumberLocale& comma = testLocales::german;
constexpr double inf = std::numeric_limits<double>::infinity();

struct PatternRow {
    const char* name;
    double value;
    const char* pattern;
    const char* text; // under the C locale; a comma locale writes ',' for '.'
};

const PatternRow patternRows[] = {
    {"rounds_to_six", 12.3456789, "##0.00####", "12.345679"},
    {"pads_integer", 5.25, "00.0##", "05.25"},
    {"rounds_up_into_integer", 359.9, "##0", "360"},
    {"rounding_leaves_zeros_dropped", 2.0000001, "##0.00####", "2.00"},
    {"seconds_rounded_to_sixty", 59.9999964, "00.0##", "60.0"},
    {"seconds_tiny_remainder", 0.0000004, "00.0##", "00.0"},
    {"metres_one_place", 166021.44317, "##########0.0", "166021.4"},
    {"minutes_zero", 0, "00", "00"},
    {"more_digits_than_pattern", 123, "00", "123"},
    {"hash_only_drops_leading_zero", 0.5, "#.##", ".5"},
    {"no_grouping", 1234567.25, "##0.00####", "1234567.25"},
    {"negative_padded", -5.25, "00.0##", "-05.25"},
    {"negative_rounded", -0.1234566, "##0.00####", "-0.123457"},
    {"negative_zero_has_no_sign", -0.0, "##0", "0"},
    // Huge values are written in full, never in exponent form.
    {"huge", -1e20, "##########0.0", "-100000000000000000000.0"},
};

class Pattern : public testing::TestWithParam<PatternRow> {};

TEST_P(Pattern, TextInBothLocales) {
    const PatternRow& r = GetParam();
    const NumberPattern pattern = NumberPattern::fromText(r.pattern);
    EXPECT_EQ(formatNumber(r.value, pattern, point), QString::fromUtf8(r.text));
    EXPECT_EQ(formatNumber(r.value, pattern, comma), QString::fromUtf8(r.text).replace('.', ','));
    // The notation writers build a line piece by piece.
    QString line = QStringLiteral("lat ");
    appendNumber(line, r.value, pattern, point);
    EXPECT_EQ(line, QStringLiteral("lat ") + r.text);
}

INSTANTIATE_TEST_SUITE_P(NumberText, Pattern, testing::ValuesIn(patternRows),
                         [](const auto& row) { return std::string(row.param.name); });

// A NaN or an infinity can reach a writer from an absurd import; the text must not pass for a
// coordinate. The largest double needs 309 integer digits and is written in full.
TEST(Pattern, NonFiniteHasNoDigitsAndTheLargestDoubleIsWhole) {
    for (double value : {std::nan(""), inf, -inf}) {
        const QString text = formatNumber(value, Patterns::ddLongitude, point);
        EXPECT_FALSE(text.isEmpty());
        EXPECT_FALSE(text.contains(QRegularExpression("[0-9]"))) << text.toStdString();
        EXPECT_EQ(text.startsWith('-'), value < 0) << text.toStdString();
    }
    const QString text =
        formatNumber(std::numeric_limits<double>::max(), Patterns::ddLongitude, point);
    EXPECT_EQ(text.size(), 309 + 3);
    EXPECT_TRUE(text.startsWith("17976931348623157") && text.endsWith(".00"));
}

// --- Reading -------------------------------------------------------------------------------------

const QString digits(100000, QLatin1Char('1'));

struct ReadRow {
    const char* name;
    QString text;
    double underPoint, underComma; // ToDouble
    std::int64_t integer;          // ToInteger
};

const ReadRow readRows[] = {
    {"trailing_separator_comma", "45.00,", 45, 45, 45},
    {"decimal_comma_then_separator", "45,5,", 45, 45.5, 45},
    {"point_in_comma_locale", "45.5", 45.5, 45.5, 45},
    {"only_one_separator", "1.5.3", 1.5, 1.5, 1},
    {"letters_after_number", "12abc", 12, 12, 12},
    {"no_number", "abc", 0, 0, 0},
    {"empty", "", 0, 0, 0},
    {"null", QString(), 0, 0, 0},
    {"hemisphere_letter_after", "-7.5 W", -7.5, -7.5, -7},
    {"leading_blank_and_tab", " \t12", 12, 12, 12},
    {"plus_sign", "+3.25", 3.25, 3.25, 3},
    {"exponent_with_fraction", "1.5e3", 1500, 1500, 1},
    {"negative_exponent", "25E-1", 2.5, 2.5, 25},
    {"exponent_without_digits", "12e", 12, 12, 12},
    {"exponent_sign_without_digits", "12e+", 12, 12, 12},
    {"overflowing_exponent", "1e999999", inf, inf, 1},
    {"underflowing_exponent", "1e-999999", 0, 0, 1},
    {"leading_point", ".5", 0.5, 0.5, 0},
    {"lone_point", ".", 0, 0, 0},
    {"lone_minus", "-", 0, 0, 0},
    {"minus_zero", "-0", 0, 0, 0},
    {"degree_sign_after", "45°", 45, 45, 45},
    {"words_for_infinity_are_no_number", "inf", 0, 0, 0},
    {"words_for_nan_are_no_number", "nan", 0, 0, 0},
    {"largest_int64_clamps", "9223372036854775807", 9223372036854775807.0, 9223372036854775807.0,
     integerLimit},
    {"negative_overflow_clamps", "-99999999999999999999", -1e20, -1e20, -integerLimit},
    // 100,000 digits: far beyond any double, yet the reading lands on the right magnitude.
    {"hundred_thousand_digits", digits, inf, inf, integerLimit},
    {"hundred_thousand_digits_scaled_down", QString("1234567890").repeated(10000) + "e-99990",
     1234567890.1234567, 1234567890.1234567, integerLimit},
    {"hundred_thousand_digits_with_trailing_text", digits + "e-99998 N", 100.0 / 9, 100.0 / 9,
     integerLimit},
    {"hundred_thousand_fraction_digits", "0." + QString(100000, '3'), 1.0 / 3, 1.0 / 3, 0},
    {"hundred_thousand_zeros_then_digit", "0." + QString(100000, '0') + "7", 0, 0, 0},
    {"hundred_thousand_leading_zeros", QString(100000, '0') + "42", 42, 42, 42},
    {"hundred_thousand_digit_exponent", "1e" + digits, inf, inf, 1},
    {"hundred_thousand_digit_negative_exponent", "1e-" + digits, 0, 0, 1},
    // Hostile text from a file or the clipboard.
    {"lone_surrogates", QString(1000, QChar(0xD800)), 0, 0, 0},
    {"digits_then_lone_surrogate", "12" + QString(QChar(0xDC00)), 12, 12, 12},
    {"digits_then_nul", "12" + QString(QChar(0)) + "34", 12, 12, 12},
    {"megabyte_of_quotes", QString(1 << 20, '"'), 0, 0, 0},
    {"minus_signs", QString(100000, '-'), 0, 0, 0},
    {"points", QString(1 << 20, '.'), 0, 0, 0},
    {"arabic_indic_digits", "\u0661\u0662", 0, 0, 0},
};

class Read : public testing::TestWithParam<ReadRow> {};

TEST_P(Read, LeadingNumber) {
    const ReadRow& r = GetParam();
    const auto same = [](double a, double b) {
        return a == b || std::fabs(a - b) <= 1e-15 * std::fabs(b);
    };
    EXPECT_PRED2(same, ToDouble(r.text, point), r.underPoint);
    EXPECT_PRED2(same, ToDouble(r.text, comma), r.underComma);
    EXPECT_EQ(ToInteger(r.text), r.integer);
}

INSTANTIATE_TEST_SUITE_P(NumberText, Read, testing::ValuesIn(readRows),
                         [](const auto& row) { return std::string(row.param.name); });

// The table sorts by the number at the head of a cell, in the table's own locale.
TEST(Val, HeadOfACell) {
    NumberLocale trueMinus;
    trueMinus.decimalPoint = QLatin1Char(',');
    trueMinus.minusSign = QChar(0x2212);
    EXPECT_EQ(Val(QStringLiteral("  \t-33.50° S"), point), -33.5);
    EXPECT_EQ(Val(QStringLiteral("- 5"), point), 0);
    EXPECT_EQ(Val(QString(), trueMinus), 0);
    EXPECT_EQ(Val(QStringLiteral("-33,50"), point), -33);
    EXPECT_EQ(Val(QStringLiteral("-33,50"), trueMinus), -33.5);
    EXPECT_EQ(Val(QString(QChar(0x2212)) + QStringLiteral("33,25 S"), trueMinus), -33.25);
}

// The plain text of a double reads back to the same double, with a point in any locale.
TEST(PlainDouble, ShortestTextRoundTrips) {
    for (double value : {0.0, 15.5, 0.1 + 0.2, 1e-7, -2.5, 59.999999999999993}) {
        const QString text = plainDoubleText(value);
        EXPECT_EQ(text.toDouble(), value) << text.toStdString();
        EXPECT_FALSE(text.contains(',')) << text.toStdString();
    }
    EXPECT_EQ(plainDoubleText(15.5), QStringLiteral("15.5"));
}

// The quick ways of writing and reading a number against the standard library's exact
// conversions, which nobody here wrote: random magnitudes at each number of places the patterns
// use, and the decimal halves where rounding is decided, with their neighbours on either side.
TEST(NumberText, WrittenAndReadAsTheStandardLibraryDoes) {
    std::mt19937_64 random(12);
    std::uniform_real_distribution<double> decades(-8, 10);
    for (const int places : {1, 2, 3, 6}) {
        const std::string pattern = "0." + std::string(static_cast<std::size_t>(places), '0');
        const double unit = std::pow(10.0, places);
        for (int i = 0; i < 30000; ++i) {
            double value = std::pow(10.0, decades(random));
            // A half of the last place (exact where a double can hold it: 0.125), or the
            // double next to it on either side.
            if (i % 4 != 0) {
                const double half = (std::floor(value * unit) + 0.5) / unit;
                const double towards[] = {half, 0.0, 1e300};
                value = std::nextafter(half, towards[i % 4 - 1]);
            }
            value = random() % 2 ? -value : value;
            char exact[400];
            const auto end = std::to_chars(exact, exact + sizeof exact, std::fabs(value),
                                           std::chars_format::fixed, places)
                                 .ptr;
            const std::string expected = (value < 0 ? "-" : "") + std::string(exact, end);
            const QString text =
                formatNumber(value, NumberPattern::fromText(pattern.c_str()), point);
            ASSERT_EQ(text, QString::fromStdString(expected)) << value;
            const auto shortest = std::to_chars(exact, exact + sizeof exact, value).ptr;
            ASSERT_EQ(ToDouble(QString::fromLatin1(exact, int(shortest - exact)), point), value)
                << std::string(exact, shortest);
            double read = 0;
            std::from_chars(expected.data(), expected.data() + expected.size(), read);
            ASSERT_EQ(ToDouble(text, point), read) << expected;
        }
    }
}

} // namespace
