// The map as the controller sees it, on a fake map whose pixels map linearly to coordinates: one
// sequence a user goes through for each mode (click map, address search, the distances, the
// pins, removal, the user's position), distances against GeographicLib's geodesic.

#include "locationbook/MessageWindow.h"
#include "support/FakeMapView.h"
#include "support/FakeWindow.h"
#include "support/QStringPrinting.h"

#include <GeographicLib/Geodesic.hpp>

#include <gtest/gtest.h>

#include <string>

namespace {

using Answer = MessageDialogView::Answer;
const QString recordEntry = QStringLiteral("Record Entry");

double geodesic(MapCoordinate a, MapCoordinate b) {
    double metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(a.latitude, a.longitude, b.latitude, b.longitude,
                                             metres);
    return metres;
}

class MapTest : public testing::Test {
protected:
    void SetUp() override { w.Map_Open(&map); }
    MapCoordinate at(int x, int y) const { return *map.convertPointToCoordinate(x, y); }
    void record(const char* typed, const char* label = "") {
        f.typeAndRecord(f.TextFieldDecDegrees, typed, label);
    }
    void click(int x, int y) {
        w.Map_MouseDown(x, y, false);
        w.Map_MouseUp(x, y);
    }
    QString distance(double metres) const { return w.unitFmt.stringFromDistance(metres); }
    QString distanceShown() const {
        return f.messageBox.shown.size() == 1 ? f.messageBox.shown[0] : QStringLiteral("none");
    }

    FakeWindow f;
    Window1& w = f.window();
    FakeMapView map;
};

// Click Map makes the location where the button is let go; the read-out follows the pointer in
// the order of the buttons.
TEST_F(MapTest, ClickMapAndTheReadout) {
    EXPECT_TRUE(map.showsScale && map.showsCompass && map.showsZoomControls);
    // The read-out's right edge on the map's right edge.
    EXPECT_EQ(f.Rectangle1.x + f.Rectangle1.w, map.mapLeft + map.mapWidth);
    EXPECT_EQ(f.LabelLatLon.x + f.LabelLatLon.w, map.mapLeft + map.mapWidth);
    w.SegmentedControl1_Action(2);
    EXPECT_EQ(map.mapType, 2);

    w.SearchButton_Action(); // "Click Map"
    f.type(f.TextFieldLabel, QStringLiteral("typed before the click"));
    click(10, 100000); // off the globe: nothing is made and the mode stays armed
    EXPECT_FALSE(w.theLocation);
    EXPECT_TRUE(w.Map_MouseDown(100, 100, false));
    w.Map_MouseUp(200, 300);
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("47°, 2°")) << "at the release";
    EXPECT_FALSE(w.tappingMap || w.gettingAddressLoc);
    EXPECT_EQ(f.SearchButton.captionText, recordEntry);
    EXPECT_GT(f.SearchButton.focusRequests, 0);
    EXPECT_TRUE(map.centreMoves.empty()) << "the map stays where it was clicked";
    EXPECT_TRUE(w.currentPin && map.hasPin(w.currentPin));

    w.Map_MouseEnter();
    EXPECT_TRUE(f.LabelLatLon.visible && f.Rectangle1.visible);
    w.Map_MouseMove(150, 250);
    EXPECT_EQ(f.LabelLatLon.value, QStringLiteral("47.5°, 1.5°"));
    EXPECT_EQ(f.LabelLatLon.x + f.LabelLatLon.w, map.mapLeft + map.mapWidth);
    f.clickRadioButton2();
    w.Map_MouseMove(150, 250);
    w.Map_MouseMove(150, 100000); // off the globe: the text stays
    EXPECT_EQ(f.LabelLatLon.value, QStringLiteral("1.5°, 47.5°"));
    w.Map_MouseExit();
    EXPECT_FALSE(f.LabelLatLon.visible || f.Rectangle1.visible);
    // Plain numbers: the shortest text that reads back.
    EXPECT_EQ(w.coordinateText(-33.868820000000001, 151.209296),
              QStringLiteral("151.209296°, -33.86882°"));
}

