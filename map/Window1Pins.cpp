// The pins: one per recorded location, rebuilt whole from the list, and a click on a pin that
// brings its location to the details form.

#include "MapView.h"
#include "locationbook/Window1.h"

void Window1::makePinsFromLocations() {
    if (mapview)
        mapview->removeAnnotations(Pins);
    Pins.clear();
    Pins.reserve(locations.size());
    const bool latFirst = latitudeFirst();
    for (const VertexRef& v : locations) {
        auto pin = std::make_shared<MapPin>();
        pin->coordinate = MapCoordinate{v->lat, v->lon};
        pin->label = v->label;
        pin->numbered = true;
        pin->latitudeFirst = latFirst;
        Pins.push_back(std::move(pin));
    }
    if (mapview)
        mapview->addAnnotations(Pins);
}

void Window1::Map_didSelectAnnotationView(const MapPinRef& annotation) {
    // Pins are told apart by identity: two locations at one place have two pins.
    std::size_t i = 0;
    while (i < Pins.size() && Pins[i] != annotation)
        ++i;
    if (i == Pins.size() || !annotation)
        return; // the current location's own pin, or the user's position
    if (!promptToRecordIfUnsaved())
        return;
    if (i >= locations.size())
        return;
    selectedLoc = static_cast<std::int64_t>(i);
    // The form edits the recorded location itself, not a copy.
    theLocation = locations[i];
    FillDetailsForm();
}

void Window1::Map_annotationViewDidChangeDragState() {}
