#include "QtMessageWindow.h"

#include "LockedLayout.h"
#include "MainWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QWidget>

namespace {

// The floating window itself: resizable, its text widening with it and Cancel keeping to the
// bottom left; Escape is Cancel.
class MessageFrame : public QWidget {
public:
    explicit MessageFrame(QWidget* owner)
        : QWidget(owner, Qt::Tool), layout(this, QSize(286, 120)) {}
    LockedLayout layout;
    QPointer<QPushButton> cancel;

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        layout.apply();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape && cancel)
            cancel->click();
        else
            QWidget::keyPressEvent(event);
    }
};

} // namespace

QtMessageWindow::QtMessageWindow(QWidget* owner) : parent(owner) {}

QtMessageWindow::~QtMessageWindow() {
    delete frame.data();
}

QWidget* QtMessageWindow::made() const {
    if (!frame)
        open();
    return frame;
}

void QtMessageWindow::open() const {
    auto* made = new MessageFrame(parent);
    frame = made;
    frame->setObjectName(QStringLiteral("MessageWindow"));
    frame->setWindowTitle(QStringLiteral("Message"));
    frame->resize(286, 120);
    frame->setMinimumSize(64, 64);
    Label1 = new QLabel(frame);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    made->layout.add(Label1, QRect(20, 20, 246, 43),
                     LockedLayout::Left | LockedLayout::Top | LockedLayout::Right);
    PushButton1 = new QPushButton(QStringLiteral("Cancel"), frame);
    PushButton1->setObjectName(QStringLiteral("PushButton1"));
    made->layout.add(PushButton1, QRect(20, 80, 80, 20), LockedLayout::Left | LockedLayout::Bottom);
    made->cancel = PushButton1;
    made->layout.apply();
    auto* self = const_cast<QtMessageWindow*>(this);
    QObject::connect(PushButton1.data(), &QPushButton::clicked, frame.data(),
                     [self] { self->logic.PushButton1_Action(*self); });

    // The windows front to back: the active one first, then the others. Main windows are
    // document windows (frame type 0); every other window floats above them.
    std::vector<DocWindowAndMenu::OpenWindow> frontToBack;
    const auto describe = [](QWidget* w) {
        DocWindowAndMenu::OpenWindow open;
        open.frameType = qobject_cast<QMainWindow*>(w) ? 0 : 1;
        open.visible = w->isVisible();
        if (auto* main = qobject_cast<MainWindow*>(w))
            open.window1 = &main->controller();
        return open;
    };
    QWidget* active = QApplication::activeWindow();
    if (active)
        frontToBack.push_back(describe(active));
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != active && w != frame)
            frontToBack.push_back(describe(w));
    logic.Event_Open(frontToBack);
}

int QtMessageWindow::width() const {
    return made()->frameGeometry().width();
}

void QtMessageWindow::move(int left, int top) {
    made()->move(left, top);
}

void QtMessageWindow::setText(const QString& text) {
    made();
    Label1->setText(text);
}

void QtMessageWindow::show() {
    QWidget* w = made();
    w->show();
    w->raise();
}

void QtMessageWindow::close() {
    // Closed is gone: the next use makes the window anew and looks up its main window again.
    if (!frame)
        return;
    frame->hide();
    frame->deleteLater();
    frame = nullptr;
    Label1 = nullptr;
    PushButton1 = nullptr;
}
