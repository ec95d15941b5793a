#include "MainWindow.h"

#include <QTabWidget>
#include <QWidget>

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(QStringLiteral("Geoquill Converter"));
    resize(800, 650);
    setMinimumSize(536, 410);

    auto* central = new QWidget(this);
    setCentralWidget(central);
    TabPanel1 = new QTabWidget(central);
    TabPanel1->setObjectName(QStringLiteral("TabPanel1"));
    TabPanel1->setGeometry(20, 10, 760, 620);
    TabPanel1->addTab(new QWidget, QStringLiteral("Current Location"));
    TabPanel1->addTab(new QWidget, QStringLiteral("All Locations"));
}
