// Number patterns, the leading-number reading of text and the sexagesimal writer, each under a
// point locale and a comma locale: a coordinate written in Germany must read back the same.
// The expected texts are worked out by hand from the pattern rule and the examples that come
// with it, not taken from a run of the code.

#include "coordinates/NumberText.h"
#include "coordinates/AngleText.h"
#include "coordinates/SafeInteger.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

namespace {

const NumberLocale& pointLocale() {
    static const NumberLocale locale = NumberLocale::from(QLocale::c());
    return locale;
}

const NumberLocale& commaLocale() {
    static const NumberLocale locale =
        NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));
    return locale;
}

std::string utf8(const QString& text) {
    return text.toStdString();
}

TEST(NumberLocaleTest, GermanWritesACommaAndAPlainMinus) {
    EXPECT_EQ(commaLocale().decimalPoint, QLatin1Char(','));
    EXPECT_EQ(commaLocale().minusSign, QLatin1Char('-'));
    EXPECT_TRUE(commaLocale().commaIsDecimal());
    EXPECT_EQ(pointLocale().decimalPoint, QLatin1Char('.'));
    EXPECT_FALSE(pointLocale().commaIsDecimal());
}

TEST(NumberLocaleTest, TestsRunUnderThePinnedCLocale) {
    EXPECT_EQ(NumberLocale::current().decimalPoint, QLatin1Char('.'));
}

// ---------------------------------------------------------------------------------------------

struct PatternCase {
    const char* name;
    double value;
    const char* pattern;
    const char* pointText; // under the C locale
    const char* commaText; // under de_DE
};

void PrintTo(const PatternCase& c, std::ostream* out) {
    *out << c.name;
}

const PatternCase patternCases[] = {
    // The examples of the pattern rule.
    {"rule_example_rounds_to_six", 12.3456789, "##0.00####", "12.345679", "12,345679"},
    {"rule_example_pads_two_fraction_digits", 9, "##0.00####", "9.00", "9,00"},
    {"rule_example_seconds", 45.5, "00.0##", "45.5", "45,5"},
    {"rule_example_pads_integer", 5.25, "00.0##", "05.25", "05,25"},
    {"rule_example_northing", 4982950.4, "##########0.0", "4982950.4", "4982950,4"},
    // Rounding to the most fraction digits, trailing zeros dropped down to the fewest.
    {"rounds_up_into_integer", 359.9, "##0", "360", "360"},
    {"rounds_down", 0.1234564, "##0.00####", "0.123456", "0,123456"},
    {"rounds_up", 0.1234566, "##0.00####", "0.123457", "0,123457"},
    {"rounding_leaves_zeros_dropped", 2.0000001, "##0.00####", "2.00", "2,00"},
    {"rounding_carries", 2.9999996, "##0.00####", "3.00", "3,00"},
    {"seconds_rounded_to_sixty", 59.9999964, "00.0##", "60.0", "60,0"},
    {"seconds_tiny_remainder", 0.0000004, "00.0##", "00.0", "00,0"},
    {"seconds_three_places", 4.56789, "00.0##", "04.568", "04,568"},
    {"metres_one_place", 166021.44317, "##########0.0", "166021.4", "166021,4"},
    // Fewest integer digits; '#' before the point sets no limit.
    {"minutes_padded", 5, "00", "05", "05"},
    {"minutes_zero", 0, "00", "00", "00"},
    {"more_digits_than_pattern", 123, "00", "123", "123"},
    {"three_zeros", 5, "000.0", "005.0", "005,0"},
    {"latitude_zero", 0, "#0.00####", "0.00", "0,00"},
    {"hash_only_drops_leading_zero", 0.5, "#.##", ".5", ",5"},
    {"no_grouping", 1234567.25, "##0.00####", "1234567.25", "1234567,25"},
    // Negative values.
    {"negative_longitude", -120.5, "##0.00####", "-120.50", "-120,50"},
    {"negative_padded", -5.25, "00.0##", "-05.25", "-05,25"},
    {"negative_rounded", -0.1234566, "##0.00####", "-0.123457", "-0,123457"},
    {"negative_zero_has_no_sign", -0.0, "##0", "0", "0"},
    // Huge values are written in full, never in exponent form.
    {"huge_1e20", 1e20, "##0.00####", "100000000000000000000.00", "100000000000000000000,00"},
    {"huge_negative_1e20", -1e20, "##########0.0", "-100000000000000000000.0",
     "-100000000000000000000,0"},
};

