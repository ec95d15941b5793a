// The three writers of the entry fields: the exact texts a user sees for a location under each
// combination of settings and order, at the edges (zero, longitudes past 180, missing halves,
// the polar caps) and in a locale whose decimal separator is a comma.

#include "notation/NotationFormat.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>

namespace {

enum class Notation { DD, DMS, UTM };

// Settings as the user first sees them: separators ", " after the window has opened.
NotationSettings startSettings() {
    NotationSettings s;
    s.DDseparator = QStringLiteral(", ");
    s.DMSseparator = QStringLiteral(", ");
    s.UTMseparator = QStringLiteral(", ");
    return s;
}

const NumberLocale pointLocale = NumberLocale::from(QLocale::c());
const NumberLocale germanLocale = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));

QString write(Notation n, double lon, double lat, const NotationSettings& s, bool latFirst,
              const NumberLocale& locale) {
    switch (n) {
    case Notation::DD:
        return formatDD(lon, lat, s, latFirst, locale);
    case Notation::DMS:
        return formatDMS(lon, lat, s, latFirst, locale);
    case Notation::UTM:
        return formatUTM(lon, lat, s, locale);
    }
    return {};
}

struct FormatCase {
    const char* name;
    Notation notation;
    double lon, lat;
    std::function<void(NotationSettings&)> change; // from the start settings
    const char* latFirst;                          // the text with latitude first
    const char* lonFirst;                          // the text with longitude first
};

// Failure reports name the row instead of dumping its bytes.
void PrintTo(const FormatCase& row, std::ostream* os) {
    *os << row.name;
}

void none(NotationSettings&) {}

