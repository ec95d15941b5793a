// The window's map operations: moving the map, its type, its region changes, and SearchButton,
// whose caption says what a press will do next.

#include "MapView.h"
#include "coordinates/generalModule.h"
#include "locationbook/Window1.h"

void Window1::Map_Open(MapView* view) {
    mapview = view;
    if (!mapview)
        return;
    mapview->setMouseCursor(curs);
    mapview->setShowsScale(true);
    mapview->setShowsCompass(true);
    mapview->setShowsZoomControls(true);
    // The read-out starts in the map's top right corner, its right edge on the map's.
    const int readoutLeft = mapview->left() + (mapview->width() - 200);
    if (c.Rectangle1) {
        c.Rectangle1->setWidth(200);
        c.Rectangle1->setLeft(readoutLeft);
    }
    if (c.LabelLatLon) {
        c.LabelLatLon->setWidth(200);
        c.LabelLatLon->setLeft(readoutLeft);
    }
}

void Window1::LoadMap(double latitude, double longitude) {
    if (!mapview)
        return;
    mapview->setCenterCoordinate(MapCoordinate{latitude, longitude});
    mapview->setZoomLevel(8.0);
}

void Window1::SetMapType(int type) {
    if (mapview)
        mapview->setMapType(type);
}

void Window1::SegmentedControl1_Action(int index) {
    SetMapType(index);
}

void Window1::Map_regionDidChangeAnimated() {
    if (!mapview)
        return;
    if (gettingAddressLoc) {
        // The map came to rest on a found address (or the user moved it while an address was
        // being looked for): its centre becomes the location on show.
        const MapCoordinate centre = mapview->centerCoordinate();
        theLocation = generalModule::vertexFromDD(centre.longitude, centre.latitude);
        theLocation->label = c.addressTextField->text();
        FillDetailsForm();
        tappingMap = false;
        // Only the button's state: the map moves in its own time, and the user may be typing
        // in a field meanwhile.
        setSearchButton(SearchButtonStates::recordEntry(), true);
    }
    mapview->setMouseCursor(curs);
}

void Window1::Map_addressNotFound() {
    // No message and no location: the text stays for the user to correct, and the button still
    // offers to find it.
    gettingAddressLoc = false;
    if (!c.addressTextField->text().isEmpty())
        setSearchButton(SearchButtonStates::findAddress(), true);
}

QString Window1::coordinateText(double latitude, double longitude) const {
    return ::coordinateText(latitude, longitude, latitudeFirst());
}

std::optional<MapCoordinate> Window1::coordinateAt(std::int64_t x, std::int64_t y) const {
    if (!mapview)
        return std::nullopt;
    return mapview->convertPointToCoordinate(double(x), double(y));
}

void Window1::armedLocationMade() {
    c.SearchButton->setFocus();
    setSearchButton(SearchButtonStates::recordEntry(), true);
}

void Window1::searchAddress() {
    makeNewEntry(); // a cancelled prompt does not stop the search
    if (mapview)
        mapview->showAddress(c.addressTextField->text());
    gettingAddressLoc = true;
}

void Window1::SearchButton_Action() {
    const QString caption = c.SearchButton->caption();
    if (caption.compare(SearchButtonStates::findAddress().caption, Qt::CaseInsensitive) == 0) {
        searchAddress();
    } else if (caption.compare(SearchButtonStates::recordEntry().caption, Qt::CaseInsensitive) ==
               0) {
        enteringDD = false;
        enteringDMS = false;
        enteringUTM = false;
        gettingAddressLoc = false;
        recordEntry();
        c.SearchButton->setCaption(SearchButtonStates::clickMap().caption);
        c.SearchButton->setDefault(false);
    } else {
        makeNewEntry();
        c.SearchButton->setDefault(true);
        c.TextFieldLabel->setFocus();
        tappingMap = true;
    }
}

void Window1::addressTextField_TextChange() {
    if (suppressUpdate)
        return;
    if (!c.addressTextField->text().isEmpty()) {
        gettingAddressLoc = true;
        setSearchButton(SearchButtonStates::findAddress(), true);
    } else {
        setSearchButton(SearchButtonStates::clickMap(), true);
    }
}

bool Window1::addressTextField_KeyDown(int key) {
    if (c.addressTextField->text().isEmpty())
        return false;
    if (key != 3 && key != 13)
        return false;
    searchAddress();
    return true;
}
