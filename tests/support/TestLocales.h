#pragma once
// The number locales the tests pin: C (a decimal point), German (a decimal comma), and a comma
// locale whose minus sign is U+2212, as some systems write it.

#include "coordinates/NumberText.h"

#include <QLocale>

namespace testLocales {

inline NumberLocale trueMinusLocale() {
    NumberLocale l;
    l.decimalPoint = QLatin1Char(',');
    l.minusSign = QChar(0x2212);
    return l;
}

inline const NumberLocale point = NumberLocale::from(QLocale::c());
inline const NumberLocale german = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));
inline const NumberLocale trueMinus = trueMinusLocale();

} // namespace testLocales
