#include "AboutWindow.h"

#include "LockedLayout.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

AboutWindow::AboutWindow(const QPixmap& mapIcon, QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
    setObjectName(QStringLiteral("AboutWindow"));
    setWindowTitle(QStringLiteral("About Geoquill"));
    setFixedSize(262, 300);
    // Fixed size: the places are those of the design, and the locks never come into play.
    constexpr int L = LockedLayout::Left, T = LockedLayout::Top, R = LockedLayout::Right,
                  B = LockedLayout::Bottom;
    LockedLayout layout(this, size());
    const auto centred = [this](const char* name, const QString& text) {
        auto* label = new QLabel(text, this);
        label->setObjectName(QString::fromLatin1(name));
        label->setAlignment(Qt::AlignCenter);
        return label;
    };
    QLabel* Label1 = centred("Label1", QStringLiteral("Geoquill"));
    QFont bold = Label1->font();
    bold.setBold(true);
    Label1->setFont(bold);
    layout.add(Label1, QRect(20, 20, 222, 20), L | T | R);
    QLabel* Label2 = centred("Label2", QStringLiteral("Made with Qt, Marble and GeographicLib"));
    layout.add(Label2, QRect(20, 228, 222, 20), L | R | B);
    auto* ImageWell1 = new QLabel(this);
    ImageWell1->setObjectName(QStringLiteral("ImageWell1"));
    ImageWell1->setAlignment(Qt::AlignCenter);
    ImageWell1->setPixmap(mapIcon);
    ImageWell1->setAccessibleName(QStringLiteral("Geoquill"));
    layout.add(ImageWell1, QRect(67, 62, 128, 114), L | T | R | B);
    Label3 = centred("Label3", QString());
    layout.add(Label3, QRect(20, 196, 222, 20), L | R | B);
    auto* PushButton1 = new QPushButton(QStringLiteral("OK"), this);
    PushButton1->setObjectName(QStringLiteral("PushButton1"));
    PushButton1->setDefault(true);
    layout.add(PushButton1, QRect(91, 260, 80, 20), L | B);
    layout.apply();
    connect(PushButton1, &QPushButton::clicked, this, &AboutWindow::PushButton1_Action);
    // Closed is gone: the next About makes a new one.
    setAttribute(Qt::WA_DeleteOnClose);
}

void AboutWindow::Event_Open() {
    Label3->setText(QStringLiteral("v. ") + QCoreApplication::applicationVersion());
}

void AboutWindow::PushButton1_Action() {
    close();
}
