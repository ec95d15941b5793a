// Geoquill: coordinates in decimal degrees, degrees-minutes-seconds and UTM.

#include "App.h"
#include "MainWindow.h"

int main(int argc, char** argv) {
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    App app(argc, argv);
    app.Event_Open();
    MainWindow window;
    window.show();
    return app.exec();
}
