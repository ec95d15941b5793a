#include "ConvertOptions.h"

#include "files/DelimiterScan.h"

#include <QLocale>

#include <algorithm>

namespace {

// The format settings that an option turns from the value the window starts with.
struct FormatFlag {
    const char* name;
    bool NotationSettings::*flag;
};
const FormatFlag formatFlags[] = {
    {"--dd-hemisphere", &NotationSettings::DDshowHemiLet},
    {"--dd-degree", &NotationSettings::DDshowDegrSymb},
    {"--dms-no-hemisphere", &NotationSettings::DMSshowHemiLet},
    {"--dms-no-symbols", &NotationSettings::DMSshowSymbols},
    {"--utm-m", &NotationSettings::UTMshowM},
    {"--utm-no-en", &NotationSettings::UTMshowEN},
    {"--utm-zone-letter", &NotationSettings::UTMnegZoneSouth},
};

struct Named {
    const char* name;
    int value;
};
const Named notations[] = {
    {"dd", ImportColumns::DD}, {"dms", ImportColumns::DMS}, {"utm", ImportColumns::UTM}};
const Named delimiters[] = {{"tab", '\t'}, {"comma", ','}, {"space", ' '}, {"semicolon", ';'}};

template <std::size_t N> bool lookUp(const Named (&table)[N], const QString& text, int& value) {
    for (const Named& entry : table) {
        if (text == QLatin1String(entry.name)) {
            value = entry.value;
            return true;
        }
    }
    return false;
}

// A whole number of 1 or more written in plain digits; too large a number is the largest.
bool positiveNumber(const QString& text, std::int64_t& value) {
    const bool digits = !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar ch) {
        return ch >= QLatin1Char('0') && ch <= QLatin1Char('9');
    });
    // Zero is digits too, but names no line and no column.
    if (!digits || text.count(QLatin1Char('0')) == text.size())
        return false;
    value = ImportColumns::firstLineNumber(text);
    return true;
}

bool column(const QString& text, int& value) {
    std::int64_t number = 0;
    if (!positiveNumber(text, number) ||
        number > static_cast<std::int64_t>(DelimiterScan::maxColumns))
        return false;
    value = static_cast<int>(number);
    return true;
}

bool knownLocale(const QString& name, NumberLocale& locale) {
    const QLocale found(name);
    // QLocale falls back to C for a name it does not know.
    if (found.language() == QLocale::C && name != QLatin1String("C") &&
        name != QLatin1String("POSIX"))
        return false;
    locale = NumberLocale::from(found);
    return true;
}

CommandLine usage(const QString& error) {
    CommandLine result;
    result.action = CommandLine::Action::Usage;
    result.error = error;
    return result;
}

bool delimiter(const QString& text, char& value) {
    int found = 0;
    if (!lookUp(delimiters, text, found))
        return false;
    value = static_cast<char>(found);
    return true;
}

// The options that take a value, each with what sets it; the setter is false for a value that
// the option does not take.
struct ValueOption {
    const char* name;
    bool (*set)(ConvertOptions&, const QString&);
};
const ValueOption valueOptions[] = {
    {"--input",
     [](ConvertOptions& o, const QString& v) { return lookUp(notations, v, o.columns.notation); }},
    {"--lon", [](ConvertOptions& o, const QString& v) { return column(v, o.columns.lonEast); }},
    {"--lat", [](ConvertOptions& o, const QString& v) { return column(v, o.columns.latNorth); }},
    {"--zone", [](ConvertOptions& o, const QString& v) { return column(v, o.columns.zone); }},
    {"--label", [](ConvertOptions& o, const QString& v) { return column(v, o.columns.label); }},
    {"--first-line",
     [](ConvertOptions& o, const QString& v) { return positiveNumber(v, o.firstLine); }},
    {"--delimiter", [](ConvertOptions& o, const QString& v) { return delimiter(v, o.delimiter); }},
    {"--locale", [](ConvertOptions& o, const QString& v) { return knownLocale(v, o.locale); }},
};

const ValueOption* valueOption(const QString& name) {
    for (const ValueOption& option : valueOptions)
        if (name == QLatin1String(option.name))
            return &option;
    return nullptr;
}

