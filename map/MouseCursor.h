#pragma once
// The pointer shown over the map: a named picture of the application's resources and the
// point of it that marks the spot (pixels from the picture's top left).

#include <QString>

struct MouseCursor {
    QString pictureName;
    int hotSpotX = 0;
    int hotSpotY = 0;

    bool isSet() const { return !pictureName.isEmpty(); }
};
