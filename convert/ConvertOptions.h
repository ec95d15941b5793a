#pragma once
// The command line of geoquill-convert: the choices a user makes in the import window (notation,
// columns, first line), the order of values and the format settings that the table shows, and
// what only a command line needs (delimiter, header, strictness, the input).
//
//   geoquill-convert --lat 6 --lon 7 --label 1 airports.csv
//   geoquill-convert --input utm --lon 2 --lat 3 --zone 4 --utm-zone-letter - < grid.txt
//   geoquill-convert --lat=1 --lon=2 --first-line=1 --delimiter semicolon points.txt
// Options and their values come as "--name value" or "--name=value"; "--" ends the options, and
// "-" is standard input.

#include "coordinates/NumberText.h"
#include "files/ImportColumns.h"
#include "notation/NotationSettings.h"

#include <QString>
#include <QStringList>

#include <cstdint>

struct ConvertOptions {
    ImportColumns columns;
    std::int64_t firstLine = 2; // the import window proposes the line after a header
    char delimiter = 0;         // 0: found in the text as the import finds it
    bool latFirst = true;       // the order buttons start on "Lat, Lon"
    NotationSettings settings;
    NumberLocale locale; // the C locale's point, unless --locale names another
    bool header = true;
    bool strict = false;
    QString input; // a file; empty for standard input
};

struct CommandLine {
    enum class Action { Convert, Help, Version, Usage };
    Action action = Action::Convert;
    ConvertOptions options;
    QString error; // with Usage: what was wrong
};

// arguments: without the program's name.
CommandLine parseCommandLine(const QStringList& arguments);

// The synopsis and the options, for --help and after a usage error.
QString usageText();
// The whole of --help: the usage, how the input is read, the exit codes.
QString helpText();
