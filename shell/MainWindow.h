#pragma once
// The main window: its controls at their places, the menu bar, and the controller Window1
// behind them. Every control event goes to the controller's handler of the same name.

#include "LockedLayout.h"
#include "QtControlViews.h"
#include "QtMessageWindow.h"
#include "ReadOutLabelView.h"
#include "files/ImportViews.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class AboutWindow;
class BatchTable;
struct ControlRow;
class BatchTableView;
class FormatPopupButton;
class MainMenuBar;
class MarbleMapView;
class ParseTextDialog;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTimer;
class QtClipboard;
class QtFileDialogs;
class Window1;

class MainWindow : public QMainWindow, public ParseTextWindowOpener {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Replaces an import window still open with a new one, opened over this window and shown.
    ParseTextWindow& showParseTextWindow() override;
    // The import window on screen or still to be deleted; null once it is gone.
    ParseTextDialog* importWindow() const;

    // The About window over this one: the one open, or a new one.
    AboutWindow* showAboutWindow();

    Window1& controller() { return *window1; }
    MainMenuBar* mainMenuBar() const { return menu; }
    QTabWidget* tabPanel() const { return TabPanel1; }
    QLineEdit* textFieldDecDegrees() const { return TextFieldDecDegrees; }
    QLineEdit* textFieldDMS() const { return TextFieldDMS; }
    QLineEdit* textFieldUTM() const { return TextFieldUTM; }
    QLineEdit* textFieldLabel() const { return TextFieldLabel; }
    QLineEdit* addressField() const { return addressTextField; }
    QPushButton* searchButton() const { return SearchButton; }
    QRadioButton* radioButton1() const { return RadioButton1; }
    QRadioButton* radioButton2() const { return RadioButton2; }
    ResourcePictures* pictures() const { return picturesView.get(); }
    BatchTableView* batchListbox() const { return BatchListbox; }
    FormatPopupButton* bevelButtonFormatDD() const { return BevelButtonFormatDD; }
    FormatPopupButton* bevelButtonFormatDMS() const { return BevelButtonFormatDMS; }
    FormatPopupButton* bevelButtonFormatUTM() const { return BevelButtonFormatUTM; }
    MarbleMapView* map() const { return Map; }
    QWidget* rectangle1() const { return Rectangle1; }
    QLabel* labelLatLon() const { return LabelLatLon; }
    // The map-type buttons: ids 0 Standard, 1 Satellite, 2 Hybrid.
    QButtonGroup* segmentedControl1() const { return SegmentedControl1; }
    QtMessageWindow* messageWindow() const { return messageWindowView.get(); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createControls();
    // A control of the table's row, on its parent; the members name the ones the code uses.
    QWidget* makeControl(const ControlRow& row, QWidget* parent);
    void wireEvents();
    void wireMenu();
    void wireMap();

    QWidget* central = nullptr;
    MainMenuBar* menu = nullptr;
    QTabWidget* TabPanel1 = nullptr;
    QLineEdit* TextFieldDecDegrees = nullptr;
    QLineEdit* TextFieldDMS = nullptr;
    QLineEdit* TextFieldUTM = nullptr;
    QLineEdit* TextFieldLabel = nullptr;
    QLineEdit* addressTextField = nullptr;
    QPushButton* SearchButton = nullptr;
    QRadioButton* RadioButton1 = nullptr;
    QRadioButton* RadioButton2 = nullptr;
    QButtonGroup* orderButtons = nullptr;
    FormatPopupButton* BevelButtonFormatDD = nullptr;
    FormatPopupButton* BevelButtonFormatDMS = nullptr;
    FormatPopupButton* BevelButtonFormatUTM = nullptr;
    std::unique_ptr<BatchTable> batchTable; // the rows of BatchListbox
    BatchTableView* BatchListbox = nullptr;
    QWidget* Rectangle1 = nullptr;
    MarbleMapView* Map = nullptr;
    QLabel* LabelLatLon = nullptr;
    QButtonGroup* SegmentedControl1 = nullptr;
    QTimer* TimerUserLocation = nullptr;
    std::unique_ptr<LockedLayout> layout;

    // Views handed to the controller; they point at the widgets above.
    std::unique_ptr<LineEditView> ddView, dmsView, utmView, labelView, addressView;
    std::unique_ptr<QtPushButtonView> searchButtonView;
    std::unique_ptr<QtRadioButtonView> radio1View, radio2View;
    std::unique_ptr<QtTabPanelView> tabView;
    std::unique_ptr<QtMessageBox> messageBoxView;
    std::unique_ptr<QtMessageDialog> messageDialogView;
    std::unique_ptr<QtTimerView> timerView;
    std::unique_ptr<ColourPanelView> rectangleView;
    std::unique_ptr<ReadOutLabelView> labelLatLonView;
    std::unique_ptr<QtWindowFrame> frameView;
    std::unique_ptr<QtMessageWindow> messageWindowView;
    std::unique_ptr<PaletteAppearance> appearanceView;
    std::unique_ptr<ResourcePictures> picturesView;
    std::unique_ptr<QtFileDialogs> fileDialogsView;
    std::unique_ptr<QtClipboard> clipboardView;
    QPointer<ParseTextDialog> importDialog;
    QPointer<AboutWindow> aboutWindow;
    std::unique_ptr<Window1> window1;
};
