// The desk and the book: how the location on show gets into the list of recorded locations,
// when the user is asked before it is dropped, and how the details form shows it.

#include "Window1.h"
#include "map/MapView.h"

bool Window1::promptToRecordIfUnsaved() {
    if (!theLocation || theLocation->saved)
        return true;
    MessageDialogView::Question q;
    q.iconType = 1;
    q.message = QStringLiteral("The current location has not been recorded!");
    q.explanation = QStringLiteral("If you don't record it, your changes will be lost. ");
    q.actionCaption = QStringLiteral("Record");
    q.alternateCaption = QStringLiteral("Don't Record");
    q.alternateVisible = true;
    q.cancelVisible = true;
    switch (c.messageDialog->showModal(q)) {
    case MessageDialogView::Answer::Action:
        recordEntry();
        return true;
    case MessageDialogView::Answer::Alternate:
        return true;
    case MessageDialogView::Answer::Cancel:
        break;
    }
    tappingMap = false;
    gettingAddressLoc = false;
    return false;
}

void Window1::makeNewEntry() {
    if (!promptToRecordIfUnsaved())
        return;
    selectedLoc = -1;
    theLocation.reset();
    suppressUpdate = true;
    c.TextFieldDecDegrees->setText(QString());
    c.TextFieldDMS->setText(QString());
    c.TextFieldUTM->setText(QString());
    c.TextFieldLabel->setText(QString());
    if (!gettingAddressLoc) {
        c.addressTextField->setText(QString());
        c.TextFieldDecDegrees->setFocus();
    }
    setSearchButton(SearchButtonStates::clickMap(), true);
    suppressUpdate = false;
    if (currentPin && mapview)
        mapview->removeAnnotation(currentPin);
}

void Window1::recordEntry() {
    if (!theLocation)
        return;
    theLocation->saved = true;
    const bool editsARow =
        selectedLoc >= 0 && selectedLoc < static_cast<std::int64_t>(locations.size());
    if (editsARow) {
        locations[static_cast<std::size_t>(selectedLoc)] = cloneLocation(*theLocation);
        selectedLoc = -1;
    } else {
        // A new location, or a row index that no longer exists: appending loses nothing.
        locations.push_back(theLocation);
        selectedLoc = static_cast<std::int64_t>(locations.size()) - 1;
    }
    makePinsFromLocations();
    if (currentPin && mapview)
        mapview->removeAnnotation(currentPin);
    fillBatchTable();
    setSearchButton(SearchButtonStates::clickMap(), false);
}

void Window1::FillDetailsForm() {
    if (!theLocation)
        return;
    if (currentPin && mapview)
        mapview->removeAnnotation(currentPin);
    suppressUpdate = true;
    c.TextFieldDecDegrees->setText(formatDD(theLocation->lon, theLocation->lat));
    c.TextFieldDMS->setText(formatDMS(theLocation->lon, theLocation->lat));
    c.TextFieldUTM->setText(formatUTM(theLocation->lon, theLocation->lat));
    c.TextFieldLabel->setText(theLocation->label);
    c.addressTextField->setText(QString());
    suppressUpdate = false;
    const MapCoordinate here{theLocation->lat, theLocation->lon};
    currentPin = std::make_shared<MapPin>();
    currentPin->coordinate = here;
    currentPin->label = theLocation->label;
    if (!mapview)
        return;
    if (!gettingAddressLoc && !tappingMap)
        mapview->setCenterCoordinate(here);
    mapview->addAnnotation(currentPin);
}
