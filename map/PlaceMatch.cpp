#include "PlaceMatch.h"

#include <algorithm>
#include <cmath>

namespace PlaceMatch {

bool namesPlace(const QString& name, const QString& text) {
    if (text.isEmpty() || !name.startsWith(text, Qt::CaseInsensitive))
        return false;
    if (name.size() == text.size() || !text.back().isLetterOrNumber())
        return true;
    return !name.at(text.size()).isLetterOrNumber();
}

std::optional<FoundPlace> best(const QVector<FoundPlace>& places) {
    if (places.isEmpty())
        return std::nullopt;
    // max_element keeps the first of equals.
    return *std::max_element(
        places.begin(), places.end(),
        [](const FoundPlace& a, const FoundPlace& b) { return a.population < b.population; });
}

qint64 populationFromTag(const QString& tag) {
    QString digits;
    for (const QChar c : tag) {
        if (c.isDigit())
            digits.append(c);
        else if (c == QLatin1Char(' ') || c == QLatin1Char(',') || c == QLatin1Char('.') ||
                 c == QLatin1Char('\'') || c == QChar(0x00A0) || c == QChar(0x202F))
            continue;
        else
            break;
    }
    bool ok = false;
    const qint64 population = digits.left(15).toLongLong(&ok);
    return ok ? population : -1;
}

bool onEarth(double latitude, double longitude) {
    return std::isfinite(latitude) && std::isfinite(longitude) && std::abs(latitude) <= 90 &&
           std::abs(longitude) <= 180;
}

} // namespace PlaceMatch
