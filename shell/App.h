#pragma once
// The application object: version data, the datum every conversion uses, and the one command
// that belongs to the application rather than to the window (About).

#include <QApplication>

class App : public QApplication {
    Q_OBJECT
public:
    App(int& argc, char** argv);

    static constexpr const char* versionString = "1.0.1";
    // The name of the installed .desktop file (without ".desktop"), which desktops match a
    // window to for its menu entry and icon.
    static constexpr const char* desktopId = "io.github.geoquill.Geoquill";

    // The application's open event: makes the default datum before any window computes a
    // location.
    void Event_Open();

    // Help > About Geoquill: the About window over the main window, made anew if it was closed.
    static bool _HelpAboutGeoquill_Action();
};
