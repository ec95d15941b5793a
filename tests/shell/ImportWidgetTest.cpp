// Delimited text into the real window as a user brings it, through the real file dialog, the
// clipboard, the import window and its progress window.

#include "coordinates/LatLon_UTM.h"
#include "files/ImportPreview.h"
#include "locationbook/Window1.h"
#include "shell/BatchTableView.h"
#include "shell/MainMenuBar.h"
#include "shell/MainWindow.h"
#include "shell/ParseTextDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHeaderView>
#include <QProgressDialog>
#include <QTabBar>
#include <QTemporaryDir>
#include <QtTest>

class ImportWidgetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MainWindow> window;
    QTemporaryDir dir;

    static QWidget* focused() { return QApplication::focusWidget(); }

    // Ctrl+O, the file written and its path typed into the file dialog; then poll runs until the
    // import window has gone.
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

    // From the first-line field, Shift+Tab back to the coordinates' menus, Tab on to the label's,
    // typing each column's number; then OK by Return.
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

    // The table's rows and the pins: label, latitude, longitude (degrees) of each.
    void checkLocations(const QStringList& labels, const std::vector<double>& latLon) {
        const QAbstractItemModel* table = window->batchListbox()->model();
        QCOMPARE(table->rowCount(), labels.size());
        for (int row = 0; row < labels.size(); ++row) {
            const double lat = latLon[std::size_t(2 * row)], lon = latLon[std::size_t(2 * row + 1)];
            QCOMPARE(table->index(row, 1).data().toString(), labels[row]);
            QCOMPARE(table->index(row, 2).data().toDouble(), lat);
            QCOMPARE(table->index(row, 3).data().toDouble(), lon);
            const MapCoordinate pin = window->controller().Pins.at(std::size_t(row))->coordinate;
            QVERIFY(pin.latitude == lat && pin.longitude == lon);
        }
    }

private slots:
    void init() {
        window = std::make_unique<MainWindow>();
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup() { window.reset(); }

    void openedFileBecomesLocations() {
        openFile("name,lat,lon,note\nQuito,-0.1807,-78.4678,a\nReykjavik,64.1466,-21.9426,b\n");
        QCOMPARE(window->tabPanel()->currentIndex(), 1);
        QPointer<ParseTextDialog> dialog = window->importWindow();
        QVERIFY(dialog && dialog->isVisible());
        QTableView* preview = dialog->listbox1();
        QCOMPARE(preview->model()->index(2, 1).data().toString(), QStringLiteral("Reykjavik"));
        // The model's widths, then the last column to the table's right edge.
        const QStringList widths =
            static_cast<ImportPreview*>(preview->model())->columnWidths().split(QLatin1Char(','));
        for (int column = 0; column < widths.size(); ++column)
            QCOMPARE(preview->columnWidth(column), widths[column].toInt());
        QCOMPARE(preview->horizontalHeader()->length(), preview->viewport()->width());
        chooseColumnsAndOk("3", "2", "1");
        checkLocations({"Quito", "Reykjavik"}, {-0.1807, -78.4678, 64.1466, -21.9426});
    }

    void pastedCellsBecomeLocations() {
        // On the first page a paste goes into the focused field, from the keys or the menu.
        QGuiApplication::clipboard()->setText(QStringLiteral("Harbour"));
        QLineEdit* label = window->textFieldLabel();
        QTest::mouseClick(label, Qt::LeftButton);
        QTest::keyClick(label, Qt::Key_V, Qt::ControlModifier);
        window->mainMenuBar()->action(QStringLiteral("EditPaste"))->trigger();
        QCOMPARE(label->text(), QStringLiteral("HarbourHarbour"));
        QVERIFY(!window->importWindow());
        // On the list's page the spreadsheet's cells go to the import.
        QGuiApplication::clipboard()->setText("Name\tLon\tLat\r\nAlpha\t12.4964\t41.9028\r\n");
        QTabBar* tabs = window->tabPanel()->findChild<QTabBar*>();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
        QTest::mouseClick(window->batchListbox()->viewport(), Qt::LeftButton);
        QTest::keyClick(window->batchListbox(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(window->importWindow() && window->importWindow()->isVisible());
        auto* firstLine = window->importWindow()->findChild<QLineEdit*>("TextFieldFirstLine");
        QCOMPARE(firstLine->selectedText(), QStringLiteral("2"));
        chooseColumnsAndOk("2", "3", "1");
        checkLocations({"Alpha"}, {41.9028, 12.4964});
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

int main(int argc, char** argv) {
    QLocale::setDefault(QLocale::c());
    QApplication app(argc, argv);
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    ImportWidgetTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ImportWidgetTest.moc"
