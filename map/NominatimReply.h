#pragma once
// The places in a reply of OpenStreetMap's Nominatim search (format=jsonv2, extratags=1).
//
// Read: a JSON array of objects; of each, "lat" and "lon" (degrees, as decimal strings or as
// numbers) and "extratags"."population" (a string, see PlaceMatch::populationFromTag).
//   [{"lat":"-37.8136","lon":"144.9631","extratags":{"population":"1,250,000"}}]  one place
//   [{"lat":48.85,"lon":2.35}]               one place, population not known
// Passed over: an entry without both coordinates, with coordinates that are not numbers or are
// off the earth ("95", "NaN", "1e999"), an entry that is not an object.
// No places: a body that is not a JSON array (an HTML page of a busy server, "{}", nothing).

#include "FoundPlace.h"

#include <QByteArray>
#include <QVector>

namespace NominatimReply {

// The places in the reply's order, which is Nominatim's ranking.
QVector<FoundPlace> places(const QByteArray& body);

} // namespace NominatimReply