// A switch without a value; false when there is none of that name.
bool setSwitch(ConvertOptions& o, const QString& name) {
    for (const FormatFlag& f : formatFlags) {
        if (name == QLatin1String(f.name)) {
            o.settings.*f.flag = !(NotationSettings().*f.flag);
            return true;
        }
    }
    if (name == QLatin1String("--lon-lat"))
        o.latFirst = false;
    else if (name == QLatin1String("--no-header"))
        o.header = false;
    else if (name == QLatin1String("--strict"))
        o.strict = true;
    else
        return false;
    return true;
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments) {
    CommandLine result;
    ConvertOptions& o = result.options;
    QStringList files;
    bool optionsEnded = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (optionsEnded || !argument.startsWith(QLatin1String("--"))) {
            if (argument.startsWith(QLatin1Char('-')) && argument != QLatin1String("-") &&
                !optionsEnded)
                return usage(QStringLiteral("unknown option '%1'").arg(argument));
            files << argument;
            continue;
        }
        if (argument == QLatin1String("--")) {
            optionsEnded = true;
            continue;
        }
        const int equals = argument.indexOf(QLatin1Char('='));
        const QString name = equals < 0 ? argument : argument.left(equals);
        if (name == QLatin1String("--help") || name == QLatin1String("--version")) {
            result.action = name == QLatin1String("--help") ? CommandLine::Action::Help
                                                            : CommandLine::Action::Version;
            return result;
        }
        if (const ValueOption* option = valueOption(name)) {
            QString value;
            if (equals >= 0)
                value = argument.mid(equals + 1);
            else if (i + 1 < arguments.size())
                value = arguments[++i];
            else
                return usage(QStringLiteral("option '%1' needs a value").arg(name));
            if (!option->set(o, value))
                return usage(QStringLiteral("option '%1' does not take '%2'").arg(name, value));
        } else if (equals >= 0 || !setSwitch(o, name)) {
            return usage(QStringLiteral("unknown option '%1'").arg(argument));
        }
    }
    if (files.size() > 1)
        return usage(QStringLiteral("one input at most, not '%1'").arg(files.join("' '")));
    if (!files.isEmpty() && files[0] != QLatin1String("-"))
        o.input = files[0];
    const QString missing = o.columns.missingColumnMessage();
    if (!missing.isEmpty())
        return usage(missing);
    if (o.columns.zone > 0 && o.columns.notation != ImportColumns::UTM)
        return usage(QStringLiteral("--zone needs --input utm"));
    return result;
}

QString usageText() {
    return QStringLiteral(R"(Usage: geoquill-convert [options] [FILE]
Converts the coordinates in each line of a delimited text FILE (standard input when
FILE is missing or "-") to decimal degrees, degrees-minutes-seconds and UTM (WGS84),
and writes them to standard output as Geoquill's Save writes its table: a header
line, then one tab-delimited line of label, DD, DMS, easting, northing and zone for
every line from the first line with data on.

  --input dd|dms|utm      notation of the input (default dd)
  --lon N  --lat N        columns (from 1) of longitude and latitude, or of easting
                          and northing with --input utm (required)
  --zone N                column of the UTM zone (required with --input utm)
  --label N               column of the label
  --first-line N          first line with data (default 2, after a header line)
  --delimiter tab|comma|space|semicolon
                          split at this delimiter instead of finding it
  --lon-lat               write longitude before latitude (default: latitude first)
  --dd-hemisphere         decimal degrees with N, S, E, W instead of a minus sign
  --dd-degree             decimal degrees with a degree sign
  --dms-no-hemisphere     DMS with a minus sign instead of N, S, E, W
  --dms-no-symbols        DMS without degree, minute and second signs
  --utm-m                 " m" after easting and northing
  --utm-no-en             no " E" and " N" after easting and northing
  --utm-zone-letter       zone with N or S instead of a minus sign in the south
  --locale NAME           decimal separator of the numbers (default C, a point); under
                          a comma locale a comma in the input is one too
  --no-header             leave out the header line (to join outputs of split inputs)
  --strict                report each line whose coordinates do not read whole as
                          numbers (DMS texts, zones), leave it out, and exit 3
  --help, --version
)");
}

QString helpText() {
    return usageText() + QStringLiteral(R"(
Columns are found as the app's import finds them: each line is judged by tab, then
comma, then space, and the delimiter of the last line that has one splits every line.
So the whole input is read once before the first line is written: a FILE is read
twice, and a pipe (standard input or a FILE) is read to its end first, up to 8 MiB
in memory and the rest in an unnamed temporary file in $TMPDIR (or /tmp).

Every line from the first line on gives one line, as in the app: a blank or
unreadable coordinate reads as 0, unless --strict.

A line longer than 8 MiB is refused, as an input that cannot be read: no coordinate
line comes near it, and memory stays bounded.

Exit status: 0 done; 1 the input could not be read or the output not written;
2 a usage error; 3 --strict left out lines.
)");
}
