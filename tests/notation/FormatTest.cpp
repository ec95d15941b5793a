// The three writers of the entry fields: the exact texts a user sees for a location under the
// settings and both orders, at the edges (zero, longitudes past 180, missing halves, the polar
// caps) and in comma locales.

#include "notation/NotationFormat.h"
#include "support/QStringPrinting.h"
#include "support/TestLocales.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <string>

namespace {

enum class Notation { DD, DMS, UTM };
// Changes from the settings a user first sees.
constexpr unsigned ddLetters = 1, ddDegree = 2, dmsNoLetters = 4, dmsNoSymbols = 8, utmNoEN = 16,
                   utmMetres = 32, utmSouthLetter = 64;

using testLocales::german;
using testLocales::point;
using testLocales::trueMinus;

struct FormatRow {
    const char* name;
    Notation notation;
    double lon, lat;
    unsigned changes;
    const char* separator; // for the row's notation; ", " as the window opens
    const NumberLocale* locale;
    const char* latFirst;
    const char* lonFirst; // longitude first; nullptr: not checked (UTM has no order)
};

const FormatRow rows[] = {
    // A whole-degree location at the central meridian of zone 32.
    {"DD_Turin", Notation::DD, 9, 45, 0, ", ", &point, "45.00, 9.00", "9.00, 45.00"},
    {"DMS_Turin", Notation::DMS, 9, 45, 0, ", ", &point, "45°N, 9°E", "9°E, 45°N"},
    {"UTM_Turin", Notation::UTM, 9, 45, 0, ", ", &point, "500000.0 E, 4982950.4 N 32", nullptr},
    {"UTM_NorthLetter", Notation::UTM, 9, 45, utmSouthLetter, ", ", &point,
     "500000.0 E, 4982950.4 N 32 N", nullptr},
    // Sydney: south and east, and a longitude a hair under 151.2 as a double.
    {"DD_Sydney", Notation::DD, 151.2, -33.85, 0, ", ", &point, "-33.85, 151.20", nullptr},
    {"DD_LettersAndDegree", Notation::DD, 151.2, -33.85, ddLetters | ddDegree, ", ", &point,
     "33.85°S, 151.20°E", "151.20°E, 33.85°S"},
    {"DD_BlankBeforeLetter", Notation::DD, 151.2, -33.85, ddLetters, ", ", &point,
     "33.85 S, 151.20 E", nullptr},
    {"DD_DegreeKeepsMinus", Notation::DD, 151.2, -33.85, ddDegree, ", ", &point, "-33.85°, 151.20°",
     nullptr},
    {"DMS_Sydney_NothingCarries", Notation::DMS, 151.2, -33.85, 0, ", ", &point,
     "33° 51' 00.0\"S, 151° 11' 60.0\"E", "151° 11' 60.0\"E, 33° 51' 00.0\"S"},
    {"DMS_NoLetters", Notation::DMS, 151.2, -33.85, dmsNoLetters, ", ", &point,
     "-33° 51' 00.0\", 151° 11' 60.0\"", nullptr},
    {"DMS_NoLettersNoSymbols", Notation::DMS, 151.2, -33.85, dmsNoLetters | dmsNoSymbols, ", ",
     &point, "-33 51 00.0, 151 11 60.0", nullptr},
    {"DMS_NoSymbols_LetterFollowsDigit", Notation::DMS, 151.2, -33.85, dmsNoSymbols, ", ", &point,
     "33 51 00.0S, 151 11 60.0E", nullptr},
    {"UTM_Sydney", Notation::UTM, 151.2, -33.85, 0, ", ", &point, "333471.8 E, 6253018.2 N -56",
     nullptr},
    {"UTM_MetresAndSouthLetter", Notation::UTM, 151.2, -33.85, utmMetres | utmSouthLetter, ", ",
     &point, "333471.8 m E, 6253018.2 m N 56 S", nullptr},
    {"UTM_NoLetters", Notation::UTM, 151.2, -33.85, utmNoEN, ", ", &point,
     "333471.8, 6253018.2 -56", nullptr},
    {"UTM_MetresWithoutLetters", Notation::UTM, 151.2, -33.85, utmNoEN | utmMetres, ", ", &point,
     "333471.8 m, 6253018.2 m -56", nullptr},
    // The text between the values is exactly the setting.
    {"DD_Tab", Notation::DD, 151.2, -33.85, 0, "\t", &point, "-33.85\t151.20", "151.20\t-33.85"},
    {"DMS_Blank", Notation::DMS, 9, 45, 0, " ", &point, "45°N 9°E", nullptr},
    {"UTM_CommaAlone", Notation::UTM, 9, 45, 0, ",", &point, "500000.0 E,4982950.4 N 32", nullptr},
    // Six places at most, two at least; DMS leaves out what is zero.
    {"DD_SixPlaces", Notation::DD, 9.123456789, 45.1, 0, ", ", &point, "45.10, 9.123457", nullptr},
    {"DMS_HalfDegrees", Notation::DMS, 9.25, 45.5, 0, ", ", &point, "45° 30'N, 9° 15'E", nullptr},
    {"DMS_SecondsPadded", Notation::DMS, -0.5, -5.25 - 5.25 / 3600, 0, ", ", &point,
     "5° 15' 05.25\"S, 0° 30'W", nullptr},
    {"DMS_MinutesPadded", Notation::DMS, 0.0125, 12.999999999, dmsNoLetters, ", ", &point,
     "12° 59' 60.0\", 0° 00' 45.0\"", nullptr},
    // Zero: DD writes the blank before a letter it then leaves out; DMS writes no letter.
    {"DD_Zero_Letters", Notation::DD, 0, 0, ddLetters, ", ", &point, "0.00 N, 0.00 ",
     "0.00 , 0.00 N"},
    {"DD_Zero_LettersAndDegree", Notation::DD, 0, 0, ddLetters | ddDegree, ", ", &point,
     "0.00°N, 0.00°", nullptr},
    {"DMS_Zero", Notation::DMS, -0.0, 0, 0, ", ", &point, "0°, 0°", nullptr},
    {"UTM_Zero", Notation::UTM, 0, 0, 0, ", ", &point, "166021.4 E, 0.0 N 31", nullptr},
    {"UTM_Equator_NorthLetter", Notation::UTM, 0, 0, utmSouthLetter, ", ", &point,
     "166021.4 E, 0.0 N 31 N", nullptr},
    // A longitude past 180 is written west of Greenwich only when letters are shown.
    {"DD_Lon180_5_Letters", Notation::DD, 180.5, 10, ddLetters, ", ", &point, "10.00 N, 179.50 W",
     nullptr},
    {"DD_Lon180_5", Notation::DD, 180.5, 10, 0, ", ", &point, "10.00, 180.50", nullptr},
    {"DMS_Lon180_5", Notation::DMS, 180.5, 10, 0, ", ", &point, "10°N, 179° 30'W", nullptr},
    {"DMS_Lon180_5_NoLetters", Notation::DMS, 180.5, 10, dmsNoLetters, ", ", &point,
     "10°, 180° 30'", nullptr},
    // A missing value (-9999 or below) leaves its half empty; the separator stays.
    {"DD_BothMissing", Notation::DD, -9999.0, -9999.0, 0, "\t", &point, "\t", nullptr},
    {"DMS_BothMissing", Notation::DMS, -9999.0, -9999.0, 0, ", ", &point, ", ", nullptr},
    {"DD_LatMissing", Notation::DD, 9, -9999.0, 0, ", ", &point, ", 9.00", "9.00, "},
    {"DD_LonBelowTheMark", Notation::DD, -10000.0, 45, 0, ", ", &point, "45.00, ", nullptr},
    {"DMS_LonMissing", Notation::DMS, -9999.0, 45.5, 0, ", ", &point, "45° 30'N, ", nullptr},
    // The polar caps in the usual form, with the zone of the longitude.
    {"UTM_NorthPolar", Notation::UTM, 10, 85, 0, ", ", &point, "2096454.2 E, 1452981.3 N 32",
     nullptr},
    {"UTM_SouthPolar", Notation::UTM, 10, -85, 0, ", ", &point, "2096454.2 E, 2547018.7 N -32",
     nullptr},
    // Comma locales: every decimal separator becomes a comma; degrees, whole minutes, the zone and
    // the separator keep their characters. Numbers take the locale's minus sign, the zone a plain
    // one, and a hemisphere letter replaces the minus sign whatever it is.
    {"German_DD", Notation::DD, 151.2, -33.85, 0, ", ", &german, "-33,85, 151,20", nullptr},
    {"German_DD_LettersAndDegree", Notation::DD, 151.2, -33.85, ddLetters | ddDegree, ", ", &german,
     "33,85°S, 151,20°E", nullptr},
    {"German_DMS", Notation::DMS, 151.2, -33.85, 0, ", ", &german,
     "33° 51' 00,0\"S, 151° 11' 60,0\"E", nullptr},
    {"German_DMS_WholeMinutes", Notation::DMS, 9.25, 45.5, 0, ", ", &german, "45° 30'N, 9° 15'E",
     nullptr},
    {"German_UTM_Tab", Notation::UTM, 151.2, -33.85, utmMetres | utmSouthLetter, "\t", &german,
     "333471,8 m E\t6253018,2 m N 56 S", nullptr},
    {"TrueMinus_DD", Notation::DD, 151.2, -33.85, 0, ", ", &trueMinus, "\u221233,85, 151,20",
     nullptr},
    {"TrueMinus_DD_Letters", Notation::DD, 151.2, -33.85, ddLetters, ", ", &trueMinus,
     "33,85 S, 151,20 E", nullptr},
    {"TrueMinus_DMS_WholeAngle", Notation::DMS, -151.2, -33.85, dmsNoLetters, ", ", &trueMinus,
     "\u221233° 51' 00,0\", \u2212151° 11' 60,0\"", nullptr},
    {"TrueMinus_DMS_Letters", Notation::DMS, -151.2, -33.85, 0, ", ", &trueMinus,
     "33° 51' 00,0\"S, 151° 11' 60,0\"W", nullptr},
    {"TrueMinus_UTM_Zone", Notation::UTM, 151.2, -33.85, 0, ", ", &trueMinus,
     "333471,8 E, 6253018,2 N -56", nullptr},
};

class Format : public testing::TestWithParam<FormatRow> {};

TEST_P(Format, Text) {
    const FormatRow& r = GetParam();
    NotationSettings s;
    s.DDshowHemiLet = r.changes & ddLetters;
    s.DDshowDegrSymb = r.changes & ddDegree;
    s.DMSshowHemiLet = !(r.changes & dmsNoLetters);
    s.DMSshowSymbols = !(r.changes & dmsNoSymbols);
    s.UTMshowEN = !(r.changes & utmNoEN);
    s.UTMshowM = r.changes & utmMetres;
    s.UTMnegZoneSouth = !(r.changes & utmSouthLetter);
    s.DDseparator = s.DMSseparator = s.UTMseparator = QString::fromUtf8(r.separator);
    for (bool latFirst : {true, false}) {
        const char* expected = latFirst ? r.latFirst : r.lonFirst;
        if (!expected)
            continue;
        const QString text =
            r.notation == Notation::DD    ? formatDD(r.lon, r.lat, s, latFirst, *r.locale)
            : r.notation == Notation::DMS ? formatDMS(r.lon, r.lat, s, latFirst, *r.locale)
                                          : formatUTM(r.lon, r.lat, s, *r.locale);
        EXPECT_EQ(text, QString::fromUtf8(expected)) << latFirst;
    }
}

INSTANTIATE_TEST_SUITE_P(Notation, Format, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
