// Coordinate files that other projects ship in Debian (tests/data/README.md says which), imported
// through the import window as a user would. Each location is compared with its line read by
// plain C++ streams and strtod, and its UTM coordinates with GeographicLib's UTMUPS.

#include "support/FakeWindow.h"
#include "support/QStringPrinting.h"

#include <GeographicLib/UTMUPS.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Our UTM series is within about 1 mm of the exact projection across a zone.
constexpr double metreTolerance = 0.0015;
// The same decimal text read by the import and by strtod.
constexpr double degreeTolerance = 1e-12;

struct RealFile {
    const char* name;
    const char* file;
    char delimiter;                        // the delimiter of the file's last line
    int firstLine;                         // the first line of data, from 1
    int lonColumn, latColumn, labelColumn; // from 1
    bool latin1; // the file is not UTF-8, so its bytes are read as Latin-1
};

void PrintTo(const RealFile& f, std::ostream* os) {
    *os << f.name;
}

const RealFile realFiles[] = {
    {"comma_airports_header_line", "airports.csv", ',', 2, 7, 6, 1, false},
    {"tab_country_boxes_southwest_corner", "country_lat_lon.txt", '\t', 1, 3, 4, 1, false},
    // Most lines hold one box: their columns 7 and 8 are missing and read as 0.
    {"tab_country_boxes_second_box", "country_lat_lon.txt", '\t', 1, 7, 8, 2, false},
    {"blank_runs_geonet_shift_jis_names", "geonet_F5.pos", ' ', 3, 2, 1, 5, true},
};

// The fields of one line as a plain reader splits them: at every tab or comma, or at runs of
// blanks.
std::vector<std::string> plainFields(const std::string& line, char delimiter) {
    std::vector<std::string> fields;
    std::istringstream in(line);
    std::string field;
    if (delimiter == ' ') {
        while (in >> field)
            fields.push_back(field);
    } else {
        while (std::getline(in, field, delimiter))
            fields.push_back(field);
    }
    return fields;
}

std::string fieldAt(const std::vector<std::string>& fields, int column) {
    return column <= static_cast<int>(fields.size()) ? fields[column - 1] : std::string();
}

class RealFileImport : public testing::TestWithParam<RealFile> {};

TEST_P(RealFileImport, EveryLineFromTheFirstBecomesItsLocation) {
    const RealFile& f = GetParam();
    const std::string path = std::string(GEOQUILL_TEST_DATA_DIR) + "/" + f.file;
    std::vector<std::vector<std::string>> lines;
    {
        std::ifstream in(path, std::ios::binary);
        ASSERT_TRUE(in) << path;
        std::string line;
        for (int number = 1; std::getline(in, line); ++number)
            if (number >= f.firstLine)
                lines.push_back(plainFields(line, f.delimiter));
    }

    FakeWindow win;
    FakeImportWindow& iw = win.importFile(QString::fromStdString(path));
    EXPECT_EQ(iw.controller->delim, f.delimiter);
    iw.SegmentedButton1.segment = 0; // decimal degrees
    iw.controller->SegmentedButton1_Pressed(0);
    iw.PopupMenuLonEast.selected = f.lonColumn;
    iw.PopupMenuLatNorth.selected = f.latColumn;
    iw.PopupMenuLabel.selected = f.labelColumn;
    iw.TextFieldFirstLine.value = QString::number(f.firstLine);
    iw.controller->PushButton1_Action();
    EXPECT_TRUE(iw.closed);
    EXPECT_TRUE(iw.messageBox.shown.isEmpty());

    const std::vector<VertexRef>& got = win->locations;
    ASSERT_EQ(got.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE("line " + std::to_string(f.firstLine + i));
        const Vertex& v = *got[i];
        const double lon = std::strtod(fieldAt(lines[i], f.lonColumn).c_str(), nullptr);
        const double lat = std::strtod(fieldAt(lines[i], f.latColumn).c_str(), nullptr);
        EXPECT_NEAR(v.lon, lon, degreeTolerance);
        EXPECT_NEAR(v.lat, lat, degreeTolerance);
        const std::string label = fieldAt(lines[i], f.labelColumn);
        EXPECT_EQ(v.label,
                  f.latin1 ? QString::fromLatin1(label.c_str()) : QString::fromUtf8(label.c_str()));

        int zone = 0;
        bool north = true;
        double easting = 0, northing = 0;
        GeographicLib::UTMUPS::Forward(lat, lon, zone, north, easting, northing);
        EXPECT_EQ(std::abs((*v.utmZ)[1]), zone);
        EXPECT_NEAR(v.utmE, easting, metreTolerance);
        EXPECT_NEAR(v.utmN, northing, metreTolerance);
    }
}

INSTANTIATE_TEST_SUITE_P(DebianFiles, RealFileImport, testing::ValuesIn(realFiles),
                         [](const testing::TestParamInfo<RealFile>& info) {
                             return std::string(info.param.name);
                         });

} // namespace
