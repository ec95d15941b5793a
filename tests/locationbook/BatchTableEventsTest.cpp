// The table of recorded locations as a user meets it through the window: rows written from the
// list, a click on a row bringing it to the form (after the question when the form holds an
// unrecorded location), ticks and selection kept in the records, sorting by a header and the
// striped backgrounds. The table is the real model; the screen is not needed.

#include "coordinates/generalModule.h"
#include "support/FakeMapView.h"
#include "support/FakeWindow.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using Answer = MessageDialogView::Answer;

// A window with three recorded locations: Sydney, Paris, New York, in that order.
class RecordedTable : public testing::Test {
protected:
    void SetUp() override {
        w.mapview = &map;
        f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("-33.5 151.25"),
                        QStringLiteral("Sydney"));
        f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("48.8566 2.3522"),
                        QStringLiteral("Paris"));
        f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("40.7128 -74.006"),
                        QStringLiteral("New York"));
        ASSERT_EQ(w.locations.size(), 3u);
        ASSERT_TRUE(f.messageDialog.asked.empty());
    }

    QStringList labelsTopDown() const {
        QStringList labels;
        for (int row : f.BatchListbox.rowsInDisplayOrder())
            labels << f.BatchListbox.cellValueAt(row, 1);
        return labels;
    }

    // Leaves an unrecorded location in the form.
    void typeUnrecorded() {
        f->_FileNewLocation_Action();
        f.type(f.TextFieldDecDegrees, QStringLiteral("10 20"));
        f->TextFieldDecDegrees_KeyDown(13);
        ASSERT_TRUE(w.theLocation && !w.theLocation->saved);
    }

    FakeWindow f;
    Window1& w = f.window();
    FakeMapView map;
};

TEST_F(RecordedTable, RowsFollowTheListAndTheOrderButtons) {
    EXPECT_EQ(f.BatchListbox.lastRowIndex(), 2);
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "Paris", "New York"}));
    EXPECT_EQ(f.BatchListbox.headerAt(2), QStringLiteral("Lat DD"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 2), QStringLiteral("-33.50"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(2, 3), QStringLiteral("-74.006"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(1, 0), QStringLiteral("2"));
    EXPECT_TRUE(f.BatchListbox.cellCheckBoxValueAt(1, 0));

    // With a row in the form, the other order moves the DD and DMS pairs and their headers.
    f.clickRow(0);
    const QString easting = f.BatchListbox.cellValueAt(0, 6);
    f.clickRadioButton2();
    EXPECT_EQ(f.BatchListbox.headerAt(2), QStringLiteral("Lon DD"));
    EXPECT_EQ(f.BatchListbox.headerAt(5), QStringLiteral("Lat DMS"));
    EXPECT_EQ(f.BatchListbox.headerAt(6), QStringLiteral("UTM E"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 2), QStringLiteral("151.25"));
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 6), easting);
}

TEST_F(RecordedTable, RebuildWritesTicksAndSelectionFromTheRecords) {
    w.locations[0]->checked = false;
    w.locations[1]->selected = true;
    w.locations[2]->selected = true;
    w.fillBatchTable();
    EXPECT_FALSE(f.BatchListbox.cellCheckBoxValueAt(0, 0));
    EXPECT_TRUE(f.BatchListbox.cellCheckBoxValueAt(2, 0));
    EXPECT_EQ(f.BatchListbox.selectedRowCount(), 2);
    EXPECT_FALSE(f.BatchListbox.selected(0));
    EXPECT_TRUE(f.BatchListbox.selected(2));
    // The rebuild's own selection raised no work: the flags are as they were.
    EXPECT_TRUE(w.locations[1]->selected);
    EXPECT_FALSE(w.locations[0]->selected);
}

TEST_F(RecordedTable, RebuildRestoresTheQuietFlagItFound) {
    w.suppressUpdate = true; // held by a caller, as the removal commands do
    w.fillBatchTable();
    EXPECT_TRUE(w.suppressUpdate);
    w.suppressUpdate = false;
    w.fillBatchTable();
    EXPECT_FALSE(w.suppressUpdate);
}

