// Commands that work on the location book from the map's side: the contextual menu, new
// locations, showing every pin, removing locations, and the user's own position.

#include "MapView.h"
#include "coordinates/generalModule.h"
#include "locationbook/Window1.h"

#include <algorithm>

namespace {

const QString newLocationAtClick = QStringLiteral("New Location at Click");
const QString distanceToCurrent = QStringLiteral("Distance to Current Location");

bool sameText(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

bool Window1::Map_ConstructContextualMenu(PopupMenuItem& base, std::int64_t x, std::int64_t y) {
    xDown = x;
    yDown = y;
    base.addChild(newLocationAtClick);
    base.addChild(distanceToCurrent);
    return true;
}

bool Window1::Map_ContextualMenuAction(const PopupMenuItem& item) {
    // The menu acts where the click was, not where the pointer came to rest on the menu.
    const auto here = coordinateAt(xDown, yDown);
    if (here && sameText(item.Text, newLocationAtClick)) {
        makeNewEntry();
        c.SearchButton->setDefault(true);
        lat = here->latitude;
        lon = here->longitude;
        theLocation = generalModule::vertexFromDD(lon, lat);
        theLocation->label = coordinateText(theLocation->lat, theLocation->lon);
        FillDetailsForm();
        c.TextFieldLabel->setFocus();
        gettingAddressLoc = false;
        tappingMap = false;
        armedLocationMade();
    } else if (here && sameText(item.Text, distanceToCurrent) && theLocation) {
        // Measured to the location on show, recorded or not; after the form was cleared there
        // is none, and the item then does nothing.
        showDistance(QStringLiteral("Distance to current location = "), *here,
                     MapCoordinate{theLocation->lat, theLocation->lon});
    }
    if (mapview) {
        mapview->setScrollEnabled(true);
        mapview->setMouseCursor(curs);
    }
    return false;
}

bool Window1::_FileNewLocation_Action() {
    makeNewEntry();
    return true;
}

bool Window1::_FileNewLocationatMapClick_Action() {
    makeNewEntry();
    c.SearchButton->setDefault(true);
    c.SearchButton->setCaption(SearchButtonStates::clickMap().caption);
    c.TextFieldLabel->setFocus();
    tappingMap = true; // the next release on the map makes the location
    return true;
}

bool Window1::_MapShowAllLocations_Action() {
    if (mapview)
        mapview->showAnnotations(Pins, true);
    return true;
}

bool Window1::_MapRemoveLocations_Action() {
    MessageDialogView::Question q;
    q.iconType = 1;
    q.message = QStringLiteral("This will remove all of the locations you have entered in the "
                               "program!");
    q.explanation = QStringLiteral("This action cannot be undone!");
    q.actionCaption = QStringLiteral("Remove");
    q.cancelVisible = true;
    if (c.messageDialog->showModal(q) != MessageDialogView::Answer::Action)
        return true;
    locations.clear();
    fillBatchTable();
    if (mapview)
        mapview->removeAnnotations(Pins);
    Pins.clear();
    makeNewEntry();
    return true;
}

bool Window1::_EditRemoveLocations_Action() {
    suppressUpdate = true;
    const bool oneOnTheMapPage = c.TabPanel1->selectedPanelIndex() == 0 && selectedLoc >= 0;
    if (oneOnTheMapPage && isLocationRow(selectedLoc)) {
        const auto i = static_cast<std::size_t>(selectedLoc);
        locations.erase(locations.begin() + std::ptrdiff_t(i));
        // The pin at the same place goes too, so the two lists stay parallel without a rebuild.
        if (i < Pins.size()) {
            if (mapview)
                mapview->removeAnnotation(Pins[i]);
            Pins.erase(Pins.begin() + std::ptrdiff_t(i));
        }
    } else if (!oneOnTheMapPage) {
        if (mapview)
            mapview->removeAnnotations(Pins);
        locations.erase(std::remove_if(locations.begin(), locations.end(),
                                       [](const VertexRef& v) { return v->selected; }),
                        locations.end());
        makePinsFromLocations();
    }
    fillBatchTable();
    suppressUpdate = false;
    makeNewEntry();
    return true;
}

bool Window1::_MapShowUserLocation_Action() {
    MenuItemView& item = c.MainMenuBar->item(QStringLiteral("MapShowUserLocation"));
    item.setHasCheckMark(!item.hasCheckMark());
    if (mapview)
        mapview->setShowsUserLocation(item.hasCheckMark());
    c.TimerUserLocation->setRunMode(item.hasCheckMark() ? 2 : 0);
    return true;
}

void Window1::TimerUserLocation_Action() {
    // No position yet reads as 0, 0: a value of exactly 0 is never taken.
    const std::optional<MapCoordinate> fix =
        mapview ? mapview->userLocation() : std::optional<MapCoordinate>();
    lat = fix ? fix->latitude : 0.0;
    lon = fix ? fix->longitude : 0.0;
    const bool tracking = c.MainMenuBar->item(QStringLiteral("MapShowUserLocation")).hasCheckMark();
    if (!tracking || lat == 0 || lon == 0)
        return;
    if (lat != missingCoordinate && lon != missingCoordinate) {
        selectedLoc = -1;
        theLocation = generalModule::vertexFromDD(lon, lat);
        theLocation->label = QStringLiteral("Current Location");
        FillDetailsForm();
        if (showMap)
            LoadMap(theLocation->lat, theLocation->lon);
    }
    // Ordinary text changes: the location on show counts as not recorded. The form may already
    // hold these very texts, which raises no change, so the fields' change rule is applied here.
    c.TextFieldDecDegrees->setText(formatDD(lon, lat));
    c.TextFieldDMS->setText(formatDMS(lon, lat));
    c.TextFieldUTM->setText(formatUTM(lon, lat));
    notationTextChange();
    c.TimerUserLocation->setRunMode(0);
    if (!fix) {
        c.MainMenuBar->item(QStringLiteral("MapShowUserLocation")).setHasCheckMark(false);
        c.TimerUserLocation->setRunMode(0);
    }
}
