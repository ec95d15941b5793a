#include "App.h"

#include "coordinates/LatLon_UTM.h"

App::App(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Geoquill"));
    setApplicationVersion(QString::fromLatin1(versionString));
    setOrganizationName(QStringLiteral("Geoquill"));
    setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void App::Event_Open() {
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
}

bool App::_HelpAboutGeoquill_Action() {
    // The About window comes with the small windows; until then the command is not carried out.
    return false;
}
