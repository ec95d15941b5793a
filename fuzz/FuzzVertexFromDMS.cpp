// vertexFromDMS with any two texts, as the import hands over columns of a file or the
// clipboard. The input is UTF-16 (see FuzzInput.h): the longitude text up to the first line
// feed, the latitude text after it.

#include "FuzzInput.h"

#include "coordinates/generalModule.h"

#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

// The letter group is one character (one or two UTF-16 units); a text without a letter keeps
// the default letter. Either way "S" or "W" leaves the value at or below 0.
void checkCoordinate(double value, const QString& letter) {
    FUZZ_CHECK(!std::isnan(value));
    FUZZ_CHECK(letter.size() == 1 || letter.size() == 2);
    if (letter.compare(QLatin1String("S"), Qt::CaseInsensitive) == 0 ||
        letter.compare(QLatin1String("W"), Qt::CaseInsensitive) == 0)
        FUZZ_CHECK(value <= 0);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    makeDefaultDatum();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    QString lonText, latText;
    splitAtFirstLineFeed(input.takeRestAsUtf16(), lonText, latText);
    const VertexRef v = generalModule::vertexFromDMS(lonText, latText);

    checkCoordinate(v->lon, v->lon_Hemisphere);
    checkCoordinate(v->lat, v->lat_Hemisphere);
    FUZZ_CHECK((*v->utmZ)[0] == 0);
    if (v->lat < 0)
        FUZZ_CHECK((*v->utmZ)[1] <= 0);
    return 0;
}
