// Hostile text where the program reads coordinates: a pasted file, a clipboard full of
// something else, a column of the wrong kind. Every builder must still hand back a record, and
// what it holds must be what the reading rules give: no value where nothing matches, and the
// two messages of the inverse where no zone can be read. Expected locations of the projection
// come from GeographicLib.

#include "coordinates/NumberText.h"
#include "coordinates/SafeInteger.h"
#include "coordinates/generalModule.h"
#include "support/RecordingMessageBox.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

using namespace generalModule;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

QString repeated(const QString& piece, int times) {
    return piece.repeated(times);
}

QString hundredThousandDigits() {
    return repeated(QStringLiteral("1"), 100000);
}

QString megabyteOfQuotes() {
    return repeated(QStringLiteral("\""), 1 << 20);
}

QString marksWithoutDigits() {
    return repeated(QString::fromUtf8("°'\" "), 100000);
}

QString curlyQuotes() {
    return repeated(QString::fromUtf8("\u201C\u201D\u2019"), 1 << 18);
}

QString loneSurrogates() {
    return QString(1000, QChar(0xD800));
}

QString nulCharacters() {
    return QString(1000, QChar(0));
}

// UTM coordinates of the location 0, 0, where a DMS text without a value leaves the record.
void referenceOrigin(double& easting, double& northing) {
    static const GeographicLib::TransverseMercatorExact tm(
        GeographicLib::Constants::WGS84_a(), GeographicLib::Constants::WGS84_f(), 0.9996);
    double x = 0, y = 0;
    tm.Forward(3, 0, 0, x, y);
    easting = x + 500000;
    northing = y;
}

// ---------------------------------------------------------------------------------------------

struct NoValueCase {
    const char* name;
    QString (*text)();
};

void PrintTo(const NoValueCase& c, std::ostream* out) {
    *out << c.name;
}

const NoValueCase noValueCases[] = {
    {"empty", [] { return QString(); }},
    {"hundred_thousand_digits_without_blank", hundredThousandDigits},
    {"lone_surrogates", loneSurrogates},
    {"nul_characters", nulCharacters},
    {"megabyte_of_quotes", megabyteOfQuotes},
    {"marks_without_digits", marksWithoutDigits},
    {"curly_quotes", curlyQuotes},
    {"minus_signs", [] { return repeated(QStringLiteral("-"), 100000); }},
    {"marks_between_digits", [] { return repeated(QString::fromUtf8("-1°'\" "), 50000); }},
    {"surrogate_then_marks", [] { return QChar(0xDBFF) + marksWithoutDigits(); }},
    // Long runs of digits that a backtracking search splits every way before it gives up.
    {"digits_then_letter_and_blank", [] { return hundredThousandDigits() + "x "; }},
    {"digits_then_two_degree_signs_and_blank",
     [] { return hundredThousandDigits() + QString::fromUtf8("°° "); }},
    {"digits_quote_digits", [] { return hundredThousandDigits() + "'" + hundredThousandDigits(); }},
};

class DMSWithoutValue : public testing::TestWithParam<NoValueCase> {};

// Nothing readable: both coordinates stay 0, the parts keep their defaults, nothing is
// reported, and the UTM fields are those of 0, 0.
TEST_P(DMSWithoutValue, RecordAtTheOrigin) {
    const QString text = GetParam().text();
    const VertexRef v = vertexFromDMS(text, text);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->lon, 0);
    EXPECT_EQ(v->lat, 0);
    EXPECT_EQ(v->lon_degr, 0);
    EXPECT_EQ(v->lon_min, 0);
    EXPECT_EQ(v->lon_sec, 0);
    EXPECT_EQ(v->lat_Degr, 0);
    EXPECT_EQ(v->lat_min, 0);
    EXPECT_EQ(v->lat_sec, 0);
    EXPECT_EQ(v->lon_Hemisphere, QStringLiteral("E"));
    EXPECT_EQ(v->lat_Hemisphere, QStringLiteral("N"));
    EXPECT_EQ(*v->utmZ, (UtmZone{0, 31, 10}));
    double e = 0, n = 0;
    referenceOrigin(e, n);
    EXPECT_NEAR(v->utmE, e, 0.0015);
    EXPECT_NEAR(v->utmN, n, 0.0015);
}

