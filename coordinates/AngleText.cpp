#include "AngleText.h"

#include <cmath>

void appendDMSfromAngle(QString& out, double angle, const NumberLocale& locale) {
    const double magnitude = std::fabs(angle);
    const double degrees = std::floor(magnitude);
    if (angle < 0)
        out += locale.minusSign;
    appendNumber(out, degrees, Patterns::dmsDegrees, locale);
    out += QChar(0x00B0);
    const double minutes = (magnitude - degrees) * 60;
    if (minutes != 0) {
        out += QLatin1Char(' ');
        appendNumber(out, std::floor(minutes), Patterns::dmsMinutes, locale);
        out += QLatin1Char('\'');
    }
    const double seconds = (minutes - std::floor(minutes)) * 60;
    if (seconds != 0) {
        out += QLatin1Char(' ');
        appendNumber(out, seconds, Patterns::dmsSeconds, locale);
        out += QLatin1Char('"');
    }
}

QString DMSfromAngle(double angle, const NumberLocale& locale) {
    QString out;
    appendDMSfromAngle(out, angle, locale);
    return out;
}
