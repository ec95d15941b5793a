// Which loaded places a typed name means, which candidate wins, and OpenStreetMap's population
// tags as people write them. What counts as on the earth is read through NominatimReply.

#include "map/PlaceMatch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct NameRow {
    const char* name;
    const char* place;
    const char* text;
    bool names;
};

const NameRow nameRows[] = {
    {"Whole", "Paris", "Paris", true},
    {"AccentedOtherCase", "\xC3\x89vora", "\xC3\xA9VORA", true}, // Évora, "éVORA"
    {"AccentIsNotDropped", "S\xC3\xA3o Paulo", "Sao Paulo", false},
    {"StartEndingAtAWord", "Kansas City", "Kansas", true},
    {"StartEndingInsideAWord", "Wiener Neustadt", "Wien", false},
    {"TextEndingInAPunctuation", "St. Louis", "St.", true},
    {"TextLongerThanName", "Rome", "Romeo", false},
    {"NotAtTheStart", "New York", "York", false},
    {"Empty", "Paris", "", false},
    {"DigitsAreWordCharacters", "Route 66a", "Route 66", false},
};

class Naming : public testing::TestWithParam<NameRow> {};

TEST_P(Naming, NamesPlace) {
    EXPECT_EQ(PlaceMatch::namesPlace(QString::fromUtf8(GetParam().place),
                                     QString::fromUtf8(GetParam().text)),
              GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(Map, Naming, testing::ValuesIn(nameRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct BestRow {
    const char* name;
    QVector<FoundPlace> places;
    int best; // index into places; -1 none
};

// Paris, France and Paris, Texas.
const FoundPlace parisFrance{48.857, 2.351, 2138551};
const FoundPlace parisTexas{33.66, -95.555, 24171};
const FoundPlace unknownA{1, 1, -1}, unknownB{2, 2, -1};

const BestRow bestRows[] = {
    {"None", {}, -1},
    {"MostPopulousEvenIfLater", {parisTexas, parisFrance}, 1},
    {"UnknownLosesToKnown", {unknownA, parisTexas}, 1},
    {"FirstWhenNoneKnown", {unknownA, unknownB}, 0},
    {"FirstOfEquals", {parisTexas, FoundPlace{5, 5, 24171}}, 0},
};

class Ranking : public testing::TestWithParam<BestRow> {};

TEST_P(Ranking, Best) {
    const auto best = PlaceMatch::best(GetParam().places);
    ASSERT_EQ(best.has_value(), GetParam().best >= 0);
    if (best) {
        EXPECT_EQ(best->latitude, GetParam().places[GetParam().best].latitude);
    }
}

INSTANTIATE_TEST_SUITE_P(Map, Ranking, testing::ValuesIn(bestRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct TagRow {
    const char* name;
    const char* tag;
    qint64 population;
};

const TagRow tagRows[] = {
    {"SpaceGroups", "48 000", 48000},
    {"CommaGroups", "1,250,000", 1250000},
    {"DotGroups", "3.645.000", 3645000},
    {"ApostropheGroups", "415'367", 415367},
    {"NoBreakSpaceGroups",
     "2\xC2\xA0"
     "100\xE2\x80\xAF"
     "000",
     2100000},
    {"SecondValueAfterSemicolon", "12000;15000", 12000},
    {"WordAfter", "5000 (2011)", 5000},
    {"WordBefore", "about 300", -1},
    {"Empty", "", -1},
    {"NegativeSignIsNoDigit", "-5", -1},
    {"LongerThan15DigitsIsCut", "12345678901234567890", 123456789012345},
};

class Tag : public testing::TestWithParam<TagRow> {};

TEST_P(Tag, Population) {
    EXPECT_EQ(PlaceMatch::populationFromTag(QString::fromUtf8(GetParam().tag)),
              GetParam().population);
}

INSTANTIATE_TEST_SUITE_P(Map, Tag, testing::ValuesIn(tagRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
