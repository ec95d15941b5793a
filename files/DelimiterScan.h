#pragma once
// The first reading of an import: every line is judged by itself (DelimitedLine::judge), the
// delimiter of the last line that has one serves the whole text, and the widest line gives the
// number of columns, at most 60:
//   "1\t2\n3,4,5"  -> comma, 3 columns (the tab line is split at commas later)
//   "a b\nc"       -> space, 2 columns          "abc"  -> no delimiter, 0 columns
// The import window and geoquill-convert both read a text through it, so they split it alike.

#include "DelimitedLine.h"

#include <QString>

#include <cstddef>
#include <string_view>

class DelimiterScan {
public:
    static constexpr std::size_t maxColumns = 60;

    void addLine(std::string_view line);

    char delimiter() const { return delim; }
    // The widest line's number of fields, cut to maxColumns.
    int fieldCount() const;
    // A line has more fields than can be chosen: the user is told so once.
    bool tooWide() const { return widest > maxColumns; }
    static QString tooWideMessage();

private:
    char delim = DelimitedLine::noDelimiter;
    std::size_t widest = 0;
};
