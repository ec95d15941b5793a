// The window's map operations: moving the map, its type, and SearchButton, whose caption says
// what a press will do next.

#include "MapView.h"
#include "locationbook/Window1.h"

void Window1::LoadMap(double lat, double lon) {
    if (!mapview)
        return;
    mapview->setCenterCoordinate(MapCoordinate{lat, lon});
    mapview->setZoomLevel(8.0);
}

void Window1::SetMapType(int type) {
    if (mapview)
        mapview->setMapType(type);
}

void Window1::makePinsFromLocations() {}

void Window1::searchAddress() {
    makeNewEntry(); // a cancelled prompt does not stop the search
    if (mapview)
        mapview->showAddress(c.addressTextField->text());
    gettingAddressLoc = true;
}

void Window1::SearchButton_Action() {
    const QString caption = c.SearchButton->caption();
    if (caption.compare(QLatin1String("Find Address"), Qt::CaseInsensitive) == 0) {
        searchAddress();
    } else if (caption.compare(QLatin1String("Record Entry"), Qt::CaseInsensitive) == 0) {
        enteringDD = false;
        enteringDMS = false;
        enteringUTM = false;
        gettingAddressLoc = false;
        recordEntry();
        c.SearchButton->setCaption(QStringLiteral("Click Map"));
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
        setSearchButton(QStringLiteral("Find Address"),
                        QStringLiteral("Find the location of an address typed into the text "
                                       "field to the left"),
                        true);
    } else {
        setSearchButton(QStringLiteral("Click Map"),
                        QStringLiteral("Click this button and then click in the map to get the "
                                       "location data"),
                        true);
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

bool Window1::_FileNewLocation_Action() {
    makeNewEntry();
    return true;
}

bool Window1::_FileNewLocationatMapClick_Action() {
    makeNewEntry();
    c.SearchButton->setDefault(true);
    c.SearchButton->setCaption(QStringLiteral("Click Map"));
    c.TextFieldLabel->setFocus();
    tappingMap = true; // the next release on the map makes the location
    return true;
}

bool Window1::_EditRemoveLocations_Action() { return false; }
// Exactly one of the two unit items is checked: choosing either changes over to the other
// system when it was already checked.
bool Window1::_FormatImperialUnits_Action() {
    MenuItemView& imperial = c.MainMenuBar->item(QStringLiteral("FormatImperialUnits"));
    imperial.setHasCheckMark(!imperial.hasCheckMark());
    c.MainMenuBar->item(QStringLiteral("FormatMetricUnits"))
        .setHasCheckMark(!imperial.hasCheckMark());
    unitFmt.Units = imperial.hasCheckMark() ? 2 : 1;
    return true;
}

bool Window1::_FormatMetricUnits_Action() {
    MenuItemView& metric = c.MainMenuBar->item(QStringLiteral("FormatMetricUnits"));
    metric.setHasCheckMark(!metric.hasCheckMark());
    c.MainMenuBar->item(QStringLiteral("FormatImperialUnits"))
        .setHasCheckMark(!metric.hasCheckMark());
    unitFmt.Units = metric.hasCheckMark() ? 1 : 2;
    return true;
}
bool Window1::_MapShowUserLocation_Action() { return false; }
bool Window1::_MapShowAllLocations_Action() { return false; }
bool Window1::_MapDistancefromCurrentPt_Action() { return false; }
bool Window1::_MapDistanceBetweenClickedPts_Action() { return false; }
bool Window1::_MapRemoveLocations_Action() { return false; }
