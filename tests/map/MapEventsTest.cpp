// The map as the controller sees it, on a fake map whose pixels map linearly to coordinates:
// the armed modes and who clears them, pins kept in step with the list, the pointer read-out,
// the distance modes, the contextual menu, the removal commands and the user's position.

#include "locationbook/MessageWindow.h"
#include "support/FakeMapView.h"
#include "support/FakeWindow.h"

#include <GeographicLib/Geodesic.hpp>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using Answer = MessageDialogView::Answer;

double geodesic(MapCoordinate a, MapCoordinate b) {
    double metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(a.latitude, a.longitude, b.latitude, b.longitude,
                                             metres);
    return metres;
}

class MapTest : public testing::Test {
protected:
    void SetUp() override { w.Map_Open(&map); }

    // The coordinate the fake map gives for a pixel.
    MapCoordinate at(int x, int y) const { return *map.convertPointToCoordinate(x, y); }

    void record(const QString& typed, const QString& label = {}) {
        f.typeAndRecord(f.TextFieldDecDegrees, typed, label);
    }

    void click(int x, int y) {
        w.Map_MouseDown(x, y, false);
        w.Map_MouseUp(x, y);
    }

    FakeWindow f;
    Window1& w = f.window();
    FakeMapView map;
};

// --- Opening, moving, region changes ---------------------------------------------------------

TEST_F(MapTest, OpenShowsTheControlsAndPlacesTheReadout) {
    EXPECT_TRUE(map.showsScale);
    EXPECT_TRUE(map.showsCompass);
    EXPECT_TRUE(map.showsZoomControls);
    EXPECT_EQ(map.cursor.pictureName, QStringLiteral("scopeCurs"));
    // The right edge of the read-out on the map's right edge.
    EXPECT_EQ(f.Rectangle1.x + f.Rectangle1.w, map.mapLeft + map.mapWidth);
    EXPECT_EQ(f.LabelLatLon.x, map.mapLeft + map.mapWidth - 200);
    EXPECT_EQ(f.LabelLatLon.w, 200);
}

TEST_F(MapTest, LoadMapPutsTheZoomBack) {
    map.zoomLevel = 3;
    w.LoadMap(-33.5, 151.25);
    EXPECT_EQ(map.zoomLevel, 8.0);
    EXPECT_EQ(map.centre.latitude, -33.5);
    EXPECT_EQ(map.centre.longitude, 151.25);
}

TEST_F(MapTest, RegionChangeWithoutAnAddressTouchesNothingButTheCursor) {
    record(QStringLiteral("10 20"));
    const VertexRef before = w.theLocation;
    const int cursorSets = map.cursorSets;
    w.Map_regionDidChangeAnimated();
    EXPECT_EQ(w.theLocation, before);
    EXPECT_EQ(map.cursorSets, cursorSets + 1);
}

TEST_F(MapTest, OnlyReturnAndEnterInAFilledAddressFieldSearch) {
    // (key, text, searches): the handler's result says whether the key was taken.
    const std::tuple<int, const char*, bool> keys[] = {{13, "", false},
                                                       {3, "", false},
                                                       {65, "Rome", false},
                                                       {3, "Rome", true},
                                                       {13, "Oslo", true}};
    std::vector<QString> searched;
    for (const auto& [key, text, searches] : keys) {
        f.type(f.addressTextField, QString::fromLatin1(text));
        EXPECT_EQ(w.addressTextField_KeyDown(key), searches) << key << text;
        if (searches)
            searched.push_back(QString::fromLatin1(text));
    }
    EXPECT_EQ(map.addressesShown, searched);
}