// --- A click on a row ------------------------------------------------------------------------

struct IgnoredClickRow {
    const char* name;
    int row;
    bool quiet; // suppressUpdate
};

void PrintTo(const IgnoredClickRow& row, std::ostream* os) {
    *os << row.name;
}

const IgnoredClickRow ignoredClicks[] = {
    {"BelowTheLastRow", -1, false},
    {"PastTheEnd", 3, false},
    {"FarPastTheEnd", 1000000, false},
    {"WhileTheTableIsWritten", 1, true},
};

class IgnoredClick : public RecordedTable, public testing::WithParamInterface<IgnoredClickRow> {};

TEST_P(IgnoredClick, NothingHappens) {
    typeUnrecorded();
    const VertexRef before = w.theLocation;
    const auto selectedBefore = w.selectedLoc;
    w.suppressUpdate = GetParam().quiet;
    EXPECT_FALSE(w.BatchListbox_CellClick(GetParam().row, 1, 5, 5));
    EXPECT_TRUE(f.messageDialog.asked.empty()) << "no question for a click that reaches no row";
    EXPECT_EQ(w.theLocation, before);
    EXPECT_EQ(w.selectedLoc, selectedBefore);
}

INSTANTIATE_TEST_SUITE_P(Table, IgnoredClick, testing::ValuesIn(ignoredClicks),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RecordedTable, ClickBringsACopyOfTheRowToTheFormAndTheMap) {
    EXPECT_FALSE(w.BatchListbox_CellClick(1, 4, 3, 3));
    EXPECT_EQ(w.selectedLoc, 1);
    ASSERT_TRUE(w.theLocation);
    EXPECT_NE(w.theLocation, w.locations[1]) << "the form edits a copy, not the row";
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Paris"));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("48.8566, 2.3522"));
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("Paris"));
    ASSERT_FALSE(map.centreMoves.empty());
    EXPECT_DOUBLE_EQ(map.centre.latitude, 48.8566);
    EXPECT_DOUBLE_EQ(map.centre.longitude, 2.3522);
    EXPECT_EQ(map.zoomLevel, 8.0);
}

struct PromptRow {
    const char* name;
    Answer answer;
    std::size_t recordedAfter;
    bool rowShown;
};

void PrintTo(const PromptRow& row, std::ostream* os) {
    *os << row.name;
}

const PromptRow promptRows[] = {
    {"Record", Answer::Action, 4, true},
    {"DontRecord", Answer::Alternate, 3, true},
    {"Cancel", Answer::Cancel, 3, false},
};

class ClickWithUnrecorded : public RecordedTable, public testing::WithParamInterface<PromptRow> {};

