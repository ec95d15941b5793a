// The table of recorded locations on page 1 of the real window, driven as a user drives it:
// locations typed into the Decimal Degrees field and recorded, then the table's cells, tick
// boxes, selection, header sorting and row clicks, and the Format menu and pop-up buttons
// rewriting the cells.
//
// The three locations lie north and south, east and west, and were chosen so that a sort by
// number and a sort by text put them in different orders in most columns: a one-digit latitude
// against two-digit ones, a one-digit and a three-digit longitude, and a northing of six digits
// against two of seven.

#include "coordinates/LatLon_UTM.h"
#include "locationbook/BatchTable.h"
#include "locationbook/Window1.h"
#include "shell/BatchTableView.h"
#include "shell/FormatPopupButton.h"
#include "shell/MainMenuBar.h"
#include "shell/MainWindow.h"

#include <GeographicLib/UTMUPS.hpp>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOptionViewItem>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace {

// One location as typed, and the texts its row must show under the start settings with
// "Lat, Lon" on. The DMS parts were worked out by hand from the decimal degrees: minutes are
// the whole part of the fraction times 60, seconds the rest times 60 (0.8566 * 60 = 51.396,
// 0.396 * 60 = 23.76), written with 1 to 3 decimals.
struct Place {
    const char* label;
    const char* typed; // into the Decimal Degrees field, latitude first
    double lat;        // degrees
    double lon;        // degrees
    const char* latDD;
    const char* lonDD;
    const char* latDMS;
    const char* lonDMS;
    const char* zone;    // negative south of the equator
    const char* ddField; // the Decimal Degrees field when the row is brought to the form
};

const Place places[] = {
    {"Sydney", "-33.5 151.25", -33.5, 151.25, "-33.50", "151.25", "33° 30' 0.0\" S",
     "151° 15' 0.0\" E", "-56", "-33.50, 151.25"},
    {"Paris", "48.8566 2.3522", 48.8566, 2.3522, "48.8566", "2.3522", "48° 51' 23.76\" N",
     "2° 21' 7.92\" E", "31", "48.8566, 2.3522"},
    {"Panama", "8.9824 -79.5199", 8.9824, -79.5199, "8.9824", "-79.5199", "8° 58' 56.64\" N",
     "79° 31' 11.64\" W", "17", "8.9824, -79.5199"},
};
constexpr int placeCount = int(std::size(places));

int placeIndex(const QString& label) {
    for (int i = 0; i < placeCount; ++i)
        if (label == QString::fromUtf8(places[i].label))
            return i;
    return -1;
}

struct Utm {
    int zone = 0;
    bool north = true;
    double easting = 0;  // metres
    double northing = 0; // metres, 10000000 added south of the equator
};

// The reference projection, written by others than this program's authors.
Utm referenceUtm(const Place& p) {
    Utm u;
    GeographicLib::UTMUPS::Forward(p.lat, p.lon, u.zone, u.north, u.easting, u.northing);
    return u;
}

// A UTM metres cell: "######0.0#" (one or two decimals, a second decimal only when not 0),
// then the letter.
double utmCellMetres(const QString& cell, const QString& letter, bool* ok) {
    const QRegularExpression shape(QStringLiteral("^(\\d+\\.\\d[1-9]?) %1$").arg(letter));
    const QRegularExpressionMatch m = shape.match(cell);
    *ok = m.hasMatch();
    return *ok ? m.captured(1).toDouble() : 0;
}

QStringList labels(std::initializer_list<int> order) {
    QStringList result;
    for (int i : order)
        result << QString::fromUtf8(places[i].label);
    return result;
}

QStringList reversed(QStringList list) {
    std::reverse(list.begin(), list.end());
    return list;
}

enum : int { sydney = 0, paris = 1, panama = 2 };

} // namespace

class BatchTableWidgetTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindow> window;

    BatchTableView* view() const { return window->batchListbox(); }
    QAbstractItemModel* model() const { return view()->model(); }
    MainMenuBar* menuBar() const { return window->mainMenuBar(); }
    QAction* item(const char* name) const { return menuBar()->action(QLatin1String(name)); }
    Window1& controller() const { return window->controller(); }

    QString cell(int displayRow, int column) const {
        return model()->index(displayRow, column).data(Qt::DisplayRole).toString();
    }
    Qt::CheckState tick(int displayRow) const {
        return Qt::CheckState(model()->index(displayRow, 0).data(Qt::CheckStateRole).toInt());
    }
    QStringList labelsTopToBottom() const {
        QStringList result;
        for (int row = 0; row < model()->rowCount(); ++row)
            result << cell(row, 1);
        return result;
    }

    void showPage(int page) {
        QTabBar* bar = window->tabPanel()->findChild<QTabBar*>();
        QVERIFY(bar);
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
        QCOMPARE(window->tabPanel()->currentIndex(), page);
        QApplication::processEvents();
    }

    void clickCell(int displayRow, int column, Qt::KeyboardModifiers modifiers = {}) {
        const QRect place = view()->visualRect(model()->index(displayRow, column));
        QVERIFY(!place.isEmpty());
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, place.center());
        QApplication::processEvents();
    }

    // The centre of a row's tick box, where the view's style puts it in the "#" cell.
    QPoint tickBoxCentre(int displayRow) const {
        const QModelIndex index = model()->index(displayRow, 0);
        QStyleOptionViewItem option;
        option.initFrom(view()->viewport());
        option.rect = view()->visualRect(index);
        option.features =
            QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        option.checkState = tick(displayRow);
        option.text = index.data().toString();
        option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
        option.decorationPosition = QStyleOptionViewItem::Left;
        option.font = view()->font();
        option.fontMetrics = QFontMetrics(option.font);
        option.index = index;
        option.widget = view();
        return view()
            ->style()
            ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view())
            .center();
    }

    void clickTickBox(int displayRow) {
        const QPoint centre = tickBoxCentre(displayRow);
        QVERIFY(view()->visualRect(model()->index(displayRow, 0)).contains(centre));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, centre);
        QApplication::processEvents();
    }

    void clickHeader(int column) {
        QHeaderView* header = view()->horizontalHeader();
        const QPoint centre(header->sectionViewportPosition(column) +
                                header->sectionSize(column) / 2,
                            header->viewport()->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, centre);
        QApplication::processEvents();
    }

    // File > New Location by its shortcut, the position typed and read with Return, a label
    // typed, and "Record Entry".
    void recordByTyping(const Place& p) {
        QCOMPARE(item("FileNewLocation")->shortcut(), QKeySequence(QStringLiteral("Ctrl+N")));
        QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
        QLineEdit* dd = window->textFieldDecDegrees();
        QVERIFY(dd->text().isEmpty());
        QVERIFY(window->textFieldLabel()->text().isEmpty());
        QVERIFY(dd->hasFocus());
        QTest::keyClicks(dd, QString::fromUtf8(p.typed));
        QTest::keyClick(dd, Qt::Key_Return);
        QCOMPARE(dd->text(), QString::fromUtf8(p.ddField));
        QLineEdit* label = window->textFieldLabel();
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(label->hasFocus());
        QTest::keyClicks(label, QString::fromUtf8(p.label));
        QCOMPARE(window->searchButton()->text(), QStringLiteral("Record Entry"));
        const std::size_t before = controller().locations.size();
        QTest::mouseClick(window->searchButton(), Qt::LeftButton);
        QCOMPARE(controller().locations.size(), before + 1);
        QCOMPARE(controller().locations.back()->label, QString::fromUtf8(p.label));
    }

    // Opens a format button's menu with a click, as a user does, and runs inMenu once the
    // menu is up. The menu runs its own event loop, so inMenu is called from a timer; whatever
    // it leaves open is closed after it, so a failed choice cannot hang the test. Both timers
    // die with this call, so none of them reaches a menu opened later.
    void withMenuOpen(FormatPopupButton* button, const std::function<void(QMenu*)>& inMenu) {
        QMenu* menu = button->popupMenu();
        QTimer closer;
        closer.setSingleShot(true);
        connect(&closer, &QTimer::timeout, menu, [menu] {
            for (QMenu* m : menu->findChildren<QMenu*>())
                m->close();
            menu->close();
        });
        bool ran = false;
        int tries = 0;
        QTimer poller;
        poller.setInterval(10);
        connect(&poller, &QTimer::timeout, menu, [&] {
            if (!menu->isVisible() && ++tries < 200)
                return;
            poller.stop();
            ran = true;
            if (menu->isVisible())
                inMenu(menu);
            closer.start(2000);
        });
        poller.start();
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(ran, 5000);
        QTRY_VERIFY_WITH_TIMEOUT(!menu->isVisible(), 5000);
        QApplication::processEvents();
    }

    static QAction* actionWithText(QMenu* menu, const QString& text) {
        for (QAction* a : menu->actions())
            if (a->text() == text)
                return a;
        return nullptr;
    }

    // Chooses the entry at that path of texts in a button's real menu by mouse clicks; a
    // submenu is opened by clicking its entry and waiting for it to show.
    void chooseFromMenu(FormatPopupButton* button, const QStringList& path) {
        bool chosen = false;
        withMenuOpen(button, [&](QMenu* top) {
            std::function<void(QMenu*, int)> clickIn = [&](QMenu* menu, int depth) {
                QAction* entry = actionWithText(menu, path[depth]);
                if (!entry)
                    return;
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
                if (depth + 1 == path.size()) {
                    chosen = !entry->menu();
                    return;
                }
                QMenu* sub = entry->menu();
                if (sub && QTest::qWaitFor([sub] { return sub->isVisible(); }, 2000))
                    clickIn(sub, depth + 1);
            };
            clickIn(top, 0);
        });
        QVERIFY2(chosen, qPrintable(path.join(QLatin1String(" > "))));
    }

    // The check marks the button's real menu shows when opened, by entry text (submenus
    // included).
    QHash<QString, bool> marksShown(FormatPopupButton* button) {
        QHash<QString, bool> marks;
        withMenuOpen(button, [&](QMenu* top) {
            std::function<void(QMenu*)> read = [&](QMenu* menu) {
                for (QAction* a : menu->actions()) {
                    if (a->menu())
                        read(a->menu());
                    else
                        marks.insert(a->text(), a->isChecked());
                }
            };
            read(top);
            top->close();
        });
        return marks;
    }

    static bool entryMarked(FormatPopupButton* button, const QStringList& path) {
        PopupMenuItem* entry = &button->menu();
        for (const QString& text : path)
            if (!(entry = entry->child(text)))
                return false;
        return entry->HasCheckMark;
    }

