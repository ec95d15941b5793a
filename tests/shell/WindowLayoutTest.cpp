// The main window as a program a user meets: every control where its locks put it at any size,
// a name a screen reader can speak for everything the keyboard reaches, the way Tab goes, the
// window's own frame, and the small windows (About, the floating message) closed by the keys
// a user tries.

#include "locationbook/Window1.h"
#include "shell/AboutWindow.h"
#include "shell/App.h"
#include "shell/MainMenuBar.h"
#include "shell/MainWindow.h"
#include "shell/MainWindowControls.h"
#include "shell/MarbleMapView.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

class WindowLayoutTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MainWindow> window;

    QWidget* control(const char* name) const {
        return window->findChild<QWidget*>(QString::fromLatin1(name));
    }
    QAction* menuItem(const char* name) const {
        return window->mainMenuBar()->action(QString::fromLatin1(name));
    }

private slots:
    void init() {
        window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    void cleanup() { window.reset(); }

    void controlsFollowTheirLocks_data() {
        QTest::addColumn<QSize>("size"); // of the window below its menu bar
        QTest::newRow("design") << QSize(800, 650);
        QTest::newRow("smallest") << QSize(536, 410);
        QTest::newRow("large") << QSize(1200, 900);
    }
    void controlsFollowTheirLocks() {
        QFETCH(QSize, size);
        QWidget* central = window->centralWidget();
        window->resize(size + QSize(0, window->height() - central->height()));
        QTRY_COMPARE(central->size(), size);
        const int dw = size.width() - 800, dh = size.height() - 650;
        using namespace MainWindowControls;
        for (const ControlRow& row : windowControls) {
            QRect expected = row.place;
            if (row.locks & R)
                (row.locks & L) ? expected.setWidth(expected.width() + dw)
                                : expected.translate(dw, 0);
            if (row.locks & B)
                (row.locks & T) ? expected.setHeight(expected.height() + dh)
                                : expected.translate(0, dh);
            QWidget* w = control(row.name);
            QVERIFY2(w, row.name);
            // The second page is laid out even while the first is showing.
            QTRY_COMPARE(QRect(w->mapTo(central, QPoint(0, 0)), w->size()), expected);
        }
    }

    // A screen reader speaks every control the keyboard can reach on both pages by a name.
    void everyFocusableControlHasAName() {
        for (int page = 0; page < 2; ++page) {
            window->tabPanel()->setCurrentIndex(page);
            const QWidget* shown = window->tabPanel()->currentWidget();
            for (QWidget* w : shown->findChildren<QWidget*>()) {
                if (w->focusPolicy() == Qt::NoFocus || !w->isVisibleTo(shown))
                    continue;
                QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(w);
                QVERIFY2(spoken && !spoken->text(QAccessible::Name).isEmpty(),
                         qPrintable(w->objectName() + QLatin1Char(' ') +
                                    QString::fromLatin1(w->metaObject()->className())));
            }
        }
        auto* dd = qobject_cast<QLineEdit*>(control("TextFieldDecDegrees"));
        QCOMPARE(QAccessible::queryAccessibleInterface(dd)->text(QAccessible::Name),
                 QStringLiteral("Decimal Degrees"));
        QCOMPARE(QAccessible::queryAccessibleInterface(dd)->text(QAccessible::Description),
                 dd->toolTip());
    }

    // From the address field on: the button, the map, the map types (entered at the type on
    // show, the arrows move among them and choose), the three format buttons.
    void tabReachesTheMapAndItsTypes() {
        window->addressField()->setFocus();
        QTRY_VERIFY(window->addressField()->hasFocus());
        QStringList reached;
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(reached,
                 QStringList({"SearchButton", "Map", "SegmentedControl1_0", "BevelButtonFormatDD",
                              "BevelButtonFormatDMS", "BevelButtonFormatUTM"}));
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), window->map());
        const double west = window->map()->centerCoordinate().longitude;
        QTest::keyClick(window->map(), Qt::Key_Right); // the arrows pan the map
        QTRY_VERIFY(window->map()->centerCoordinate().longitude > west);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("SegmentedControl1_0"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(window->map()->mapType(), 1);
    }

    void frameHasNoCloseButtonAndTitlesAreHeadings() {
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QVERIFY(window->windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
        for (const char* title : {"FormatDecimalDegrees", "FormatDegrMinSec", "FormatUTM"})
            QVERIFY2(!menuItem(title)->isEnabled(), title);
        QVERIFY(menuItem("FormatShowm")->isEnabled());
    }

    void aboutShowsTheVersionAndClosesByOkOrEscape() {
        for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
            menuItem("HelpAboutGeoquill")->trigger();
            auto* about = window->findChild<AboutWindow*>();
            QVERIFY(about);
            QVERIFY(QTest::qWaitForWindowActive(about));
            QCOMPARE(about->windowTitle(), QStringLiteral("About Geoquill"));
            QCOMPARE(about->findChild<QLabel*>(QStringLiteral("Label3"))->text(),
                     QStringLiteral("v. 1.0.1"));
            QVERIFY(!about->findChild<QLabel*>(QStringLiteral("ImageWell1"))
                         ->pixmap(Qt::ReturnByValue)
                         .isNull());
            menuItem("HelpAboutGeoquill")->trigger(); // the one open is brought forward
            QCOMPARE(window->findChildren<AboutWindow*>().size(), 1);
            QPointer<AboutWindow> gone = about;
            QTest::keyClick(about, key);
            QTRY_VERIFY(!gone);
        }
    }

    // Every command of the menu bar reaches the controller's handler of its name.
    void menuItemsReachTheirHandlersByName() {
        for (const auto& [name, handler] : Window1::AddMenuHandlers()) {
            QAction* action = window->mainMenuBar()->action(name);
            QVERIFY2(action && window->mainMenuBar()->commandActions().contains(action),
                     qPrintable(name));
        }
    }

    // The map pointer and the application's picture, drawn once for the screen's pixel ratio;
    // the pointer's hot spot in its middle.
    void picturesAreDrawnForTheScreensPixelRatio() {
        ResourcePictures* pictures = window->pictures();
        for (const QString& name : {QStringLiteral("scopeCurs"), QStringLiteral("mapIcon")}) {
            const QPixmap picture = pictures->picture(name);
            QCOMPARE(picture.devicePixelRatio(), qApp->devicePixelRatio());
            QCOMPARE(picture.size(), pictures->pictureSize(name) * qApp->devicePixelRatio());
            QVERIFY2(picture.toImage().pixelColor(picture.rect().center()).alpha() > 0,
                     qPrintable(name + " is blank"));
            QCOMPARE(pictures->picture(name).cacheKey(), picture.cacheKey());
        }
        const QSize scope = pictures->pictureSize(QStringLiteral("scopeCurs"));
        QCOMPARE(QPoint(window->controller().curs.hotSpotX, window->controller().curs.hotSpotY),
                 QPoint(scope.width() / 2, scope.height() / 2));
    }

    void escapeCancelsTheDistanceMessage() {
        menuItem("MapDistanceBetweenClickedPts")->trigger();
        QWidget* message = window->messageWindow()->window();
        QVERIFY(message && message->isVisible());
        QCOMPARE(window->controller().gettingDist2Points, true);
        // It can be made wider for a long text; Cancel keeps to its corner.
        message->resize(400, 200);
        QTRY_COMPARE(window->messageWindow()->cancelButton()->geometry(), QRect(20, 160, 80, 20));
        QTest::keyClick(message, Qt::Key_Escape);
        QCOMPARE(window->controller().gettingDist2Points, false);
        QTRY_VERIFY(!window->messageWindow()->window());
    }
};

int main(int argc, char** argv) {
    App app(argc, argv);
    app.Event_Open();
    WindowLayoutTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "WindowLayoutTest.moc"