TEST_P(ClickWithUnrecorded, AnswerDecides) {
    typeUnrecorded();
    const VertexRef unrecorded = w.theLocation;
    w.tappingMap = true;
    f.messageDialog.answer = GetParam().answer;

    w.BatchListbox_CellClick(2, 1, 5, 5);

    ASSERT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(f.messageDialog.asked[0].message,
              QStringLiteral("The current location has not been recorded!"));
    EXPECT_EQ(w.locations.size(), GetParam().recordedAfter);
    if (GetParam().rowShown) {
        EXPECT_EQ(w.selectedLoc, 2);
        EXPECT_EQ(w.theLocation->label, QStringLiteral("New York"));
    } else {
        EXPECT_EQ(w.theLocation, unrecorded);
        EXPECT_EQ(w.selectedLoc, -1);
        EXPECT_FALSE(w.tappingMap);
        EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("10.00, 20.00"));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ClickWithUnrecorded, testing::ValuesIn(promptRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Ticks and selection -------------------------------------------------------------------------

TEST_F(RecordedTable, TickFollowsTheBoxBothWays) {
    const QModelIndex box = f.BatchListbox.index(1, 0);
    ASSERT_TRUE(f.BatchListbox.flags(box) & Qt::ItemIsUserCheckable);
    f.BatchListbox.setData(box, Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_FALSE(w.locations[1]->checked);
    EXPECT_TRUE(w.locations[0]->checked);
    f.BatchListbox.setData(box, Qt::Checked, Qt::CheckStateRole);
    EXPECT_TRUE(w.locations[1]->checked);

    w.suppressUpdate = true;
    f.BatchListbox.setData(box, Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_TRUE(w.locations[1]->checked) << "quiet while the program writes the table";
}

TEST_F(RecordedTable, SelectionIsKeptInTheRecords) {
    f.BatchListbox.setSelectedRows({0, 2});
    EXPECT_TRUE(w.locations[0]->selected);
    EXPECT_FALSE(w.locations[1]->selected);
    EXPECT_TRUE(w.locations[2]->selected);
    f.BatchListbox.setSelectedRows({1});
    EXPECT_FALSE(w.locations[0]->selected);
    EXPECT_TRUE(w.locations[1]->selected);
}

TEST_F(RecordedTable, ClearingTheSelectionClearsTheFormByWayOfTheQuestion) {
    f.clickRow(1);
    ASSERT_EQ(w.selectedLoc, 1);
    f.type(f.TextFieldLabel, QStringLiteral("Paris, edited")); // now unrecorded
    f.messageDialog.answer = Answer::Alternate;

    f.BatchListbox.setSelectedRows({});

    EXPECT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QString());
    EXPECT_EQ(w.locations[1]->label, QStringLiteral("Paris")) << "the row keeps what was recorded";
}

// --- Sorting -------------------------------------------------------------------------------------

struct CompareRow {
    const char* name;
    int column;
    const char* first;
    const char* second;
    bool handled;
    int result;
};

void PrintTo(const CompareRow& row, std::ostream* os) {
    *os << row.name;
}

const CompareRow compareRows[] = {
    {"NumberNotText", 0, "10", "9", true, 1},
    {"Smaller", 2, "-33.50", "40.7128", true, -1},
    {"Tie", 2, "45.00", "45.00", true, 0},
    {"SameHeadDifferentTail", 6, "500000.0 E", "500000.0 m E", true, 0},
    {"DMSByDegreesOnly", 5, "151° 59' 0.0\" E", "151° 1' 0.0\" E", true, 0},
    {"LabelsWithoutNumbersTie", 1, "Zurich", "Aachen", true, 0},
    {"LabelsWithNumbers", 1, "12 Main St", "3 High St", true, 1},
    {"SecondDDColumnAsText", 3, "1", "2", false, 0},
    {"FirstDMSColumnAsText", 4, "1", "2", false, 0},
};

// A table whose two rows show given texts in every column.
class TwoTextRows : public BatchListboxView {
public:
    TwoTextRows(const char* first, const char* second)
        : texts{QString::fromUtf8(first), QString::fromUtf8(second)} {}
    QString headerAt(int) const override { return {}; }
    void setHeaderAt(int, const QString&) override {}
    void showLocations(const std::vector<VertexRef>&, const BatchCellFormat&) override {}
    int lastRowIndex() const override { return 1; }
    QString cellValueAt(int row, int) const override { return texts[row]; }
    bool cellCheckBoxValueAt(int, int) const override { return true; }
    bool selected(int) const override { return false; }
    void setSelectedRows(const std::vector<int>&) override {}
    int selectedRowCount() const override { return 0; }
    void setSelectedRowIndex(int) override {}
    std::vector<int> rowsInDisplayOrder() const override { return {0, 1}; }

private:
    QString texts[2];
};

class CompareTwoRows : public testing::TestWithParam<CompareRow> {};

TEST_P(CompareTwoRows, ByTheNumberAtTheHead) {
    FakeWindow f;
    const CompareRow& row = GetParam();
    TwoTextRows table(row.first, row.second);
    Window1Controls controls = f->controls();
    controls.BatchListbox = &table;
    Window1 w(controls);
    std::int64_t result = 99;
    EXPECT_EQ(w.BatchListbox_CompareRows(0, 1, row.column, result), row.handled);
    if (row.handled) {
        EXPECT_EQ(result, row.result);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, CompareTwoRows, testing::ValuesIn(compareRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RecordedTable, SortByHeaderThenClickReachesTheClickedLocation) {
    f.BatchListbox.sort(2, Qt::AscendingOrder); // latitude
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "New York", "Paris"}));
    f.BatchListbox.sort(2, Qt::DescendingOrder);
    EXPECT_EQ(labelsTopDown(), (QStringList{"Paris", "New York", "Sydney"}));
    f.BatchListbox.sort(6, Qt::AscendingOrder); // easting
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "Paris", "New York"}));

    // The second DD column sorts as text: "2.3522" comes before "151.25" going down.
    f.BatchListbox.sort(3, Qt::DescendingOrder);
    EXPECT_EQ(labelsTopDown(), (QStringList{"Paris", "Sydney", "New York"}));
    const int bottomRow = f.BatchListbox.locationRowAt(2);
    f.clickRow(bottomRow);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("New York"));
    EXPECT_EQ(w.selectedLoc, 2);
    EXPECT_TRUE(w.locations[2]->selected);
    EXPECT_FALSE(w.locations[0]->selected);

    // The next rebuild shows the list's order again.
    w.fillBatchTable();
    EXPECT_EQ(labelsTopDown(), (QStringList{"Sydney", "Paris", "New York"}));
}

