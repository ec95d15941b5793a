// The table of recorded locations: the text of its cells (named cases worked out by hand, and a
// sweep over every format that reads each cell back against its record), and the table as a user
// meets it through the window: rows from the list, a click bringing a row to the form, ticks and
// selection kept in the records, sorting by a header and the stripes. The table is the real
// model; no screen is needed.

#include "coordinates/generalModule.h"
#include "locationbook/BatchCellText.h"
#include "support/FakeMapView.h"
#include "support/FakeWindow.h"
#include "support/QStringPrinting.h"

#include <QLocale>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using generalModule::vertexFromDD;
using generalModule::vertexFromDMS;
using Answer = MessageDialogView::Answer;
using F = BatchCellFormat;

BatchCellFormat with(std::initializer_list<bool F::*> on, std::initializer_list<bool F::*> off) {
    BatchCellFormat f; // the settings of a new window, latitude first
    for (auto flag : on)
        f.*flag = true;
    for (auto flag : off)
        f.*flag = false;
    return f;
}

struct CellRow {
    const char* name;
    double lon, lat;
    BatchCellFormat format;
    int column;
    const char* text;
};

// The example of the table's header; the sweep below reads every other format back.
const CellRow cellRows[] = {
    {"LatDD", 151.25, -33.5, {}, 2, "-33.50"},
    {"LatDMS", 151.25, -33.5, {}, 4, "33° 30' 0.0\" S"},
    {"Zone", 151.25, -33.5, {}, 8, "-56"},
    {"DD_LetterAndDegree", 151.25, -33.5, with({&F::DDshowHemiLet, &F::DDshowDegrSymb}, {}), 2,
     "33.50° S"},
    {"DMS_PatternSeconds", 9.0043055555555555, 45, {}, 5, "9° 0' 15.5\" E"},
    {"UTM_Metres", 9, 45, with({&F::UTMshowM}, {}), 7, "4982950.4 m N"},
    {"DD_EastUnderOneDegree", 0.5, 10, with({&F::DDshowHemiLet}, {}), 3, "0.50 E"},
    {"ZoneOneSouthByLetter", -177, -10, with({}, {&F::UTMnegZoneSouth}), 8, "1 S"},
};

class Cell : public testing::TestWithParam<CellRow> {};

TEST_P(Cell, Text) {
    const CellRow& r = GetParam();
    EXPECT_EQ(batchCellText(*vertexFromDD(r.lon, r.lat), 0, r.column, r.format),
              QString::fromUtf8(r.text));
}

INSTANTIATE_TEST_SUITE_P(Table, Cell, testing::ValuesIn(cellRows),
                         [](const auto& row) { return std::string(row.param.name); });

// A location typed in DMS shows its parts as typed (unnormalised minutes stay) and its sign from
// the value: a typed minus is not written twice. Numbers, labels and a comma locale.
TEST(Cell, TypedPartsLabelsNumbersAndCommas) {
    const VertexRef typed =
        vertexFromDMS(QStringLiteral("-74 0 21.6 E"), QStringLiteral("40 90 0 N"));
    EXPECT_EQ(batchCellText(*typed, 0, 4, {}), QStringLiteral("40° 90' 0.0\" N"));
    EXPECT_EQ(batchCellText(*typed, 0, 5, with({}, {&F::DMSshowHemiLet})),
              QStringLiteral("-74° 0' 21.6\""));
    typed->label = QStringLiteral("  Home, sweet\thome ");
    EXPECT_EQ(batchCellText(*typed, 0, 1, {}), typed->label);
    EXPECT_EQ(batchCellText(*typed, 99999, 0, {}), QStringLiteral("100000"));
    EXPECT_EQ(batchCellText(*typed, 0, 9, {}), QString());

    BatchCellFormat comma;
    comma.locale = NumberLocale::from(QLocale(QLocale::German, QLocale::Germany));
    const VertexRef v = vertexFromDMS("9 10 15.5 E", "45 30 15.25 N");
    EXPECT_EQ(batchCellText(*v, 0, 2, comma), QStringLiteral("45,504236"));
    EXPECT_EQ(batchCellText(*v, 0, 4, comma), QStringLiteral("45° 30' 15,25\" N"));
    EXPECT_TRUE(batchCellText(*v, 0, 7, comma).contains(','));
    // The plain seconds of the cells without letters, and the integers, use no locale.
    comma.DMSshowHemiLet = false;
    EXPECT_EQ(batchCellText(*v, 0, 5, comma), QStringLiteral("9° 10' 15.5\""));
    v->utmZ = std::make_shared<UtmZone>(UtmZone{0, -1234, 0});
    EXPECT_EQ(batchCellText(*v, 1233, 8, comma), QStringLiteral("-1234"));
    EXPECT_EQ(batchCellText(*v, 1233, 0, comma), QStringLiteral("1234"));
}

