// The table of recorded locations on page 1 of the real window, driven as a user drives it:
// locations typed into the Decimal Degrees field and recorded, then the table's tick boxes,
// selection, header sorting and row clicks, and the Format menu and pop-up buttons rewriting
// the cells. The cells' texts and the order of a sort are the controller's rules, pinned in
// tests/locationbook; here the clicks, menus and the view's order on screen.
//
// The three locations lie north and south, east and west: a sort by latitude puts them out of
// the order they were recorded in.

#include "coordinates/LatLon_UTM.h"
#include "locationbook/BatchTable.h"
#include "locationbook/Window1.h"
#include "shell/BatchTableView.h"
#include "shell/FormatPopupButton.h"
#include "shell/MainMenuBar.h"
#include "shell/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
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

// One location as typed, and the texts its row shows under the start settings.
struct Place {
    const char* label;
    const char* typed;   // into the Decimal Degrees field, latitude first
    const char* ddField; // the Decimal Degrees field when the row is brought to the form
};

const Place places[] = {
    {"Sydney", "-33.5 151.25", "-33.50, 151.25"},
    {"Paris", "48.8566 2.3522", "48.8566, 2.3522"},
    {"Panama", "8.9824 -79.5199", "8.9824, -79.5199"},
};
constexpr int placeCount = int(std::size(places));

int placeIndex(const QString& label) {
    for (int i = 0; i < placeCount; ++i)
        if (label == QString::fromUtf8(places[i].label))
            return i;
    return -1;
}

QStringList labels(std::initializer_list<int> order) {
    QStringList result;
    for (int i : order)
        result << QString::fromUtf8(places[i].label);
    return result;
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
    }

    void headerClicksSort_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QStringList>("ascending"); // empty: the order on screen stays
        // As text "48.8566" would come before "8.9824".
        QTest::newRow("Lat DD by number") << 2 << labels({sydney, panama, paris});
        // Labels read as numbers all come to 0, and a tie keeps the order on screen.
        QTest::newRow("Label, no number at its head") << 1 << QStringList();
    }
    void headerClicksSort() {
        QFETCH(int, column);
        QFETCH(QStringList, ascending);
        // Start from an order unlike the ascending one, so that a sort that does nothing shows.
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
        QStringList descending = ascending;
        std::reverse(descending.begin(), descending.end());
        QCOMPARE(labelsTopToBottom(), ordered ? descending : before);
    }

    void clickOnASortedRowShowsThatLocation() {
        clickHeader(2); // by latitude: Sydney, Panama, Paris
        const QStringList shown = labelsTopToBottom();
        QCOMPARE(shown, labels({sydney, panama, paris}));
        for (int row = 0; row < placeCount; ++row) {
            const int place = placeIndex(shown[row]);
            clickCell(row, 1);
            QCOMPARE(controller().selectedLoc, std::int64_t(place));
            QCOMPARE(window->textFieldLabel()->text(), QString::fromUtf8(places[place].label));
            QCOMPARE(window->textFieldDecDegrees()->text(),
                     QString::fromUtf8(places[place].ddField));
            // The row clicked is the one selected, and the only one.
            QVERIFY(controller().locations[std::size_t(place)]->selected);
            QCOMPARE(view()->table()->selectedRowCount(), 1);
            // The click neither re-sorted nor rebuilt the table.
            QCOMPARE(labelsTopToBottom(), shown);
        }
    }

    void formatsFromMenuBarAndButtons() {
        FormatPopupButton* ddButton = window->bevelButtonFormatDD();
        const QString hemiEntry = QStringLiteral("Show Hemisphere Letter");
        // Hemisphere letters from the menu bar: the table on screen is rewritten.
        QVERIFY(!item("FormatShowDDHemiLet")->isChecked());
        item("FormatShowDDHemiLet")->trigger();
        QCOMPARE(cell(sydney, 2), QStringLiteral("33.50 S"));

        showPage(0);
        // The button's menu, opened by a user, shows the marks the menu bar set.
        QHash<QString, bool> marks = marksShown(ddButton);
        QCOMPARE(marks.value(hemiEntry), true);
        QCOMPARE(marks.value(QStringLiteral("Comma")), true);
        QCOMPARE(marks.value(QStringLiteral("Tab"), true), false);

        // Letters off from the button: the menu bar's mark, the field and the table follow.
        chooseFromMenu(ddButton, {hemiEntry});
        QVERIFY(!item("FormatShowDDHemiLet")->isChecked());
        QCOMPARE(window->textFieldDecDegrees()->text(), QString::fromUtf8(places[panama].ddField));
        QCOMPARE(cell(sydney, 2), QStringLiteral("-33.50"));

        // Tab from the button's submenu: the field and the menu bar's marks follow.
        chooseFromMenu(ddButton, {QStringLiteral("Separator"), QStringLiteral("Tab")});
        QCOMPARE(window->textFieldDecDegrees()->text(), QStringLiteral("8.9824\t-79.5199"));
        QVERIFY(item("SeparatorTab")->isChecked());
        QVERIFY(!item("SeparatorComma")->isChecked());
        marks = marksShown(ddButton);
        QCOMPARE(marks.value(QStringLiteral("Tab")), true);
        QCOMPARE(marks.value(QStringLiteral("Comma"), true), false);
    }

    void screenshotOfTheTable() {
        QCOMPARE(window->tabPanel()->currentIndex(), 1);
        QCOMPARE(model()->rowCount(), placeCount);
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