// Regression: a pan after a failed search made a location at the centre labelled with the
// address that was not found. Now nothing is said and the text waits to be corrected.
TEST_F(MapTest, AddressSearch) {
    f.type(f.addressTextField, QStringLiteral("Zzqxv Qwv"));
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Find Address"));
    w.SearchButton_Action();
    w.Map_addressNotFound();
    map.centre = MapCoordinate{47.5, 8.25};
    w.Map_regionDidChangeAnimated();
    EXPECT_FALSE(w.theLocation);
    EXPECT_TRUE(f.messageBox.shown.isEmpty());
    EXPECT_EQ(f.addressTextField.value, QStringLiteral("Zzqxv Qwv"));
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Find Address"));
    EXPECT_TRUE(f.SearchButton.defaultButton);

    f.type(f.addressTextField, QStringLiteral("Paris"));
    EXPECT_FALSE(w.addressTextField_KeyDown('a'));
    EXPECT_TRUE(w.addressTextField_KeyDown(13)); // Return searches, as the button does
    EXPECT_TRUE(w.addressTextField_KeyDown(3));
    EXPECT_EQ(map.addressesShown, (std::vector<QString>{"Zzqxv Qwv", "Paris", "Paris"}));
    w.tappingMap = true;
    map.centre = MapCoordinate{48.857, 2.351};
    w.Map_regionDidChangeAnimated();
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Paris"));
    EXPECT_FALSE(w.theLocation->saved || w.tappingMap);
    EXPECT_EQ(f.SearchButton.captionText, recordEntry);
    EXPECT_EQ(f.SearchButton.focusRequests, 0) << "the map's move leaves the keyboard alone";
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("48.857, 2.351"));
    EXPECT_TRUE(map.centreMoves.empty()) << "the form does not move the map it was read from";

    map.centre = MapCoordinate{48.9, 2.4}; // a later pan: a new location, no label any more
    w.Map_regionDidChangeAnimated();
    EXPECT_DOUBLE_EQ(w.theLocation->lat, 48.9);
    EXPECT_TRUE(w.theLocation->label.isEmpty());
    w.SearchButton_Action(); // recording ends the address mode: panning leaves the form
    const VertexRef recorded = w.theLocation;
    w.Map_regionDidChangeAnimated();
    EXPECT_EQ(w.theLocation, recorded);
    EXPECT_FALSE(w.addressTextField_KeyDown(13)) << "the form emptied the address field";
}

TEST_F(MapTest, PinsFollowTheListAndAreChosenByIdentity) {
    record("45.5 9.25");
    record("-33.5 151.25", "Sydney");
    record("-33.5 151.25", "Sydney again"); // the same place
    ASSERT_EQ(w.Pins.size(), 3u);
    EXPECT_EQ(w.Pins[0]->title(), QStringLiteral("45.5°, 9.25°"));
    EXPECT_TRUE(w.Pins[0]->subtitle().isEmpty());
    EXPECT_EQ(w.Pins[1]->title(), QStringLiteral("Sydney"));
    EXPECT_EQ(w.Pins[1]->subtitle(), QStringLiteral("-33.5°, 151.25°"));
    EXPECT_EQ(map.pins, w.Pins) << "a recorded location shows through its pin alone";
    f.clickRadioButton2(); // the order buttons don't rebuild the pins
    EXPECT_EQ(w.Pins[0]->title(), QStringLiteral("45.5°, 9.25°"));
    w._MapShowAllLocations_Action();
    EXPECT_EQ(map.annotationsShown, w.Pins);

    w.Map_didSelectAnnotationView(w.Pins[2]);
    EXPECT_EQ(w.theLocation, w.locations[2]) << "the record itself, not a copy";
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("Sydney again"));
    // The current location's own pin, and no pin at all, change nothing.
    for (const MapPinRef& pin : {w.currentPin, MapPinRef(), std::make_shared<MapPin>()})
        w.Map_didSelectAnnotationView(pin);
    EXPECT_EQ(w.selectedLoc, 2);

    // An unrecorded location is asked about first: Cancel changes nothing but the modes,
    // Record records it and then shows the pin's.
    w._FileNewLocation_Action();
    f.type(f.TextFieldDecDegrees, QStringLiteral("30 40"));
    w.TextFieldDecDegrees_KeyDown(13);
    const VertexRef unrecorded = w.theLocation;
    w.Map_didSelectAnnotationView(w.currentPin); // its own pin asks nothing
    EXPECT_TRUE(f.messageDialog.asked.empty());
    w.tappingMap = w.gettingAddressLoc = true;
    w.Map_didSelectAnnotationView(w.Pins[0]);
    EXPECT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(w.theLocation, unrecorded);
    EXPECT_FALSE(w.tappingMap || w.gettingAddressLoc);
    f.messageDialog.answer = Answer::Action;
    w.Map_didSelectAnnotationView(w.Pins[0]);
    EXPECT_EQ(w.Pins.size(), 4u);
    EXPECT_EQ(w.selectedLoc, 0);
}

