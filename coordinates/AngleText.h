#pragma once
// An angle in degrees as degrees, minutes and seconds: "45° 30' 15.5\"". Used by every DMS text
// the details form shows; hemisphere letters are added by the notation writers.
//
// A zero part is dropped (45.5 -> "45° 30'", 45.0 -> "45°"). The tests for zero are on the exact
// doubles, so 33.85 keeps a tiny remainder and prints "33° 51' 00.0\"". Parts are not rounded
// together: seconds are rounded by their own pattern and nothing carries into the minutes, so
// 12.999999999 is "12° 59' 60.0\"". A negative angle gets one minus sign in front of it all.

#include "NumberText.h"

#include <QString>

QString DMSfromAngle(double angle, const NumberLocale& locale);
void appendDMSfromAngle(QString& out, double angle, const NumberLocale& locale);
