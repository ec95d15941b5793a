// The places in Nominatim's replies, including the replies a busy or broken server gives.

#include "map/NominatimReply.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct ReplyRow {
    const char* name;
    const char* body;
    std::vector<FoundPlace> places;
};

const ReplyRow replyRows[] = {
    {"StringsWithPopulation",
     R"([{"lat":"-37.8136","lon":"144.9631","extratags":{"population":"1,250,000"}}])",
     {{-37.8136, 144.9631, 1250000}}},
    {"NumbersAndNoTags", R"([{"lat":48.85,"lon":2.35}])", {{48.85, 2.35, -1}}},
    {"OrderKept", R"([{"lat":"1","lon":"2"},{"lat":"3","lon":"4"}])", {{1, 2, -1}, {3, 4, -1}}},
    {"NumericPopulationIsNotATag",
     R"([{"lat":"1","lon":"2","extratags":{"population":7}}])",
     {{1, 2, -1}}},
    {"ExtratagsNull", R"([{"lat":"1","lon":"2","extratags":null}])", {{1, 2, -1}}},
    {"OnTheEdges", R"([{"lat":"-90","lon":"180"}])", {{-90, 180, -1}}},
    {"OffTheEarthPassedOver",
     R"([{"lat":"90.5","lon":"10"},{"lat":"5","lon":"-181"},
                                  {"lat":"5","lon":"6"}])",
     {{5, 6, -1}}},
    {"MissingCoordinatePassedOver", R"([{"lat":"5"},{"lon":"6"},{}])", {}},
    {"CoordinateNotANumber",
     R"([{"lat":"north","lon":"6"},{"lat":"NaN","lon":"6"},
                                 {"lat":"1e999","lon":"6"},{"lat":true,"lon":"6"}])",
     {}},
    {"EntryNotAnObject", R"([3, "Paris", null, [1, 2]])", {}},
    {"Empty", "[]", {}},
    {"ObjectNotArray", R"({"lat":"1","lon":"2"})", {}},
    {"HtmlOfABusyServer", "<html>busy</html>", {}},
    {"CutShort", R"([{"lat":"1","lon":"2"},{"lat":"3)", {}},
    {"NoBody", "", {}},
};

class Reply : public testing::TestWithParam<ReplyRow> {};

TEST_P(Reply, Places) {
    const QVector<FoundPlace> got = NominatimReply::places(QByteArray(GetParam().body));
    ASSERT_EQ(std::size_t(got.size()), GetParam().places.size());
    for (int i = 0; i < got.size(); ++i) {
        EXPECT_EQ(got[i].latitude, GetParam().places[i].latitude) << i;
        EXPECT_EQ(got[i].longitude, GetParam().places[i].longitude) << i;
        EXPECT_EQ(got[i].population, GetParam().places[i].population) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Map, Reply, testing::ValuesIn(replyRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