TEST_F(MapTest, FoundAddressBecomesTheLocationAtTheCentre) {
    f.type(f.addressTextField, QStringLiteral("Paris"));
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Find Address"));
    w.SearchButton_Action();
    ASSERT_EQ(map.addressesShown, (std::vector<QString>{QStringLiteral("Paris")}));
    w.tappingMap = true;
    map.centre = MapCoordinate{48.857, 2.351};

    w.Map_regionDidChangeAnimated();

    ASSERT_TRUE(w.theLocation);
    EXPECT_DOUBLE_EQ(w.theLocation->lat, 48.857);
    EXPECT_DOUBLE_EQ(w.theLocation->lon, 2.351);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Paris"));
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_FALSE(w.tappingMap);
    EXPECT_TRUE(w.gettingAddressLoc) << "a later pan makes a new location again";
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Record Entry"));
    EXPECT_TRUE(f.SearchButton.defaultButton);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("48.857, 2.351"));
    EXPECT_TRUE(map.centreMoves.empty()) << "the form does not move the map it was read from";

    // The next change: a location at the new centre, with no label any more.
    map.centre = MapCoordinate{48.9, 2.4};
    w.Map_regionDidChangeAnimated();
    EXPECT_DOUBLE_EQ(w.theLocation->lat, 48.9);
    EXPECT_TRUE(w.theLocation->label.isEmpty());

    // Recording clears the address mode: panning no longer touches the form.
    w.SearchButton_Action();
    const VertexRef recorded = w.theLocation;
    map.centre = MapCoordinate{10, 10};
    w.Map_regionDidChangeAnimated();
    EXPECT_EQ(w.theLocation, recorded);
}

TEST_F(MapTest, SegmentsChangeOnlyTheMapType) {
    record(QStringLiteral("10 20"));
    const auto centreMoves = map.centreMoves.size();
    for (int type : {2, 1, 0}) {
        w.SegmentedControl1_Action(type);
        EXPECT_EQ(map.mapType, type);
    }
    EXPECT_EQ(map.centreMoves.size(), centreMoves);
    EXPECT_EQ(w.locations.size(), 1u);
}

// --- A click that makes a location ---------------------------------------------------------------

TEST_F(MapTest, ClickMapMakesTheLocationWhereTheButtonIsLetGo) {
    w.SearchButton_Action(); // "Click Map"
    ASSERT_TRUE(w.tappingMap);
    f.type(f.TextFieldLabel, QStringLiteral("typed before the click"));
    const auto centreMoves = map.centreMoves.size();

    EXPECT_TRUE(w.Map_MouseDown(100, 100, false));
    w.Map_MouseUp(200, 300);

    const MapCoordinate release = at(200, 300);
    ASSERT_TRUE(w.theLocation);
    EXPECT_DOUBLE_EQ(w.theLocation->lat, release.latitude);
    EXPECT_DOUBLE_EQ(w.theLocation->lon, release.longitude);
    EXPECT_EQ(w.lat, release.latitude);
    EXPECT_EQ(w.theLocation->label, w.coordinateText(release.latitude, release.longitude));
    EXPECT_EQ(f.TextFieldLabel.value, w.theLocation->label);
    EXPECT_FALSE(w.tappingMap);
    EXPECT_FALSE(w.gettingAddressLoc);
    EXPECT_TRUE(w.locations.empty()) << "made, not recorded";
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Record Entry"));
    EXPECT_GT(f.SearchButton.focusRequests, 0);
    EXPECT_EQ(map.centreMoves.size(), centreMoves) << "the map stays where it was clicked";
    EXPECT_TRUE(map.scrollEnabled);
    ASSERT_TRUE(w.currentPin);
    EXPECT_TRUE(map.hasPin(w.currentPin));

    // Unarmed, a click changes only the points and the press place.
    const VertexRef made = w.theLocation;
    click(10, 20);
    EXPECT_EQ(w.theLocation, made);
    EXPECT_EQ(w.xDown, 10);
    EXPECT_EQ(w.yDown, 20);
}

TEST_F(MapTest, ContextualPressOnlyNotesThePlace) {
    w.mpt.clear();
    EXPECT_FALSE(w.Map_MouseDown(7, 8, true));
    EXPECT_EQ(w.xDown, 7);
    EXPECT_EQ(w.yDown, 8);
    EXPECT_TRUE(w.mpt.empty());
    EXPECT_TRUE(w.Map_MouseDown(9, 9, false));
    EXPECT_EQ(w.mpt.size(), 1u);
}

