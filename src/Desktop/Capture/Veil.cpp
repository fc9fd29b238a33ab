// SPDX-License-Identifier: MIT
#include "Veil.h"

#include "CaptureShield.h"

#include <QEvent>
#include <QPainter>

namespace sablequill {

Veil::Veil(QWidget& window, const CaptureShield& shield)
    : QWidget(&window)
    , window(window)
    , shield(shield)
{
    hide();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    window.installEventFilter(this);
    connect(&shield, &CaptureShield::waitingChanged, this, [this] {
        if (isVisible())
            follow();
    });
}

bool Veil::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show)
        follow();
    else if (event->type() == QEvent::Resize && !isHidden())
        setGeometry(window.rect());
    return QWidget::eventFilter(watched, event);
}

void Veil::paintEvent(QPaintEvent*)
{
    // Over all that was drawn below it: the pixels themselves are clear, as not every compositor
    // heeds a window's opacity.
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const bool isClear = window.testAttribute(Qt::WA_TranslucentBackground);
    painter.fillRect(rect(), isClear ? QColor(Qt::transparent) : window.palette().window().color());
}

void Veil::follow()
{
    const bool isNeeded = shield.mustWait(window.effectiveWinId());
    setGeometry(window.rect());
    setVisible(isNeeded);
    if (isNeeded)
        raise();
}

} // namespace sablequill
