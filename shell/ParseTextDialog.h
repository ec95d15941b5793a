#pragma once
// The import window ("Parse Text"): the preview of a delimited text, the notation of its
// columns, the columns chosen in pop-up menus, and OK and Cancel. Application-modal but shown
// without a loop of its own: the window that opened it goes on at once, and the import ends
// later by OK or Cancel. It owns its preview, its views and its controller, and deletes itself
// once closed.

#include "ImportControlViews.h"
#include "LockedLayout.h"
#include "QtControlViews.h"

#include <QDialog>

#include <memory>

class ImportPreview;
class ParseTextWindow;
class QTableView;

class ParseTextDialog : public QDialog {
    Q_OBJECT
public:
    explicit ParseTextDialog(QWidget* parent = nullptr);
    ~ParseTextDialog() override;

    ParseTextWindow& controller() { return *window; }
    QTableView* listbox1() const { return Listbox1; }
    // The progress of a long reading, while it shows.
    QProgressDialog* progressDialog() const { return progressView.dialog(); }
    // Closes the window without asking its controller, as when a new import replaces it.
    void dismiss();

public slots:
    // Escape: Cancel.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createControls();
    QLabel* addLabel(const char* name, const QString& text, QRect place, int locks);
    QComboBox* addPopupMenu(const char* name, QRect place, int locks);
    void createSegments();
    void createListbox();
    void applyColumnWidths();
    void wireEvents();

    std::unique_ptr<ImportPreview> preview;
    std::unique_ptr<LockedLayout> layout;
    QPushButton* PushButton1 = nullptr;
    QPushButton* PushButton2 = nullptr;
    QTableView* Listbox1 = nullptr;
    QButtonGroup* SegmentedButton1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QComboBox* PopupMenuLonEast = nullptr;
    QComboBox* PopupMenuLatNorth = nullptr;
    QComboBox* PopupMenuUTMZ = nullptr;
    QComboBox* PopupMenuLabel = nullptr;
    QLineEdit* TextFieldFirstLine = nullptr;
    QCheckBox* CheckBox1 = nullptr;
    QFont captionFont;           // the labels' common size
    bool closeRequested = false; // the controller closes the window

    // Views handed to the controller; they point at the widgets above.
    std::unique_ptr<ButtonGroupSegmentsView> segmentsView;
    std::unique_ptr<LabelCaptionView> label2View, label3View, label4View;
    std::unique_ptr<ComboBoxMenuView> lonEastView, latNorthView, utmZoneView, labelMenuView;
    std::unique_ptr<LineEditView> firstLineView;
    std::unique_ptr<QtCheckBoxView> appendView;
    std::unique_ptr<QtMessageBox> messageBoxView;
    PaletteAppearance appearanceView;
    QtProgressView progressView{this};
    DialogCloser closer{this, [this] { closeRequested = true; }};
    std::unique_ptr<ParseTextWindow> window;
};
