// The table of recorded locations: its rows are rebuilt from the list and the settings.

#include "Window1.h"

void Window1::fillBatchTable() {}
