#pragma once
// The window's places were drawn for a smaller system font than most Linux desktops use: a
// caption that would be cut is set in a smaller font instead, down to a legible minimum.

#include <QFont>
#include <QString>

// The font, from its own size down in half points to 7 points, in which the caption fits in
// room pixels.
QFont captionFontToFit(QFont font, const QString& caption, int room);