// --- Every format, read back ---------------------------------------------------------------------

// Reads "number[°][ letter]" and checks it against the value under the flags.
void checkDD(const QString& cell, double value, bool isLon, const BatchCellFormat& f) {
    static const QRegularExpression shape(QStringLiteral("^(-?)(\\d+\\.\\d{2,6})(°?)( [NSEW])?$"));
    const auto m = shape.match(cell);
    ASSERT_TRUE(m.hasMatch()) << cell.toStdString();
    EXPECT_EQ(!m.captured(3).isEmpty(), f.DDshowDegrSymb) << cell.toStdString();
    EXPECT_NEAR(m.captured(2).toDouble(), std::fabs(value), 0.5e-6) << cell.toStdString();
    EXPECT_EQ(m.captured(1) == "-", !f.DDshowHemiLet && value < 0) << cell.toStdString();
    const char* letter = !f.DDshowHemiLet ? ""
                         : isLon          ? (value < 0 ? " W" : (value > 0 ? " E" : ""))
                                          : (value < 0 ? " S" : " N");
    EXPECT_EQ(m.captured(4), letter) << cell.toStdString();
}

void checkDMS(const QString& cell, const Vertex& v, bool isLon, const BatchCellFormat& f) {
    const QString symbols = f.DMSshowSymbols ? "° (\\d+)' " : " (\\d+) ";
    const QString tail = f.DMSshowHemiLet ? "(\\d+\\.\\d{1,3})%1 ([NSEW])$" : "([0-9.e+-]+)%1$";
    const QRegularExpression shape("^(-?)(\\d+)" + symbols +
                                   tail.arg(QString(f.DMSshowSymbols ? "\"" : "")));
    const auto m = shape.match(cell);
    ASSERT_TRUE(m.hasMatch()) << cell.toStdString();
    EXPECT_EQ(m.captured(2).toLongLong(), std::llabs(isLon ? v.lon_degr : v.lat_Degr));
    EXPECT_EQ(m.captured(3).toLongLong(), isLon ? v.lon_min : v.lat_min);
    const double seconds = isLon ? v.lon_sec : v.lat_sec;
    if (f.DMSshowHemiLet) {
        EXPECT_TRUE(m.captured(1).isEmpty());
        EXPECT_NEAR(m.captured(4).toDouble(), seconds, 0.0005) << cell.toStdString();
        EXPECT_EQ(m.captured(5), isLon ? v.lon_Hemisphere : v.lat_Hemisphere);
    } else {
        EXPECT_EQ(m.captured(1) == "-", (isLon ? v.lon : v.lat) < 0) << cell.toStdString();
        EXPECT_EQ(m.captured(4).toDouble(), seconds) << "plain text keeps every digit";
    }
}

void checkMetres(const QString& cell, double metres, const char* letter, const BatchCellFormat& f) {
    const QString tail = QString(f.UTMshowM ? " m" : "") + (f.UTMshowEN ? letter : "");
    ASSERT_TRUE(cell.endsWith(tail)) << cell.toStdString();
    const QString number = cell.left(cell.size() - tail.size());
    EXPECT_TRUE(QRegularExpression("^\\d+\\.\\d{1,2}$").match(number).hasMatch())
        << cell.toStdString();
    EXPECT_NEAR(number.toDouble(), metres, 0.005 + 1e-9 * metres) << cell.toStdString();
}

class EveryFormat : public testing::TestWithParam<int> {};

