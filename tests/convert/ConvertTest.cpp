// geoquill-convert run as a user runs it: the same bytes as the app's Save after the same
// import, the real files against GeographicLib, what each mistake and each hostile input gives
// back, and a file split over GNU parallel joined again.

#include "support/FakeWindow.h"
#include "support/PlainFields.h"

#include <GeographicLib/DMS.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>

namespace {

struct Outcome {
    int status = -1;
    QByteArray out, err;
};

// The tool on a file, or on bytes through a pipe when the file is empty.
Outcome convert(const QStringList& arguments, const QByteArray& input = {}) {
    QProcess process;
    process.start(QStringLiteral(GEOQUILL_CONVERT), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

QString dataFile(const char* name) {
    return QStringLiteral(GEOQUILL_TEST_DATA_DIR "/") + QLatin1String(name);
}

class ConvertTest : public testing::Test {
protected:
    QString write(const QByteArray& bytes, const QString& name = QStringLiteral("in.txt")) {
        QFile f(dir.filePath(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return f.fileName();
    }
    QTemporaryDir dir;
};

// ---------------------------------------------------------------------------------------------

struct SameAsSave {
    const char* name;
    const char* file; // in tests/data, or the text itself when text is set
    QByteArray text;
    const char* options; // the tool's, besides the file
    int notation, lon, lat, zone, label;
    const char* firstLine; // in the import window
    bool lonFirst;         // "Lon, Lat" clicked
    QStringList menuItems; // Format menu items chosen before saving
    const char* locale;    // the user's locale in the app
};

class ToolAndApp : public ConvertTest, public testing::WithParamInterface<SameAsSave> {};

TEST_P(ToolAndApp, WriteTheSameBytes) {
    const SameAsSave& row = GetParam();
    const QString path = row.text.isEmpty() ? dataFile(row.file) : write(row.text);

    FakeWindow win;
    win->numberLocale = NumberLocale::from(QLocale(QLatin1String(row.locale)));
    FakeImportWindow& iw = win.importFile(path);
    iw.pressSegment(row.notation);
    iw.ok(row.lon, row.lat, row.label, QLatin1String(row.firstLine), row.zone);
    if (row.lonFirst)
        win.clickRadioButton2();
    for (const QString& item : row.menuItems)
        win->menuItemChosen(item);
    win->fillBatchTable();
    win.fileDialogs.saveAnswer = dir.filePath(QStringLiteral("saved.txt"));
    ASSERT_TRUE(win->_FileSave_Action());
    QFile saved(win.fileDialogs.saveAnswer);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));

    const Outcome run = convert(QString::fromLatin1(row.options).split(' ') << path);
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, saved.readAll());
}

INSTANTIATE_TEST_SUITE_P(
    Files, ToolAndApp,
    testing::Values(
        SameAsSave{"commaHeaderLabels",
                   "airports.csv",
                   {},
                   "--lat 6 --lon 7 --label 1",
                   0,
                   7,
                   6,
                   0,
                   1,
                   "2",
                   false,
                   {},
                   "C"},
        SameAsSave{"blankRunsLatin1LonFirstDecimalFlags",
                   "geonet_F5.pos",
                   {},
                   "--lat 1 --lon 2 --label 5 --first-line 3 --lon-lat --dd-hemisphere "
                   "--dd-degree",
                   0,
                   2,
                   1,
                   0,
                   5,
                   "3",
                   true,
                   {"FormatShowDDHemiLet", "FormatShowDegree"},
                   "C"},
        SameAsSave{"tabShortRowsUtmFlags",
                   "country_lat_lon.txt",
                   {},
                   "--lon 7 --lat 8 --label 1 --first-line 1 --utm-m --utm-no-en "
                   "--utm-zone-letter",
                   0,
                   7,
                   8,
                   0,
                   1,
                   "1",
                   false,
                   {"FormatShowm", "FormatShowEandN", "FormatZoneinSHemisph"},
                   "C"},
        SameAsSave{"dmsCrLfBomBlankAndJunk",
                   nullptr,
                   "\xEF\xBB\xBFname,lat,lon\r\nA,45 30 15.5 N,9 15 0 E\r\n\r\n"
                   "B,33\xC2\xB0 51' 0\" S,151\xC2\xB0 12' 0\" E\r\nC,junk,\r\n",
                   "--input dms --lat 2 --lon 3 --label 1 --dms-no-hemisphere --dms-no-symbols",
                   1,
                   3,
                   2,
                   0,
                   1,
                   "2",
                   false,
                   {"FormatShowDMShemiLet", "FormatShowDMSSymbols"},
                   "C"},
        SameAsSave{"utmZonesWithLettersAndAnUnreadableOne",
                   nullptr,
                   "E N Z\n500000 4000000 32 N\n333471.8 6253018.2 56 S\n1 2 0\n",
                   "--input utm --lon 1 --lat 2 --zone 3",
                   2,
                   1,
                   2,
                   3,
                   0,
                   "2",
                   false,
                   {},
                   "C"},
        SameAsSave{"commaLocaleReadsAndWritesCommas",
                   nullptr,
                   "a\t45,5\t-9,25\nb\t1e1\t,5\n",
                   "--lat 2 --lon 3 --label 1 --first-line 1 --locale de_DE",
                   0,
                   3,
                   2,
                   0,
                   1,
                   "1",
                   false,
                   {},
                   "de_DE"}),
    [](const testing::TestParamInfo<SameAsSave>& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct RealFile {
    const char* name;
    const char* file;
    char delimiter; // as a plain reader splits the file
    int firstLine, lonColumn, latColumn;
};

class RealFileAgainstGeographicLib : public testing::TestWithParam<RealFile> {};

// Each written value read back by GeographicLib: decimal degrees to their six places, DMS to
// their thousandth of a second, UTM to the centimetre it is written in plus the 1.5 mm the
// projection may differ by, and the zone with its sign.
TEST_P(RealFileAgainstGeographicLib, EveryLineToItsPrintedPrecision) {
    using GeographicLib::DMS;
    const RealFile& f = GetParam();
    const Outcome run =
        convert({"--lon", QString::number(f.lonColumn), "--lat", QString::number(f.latColumn),
                 "--first-line", QString::number(f.firstLine), dataFile(f.file)});
    ASSERT_EQ(run.status, 0);
    QList<QByteArray> written = run.out.split('\n');
    written.removeFirst(); // the header
    written.removeLast();  // after the last line end
    std::ifstream in(dataFile(f.file).toStdString(), std::ios::binary);
    int number = 0, compared = 0;
    for (std::string line; std::getline(in, line);) {
        if (++number < f.firstLine)
            continue;
        SCOPED_TRACE("line " + std::to_string(number));
        const std::vector<std::string> fields = plainFields(line, f.delimiter);
        const auto value = [&](int column) {
            return column <= int(fields.size()) && !fields[column - 1].empty()
                       ? GeographicLib::Utility::val<double>(fields[column - 1])
                       : 0.0;
        };
        const double lat = value(f.latColumn), lon = value(f.lonColumn);
        ASSERT_LT(compared, written.size());
        const QList<QByteArray> cells = written[compared++].split('\t');
        ASSERT_EQ(cells.size(), 8);
        const auto decoded = [](const QByteArray& cell) {
            DMS::flag hemisphere;
            return DMS::Decode(QString::fromUtf8(cell).remove(' ').toStdString(), hemisphere);
        };
        EXPECT_NEAR(decoded(cells[1]), lat, 0.5e-6 + 1e-12);
        EXPECT_NEAR(decoded(cells[2]), lon, 0.5e-6 + 1e-12);
        EXPECT_NEAR(decoded(cells[3]), lat, 0.0005 / 3600 + 1e-12);
        EXPECT_NEAR(decoded(cells[4]), lon, 0.0005 / 3600 + 1e-12);
        int zone = 0;
        bool north = false;
        double easting = 0, northing = 0;
        GeographicLib::UTMUPS::Forward(lat, lon, zone, north, easting, northing);
        EXPECT_NEAR(cells[5].split(' ')[0].toDouble(), easting, 0.005 + 0.0015);
        EXPECT_NEAR(cells[6].split(' ')[0].toDouble(), northing, 0.005 + 0.0015);
        EXPECT_EQ(cells[7].toInt(), lat < 0 ? -zone : zone);
    }
    EXPECT_EQ(compared, written.size());
}

INSTANTIATE_TEST_SUITE_P(
    DebianFiles, RealFileAgainstGeographicLib,
    testing::Values(RealFile{"commaAirports", "airports.csv", ',', 2, 7, 6},
                    RealFile{"tabCountryBoxesWithEmptyCells", "country_lat_lon.txt", '\t', 1, 3, 4},
                    RealFile{"blankRunsStations", "geonet_F5.pos", ' ', 3, 2, 1}),
    [](const testing::TestParamInfo<RealFile>& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct Mistake {
    const char* name;
    QStringList arguments; // "IN" stands for a file of five lines, three of them no numbers
    int status;
    const char* onErr; // parts of what standard error says, parted by '|'
    int lines;         // written after the header
};

class Mistakes : public ConvertTest, public testing::WithParamInterface<Mistake> {};

TEST_P(Mistakes, ExitStatusAndMessage) {
    const Mistake& m = GetParam();
    QStringList arguments = m.arguments;
    arguments.replaceInStrings(QStringLiteral("IN"), write("lat,lon\n1,2\nfar,4\n\n5.5 N,6\n"));
    const Outcome run = convert(arguments);
    EXPECT_EQ(run.status, m.status);
    for (const QByteArray& part : QByteArray(m.onErr).split('|'))
        EXPECT_TRUE(run.err.contains(part)) << run.err.toStdString();
    if (run.status == 2)
        EXPECT_TRUE(run.out.isEmpty() && run.err.contains("Usage: geoquill-convert"));
    else
        EXPECT_EQ(run.out.count('\n'), m.lines + (run.out.isEmpty() ? 0 : 1));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, Mistakes,
    testing::Values(
        Mistake{"unknownOption",
                {"--lat", "1", "--lon", "2", "--latitude", "IN"},
                2,
                "unknown option '--latitude'",
                0},
        Mistake{"noLatitudeColumn",
                {"--lon", "2", "IN"},
                2,
                "You must specify the column for each type of coordinate",
                0},
        Mistake{"utmWithoutZone",
                {"--input", "utm", "--lat", "1", "--lon", "2", "IN"},
                2,
                "UTM coordinates require a zone number!",
                0},
        Mistake{"columnPastSixty", {"--lat", "61", "--lon", "2", "IN"}, 2, "'--lat'", 0},
        Mistake{"lineZero", {"--lat=1", "--lon=2", "--first-line=0", "IN"}, 2, "'0'", 0},
        Mistake{"unknownLocale",
                {"--lat", "1", "--lon", "2", "--locale", "xx_QQ", "IN"},
                2,
                "'xx_QQ'",
                0},
        Mistake{"twoInputs", {"--lat", "1", "--lon", "2", "IN", "IN"}, 2, "one input", 0},
        Mistake{"missingFile",
                {"--lat", "1", "--lon", "2", "/no/such/file.txt"},
                1,
                "\xE2\x80\x9C/no/such/file.txt\xE2\x80\x9D could not be read: No such file",
                0},
        Mistake{"aFolder", {"--lat", "1", "--lon", "2", "/"}, 1, "could not be read", 0},
        Mistake{"firstLinePastTheEnd",
                {"--lat", "1", "--lon", "2", "--first-line", "9", "IN"},
                0,
                "",
                0},
        // The app's rules: a word reads as 0, a blank line is 0, 0, a letter after a number is
        // ignored; every line is written.
        Mistake{"lenientByDefault", {"--lat", "1", "--lon", "2", "IN"}, 0, "", 4},
        Mistake{"strictLeavesOutAndNamesEachLine",
                {"--strict", "--lat", "1", "--lon", "2", "IN"},
                3,
                "/in.txt:3: the latitude in column 1 is not a number: \"far\"\n|"
                "/in.txt:4: the longitude in column 2 is not a number: \"\"\n|"
                "/in.txt:5: the latitude in column 1 is not a number: \"5.5 N\"\n",
                1}),
    [](const testing::TestParamInfo<Mistake>& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------

struct Hostile {
    const char* name;
    QByteArray input; // through a pipe
    int lines;        // written after the header; -1: not even the header
    const char* onErr;
    int status = 0;
};

class HostileInput : public testing::TestWithParam<Hostile> {};

TEST_P(HostileInput, EveryLineWrittenNothingElse) {
    const Hostile& h = GetParam();
    const Outcome run =
        convert({"--lat", "1", "--lon", "2", "--label", "3", "--first-line", "1"}, h.input);
    EXPECT_EQ(run.status, h.status);
    EXPECT_EQ(run.out.count('\n'), h.lines + 1);
    EXPECT_TRUE(run.err.contains(h.onErr)) << run.err.left(300).toStdString();
}

// Random bytes of every value but the line ends, cut into lines.
QByteArray binary() {
    std::mt19937 random(7);
    QByteArray bytes(1 << 20, 'x');
    for (int i = 1; i < bytes.size(); ++i) {
        const auto c = static_cast<char>(random());
        bytes[i] = i % 97 == 0 ? '\n' : (c == '\n' || c == '\r' ? 'x' : c);
    }
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Input, HostileInput,
    testing::Values(Hostile{"binary", binary(), int(binary().count('\n')) + 1, ""},
                    // Refused as unreadable, nothing written: memory stays bounded.
                    Hostile{"lineOf50MB", "1,2\n" + QByteArray(50 << 20, '7') + ",x\n3,4", -1,
                            "a line is longer than 8 MiB", 1},
                    Hostile{"sixtyOneColumns", QByteArray("1\t").repeated(60) + "1", 1,
                            "> 60 columns"},
                    Hostile{"onlyLineEnds", "\n\n\r\n\r", 4, ""}),
    [](const testing::TestParamInfo<Hostile>& row) { return std::string(row.param.name); });

TEST_F(ConvertTest, InvalidUtf8IsReadAsLatin1AndAClosedOutputEndsQuietly) {
    const Outcome latin1 =
        convert({"--lat", "2", "--lon", "3", "--label", "1", "--first-line", "1"},
                "Z\xFCrich,47.37,8.54\n");
    EXPECT_TRUE(latin1.out.contains("\nZ\xC3\xBCrich\t47.37\t8.54\t"));
    // The reader of the output goes away after its first line, as under "| head -1".
    const QString big = write(QByteArray("1,2\n").repeated(300000));
    QProcess shell;
    shell.start("bash", {"-c", QStringLiteral("'%1' --lat 1 --lon 2 '%2' | head -n 1 >/dev/null;"
                                              " echo ${PIPESTATUS[0]}")
                                   .arg(GEOQUILL_CONVERT, big)});
    shell.waitForFinished(-1);
    EXPECT_EQ(shell.readAllStandardOutput(), "1\n");
    EXPECT_EQ(shell.readAllStandardError(), "");
}

// ---------------------------------------------------------------------------------------------

// A file bigger than what standard input keeps in memory, split by GNU parallel into pieces
// converted side by side without their header, joined after one header: the same bytes as one
// run over the whole file through a pipe.
TEST_F(ConvertTest, SplitOverParallelAndJoinedEqualsOneRun) {
    if (QStandardPaths::findExecutable(QStringLiteral("parallel")).isEmpty())
        GTEST_SKIP() << "GNU parallel is not installed (scripts/install-deps installs it)";
    std::mt19937 random(3);
    std::uniform_real_distribution<double> lat(-80, 84), lon(-180, 180);
    QByteArray text = "lat lon name\n";
    for (int i = 0; i < 400000; ++i)
        text += QByteArray::number(lat(random), 'f', 6) + ' ' +
                QByteArray::number(lon(random), 'f', 6) + " p" + QByteArray::number(i) + '\n';
    ASSERT_GT(text.size(), 9 << 20);
    const QString path = write(text);
    const QString options = QStringLiteral("--lat 1 --lon 2 --label 3 --lon-lat");
    QProcess shell;
    shell.start("bash", {"-c", QStringLiteral("set -e; tool='%1'; file='%2'; cd '%3'\n"
                                              "cat \"$file\" | \"$tool\" %4 > one.txt\n"
                                              "{ \"$tool\" %4 </dev/null\n"
                                              "  parallel --pipepart -a \"$file\" --header '.*\\n'"
                                              " --block 1M -k \"$tool\" --no-header %4\n"
                                              "} > joined.txt\n"
                                              "cmp one.txt joined.txt && wc -l < one.txt")
                                   .arg(GEOQUILL_CONVERT, path, dir.path(), options)});
    shell.waitForFinished(-1);
    EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
    EXPECT_EQ(shell.readAllStandardOutput().trimmed(), "400001");
}

} // namespace