// --- Distances -----------------------------------------------------------------------------------

TEST_F(MapTest, TwoClickDistance) {
    w.unitFmt.Units = 1;
    EXPECT_TRUE(w.menuItemChosen(QStringLiteral("MapDistanceBetweenClickedPts")));
    EXPECT_TRUE(f.messageWindow.shown && !map.scrollEnabled);
    EXPECT_EQ(f.messageWindow.label,
              QStringLiteral("Click two points on the map to get the distance."));
    // Inside the window's top right corner, 10 pixels in.
    EXPECT_EQ(f.messageWindow.left, f.frame.x + f.frame.w - 286 - 10);
    EXPECT_EQ(f.messageWindow.top, f.frame.y + 10);
    const int narrow = f.LabelLatLon.w;

    click(0, 0);
    EXPECT_TRUE(map.scrollEnabled) << "the release lets the map be dragged again";
    EXPECT_FALSE(w.Map_MouseDown(5, 5, true)) << "a contextual press is no point";
    // The running distance leads the read-out, which widens to the left. One degree of
    // latitude at 49.5 N: 111.2 km, written whole from 100 km.
    w.Map_MouseMove(0, 100);
    EXPECT_EQ(f.LabelLatLon.value, QStringLiteral("111 km;  49°, 0°"));
    EXPECT_GT(f.LabelLatLon.w, narrow);
    EXPECT_EQ(f.LabelLatLon.x + f.LabelLatLon.w, map.mapLeft + map.mapWidth);
    EXPECT_TRUE(f.messageBox.shown.empty());
    click(300, 200);
    EXPECT_EQ(distanceShown(), "Distance = " + distance(geodesic(at(0, 0), at(300, 200))));
    EXPECT_FALSE(w.gettingDist2Points || f.messageWindow.shown);
    w.Map_MouseMove(10, 10);
    EXPECT_EQ(f.LabelLatLon.w, narrow);

    // Cancel in the message window ends a measurement with nothing kept, in the frontmost
    // visible document window that is a main window.
    w._MapDistanceBetweenClickedPts_Action();
    click(100, 100);
    FakeWindow other;
    Window1* const o = &other.window();
    MessageWindow message;
    message.Event_Open(
        {{1, true, o}, {0, false, o}, {0, true, nullptr}, {0, true, &w}, {0, true, o}});
    ASSERT_EQ(message.w, &w);
    message.PushButton1_Action(f.messageWindow);
    EXPECT_FALSE(w.gettingDist2Points || w.gettingDistFromPt || f.messageWindow.shown);
    click(300, 300);
    EXPECT_EQ(f.messageBox.shown.size(), 1) << "a new measurement starts from nothing";
}

// Exactly one system is marked: choosing the marked one changes over to the other.
TEST_F(MapTest, UnitMarksAlwaysShowOneSystem) {
    const char* const items[] = {"FormatMetricUnits", "FormatMetricUnits", "FormatImperialUnits",
                                 "FormatImperialUnits"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(w.menuItemChosen(items[i]));
        const bool metric = i % 2 == 1;
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("FormatMetricUnits")].marked, metric) << i;
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("FormatImperialUnits")].marked, !metric) << i;
        EXPECT_EQ(distance(1500), metric ? "1.5 km" : "0.9 mi") << i;
    }
}

