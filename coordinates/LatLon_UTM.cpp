#include "LatLon_UTM.h"

#include "MessageBox.h"
#include "SafeInteger.h"

#include <cmath>

namespace LatLon_UTM {

double a = 6378137.0;
double b = 6356752.31425;
aDatum wgs84;
const std::vector<aDatum> knowDatums;

namespace {

constexpr double degreesPerRadianIn = 57.2957795131;
constexpr double piOut = 3.141592653589793;
constexpr double k0 = 0.9996;
constexpr double falseEasting = 500000.0;
constexpr double falseNorthingSouth = 10000000.0;
constexpr double polarK0 = 0.994;
constexpr double polarFalseOrigin = 2000000.0;

// Shape of the working ellipsoid, derived once per conversion.
struct Ellipsoid {
    double e2;  // first eccentricity squared
    double e;   // first eccentricity
    double e4;  // e2 squared
    double e6;  // e2 cubed
    double ep2; // second eccentricity squared
};

// Copies the datum's axes into the module's working axes (WGS84 for an implausible
// semi-major axis, which is what makes a blank datum work) and derives the eccentricities.
Ellipsoid prepareEllipsoid(const aDatum& datum) {
    a = datum.a;
    b = datum.b;
    if (a > 7000000.0 || a < 6000000.0) {
        a = 6378137.0;
        b = 6356752.31425;
    }
    const double f = 1 - b / a;
    Ellipsoid el{};
    el.e2 = 2 * f - f * f;
    el.e = std::sqrt(el.e2);
    el.e4 = el.e2 * el.e2;
    el.e6 = el.e2 * el.e4;
    el.ep2 = el.e2 / (1 - el.e2);
    return el;
}

// Distance from the pole on the polar stereographic plane for latitude phi (radians).
double polarRadius(const Ellipsoid& el, double phi) {
    const double sinPhi = std::sin(phi);
    const double e = el.e;
    const double t =
        std::sqrt((1 - sinPhi) / (1 + sinPhi) * std::pow((1 + e * sinPhi) / (1 - e * sinPhi), e));
    const double d = std::sqrt(std::pow(1 + e, 1 + e) * std::pow(1 - e, 1 - e));
    return t * (a * 2 * polarK0) / d;
}

// Central meridian (radians) of the Norway and Svalbard cells, or of the plain zone.
double centralMeridian(double lon, double lat, std::int64_t zone) {
    if (lat > 72) {
        if (lon > 0 && lon < 9)
            return 0.0785398163397206;
        if (lon >= 9 && lon < 21)
            return 0.26179938779906864;
        if (lon >= 21 && lon < 33)
            return 0.4712388980383236;
        if (lon >= 33 && lon < 42)
            return 0.6544984694976717;
    } else if (lat > 56 && lat < 64) {
        if (lon > 0 && lon < 3)
            return 0.026179938779906865;
        if (lon >= 3 && lon < 12)
            return 0.13089969389953432;
    }
    // In doubles: a zone from an absurd longitude must not overflow the integer arithmetic.
    return ((static_cast<double>(zone) - 1) * 6 - 180 + 3) / degreesPerRadianIn;
}

// Snyder's transverse Mercator forward series with phi and the longitude difference in
// radians. The multiple-angle sines of the meridian arc come from one sin/cos pair.
void transverseMercatorForward(const Ellipsoid& el, double phi, double dLambda, double& x,
                               double& y) {
    const double e2 = el.e2, e4 = el.e4, e6 = el.e6, ep2 = el.ep2;
    const double A0 = 1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    const double A2 = 3 * e2 / 8 + 3 * e4 / 32 + 45 * e6 / 1024;
    const double A4 = 15 * e4 / 256 + 45 * e6 / 1024;
    const double A6 = 35 * e6 / 3072;

    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double sin2 = 2 * s * c;
    const double cos2 = c * c - s * s;
    const double sin4 = 2 * sin2 * cos2;
    const double cos4 = cos2 * cos2 - sin2 * sin2;
    const double sin6 = sin4 * cos2 + cos4 * sin2;
    const double M = a * (A0 * phi - A2 * sin2 + A4 * sin4 - A6 * sin6);

    const double tanPhi = s / c;
    const double A = dLambda * c;
    const double N = a / std::sqrt(1 - e2 * s * s);
    const double T = tanPhi * tanPhi;
    const double C = ep2 * c * c;
    const double A2p = A * A;
    const double A3p = A2p * A;
    const double A4p = A2p * A2p;

    x = N * k0 *
        (A + A3p * (1 - T + C) / 6 + A4p * A * (5 - 18 * T + T * T + 72 * C - 58 * ep2) / 120);
    y = k0 * (M + N * tanPhi *
                      (A2p / 2 + A4p * (5 - T + 9 * C + 4 * C * C) / 24 +
                       A4p * A2p * (61 - 58 * T + T * T + 600 * C - 330 * ep2) / 720));
}

} // namespace

aDatum makeWGS84() {
    aDatum d;
    d.ellipsoid = QStringLiteral("WGS84");
    d.a = 6378137.0;
    d.b = 6356752.31425;
    d.name = QStringLiteral("WGS84");
    return d;
}

aDatum getFullDatum(const QString& name) {
    aDatum result;
    result.name = name.isEmpty() ? QStringLiteral("Unknown") : name;
    for (const aDatum& known : knowDatums) {
        if (known.name.compare(result.name, Qt::CaseInsensitive) == 0) {
            result.name = known.name;
            result.ellipsoid = known.ellipsoid;
            result.a = known.a;
            result.b = known.b;
            break;
        }
    }
    return result;
}

void get_grid_zone(double lon, double lat, UtmZone& utmZ, double& lambda0) {
    utmZ[2] = truncateToInteger((lat + 80) * 0.125);
    utmZ[1] = truncateToInteger((180 + lon) / 6 + 1);
    if (lat < -80 || lat > 84)
        lambda0 = 0;
    else
        lambda0 = centralMeridian(lon, lat, utmZ[1]);
}

void get_lambda0(const UtmZone& utmZ, double& lambda0, int& status, MessageBox& messages) {
    const std::int64_t zone = absoluteInteger(utmZ[1]);
    if (zone - 1 < 0 || zone - 1 > 60) {
        messages.show(QStringLiteral("Invalid grid zone format"));
        status = -1;
        return;
    }
    lambda0 = static_cast<double>((zone - 1) * 6 - 180 + 3) / degreesPerRadianIn;
    status = 0;
}

void ll2utm(double lon, double lat, double& easting, double& northing, UtmZone& utmZ,
            const aDatum& datum) {
    const Ellipsoid el = prepareEllipsoid(datum);
    double phi = lat / degreesPerRadianIn;
    double lambda = lon / degreesPerRadianIn;
    double lambda0 = 0;
    get_grid_zone(lon, lat, utmZ, lambda0);

    if (lat > 84) {
        const double rho = polarRadius(el, phi);
        easting = rho * std::sin(lambda - lambda0) + polarFalseOrigin;
        northing = polarFalseOrigin - rho * std::cos(lambda - lambda0);
    } else if (lat < -80) {
        phi = -phi;
        lambda = -lambda;
        lambda0 = -lambda0;
        const double rho = polarRadius(el, phi);
        easting = polarFalseOrigin - rho * std::sin(lambda - lambda0);
        northing = rho * std::cos(lambda - lambda0) + polarFalseOrigin;
    } else {
        double x = 0, y = 0;
        transverseMercatorForward(el, phi, lambda - lambda0, x, y);
        easting = x + falseEasting;
        northing = y < 0 ? y + falseNorthingSouth : y;
    }
}

void utm2ll(double easting, double northing, double& lon, double& lat, const UtmZone& utmZ,
            const aDatum& datum, MessageBox& messages) {
    const Ellipsoid el = prepareEllipsoid(datum);
    double lambda0 = 0;
    int status = 0;
    get_lambda0(utmZ, lambda0, status, messages);
    if (status != 0) {
        messages.show(QStringLiteral("Unable to translate UTM to LL"));
        return;
    }
    const bool south = static_cast<double>(utmZ[2]) * 8 - 80 < 0;
    const double x = easting - falseEasting;
    const double y = south ? northing - falseNorthingSouth : northing;

    const double e2 = el.e2, e4 = el.e4, e6 = el.e6, ep2 = el.ep2;
    const double s = std::sqrt(1 - e2);
    const double e1 = (1 - s) / (1 + s);
    const double e1p2 = e1 * e1, e1p3 = e1p2 * e1, e1p4 = e1p2 * e1p2;
    const double A0 = 1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    const double mu = (y / k0) / (A0 * a);

    // sin 2mu .. sin 8mu from one sin/cos pair.
    const double sin2 = std::sin(2 * mu);
    const double cos2 = std::cos(2 * mu);
    const double sin4 = 2 * sin2 * cos2;
    const double cos4 = cos2 * cos2 - sin2 * sin2;
    const double sin6 = sin4 * cos2 + cos4 * sin2;
    const double sin8 = 2 * sin4 * cos4;
    const double phi1 = mu + (3 * e1 / 2 - 27 * e1p3 / 32) * sin2 +
                        (21 * e1p2 / 16 - 55 * e1p4 / 32) * sin4 + (151 * e1p3 / 96) * sin6 +
                        (1097 * e1p4 / 512) * sin8;

    const double sinPhi1 = std::sin(phi1);
    const double cosPhi1 = std::cos(phi1);
    // One reciprocal each for cos phi1 and the radius terms: divisions dominate the inverse.
    const double secPhi1 = 1 / cosPhi1;
    const double tanPhi1 = sinPhi1 * secPhi1;
    const double C1 = ep2 * cosPhi1 * cosPhi1;
    const double T1 = tanPhi1 * tanPhi1;
    const double w = 1 - e2 * sinPhi1 * sinPhi1;
    const double rootW = std::sqrt(w);
    // N1 / R1 = w / (1 - e2), and D = x / (k0 N1) = x rootW / (k0 a).
    const double N1overR1 = w / (1 - e2);
    const double D = x * rootW / (k0 * a);
    const double D2 = D * D, D3 = D2 * D, D4 = D2 * D2;
    constexpr double inv6 = 1.0 / 6, inv24 = 1.0 / 24, inv120 = 1.0 / 120, inv720 = 1.0 / 720;

    const double phi =
        phi1 -
        (N1overR1 * tanPhi1) *
            (D2 / 2 - (5 + 3 * T1 + 10 * C1 - 4 * C1 * C1 - 9 * ep2) * D4 * inv24 +
             (61 + 90 * T1 + 298 * C1 + 45 * T1 * T1 - 252 * ep2 - 3 * C1 * C1) * D4 * D2 * inv720);
    const double lambda = lambda0 + (D - (1 + 2 * T1 + C1) * D3 * inv6 +
                                     (5 - 2 * C1 + 28 * T1 - 3 * C1 * C1 + 8 * ep2 + 24 * T1 * T1) *
                                         D3 * D2 * inv120) *
                                        secPhi1;

    constexpr double degreesPerRadianOut = 180 / piOut;
    lat = phi * degreesPerRadianOut;
    lon = lambda * degreesPerRadianOut;
}

} // namespace LatLon_UTM
