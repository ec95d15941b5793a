#pragma once
// Which places a typed name means, and which of them the map goes to.

#include "FoundPlace.h"

#include <QString>
#include <QVector>

#include <optional>

namespace PlaceMatch {

// Whether a place's name answers the text (already trimmed, runs of spaces made single): the
// text, whatever its case, is all of the name or its start ending where a word of it ends.
//   name "Paris", text "paris"          yes
//   name "Kansas City", text "Kansas"   yes: the name goes on after a whole word
//   name "Wiener Neustadt", text "Wien" no: the text stops inside a word
//   any name, text ""                   no: nothing to look for
// Letters match by Unicode case folding only: "São Paulo" is not "Sao Paulo".
bool namesPlace(const QString& name, const QString& text);

// The most populous candidate; among equals, or when no population is known, the first, which
// is where the map's list and Nominatim put the one they rank highest. None for no candidates.
std::optional<FoundPlace> best(const QVector<FoundPlace>& places);

// OpenStreetMap's population tag: a whole number, sometimes with group separators (space,
// comma, dot, apostrophe, no-break spaces) or followed by more after a semicolon or a word.
//   "48 000" 48000   "1,250,000" 1250000   "12000;15000" 12000   "about 300" -1   "" -1
// Negative when no digit leads; at most 15 digits are read.
qint64 populationFromTag(const QString& tag);

// A latitude and longitude (degrees) that are finite and within [-90, 90] and [-180, 180].
bool onEarth(double latitude, double longitude);

} // namespace PlaceMatch
