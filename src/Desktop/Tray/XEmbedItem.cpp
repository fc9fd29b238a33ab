// SPDX-License-Identifier: MIT
#include "XEmbedItem.h"

#include "ScreenSpace.h"

#include <QGuiApplication>

namespace sablequill {

XEmbedItem::XEmbedItem(const QString& title, const QIcon& icon)
    : title(title)
    , icon(icon)
{
}

void XEmbedItem::create()
{
    trayIcon = std::make_unique<QSystemTrayIcon>(icon);
    trayIcon->setToolTip(title);
    connect(trayIcon.get(), &QSystemTrayIcon::activated, this, [this](auto reason) {
        // The first press of a double click has been told already.
        if (reason != QSystemTrayIcon::DoubleClick)
            Q_EMIT activated();
    });
}

void XEmbedItem::show()
{
    if (!trayIcon)
        create();
    trayIcon->show();
}

void XEmbedItem::hide()
{
    if (trayIcon)
        trayIcon->hide();
}

StatusItemAnchor XEmbedItem::anchor() const
{
    if (!trayIcon || !trayIcon->isVisible() || !QSystemTrayIcon::isSystemTrayAvailable())
        return std::nullopt;
    const QRect geometry = trayIcon->geometry();
    // Until the status area has taken it in, the icon waits beside the screen.
    if (geometry.isEmpty() || !QGuiApplication::screenAt(geometry.center()))
        return std::nullopt;
    return ScreenSpace::fromToolkit(geometry);
}

} // namespace sablequill
