// Metres as the short text every distance is shown in, in both systems and in a comma locale.

#include "map/DistanceFormatter.h"
#include "support/QStringPrinting.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

namespace {

struct DistanceRow {
    const char* name;
    int units;
    bool localeMetric;
    double metres;
    const char* text;
};

void PrintTo(const DistanceRow& row, std::ostream* os) {
    *os << row.name;
}

constexpr double mile = 1609.344;
constexpr double foot = 0.3048;

const DistanceRow distanceRows[] = {
    {"Zero", 1, true, 0, "0 m"},
    {"WholeMetres", 1, true, 849.6, "850 m"},
    {"JustUnderAKilometre", 1, true, 999.4, "999 m"},
    {"RoundsUpToAKilometre", 1, true, 999.6, "1 km"},
    {"OneDecimal", 1, true, 1234, "1.2 km"},
    {"TrailingZeroDropped", 1, true, 12000, "12 km"},
    {"WholeFromHundred", 1, true, 312400, "312 km"},
    {"RoundsUpToHundred", 1, true, 99960, "100 km"},
    {"HalfTheEarth", 1, true, 20003931, "20004 km"},
    {"Feet", 2, true, 900 * foot, "900 ft"},
    {"UnderAThousandFeet", 2, true, 999 * foot, "999 ft"},
    {"Miles", 2, true, 3.4 * mile, "3.4 mi"},
    {"WholeMiles", 2, true, 1580.2 * mile, "1580 mi"},
    {"LocaleMetric", 0, true, 1500, "1.5 km"},
    {"LocaleImperial", 0, false, 1500, "0.9 mi"},
    {"MetricChosenOverLocale", 1, false, 1500, "1.5 km"},
    {"ImperialChosenOverLocale", 2, true, 100, "328 ft"},
    {"NotANumber", 1, true, std::numeric_limits<double>::quiet_NaN(), "-- m"},
    {"Infinite", 2, true, std::numeric_limits<double>::infinity(), "-- ft"},
    {"Negative", 1, true, -5, "-- m"},
};

class Distance : public testing::TestWithParam<DistanceRow> {};

TEST_P(Distance, Text) {
    DistanceFormatter f;
    f.Units = GetParam().units;
    f.UnitStyle = 1;
    f.localeUsesMetric = GetParam().localeMetric;
    EXPECT_EQ(f.stringFromDistance(GetParam().metres), QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Map, Distance, testing::ValuesIn(distanceRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Distance, CommaLocale) {
    DistanceFormatter f;
    f.Units = 1;
    f.locale = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(f.stringFromDistance(1234), QStringLiteral("1,2 km"));
    EXPECT_EQ(f.stringFromDistance(850), QStringLiteral("850 m"));
}

} // namespace
