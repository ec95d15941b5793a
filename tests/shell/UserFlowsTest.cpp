// The whole program as a user meets it: the real application's window, offscreen, driven only
// by keys, clicks, menus and shortcuts, one flow of work to a test. Each flow checks what the
// user sees against a reference of its own (GeographicLib, the file itself, the table on screen);
// the exact texts are pinned in the core's tests.

#include "WidgetTest.h"
#include "locationbook/BatchTable.h"
#include "shell/App.h"
#include "shell/BatchTableView.h"
#include "shell/FormatPopupButton.h"
#include "shell/MarbleMapView.h"
#include "shell/ParseTextDialog.h"
#include "support/PlainFields.h"

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include <QMessageBox>
#include <QRegularExpression>

#include <cmath>
#include <fstream>

class UserFlowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MainWindow> window;
    MarbleMapView* map = nullptr;
    QTemporaryDir dir;

    Window1& controller() const { return window->controller(); }
    BatchTableView* view() const { return window->batchListbox(); }
    static QWidget* focused() { return QApplication::focusWidget(); }
    QString cell(int row, int column) const {
        return view()->model()->index(row, column).data().toString();
    }
    QStringList labelsTopToBottom() const {
        QStringList labels;
        for (int row = 0; row < view()->model()->rowCount(); ++row)
            labels << cell(row, 1);
        return labels;
    }
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        const QRect place = view()->visualRect(view()->model()->index(row, column));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, place.center());
    }
    void clickHeader(int column) {
        QHeaderView* header = view()->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 8, 8));
    }
    void showPage(int page) {
        QTabBar* tabs = window->tabPanel()->findChild<QTabBar*>();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(page).center());
    }
    // A shortcut as a user gives it: to the window, active again after any dialog.
    void shortcut(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), key, modifiers);
    }
    // Ctrl+N, the position in decimal degrees, the label, "Record Entry".
    void record(const QString& label, const QString& typed) {
        shortcut(Qt::Key_N);
        typeAndReturn(window->textFieldDecDegrees(), typed);
        QTest::mouseClick(window->textFieldLabel(), Qt::LeftButton);
        QTest::keyClicks(window->textFieldLabel(), label);
        QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        QCOMPARE(controller().locations.back()->label, label);
    }
    void clickMap(QPoint at) {
        sendMouse(map, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        sendMouse(map, QEvent::MouseButtonRelease, at, Qt::LeftButton, {});
    }
    MapCoordinate shown() const {
        return {controller().theLocation->lat, controller().theLocation->lon};
    }

    // A modal dialog answered as it comes up, for as long as the returned timer lives.
    std::unique_ptr<QTimer> answerDialogs(const std::function<void(QWidget*)>& answer) {
        auto timer = std::make_unique<QTimer>();
        connect(timer.get(), &QTimer::timeout, [answer] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                answer(dialog);
        });
        timer->start(5);
        return timer;
    }
    static void typeFileName(QWidget* dialog, const QString& path) {
        if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            name->clear();
            QTest::keyClicks(name, path);
            QTest::keyClick(name, Qt::Key_Return);
        }
    }
    // From the first-line field by Shift+Tab and Tab to each column's menu, then OK by Return.
    void chooseColumnsAndOk(const char* lon, const char* lat, const char* label) {
        QTRY_VERIFY(focused() && focused()->objectName() == QLatin1String("TextFieldFirstLine"));
        for (const auto& [key, name, typed] :
             {std::tuple(Qt::Key_Backtab, "PopupMenuLatNorth", lat),
              std::tuple(Qt::Key_Backtab, "PopupMenuLonEast", lon),
              std::tuple(Qt::Key_Tab, "PopupMenuLatNorth", ""),
              std::tuple(Qt::Key_Tab, "TextFieldFirstLine", ""),
              std::tuple(Qt::Key_Tab, "PopupMenuLabel", label)}) {
            QTest::keyClick(focused(), key);
            if (focused()->objectName() == QLatin1String("CheckBox1")) // shown when appending
                QTest::keyClick(focused(), key);
            QCOMPARE(focused()->objectName(), QString::fromLatin1(name));
            QTest::keyClicks(focused(), QString::fromLatin1(typed));
        }
        QTest::keyClick(focused(), Qt::Key_Return);
        QTRY_VERIFY(!window->importWindow());
    }

