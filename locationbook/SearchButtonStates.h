#pragma once
// The three states of the button beside the address field: its caption says what a press will
// do next, and its tooltip explains it.

#include <QString>

struct SearchButtonState {
    QString caption;
    QString tooltip;
};

namespace SearchButtonStates {

inline SearchButtonState clickMap() {
    return {QStringLiteral("Click Map"),
            QStringLiteral("Click this button and then click in the map to get the location "
                           "data")};
}

inline SearchButtonState findAddress() {
    return {QStringLiteral("Find Address"),
            QStringLiteral("Find the location of an address typed into the text field to the "
                           "left")};
}

inline SearchButtonState recordEntry() {
    return {QStringLiteral("Record Entry"),
            QStringLiteral("Click this button to record the current location for later use "
                           "(including saving a list of locations as a text file")};
}

} // namespace SearchButtonStates
