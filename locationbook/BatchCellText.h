#pragma once
// The text of each cell of the table of recorded locations, which is also what a saved file
// holds. The table has its own patterns and spacing (not those of the notation fields) and
// reads the stored sexagesimal and UTM parts of each record, so that a location typed in DMS
// shows the numbers as typed.
//
// Columns: 0 "#" (the place in the list, from 1, with the tick box), 1 "Label", 2 and 3 the
// decimal degrees, 4 and 5 the DMS, 6 "UTM E", 7 "UTM N", 8 "UTM Zone". Latitude first puts the
// latitude in columns 2 and 4, longitude first the longitude.
//
// With the start settings, latitude first, for 33.5 S 151.25 E:
//   "-33.50"  "151.25"  "33° 30' 0.0\" S"  "151° 15' 0.0\" E"  "...0.0# E"  "...0.0# N"  "-56"
// Decimal degrees use "##0.00####", DMS seconds with letters "#0.0##", UTM metres "######0.0#",
// all with the locale's decimal separator. DMS without letters writes the seconds as the plain
// text of the double and puts "-" in front of the cell of a negative value.

#include "coordinates/NumberText.h"
#include "coordinates/Vertex.h"
#include "notation/NotationSettings.h"

#include <QString>

#include <cstddef>

// Everything a cell's text depends on besides the record, fixed at each rebuild of the table.
struct BatchCellFormat {
    bool DDshowHemiLet = false;
    bool DDshowDegrSymb = false;
    bool DMSshowHemiLet = true;
    bool DMSshowSymbols = true;
    bool UTMshowM = false;
    bool UTMshowEN = true;
    bool UTMnegZoneSouth = true;
    bool latFirst = true; // "Lat, Lon" is on
    NumberLocale locale;

    static BatchCellFormat from(const NotationSettings& settings, bool latFirst,
                                const NumberLocale& locale);
};

constexpr int batchColumnCount = 9;

// The header of a column under the order of values (column 0 to 8).
QString batchHeaderText(int column, bool latFirst);
// The header text the table has before its first rebuild: longitude first, parted by tabs.
QString initialBatchHeaderText();

// The text of one cell of the record at place index (from 0) of the list; empty for a column
// outside 0 to 8.
QString batchCellText(const Vertex& v, std::size_t index, int column,
                      const BatchCellFormat& format);
// The same text appended to out, for writing many cells into one text.
void appendBatchCellText(QString& out, const Vertex& v, std::size_t index, int column,
                         const BatchCellFormat& format);