// A release off the globe has no coordinate: nothing is made and the mode stays armed.
TEST_F(MapTest, ReleaseOffTheGlobeKeepsTheModeArmed) {
    w._FileNewLocationatMapClick_Action();
    w.Map_MouseDown(10, 100000, false);
    w.Map_MouseUp(10, 100000);
    EXPECT_TRUE(w.tappingMap);
    EXPECT_FALSE(w.theLocation);
    click(10, 10);
    EXPECT_FALSE(w.tappingMap);
    ASSERT_TRUE(w.theLocation);
}

TEST_F(MapTest, ReadoutFollowsThePointerInTheOrderOfTheButtons) {
    w.Map_MouseEnter();
    EXPECT_TRUE(f.LabelLatLon.visible);
    EXPECT_TRUE(f.Rectangle1.visible);
    w.Map_MouseMove(150, 250);
    const MapCoordinate here = at(150, 250);
    EXPECT_EQ(f.LabelLatLon.value, w.coordinateText(here.latitude, here.longitude));
    EXPECT_TRUE(f.LabelLatLon.value.startsWith(QStringLiteral("47.5°, 1.5")));
    f.clickRadioButton2();
    w.Map_MouseMove(150, 250);
    EXPECT_TRUE(f.LabelLatLon.value.startsWith(QStringLiteral("1.5")));
    w.Map_MouseExit();
    EXPECT_FALSE(f.LabelLatLon.visible);
    EXPECT_FALSE(f.Rectangle1.visible);
    EXPECT_FALSE(f.LabelLatLon.value.isEmpty()) << "the text stays";
}

TEST(CoordinateText, PlainNumbersWithDegreeSigns) {
    FakeWindow f;
    EXPECT_EQ(f->coordinateText(45.5, 9.25), QStringLiteral("45.5°, 9.25°"));
    EXPECT_EQ(f->coordinateText(-33.868820000000001, 151.209296),
              QStringLiteral("-33.86882°, 151.209296°"));
    f.clickRadioButton2();
    EXPECT_EQ(f->coordinateText(45.5, 9.25), QStringLiteral("9.25°, 45.5°"));
}

// --- Pins ----------------------------------------------------------------------------------------

TEST_F(MapTest, PinsFollowTheListWithTheirTexts) {
    record(QStringLiteral("45.5 9.25"));
    record(QStringLiteral("-33.5 151.25"), QStringLiteral("Sydney"));
    ASSERT_EQ(w.Pins.size(), 2u);
    EXPECT_EQ(w.Pins[0]->title(), QStringLiteral("45.5°, 9.25°"));
    EXPECT_TRUE(w.Pins[0]->subtitle().isEmpty());
    EXPECT_EQ(w.Pins[1]->title(), QStringLiteral("Sydney"));
    EXPECT_EQ(w.Pins[1]->subtitle(), QStringLiteral("-33.5°, 151.25°"));
    EXPECT_EQ(w.Pins[1]->coordinate.latitude, -33.5);
    for (const MapPinRef& pin : w.Pins)
        EXPECT_TRUE(map.hasPin(pin));
    EXPECT_FALSE(map.hasPin(w.currentPin)) << "a recorded location shows through its pin";
    EXPECT_EQ(map.pins.size(), 2u);

    // The order buttons don't rebuild the pins.
    f.clickRadioButton2();
    EXPECT_EQ(w.Pins[0]->title(), QStringLiteral("45.5°, 9.25°"));
}

TEST_F(MapTest, PinChosenByIdentityBringsThatRecordToTheForm) {
    record(QStringLiteral("10 20"), QStringLiteral("first"));
    record(QStringLiteral("10 20"), QStringLiteral("second")); // the same place
    w.Map_didSelectAnnotationView(w.Pins[1]);
    EXPECT_EQ(w.selectedLoc, 1);
    EXPECT_EQ(w.theLocation, w.locations[1]) << "the record itself, not a copy";
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("second"));
    EXPECT_TRUE(map.hasPin(w.currentPin));

    // The current location's own pin, and no pin at all, change nothing.
    const VertexRef shown = w.theLocation;
    w.Map_didSelectAnnotationView(w.currentPin);
    w.Map_didSelectAnnotationView(nullptr);
    w.Map_didSelectAnnotationView(std::make_shared<MapPin>());
    EXPECT_EQ(w.theLocation, shown);
    EXPECT_EQ(w.selectedLoc, 1);
}

