// SPDX-License-Identifier: MIT
#include "ContextMenu.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <chrono>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// Longer than the X server and a window manager take to hand the keyboard over.
constexpr auto patience = 250ms;

} // namespace

void openContextMenu(QMenu* menu, QPoint at)
{
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto open = [menu, at] {
        if (!menu->isVisible())
            menu->popup(at);
    };
    const QWidget* window = menu->parentWidget()->window();
    if (window->isActiveWindow()) {
        open();
        return;
    }
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, menu, [window, open] {
        if (window->isActiveWindow())
            open();
    });
    QTimer::singleShot(patience, menu, open);
}

} // namespace sablequill