TEST_P(EveryFormat, CellsReadBackAsTheRecord) {
    BatchCellFormat f;
    bool F::*const flags[] = {&F::DDshowHemiLet,   &F::DDshowDegrSymb, &F::DMSshowHemiLet,
                              &F::DMSshowSymbols,  &F::UTMshowM,       &F::UTMshowEN,
                              &F::UTMnegZoneSouth, &F::latFirst};
    for (int i = 0; i < 8; ++i)
        f.*flags[i] = (GetParam() >> i) & 1;
    // Locations from the three builders, on both sides of the equator and the meridian, at 0
    // and beyond 180.
    RecordingMessageBox messages;
    const VertexRef locations[] = {
        vertexFromDD(151.25, -33.5),
        vertexFromDD(-74.0059731, 40.7127753),
        vertexFromDD(0, 0),
        vertexFromDD(200, 10),
        vertexFromDD(-0.5, -0.25),
        vertexFromDMS("74 0 21.6 W", "40 42 46.08 N"),
        vertexFromDMS("18 25 25.25 E", "33 55 29.5 S"),
        generalModule::vertexFromUTM(333471.8, 6253018.2, "-56", messages),
        generalModule::vertexFromUTM(500000, 4982950.4, "32 N", messages),
    };
    for (std::size_t i = 0; i < std::size(locations); ++i) {
        SCOPED_TRACE(i);
        const Vertex& v = *locations[i];
        const int latDD = f.latFirst ? 2 : 3, lonDD = f.latFirst ? 3 : 2;
        checkDD(batchCellText(v, i, latDD, f), v.lat, false, f);
        checkDD(batchCellText(v, i, lonDD, f), v.lon, true, f);
        checkDMS(batchCellText(v, i, latDD + 2, f), v, false, f);
        checkDMS(batchCellText(v, i, lonDD + 2, f), v, true, f);
        checkMetres(batchCellText(v, i, 6, f), v.utmE, " E", f);
        checkMetres(batchCellText(v, i, 7, f), v.utmN, " N", f);
        const std::int64_t zone = (*v.utmZ)[1];
        EXPECT_EQ(batchCellText(v, i, 8, f),
                  f.UTMnegZoneSouth ? QString::number(zone)
                                    : QString::number(std::llabs(zone)) + (zone < 0 ? " S" : " N"));
        EXPECT_EQ(batchCellText(v, i, 0, f), QString::number(i + 1));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, EveryFormat, testing::Range(0, 256));

// --- The table in the window -------------------------------------------------------------------

// A window with three recorded locations: Sydney, Paris, New York, in that order.
class RecordedTable : public testing::Test {
protected:
    void SetUp() override {
        w.mapview = &map;
        f.typeAndRecord(f.TextFieldDecDegrees, "-33.5 151.25", "Sydney");
        f.typeAndRecord(f.TextFieldDecDegrees, "48.8566 2.3522", "Paris");
        f.typeAndRecord(f.TextFieldDecDegrees, "40.7128 -74.006", "New York");
        ASSERT_EQ(w.locations.size(), 3u);
    }
    QStringList labelsTopDown() const {
        QStringList labels;
        for (int row : f.BatchListbox.rowsInDisplayOrder())
            labels << f.BatchListbox.cellValueAt(row, 1);
        return labels;
    }
    void typeUnrecorded() { // leaves an unrecorded location in the form
        f->_FileNewLocation_Action();
        f.type(f.TextFieldDecDegrees, QStringLiteral("10 20"));
        f->TextFieldDecDegrees_KeyDown(13);
        ASSERT_TRUE(w.theLocation && !w.theLocation->saved);
    }
    FakeWindow f;
    Window1& w = f.window();
    FakeMapView map;
};

TEST_F(RecordedTable, RowsFollowTheListTheRecordsAndTheOrder) {
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "Paris", "New York"}));
    EXPECT_EQ(f.BatchListbox.cellValueAt(2, 3), QStringLiteral("-74.006"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(1, 0), QStringLiteral("2"));
    // What the view shows, and its tip where a narrow column cuts the text.
    const QModelIndex label = f.BatchListbox.index(1, 1);
    EXPECT_EQ(f.BatchListbox.data(label, Qt::DisplayRole), QStringLiteral("Paris"));
    EXPECT_EQ(f.BatchListbox.data(label, Qt::ToolTipRole), QStringLiteral("Paris"));

    w.locations[0]->checked = false;
    w.locations[1]->selected = w.locations[2]->selected = true;
    w.suppressUpdate = true; // held by a caller, as the removal commands do
    w.fillBatchTable();
    EXPECT_TRUE(w.suppressUpdate) << "the rebuild gives back the flag it found";
    w.suppressUpdate = false;
    w.fillBatchTable();
    EXPECT_FALSE(w.suppressUpdate);
    EXPECT_FALSE(f.BatchListbox.cellCheckBoxValueAt(0, 0));
    EXPECT_TRUE(f.BatchListbox.cellCheckBoxValueAt(2, 0));
    EXPECT_FALSE(f.BatchListbox.cellCheckBoxValueAt(2, 1));
    EXPECT_EQ(f.BatchListbox.selectedRowCount(), 2);
    EXPECT_FALSE(f.BatchListbox.selected(0));
    EXPECT_TRUE(w.locations[1]->selected) << "the rebuild's own selection raised no work";

    // With a row in the form, the other order moves the DD and DMS pairs and their headers.
    f.clickRow(0);
    const QString easting = f.BatchListbox.cellValueAt(0, 6);
    f.clickRadioButton2();
    EXPECT_EQ(f.BatchListbox.headerAt(2), QStringLiteral("Lon DD"));
    EXPECT_EQ(f.BatchListbox.headerAt(5), QStringLiteral("Lat DMS"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 2), QStringLiteral("151.25"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 6), easting);
}

