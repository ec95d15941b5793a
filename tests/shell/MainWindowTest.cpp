// The real window driven as a user drives it: typing into the notation fields, Return, Tab,
// the order buttons and the menu bar.

#include "shell/MainWindow.h"
#include "coordinates/LatLon_UTM.h"
#include "locationbook/Window1.h"
#include "shell/MainMenuBar.h"

#include <GeographicLib/UTMUPS.hpp>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTabWidget>
#include <QToolButton>
#include <QtTest>

class MainWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindow> window;

    void typeAndReturn(QLineEdit* field, const QString& text) {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }

private slots:
    void init() {
        window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    void cleanup() { window.reset(); }

    void opensAsDesigned() {
        QCOMPARE(window->windowTitle(), QStringLiteral("Geoquill Converter"));
        QCOMPARE(window->centralWidget()->size(), QSize(800, 650));
        QCOMPARE(window->tabPanel()->count(), 2);
        QCOMPARE(window->tabPanel()->tabText(0), QStringLiteral("Current Location"));
        QCOMPARE(window->tabPanel()->tabText(1), QStringLiteral("All Locations"));
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Click Map"));
        QVERIFY(window->radioButton1()->isChecked());
        QVERIFY(!window->radioButton2()->isChecked());
        // The map pointer (31 by 21, its hot spot in the middle) and the application's picture:
        // drawn, for the screen's pixel ratio, once.
        ResourcePictures* pictures = window->pictures();
        const qreal ratio = qApp->devicePixelRatio();
        for (const QString& name : {QStringLiteral("scopeCurs"), QStringLiteral("mapIcon")}) {
            const QPixmap picture = pictures->picture(name);
            QCOMPARE(picture.devicePixelRatio(), ratio);
            QCOMPARE(picture.size(), pictures->pictureSize(name) * ratio);
            QVERIFY2(picture.toImage().pixelColor(picture.rect().center()).alpha() > 0,
                     qPrintable(name + " is blank"));
            QCOMPARE(pictures->picture(name).cacheKey(), picture.cacheKey());
        }
        const QSize scope = pictures->pictureSize(QStringLiteral("scopeCurs"));
        QCOMPARE(scope, QSize(31, 21));
        QCOMPARE(window->controller().curs.hotSpotX, scope.width() / 2);
        QCOMPARE(window->controller().curs.hotSpotY, scope.height() / 2);
    }

    void noCaptionOnTheFirstPageIsCut() {
        QWidget* page = window->tabPanel()->widget(0);
        const auto buttons = page->findChildren<QAbstractButton*>();
        QVERIFY(buttons.size() >= 7); // three format buttons, the order buttons, the map types
        for (QAbstractButton* button : buttons) {
            if (button->text().isEmpty() || !button->isVisible())
                continue;
            int room = button->width();
            if (qobject_cast<QToolButton*>(button) && static_cast<QToolButton*>(button)->menu())
                room -= button->style()->pixelMetric(QStyle::PM_MenuButtonIndicator);
            QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) < room,
                     qPrintable(button->objectName() + ": " + button->text()));
        }
        const auto labels = page->findChildren<QLabel*>();
        for (QLabel* label : labels)
            QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width(),
                     qPrintable(label->objectName() + ": " + label->text()));
    }

    void returnInEachFieldShowsAllThreeNotations_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::newRow("dd") << "TextFieldDecDegrees"
                            << "45.5 9.25";
        QTest::newRow("dms") << "TextFieldDMS"
                             << "45° 30' 0\"N, 9° 15' 0\"E";
        // The UTM text of 45.5 N, 9.25 E as GeographicLib computes it.
        int zone = 0;
        bool north = true;
        double easting = 0, northing = 0;
        GeographicLib::UTMUPS::Forward(45.5, 9.25, zone, north, easting, northing);
        QTest::newRow("utm") << "TextFieldUTM"
                             << QStringLiteral("%1 E, %2 N %3")
                                    .arg(easting, 0, 'f', 1)
                                    .arg(northing, 0, 'f', 1)
                                    .arg(zone);
    }
    void returnInEachFieldShowsAllThreeNotations() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        typeAndReturn(window->findChild<QLineEdit*>(field), typed);
        const double lat = window->controller().theLocation->lat;
        const double lon = window->controller().theLocation->lon;
        QVERIFY(qAbs(lat - 45.5) < 1e-5);
        QVERIFY(qAbs(lon - 9.25) < 1e-5);
        if (field != QLatin1String("TextFieldUTM")) {
            QCOMPARE(window->textFieldDecDegrees()->text(), QStringLiteral("45.50, 9.25"));
            QCOMPARE(window->textFieldDMS()->text(), QStringLiteral("45° 30'N, 9° 15'E"));
        }
        QVERIFY(window->textFieldUTM()->text().endsWith(QLatin1String(" N 32")));
        // Return rewrote the field by hand, so the location waits to be recorded.
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Record Entry"));
        QVERIFY(!window->controller().theLocation->saved);
    }

    void tabOutOfDecimalDegreesReadsTheField() {
        QLineEdit* dd = window->textFieldDecDegrees();
        dd->setFocus();
        QTest::keyClicks(dd, "-33.85 151.2");
        QTest::keyClick(dd, Qt::Key_Tab);
        QVERIFY(!dd->hasFocus());
        QCOMPARE(dd->text(), QStringLiteral("-33.85, 151.20"));
        QCOMPARE(window->textFieldUTM()->text(), QStringLiteral("333471.8 E, 6253018.2 N -56"));
    }

    void orderButtonRereadsTheFieldBeingEntered() {
        QLineEdit* dd = window->textFieldDecDegrees();
        typeAndReturn(dd, "10 20");
        QCOMPARE(window->controller().theLocation->lat, 10.0);
        QTest::mouseClick(window->radioButton2(), Qt::LeftButton);
        QVERIFY(window->radioButton2()->isChecked());
        // The same text read longitude first.
        QCOMPARE(window->controller().theLocation->lon, 10.0);
        QCOMPARE(window->controller().theLocation->lat, 20.0);
    }

    void menuItemsAreNamedAndBound() {
        MainMenuBar* menu = window->mainMenuBar();
        for (const auto& [name, handler] : Window1::AddMenuHandlers()) {
            QAction* action = menu->action(name);
            QVERIFY2(action, qPrintable(name));
            QVERIFY2(menu->commandActions().contains(action), qPrintable(name));
        }
        QCOMPARE(menu->action("FormatImperialUnits")->shortcut(), QKeySequence("Ctrl+F"));
        QCOMPARE(menu->action("FormatMetricUnits")->shortcut(), QKeySequence("Ctrl+M"));
        QCOMPARE(menu->action("MapDistanceBetweenClickedPts")->shortcut(), QKeySequence("Ctrl+D"));
        QCOMPARE(menu->action("MapDistancefromCurrentPt")->shortcut(),
                 QKeySequence("Ctrl+Shift+D"));
        QVERIFY(menu->action("EditClear")->shortcut().isEmpty());
        QCOMPARE(menu->action("FileOpen")->text(), QStringLiteral("Open"));
        QCOMPARE(menu->action("FormatShowDMSSymbols")->text(),
                 QStringLiteral("Show ° ' \" Symbols"));
    }

    void shortcutsReachTheirHandlersByName() {
        MainMenuBar* menu = window->mainMenuBar();
        const bool metricAtStart = menu->action("FormatMetricUnits")->isChecked();
        QCOMPARE(menu->action("FormatImperialUnits")->isChecked(), !metricAtStart);
        QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(menu->action("FormatImperialUnits")->isChecked(), metricAtStart);
        QCOMPARE(menu->action("FormatMetricUnits")->isChecked(), !metricAtStart);
        QCOMPARE(window->controller().unitFmt.Units, metricAtStart ? 2 : 1);
        QTest::keyClick(window.get(), Qt::Key_M, Qt::ControlModifier);
        QCOMPARE(menu->action("FormatMetricUnits")->isChecked(), metricAtStart);

        // Ctrl+Shift+N after a recorded entry: the form empties and a map click is awaited.
        typeAndReturn(window->textFieldDecDegrees(), "45.5 9.25");
        QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        QCOMPARE(window->controller().locations.size(), std::size_t(1));
        QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(window->textFieldDecDegrees()->text().isEmpty());
        QVERIFY(window->textFieldUTM()->text().isEmpty());
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Click Map"));
        QVERIFY(window->controller().tappingMap);
        QVERIFY(window->textFieldLabel()->hasFocus());
    }

    void emptyFieldReturnPressesTheDefaultButton() {
        // Nothing to read: the key goes on, and Return presses "Click Map", which arms the map.
        QLineEdit* dd = window->textFieldDecDegrees();
        dd->setFocus();
        QTest::keyClick(dd, Qt::Key_Return);
        QVERIFY(window->controller().tappingMap);
        QVERIFY(window->controller().enteringDD);
    }

    void saveScreenshot() {
        typeAndReturn(window->textFieldDecDegrees(), "45.5 9.25");
        QDir().mkpath(GEOQUILL_SCREENSHOT_DIR);
        QVERIFY(window->grab().save(GEOQUILL_SCREENSHOT_DIR "/mainwindow-typed.png"));
    }
};

int main(int argc, char** argv) {
    QLocale::setDefault(QLocale::c());
    QApplication app(argc, argv);
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    MainWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MainWindowTest.moc"
