// The readers of the three notation fields with any typed or pasted text, under a point and a
// comma locale and both orders; and the import's DMS reader against the engine it replaces.

#include "FuzzInput.h"

#include "coordinates/DMSTextMatch.h"
#include "coordinates/LoneSurrogates.h"
#include "notation/NotationParse.h"

#include <QRegularExpression>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

// A reading either failed (a coordinate still missing) or gave numbers. Degrees read from text
// are never NaN; UTM may be, from an infinite easting pushed through the series.
void checkReading(const ParsedPosition& p, bool degreesText) {
    if (degreesText) {
        FUZZ_CHECK(!std::isnan(p.lon));
        FUZZ_CHECK(!std::isnan(p.lat));
    }
    if (p.searchFailed)
        FUZZ_CHECK(!p.errorText.isEmpty() && !p.complete());
}

// Short texts only: the engine is the slow side of the comparison. The engine refuses a text
// with half a surrogate pair as a whole, so both see the text with those replaced.
void checkDMSMatchAgreesWithEngine(const QString& typed) {
    if (typed.size() > 64)
        return;
    const QString text = withoutLoneSurrogates(typed);
    static const QRegularExpression re(
        QStringLiteral("(-?\\d+)°? ?(\\d+)'? (\\d*\\.?\\d*)?\"? *(.)?"));
    const QRegularExpressionMatch expected = re.match(text);
    const DMSTextMatch actual = matchDMSText(text);
    FUZZ_CHECK(actual.found() == expected.hasMatch());
    if (!expected.hasMatch())
        return;
    for (int g = 0; g <= 4; ++g) {
        FUZZ_CHECK(actual.start[g] == expected.capturedStart(g));
        FUZZ_CHECK(actual.start[g] < 0 || actual.length[g] == expected.capturedLength(g));
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    makeDefaultDatum();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const QString text = input.takeRestAsUtf16();
    NumberLocale comma;
    comma.decimalPoint = QLatin1Char(',');
    CountingMessageBox messages;
    for (const NumberLocale& locale : {NumberLocale(), comma}) {
        for (bool latFirst : {true, false}) {
            checkReading(parseDDText(text, latFirst, locale), true);
            checkReading(parseDMSText(text, latFirst, locale), true);
        }
        checkReading(parseUTMText(text, locale, messages), false);
    }
    checkDMSMatchAgreesWithEngine(text);
    return 0;
}
