// An address that names no place, on the controller over the fake map: nothing is said, no
// location is made, and the text waits to be corrected.

#include "support/FakeMapView.h"
#include "support/FakeWindow.h"
#include "support/QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

struct NotFoundRow {
    const char* name;
    bool locationOnShow; // an unrecorded location is on show when the search starts
};

void PrintTo(const NotFoundRow& row, std::ostream* os) {
    *os << row.name;
}

const NotFoundRow notFoundRows[] = {
    {"FromAnEmptyForm", false},
    // The prompt to record it is cancelled, which keeps it on show and still searches.
    {"OverAnUnrecordedLocation", true},
};

class AddressNotFound : public testing::TestWithParam<NotFoundRow> {};

TEST_P(AddressNotFound, LeavesTheLocationAndOffersToFindAgain) {
    FakeWindow f;
    Window1& w = f.window();
    FakeMapView map;
    w.Map_Open(&map);
    if (GetParam().locationOnShow) {
        f.type(f.TextFieldDecDegrees, QStringLiteral("10 20"));
        w.TextFieldDecDegrees_KeyDown(13);
        ASSERT_TRUE(w.theLocation);
    }
    f.type(f.addressTextField, QStringLiteral("Zzqxv Qwv"));
    w.SearchButton_Action();
    ASSERT_EQ(map.addressesShown, (std::vector<QString>{QStringLiteral("Zzqxv Qwv")}));
    const VertexRef before = w.theLocation;
    const QString decimalDegrees = f.TextFieldDecDegrees.value;

    w.Map_addressNotFound();
    // The user pans the map afterwards; before the handler, this made a location at the
    // centre labelled with the address that was not found.
    map.centre = MapCoordinate{47.5, 8.25};
    w.Map_regionDidChangeAnimated();

    EXPECT_EQ(w.theLocation, before);
    EXPECT_EQ(f.TextFieldDecDegrees.value, decimalDegrees);
    EXPECT_TRUE(f.messageBox.shown.isEmpty());
    EXPECT_FALSE(f.messageWindow.shown);
    EXPECT_EQ(f.addressTextField.value, QStringLiteral("Zzqxv Qwv"));
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Find Address"));
    EXPECT_TRUE(f.SearchButton.defaultButton);

    // Corrected and found, the address makes its location as any other.
    f.type(f.addressTextField, QStringLiteral("Zurich"));
    w.SearchButton_Action();
    map.centre = MapCoordinate{47.37, 8.54};
    w.Map_regionDidChangeAnimated();
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Zurich"));
}

INSTANTIATE_TEST_SUITE_P(Map, AddressNotFound, testing::ValuesIn(notFoundRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