TEST_F(RecordedTable, ClickBringsACopyOfTheRowToTheFormAndTheMap) {
    typeUnrecorded();
    const VertexRef unrecorded = w.theLocation;
    for (std::int64_t row : {-1, 3, 1000000}) // a click that reaches no row asks nothing
        EXPECT_FALSE(w.BatchListbox_CellClick(row, 1, 5, 5));
    w.suppressUpdate = true; // nor one while the table is written
    EXPECT_FALSE(w.BatchListbox_CellClick(1, 1, 5, 5));
    w.suppressUpdate = false;
    EXPECT_TRUE(f.messageDialog.asked.empty());
    EXPECT_EQ(w.theLocation, unrecorded);

    f.messageDialog.answer = Answer::Alternate;
    EXPECT_FALSE(w.BatchListbox_CellClick(1, 4, 3, 3));
    EXPECT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(w.selectedLoc, 1);
    ASSERT_TRUE(w.theLocation);
    EXPECT_NE(w.theLocation, w.locations[1]) << "the form edits a copy, not the row";
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Paris"));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("48.8566, 2.3522"));
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("Paris"));
    EXPECT_DOUBLE_EQ(map.centre.latitude, 48.8566);
    EXPECT_DOUBLE_EQ(map.centre.longitude, 2.3522);
    EXPECT_EQ(map.zoomLevel, 8.0);

    // Renamed and recorded: the row takes the copy, and no row is edited any more.
    f.type(f.TextFieldLabel, QStringLiteral("Paris, centre"));
    w.SearchButton_Action();
    EXPECT_EQ(w.locations[1]->label, QStringLiteral("Paris, centre"));
    EXPECT_EQ(w.locations.size(), 3u);
    EXPECT_EQ(w.selectedLoc, -1);
}

