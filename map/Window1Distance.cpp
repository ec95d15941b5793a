// Distances: between two clicks, from the selected location to a click, and along the rows
// selected in the table. Every distance is the WGS84 geodesic between two coordinates.

#include "MapView.h"
#include "locationbook/Window1.h"

#include <GeographicLib/Geodesic.hpp>

double Window1::metersBetween(MapCoordinate a, MapCoordinate b) {
    double metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(a.latitude, a.longitude, b.latitude, b.longitude,
                                             metres);
    return metres;
}

void Window1::showDistance(const QString& caption, MapCoordinate from, MapCoordinate to) {
    c.messageBox->show(caption + unitFmt.stringFromDistance(metersBetween(from, to)));
}

void Window1::showInstruction(const QString& text) {
    MessageWindowView* message = c.messageWindow;
    if (!message)
        return;
    // Inside the top right corner of this window, 10 pixels in from each edge.
    if (c.frame)
        message->move(c.frame->left() + c.frame->width() - message->width() - 10,
                      c.frame->top() + 10);
    message->setText(text);
    message->show();
}

bool Window1::_MapDistanceBetweenClickedPts_Action() {
    mpt.clear();
    const int selectedRows = c.BatchListbox->selectedRowCount();
    if (c.TabPanel1->selectedPanelIndex() == 1 && selectedRows > 1) {
        // The path runs in the order of the list, whatever order the rows were picked in.
        for (const VertexRef& v : locations)
            if (v->selected)
                mpt.push_back(MapCoordinate{v->lat, v->lon});
        double total = 0.0;
        for (std::size_t k = 0; k + 1 < mpt.size(); ++k)
            total += metersBetween(mpt[k], mpt[k + 1]);
        const QString caption = selectedRows == 2
                                    ? QStringLiteral("Distance = ")
                                    : QStringLiteral("Distance along selected path = ");
        c.messageBox->show(caption + unitFmt.stringFromDistance(total));
        return true;
    }
    showInstruction(QStringLiteral("Click two points on the map to get the distance."));
    gettingDist2Points = true;
    if (mapview)
        mapview->setScrollEnabled(false);
    return true;
}

bool Window1::_MapDistancefromCurrentPt_Action() {
    if (!isLocationRow(selectedLoc))
        return false;
    showInstruction(QStringLiteral("Click the point on the map to which to measure the distance."));
    if (c.TabPanel1->selectedPanelIndex() != 0)
        c.TabPanel1->setSelectedPanelIndex(0);
    gettingDistFromPt = true;
    if (mapview)
        mapview->setScrollEnabled(false);
    mpt.clear();
    const Vertex& from = *locations[static_cast<std::size_t>(selectedLoc)];
    mpt.push_back(MapCoordinate{from.lat, from.lon});
    return true;
}

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
