#pragma once
// The main window's widgets: the two pages "Current Location" and "All Locations".

#include <QMainWindow>

class QTabWidget;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);

    QTabWidget* tabPanel() const { return TabPanel1; }

private:
    QTabWidget* TabPanel1 = nullptr;
};
