#pragma once
// A candidate answer to an address look-up: where a place is and how many live there.

#include <QtGlobal>

struct FoundPlace {
    double latitude = 0;    // degrees
    double longitude = 0;   // degrees
    qint64 population = -1; // people; negative: not known
};
