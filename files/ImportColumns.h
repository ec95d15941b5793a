#pragma once
// What the user says the columns of a delimited text hold: the notation, the columns of the two
// coordinates (longitude and latitude, or easting and northing in UTM), of the UTM zone and of
// the label, each counted from 1, 0 for none. The import window reads it from its pop-up menus,
// geoquill-convert from its options.

#include <QString>

#include <cstdint>

struct ImportColumns {
    enum Notation { DD = 0, DMS = 1, UTM = 2 }; // the import window's segments, in order

    int notation = DD;
    int lonEast = 0;
    int latNorth = 0;
    int zone = 0;
    int label = 0;

    // Why no location can be made with this choice: a coordinate column or, in UTM, the zone
    // column is missing. Empty when the choice is complete.
    QString missingColumnMessage() const;

    // The first line with data from the text a user gives for it: a whole number of 1 or more,
    // anything else counts as 1; a number too large for 64 bits is the largest there is.
    //   "2" -> 2    " 3 " -> 3    "0", "-2", "2.5", "abc", "" -> 1
    static std::int64_t firstLineNumber(const QString& text);
};
