#include "RowStripes.h"

bool paintRowStripes(GraphicsView& g, std::int64_t row, bool darkMode) {
    const bool even = row % 2 == 0;
    if (darkMode) {
        if (even)
            g.setForeColor(0xF0FFFEFEu);
    } else {
        g.setForeColor(even ? 0x00F3F6FAu : 0x00FFFFFFu);
    }
    g.fillRectangle(0, 0, g.width(), g.height());
    return false;
}