TEST_F(MapTest, CancelledPromptOnAPinChangesNothing) {
    record(QStringLiteral("10 20"));
    w._FileNewLocation_Action();
    f.type(f.TextFieldDecDegrees, QStringLiteral("30 40"));
    w.TextFieldDecDegrees_KeyDown(13);
    const VertexRef unrecorded = w.theLocation;
    w.tappingMap = w.gettingAddressLoc = true;
    f.messageDialog.answer = Answer::Cancel;

    w.Map_didSelectAnnotationView(w.Pins[0]);

    EXPECT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(w.theLocation, unrecorded);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_FALSE(w.tappingMap);
    EXPECT_FALSE(w.gettingAddressLoc);

    // "Record" first records the unrecorded one, then shows the pin's.
    f.messageDialog.answer = Answer::Action;
    w.Map_didSelectAnnotationView(w.Pins[0]);
    EXPECT_EQ(w.locations.size(), 2u);
    EXPECT_EQ(w.selectedLoc, 0);
    EXPECT_EQ(w.Pins.size(), 2u);
}

TEST_F(MapTest, ShowAllGivesEveryRecordedPin) {
    w._MapShowAllLocations_Action();
    EXPECT_TRUE(map.annotationsShown.empty());
    record(QStringLiteral("10 20"));
    record(QStringLiteral("30 40"));
    EXPECT_TRUE(w._MapShowAllLocations_Action());
    EXPECT_EQ(map.annotationsShown, w.Pins);
    EXPECT_TRUE(map.lastShowAnimated);
}

// --- Distances -----------------------------------------------------------------------------------

TEST_F(MapTest, TwoClickDistance) {
    EXPECT_TRUE(w._MapDistanceBetweenClickedPts_Action());
    EXPECT_TRUE(f.messageWindow.shown);
    EXPECT_EQ(f.messageWindow.label,
              QStringLiteral("Click two points on the map to get the distance."));
    EXPECT_EQ(f.messageWindow.left, f.frame.x + f.frame.w - 286 - 10);
    EXPECT_EQ(f.messageWindow.top, f.frame.y + 10);
    EXPECT_TRUE(w.gettingDist2Points);
    EXPECT_FALSE(map.scrollEnabled);

    click(100, 100);
    EXPECT_TRUE(f.messageBox.shown.empty());
    EXPECT_TRUE(map.scrollEnabled) << "the release lets the map be dragged again";
    // The running distance leads the read-out, which widens to the left.
    w.Map_MouseMove(300, 200);
    const double running = geodesic(at(100, 100), at(300, 200));
    EXPECT_TRUE(f.LabelLatLon.value.startsWith(w.unitFmt.stringFromDistance(running) +
                                               QStringLiteral(";  ")));
    EXPECT_EQ(f.LabelLatLon.w, 275);
    EXPECT_EQ(f.LabelLatLon.x, map.mapLeft + map.mapWidth - 275);

    click(300, 200);
    ASSERT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_EQ(f.messageBox.shown[0],
              QStringLiteral("Distance = ") + w.unitFmt.stringFromDistance(running));
    EXPECT_FALSE(w.gettingDist2Points);
    EXPECT_FALSE(f.messageWindow.shown);
    w.Map_MouseMove(10, 10);
    EXPECT_EQ(f.LabelLatLon.w, 200);
}

TEST_F(MapTest, UnitsChangeTheTextOfLaterDistances) {
    w.unitFmt.Units = 1;
    w._MapDistanceBetweenClickedPts_Action();
    click(0, 0);
    w.Map_MouseMove(0, 100); // one degree of latitude at 49.5 N: 111.2 km, whole from 100 km
    EXPECT_TRUE(f.LabelLatLon.value.startsWith(QStringLiteral("111 km;  ")))
        << f.LabelLatLon.value.toStdString();
    w.menuItemChosen(QStringLiteral("FormatImperialUnits"));
    w.Map_MouseMove(0, 100);
    EXPECT_TRUE(f.LabelLatLon.value.startsWith(QStringLiteral("69.1 mi;  ")))
        << f.LabelLatLon.value.toStdString();
}

