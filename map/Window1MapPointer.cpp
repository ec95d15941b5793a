// The pointer over the map: where a press happened, a location made where the button is let
// go, the live read-out of the coordinate (and of the running distance), and the cursor.

#include "MapView.h"
#include "coordinates/generalModule.h"
#include "locationbook/Window1.h"

bool Window1::Map_MouseDown(std::int64_t x, std::int64_t y, bool contextualClick) {
    xDown = x;
    yDown = y;
    if (contextualClick)
        return false; // the contextual menu follows
    if (const auto here = coordinateAt(x, y))
        mpt.push_back(*here);
    if (gettingDistFromPt) {
        if (c.messageWindow)
            c.messageWindow->close();
        if (mpt.size() == 2)
            showDistance(QStringLiteral("Distance = "), mpt[0], mpt[1]);
        gettingDistFromPt = false;
    } else if (gettingDist2Points && mpt.size() == 2) {
        if (c.messageWindow)
            c.messageWindow->close();
        showDistance(QStringLiteral("Distance = "), mpt[0], mpt[1]);
        gettingDist2Points = false;
    }
    return true;
}

void Window1::Map_MouseUp(std::int64_t x, std::int64_t y) {
    const auto here = coordinateAt(x, y);
    // A release off the globe makes no location; the mode stays armed for the next one.
    if (tappingMap && here) {
        lat = here->latitude;
        lon = here->longitude;
        theLocation = generalModule::vertexFromDD(lon, lat);
        theLocation->label = coordinateText(theLocation->lat, theLocation->lon);
        FillDetailsForm();
        gettingAddressLoc = false;
        tappingMap = false;
        armedLocationMade();
    }
    if (mapview) {
        mapview->setScrollEnabled(true);
        mapview->setMouseCursor(curs);
    }
}

void Window1::Map_MouseMove(std::int64_t x, std::int64_t y) {
    if (!mapview)
        return;
    mapview->setMouseCursor(curs);
    const auto here = coordinateAt(x, y);
    if (!here)
        return; // off the globe: the read-out keeps its last text
    const int base = mapview->left() + (mapview->width() - 200);
    QString text = coordinateText(here->latitude, here->longitude);
    int left = base, width = 200;
    if ((gettingDist2Points || gettingDistFromPt) && mpt.size() == 1) {
        text =
            unitFmt.stringFromDistance(metersBetween(mpt[0], *here)) + QStringLiteral(";  ") + text;
        left = base - 75;
        width = 275;
    }
    for (PlacedControlView* control : {static_cast<PlacedControlView*>(c.Rectangle1),
                                       static_cast<PlacedControlView*>(c.LabelLatLon)}) {
        if (!control)
            continue;
        control->setWidth(width);
        control->setLeft(left);
    }
    if (c.LabelLatLon)
        c.LabelLatLon->setText(text);
}

void Window1::Map_MouseEnter() {
    if (c.LabelLatLon)
        c.LabelLatLon->setVisible(true);
    if (c.Rectangle1)
        c.Rectangle1->setVisible(true);
    if (mapview)
        mapview->setMouseCursor(curs);
}

void Window1::Map_MouseExit() {
    if (c.LabelLatLon)
        c.LabelLatLon->setVisible(false);
    if (c.Rectangle1)
        c.Rectangle1->setVisible(false);
}
