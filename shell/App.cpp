#include "App.h"

#include "MainWindow.h"
#include "coordinates/LatLon_UTM.h"

App::App(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Geoquill"));
    setApplicationVersion(QString::fromLatin1(versionString));
    setOrganizationName(QStringLiteral("Geoquill"));
    setDesktopFileName(QString::fromLatin1(desktopId));
    setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void App::Event_Open() {
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
}

bool App::_HelpAboutGeoquill_Action() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* main = qobject_cast<MainWindow*>(window)) {
            main->showAboutWindow();
            return true;
        }
    return false;
}
