// SPDX-License-Identifier: MIT
#include "Veils.h"

#include "CaptureShield.h"
#include "Veil.h"

#include <QApplication>
#include <QEvent>

namespace sablequill {

Veils::Veils(const CaptureShield& shield)
    : shield(shield)
{
    // Nothing is to see each event of the program for nothing.
    if (shield.canHide())
        qApp->installEventFilter(this);
}

bool Veils::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    auto& widget = *static_cast<QWidget*>(watched);
    // A veil that is there already sees this event itself.
    if (widget.isWindow() && shield.mustWait(widget.effectiveWinId())
        && !widget.findChild<Veil*>(QString(), Qt::FindDirectChildrenOnly))
        new Veil(widget, shield);
    return QObject::eventFilter(watched, event);
}

} // namespace sablequill
