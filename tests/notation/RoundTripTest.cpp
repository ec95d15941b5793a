// What the writers put into a field, the readers take back: random locations written under
// every combination of the show options, both orders, every separator and two locales, then
// read again. Where the reader's pattern can take the text, the location comes back to the
// precision the text carries; where it can't, the text must not be read at all, or (for DMS
// with no blank between the values and no hemisphere letters) it is taken apart at the wrong
// blanks and gives a different location, which a user would see as a jump.

#include "notation/NotationFormat.h"
#include "notation/NotationParse.h"
#include "support/RecordingMessageBox.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

enum class Notation { DD, DMS, UTM };
enum class Outcome { GivesBack, NotRead, Misread };

struct Separator {
    const char* name;
    const char* text;
};

const Separator separators[] = {
    {"CommaBlank", ", "},
    {"Comma", ","},
    {"Blank", " "},
    {"Tab", "\t"},
};

bool hasBlank(const QString& separator) {
    return separator.contains(QLatin1Char(' '));
}

// Which way a text written under these settings comes back, by the readers' patterns.
Outcome expectedOutcome(Notation notation, const NotationSettings& s) {
    switch (notation) {
    case Notation::DD:
        // The DD pattern needs a blank followed by a number between the two values. Inside a
        // DD half a blank only ever stands before a hemisphere letter, so without a blank in
        // the separator there is no such place.
        return hasBlank(s.DDseparator) ? Outcome::GivesBack : Outcome::NotRead;
    case Notation::DMS:
        if (hasBlank(s.DMSseparator))
            return Outcome::GivesBack;
        // Without a blank between the values, the first blank followed by a number is inside
        // the first half (before its minutes or seconds): the first value is cut short and the
        // rest of the first half becomes the second value, carrying the first half's letter.
        // With letters, that leaves one of the two values unplaced: nothing is read. Without
        // letters, both values are placed by the order: a wrong location is read.
        return s.DMSshowHemiLet ? Outcome::NotRead : Outcome::Misread;
    case Notation::UTM:
        // The UTM reader needs both letters, and a blank before the northing.
        return s.UTMshowEN && hasBlank(s.UTMseparator) ? Outcome::GivesBack : Outcome::NotRead;
    }
    return Outcome::NotRead;
}

struct Location {
    double lon, lat;
};

// In the Norway and Svalbard cells the forward projection uses the cell's meridian and the
// inverse the zone's, so a UTM text from there comes back elsewhere (see the test
// further down); those locations are left out of the UTM round trip.
bool inExceptionCell(const Location& l) {
    return (l.lat > 72 && l.lon > 0 && l.lon < 42) ||
           (l.lat > 56 && l.lat < 64 && l.lon > 0 && l.lon < 12);
}

const std::vector<Location>& randomLocations() {
    static const std::vector<Location> locations = [] {
        std::mt19937 engine(20240611u);
        std::uniform_real_distribution<double> lat(-80.0, 84.0);
        std::uniform_real_distribution<double> lon(-180.0, 180.0);
        std::vector<Location> out;
        out.reserve(1000);
        while (out.size() < 1000) {
            const double la = lat(engine);
            out.push_back({lon(engine), la});
        }
        return out;
    }();
    return locations;
}

constexpr int showOptionCount = 7;
constexpr int locationsPerCombination = 100;

// The seven show options from the bits of mask.
void applyShowOptions(NotationSettings& s, unsigned mask) {
    s.DDshowHemiLet = mask & 1u;
    s.DDshowDegrSymb = mask & 2u;
    s.DMSshowHemiLet = mask & 4u;
    s.DMSshowSymbols = mask & 8u;
    s.UTMshowEN = mask & 16u;
    s.UTMshowM = mask & 32u;
    s.UTMnegZoneSouth = mask & 64u;
}

// Ground distance in metres between two nearby positions.
double metresApart(const Location& a, double lon, double lat) {
    constexpr double metresPerDegree = 111320.0;
    const double dLat = (lat - a.lat) * metresPerDegree;
    const double dLon = std::remainder(lon - a.lon, 360.0) * metresPerDegree *
                        std::cos(a.lat * 3.141592653589793 / 180);
    return std::hypot(dLat, dLon);
}

// The text carries six decimals of a degree, a thousandth of a second, or a tenth of a metre.
bool givenBack(Notation n, const Location& l, const ParsedPosition& p) {
    if (!p.complete())
        return false;
    switch (n) {
    case Notation::DD:
        return std::fabs(p.lon - l.lon) <= 5e-7 + 1e-9 && std::fabs(p.lat - l.lat) <= 5e-7 + 1e-9;
    case Notation::DMS: {
        const double tolerance = 0.0005 / 3600 + 1e-10;
        return std::fabs(p.lon - l.lon) <= tolerance && std::fabs(p.lat - l.lat) <= tolerance;
    }
    case Notation::UTM:
        // Half a tenth of a metre on each axis, and the projection's own round trip.
        return metresApart(l, p.lon, p.lat) <= 0.1;
    }
    return false;
}

