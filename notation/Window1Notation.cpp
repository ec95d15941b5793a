// The window's notation operations and the event logic of the entry fields: when typed text is
// read, when the fields are rewritten, and how SearchButton becomes the record button.

#include "NotationFormat.h"
#include "NotationParse.h"
#include "coordinates/AngleText.h"
#include "coordinates/generalModule.h"
#include "locationbook/Window1.h"

namespace {

constexpr int enterKey = 3;
constexpr int returnKey = 13;

} // namespace

QString Window1::formatDD(double longitude, double latitude) const {
    return ::formatDD(longitude, latitude, *this, latitudeFirst(), numberLocale);
}

QString Window1::formatDMS(double longitude, double latitude) const {
    return ::formatDMS(longitude, latitude, *this, latitudeFirst(), numberLocale);
}

QString Window1::formatUTM(double longitude, double latitude) const {
    // Before any location is entered there is no position to project; like the other two
    // notations with both values missing, the field shows the separator alone.
    if (longitude <= missingCoordinate || latitude <= missingCoordinate)
        return UTMseparator;
    return ::formatUTM(longitude, latitude, *this, numberLocale);
}

QString Window1::DMSfromAngle(double angle) const {
    return ::DMSfromAngle(angle, numberLocale);
}

void Window1::showParsedLocation() {
    if (lat == missingCoordinate || lon == missingCoordinate)
        return;
    theLocation = generalModule::vertexFromDD(lon, lat);
    theLocation->label = c.TextFieldLabel->text();
    FillDetailsForm();
    LoadMap(theLocation->lat, theLocation->lon);
}

// Each parser: the window's lat and lon take the reading (-9999 where no value was placed), and
// a complete reading becomes the location on show. A text that can't be read changes nothing.
void Window1::parseDD() {
    const ParsedPosition p =
        parseDDText(c.TextFieldDecDegrees->text(), latitudeFirst(), numberLocale);
    lon = p.lon;
    lat = p.lat;
    if (p.searchFailed)
        c.messageBox->show(p.errorText);
    showParsedLocation();
}

void Window1::parseDMS() {
    const ParsedPosition p = parseDMSText(c.TextFieldDMS->text(), latitudeFirst(), numberLocale);
    lon = p.lon;
    lat = p.lat;
    if (p.searchFailed)
        c.messageBox->show(p.errorText);
    showParsedLocation();
}

void Window1::parseUTM() {
    // The window's lat and lon are "not found" while the inverse projection may be showing its
    // messages.
    lon = missingCoordinate;
    lat = missingCoordinate;
    const ParsedPosition p = parseUTMText(c.TextFieldUTM->text(), numberLocale, *c.messageBox);
    lon = p.lon;
    lat = p.lat;
    if (p.searchFailed)
        c.messageBox->show(p.errorText);
    showParsedLocation();
}

void Window1::setSearchButton(const SearchButtonState& state, bool isDefault) {
    c.SearchButton->setCaption(state.caption);
    c.SearchButton->setTooltip(state.tooltip);
    c.SearchButton->setDefault(isDefault);
}

void Window1::notationTextChange() {
    if (suppressUpdate)
        return;
    setSearchButton(SearchButtonStates::recordEntry(), true);
    if (theLocation)
        theLocation->saved = false;
}

void Window1::enterOnly(bool& flag) {
    enteringDD = false;
    enteringDMS = false;
    enteringUTM = false;
    flag = true;
}

bool Window1::notationKeyDown(int key, TextFieldView& field, bool& entering, bool skipIfUnchanged,
                              void (Window1::*parse)(),
                              QString (Window1::*format)(double, double) const) {
    enterOnly(entering);
    if (field.text().isEmpty())
        return false;
    if (key != enterKey && key != returnKey)
        return false;
    if (skipIfUnchanged && theText.compare(field.text(), Qt::CaseInsensitive) == 0)
        return true;
    (this->*parse)();
    if (theLocation)
        field.setText((this->*format)(theLocation->lon, theLocation->lat));
    else
        field.setText((this->*format)(lon, lat));
    return true;
}

