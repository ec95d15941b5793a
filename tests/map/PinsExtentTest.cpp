// The stretch of longitudes and latitudes that holds a set of pins, across the 180th meridian
// where that is the short way.

#include "map/PinsExtent.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct ExtentRow {
    const char* name;
    std::initializer_list<std::pair<double, double>> pins; // latitude, longitude (degrees)
    double west, span, centre, south, north;               // degrees
};

const ExtentRow extentRows[] = {
    {"OnePin", {{48.857, 2.351}}, 2.351, 0, 2.351, 48.857, 48.857},
    {"EuropeNotTheLongWay", {{48.9, 2.4}, {52.5, 13.4}}, 2.4, 11, 7.9, 48.9, 52.5},
    // Fiji and Samoa: 10 degrees across the date line, centred on it.
    {"AcrossTheDateLine", {{-18.1, 178}, {-13.8, -172}}, 178, 10, -177, -18.1, -13.8},
    {"OnPlus180", {{0, 180}}, -180, 0, -180, 0, 0},
    {"OnMinus180", {{0, -180}}, -180, 0, -180, 0, 0},
    // +180 and -180 are one meridian: not 360 degrees apart.
    {"OnBothSidesOf180", {{10, 180}, {-10, -180}}, -180, 0, -180, -10, 10},
    {"NextTo180FromTheWest", {{0, 170}, {0, 180}}, 170, 10, 175, 0, 0},
    {"NextTo180FromTheEast", {{0, -170}, {0, -180}}, -180, 10, -175, 0, 0},
    // Longitudes past a full turn, as a pan may leave them, are the same meridians.
    {"PastAFullTurn", {{0, 370}, {0, -350}}, 10, 0, 10, 0, 0},
    // Round the whole globe every 90 degrees: all gaps equal, the one across 180 is left out.
    {"AroundTheGlobe", {{0, -90}, {0, 0}, {0, 90}, {0, -180}}, -180, 270, -45, 0, 0},
    {"PoleToPole", {{90, 0}, {-90, 0}}, 0, 0, 0, -90, 90},
    {"NotFinitePassedOver", {{nan, 5}, {1, nan}, {3, 4}}, 4, 0, 4, 3, 3},
};

class Extent : public testing::TestWithParam<ExtentRow> {};

TEST_P(Extent, OfPins) {
    std::vector<MapPinRef> pins;
    for (const auto& [latitude, longitude] : GetParam().pins)
        pins.push_back(std::make_shared<MapPin>(MapPin{{latitude, longitude}, {}}));
    pins.push_back(nullptr); // a missing pin is passed over
    const auto extent = PinsExtent::of(pins);
    ASSERT_TRUE(extent);
    EXPECT_NEAR(extent->west, GetParam().west, 1e-9);
    EXPECT_NEAR(extent->span, GetParam().span, 1e-9);
    EXPECT_NEAR(extent->centreLongitude(), GetParam().centre, 1e-9);
    EXPECT_EQ(extent->south, GetParam().south);
    EXPECT_EQ(extent->north, GetParam().north);
}

INSTANTIATE_TEST_SUITE_P(Map, Extent, testing::ValuesIn(extentRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Extent, NoFinitePinHasNone) {
    EXPECT_FALSE(PinsExtent::of({}));
    EXPECT_FALSE(PinsExtent::of({nullptr, std::make_shared<MapPin>(MapPin{{nan, nan}, {}})}));
}

} // namespace