TEST_F(MapTest, DistanceFromTheSelectedLocation) {
    EXPECT_FALSE(w._MapDistancefromCurrentPt_Action()) << "no row in the form";
    EXPECT_FALSE(f.messageWindow.shown || w.gettingDistFromPt);
    record("45 9");
    f.TabPanel1.setSelectedPanelIndex(1);
    EXPECT_TRUE(w.menuItemChosen(QStringLiteral("MapDistancefromCurrentPt")));
    EXPECT_EQ(f.TabPanel1.page, 0);
    EXPECT_EQ(f.messageWindow.label,
              QStringLiteral("Click the point on the map to which to measure the distance."));
    EXPECT_FALSE(map.scrollEnabled);
    const QString expected = distance(geodesic({45, 9}, at(200, 200)));
    w.Map_MouseMove(200, 200);
    EXPECT_EQ(f.LabelLatLon.value.section(';', 0, 0), expected);
    w.Map_MouseDown(200, 200, false);
    EXPECT_EQ(distanceShown(), "Distance = " + expected);
    EXPECT_FALSE(w.gettingDistFromPt || f.messageWindow.shown);
}

// Rows selected on the table page are measured at once, in the order of the list.
TEST_F(MapTest, DistanceAlongTheSelectedRows) {
    const MapCoordinate p[] = {{45, 9}, {46, 10}, {40, -3}, {46, 10}};
    for (const char* typed : {"45 9", "46 10", "40 -3", "46 10"})
        record(typed);
    f.TabPanel1.setSelectedPanelIndex(1);
    const struct {
        std::vector<int> selected;
        QString shown;
    } rows[] = {
        {{0, 2}, "Distance = " + distance(geodesic(p[0], p[2]))},
        {{2, 0, 1},
         "Distance along selected path = " + distance(geodesic(p[0], p[1]) + geodesic(p[1], p[2]))},
        {{1, 3}, "Distance = " + distance(0)}};
    for (const auto& r : rows) {
        f.messageBox.shown.clear();
        f.BatchListbox.setSelectedRows(r.selected);
        w._MapDistanceBetweenClickedPts_Action();
        EXPECT_EQ(distanceShown(), r.shown);
        EXPECT_FALSE(w.gettingDist2Points || f.messageWindow.shown);
    }
    f.BatchListbox.setSelectedRows({0}); // one row: the clicks decide
    w._MapDistanceBetweenClickedPts_Action();
    EXPECT_TRUE(w.gettingDist2Points);
    EXPECT_EQ(f.TabPanel1.page, 1) << "the page is not changed";
}

TEST_F(MapTest, ContextualMenu) {
    PopupMenuItem base;
    EXPECT_TRUE(w.Map_ConstructContextualMenu(base, 120, 80));
    ASSERT_EQ(base.children.size(), 2u);
    w._FileNewLocation_Action(); // the distance needs a location on show
    w.Map_ContextualMenuAction(base.children[1]);
    EXPECT_TRUE(f.messageBox.shown.isEmpty());
    map.scrollEnabled = false;
    EXPECT_FALSE(w.Map_ContextualMenuAction(PopupMenuItem{"new location at click", false, {}}));
    const MapCoordinate click = at(120, 80);
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(w.theLocation->label, w.coordinateText(click.latitude, click.longitude));
    EXPECT_EQ(map.centre.latitude, click.latitude) << "the form centres the map on it";
    EXPECT_FALSE(w.tappingMap || w.gettingAddressLoc);
    EXPECT_TRUE(map.scrollEnabled);

    w.Map_ConstructContextualMenu(base, 300, 100);
    w.Map_ContextualMenuAction(base.children[1]);
    EXPECT_EQ(distanceShown(),
              "Distance to current location = " + distance(geodesic(at(300, 100), click)));

    // With the click mode armed, the form leaves the map where it is; the mode ends all the same.
    f.messageDialog.answer = Answer::Alternate; // drop the unrecorded one made above
    w.tappingMap = true;
    w.Map_ConstructContextualMenu(base, 200, 200);
    w.Map_ContextualMenuAction(base.children[0]);
    EXPECT_DOUBLE_EQ(w.theLocation->lat, at(200, 200).latitude);
    EXPECT_EQ(map.centre.latitude, click.latitude);
    EXPECT_FALSE(w.tappingMap);
}

// --- Removal: Pins(i) stays the pin of locations(i), the map holds exactly Pins ----------------

