#include "PlainNumberText.h"

#include <charconv>

void appendPlainDoubleText(QString& out, double value) {
    char digits[32]; // the longest shortest-round-trip text of a double is 24 characters
    const auto written = std::to_chars(digits, digits + sizeof digits, value);
    out += QLatin1String(digits, static_cast<int>(written.ptr - digits));
}

QString plainDoubleText(double value) {
    QString text;
    appendPlainDoubleText(text, value);
    return text;
}

double Val(QStringView text, const NumberLocale& locale) {
    int i = 0;
    while (i < text.size() && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t')))
        ++i;
    // A minus sign of the locale's own (U+2212 in some) counts like the ASCII one: the table
    // writes negative decimal degrees with it.
    if (i < text.size() && text[i] == locale.minusSign && locale.minusSign != QLatin1Char('-'))
        return -ToDouble(text.mid(i + 1), locale);
    return ToDouble(text.mid(i), locale);
}
