#pragma once
// Geographic coordinates to UTM and back on one ellipsoid, by the transverse Mercator series
// of USGS Professional Paper 1395 (Snyder): the meridian arc and the A and D series to the
// sixth power of the eccentricity. The forward direction also covers the polar caps with
// polar stereographic constants; the inverse serves the UTM range only.
//
// Degrees become radians by dividing by 57.2957795131 (a truncated constant, kept on purpose
// so that every written number matches the established tables); radians become degrees by
// multiplying by 180 and dividing by 3.141592653589793.

#include "Vertex.h"

#include <QString>

#include <vector>

class MessageBox;

namespace LatLon_UTM {

// A datum: the name is the look-up key, the axes are in `units`.
class aDatum {
public:
    QString ellipsoid;
    double a = 0; // semi-major axis (metres)
    double b = 0; // semi-minor axis (metres)
    QString name;
    QString units = QStringLiteral("m");
};

// Working axes, rewritten at the start of every conversion.
extern double a;
extern double b;

// The datum in use, made at application start. A blank datum behaves as WGS84 too, since an
// implausible semi-major axis is replaced by the WGS84 axes.
extern aDatum wgs84;

// The datum table. Nothing adds to it: it stays empty for the life of the program.
extern const std::vector<aDatum> knowDatums;

// The WGS84 record that application start stores in `wgs84`.
aDatum makeWGS84();

// A new datum record: a copy of the table entry whose name matches (ignoring case), or a
// blank record named `name` ("Unknown" for an empty name) when there is none.
aDatum getFullDatum(const QString& name);

// Zone (index 1, unsigned here) and band index (index 2) of a location, and the central
// meridian lambda0 (radians) of its zone, moved to the middle of the Norway and Svalbard
// cells; 0 in the polar caps. lon, lat in degrees.
void get_grid_zone(double lon, double lat, UtmZone& utmZ, double& lambda0);

// Central meridian lambda0 (radians) of the zone |utmZ[1]|. status 0, or -1 with the message
// "Invalid grid zone format" for zone 0 or a zone above 61.
void get_lambda0(const UtmZone& utmZ, double& lambda0, int& status, MessageBox& messages);

// Forward projection. lon, lat (degrees) to easting, northing (metres); writes utmZ[1] and
// utmZ[2]. Above 84 N and below 80 S the result is polar stereographic, delivered in the same
// outputs with no mark. Never fails: outside every range the arithmetic still yields numbers.
void ll2utm(double lon, double lat, double& easting, double& northing, UtmZone& utmZ,
            const aDatum& datum);

// Inverse projection. easting, northing (metres) to lon, lat (degrees), with the zone from
// utmZ[1] and the hemisphere from utmZ[2] (band * 8 - 80 below 0 means south; callers pass
// 5 for south and 15 for north). Locations in the Norway and Svalbard cells come back on the
// zone's plain central meridian. On a bad zone it shows the two messages and leaves lon and
// lat as they were.
void utm2ll(double easting, double northing, double& lon, double& lat, const UtmZone& utmZ,
            const aDatum& datum, MessageBox& messages);

} // namespace LatLon_UTM