TEST_F(MapTest, CancelEndsAMeasurementWithNothingKept) {
    w._MapDistanceBetweenClickedPts_Action();
    click(100, 100);
    MessageWindow message;
    message.Event_Open({{3, true, nullptr}, {0, false, nullptr}, {0, true, &w}});
    ASSERT_EQ(message.w, &w);
    message.PushButton1_Action(f.messageWindow);
    EXPECT_FALSE(w.gettingDist2Points);
    EXPECT_FALSE(w.gettingDistFromPt);
    EXPECT_TRUE(w.mpt.empty());
    EXPECT_FALSE(f.messageWindow.shown);
    click(300, 300);
    EXPECT_TRUE(f.messageBox.shown.empty()) << "a new measurement starts from nothing";
}

TEST(FrontWindow, FirstVisibleDocumentWindowThatIsAMainWindow) {
    FakeWindow a, b;
    using DocWindowAndMenu::getFrontWindow;
    EXPECT_EQ(getFrontWindow({}), nullptr);
    EXPECT_EQ(getFrontWindow({{1, true, nullptr}, {0, true, &b.window()}}), &b.window());
    EXPECT_EQ(getFrontWindow({{0, false, &a.window()}, {0, true, &b.window()}}), &b.window());
    EXPECT_EQ(getFrontWindow({{0, true, nullptr}, {3, true, &a.window()}}), nullptr);
}

TEST_F(MapTest, DistanceFromTheSelectedLocation) {
    EXPECT_FALSE(w._MapDistancefromCurrentPt_Action()) << "no row in the form";
    EXPECT_FALSE(f.messageWindow.shown);
    EXPECT_FALSE(w.gettingDistFromPt);

    record(QStringLiteral("45 9"));
    w.BatchListbox_CellClick(0, 1, 0, 0);
    f.TabPanel1.setSelectedPanelIndex(1);
    EXPECT_TRUE(w._MapDistancefromCurrentPt_Action());
    EXPECT_EQ(f.TabPanel1.page, 0);
    EXPECT_EQ(f.messageWindow.label,
              QStringLiteral("Click the point on the map to which to measure the distance."));
    EXPECT_FALSE(map.scrollEnabled);
    ASSERT_EQ(w.mpt.size(), 1u);

    w.Map_MouseDown(200, 200, false);
    ASSERT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_EQ(f.messageBox.shown[0],
              QStringLiteral("Distance = ") +
                  w.unitFmt.stringFromDistance(geodesic({45, 9}, at(200, 200))));
    EXPECT_FALSE(w.gettingDistFromPt);
}

struct PathRow {
    const char* name;
    std::vector<int> selected;
    const char* caption;
};

void PrintTo(const PathRow& row, std::ostream* os) {
    *os << row.name;
}

const PathRow pathRows[] = {
    {"TwoRows", {0, 2}, "Distance = "},
    {"ThreeRowsInListOrder", {2, 0, 1}, "Distance along selected path = "},
    {"SamePlaceTwice", {1, 3}, "Distance = "},
};

class SelectedPath : public MapTest, public testing::WithParamInterface<PathRow> {};

TEST_P(SelectedPath, MeasuredAtOnceInTheOrderOfTheList) {
    const MapCoordinate places[] = {{45, 9}, {46, 10}, {40, -3}, {46, 10}};
    for (const MapCoordinate& p : places)
        record(QStringLiteral("%1 %2").arg(p.latitude).arg(p.longitude));
    f.TabPanel1.setSelectedPanelIndex(1);
    f.BatchListbox.setSelectedRows(GetParam().selected);
    std::vector<int> inOrder = GetParam().selected;
    std::sort(inOrder.begin(), inOrder.end());
    double total = 0;
    for (std::size_t k = 0; k + 1 < inOrder.size(); ++k)
        total += geodesic(places[inOrder[k]], places[inOrder[k + 1]]);

    w._MapDistanceBetweenClickedPts_Action();

    ASSERT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_EQ(f.messageBox.shown[0],
              QString::fromUtf8(GetParam().caption) + w.unitFmt.stringFromDistance(total));
    EXPECT_FALSE(w.gettingDist2Points);
    EXPECT_FALSE(f.messageWindow.shown);
}