using RoundTripParam =
    std::tuple<Notation, int /* separator */, bool /* latFirst */, bool /* german */>;

class RoundTrip : public testing::TestWithParam<RoundTripParam> {};

TEST_P(RoundTrip, EveryCombinationOfShowOptions) {
    const auto [notation, separatorIndex, latFirst, german] = GetParam();
    const NumberLocale locale = german
                                    ? NumberLocale::from(QLocale(QLocale::German, QLocale::Germany))
                                    : NumberLocale::from(QLocale::c());
    const QString separator = QString::fromLatin1(separators[separatorIndex].text);
    const std::vector<Location>& locations = randomLocations();

    int checked = 0;
    for (unsigned mask = 0; mask < (1u << showOptionCount); ++mask) {
        NotationSettings s;
        s.DDseparator = s.DMSseparator = s.UTMseparator = separator;
        applyShowOptions(s, mask);
        const Outcome expected = expectedOutcome(notation, s);

        // Each combination takes its own slice of the locations, so that together they use
        // all of them.
        std::size_t next = mask * locationsPerCombination % locations.size();
        for (int taken = 0; taken < locationsPerCombination; next = (next + 1) % locations.size()) {
            const Location& l = locations[next];
            if (notation == Notation::UTM && inExceptionCell(l))
                continue;
            ++taken;
            ++checked;

            QString text;
            ParsedPosition p;
            RecordingMessageBox box;
            switch (notation) {
            case Notation::DD:
                text = formatDD(l.lon, l.lat, s, latFirst, locale);
                p = parseDDText(text, latFirst, locale);
                break;
            case Notation::DMS:
                text = formatDMS(l.lon, l.lat, s, latFirst, locale);
                p = parseDMSText(text, latFirst, locale);
                break;
            case Notation::UTM:
                text = formatUTM(l.lon, l.lat, s, locale);
                p = parseUTMText(text, locale, box);
                break;
            }

            bool ok = false;
            switch (expected) {
            case Outcome::GivesBack:
                ok = givenBack(notation, l, p);
                break;
            case Outcome::NotRead:
                // Nothing the window would take: DD and UTM find no values at all.
                ok = !p.complete() &&
                     (notation == Notation::DMS || (p.lon == -9999.0 && p.lat == -9999.0));
                break;
            case Outcome::Misread:
                ok = p.complete() && !givenBack(notation, l, p);
                break;
            }
            ok = ok && !p.searchFailed && box.shown.isEmpty();
            if (!ok) {
                ADD_FAILURE() << "show options mask " << mask << ", expected outcome "
                              << static_cast<int>(expected) << ": lon " << l.lon << " lat " << l.lat
                              << " written as \"" << text.toStdString() << "\" read as lon "
                              << p.lon << " lat " << p.lat
                              << (box.shown.isEmpty() ? "" : " with a message");
                return; // one report per parameter row is enough to find the fault
            }
        }
    }
    EXPECT_EQ(checked, locationsPerCombination << showOptionCount);
}

std::string roundTripName(const testing::TestParamInfo<RoundTripParam>& info) {
    const auto [notation, separatorIndex, latFirst, german] = info.param;
    static const char* const notationNames[] = {"DD", "DMS", "UTM"};
    return std::string(notationNames[static_cast<int>(notation)]) + "_" +
           separators[separatorIndex].name + (latFirst ? "_LatFirst" : "_LonFirst") +
           (german ? "_German" : "_Point");
}

INSTANTIATE_TEST_SUITE_P(Notation, RoundTrip,
                         testing::Combine(testing::Values(Notation::DD, Notation::DMS,
                                                          Notation::UTM),
                                          testing::Range(0, 4), testing::Bool(), testing::Bool()),
                         roundTripName);

TEST(RoundTripExamples, DmsWithCommaAloneIsCutAtTheBlankBeforeTheSeconds) {
    // `45° 30' 15.5",9° 10' 20.5"`: the only blank followed by a number that can end the first
    // value is the one before 15.5, so the reading is 45° 30' and 15.5°.
    const ParsedPosition p =
        parseDMSText(QString::fromUtf8("45° 30' 15.5\",9° 10' 20.5\""), true, NumberLocale());
    EXPECT_NEAR(p.lat, 45.5, 1e-12);
    EXPECT_NEAR(p.lon, 15.5, 1e-12);
}

TEST(RoundTripExamples, NorwayCellComesBackOnTheZoneMeridian) {
    // Written with the cell's central meridian 7.5, read with zone 31's meridian 3.
    NotationSettings s;
    s.UTMseparator = QStringLiteral(", ");
    RecordingMessageBox box;
    const ParsedPosition p = parseUTMText(formatUTM(5, 60, s, NumberLocale()), NumberLocale(), box);
    EXPECT_NEAR(p.lon, 0.5, 2e-6);
    EXPECT_NEAR(p.lat, 60, 1e-6);
    EXPECT_TRUE(box.shown.isEmpty());
}

} // namespace
