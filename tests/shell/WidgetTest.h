#pragma once
// What the widget tests share: the real window as a user finds it, the ways of reaching it that
// Qt Test lacks, and a web server on this machine standing in for tile servers and Nominatim.

#include "coordinates/LatLon_UTM.h"
#include "locationbook/Window1.h"
#include "shell/MainMenuBar.h"
#include "shell/MainWindow.h"

#include <QtNetwork>
#include <QtTest>
#include <QtWidgets>

#include <memory>

// The window as it opens, shown and active; null if it never became active.
inline std::unique_ptr<MainWindow> openWindow() {
    auto window = std::make_unique<MainWindow>();
    window->show();
    window->activateWindow();
    return QTest::qWaitForWindowActive(window.get()) ? std::move(window) : nullptr;
}

inline void typeAndReturn(QLineEdit* field, const QString& text) {
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

inline void sendMouse(QWidget* to, QEvent::Type type, QPoint at, Qt::MouseButton button,
                      Qt::MouseButtons held) {
    QMouseEvent event(type, at, to->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(to, &event);
}

inline bool near(MapCoordinate a, MapCoordinate b, double degrees) {
    return qAbs(a.latitude - b.latitude) < degrees && qAbs(a.longitude - b.longitude) < degrees;
}

inline void chooseMenuItem(MainWindow& window, const char* name) {
    window.mainMenuBar()->action(QLatin1String(name))->trigger();
}

// Chooses an entry of the next pop-up menu (which runs its own event loop) by the keyboard, through
// submenus by caption; markShown gets its check mark. A caption not there closes the menus.
inline void chooseInNextMenu(QStringList path, bool* markShown = nullptr) {
    auto* poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, poll, [=, opened = QPointer<QMenu>()]() mutable {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu || menu == opened)
            return; // not up yet
        QAction* entry = nullptr;
        for (QAction* action : menu->actions())
            entry = action->text() == path.first() ? action : entry;
        if (!entry || path.size() == 1)
            poll->deleteLater();
        while (!entry && QApplication::activePopupWidget())
            QApplication::activePopupWidget()->close();
        if (!entry)
            return;
        if (markShown)
            *markShown = entry->isChecked();
        menu->setActiveAction(entry);
        opened = menu;
        QTest::keyClick(menu, path.size() == 1 ? Qt::Key_Return : Qt::Key_Right);
        path.removeFirst();
    });
    poll->start(10);
}

// Lets everything queued or timed to run now run: a zero timer started after it fires after it.
// A check that something did not happen comes after this.
inline void letQueuedRun() {
    for (int round = 0; round < 2; ++round) {
        bool reached = false;
        QTimer::singleShot(0, [&reached] { reached = true; });
        QTRY_VERIFY(reached);
    }
}

// Answers every request with the status, type and body it is set to, and keeps each request
// with its arrival (milliseconds since the server started).
class StandInServer : public QTcpServer {
public:
    int status;
    QByteArray body, type = "application/json";
    QList<QPair<QByteArray, qint64>> requests;

    explicit StandInServer(int answer = 200, QByteArray answerBody = {})
        : status(answer), body(std::move(answerBody)) {
        clock.start();
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this,
                    [this, socket, request = QByteArray()]() mutable {
                        if (!(request += socket->readAll()).contains("\r\n\r\n"))
                            return;
                        requests.append({request, clock.elapsed()});
                        socket->write("HTTP/1.1 " + QByteArray::number(status) +
                                      " X\r\nContent-Type: " + type +
                                      "\r\nLocation: http://portal.invalid/\r\nContent-Length: " +
                                      QByteArray::number(body.size()) +
                                      "\r\nConnection: close\r\n\r\n" + body);
                        socket->disconnectFromHost();
                    });
        });
    }
    QUrl address() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(serverPort())); }

private:
    QElapsedTimer clock;
};

// The locale pinned, the default datum made, and no proxy between the tests and their servers.
#define GEOQUILL_WIDGET_TEST_MAIN(TestClass)                                                       \
    int main(int argc, char** argv) {                                                              \
        QLocale::setDefault(QLocale::c());                                                         \
        QApplication app(argc, argv);                                                              \
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);                                \
        LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();                                               \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