private slots:
    void init() {
        QVERIFY(window = openWindow());
        map = window->map();
    }
    void cleanup() { window.reset(); }

    // A place typed in each notation, as GeographicLib writes it, shows in all three and is
    // recorded; then every format setting, by the format buttons and by the Format menu,
    // rewrites its own notation alone, in the fields and in the table alike.
    void typeInEachNotationRecordAndChangeEveryFormat() {
        int zone = 0;
        bool north = false;
        double easting = 0, northing = 0;
        GeographicLib::UTMUPS::Forward(-33.85, 151.2, zone, north, easting, northing);
        QLineEdit* fields[] = {window->textFieldDecDegrees(), window->textFieldDMS(),
                               window->textFieldUTM()};
        const struct {
            int field;
            QString typed;
            Qt::Key key;
        } entries[] = {
            {0, QStringLiteral("-33.85 151.2"), Qt::Key_Return},
            {1, QStringLiteral("33\u00b0 51' 0\"S, 151\u00b0 12' 0\"E"), Qt::Key_Enter},
            {2,
             QStringLiteral("%1 E, %2 N -%3")
                 .arg(easting, 0, 'f', 3)
                 .arg(northing, 0, 'f', 3)
                 .arg(zone),
             Qt::Key_Tab},
        };
        for (const auto& entry : entries) {
            shortcut(Qt::Key_N);
            QTest::mouseClick(fields[entry.field], Qt::LeftButton);
            QTest::keyClicks(fields[entry.field], entry.typed);
            QTest::keyClick(fields[entry.field], entry.key);
            QVERIFY2(controller().theLocation && near(shown(), {-33.85, 151.2}, 1e-5),
                     qPrintable(entry.typed));
            QVERIFY(fields[0]->text().contains(QLatin1String("151.2")));
            QVERIFY(fields[1]->text().contains(QLatin1String("51'")));
            QVERIFY(fields[2]->text().contains(QString::number(zone)));
            QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        }
        QCOMPARE(controller().locations.size(), std::size_t(3));

        // The last row is on show. Columns: tick, label, then each notation's cells.
        const int firstColumn[] = {2, 4, 6}, columns[] = {2, 2, 3};
        FormatPopupButton* buttons[] = {window->bevelButtonFormatDD(),
                                        window->bevelButtonFormatDMS(),
                                        window->bevelButtonFormatUTM()};
        const struct {
            int notation;
            QStringList byButton; // else by the Format menu
            const char* menuCaption;
        } changes[] = {
            {0, {"Separator", "Tab"}, nullptr},
            {0, {"Separator", "Space"}, nullptr},
            {0, {"Separator", "Comma"}, nullptr},
            {0, {"Show Hemisphere Letter"}, nullptr},
            {0, {}, "Show \u00b0 Symbol"},
            {0, {"Show Hemisphere Letter"}, nullptr}, // back off, for the order buttons below
            {1, {"Separator", "Space"}, nullptr},
            {1, {"Separator", "Tab"}, nullptr},
            {1, {"Separator", "Comma"}, nullptr},
            {1, {"Show Hemisphere Letter"}, nullptr},
            {1, {}, "Show \u00b0 ' \" Symbols"},
            {2, {"Separator", "Tab"}, nullptr},
            {2, {"Separator", "Space"}, nullptr},
            {2, {"Separator", "Comma"}, nullptr},
            {2, {}, "Show \"m\""},
            {2, {}, "Show E and N"},
            {2, {}, "(-) Zone in S Hemisph"},
        };
        // The separators join the two values of a field; the table holds each value in a cell.
        showPage(1);
        QMenu* format = window->mainMenuBar()->findChild<QMenu*>(QStringLiteral("FormatMenu"));
        const auto cells = [&](int notation) {
            QStringList texts;
            for (int column = firstColumn[notation];
                 column < firstColumn[notation] + columns[notation]; ++column)
                texts << cell(2, column);
            return texts;
        };
        for (const auto& change : changes) {
            const QString what = change.byButton.join('>') + change.menuCaption;
            QList<QStringList> before;
            for (int n = 0; n < 3; ++n)
                before << QStringList{fields[n]->text()} + cells(n);
            if (change.menuCaption) {
                chooseInNextMenu({QString::fromUtf8(change.menuCaption)});
                const QRect title = window->mainMenuBar()->actionGeometry(format->menuAction());
                QTest::mouseClick(window->mainMenuBar(), Qt::LeftButton, {}, title.center());
                QTRY_VERIFY2(fields[change.notation]->text() != before[change.notation][0],
                             qPrintable(what));
            } else {
                chooseInNextMenu(change.byButton);
                QTest::mouseClick(buttons[change.notation], Qt::LeftButton);
            }
            letQueuedRun();
            const bool separator = change.byButton.value(0) == QLatin1String("Separator");
            for (int n = 0; n < 3; ++n) {
                const bool own = n == change.notation;
                QVERIFY2((fields[n]->text() != before[n][0]) == own, qPrintable(what));
                QVERIFY2((cells(n) != before[n].mid(1)) == (own && !separator), qPrintable(what));
            }
        }

        showPage(0);
        // The order buttons read the field being entered again, the other way round.
        typeAndReturn(fields[0], QStringLiteral("10 20"));
        QTest::mouseClick(window->radioButton2(), Qt::LeftButton);
        QVERIFY(near(shown(), {20, 10}, 1e-9));
    }

    // A place found by its name, then locations made by the map's contextual menu and by a click
    // after Ctrl+Shift+N, recorded; their pins drawn after Show All, and a click on a pin selects
    // its row.
    void makeLocationsOnTheMapAndSelectPins() {
        typeAndReturn(window->addressField(), QStringLiteral("Paris")); // the map goes there
        QTRY_VERIFY_WITH_TIMEOUT(
            controller().theLocation && controller().theLocation->label == "Paris", 10000);
        QVERIFY(near(shown(), {48.86, 2.35}, 0.1) && near(map->centerCoordinate(), shown(), 1e-5));
        QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        const QPoint middle = map->rect().center(), first = middle + QPoint(-60, 40),
                     second = middle + QPoint(-150, -50);
        QWheelEvent zoomIn(middle, map->mapToGlobal(middle), {}, {0, 120 * 6}, {}, {},
                           Qt::NoScrollPhase, false);
        QApplication::sendEvent(map, &zoomIn);
        const auto firstPlace = map->convertPointToCoordinate(first.x(), first.y());
        chooseInNextMenu({QStringLiteral("New Location at Click")});
        sendMouse(map, QEvent::MouseButtonPress, first, Qt::RightButton, Qt::RightButton);
        QVERIFY(controller().theLocation && near(shown(), *firstPlace, 1e-6));
        QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        shortcut(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        const auto secondPlace = map->convertPointToCoordinate(second.x(), second.y());
        clickMap(second);
        QVERIFY(controller().theLocation && near(shown(), *secondPlace, 1e-6));
        QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        record(QStringLiteral("Rome"), QStringLiteral("41.9028 12.4964"));

        shortcut(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY_WITH_TIMEOUT(!map->isFlying() && map->pendingMapFiles() == 0, 10000);
        if (QDir().mkpath(GEOQUILL_SCREENSHOT_DIR)) // the README's first picture
            window->grab().save(QStringLiteral(GEOQUILL_SCREENSHOT_DIR "/map-pins.png"));
        const QImage shot = map->grab().toImage().scaled(map->size());
        QCOMPARE(controller().Pins.size(), std::size_t(4));
        for (const MapPinRef& pin : controller().Pins) { // the head, above the tip, pin red
            const QPoint tip = map->pointForCoordinate(pin->coordinate)->toPoint();
            const QColor head = shot.pixelColor(tip - QPoint(0, 17));
            QVERIFY2(head.red() > 150 && head.green() < 110 && head.blue() < 110,
                     qPrintable(head.name()));
        }
        shortcut(Qt::Key_N);
        const MapPinRef clicked = controller().Pins[2];
        clickMap(map->pointForCoordinate(clicked->coordinate)->toPoint());
        QCOMPARE(controller().selectedLoc, std::int64_t(2));
        QCOMPARE(map->pinLayer().selected(), clicked);
        clickMap(QPoint(map->width() - 60, 40)); // far from every pin
        QVERIFY(!map->pinLayer().selected());
    }

    // A real file through Ctrl+O and the import window; a long one cancelled in its progress;
    // a tab text pasted on the first page stays in the field, on the list's page it imports.
    void openAFileAndPaste() {
        const QString path = QStringLiteral(GEOQUILL_TEST_DATA_DIR "/airports.csv");
        std::vector<std::vector<std::string>> lines;
        std::ifstream in(path.toStdString());
        for (std::string line; std::getline(in, line);)
            lines.push_back(plainFields(line, ','));
        lines.erase(lines.begin()); // the header
        const auto opener = answerDialogs([&](QWidget* dialog) { typeFileName(dialog, path); });
        shortcut(Qt::Key_O, Qt::ControlModifier);
        chooseColumnsAndOk("7", "6", "2"); // from the second line, as the window offers
        opener->stop();
        QCOMPARE(view()->model()->rowCount(), int(lines.size()));
        QCOMPARE(controller().Pins.size(), lines.size());
        for (std::size_t k : {std::size_t(0), lines.size() - 1}) {
            const Vertex& v = *controller().locations[k];
            QCOMPARE(v.label.toStdString(), lines[k][1]);
            QCOMPARE(v.lat, std::stod(lines[k][5]));
            QCOMPARE(v.lon, std::stod(lines[k][6]));
        }

        QFile big(dir.filePath(QStringLiteral("big.txt")));
        QVERIFY(big.open(QIODevice::WriteOnly));
        big.write(QByteArray("1.5,2.5\n").repeated(100050));
        big.close();
        bool cancelled = false;
        const auto canceller = answerDialogs([&](QWidget* dialog) {
            typeFileName(dialog, big.fileName());
            ParseTextDialog* import = window->importWindow();
            QProgressDialog* progress = import ? import->progressDialog() : nullptr;
            if (progress && progress->isVisible() && !std::exchange(cancelled, true))
                QTest::mouseClick(progress->findChild<QPushButton*>(), Qt::LeftButton);
        });
        shortcut(Qt::Key_O, Qt::ControlModifier);
        QTRY_VERIFY(cancelled && !window->importWindow());
        QCOMPARE(controller().locations.size(), lines.size());

        showPage(0);
        QGuiApplication::clipboard()->setText("Name\tLon\tLat\r\nAlpha\t12.4964\t41.9028\r\n");
        QTest::mouseClick(window->addressField(), Qt::LeftButton);
        QTest::keyClick(window->addressField(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(window->addressField()->text().startsWith(QLatin1String("Name")));
        letQueuedRun();
        QVERIFY(!window->importWindow());
        showPage(1);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton);
        QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(window->importWindow() && window->importWindow()->isVisible());
        chooseColumnsAndOk("2", "3", "1");
        QCOMPARE(controller().locations.back()->label, QStringLiteral("Alpha"));
        QCOMPARE(controller().locations.back()->lat, 41.9028);
    }

    // Under a comma locale, in km and then in miles: two clicks after Ctrl+D, the path along
    // three selected rows, and from the selected row to a click after Ctrl+Shift+D, each against
    // GeographicLib's geodesic.
    void measureDistancesInTheLocalesMarkAndUnits() {
        window.reset();
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        window = openWindow();
        QLocale::setDefault(QLocale::c());
        QVERIFY(window);
        map = window->map();
        controller().LoadMap(48.0, 11.0);
        record(QStringLiteral("Munich"), QStringLiteral("48,1372 11,5755"));
        record(QStringLiteral("Augsburg"), QStringLiteral("48,3705 10,8978"));
        record(QStringLiteral("Ulm"), QStringLiteral("48,4011 9,9876"));
        QStringList said;
        const auto answerer = answerDialogs([&](QWidget* dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
                said << box->text();
                box->done(0);
            }
        });
        const auto metres = [](MapCoordinate a, MapCoordinate b) {
            double s = 0;
            GeographicLib::Geodesic::WGS84().Inverse(a.latitude, a.longitude, b.latitude,
                                                     b.longitude, s);
            return s;
        };
        const auto row = [this](int k) {
            return MapCoordinate{controller().locations[k]->lat, controller().locations[k]->lon};
        };
        const QRegularExpression distance(
            QStringLiteral("^Distance (?:along selected path )?= (\\d+)(?:,(\\d+))? (km|mi)$"));
        const auto expectSaid = [&](double m, const char* unit) {
            QTRY_VERIFY(!said.isEmpty());
            const QString text = said.takeFirst();
            const auto got = distance.match(text);
            QVERIFY2(got.hasMatch() && got.captured(3) == QLatin1String(unit), qPrintable(text));
            const double value = (got.captured(1) + '.' + got.captured(2)).toDouble();
            const double perUnit = got.captured(3) == QLatin1String("km") ? 1000 : 1609.344;
            QVERIFY2(qAbs(value - m / perUnit) <= 0.51 * std::pow(10, -got.captured(2).size()),
                     qPrintable(QString::number(m / perUnit)));
        };
        const QPoint a(300, 150), b(400, 150);
        for (const char* unit : {"km", "mi"}) {
            showPage(0);
            if (*unit == 'm')
                shortcut(Qt::Key_F, Qt::ControlModifier);
            shortcut(Qt::Key_D, Qt::ControlModifier);
            clickMap(a);
            clickMap(b);
            expectSaid(metres(*map->convertPointToCoordinate(a.x(), a.y()),
                              *map->convertPointToCoordinate(b.x(), b.y())),
                       unit);

            showPage(1);
            clickCell(0, 1);
            clickCell(2, 1, Qt::ControlModifier);
            clickCell(1, 1, Qt::ControlModifier);
            shortcut(Qt::Key_D, Qt::ControlModifier);
            expectSaid(metres(row(0), row(1)) + metres(row(1), row(2)), unit);

            clickCell(1, 1);
            shortcut(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
            QCOMPARE(window->tabPanel()->currentIndex(), 0);
            clickMap(b);
            expectSaid(metres(row(1), *map->convertPointToCoordinate(b.x(), b.y())), unit);
        }
    }

    // One row, then the selected ones, then all of them once the question is answered by
    // Return; the rows sorted by a header click reach their own locations.
    void removeLocations() {
        for (const char* place : {"Quito -0.1807 -78.4678", "Sydney -33.5 151.25",
                                  "Paris 48.8566 2.3522", "Panama 8.9824 -79.5199"}) {
            const QStringList words = QString::fromLatin1(place).split(' ');
            record(words[0], words[1] + ' ' + words[2]);
        }
        showPage(1);
        clickHeader(2); // latitude: ascending on the first click, then descending
        QCOMPARE(labelsTopToBottom(), QStringList({"Sydney", "Quito", "Panama", "Paris"}));
        clickHeader(2);
        QCOMPARE(labelsTopToBottom(), QStringList({"Paris", "Panama", "Quito", "Sydney"}));
        for (int row = 0; row < 4; ++row) {
            clickCell(row, 1);
            QCOMPARE(window->textFieldLabel()->text(), labelsTopToBottom()[row]);
        }
        if (QDir().mkpath(GEOQUILL_SCREENSHOT_DIR)) // the README's picture of the list
            window->grab().save(QStringLiteral(GEOQUILL_SCREENSHOT_DIR "/table-page.png"));

        clickCell(1, 1);
        shortcut(Qt::Key_R, Qt::ControlModifier);
        // What is left comes in the list's own order.
        QCOMPARE(labelsTopToBottom(), QStringList({"Quito", "Sydney", "Paris"}));
        clickCell(0, 1);
        clickCell(2, 1, Qt::ControlModifier);
        // The Edit menu, as it opens, names more than one.
        QMenu* edit = window->mainMenuBar()->findChild<QMenu*>(QStringLiteral("EditMenu"));
        const QRect title = window->mainMenuBar()->actionGeometry(edit->menuAction());
        QTest::mouseClick(window->mainMenuBar(), Qt::LeftButton, {}, title.center());
        QTRY_VERIFY(edit->isVisible());
        QCOMPARE(window->mainMenuBar()->action(QStringLiteral("EditRemoveLocations"))->text(),
                 QStringLiteral("Remove Locations"));
        edit->close();
        shortcut(Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(labelsTopToBottom(), QStringList({"Sydney"}));
        QCOMPARE(controller().Pins.size(), std::size_t(1));

        const auto yes = answerDialogs([](QWidget* dialog) {
            if (qobject_cast<QMessageBox*>(dialog))
                QTest::keyClick(dialog, Qt::Key_Return);
        });
        shortcut(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(view()->model()->rowCount(), 0);
        QVERIFY(controller().Pins.empty());
    }

    // By the keyboard alone: three places recorded, the list's page by Ctrl+Tab, one row
    // unticked by the arrows and Space, and Ctrl+S through the real file dialog. The file holds
    // the ticked rows in the order on screen, each the eight cells after the tick joined by tabs,
    // under the header.
    void recordAndSaveByTheKeyboardAlone() {
        const auto tabTo = [](QWidget* target) {
            for (int k = 0; k < 40 && focused() != target; ++k)
                QTest::keyClick(focused() ? focused() : QApplication::activeWindow(), Qt::Key_Tab);
            return focused() == target;
        };
        for (const char* place :
             {"Sydney -33.5 151.25", "Paris 48.8566 2.3522", "Panama 8.9824 -79.5199"}) {
            const QStringList words = QString::fromLatin1(place).split(' ');
            shortcut(Qt::Key_N);
            QVERIFY(tabTo(window->textFieldDecDegrees()));
            QTest::keyClicks(focused(), words[1] + ' ' + words[2]);
            QVERIFY(tabTo(window->textFieldLabel()));
            QTest::keyClicks(focused(), words[0]);
            QVERIFY(tabTo(window->searchButton()));
            QTest::keyClick(focused(), Qt::Key_Space);
            QCOMPARE(controller().locations.back()->label, words[0]);
        }
        QTest::keyClick(focused(), Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(window->tabPanel()->currentIndex(), 1);
        QVERIFY(tabTo(view()));
        for (int down = 0; down < 2; ++down)
            QTest::keyClick(view(), Qt::Key_Down);
        QTest::keyClick(view(), Qt::Key_Space); // Panama stays out
        QVERIFY(!controller().locations[2]->checked);

        const QString path = dir.filePath(QStringLiteral("saved.txt"));
        const auto saver = answerDialogs([&](QWidget* dialog) { typeFileName(dialog, path); });
        QTest::keyClick(focused(), Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(QFile::exists(path));
        QByteArray expected = "Longitude (DD)\tLatitude (DD)\tLongitude (DMS)\tLatitude (DMS)\t"
                              "UTM Eastings (m)\tUTM Northings (m)\tUTM Zone\n";
        for (int row : {0, 1}) {
            QStringList cells;
            for (int column = 1; column <= 8; ++column)
                cells << cell(row, column);
            expected += cells.join(QLatin1Char('\t')).toUtf8() + '\n';
        }
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), expected);
    }
};

int main(int argc, char** argv) {
    QLocale::setDefault(QLocale::c());
    App app(argc, argv);
    app.Event_Open();
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    UserFlowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "UserFlowsTest.moc"
