// The look each map type shows from the tile servers that answered and the imagery made here:
// never a look whose tiles cannot come.

#include "map/MapThemeChoice.h"
#include "support/QStringPrinting.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct LookRow {
    const char* name;
    int mapType;
    MapThemeChoice::Sources sources;
    const char* theme;
    bool credited; // the look is online and shows its source's credit
};

// The installed themes' files.
const char* const plain = "earth/plain/plain.dgml";
const char* const osm = "earth/openstreetmap/openstreetmap.dgml";
const char* const satellite = "earth/geoquill-satellite/geoquill-satellite.dgml";
const char* const satelliteOnline =
    "earth/geoquill-satellite-online/geoquill-satellite-online.dgml";
const char* const hybrid = "earth/geoquill-hybrid/geoquill-hybrid.dgml";
const char* const hybridOnline = "earth/geoquill-hybrid-online/geoquill-hybrid-online.dgml";

const LookRow lookRows[] = {
    {"StandardOffline", 0, {false, true, true}, plain, false},
    {"StandardOnline", 0, {true, false, false}, osm, true},
    {"SatelliteNothingYet", 1, {true, false, false}, plain, false},
    {"SatelliteImageryMade", 1, {true, false, true}, satellite, false},
    {"SatelliteOnlineBeforeImagery", 1, {false, true, false}, satelliteOnline, true},
    {"SatelliteOnlineOverImagery", 1, {false, true, true}, satelliteOnline, true},
    {"HybridImageryMade", 2, {false, false, true}, hybrid, false},
    {"HybridOnline", 2, {false, true, false}, hybridOnline, true},
    {"UnknownTypeIsStandard", 7, {true, true, true}, osm, true},
    {"NegativeTypeIsStandard", -1, {false, true, true}, plain, false},
};

class Look : public testing::TestWithParam<LookRow> {};

TEST_P(Look, ThemeAndCredit) {
    const QString theme = MapThemeChoice::themeFor(GetParam().mapType, GetParam().sources);
    EXPECT_EQ(theme, QString::fromLatin1(GetParam().theme));
    EXPECT_EQ(!MapThemeChoice::attribution(theme).isEmpty(), GetParam().credited);
}

INSTANTIATE_TEST_SUITE_P(Map, Look, testing::ValuesIn(lookRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