const FormatCase formatCases[] = {
    // A whole-degree location at the central meridian of zone 32.
    {"DD_Start_Turin", Notation::DD, 9, 45, none, "45.00, 9.00", "9.00, 45.00"},
    {"DMS_Start_Turin", Notation::DMS, 9, 45, none, "45°N, 9°E", "9°E, 45°N"},
    {"UTM_Start_Turin", Notation::UTM, 9, 45, none, "500000.0 E, 4982950.4 N 32",
     "500000.0 E, 4982950.4 N 32"},
    {"UTM_NoNegZone_NorthLetter", Notation::UTM, 9, 45,
     [](NotationSettings& s) { s.UTMnegZoneSouth = false; }, "500000.0 E, 4982950.4 N 32 N",
     "500000.0 E, 4982950.4 N 32 N"},

    // Sydney: south and east, and a longitude that is a hair under 151.2 as a double.
    {"DD_Start_Sydney", Notation::DD, 151.2, -33.85, none, "-33.85, 151.20", "151.20, -33.85"},
    {"DD_HemiLetAndDegree", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) {
         s.DDshowHemiLet = true;
         s.DDshowDegrSymb = true;
     },
     "33.85°S, 151.20°E", "151.20°E, 33.85°S"},
    {"DD_HemiLetBlankBeforeLetter", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) { s.DDshowHemiLet = true; }, "33.85 S, 151.20 E", "151.20 E, 33.85 S"},
    {"DD_DegreeKeepsMinus", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) { s.DDshowDegrSymb = true; }, "-33.85°, 151.20°", "151.20°, -33.85°"},
    {"DMS_Start_Sydney_NothingCarries", Notation::DMS, 151.2, -33.85, none,
     "33° 51' 00.0\"S, 151° 11' 60.0\"E", "151° 11' 60.0\"E, 33° 51' 00.0\"S"},
    {"DMS_NoHemiLet", Notation::DMS, 151.2, -33.85,
     [](NotationSettings& s) { s.DMSshowHemiLet = false; }, "-33° 51' 00.0\", 151° 11' 60.0\"",
     "151° 11' 60.0\", -33° 51' 00.0\""},
    {"DMS_NoHemiLetNoSymbols", Notation::DMS, 151.2, -33.85,
     [](NotationSettings& s) {
         s.DMSshowHemiLet = false;
         s.DMSshowSymbols = false;
     },
     "-33 51 00.0, 151 11 60.0", "151 11 60.0, -33 51 00.0"},
    {"DMS_NoSymbols_LetterFollowsDigit", Notation::DMS, 151.2, -33.85,
     [](NotationSettings& s) { s.DMSshowSymbols = false; }, "33 51 00.0S, 151 11 60.0E",
     "151 11 60.0E, 33 51 00.0S"},
    {"UTM_Start_Sydney", Notation::UTM, 151.2, -33.85, none, "333471.8 E, 6253018.2 N -56",
     "333471.8 E, 6253018.2 N -56"},
    {"UTM_MetresAndSouthLetter", Notation::UTM, 151.2, -33.85,
     [](NotationSettings& s) {
         s.UTMnegZoneSouth = false;
         s.UTMshowM = true;
     },
     "333471.8 m E, 6253018.2 m N 56 S", "333471.8 m E, 6253018.2 m N 56 S"},
    {"UTM_NoLetters", Notation::UTM, 151.2, -33.85,
     [](NotationSettings& s) { s.UTMshowEN = false; }, "333471.8, 6253018.2 -56",
     "333471.8, 6253018.2 -56"},
    {"UTM_MetresWithoutLetters", Notation::UTM, 151.2, -33.85,
     [](NotationSettings& s) {
         s.UTMshowEN = false;
         s.UTMshowM = true;
     },
     "333471.8 m, 6253018.2 m -56", "333471.8 m, 6253018.2 m -56"},

    // Separators: the text between the values is exactly the setting.
    {"DD_SeparatorTab", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) { s.DDseparator = QStringLiteral("\t"); }, "-33.85\t151.20",
     "151.20\t-33.85"},
    {"DMS_SeparatorBlank", Notation::DMS, 9, 45,
     [](NotationSettings& s) { s.DMSseparator = QStringLiteral(" "); }, "45°N 9°E", "9°E 45°N"},
    {"UTM_SeparatorCommaAlone", Notation::UTM, 9, 45,
     [](NotationSettings& s) { s.UTMseparator = QStringLiteral(","); }, "500000.0 E,4982950.4 N 32",
     "500000.0 E,4982950.4 N 32"},

    // Fractions: six places at most, two at least; DMS minutes always two digits.
    {"DD_RoundsToSixPlaces", Notation::DD, 9.123456789, 45.1, none, "45.10, 9.123457",
     "9.123457, 45.10"},
    {"DMS_HalfDegrees", Notation::DMS, 9.25, 45.5, none, "45° 30'N, 9° 15'E", "9° 15'E, 45° 30'N"},
    {"DMS_SecondsPadded", Notation::DMS, -0.5, -5.25 - 5.25 / 3600, none,
     "5° 15' 05.25\"S, 0° 30'W", "0° 30'W, 5° 15' 05.25\"S"},

    // Zero: DD writes the blank before a letter it then leaves out; DMS writes no letter.
    {"DD_Zero_HemiLet", Notation::DD, 0, 0, [](NotationSettings& s) { s.DDshowHemiLet = true; },
     "0.00 N, 0.00 ", "0.00 , 0.00 N"},
    {"DD_Zero_HemiLetAndDegree", Notation::DD, 0, 0,
     [](NotationSettings& s) {
         s.DDshowHemiLet = true;
         s.DDshowDegrSymb = true;
     },
     "0.00°N, 0.00°", "0.00°, 0.00°N"},
    {"DMS_Zero_NoLetters", Notation::DMS, 0, 0, none, "0°, 0°", "0°, 0°"},
    {"UTM_Zero_ZonePositive", Notation::UTM, 0, 0, none, "166021.4 E, 0.0 N 31",
     "166021.4 E, 0.0 N 31"},
    {"UTM_EquatorNoNegZone_North", Notation::UTM, 0, 0,
     [](NotationSettings& s) { s.UTMnegZoneSouth = false; }, "166021.4 E, 0.0 N 31 N",
     "166021.4 E, 0.0 N 31 N"},

    // A longitude past 180 is written west of Greenwich only when letters are shown.
    {"DD_Lon200_HemiLet", Notation::DD, 200, 10,
     [](NotationSettings& s) { s.DDshowHemiLet = true; }, "10.00 N, 160.00 W", "160.00 W, 10.00 N"},
    {"DD_Lon200_NoHemiLet", Notation::DD, 200, 10, none, "10.00, 200.00", "200.00, 10.00"},
    {"DMS_Lon200_HemiLet", Notation::DMS, 200, 10, none, "10°N, 160°W", "160°W, 10°N"},
    {"DMS_Lon200_NoHemiLet", Notation::DMS, 200, 10,
     [](NotationSettings& s) { s.DMSshowHemiLet = false; }, "10°, 200°", "200°, 10°"},

    // A missing value leaves its half empty; the separator stays.
    {"DD_BothMissing", Notation::DD, -9999.0, -9999.0, none, ", ", ", "},
    {"DMS_BothMissing", Notation::DMS, -9999.0, -9999.0, none, ", ", ", "},
    {"DD_LatMissing", Notation::DD, 9, -9999.0, none, ", 9.00", "9.00, "},
    {"DD_LonBelowMissingMark", Notation::DD, -10000.0, 45, none, "45.00, ", ", 45.00"},
    {"DMS_LonMissing", Notation::DMS, -9999.0, 45.5, none, "45° 30'N, ", ", 45° 30'N"},
    {"DD_BothMissing_TabSeparator", Notation::DD, -9999.0, -9999.0,
     [](NotationSettings& s) { s.DDseparator = QStringLiteral("\t"); }, "\t", "\t"},

    // The polar caps come out in the usual form, with the zone of the longitude.
    {"UTM_NorthPolar", Notation::UTM, 10, 85, none, "2096454.2 E, 1452981.3 N 32",
     "2096454.2 E, 1452981.3 N 32"},
    {"UTM_SouthPolar", Notation::UTM, 10, -85, none, "2096454.2 E, 2547018.7 N -32",
     "2096454.2 E, 2547018.7 N -32"},
};

