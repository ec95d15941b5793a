#pragma once
// Metres as a short text with a unit, in the user's or a chosen measurement system.
//
// Units: 0 by the locale, 1 metric, 2 imperial. UnitStyle 1 (abbreviated) is the only style
// the window uses; any other value writes the same abbreviations.
//   metric:   under 1 km whole metres ("0 m", "850 m"); under 100 km one decimal, a trailing
//             ".0" dropped ("1.2 km", "12 km"); from 100 km whole kilometres ("312 km")
//   imperial: under 1,000 feet whole feet ("900 ft"), then miles as kilometres above
//             ("3.4 mi", "25 mi", "1580 mi")
// The decimal separator is the locale's. A distance that is not a finite number of metres at
// or above 0 is written as "--" with the unit of the system.

#include "coordinates/NumberText.h"

#include <QString>

class DistanceFormatter {
public:
    int Units = 0;
    int UnitStyle = 0;
    bool localeUsesMetric = true; // the user's locale measures in metres
    NumberLocale locale;

    QString stringFromDistance(double metres) const;
};
