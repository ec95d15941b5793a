#include "CaptionFont.h"

#include <QFontMetrics>

QFont captionFontToFit(QFont font, const QString& caption, int room) {
    while (font.pointSizeF() > 7 && QFontMetrics(font).horizontalAdvance(caption) > room)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    return font;
}