class FormatText : public testing::TestWithParam<FormatCase> {};

TEST_P(FormatText, LatitudeFirst) {
    const FormatCase& c = GetParam();
    NotationSettings s = startSettings();
    c.change(s);
    EXPECT_EQ(write(c.notation, c.lon, c.lat, s, true, pointLocale), QString::fromUtf8(c.latFirst));
}

TEST_P(FormatText, LongitudeFirst) {
    const FormatCase& c = GetParam();
    NotationSettings s = startSettings();
    c.change(s);
    EXPECT_EQ(write(c.notation, c.lon, c.lat, s, false, pointLocale),
              QString::fromUtf8(c.lonFirst));
}

INSTANTIATE_TEST_SUITE_P(Notation, FormatText, testing::ValuesIn(formatCases),
                         [](const auto& row) { return std::string(row.param.name); });

// A comma locale whose minus sign is U+2212, as some locales write it.
NumberLocale commaLocaleWithTrueMinus() {
    NumberLocale l;
    l.decimalPoint = QLatin1Char(',');
    l.minusSign = QChar(0x2212);
    return l;
}

// In a comma locale every decimal separator becomes a comma; degrees, whole minutes, the zone
// and the separator between the values keep their own characters. A number takes the locale's
// minus sign; the zone is a plain integer with a plain minus.
struct LocaleCase {
    const char* name;
    Notation notation;
    double lon, lat;
    std::function<void(NotationSettings&)> change;
    NumberLocale locale;
    const char* latFirst;
};

void PrintTo(const LocaleCase& row, std::ostream* os) {
    *os << row.name;
}

