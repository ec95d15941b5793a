#pragma once
// Help > About Geoquill: the program's name, picture and version, in a small floating window
// over the main window. OK, Escape and the window's close button close it.

#include <QDialog>

class QLabel;
class QPixmap;

class AboutWindow : public QDialog {
    Q_OBJECT
public:
    AboutWindow(const QPixmap& mapIcon, QWidget* parent);

    // Writes the version line from the application's version.
    void Event_Open();
    void PushButton1_Action();

private:
    QLabel* Label3 = nullptr;
};