INSTANTIATE_TEST_SUITE_P(Map, SelectedPath, testing::ValuesIn(pathRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(MapTest, OneSelectedRowOnTheTablePageStartsTheClickMode) {
    record(QStringLiteral("45 9"));
    f.TabPanel1.setSelectedPanelIndex(1);
    f.BatchListbox.setSelectedRows({0});
    w._MapDistanceBetweenClickedPts_Action();
    EXPECT_TRUE(w.gettingDist2Points);
    EXPECT_EQ(f.TabPanel1.page, 1) << "the page is not changed";
}

// --- The contextual menu -------------------------------------------------------------------------

TEST_F(MapTest, ContextualMenuNewLocationAtTheClick) {
    PopupMenuItem base;
    EXPECT_TRUE(w.Map_ConstructContextualMenu(base, 120, 80));
    ASSERT_EQ(base.children.size(), 2u);
    EXPECT_EQ(base.children[0].Text, QStringLiteral("New Location at Click"));
    EXPECT_EQ(base.children[1].Text, QStringLiteral("Distance to Current Location"));
    map.scrollEnabled = false;

    PopupMenuItem chosen{QStringLiteral("new location at click"), false, {}}; // any case
    EXPECT_FALSE(w.Map_ContextualMenuAction(chosen));

    const MapCoordinate click = at(120, 80);
    ASSERT_TRUE(w.theLocation);
    EXPECT_DOUBLE_EQ(w.theLocation->lat, click.latitude);
    EXPECT_EQ(w.theLocation->label, w.coordinateText(click.latitude, click.longitude));
    EXPECT_EQ(map.centre.latitude, click.latitude) << "the form centres the map on it";
    EXPECT_FALSE(w.tappingMap);
    EXPECT_FALSE(w.gettingAddressLoc);
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Record Entry"));
    EXPECT_TRUE(map.scrollEnabled);

    // With the click mode armed, the form leaves the map where it is; the mode ends all the same.
    f.messageDialog.answer = Answer::Alternate; // drop the unrecorded one made above
    w.tappingMap = true;
    w.Map_ConstructContextualMenu(base, 200, 200);
    w.Map_ContextualMenuAction(base.children[0]);
    EXPECT_DOUBLE_EQ(w.theLocation->lat, at(200, 200).latitude);
    EXPECT_EQ(map.centre.latitude, click.latitude);
    EXPECT_FALSE(w.tappingMap);
}

TEST_F(MapTest, ContextualMenuDistanceToTheLocationOnShow) {
    record(QStringLiteral("45 9"));
    PopupMenuItem base;
    w.Map_ConstructContextualMenu(base, 300, 100);
    w.Map_ContextualMenuAction(base.children[1]);
    ASSERT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_EQ(f.messageBox.shown[0],
              QStringLiteral("Distance to current location = ") +
                  w.unitFmt.stringFromDistance(geodesic(at(300, 100), {45, 9})));

    // After the form is cleared there is no location to measure to.
    w._FileNewLocation_Action();
    w.Map_ContextualMenuAction(base.children[1]);
    EXPECT_EQ(f.messageBox.shown.size(), 1);
}

// --- Removal -------------------------------------------------------------------------------------

class Removal : public MapTest {
protected:
    void SetUp() override {
        MapTest::SetUp();
        for (const char* typed : {"10 10", "20 20", "30 30", "40 40"})
            record(QString::fromLatin1(typed), QString::fromLatin1(typed));
    }
    QStringList labels() const {
        QStringList result;
        for (const VertexRef& v : w.locations)
            result << v->label;
        return result;
    }
    // Pins(i) belongs to locations(i), and the map holds exactly Pins.
    void expectPinsInStep() {
        ASSERT_EQ(w.Pins.size(), w.locations.size());
        for (std::size_t i = 0; i < w.Pins.size(); ++i) {
            EXPECT_EQ(w.Pins[i]->coordinate.latitude, w.locations[i]->lat);
            EXPECT_TRUE(map.hasPin(w.Pins[i]));
        }
    }
};

TEST_F(Removal, AllAfterTheQuestion) {
    f.messageDialog.answer = Answer::Cancel;
    EXPECT_TRUE(w._MapRemoveLocations_Action());
    EXPECT_EQ(w.locations.size(), 4u);
    ASSERT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(f.messageDialog.asked[0].message,
              QStringLiteral("This will remove all of the locations you have entered in the "
                             "program!"));
    EXPECT_EQ(f.messageDialog.asked[0].actionCaption, QStringLiteral("Remove"));

    f.messageDialog.answer = Answer::Action;
    w._MapRemoveLocations_Action();
    EXPECT_TRUE(w.locations.empty());
    EXPECT_TRUE(w.Pins.empty());
    EXPECT_TRUE(map.pins.empty());
    EXPECT_EQ(f.BatchListbox.lastRowIndex(), -1);
    EXPECT_FALSE(w.theLocation);
}

TEST_F(Removal, OneFromTheMapPageKeepsThePinsInStep) {
    w.Map_didSelectAnnotationView(w.Pins[1]);
    const MapPinRef keptPin = w.Pins[2];
    EXPECT_TRUE(w._EditRemoveLocations_Action());
    EXPECT_EQ(labels(), (QStringList{"10 10", "30 30", "40 40"}));
    EXPECT_EQ(w.Pins[1], keptPin) << "no rebuild";
    expectPinsInStep();
    EXPECT_EQ(f.BatchListbox.lastRowIndex(), 2);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_FALSE(w.suppressUpdate);
}

TEST_F(Removal, SelectedRowsFromTheTablePage) {
    f.TabPanel1.setSelectedPanelIndex(1);
    f.BatchListbox.setSelectedRows({0, 2});
    w._EditRemoveLocations_Action();
    EXPECT_EQ(labels(), (QStringList{"20 20", "40 40"}));
    expectPinsInStep();
    EXPECT_EQ(map.pins.size(), 2u);
    EXPECT_EQ(f.BatchListbox.cellValueAt(1, 1), QStringLiteral("40 40"));
}

TEST_F(Removal, NothingSelectedStillClearsTheForm) {
    f.TabPanel1.setSelectedPanelIndex(1); // selects the row in the form
    f.BatchListbox.setSelectedRows({});
    w._EditRemoveLocations_Action();
    EXPECT_EQ(w.locations.size(), 4u);
    expectPinsInStep();
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Click Map"));
}

// --- The user's position -------------------------------------------------------------------------

TEST_F(MapTest, UserPositionPolledUntilTheFirstFix) {
    EXPECT_TRUE(w._MapShowUserLocation_Action());
    EXPECT_TRUE(map.showsUserLocation);
    EXPECT_EQ(f.TimerUserLocation.mode, 2);

    w.TimerUserLocation_Action(); // no fix yet
    EXPECT_EQ(f.TimerUserLocation.mode, 2);
    map.userFix = MapCoordinate{0, 12}; // a 0 counts as no position
    w.TimerUserLocation_Action();
    EXPECT_EQ(f.TimerUserLocation.mode, 2);
    EXPECT_FALSE(w.theLocation && w.theLocation->label == QStringLiteral("Current Location"));

    record(QStringLiteral("1 2"));
    map.userFix = MapCoordinate{48.2, 16.37};
    map.zoomLevel = 3;
    w.TimerUserLocation_Action();
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Current Location"));
    EXPECT_DOUBLE_EQ(w.theLocation->lat, 48.2);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_EQ(map.zoomLevel, 8.0);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("48.20, 16.37"));
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Record Entry"));
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_EQ(f.TimerUserLocation.mode, 0) << "one fix, one location";
    EXPECT_TRUE(f.MainMenuBar[QStringLiteral("MapShowUserLocation")].marked);

    w._MapShowUserLocation_Action();
    EXPECT_FALSE(map.showsUserLocation);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Current Location")) << "the form stays";
}

TEST_F(MapTest, UncheckedTrackingTakesNoPosition) {
    map.userFix = MapCoordinate{48.2, 16.37};
    w.TimerUserLocation_Action();
    EXPECT_FALSE(w.theLocation && w.theLocation->label == QStringLiteral("Current Location"));
}

} // namespace