class PatternText : public testing::TestWithParam<PatternCase> {};

TEST_P(PatternText, UnderPointLocale) {
    const PatternCase& c = GetParam();
    EXPECT_EQ(utf8(formatNumber(c.value, NumberPattern::fromText(c.pattern), pointLocale())),
              c.pointText);
}

TEST_P(PatternText, UnderCommaLocale) {
    const PatternCase& c = GetParam();
    EXPECT_EQ(utf8(formatNumber(c.value, NumberPattern::fromText(c.pattern), commaLocale())),
              c.commaText);
}

// appendNumber adds to what is there, as the notation writers build a line piece by piece.
TEST_P(PatternText, AppendKeepsWhatWasThere) {
    const PatternCase& c = GetParam();
    QString line = QStringLiteral("lat ");
    appendNumber(line, c.value, NumberPattern::fromText(c.pattern), pointLocale());
    EXPECT_EQ(utf8(line), std::string("lat ") + c.pointText);
}

INSTANTIATE_TEST_SUITE_P(NumberText, PatternText, testing::ValuesIn(patternCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct PatternShapeCase {
    const char* name;
    NumberPattern pattern;
    const char* text;
    int minInteger, minFraction, maxFraction;
};

void PrintTo(const PatternShapeCase& c, std::ostream* out) {
    *out << c.name;
}

// The patterns in use, as the writers of the three notations and the table name them.
const PatternShapeCase patternShapes[] = {
    {"dd_longitude", Patterns::ddLongitude, "##0.00####", 1, 2, 6},
    {"dd_latitude", Patterns::ddLatitude, "#0.00####", 1, 2, 6},
    {"dms_degrees", Patterns::dmsDegrees, "##0", 1, 0, 0},
    {"dms_minutes", Patterns::dmsMinutes, "00", 2, 0, 0},
    {"dms_seconds", Patterns::dmsSeconds, "00.0##", 2, 1, 3},
    {"utm_metres", Patterns::utmMetres, "##########0.0", 1, 1, 1},
};

class PatternShape : public testing::TestWithParam<PatternShapeCase> {};

TEST_P(PatternShape, DigitCountsOfThePattern) {
    const PatternShapeCase& c = GetParam();
    EXPECT_EQ(c.pattern.minIntegerDigits, c.minInteger);
    EXPECT_EQ(c.pattern.minFractionDigits, c.minFraction);
    EXPECT_EQ(c.pattern.maxFractionDigits, c.maxFraction);
    const NumberPattern parsed = NumberPattern::fromText(c.text);
    EXPECT_EQ(parsed.minIntegerDigits, c.minInteger);
    EXPECT_EQ(parsed.minFractionDigits, c.minFraction);
    EXPECT_EQ(parsed.maxFractionDigits, c.maxFraction);
}

INSTANTIATE_TEST_SUITE_P(NumberText, PatternShape, testing::ValuesIn(patternShapes),
                         [](const auto& row) { return std::string(row.param.name); });

struct NonFiniteCase {
    const char* name;
    double value;
};

void PrintTo(const NonFiniteCase& c, std::ostream* out) {
    *out << c.name;
}

class NonFinitePattern : public testing::TestWithParam<NonFiniteCase> {};

// A NaN or an infinity can reach a writer from an absurd import; the text it gets must not
// pass for a coordinate.
TEST_P(NonFinitePattern, WritesNoDigits) {
    const double value = GetParam().value;
    for (const NumberLocale* locale : {&pointLocale(), &commaLocale()}) {
        const QString text = formatNumber(value, Patterns::ddLongitude, *locale);
        EXPECT_FALSE(text.isEmpty());
        for (QChar c : text)
            EXPECT_FALSE(c.isDigit()) << utf8(text);
        EXPECT_EQ(text.startsWith(locale->minusSign), value < 0) << utf8(text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    NumberText, NonFinitePattern,
    testing::Values(NonFiniteCase{"nan", std::numeric_limits<double>::quiet_NaN()},
                    NonFiniteCase{"infinity", std::numeric_limits<double>::infinity()},
                    NonFiniteCase{"minus_infinity", -std::numeric_limits<double>::infinity()}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NumberText, LargestDoubleIsWrittenInFull) {
    const QString text =
        formatNumber(std::numeric_limits<double>::max(), Patterns::ddLongitude, pointLocale());
    // 1.797...e308 has 309 integer digits; then the point and two fraction digits.
    ASSERT_EQ(text.size(), 309 + 1 + 2);
    EXPECT_TRUE(text.startsWith(QLatin1String("17976931348623157")));
    EXPECT_TRUE(text.endsWith(QLatin1String(".00")));
}

// ---------------------------------------------------------------------------------------------

constexpr double infinity = std::numeric_limits<double>::infinity();

struct ReadCase {
    const char* name;
    const char* text;
    double underPoint; // under the C locale
    double underComma; // under de_DE
};

void PrintTo(const ReadCase& c, std::ostream* out) {
    *out << c.name;
}

const ReadCase readCases[] = {
    {"trailing_separator_comma", "45.00,", 45, 45},
    {"trailing_comma_after_integer", "45,", 45, 45},
    {"letters_after_number", "12abc", 12, 12},
    {"no_number", "abc", 0, 0},
    {"empty", "", 0, 0},
    {"hemisphere_letter_after", "-7.5 W", -7.5, -7.5},
    {"leading_blank", " 12", 12, 12},
    {"leading_tab", "\t12", 12, 12},
    {"plus_sign", "+3.25", 3.25, 3.25},
    {"exponent", "1e3", 1000, 1000},
    {"exponent_with_fraction", "1.5e3", 1500, 1500},
    {"negative_exponent", "25E-1", 2.5, 2.5},
    {"exponent_without_digits", "12e", 12, 12},
    {"exponent_sign_without_digits", "12e+", 12, 12},
    {"overflowing_exponent", "1e999999", infinity, infinity},
    {"negative_overflowing_exponent", "-1e999999", -infinity, -infinity},
    {"underflowing_exponent", "1e-999999", 0, 0},
    {"decimal_comma", "45,5", 45, 45.5},
    {"decimal_comma_then_separator", "45,5,", 45, 45.5},
    {"point_in_comma_locale", "45.5", 45.5, 45.5},
    {"only_one_separator", "1.5.3", 1.5, 1.5},
    {"leading_point", ".5", 0.5, 0.5},
    {"lone_point", ".", 0, 0},
    {"lone_minus", "-", 0, 0},
    {"degree_sign_after", "45°", 45, 45},
    {"words_for_infinity_are_no_number", "inf", 0, 0},
    {"words_for_nan_are_no_number", "nan", 0, 0},
};

class ReadDouble : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadDouble, UnderPointLocale) {
    const ReadCase& c = GetParam();
    EXPECT_EQ(ToDouble(QString::fromUtf8(c.text), pointLocale()), c.underPoint) << c.text;
}

TEST_P(ReadDouble, UnderCommaLocale) {
    const ReadCase& c = GetParam();
    EXPECT_EQ(ToDouble(QString::fromUtf8(c.text), commaLocale()), c.underComma) << c.text;
}

INSTANTIATE_TEST_SUITE_P(NumberText, ReadDouble, testing::ValuesIn(readCases),
                         [](const auto& row) { return std::string(row.param.name); });

// What the writers produce reads back to the value, in both locales: the one promise between
// the patterns and the leading-number rule that the entry fields depend on.
TEST(NumberText, WrittenLongitudeReadsBackInBothLocales) {
    for (const NumberLocale* locale : {&pointLocale(), &commaLocale()}) {
        const QString text = formatNumber(-120.123456, Patterns::ddLongitude, *locale) +
                             QStringLiteral(", ") +
                             formatNumber(45.5, Patterns::ddLatitude, *locale);
        EXPECT_EQ(ToDouble(text, *locale), -120.123456) << utf8(text);
    }
}

struct LongDigitsCase {
    const char* name;
    QString text;
    double expected;
    double relativeTolerance;
};

void PrintTo(const LongDigitsCase& c, std::ostream* out) {
    *out << c.name;
}

QString repeated(const char* piece, int times) {
    return QString::fromUtf8(piece).repeated(times);
}

// 100,000 digits: far beyond any double, yet the reading must land on the right magnitude.
const LongDigitsCase longDigitCases[] = {
    {"hundred_thousand_digits_overflow", repeated("9", 100000), infinity, 0},
    {"hundred_thousand_digits_negative", "-" + repeated("9", 100000), -infinity, 0},
    {"hundred_thousand_digits_scaled_down", repeated("1234567890", 10000) + "e-99990",
     1234567890.1234567, 1e-15},
    {"hundred_thousand_digits_with_trailing_text", repeated("1", 100000) + "e-99998 N", 100.0 / 9,
     1e-15},
    {"hundred_thousand_fraction_digits", "0." + repeated("3", 100000), 1.0 / 3, 1e-15},
    {"hundred_thousand_zeros_then_digit", "0." + repeated("0", 100000) + "7", 0, 0},
    {"hundred_thousand_leading_zeros", repeated("0", 100000) + "42", 42, 0},
};

class ReadLongDigits : public testing::TestWithParam<LongDigitsCase> {};

TEST_P(ReadLongDigits, RightMagnitude) {
    const LongDigitsCase& c = GetParam();
    for (const NumberLocale* locale : {&pointLocale(), &commaLocale()}) {
        const double value = ToDouble(c.text, *locale);
        if (std::isinf(c.expected) || c.relativeTolerance == 0)
            EXPECT_EQ(value, c.expected);
        else
            EXPECT_NEAR(value, c.expected, std::fabs(c.expected) * c.relativeTolerance);
    }
}

INSTANTIATE_TEST_SUITE_P(NumberText, ReadLongDigits, testing::ValuesIn(longDigitCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct IntegerCase {
    const char* name;
    QString text;
    std::int64_t expected;
};

void PrintTo(const IntegerCase& c, std::ostream* out) {
    *out << c.name;
}

const IntegerCase integerCases[] = {
    {"plain", "32", 32},
    {"letter_after", "32N", 32},
    {"negative", "-56", -56},
    {"plus", "+7", 7},
    {"leading_blank", " 12", 12},
    {"fraction_ignored", "12.9", 12},
    {"exponent_not_read", "1e3", 1},
    {"empty", "", 0},
    {"no_number", "abc", 0},
    {"minus_zero", "-0", 0},
    {"largest_int64", "9223372036854775807", integerLimit},
    {"overflow_clamps", "99999999999999999999", integerLimit},
    {"negative_overflow_clamps", "-99999999999999999999", -integerLimit},
    {"hundred_thousand_digits_clamp", repeated("7", 100000), integerLimit},
    {"leading_zeros", repeated("0", 100000) + "15", 15},
};

class ReadInteger : public testing::TestWithParam<IntegerCase> {};

TEST_P(ReadInteger, LeadingWholeNumber) {
    EXPECT_EQ(ToInteger(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(NumberText, ReadInteger, testing::ValuesIn(integerCases),
                         [](const auto& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct AngleCase {
    const char* name;
    double angle;
    const char* pointText; // under the C locale
    const char* commaText; // under de_DE
};

void PrintTo(const AngleCase& c, std::ostream* out) {
    *out << c.name;
}

const AngleCase angleCases[] = {
    {"half_degree_has_no_seconds", 45.5, "45° 30'", "45° 30'"},
    {"whole_degree_has_no_parts", 45.0, "45°", "45°"},
    {"negative_sign_in_front", -45.5, "-45° 30'", "-45° 30'"},
    {"zero_has_no_sign", 0.0, "0°", "0°"},
    {"negative_zero_has_no_sign", -0.0, "0°", "0°"},
    {"binary_remainder_prints_zero_seconds", 33.85, "33° 51' 00.0\"", "33° 51' 00,0\""},
    {"seconds_round_to_sixty_without_carry", 12.999999999, "12° 59' 60.0\"", "12° 59' 60,0\""},
    {"seconds_with_fraction", 1.2345, "1° 14' 04.2\"", "1° 14' 04,2\""},
    {"negative_with_seconds", -1.2345, "-1° 14' 04.2\"", "-1° 14' 04,2\""},
    {"quarter_degree", 180.25, "180° 15'", "180° 15'"},
    {"under_a_minute", 0.0125, "0° 00' 45.0\"", "0° 00' 45,0\""},
};

class AngleWriting : public testing::TestWithParam<AngleCase> {};

TEST_P(AngleWriting, UnderPointLocale) {
    const AngleCase& c = GetParam();
    EXPECT_EQ(utf8(DMSfromAngle(c.angle, pointLocale())), c.pointText);
}

TEST_P(AngleWriting, UnderCommaLocale) {
    const AngleCase& c = GetParam();
    EXPECT_EQ(utf8(DMSfromAngle(c.angle, commaLocale())), c.commaText);
}

TEST_P(AngleWriting, AppendKeepsWhatWasThere) {
    const AngleCase& c = GetParam();
    QString line = QStringLiteral("N ");
    appendDMSfromAngle(line, c.angle, pointLocale());
    EXPECT_EQ(utf8(line), std::string("N ") + c.pointText);
}

INSTANTIATE_TEST_SUITE_P(NumberText, AngleWriting, testing::ValuesIn(angleCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
