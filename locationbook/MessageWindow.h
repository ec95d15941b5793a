#pragma once
// The small floating window that asks for clicks on the map, and the lookup of the main window
// behind it. Its one button, Cancel, ends a distance measurement without measuring.

#include <vector>

class Window1;

namespace DocWindowAndMenu {

// An open window as the platform lists it, front to back.
struct OpenWindow {
    int frameType = 0; // 0 a document window; floating, dialog and others above 0
    bool visible = false;
    Window1* window1 = nullptr; // set when the window is a main window
};

// The frontmost visible document window that is a main window, or null.
Window1* getFrontWindow(const std::vector<OpenWindow>& frontToBack);

} // namespace DocWindowAndMenu

class MessageWindowView;

class MessageWindow {
public:
    Window1* w = nullptr; // the main window whose measurement this window waits for

    // Finds the main window when the window opens.
    void Event_Open(const std::vector<DocWindowAndMenu::OpenWindow>& frontToBack);
    // Cancel: no measurement, no points kept; the window closes.
    void PushButton1_Action(MessageWindowView& window);
};