TEST(TableSort, PlaceNumbersSortAsNumbersAndTiesKeepTheirOrder) {
    FakeWindow f;
    Window1& w = f.window();
    for (int i = 0; i < 12; ++i) {
        w.locations.push_back(generalModule::vertexFromDD(10, i % 2 ? 5.0 : 7.0));
        w.locations.back()->label = QString::number(i + 1);
    }
    w.fillBatchTable();
    f.BatchListbox.sort(0, Qt::DescendingOrder);
    std::vector<int> order = f.BatchListbox.rowsInDisplayOrder();
    EXPECT_EQ(order, (std::vector<int>{11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
    // Latitudes 7 and 5 alternate; a stable sort keeps each group in its previous order.
    f.BatchListbox.sort(2, Qt::AscendingOrder);
    order = f.BatchListbox.rowsInDisplayOrder();
    EXPECT_EQ(order, (std::vector<int>{11, 9, 7, 5, 3, 1, 10, 8, 6, 4, 2, 0}));
}

// --- Stripes -------------------------------------------------------------------------------------

struct StripeRow {
    const char* name;
    bool dark;
    int row;
    std::uint32_t colour;
};

void PrintTo(const StripeRow& row, std::ostream* os) {
    *os << row.name;
}

constexpr std::uint32_t cameWith = 0x00123456;

const StripeRow stripeRows[] = {
    {"LightEven", false, 0, 0x00F3F6FA},
    {"LightOdd", false, 1, 0x00FFFFFF},
    {"LightFarEven", false, 100000, 0x00F3F6FA},
    {"DarkEvenNearlyTransparent", true, 2, 0xF0FFFEFE},
    {"DarkOddKeepsThePaintersColour", true, 3, cameWith},
};

class Stripes : public testing::TestWithParam<StripeRow> {};

TEST_P(Stripes, WholeCellFilled) {
    FakeWindow f;
    f.appearance.dark = GetParam().dark;
    FakeGraphics g;
    g.colour = cameWith;
    EXPECT_FALSE(f->BatchListbox_CellBackgroundPaint(g, GetParam().row, 4));
    ASSERT_EQ(g.fills.size(), 1u);
    EXPECT_EQ(g.fills[0].colour, GetParam().colour);
    EXPECT_EQ(g.fills[0].x, 0);
    EXPECT_EQ(g.fills[0].y, 0);
    EXPECT_EQ(g.fills[0].width, g.cellWidth);
    EXPECT_EQ(g.fills[0].height, g.cellHeight);
}

INSTANTIATE_TEST_SUITE_P(Table, Stripes, testing::ValuesIn(stripeRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
