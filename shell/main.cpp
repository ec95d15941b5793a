// Geoquill: coordinates in decimal degrees, degrees-minutes-seconds and UTM.

#include "App.h"
#include "MainWindow.h"

#include <QIcon>

int main(int argc, char** argv) {
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    App app(argc, argv);
    app.Event_Open();
    MainWindow window;
    // Every window of the application, dialogs included, shows the application's picture.
    app.setWindowIcon(QIcon(window.pictures()->picture(QStringLiteral("mapIcon"))));
    window.show();
    return app.exec();
}
