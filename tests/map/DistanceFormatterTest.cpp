// Metres as the short text every distance is shown in, in both systems and in a comma locale.

#include "map/DistanceFormatter.h"
#include "support/QStringPrinting.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

constexpr double mile = 1609.344, foot = 0.3048;
constexpr int byLocale = 0, metric = 1, imperial = 2;

struct DistanceRow {
    const char* name;
    int units;
    bool localeMetric;
    double metres;
    const char* text;
};

const DistanceRow rows[] = {
    {"Zero", metric, true, 0, "0 m"},
    {"JustUnderAKilometre", metric, true, 999.4, "999 m"},
    {"RoundsUpToAKilometre", metric, true, 999.6, "1 km"},
    {"OneDecimal", metric, true, 1234, "1.2 km"},
    {"TrailingZeroDropped", metric, true, 12000, "12 km"},
    {"RoundsUpToHundred", metric, true, 99960, "100 km"},
    {"WholeFromHundred", metric, true, 20003931, "20004 km"},
    {"UnderAThousandFeet", imperial, true, 999 * foot, "999 ft"},
    {"Miles", imperial, true, 3.4 * mile, "3.4 mi"},
    {"WholeMiles", imperial, true, 1580.2 * mile, "1580 mi"},
    {"LocaleMetric", byLocale, true, 1500, "1.5 km"},
    {"LocaleImperial", byLocale, false, 1500, "0.9 mi"},
    {"MetricChosenOverLocale", metric, false, 1500, "1.5 km"},
    {"ImperialChosenOverLocale", imperial, true, 100, "328 ft"},
    {"NotANumber", metric, true, std::numeric_limits<double>::quiet_NaN(), "-- m"},
    {"Infinite", imperial, true, std::numeric_limits<double>::infinity(), "-- ft"},
    {"Negative", metric, true, -5, "-- m"},
};

class Distance : public testing::TestWithParam<DistanceRow> {};

TEST_P(Distance, Text) {
    DistanceFormatter f;
    f.Units = GetParam().units;
    f.localeUsesMetric = GetParam().localeMetric;
    EXPECT_EQ(f.stringFromDistance(GetParam().metres), GetParam().text);
    f.locale = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(f.stringFromDistance(GetParam().metres), QString(GetParam().text).replace('.', ','));
}

INSTANTIATE_TEST_SUITE_P(Map, Distance, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