void Window1::notationLostFocus(TextFieldView& field, bool skipIfUnchanged,
                                void (Window1::*parse)(),
                                QString (Window1::*format)(double, double) const) {
    if (skipIfUnchanged && theText.compare(field.text(), Qt::CaseInsensitive) == 0)
        return;
    suppressUpdate = true;
    if (!field.text().isEmpty())
        (this->*parse)();
    if (theLocation)
        field.setText((this->*format)(theLocation->lon, theLocation->lat));
    suppressUpdate = false;
}

// Decimal degrees parse at every Return and every focus loss; the other two fields only when
// their text differs from what it was when they got the focus.
bool Window1::TextFieldDecDegrees_KeyDown(int key) {
    return notationKeyDown(key, *c.TextFieldDecDegrees, enteringDD, false, &Window1::parseDD,
                           &Window1::formatDD);
}
void Window1::TextFieldDecDegrees_GotFocus() {
    theText = c.TextFieldDecDegrees->text();
}
void Window1::TextFieldDecDegrees_LostFocus() {
    notationLostFocus(*c.TextFieldDecDegrees, false, &Window1::parseDD, &Window1::formatDD);
}
void Window1::TextFieldDecDegrees_TextChange() {
    notationTextChange();
}
void Window1::TextFieldDecDegrees_MouseDown() {
    enterOnly(enteringDD);
}

bool Window1::TextFieldDMS_KeyDown(int key) {
    return notationKeyDown(key, *c.TextFieldDMS, enteringDMS, true, &Window1::parseDMS,
                           &Window1::formatDMS);
}
void Window1::TextFieldDMS_GotFocus() {
    theText = c.TextFieldDMS->text();
}
void Window1::TextFieldDMS_LostFocus() {
    notationLostFocus(*c.TextFieldDMS, true, &Window1::parseDMS, &Window1::formatDMS);
}
void Window1::TextFieldDMS_TextChange() {
    notationTextChange();
}
void Window1::TextFieldDMS_MouseDown() {
    enterOnly(enteringDMS);
}

bool Window1::TextFieldUTM_KeyDown(int key) {
    return notationKeyDown(key, *c.TextFieldUTM, enteringUTM, true, &Window1::parseUTM,
                           &Window1::formatUTM);
}
void Window1::TextFieldUTM_GotFocus() {
    theText = c.TextFieldUTM->text();
}
void Window1::TextFieldUTM_LostFocus() {
    notationLostFocus(*c.TextFieldUTM, true, &Window1::parseUTM, &Window1::formatUTM);
}
void Window1::TextFieldUTM_TextChange() {
    notationTextChange();
}
void Window1::TextFieldUTM_MouseDown() {
    enterOnly(enteringUTM);
}

void Window1::TextFieldLabel_TextChange() {
    if (suppressUpdate)
        return;
    if (theLocation)
        theLocation->label = c.TextFieldLabel->text();
    notationTextChange();
}

// A text being entered is read again under the new order; otherwise the location on show is
// rewritten in it, when it is a recorded row or an address find.
void Window1::orderButtonAction() {
    if (suppressUpdate)
        return;
    if (enteringDD) {
        parseDD();
        return;
    }
    if (enteringDMS) {
        parseDMS();
        return;
    }
    if (enteringUTM) {
        parseUTM();
        return;
    }
    if (!theLocation)
        return;
    if (!((selectedLoc >= 0 && !locations.empty()) || gettingAddressLoc))
        return;
    suppressUpdate = true;
    c.TextFieldDecDegrees->setText(formatDD(theLocation->lon, theLocation->lat));
    c.TextFieldDMS->setText(formatDMS(theLocation->lon, theLocation->lat));
    suppressUpdate = false;
    fillBatchTable();
}

void Window1::RadioButton1_Action() {
    orderButtonAction();
}
void Window1::RadioButton2_Action() {
    orderButtonAction();
}
