// Coordinate files that other projects ship in Debian (tests/data/README.md says which),
// imported as a user would. Each location is compared with its line read by plain C++ streams
// and strtod.

#include "support/FakeWindow.h"
#include "support/PlainFields.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

struct RealFile {
    const char* name;
    const char* file;
    char delimiter;                        // the delimiter of the file's last line
    int firstLine;                         // from 1
    int lonColumn, latColumn, labelColumn; // from 1
    bool latin1;                           // not UTF-8: its bytes are read as Latin-1
};

class RealFileImport : public testing::TestWithParam<RealFile> {};

TEST_P(RealFileImport, EveryLineFromTheFirstBecomesItsLocation) {
    const RealFile& f = GetParam();
    const std::string path = std::string(GEOQUILL_TEST_DATA_DIR) + "/" + f.file;
    std::vector<std::vector<std::string>> lines;
    std::ifstream in(path, std::ios::binary);
    int number = 0;
    for (std::string line; std::getline(in, line);)
        if (++number >= f.firstLine)
            lines.push_back(plainFields(line, f.delimiter));

    FakeWindow win;
    FakeImportWindow& iw = win.importFile(QString::fromStdString(path));
    EXPECT_EQ(iw.controller->delim, f.delimiter);
    iw.ok(f.lonColumn, f.latColumn, f.labelColumn, QString::number(f.firstLine));
    EXPECT_TRUE(iw.messageBox.shown.isEmpty());
    ASSERT_EQ(win->locations.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE("line " + std::to_string(f.firstLine + int(i)));
        const auto field = [&](int column) {
            return column <= int(lines[i].size()) ? lines[i][std::size_t(column - 1)] : "";
        };
        const Vertex& v = *win->locations[i];
        const double lon = std::strtod(field(f.lonColumn).c_str(), nullptr);
        const double lat = std::strtod(field(f.latColumn).c_str(), nullptr);
        EXPECT_NEAR(v.lon, lon, 1e-12);
        EXPECT_NEAR(v.lat, lat, 1e-12);
        const std::string label = field(f.labelColumn);
        EXPECT_EQ(v.label,
                  f.latin1 ? QString::fromLatin1(label.c_str()) : QString::fromStdString(label));
    }
}

INSTANTIATE_TEST_SUITE_P(
    DebianFiles, RealFileImport,
    testing::Values(RealFile{"commaAirportsWithHeader", "airports.csv", ',', 2, 7, 6, 1, false},
                    RealFile{"tabCountryBoxes", "country_lat_lon.txt", '\t', 1, 3, 4, 1, false},
                    // Most lines hold one box: their columns 7 and 8 are missing and read as 0.
                    RealFile{"tabCountrySecondBox", "country_lat_lon.txt", '\t', 1, 7, 8, 2, false},
                    RealFile{"blankRunsShiftJisNames", "geonet_F5.pos", ' ', 3, 2, 1, 5, true}),
    [](const testing::TestParamInfo<RealFile>& row) { return std::string(row.param.name); });

} // namespace