private slots:
    void init() {
        window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QApplication::processEvents();
        for (const Place& p : places) {
            recordByTyping(p);
            if (QTest::currentTestFailed())
                return;
        }
        showPage(1);
    }
    void cleanup() { window.reset(); }

    void cellsUnderTheStartSettings() {
        QCOMPARE(model()->rowCount(), placeCount);
        QCOMPARE(model()->columnCount(), 9);
        const QStringList headers = {"#",       "Label", "Lat DD", "Lon DD",  "Lat DMS",
                                     "Lon DMS", "UTM E", "UTM N",  "UTM Zone"};
        for (int column = 0; column < headers.size(); ++column)
            QCOMPARE(model()->headerData(column, Qt::Horizontal).toString(), headers[column]);

        for (int row = 0; row < placeCount; ++row) {
            const Place& p = places[row];
            const QString where = QStringLiteral("row of %1").arg(QString::fromUtf8(p.label));
            QVERIFY2(cell(row, 0) == QString::number(row + 1), qPrintable(where));
            QVERIFY2(tick(row) == Qt::Checked, qPrintable(where));
            QCOMPARE(cell(row, 1), QString::fromUtf8(p.label));
            QCOMPARE(cell(row, 2), QString::fromUtf8(p.latDD));
            QCOMPARE(cell(row, 3), QString::fromUtf8(p.lonDD));
            QCOMPARE(cell(row, 4), QString::fromUtf8(p.latDMS));
            QCOMPARE(cell(row, 5), QString::fromUtf8(p.lonDMS));
            QCOMPARE(cell(row, 8), QString::fromUtf8(p.zone));

            const Utm ref = referenceUtm(p);
            QCOMPARE(cell(row, 8).toInt(), p.lat < 0 ? -ref.zone : ref.zone);
            bool ok = false;
            const double easting = utmCellMetres(cell(row, 6), QStringLiteral("E"), &ok);
            QVERIFY2(ok, qPrintable(where + QLatin1String(": ") + cell(row, 6)));
            QVERIFY2(qAbs(easting - ref.easting) <= 0.01,
                     qPrintable(QStringLiteral("%1: easting %2, reference %3")
                                    .arg(where)
                                    .arg(easting, 0, 'f', 3)
                                    .arg(ref.easting, 0, 'f', 3)));
            const double northing = utmCellMetres(cell(row, 7), QStringLiteral("N"), &ok);
            QVERIFY2(ok, qPrintable(where + QLatin1String(": ") + cell(row, 7)));
            QVERIFY2(qAbs(northing - ref.northing) <= 0.01,
                     qPrintable(QStringLiteral("%1: northing %2, reference %3")
                                    .arg(where)
                                    .arg(northing, 0, 'f', 3)
                                    .arg(ref.northing, 0, 'f', 3)));
        }
    }

    void tickBoxFollowsClicksBothWays() {
        for (int row = 0; row < placeCount; ++row)
            QVERIFY(controller().locations[std::size_t(row)]->checked);

        clickTickBox(1);
        QCOMPARE(tick(1), Qt::Unchecked);
        QVERIFY(!controller().locations[paris]->checked);
        QVERIFY(controller().locations[sydney]->checked);
        QVERIFY(controller().locations[panama]->checked);

        clickTickBox(1);
        QCOMPARE(tick(1), Qt::Checked);
        QVERIFY(controller().locations[paris]->checked);

        // A click on the row away from the box leaves the tick alone.
        clickCell(1, 1);
        QCOMPARE(tick(1), Qt::Checked);
        QVERIFY(controller().locations[paris]->checked);

        // Sorted by latitude, Panama (the third in the list) is no longer the third row on
        // screen: its tick is found by its label.
        clickHeader(2);
        const int panamaRow = labelsTopToBottom().indexOf(QStringLiteral("Panama"));
        QVERIFY(panamaRow >= 0 && panamaRow != panama);
        clickTickBox(panamaRow);
        QCOMPARE(tick(panamaRow), Qt::Unchecked);
        QVERIFY(!controller().locations[panama]->checked);
        QVERIFY(controller().locations[paris]->checked);
        QVERIFY(controller().locations[sydney]->checked);
    }

    void selectionFollowsClickAndControlClick() {
        QMenu* edit = menuBar()->findChild<QMenu*>(QStringLiteral("EditMenu"));
        QVERIFY(edit);
        const auto removeCaptionWhenEditOpens = [&] {
            const QRect title = menuBar()->actionGeometry(edit->menuAction());
            QTest::mouseClick(menuBar(), Qt::LeftButton, {}, title.center());
            const bool opened = edit->isVisible();
            const QString caption = item("EditRemoveLocations")->text();
            edit->close();
            QApplication::processEvents();
            return opened ? caption : QStringLiteral("(the Edit menu did not open)");
        };

        // Opening the page selects the row of the location on show: the last one recorded.
        QVERIFY(controller().locations[panama]->selected);

        clickCell(0, 1);
        QVERIFY(controller().locations[sydney]->selected);
        QVERIFY(!controller().locations[paris]->selected);
        QVERIFY(!controller().locations[panama]->selected);
        QCOMPARE(removeCaptionWhenEditOpens(), QStringLiteral("Remove Location"));

        clickCell(2, 1, Qt::ControlModifier);
        QVERIFY(controller().locations[sydney]->selected);
        QVERIFY(!controller().locations[paris]->selected);
        QVERIFY(controller().locations[panama]->selected);
        QCOMPARE(removeCaptionWhenEditOpens(), QStringLiteral("Remove Locations"));

        // A second Ctrl+click takes the row out again.
        clickCell(2, 1, Qt::ControlModifier);
        QVERIFY(controller().locations[sydney]->selected);
        QVERIFY(!controller().locations[panama]->selected);
        QCOMPARE(removeCaptionWhenEditOpens(), QStringLiteral("Remove Location"));

        // Two rows selected, but the table is not on show.
        clickCell(2, 1, Qt::ControlModifier);
        QVERIFY(controller().locations[panama]->selected);
        showPage(0);
        QCOMPARE(removeCaptionWhenEditOpens(), QStringLiteral("Remove Location"));

        // Back on the table, only the row of the location on show (the last clicked) is
        // selected.
        showPage(1);
        QCOMPARE(controller().selectedLoc, std::int64_t(panama));
        QVERIFY(!controller().locations[sydney]->selected);
        QVERIFY(controller().locations[panama]->selected);
        QCOMPARE(removeCaptionWhenEditOpens(), QStringLiteral("Remove Location"));
    }

    void headerClicksSortEachColumn_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QStringList>("ascending"); // empty: the order on screen stays

        // The reference projection decides the order of the UTM metres.
        const auto byReference = [](double Utm::*metres) {
            std::vector<int> order = {sydney, paris, panama};
            std::sort(order.begin(), order.end(), [metres](int a, int b) {
                return referenceUtm(places[a]).*metres < referenceUtm(places[b]).*metres;
            });
            QStringList result;
            for (int i : order)
                result << QString::fromUtf8(places[i].label);
            return result;
        };

        QTest::newRow("# by place number") << 0 << labels({sydney, paris, panama});
        // Labels read as numbers all come to 0, and a tie keeps the order on screen.
        QTest::newRow("Label, no number at its head") << 1 << QStringList();
        // As text "48.8566" would come before "8.9824".
        QTest::newRow("Lat DD by number") << 2 << labels({sydney, panama, paris});
        // "-79.5199" < "151.25" < "2.3522" character by character.
        QTest::newRow("Lon DD as text") << 3 << labels({panama, sydney, paris});
        // "33°" < "48°" < "8°" character by character; by number 8 would come first.
        QTest::newRow("Lat DMS as text") << 4 << labels({sydney, paris, panama});
        // By the degrees at the head: 2, 79, 151; as text "151" would come first.
        QTest::newRow("Lon DMS by number") << 5 << labels({paris, panama, sydney});
        QTest::newRow("UTM E by number") << 6 << byReference(&Utm::easting);
        // Panama's six-digit northing comes first by number, last as text.
        QTest::newRow("UTM N by number") << 7 << byReference(&Utm::northing);
        QTest::newRow("UTM Zone by number") << 8 << labels({sydney, panama, paris});
    }
    void headerClicksSortEachColumn() {
        QFETCH(int, column);
        QFETCH(QStringList, ascending);
        // Start from an order unlike any column's ascending one but column 5's, so that a
        // sort that does nothing shows.
        clickHeader(2);
        clickHeader(2);
        const QStringList before = labelsTopToBottom();
        QCOMPARE(before, labels({paris, panama, sydney}));
        const bool ordered = !ascending.isEmpty();

        clickHeader(column);
        QCOMPARE(view()->horizontalHeader()->sortIndicatorSection(), column);
        // The first click on a header sorts ascending (a regression: it once sorted descending).
        QCOMPARE(labelsTopToBottom(), ordered ? ascending : before);
        clickHeader(column);
        QCOMPARE(labelsTopToBottom(), ordered ? reversed(ascending) : before);
        clickHeader(column);
        QCOMPARE(labelsTopToBottom(), ordered ? ascending : before);

        // Each row's cells still belong to one record: its place number and its latitude.
        for (int row = 0; row < placeCount; ++row) {
            const int i = placeIndex(cell(row, 1));
            QVERIFY(i >= 0);
            QCOMPARE(cell(row, 0), QString::number(i + 1));
            QCOMPARE(cell(row, 2), QString::fromUtf8(places[i].latDD));
        }
    }

    void clickOnASortedRowShowsThatLocation_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("headerClicks");
        // Each of these orders, either way round, puts the rows out of the list's order.
        QTest::newRow("Lat DD, one click") << 2 << 1;
        QTest::newRow("Lon DD, one click") << 3 << 1;
        QTest::newRow("Lon DMS, two clicks") << 5 << 2;
        QTest::newRow("UTM Zone, two clicks") << 8 << 2;
    }
    void clickOnASortedRowShowsThatLocation() {
        QFETCH(int, column);
        QFETCH(int, headerClicks);
        for (int i = 0; i < headerClicks; ++i)
            clickHeader(column);
        const QStringList shown = labelsTopToBottom();
        QVERIFY(shown != labels({sydney, paris, panama}));
        for (int row = 0; row < placeCount; ++row) {
            const int place = placeIndex(shown[row]);
            QVERIFY(place >= 0);
            const Place& p = places[place];
            clickCell(row, 1);
            QCOMPARE(controller().selectedLoc, std::int64_t(place));
            QCOMPARE(window->textFieldLabel()->text(), QString::fromUtf8(p.label));
            QCOMPARE(window->textFieldDecDegrees()->text(), QString::fromUtf8(p.ddField));
            QVERIFY(controller().theLocation);
            QCOMPARE(controller().theLocation->lat, p.lat);
            QCOMPARE(controller().theLocation->lon, p.lon);
            // The row clicked is the one selected, and the only one.
            QVERIFY(controller().locations[std::size_t(place)]->selected);
            QCOMPARE(view()->table()->selectedRowCount(), 1);
            // The click neither re-sorted nor rebuilt the table.
            QCOMPARE(labelsTopToBottom(), shown);
        }
    }

    void formatsFromMenuBarAndButtons() {
        FormatPopupButton* ddButton = window->bevelButtonFormatDD();
        FormatPopupButton* dmsButton = window->bevelButtonFormatDMS();
        const QString hemiEntry = QStringLiteral("Show Hemisphere Letter");
        const QString degreeEntry = QStringLiteral("Show ° Symbol");
        QLineEdit* ddField = window->textFieldDecDegrees();
        QLineEdit* dmsField = window->textFieldDMS();
        // The fields are written from the window's own latitude and longitude: the last
        // position typed, Panama's.
        QCOMPARE(controller().lat, places[panama].lat);
        QCOMPARE(controller().lon, places[panama].lon);

        // Hemisphere letters from the menu bar: the sign goes, a letter follows a blank.
        QVERIFY(!item("FormatShowDDHemiLet")->isChecked());
        item("FormatShowDDHemiLet")->trigger();
        QVERIFY(item("FormatShowDDHemiLet")->isChecked());
        QVERIFY(entryMarked(ddButton, {hemiEntry}));
        QCOMPARE(cell(sydney, 2), QStringLiteral("33.50 S"));
        QCOMPARE(cell(sydney, 3), QStringLiteral("151.25 E"));
        QCOMPARE(cell(paris, 2), QStringLiteral("48.8566 N"));
        QCOMPARE(cell(panama, 3), QStringLiteral("79.5199 W"));
        QCOMPARE(ddField->text(), QStringLiteral("8.9824 N, 79.5199 W"));

        // The degree sign from the menu bar: it goes between the number and the letter.
        item("FormatShowDegree")->trigger();
        QVERIFY(item("FormatShowDegree")->isChecked());
        QCOMPARE(cell(sydney, 2), QStringLiteral("33.50° S"));
        QCOMPARE(cell(panama, 3), QStringLiteral("79.5199° W"));
        QCOMPARE(ddField->text(), QStringLiteral("8.9824°N, 79.5199°W"));

        showPage(0);
        // The button's menu, opened by a user, shows both marks the menu bar set.
        const QHash<QString, bool> ddMarks = marksShown(ddButton);
        QCOMPARE(ddMarks.value(hemiEntry), true);
        QCOMPARE(ddMarks.value(degreeEntry), true);
        QCOMPARE(ddMarks.value(QStringLiteral("Comma")), true);
        QCOMPARE(ddMarks.value(QStringLiteral("Space")), true);
        QCOMPARE(ddMarks.value(QStringLiteral("Tab"), true), false);

        // Letters off from the button: the menu bar's mark follows, the sign comes back.
        chooseFromMenu(ddButton, {hemiEntry});
        QVERIFY(!entryMarked(ddButton, {hemiEntry}));
        QVERIFY(!item("FormatShowDDHemiLet")->isChecked());
        QVERIFY(item("FormatShowDegree")->isChecked());
        QCOMPARE(cell(sydney, 2), QStringLiteral("-33.50°"));
        QCOMPARE(cell(panama, 3), QStringLiteral("-79.5199°"));
        QCOMPARE(ddField->text(), QStringLiteral("8.9824°, -79.5199°"));

        // DMS letters off from the button: a minus sign for the south and west, the seconds
        // as the shortest text of the double.
        QVERIFY(item("FormatShowDMShemiLet")->isChecked());
        chooseFromMenu(dmsButton, {hemiEntry});
        QVERIFY(!item("FormatShowDMShemiLet")->isChecked());
        QVERIFY(!entryMarked(dmsButton, {hemiEntry}));
        QCOMPARE(cell(sydney, 4), QStringLiteral("-33° 30' 0\""));
        QCOMPARE(cell(sydney, 5), QStringLiteral("151° 15' 0\""));
        // Seconds with a fraction come out of binary arithmetic: their shape and value.
        const QRegularExpression secondsAtEnd(QStringLiteral("^(-?\\d+)° (\\d+)' ([0-9.e-]+)\"$"));
        const struct {
            int row, column;
            const char* degrees;
            const char* minutes;
            double seconds;
        } fractional[] = {{paris, 4, "48", "51", 23.76},
                          {paris, 5, "2", "21", 7.92},
                          {panama, 4, "8", "58", 56.64},
                          {panama, 5, "-79", "31", 11.64}};
        for (const auto& f : fractional) {
            const QRegularExpressionMatch m = secondsAtEnd.match(cell(f.row, f.column));
            QVERIFY2(m.hasMatch(), qPrintable(cell(f.row, f.column)));
            QCOMPARE(m.captured(1), QString::fromLatin1(f.degrees));
            QCOMPARE(m.captured(2), QString::fromLatin1(f.minutes));
            QVERIFY2(qAbs(m.captured(3).toDouble() - f.seconds) < 1e-6,
                     qPrintable(cell(f.row, f.column)));
        }
        QCOMPARE(dmsField->text(), QStringLiteral("8° 58' 56.64\", -79° 31' 11.64\""));

        // And on again from the menu bar: the button's entry is marked again.
        item("FormatShowDMShemiLet")->trigger();
        QVERIFY(item("FormatShowDMShemiLet")->isChecked());
        QVERIFY(entryMarked(dmsButton, {hemiEntry}));
        QCOMPARE(marksShown(dmsButton).value(hemiEntry), true);
        QCOMPARE(cell(sydney, 4), QString::fromUtf8(places[sydney].latDMS));
        QCOMPARE(cell(panama, 5), QString::fromUtf8(places[panama].lonDMS));
        QCOMPARE(dmsField->text(), QStringLiteral("8° 58' 56.64\"N, 79° 31' 11.64\"W"));
    }

    void tabSeparatorFromTheButtonsSubmenu() {
        FormatPopupButton* ddButton = window->bevelButtonFormatDD();
        showPage(0);
        QVERIFY(item("SeparatorComma")->isChecked());
        QVERIFY(item("SeparatorSpace")->isChecked());
        chooseFromMenu(ddButton, {QStringLiteral("Separator"), QStringLiteral("Tab")});
        QCOMPARE(window->textFieldDecDegrees()->text(), QStringLiteral("8.9824\t-79.5199"));
        QVERIFY(item("SeparatorTab")->isChecked());
        QVERIFY(!item("SeparatorComma")->isChecked());
        QVERIFY(!item("SeparatorSpace")->isChecked());
        const QHash<QString, bool> marks = marksShown(ddButton);
        QCOMPARE(marks.value(QStringLiteral("Tab")), true);
        QCOMPARE(marks.value(QStringLiteral("Comma"), true), false);
        QCOMPARE(marks.value(QStringLiteral("Space"), true), false);
        // The table shows no separator: its cells stay as they were.
        QCOMPARE(cell(panama, 2), QString::fromUtf8(places[panama].latDD));

        // Comma from the menu bar ends the tab in the field and in the button's menu.
        item("SeparatorComma")->trigger();
        QCOMPARE(window->textFieldDecDegrees()->text(), QStringLiteral("8.9824,-79.5199"));
        QVERIFY(!item("SeparatorTab")->isChecked());
        QVERIFY(!entryMarked(ddButton, {QStringLiteral("Separator"), QStringLiteral("Tab")}));
        QVERIFY(entryMarked(ddButton, {QStringLiteral("Separator"), QStringLiteral("Comma")}));
    }

    void screenshotOfTheTable() {
        QCOMPARE(window->tabPanel()->currentIndex(), 1);
        QCOMPARE(model()->rowCount(), placeCount);
        QTest::qWait(0);
        QDir().mkpath(GEOQUILL_SCREENSHOT_DIR);
        const QPixmap shot = window->grab();
        QVERIFY(!shot.isNull());
        QVERIFY(shot.save(GEOQUILL_SCREENSHOT_DIR "/batchtable-three-locations.png"));
    }
};

int main(int argc, char** argv) {
    QLocale::setDefault(QLocale::c());
    QApplication app(argc, argv);
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    BatchTableWidgetTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "BatchTableWidgetTest.moc"
