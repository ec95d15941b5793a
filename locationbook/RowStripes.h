#pragma once
// The stripes behind the rows of a list, shared by the table of locations and the import
// preview: row is the row's place on screen, so the stripes alternate down the screen.

#include "ControlViews.h"

#include <cstdint>

// Fills the cell's background: light even rows 0x00F3F6FA, odd rows white; dark even rows
// 0xF0FFFEFE, odd rows the painter's own colour. Returns false: the list draws the text.
bool paintRowStripes(GraphicsView& g, std::int64_t row, bool darkMode);
