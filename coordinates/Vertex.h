#pragma once
// One location held at once in decimal degrees, sexagesimal parts and UTM, with what the
// user attached to it. Records are shared by reference: the current location and the entries
// of the recorded list point at the same objects, so a change through one shows through all.

#include <QString>

#include <array>
#include <cstdint>
#include <memory>

// Zone and band of a record: index 1 the zone, negative south of the equator; index 2 the
// band index (builders from latitude) or the hemisphere marker 5 / 15 (builder from UTM);
// index 0 stays 0. An object of its own so that clones can share it.
using UtmZone = std::array<std::int64_t, 3>;
using UtmZoneRef = std::shared_ptr<UtmZone>;

class Vertex {
public:
    double lat = 0;  // latitude (degrees, north positive)
    double lon = 0;  // longitude (degrees, east positive)
    double utmE = 0; // easting (metres)
    double utmN = 0; // northing (metres; 10000000 added south of the equator)
    UtmZoneRef utmZ = std::make_shared<UtmZone>(UtmZone{0, 0, 0});
    std::int64_t lat_Degr = 0; // whole degrees of latitude
    std::int64_t lat_min = 0;  // whole minutes of latitude
    double lat_sec = 0;        // seconds of latitude, with fraction
    std::int64_t lon_degr = 0; // whole degrees of longitude
    std::int64_t lon_min = 0;  // whole minutes of longitude
    double lon_sec = 0;        // seconds of longitude, with fraction
    QString lat_Hemisphere = QStringLiteral("N");
    QString lon_Hemisphere = QStringLiteral("E");
    bool checked = true;   // the row's tick in the batch table
    bool selected = false; // the row's selection mark
    QString label;         // the user's name for the location
    bool saved = false;    // the location has been recorded
};

using VertexRef = std::shared_ptr<Vertex>;

// A new record with every field of the source; the zone array is shared, not copied, which
// is harmless because builders always make a fresh one.
VertexRef cloneLocation(const Vertex& source);