TEST_F(RecordedTable, TicksAndSelectionAreKeptInTheRecords) {
    const QModelIndex box = f.BatchListbox.index(0, 0);
    ASSERT_TRUE(f.BatchListbox.flags(box) & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(f.BatchListbox.data(f.BatchListbox.index(1, 2), Qt::CheckStateRole).isValid())
        << "one tick box a row";
    f.BatchListbox.setData(box, Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_FALSE(w.locations[0]->checked);
    EXPECT_TRUE(w.locations[1]->checked);
    EXPECT_EQ(f.BatchListbox.data(box, Qt::CheckStateRole), Qt::Unchecked);
    f.BatchListbox.setData(box, Qt::Checked, Qt::CheckStateRole);
    EXPECT_TRUE(w.locations[0]->checked);
    w.suppressUpdate = true;
    f.BatchListbox.setData(box, Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_TRUE(w.locations[0]->checked) << "quiet while the program writes the table";
    w.suppressUpdate = false;

    f.BatchListbox.setSelectedRows({0, 2});
    EXPECT_TRUE(w.locations[0]->selected && !w.locations[1]->selected && w.locations[2]->selected);
    f.clickRow(1);
    EXPECT_TRUE(!w.locations[0]->selected && w.locations[1]->selected);

    // Clearing the selection clears the form, by way of the question.
    f.type(f.TextFieldLabel, QStringLiteral("Paris, edited"));
    f.messageDialog.answer = Answer::Alternate;
    f.BatchListbox.setSelectedRows({});
    EXPECT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(w.locations[1]->label, QStringLiteral("Paris")) << "the row keeps what was recorded";
}

// Columns sort by the number at the head of their texts, except the second decimal degrees and
// the first DMS column, which sort as text; a click on a sorted row reaches its own record.
TEST_F(RecordedTable, SortByHeaderThenClickReachesTheClickedLocation) {
    std::int64_t result = 9;
    for (const auto& [first, second, expected] : {std::tuple{1, 0, 1}, {0, 1, -1}, {2, 2, 0}}) {
        EXPECT_TRUE(w.BatchListbox_CompareRows(first, second, 2, result));
        EXPECT_EQ(result, expected) << first << " " << second;
    }
    f.BatchListbox.sort(2, Qt::AscendingOrder); // latitude
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "New York", "Paris"}));
    f.BatchListbox.sort(2, Qt::DescendingOrder);
    EXPECT_EQ(labelsTopDown(), (QStringList{"Paris", "New York", "Sydney"}));
    f.BatchListbox.sort(6, Qt::AscendingOrder); // easting
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "Paris", "New York"}));
    f.BatchListbox.sort(3, Qt::DescendingOrder); // "2.3522" comes before "151.25" as text
    EXPECT_EQ(labelsTopDown(), (QStringList{"Paris", "Sydney", "New York"}));
    f.clickRow(f.BatchListbox.locationRowAt(2));
    EXPECT_EQ(w.theLocation->label, QStringLiteral("New York"));
    EXPECT_EQ(w.selectedLoc, 2);
    EXPECT_TRUE(w.locations[2]->selected);
    EXPECT_FALSE(w.locations[0]->selected);
    w.fillBatchTable(); // the next rebuild shows the list's order again
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "Paris", "New York"}));

    const char* labels[] = {"Zurich", "12 Main St", "3 High St"};
    for (int i = 0; i < 3; ++i)
        w.locations[i]->label = labels[i];
    w.fillBatchTable();
    f.BatchListbox.sort(1, Qt::AscendingOrder); // no number reads as 0
    EXPECT_EQ(labelsTopDown(), (QStringList{"Zurich", "3 High St", "12 Main St"}));
}

TEST(TableSort, PlaceNumbersAsNumbersAndTiesKeepTheirOrder) {
    FakeWindow f;
    Window1& w = f.window();
    for (int i = 0; i < 12; ++i)
        w.locations.push_back(vertexFromDD(10 + i % 3 / 60.0, i % 2 ? 9.0 : 10.0));
    w.fillBatchTable();
    f.BatchListbox.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(f.BatchListbox.rowsInDisplayOrder(),
              (std::vector<int>{11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
    f.BatchListbox.sort(2, Qt::AscendingOrder); // 9 before 10, each group in its last order
    EXPECT_EQ(f.BatchListbox.rowsInDisplayOrder(),
              (std::vector<int>{11, 9, 7, 5, 3, 1, 10, 8, 6, 4, 2, 0}));
    f.BatchListbox.sort(4, Qt::AscendingOrder); // "10° ..." before "9° ..." as text
    EXPECT_EQ(f.BatchListbox.rowsInDisplayOrder(),
              (std::vector<int>{10, 8, 6, 4, 2, 0, 11, 9, 7, 5, 3, 1}));
    f.BatchListbox.sort(5, Qt::DescendingOrder); // by the degrees only: all tie
    EXPECT_EQ(f.BatchListbox.rowsInDisplayOrder(),
              (std::vector<int>{10, 8, 6, 4, 2, 0, 11, 9, 7, 5, 3, 1}));
}

TEST(Stripes, WholeCellFilled) {
    constexpr std::uint32_t cameWith = 0x00123456;
    const struct {
        bool dark;
        int row;
        std::uint32_t colour;
    } rows[] = {{false, 0, 0x00F3F6FA},
                {false, 1, 0x00FFFFFF},
                {false, 100000, 0x00F3F6FA},
                {true, 2, 0xF0FFFEFE},
                {true, 3, cameWith}};
    for (const auto& r : rows) {
        FakeWindow f;
        f.appearance.dark = r.dark;
        FakeGraphics g;
        g.colour = cameWith;
        EXPECT_FALSE(f->BatchListbox_CellBackgroundPaint(g, r.row, 4));
        ASSERT_EQ(g.fills.size(), 1u);
        EXPECT_EQ(g.fills[0].colour, r.colour) << r.row;
        EXPECT_TRUE(g.fills[0].x == 0 && g.fills[0].y == 0 && g.fills[0].width == g.cellWidth &&
                    g.fills[0].height == g.cellHeight);
    }
}

} // namespace