TEST_F(MapTest, Removal) {
    for (const char* typed : {"10 10", "20 20", "30 30", "40 40"})
        record(typed, typed);
    const auto expectLeft = [&](const QStringList& labels) {
        ASSERT_EQ(w.Pins.size(), w.locations.size());
        QStringList left;
        for (std::size_t i = 0; i < w.locations.size(); ++i) {
            left << w.locations[i]->label;
            EXPECT_EQ(w.Pins[i]->coordinate.latitude, w.locations[i]->lat);
        }
        EXPECT_EQ(left, labels);
        EXPECT_EQ(map.pins, w.Pins);
        EXPECT_EQ(f.BatchListbox.lastRowIndex(), int(w.locations.size()) - 1);
        EXPECT_FALSE(w.theLocation) << "the form is cleared";
        EXPECT_FALSE(w.suppressUpdate);
    };
    // One from the map page: its own pin goes, the others are not rebuilt.
    w.Map_didSelectAnnotationView(w.Pins[0]);
    const MapPinRef keptPin = w.Pins[1];
    EXPECT_TRUE(w.menuItemChosen(QStringLiteral("EditRemoveLocations")));
    expectLeft({"20 20", "30 30", "40 40"});
    EXPECT_EQ(w.Pins[0], keptPin);
    EXPECT_EQ(w.selectedLoc, -1);
    // The selected rows from the table; with none selected the form is still cleared.
    f.TabPanel1.setSelectedPanelIndex(1);
    f.BatchListbox.setSelectedRows({0, 2});
    w._EditRemoveLocations_Action();
    expectLeft({"30 30"});
    f.BatchListbox.setSelectedRows({});
    f.typeAndRecord(f.TextFieldDecDegrees, "1 1");
    w._EditRemoveLocations_Action();
    expectLeft({"30 30", ""});
    // All, after the question: Cancel keeps them.
    EXPECT_TRUE(w.menuItemChosen(QStringLiteral("MapRemoveLocations")));
    EXPECT_EQ(w.locations.size(), 2u);
    ASSERT_EQ(f.messageDialog.asked.size(), 1u);
    EXPECT_EQ(f.messageDialog.asked[0].message,
              "This will remove all of the locations you have entered in the program!");
    EXPECT_TRUE(f.messageDialog.asked[0].iconType == 1 && f.messageDialog.asked[0].cancelVisible);
    f.messageDialog.answer = Answer::Action;
    w._MapRemoveLocations_Action();
    expectLeft({});
}

// --- The user's position -------------------------------------------------------------------------

TEST_F(MapTest, UserPositionPolledUntilTheFirstFix) {
    const QString current = QStringLiteral("Current Location");
    map.userFix = MapCoordinate{48.2, 16.37};
    w.TimerUserLocation_Action(); // not tracking: no position taken
    EXPECT_NE(w.theLocation->label, current);

    EXPECT_TRUE(w.menuItemChosen(QStringLiteral("MapShowUserLocation")));
    EXPECT_TRUE(map.showsUserLocation);
    map.userFix.reset();
    w.TimerUserLocation_Action();       // no fix yet
    map.userFix = MapCoordinate{0, 12}; // a 0 counts as no position
    w.TimerUserLocation_Action();
    EXPECT_EQ(f.TimerUserLocation.mode, 2);
    EXPECT_NE(w.theLocation->label, current);

    record("1 2");
    map.userFix = MapCoordinate{48.2, 16.37};
    map.zoomLevel = 3;
    w.TimerUserLocation_Action();
    EXPECT_EQ(w.theLocation->label, current);
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_EQ(map.zoomLevel, 8.0);
    EXPECT_EQ(map.centre.latitude, 48.2);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("48.20, 16.37"));
    EXPECT_EQ(f.SearchButton.captionText, recordEntry);
    EXPECT_EQ(f.TimerUserLocation.mode, 0) << "one fix, one location";
    EXPECT_TRUE(f.MainMenuBar[QStringLiteral("MapShowUserLocation")].marked);

    w._MapShowUserLocation_Action();
    EXPECT_FALSE(map.showsUserLocation);
    EXPECT_EQ(w.theLocation->label, current) << "the form stays";
}

} // namespace
