// The real window but for its map, driven as a user drives it: the notation fields, the order and
// format buttons, the menu bar, the list's sorting, clicks, ticks and selection, and delimited
// text through the file dialog, the clipboard and the import window. What is read, written and
// sorted is the controller's, pinned in tests/notation, tests/locationbook and tests/files.

#include "WidgetTest.h"
#include "files/ImportPreview.h"
#include "locationbook/BatchTable.h"
#include "shell/BatchTableView.h"
#include "shell/FormatPopupButton.h"
#include "shell/ParseTextDialog.h"

#include <GeographicLib/UTMUPS.hpp>

#include <QMessageBox>

class MainWindowTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MainWindow> window;
    QTemporaryDir dir;

    BatchTableView* view() const { return window->batchListbox(); }
    const Vertex& record(int place) const { return *window->controller().locations.at(place); }
    QStringList labelsTopToBottom() const {
        QStringList labels;
        for (int row = 0; row < view()->model()->rowCount(); ++row)
            labels << view()->model()->index(row, 1).data().toString();
        return labels;
    }
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        const QRect cell = view()->visualRect(view()->model()->index(row, column));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, cell.center());
    }
    void clickHeader(int column) {
        QHeaderView* header = view()->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 8, 8));
    }

    void showTheList() {
        QTabBar* tabs = window->tabPanel()->findChild<QTabBar*>();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    }
    // Recorded as a user does: Ctrl+N, position, label, "Record Entry"; then the list's page by
    // its tab. Sorted by latitude the places come Sydney, Panama, Paris.
    void recordThreeAndShowTheList() {
        const char* const places[][2] = {
            {"Sydney", "-33.5 151.25"}, {"Paris", "48.8566 2.3522"}, {"Panama", "8.9824 -79.5199"}};
        for (const auto& [label, typed] : places) {
            QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
            typeAndReturn(window->textFieldDecDegrees(), QString::fromUtf8(typed));
            QTest::mouseClick(window->textFieldLabel(), Qt::LeftButton);
            QTest::keyClicks(window->textFieldLabel(), QString::fromUtf8(label));
            QTest::mouseClick(window->searchButton(), Qt::LeftButton);
            QCOMPARE(window->controller().locations.back()->label, QString::fromUtf8(label));
        }
        showTheList();
    }

    static QWidget* focused() { return QApplication::focusWidget(); }

    // Ctrl+O and the path typed into the file dialog; then poll runs until the import has gone.
    void openFile(const QByteArray& bytes, const std::function<void()>& poll = {}) {
        QFile file(dir.filePath(QStringLiteral("in.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QTimer timer;
        connect(&timer, &QTimer::timeout, [&] {
            if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                QTest::keyClicks(name, file.fileName());
                QTest::keyClick(name, Qt::Key_Return);
            } else if (poll) {
                poll();
            }
        });
        timer.start(5);
        QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
    }

    // From the first-line field by Shift+Tab and Tab to each column's menu, then OK by Return.
    void chooseColumnsAndOk(const char* lon, const char* lat, const char* label) {
        QTRY_VERIFY(focused() && focused()->objectName() == QLatin1String("TextFieldFirstLine"));
        for (const auto& [key, name, column] :
             {std::tuple(Qt::Key_Backtab, "PopupMenuLatNorth", lat),
              std::tuple(Qt::Key_Backtab, "PopupMenuLonEast", lon),
              std::tuple(Qt::Key_Tab, "PopupMenuLatNorth", ""),
              std::tuple(Qt::Key_Tab, "TextFieldFirstLine", ""),
              std::tuple(Qt::Key_Tab, "PopupMenuLabel", label)}) {
            QTest::keyClick(focused(), key);
            QCOMPARE(focused()->objectName(), QString::fromLatin1(name));
            QTest::keyClicks(focused(), QString::fromLatin1(column));
        }
        QTest::keyClick(focused(), Qt::Key_Return);
        QTRY_VERIFY(!window->importWindow());
    }

    QStringList recorded() const {
        QStringList made;
        for (const VertexRef& v : window->controller().locations)
            made << QStringLiteral("%1 %2 %3").arg(v->label).arg(v->lat).arg(v->lon);
        return made;
    }

private slots:
    void init() { QVERIFY(window = openWindow()); }
    void cleanup() { window.reset(); }

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

    void eachFieldIsReadOnItsKeys_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("key");
        int zone = 0; // 45.5 N, 9.25 E in UTM as GeographicLib computes it
        bool north = true;
        double easting = 0, northing = 0;
        GeographicLib::UTMUPS::Forward(45.5, 9.25, zone, north, easting, northing);
        const QString utm = QString::number(easting, 'f', 1) + " E, " +
                            QString::number(northing, 'f', 1) + " N " + QString::number(zone);
        const QString dd = QStringLiteral("45.5 9.25");
        QTest::newRow("decimal degrees, Return")
            << "TextFieldDecDegrees" << dd << int(Qt::Key_Return);
        QTest::newRow("decimal degrees, Tab away")
            << "TextFieldDecDegrees" << dd << int(Qt::Key_Tab);
        QTest::newRow("DMS, Enter on the keypad")
            << "TextFieldDMS"
            << "45\u00b0 30' 0\"N, 9\u00b0 15' 0\"E" << int(Qt::Key_Enter);
        QTest::newRow("UTM, Return") << "TextFieldUTM" << utm << int(Qt::Key_Return);
    }
    void eachFieldIsReadOnItsKeys() {
        QFETCH(QString, name);
        QFETCH(QString, typed);
        QFETCH(int, key);
        QLineEdit* typedInto = window->findChild<QLineEdit*>(name);
        typedInto->setFocus();
        QTest::keyClicks(typedInto, typed);
        QTest::keyClick(typedInto, Qt::Key(key));
        const auto& location = window->controller().theLocation;
        QVERIFY(location && qAbs(location->lat - 45.5) < 1e-5 && qAbs(location->lon - 9.25) < 1e-5);
        // Each notation in its own field: degrees, minutes, the zone.
        QVERIFY(window->textFieldDecDegrees()->text().startsWith(QLatin1String("45.5")));
        QVERIFY(window->textFieldDMS()->text().contains(QLatin1String("30'")));
        QVERIFY(window->textFieldUTM()->text().contains(QLatin1String("32")));
    }

    void returnInAnEmptyFieldPressesTheDefaultButton() {
        window->textFieldDecDegrees()->setFocus();
        QTest::keyClick(window->textFieldDecDegrees(), Qt::Key_Return);
        QVERIFY(window->controller().tappingMap); // "Click Map" arms the map
    }

    void orderButtonReadsTheFieldAgain() {
        typeAndReturn(window->textFieldDecDegrees(), QStringLiteral("10 20"));
        QCOMPARE(window->controller().theLocation->lat, 10.0);
        QTest::mouseClick(window->radioButton2(), Qt::LeftButton);
        QCOMPARE(window->controller().theLocation->lon, 10.0);
        QCOMPARE(window->controller().theLocation->lat, 20.0);
    }

    void menuItemsReachTheirHandlersByName() {
        MainMenuBar* menu = window->mainMenuBar();
        for (const auto& [name, handler] : Window1::AddMenuHandlers()) {
            QAction* action = menu->action(name);
            QVERIFY2(action && menu->commandActions().contains(action), qPrintable(name));
        }
    }

    void formatButtonsReachTheirOwnNotation_data() {
        QTest::addColumn<int>("button"); // 0 decimal degrees, 1 DMS, 2 UTM
        QTest::newRow("decimal degrees") << 0;
        QTest::newRow("DMS") << 1;
        QTest::newRow("UTM") << 2;
    }
    void formatButtonsReachTheirOwnNotation() {
        QFETCH(int, button);
        FormatPopupButton* buttons[] = {window->bevelButtonFormatDD(),
                                        window->bevelButtonFormatDMS(),
                                        window->bevelButtonFormatUTM()};
        QLineEdit* fields[] = {window->textFieldDecDegrees(), window->textFieldDMS(),
                               window->textFieldUTM()};
        typeAndReturn(fields[0], QStringLiteral("45.5 9.25"));
        // Opened by a click; the entry shows the mark the controller gives it, both times.
        for (bool marked : {false, true}) {
            bool shown = !marked;
            chooseInNextMenu({QStringLiteral("Separator"), QStringLiteral("Tab")}, &shown);
            QTest::mouseClick(buttons[button], Qt::LeftButton);
            QCOMPARE(shown, marked);
            for (int i = 0; i < 3; ++i)
                QCOMPARE(fields[i]->text().contains(QLatin1Char('\t')), i == button);
        }
    }
    void headerSortsAndAClickOnASortedRowReachesItsLocation() {
        recordThreeAndShowTheList();
        clickHeader(2); // latitude: ascending on the first click
        QCOMPARE(labelsTopToBottom(), QStringList({"Sydney", "Panama", "Paris"}));
        clickHeader(2);
        QCOMPARE(labelsTopToBottom(), QStringList({"Paris", "Panama", "Sydney"}));
        for (int row = 0; row < 3; ++row) {
            const QString label = labelsTopToBottom()[row];
            clickCell(row, 1);
            QCOMPARE(window->textFieldLabel()->text(), label);
            QCOMPARE(view()->table()->selectedRowCount(), 1);
        }
        QCOMPARE(labelsTopToBottom(), QStringList({"Paris", "Panama", "Sydney"}));
        // The README's picture of the list (make screenshots).
        QVERIFY(QDir().mkpath(GEOQUILL_SCREENSHOT_DIR));
        QVERIFY(window->grab().save(GEOQUILL_SCREENSHOT_DIR "/table-page.png"));
    }

    void ticksAndSelectionReachTheRecords() {
        recordThreeAndShowTheList();
        clickHeader(2); // Panama second on screen, third in the list
        clickCell(1, 0);
        QTest::keyClick(view(), Qt::Key_Space);
        QVERIFY(!record(2).checked && record(0).checked && record(1).checked);

        // Ctrl+click adds a row to the selection; the Edit menu, as it opens, names them.
        clickCell(2, 1, Qt::ControlModifier);
        QVERIFY(record(2).selected && record(1).selected && !record(0).selected);
        QMenu* edit = window->mainMenuBar()->findChild<QMenu*>(QStringLiteral("EditMenu"));
        const QRect title = window->mainMenuBar()->actionGeometry(edit->menuAction());
        QTest::mouseClick(window->mainMenuBar(), Qt::LeftButton, {}, title.center());
        QTRY_VERIFY(edit->isVisible());
        QCOMPARE(window->mainMenuBar()->action(QStringLiteral("EditRemoveLocations"))->text(),
                 QStringLiteral("Remove Locations"));
        edit->close();
    }

    // Ctrl+S through the real file dialog: the ticked rows in the order on screen, each the
    // eight cells after the tick joined by tabs, under the header.
    void saveWritesTheTickedRowsAsShown() {
        recordThreeAndShowTheList();
        clickHeader(2); // Sydney, Panama, Paris
        clickCell(1, 0);
        QTest::keyClick(view(), Qt::Key_Space); // Panama stays out
        const QString path = dir.filePath(QStringLiteral("saved.txt"));
        QTimer answer;
        connect(&answer, &QTimer::timeout, [&] {
            if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                name->clear();
                QTest::keyClicks(name, path);
                QTest::keyClick(name, Qt::Key_Return);
            }
        });
        answer.start(5);
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(QFile::exists(path));
        QByteArray expected = "Longitude (DD)\tLatitude (DD)\tLongitude (DMS)\tLatitude (DMS)\t"
                              "UTM Eastings (m)\tUTM Northings (m)\tUTM Zone\n";
        for (int row : {0, 2}) {
            QStringList cells;
            for (int column = 1; column <= 8; ++column)
                cells << view()->model()->index(row, column).data().toString();
            expected += cells.join(QLatin1Char('\t')).toUtf8() + '\n';
        }
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), expected);
    }

    // Ctrl+R takes the selected rows, Ctrl+Shift+R all of them once the question is answered
    // by Return.
    void removeTheSelectedRowsThenAll() {
        recordThreeAndShowTheList();
        clickCell(0, 1);
        clickCell(2, 1, Qt::ControlModifier);
        QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(labelsTopToBottom(), QStringList({"Paris"}));
        QTimer answer;
        connect(&answer, &QTimer::timeout, [] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                QTest::keyClick(box, Qt::Key_Return);
        });
        answer.start(5);
        QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(view()->model()->rowCount(), 0);
        QVERIFY(window->controller().Pins.empty());
    }

    void openedFileBecomesLocations() {
        openFile("name,lat,lon,note\nQuito,-0.1807,-78.4678,a\nReykjavik,64.1466,-21.9426,b\n");
        QTableView* preview = window->importWindow()->listbox1();
        // The widths the reading gave, then the last column to the table's right edge.
        const QStringList widths =
            static_cast<ImportPreview*>(preview->model())->columnWidths().split(QLatin1Char(','));
        for (int column = 0; column < widths.size(); ++column)
            QCOMPARE(preview->columnWidth(column), widths[column].toInt());
        QCOMPARE(preview->horizontalHeader()->length(), preview->viewport()->width());
        chooseColumnsAndOk("3", "2", "1");
        QCOMPARE(recorded(), QStringList({"Quito -0.1807 -78.4678", "Reykjavik 64.1466 -21.9426"}));
    }

    void pasteGoesToTheFocusedFieldOrToTheImport() {
        // On the first page into the focused field.
        QGuiApplication::clipboard()->setText(QStringLiteral("Harbour"));
        QTest::mouseClick(window->textFieldLabel(), Qt::LeftButton);
        chooseMenuItem(*window, "EditPaste");
        QCOMPARE(window->textFieldLabel()->text(), QStringLiteral("Harbour"));
        QVERIFY(!window->importWindow());
        // On the list's page a spreadsheet's cells go to the import.
        QGuiApplication::clipboard()->setText("Name\tLon\tLat\r\nAlpha\t12.4964\t41.9028\r\n");
        showTheList();
        QTest::mouseClick(window->batchListbox()->viewport(), Qt::LeftButton);
        QTest::keyClick(window->batchListbox(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(window->importWindow() && window->importWindow()->isVisible());
        chooseColumnsAndOk("2", "3", "1");
        QCOMPARE(recorded(), QStringList({"Alpha 41.9028 12.4964"}));
    }

    void cancelInTheProgressOfALongFileImportsNothing() {
        bool cancelled = false;
        openFile(QByteArray("1.5,2.5\n").repeated(100050), [&] {
            ParseTextDialog* import = window->importWindow();
            QProgressDialog* progress = import ? import->progressDialog() : nullptr;
            if (progress && progress->isVisible() && !std::exchange(cancelled, true))
                QTest::mouseClick(progress->findChild<QPushButton*>(), Qt::LeftButton);
        });
        QVERIFY(cancelled);
        QTRY_VERIFY(!window->importWindow());
        QVERIFY(window->controller().locations.empty());
    }
};

GEOQUILL_WIDGET_TEST_MAIN(MainWindowTest)

#include "MainWindowTest.moc"