const LocaleCase localeCases[] = {
    {"German_DD_Sydney", Notation::DD, 151.2, -33.85, none, germanLocale, "-33,85, 151,20"},
    {"German_DD_SixPlaces", Notation::DD, 9.123456789, 45.1, none, germanLocale, "45,10, 9,123457"},
    {"German_DD_HemiLetAndDegree", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) {
         s.DDshowHemiLet = true;
         s.DDshowDegrSymb = true;
     },
     germanLocale, "33,85°S, 151,20°E"},
    {"German_DD_SeparatorBlank", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) { s.DDseparator = QStringLiteral(" "); }, germanLocale,
     "-33,85 151,20"},
    {"German_DMS_Sydney_SecondsOnly", Notation::DMS, 151.2, -33.85, none, germanLocale,
     "33° 51' 00,0\"S, 151° 11' 60,0\"E"},
    {"German_DMS_NoSymbolsNoLetters", Notation::DMS, 151.2, -33.85,
     [](NotationSettings& s) {
         s.DMSshowHemiLet = false;
         s.DMSshowSymbols = false;
     },
     germanLocale, "-33 51 00,0, 151 11 60,0"},
    {"German_DMS_WholeMinutes_OnlyTheSeparatorComma", Notation::DMS, 9.25, 45.5, none, germanLocale,
     "45° 30'N, 9° 15'E"},
    {"German_DMS_WholeDegrees", Notation::DMS, 9, 45, none, germanLocale, "45°N, 9°E"},
    {"German_UTM_Sydney_ZoneUntouched", Notation::UTM, 151.2, -33.85, none, germanLocale,
     "333471,8 E, 6253018,2 N -56"},
    {"German_UTM_Metres_SouthLetter", Notation::UTM, 151.2, -33.85,
     [](NotationSettings& s) {
         s.UTMnegZoneSouth = false;
         s.UTMshowM = true;
     },
     germanLocale, "333471,8 m E, 6253018,2 m N 56 S"},
    {"German_UTM_TabSeparator", Notation::UTM, 9, 45,
     [](NotationSettings& s) { s.UTMseparator = QStringLiteral("\t"); }, germanLocale,
     "500000,0 E\t4982950,4 N 32"},
    {"TrueMinus_DD", Notation::DD, 151.2, -33.85, none, commaLocaleWithTrueMinus(),
     "\u221233,85, 151,20"},
    {"TrueMinus_DD_LetterReplacesTheMinus", Notation::DD, 151.2, -33.85,
     [](NotationSettings& s) { s.DDshowHemiLet = true; }, commaLocaleWithTrueMinus(),
     "33,85 S, 151,20 E"},
    {"TrueMinus_DMS_MinusBeforeTheWholeAngle", Notation::DMS, -151.2, -33.85,
     [](NotationSettings& s) { s.DMSshowHemiLet = false; }, commaLocaleWithTrueMinus(),
     "\u221233° 51' 00,0\", \u2212151° 11' 60,0\""},
    {"TrueMinus_DMS_LetterReplacesTheMinus", Notation::DMS, -151.2, -33.85, none,
     commaLocaleWithTrueMinus(), "33° 51' 00,0\"S, 151° 11' 60,0\"W"},
    {"TrueMinus_UTM_ZoneKeepsPlainMinus", Notation::UTM, 151.2, -33.85, none,
     commaLocaleWithTrueMinus(), "333471,8 E, 6253018,2 N -56"},
};

class FormatTextInLocale : public testing::TestWithParam<LocaleCase> {};

TEST_P(FormatTextInLocale, LocaleDecimalSeparatorAndMinusSign) {
    const LocaleCase& c = GetParam();
    ASSERT_EQ(germanLocale.decimalPoint, QLatin1Char(','));
    NotationSettings s = startSettings();
    c.change(s);
    EXPECT_EQ(write(c.notation, c.lon, c.lat, s, true, c.locale), QString::fromUtf8(c.latFirst));
}

INSTANTIATE_TEST_SUITE_P(Notation, FormatTextInLocale, testing::ValuesIn(localeCases),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
