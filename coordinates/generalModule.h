#pragma once
// The builders: each turns one notation into a complete location record on the datum
// `LatLon_UTM::wgs84`, filling every field but label, checked, selected and saved. Every
// location in the program comes from one of them. They never fail and never return nothing.

#include "Vertex.h"

#include <QString>

class MessageBox;

namespace generalModule {

// From decimal degrees: lon, lat (degrees). The sexagesimal parts are of |lon| and |lat|, the
// hemisphere letters "W"/"S" for negative values, the zone negative south of the equator and
// utmZ[2] the band index.
VertexRef vertexFromDD(double lon, double lat);

// From two texts of degrees, minutes, seconds and a hemisphere letter, longitude text first.
// Each text is searched with
//     (-?\d+)°? ?(\d+)'? (\d*\.?\d*)?"? *(.)?
// and is taken only if the letter group took part. Typographic quotes (U+201C, U+201D, U+2019)
// count as plain ones. A minus sign before the degrees negates the whole angle (degrees,
// minutes and seconds together); "S" or "W" (any case) makes the value negative in any case.
// The parts are stored as typed, so lon_degr / lat_Degr keep a typed minus sign.
//   legal:   "45° 30' 15.5\" N"    "45 30 15.5 N"    "-0° 10' 01\" E" (-0.16694...)
//            "151° 12' S"          "45°30' 0\"N" (a space must follow the minutes)
//   surprising but legal: "45 N" reads as 4° 5' N, the digits split between degrees and
//            minutes, since the minutes are required
//   no value (stays 0, no message): "45° 30' 15\"" (no letter), "45°30'15\"N" (no space
//            after the minutes), "N" (no digits)
VertexRef vertexFromDMS(const QString& lonText, const QString& latText);
// The text gives vertexFromDMS a value: the pattern above matches, its letter included.
bool isDMSText(const QString& text);

// From easting, northing (metres) and a zone text searched with (-?\d\d?) *(.)? : one or two
// digits, optionally signed, and one further character; "S" (any case) or a minus sign means
// south. "32", "32 N", "56 S", "-56" are legal; "123" reads as zone 12. A zone text without a
// match, zone 0 or a zone above 61 shows the two messages of the inverse projection through
// `messages` and leaves lat and lon at 0. utmZ[2] is the hemisphere marker, 5 south, 15 north;
// the zone's sign follows the computed latitude.
VertexRef vertexFromUTM(double easting, double northing, const QString& zoneText,
                        MessageBox& messages);

} // namespace generalModule