INSTANTIATE_TEST_SUITE_P(BadInput, DMSWithoutValue, testing::ValuesIn(noValueCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct ValueCase {
    const char* name;
    QString (*text)();
    double value;
    std::int64_t degrees, minutes;
    double seconds;
    QString letter;
};

void PrintTo(const ValueCase& c, std::ostream* out) {
    *out << c.name;
}

const ValueCase valueCases[] = {
    // The degrees are beyond any double: the value is infinite and the stored degrees clamp.
    {"hundred_thousand_digit_degrees_north", [] { return hundredThousandDigits() + " N"; },
     infinity, integerLimit, 1, 0, QStringLiteral("N")},
    {"hundred_thousand_digit_degrees_south", [] { return hundredThousandDigits() + " S"; },
     -infinity, integerLimit, 1, 0, QStringLiteral("S")},
    {"hundred_thousand_digit_seconds",
     [] { return QStringLiteral("1 2 ") + hundredThousandDigits() + QStringLiteral(" W"); },
     -infinity, 1, 2, infinity, QStringLiteral("W")},
    // Any one character after the seconds is the letter, a NUL or a lone surrogate as well.
    {"nul_as_letter", [] { return QStringLiteral("45 30 00 ") + QChar(0); }, 45.5, 45, 30, 0,
     QString(QChar(0))},
    {"lone_surrogate_as_letter", [] { return QStringLiteral("45 30 00 ") + QChar(0xD800); }, 45.5,
     45, 30, 0, QString(QChar(0xD800))},
    {"lone_surrogates_around_value",
     [] { return QChar(0xDC00) + QString::fromUtf8("45° 30' 00\" N") + QChar(0xD800); }, 45.5, 45,
     30, 0, QStringLiteral("N")},
    {"digit_as_letter", [] { return repeated(QStringLiteral("1 "), 100000); },
     1 + 1 / 60.0 + 1 / 3600.0, 1, 1, 1, QStringLiteral("1")},
    {"value_after_a_megabyte_of_quotes",
     [] { return megabyteOfQuotes() + QString::fromUtf8("12° 30' 00\" S"); }, -12.5, 12, 30, 0,
     QStringLiteral("S")},
    {"value_after_marks_without_digits",
     [] { return marksWithoutDigits() + QString::fromUtf8("12° 30' 00\" W"); }, -12.5, 12, 30, 0,
     QStringLiteral("W")},
    {"value_after_nul_characters",
     [] { return nulCharacters() + QString::fromUtf8("12° 30' 00\" N"); }, 12.5, 12, 30, 0,
     QStringLiteral("N")},
};

class DMSWithValue : public testing::TestWithParam<ValueCase> {};

TEST_P(DMSWithValue, ReadsWhatThePatternFinds) {
    const ValueCase& c = GetParam();
    const QString text = c.text();
    const VertexRef v = vertexFromDMS(text, text);
    ASSERT_NE(v, nullptr);
    EXPECT_DOUBLE_EQ(v->lon, c.value);
    EXPECT_DOUBLE_EQ(v->lat, c.value);
    EXPECT_EQ(v->lat_Degr, c.degrees);
    EXPECT_EQ(v->lat_min, c.minutes);
    EXPECT_EQ(v->lat_sec, c.seconds);
    EXPECT_EQ(v->lat_Hemisphere, c.letter);
    EXPECT_EQ(v->lon_degr, c.degrees);
    EXPECT_EQ(v->lon_min, c.minutes);
    EXPECT_EQ(v->lon_sec, c.seconds);
    EXPECT_EQ(v->lon_Hemisphere, c.letter);
    EXPECT_EQ((*v->utmZ)[0], 0);
}

INSTANTIATE_TEST_SUITE_P(BadInput, DMSWithValue, testing::ValuesIn(valueCases),
                         [](const auto& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct ZoneTextCase {
    const char* name;
    QString (*text)();
    std::int64_t zone; // 0: no zone could be read
};

void PrintTo(const ZoneTextCase& c, std::ostream* out) {
    *out << c.name;
}

const ZoneTextCase zoneTextCases[] = {
    {"empty", [] { return QString(); }, 0},
    {"lone_surrogates", loneSurrogates, 0},
    {"nul_characters", nulCharacters, 0},
    {"megabyte_of_quotes", megabyteOfQuotes, 0},
    {"marks_without_digits", marksWithoutDigits, 0},
    {"minus_signs", [] { return repeated(QStringLiteral("-"), 100000); }, 0},
    // Two digits are taken and the third is the one further character.
    {"hundred_thousand_digits", hundredThousandDigits, 11},
    {"zone_after_a_megabyte_of_quotes", [] { return megabyteOfQuotes() + "32"; }, 32},
    {"zone_after_nul_characters", [] { return nulCharacters() + "32"; }, 32},
    {"nul_after_zone", [] { return QStringLiteral("32") + QChar(0); }, 32},
};

class UTMZoneText : public testing::TestWithParam<ZoneTextCase> {};

TEST_P(UTMZoneText, ZoneOrBothMessages) {
    const ZoneTextCase& c = GetParam();
    RecordingMessageBox box;
    const VertexRef v = vertexFromUTM(500000, 4982950.4, c.text(), box);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->utmE, 500000);
    EXPECT_EQ(v->utmN, 4982950.4);
    EXPECT_EQ(*v->utmZ, (UtmZone{0, c.zone, 15}));
    if (c.zone == 0) {
        EXPECT_EQ(box.shown, QStringList({QStringLiteral("Invalid grid zone format"),
                                          QStringLiteral("Unable to translate UTM to LL")}));
        EXPECT_EQ(v->lat, 0);
        EXPECT_EQ(v->lon, 0);
    } else {
        EXPECT_TRUE(box.shown.isEmpty());
        // On the zone's central meridian, near 45 N.
        EXPECT_NEAR(v->lon, (c.zone - 1) * 6 - 180 + 3, 1e-9);
        EXPECT_NEAR(v->lat, 45, 1e-6);
    }
}

INSTANTIATE_TEST_SUITE_P(BadInput, UTMZoneText, testing::ValuesIn(zoneTextCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct NonFiniteUTMCase {
    const char* name;
    double easting, northing;
};

void PrintTo(const NonFiniteUTMCase& c, std::ostream* out) {
    *out << c.name;
}

class UTMNonFinite : public testing::TestWithParam<NonFiniteUTMCase> {};

// An easting or northing read as NaN or infinity from a file: the zone is good, so nothing is
// reported, and the location is no number rather than a made-up place.
TEST_P(UTMNonFinite, NoMessageAndNoLocation) {
    const NonFiniteUTMCase& c = GetParam();
    RecordingMessageBox box;
    const VertexRef v = vertexFromUTM(c.easting, c.northing, QStringLiteral("32"), box);
    ASSERT_NE(v, nullptr);
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_FALSE(std::isfinite(v->lat) && std::isfinite(v->lon));
    EXPECT_EQ((*v->utmZ)[0], 0);
    EXPECT_EQ((*v->utmZ)[2], 15);
}

INSTANTIATE_TEST_SUITE_P(BadInput, UTMNonFinite,
                         testing::Values(NonFiniteUTMCase{"nan_easting",
                                                          std::numeric_limits<double>::quiet_NaN(),
                                                          4982950.4},
                                         NonFiniteUTMCase{"nan_northing", 500000,
                                                          std::numeric_limits<double>::quiet_NaN()},
                                         NonFiniteUTMCase{"infinite_easting", infinity, 4982950.4},
                                         NonFiniteUTMCase{"infinite_northing", 500000, -infinity}),
                         [](const auto& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct NumberTextCase {
    const char* name;
    QString (*text)();
    double asDouble;
    std::int64_t asInteger;
};

void PrintTo(const NumberTextCase& c, std::ostream* out) {
    *out << c.name;
}

const NumberTextCase numberTextCases[] = {
    {"empty", [] { return QString(); }, 0, 0},
    {"hundred_thousand_digits", hundredThousandDigits, infinity, integerLimit},
    {"negative_hundred_thousand_digits", [] { return "-" + hundredThousandDigits(); }, -infinity,
     -integerLimit},
    {"lone_surrogates", loneSurrogates, 0, 0},
    {"digits_then_lone_surrogate", [] { return QStringLiteral("12") + QChar(0xDC00); }, 12, 12},
    {"nul_characters", nulCharacters, 0, 0},
    {"digits_then_nul", [] { return QStringLiteral("12") + QChar(0) + QStringLiteral("34"); }, 12,
     12},
    {"megabyte_of_quotes", megabyteOfQuotes, 0, 0},
    {"marks_without_digits", marksWithoutDigits, 0, 0},
    {"minus_signs", [] { return repeated(QStringLiteral("-"), 100000); }, 0, 0},
    {"points", [] { return repeated(QStringLiteral("."), 1 << 20); }, 0, 0},
    {"hundred_thousand_digit_exponent", [] { return "1e" + hundredThousandDigits(); }, infinity, 1},
    {"hundred_thousand_digit_negative_exponent", [] { return "1e-" + hundredThousandDigits(); }, 0,
     1},
    {"arabic_indic_digits", [] { return QString::fromUtf8("\u0661\u0662"); }, 0, 0},
    {"fullwidth_digits", [] { return QString::fromUtf8("\uFF11\uFF12"); }, 0, 0},
};

class NumberFromHostileText : public testing::TestWithParam<NumberTextCase> {};

TEST_P(NumberFromHostileText, ToDoubleUnderBothLocales) {
    const NumberTextCase& c = GetParam();
    const QString text = c.text();
    EXPECT_EQ(ToDouble(text, NumberLocale::from(QLocale::c())), c.asDouble);
    EXPECT_EQ(ToDouble(text, NumberLocale::from(QLocale(QLocale::German, QLocale::Germany))),
              c.asDouble);
}

TEST_P(NumberFromHostileText, ToInteger) {
    const NumberTextCase& c = GetParam();
    EXPECT_EQ(ToInteger(c.text()), c.asInteger);
}

INSTANTIATE_TEST_SUITE_P(BadInput, NumberFromHostileText, testing::ValuesIn(numberTextCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
