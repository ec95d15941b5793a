// vertexFromUTM with any easting and northing and any zone text, as the import hands over the
// columns of a file or the clipboard. The input is two doubles (eight bytes each) followed by
// the zone text in UTF-16 (see FuzzInput.h).

#include "FuzzInput.h"

#include "coordinates/generalModule.h"

#include <QString>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    makeDefaultDatum();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const double easting = input.takeDouble();
    const double northing = input.takeDouble();
    const QString zoneText = input.takeRestAsUtf16();
    CountingMessageBox messages;
    const VertexRef v = generalModule::vertexFromUTM(easting, northing, zoneText, messages);
    const UtmZone& zone = *v->utmZ;

    // The grid values are kept as given, with the hemisphere marker of the zone text.
    FUZZ_CHECK(sameBits(v->utmE, easting));
    FUZZ_CHECK(sameBits(v->utmN, northing));
    FUZZ_CHECK(zone[0] == 0);
    FUZZ_CHECK(zone[2] == 5 || zone[2] == 15);
    FUZZ_CHECK(v->lat_Hemisphere == QLatin1String(v->lat < 0 ? "S" : "N"));
    FUZZ_CHECK(v->lon_Hemisphere == QLatin1String(v->lon < 0 ? "W" : "E"));

    // A zone that can't be used gives both messages of the inverse and leaves the location at
    // 0, 0; a usable one gives none, and the zone's sign follows the computed latitude.
    FUZZ_CHECK(messages.shown == 0 || messages.shown == 2);
    if (messages.shown == 2) {
        FUZZ_CHECK(sameBits(v->lat, 0.0) && sameBits(v->lon, 0.0));
    } else {
        const std::int64_t z = zone[1] < 0 ? -zone[1] : zone[1];
        FUZZ_CHECK(z >= 1 && z <= 61);
        FUZZ_CHECK((v->lat < 0) == (zone[1] < 0));
    }
    return 0;
}
