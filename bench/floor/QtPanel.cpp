// SPDX-License-Identifier: MIT
//
// qt_panel [hidden]: a frameless translucent panel with one label, at the place of the overlay in
// the measurements. Hidden, with an item in the status area, when asked to be.
#include <QApplication>
#include <QLabel>
#include <QSystemTrayIcon>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // Block characters: the pixel that is watched lies in one.
    QLabel panel(QString(20, QChar(0x2588)));
    panel.setWindowFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
    panel.setAttribute(Qt::WA_TranslucentBackground);
    panel.setAlignment(Qt::AlignCenter);
    panel.setGeometry(440, 180, 420, 320);

    QSystemTrayIcon item;
    if (application.arguments().contains(QStringLiteral("hidden"))) {
        QPixmap icon(22, 22);
        icon.fill(Qt::black);
        item.setIcon(icon);
        item.show();
    } else {
        panel.show();
    }
    return QApplication::exec();
}
