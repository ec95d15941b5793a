#include "ImportColumns.h"

#include <limits>

QString ImportColumns::missingColumnMessage() const {
    if (lonEast < 1 || latNorth < 1)
        return QStringLiteral("You must specify the column for each type of coordinate");
    if (notation == UTM && zone < 1)
        return QStringLiteral("UTM coordinates require a zone number! Please identify the column "
                              "that has the zone number.");
    return QString();
}

std::int64_t ImportColumns::firstLineNumber(const QString& text) {
    const QString digits = text.trimmed();
    if (digits.isEmpty())
        return 1;
    std::int64_t value = 0;
    for (const QChar ch : digits) {
        if (ch < QLatin1Char('0') || ch > QLatin1Char('9'))
            return 1;
        const int digit = ch.unicode() - '0';
        constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max();
        value = value > (limit - digit) / 10 ? limit : value * 10 + digit;
    }
    return value >= 1 ? value : 1;
}
