// vertexFromDD with any two doubles: map clicks, typed decimal degrees and imported columns all
// end here, and a file can hold anything, NaN and infinities included.

#include "FuzzInput.h"

#include "coordinates/generalModule.h"

#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

// Whole degrees, minutes and seconds of |v| as the record keeps them. Checked only where the
// whole degrees fit an integer exactly and the fraction still has bits left.
void checkParts(double v, std::int64_t degrees, std::int64_t minutes, double seconds) {
    if (!std::isfinite(v) || std::fabs(v) >= 1e15)
        return;
    FUZZ_CHECK(degrees >= 0);
    FUZZ_CHECK(minutes >= 0 && minutes <= 59);
    FUZZ_CHECK(seconds >= 0 && seconds < 60);
    const double back =
        static_cast<double>(degrees) + static_cast<double>(minutes) / 60 + seconds / 3600;
    FUZZ_CHECK(std::fabs(back - std::fabs(v)) <= 1e-9 + std::fabs(v) * 1e-14);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    makeDefaultDatum();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const double lon = input.takeDouble();
    const double lat = input.takeDouble();
    const VertexRef v = generalModule::vertexFromDD(lon, lat);
    const UtmZone& zone = *v->utmZ;

    FUZZ_CHECK(sameBits(v->lon, lon));
    FUZZ_CHECK(sameBits(v->lat, lat));
    FUZZ_CHECK(zone[0] == 0);
    FUZZ_CHECK(v->lat_Hemisphere == QLatin1String(lat < 0 ? "S" : "N"));
    FUZZ_CHECK(v->lon_Hemisphere == QLatin1String(lon < 0 ? "W" : "E"));
    if (lat < 0)
        FUZZ_CHECK(zone[1] <= 0);
    checkParts(lon, v->lon_degr, v->lon_min, v->lon_sec);
    checkParts(lat, v->lat_Degr, v->lat_min, v->lat_sec);

    // Inside the UTM range the projection yields a real grid position in a real zone.
    if (lat >= -80 && lat <= 84 && lon >= -180 && lon <= 180) {
        const std::int64_t z = zone[1] < 0 ? -zone[1] : zone[1];
        FUZZ_CHECK(z >= 1 && z <= 61);
        FUZZ_CHECK(zone[2] >= 0 && zone[2] <= 20);
        FUZZ_CHECK(v->utmE > 0 && v->utmE < 1000000);
        FUZZ_CHECK(v->utmN >= 0 && v->utmN <= 10000000);
    }
    return 0;
}
