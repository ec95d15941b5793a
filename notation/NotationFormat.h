#pragma once
// Writes a longitude and latitude as one line of text in each notation, under the settings,
// the order of the two values (latitude first or not) and the user's number locale.
//
// With the start settings, latitude first, lon 151.2, lat -33.85:
//   DD   "-33.85, 151.20"
//   DMS  "33° 51' 00.0\"S, 151° 11' 60.0\"E"  (the double is a hair under 151.2: nothing carries)
//   UTM  "333471.8 E, 6253018.2 N -56"
// A longitude or latitude at or below -9999 leaves its half of DD and DMS empty. With hemisphere
// letters on, a longitude above 180 is written as its western equivalent (200 -> "160.00 W").

#include "NotationSettings.h"
#include "coordinates/NumberText.h"

#include <QString>

QString formatDD(double lon, double lat, const NotationSettings& settings, bool latFirst,
                 const NumberLocale& locale);
QString formatDMS(double lon, double lat, const NotationSettings& settings, bool latFirst,
                  const NumberLocale& locale);
QString formatUTM(double lon, double lat, const NotationSettings& settings,
                  const NumberLocale& locale);
