// SPDX-License-Identifier: MIT
#include "CrossFade.h"

#include <QEasingCurve>
#include <QGraphicsOpacityEffect>
#include <QPainter>

namespace sablequill {
namespace {

/// The curve that starts and ends gently.
QEasingCurve easeInEaseOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

QPixmap picture(QWidget& view)
{
    const double ratio = view.devicePixelRatioF();
    QPixmap pixmap(view.size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    view.render(&pixmap, {}, {}, QWidget::DrawChildren);
    return pixmap;
}

} // namespace

CrossFade::CrossFade(QWidget* view, double duration)
    : QWidget(view->parentWidget())
    , view(view)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    animation.setStartValue(0.0);
    animation.setEndValue(1.0);
    animation.setDuration(static_cast<int>(duration * 1000));
    animation.setEasingCurve(easeInEaseOut());
    connect(&animation, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& value) { advance(value.toDouble()); });
    connect(&animation, &QVariantAnimation::finished, this, &CrossFade::cancel);
}

void CrossFade::begin()
{
    if (!view->isVisible() || view->size().isEmpty())
        return;
    cancel();
    before = picture(*view);
    // The view owns the effect; it is there only while the view fades.
    view->setGraphicsEffect(new QGraphicsOpacityEffect(view));
    setGeometry(view->geometry());
    show();
    raise();
    advance(0);
    animation.start();
}

bool CrossFade::isFading() const
{
    return animation.state() == QAbstractAnimation::Running;
}

void CrossFade::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(1 - progress);
    painter.drawPixmap(0, 0, before);
}

void CrossFade::advance(double next)
{
    progress = next;
    if (auto* effect = qobject_cast<QGraphicsOpacityEffect*>(view->graphicsEffect()))
        effect->setOpacity(progress);
    update();
}

void CrossFade::cancel()
{
    animation.stop();
    view->setGraphicsEffect(nullptr);
    before = {};
    hide();
}

} // namespace sablequill
