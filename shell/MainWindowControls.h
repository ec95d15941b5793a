#pragma once
// The main window's controls as one table: kind, page, place at the window's design size of
// 800 by 650 (window coordinates, also for controls on a tab page or over the map), the edges
// each follows when the window is resized, caption, and place in the tab order of its page.
// MainWindow builds the window from it; the geometry test resizes the window against it.

#include "LockedLayout.h"

#include <QRect>

enum class ControlKind {
    TabPanel,         // captions: the tab titles, parted by a carriage return
    TextField,        // caption: the hint shown while the field is empty
    Label,            // caption: its text
    RadioButton,      // caption: its text
    Listbox,          // the table of recorded locations
    PushButton,       // caption: its text
    Map,              // the map
    Rectangle,        // the read-out's half-transparent panel
    SegmentedControl, // captions: the segments, parted by tabs
    BevelButton,      // caption: its text; opens its menu
};

struct ControlRow {
    const char* name;
    ControlKind kind;
    int page; // of TabPanel1; -1 for the window itself
    QRect place;
    int locks;
    const char* caption;
    int tab; // order of the keyboard focus within the page; -1 when never focused
};

namespace MainWindowControls {

constexpr int L = LockedLayout::Left, T = LockedLayout::Top, R = LockedLayout::Right,
              B = LockedLayout::Bottom;
using K = ControlKind;

// In the order of creation: the tab panel first, since the others lie on it; the read-out and
// the map types after the map, over which they lie.
inline const ControlRow windowControls[] = {
    {"TabPanel1",
     K::TabPanel,
     -1,
     {20, 10, 760, 620},
     L | T | R | B,
     "Current Location\rAll Locations",
     14},
    {"TextFieldUTM", K::TextField, 0, {156, 156, 524, 22}, L | T | R, "", 6},
    {"Label5", K::Label, 0, {32, 156, 112, 20}, L | T, "UTM:", -1},
    {"RadioButton2", K::RadioButton, 0, {249, 54, 85, 20}, L | T, "Lon, Lat", 1},
    {"RadioButton1", K::RadioButton, 0, {156, 54, 81, 20}, L | T, "Lat, Lon", 2},
    {"Label4", K::Label, 0, {32, 54, 58, 20}, L | T, "Entry is", -1},
    {"TextFieldDMS", K::TextField, 0, {156, 122, 524, 22}, L | T | R, "", 5},
    {"Label1", K::Label, 0, {32, 122, 112, 20}, L | T, "Degr.-Min.-Sec.:", -1},
    {"BatchListbox", K::Listbox, 1, {40, 48, 720, 562}, L | T | R | B, "", 0},
    // Its caption and tooltip are those of the button's first state.
    {"SearchButton", K::PushButton, 0, {632, 191, 137, 20}, T | R, "", 11},
    {"addressTextField", K::TextField, 0, {156, 189, 464, 22}, L | T | R, "Type address", 7},
    {"Map", K::Map, 0, {32, 226, 737, 398}, L | T | R | B, "", 12},
    {"Rectangle1", K::Rectangle, 0, {592, 226, 173, 20}, T | R, "", -1},
    {"LabelLatLon", K::Label, 0, {519, 226, 250, 20}, T | R, "", -1},
    // Over the map, it comes after the map in the tab order.
    {"SegmentedControl1",
     K::SegmentedControl,
     0,
     {40, 593, 219, 24},
     L | B,
     "Standard\tSatellite\tHybrid",
     12},
    {"TextFieldLabel", K::TextField, 0, {346, 54, 423, 22}, L | T | R, "Label", 3},
    {"TextFieldDecDegrees", K::TextField, 0, {156, 88, 524, 22}, L | T | R, "", 4},
    {"Label3", K::Label, 0, {32, 88, 112, 20}, L | T, "Decimal Degrees:", -1},
    {"Label6", K::Label, 0, {32, 191, 112, 20}, L | T, "Address:", -1},
    // Captioned and given their menus when they open.
    {"BevelButtonFormatDD", K::BevelButton, 0, {692, 88, 78, 22}, T | R, "", 15},
    {"BevelButtonFormatDMS", K::BevelButton, 0, {692, 122, 78, 22}, T | R, "", 16},
    {"BevelButtonFormatUTM", K::BevelButton, 0, {692, 156, 78, 22}, T | R, "", 17},
};

// Which label names which field, for a screen reader and for Alt with the label's key.
struct LabelFor {
    const char* label;
    const char* field;
};
inline const LabelFor fieldLabels[] = {
    {"Label3", "TextFieldDecDegrees"},
    {"Label1", "TextFieldDMS"},
    {"Label5", "TextFieldUTM"},
    {"Label6", "addressTextField"},
};

struct ControlTip {
    const char* name;
    const char* tip;
};

inline const char latLonTip[] =
    "Type a latitude, longitude pair separated by a comma, space, or tab. When you are finished, "
    "press return or exit this field by selecting another field. The app will automatically "
    "format the other forms of the location and fill the other text boxes.";

inline const ControlTip controlTips[] = {
    {"TextFieldUTM",
     "Type a UTM Eastings, Northings pair separated by a comma, space, or tab. Eastings are "
     "always listed before Northings, regardless of which radio button, above, is selected. "
     "When you are finished, press return or exit this field by selecting another field. The "
     "app will automatically format the other forms of the location and fill the other text "
     "boxes."},
    {"TextFieldDMS", latLonTip},
    {"TextFieldDecDegrees", latLonTip},
    {"TextFieldLabel",
     "Type an optional label for the located point. This label will be shown in the map "
     "popups, listed in the batch table, and saved with the location data"},
    {"addressTextField",
     "Type an address in this text field and then click the Find Address button to the right "
     "to get the location of that address"},
    {"RadioButton1", "List the latitude value before the longitude value"},
    {"RadioButton2", "List the longitude value before the latitude value"},
};

} // namespace MainWindowControls
