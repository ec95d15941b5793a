#include "MessageWindow.h"

#include "Window1.h"

Window1* DocWindowAndMenu::getFrontWindow(const std::vector<OpenWindow>& frontToBack) {
    for (const OpenWindow& open : frontToBack)
        if (open.frameType == 0 && open.window1 && open.visible)
            return open.window1;
    return nullptr;
}

void MessageWindow::Event_Open(const std::vector<DocWindowAndMenu::OpenWindow>& frontToBack) {
    w = DocWindowAndMenu::getFrontWindow(frontToBack);
}

void MessageWindow::PushButton1_Action(MessageWindowView& window) {
    if (w) {
        w->gettingDist2Points = false;
        w->gettingDistFromPt = false;
        w->mpt.clear();
    }
    window.close();
}
