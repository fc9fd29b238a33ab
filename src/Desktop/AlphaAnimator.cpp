// SPDX-License-Identifier: MIT
#include "AlphaAnimator.h"

#include <QEasingCurve>
#include <QPointF>

#include <cmath>
#include <utility>

namespace sablequill {
namespace {

QEasingCurve easingCurve(TimingFunction timing)
{
    if (timing == TimingFunction::linear)
        return QEasingCurve::Linear;
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(QPointF(0.42, 0), QPointF(0.58, 1), QPointF(1, 1));
    return curve;
}

} // namespace

AlphaAnimator::AlphaAnimator(std::function<void(double)> apply)
    : apply(std::move(apply))
{
    progress.setStartValue(0.0);
    progress.setEndValue(1.0);
    QObject::connect(&progress, &QVariantAnimation::valueChanged, &progress,
        [this](const QVariant& value) { step(value.toDouble()); });
    QObject::connect(&progress, &QVariantAnimation::finished, &progress, [this] { finish(); });
}

void AlphaAnimator::setAlpha(double alpha)
{
    from = to = alpha;
    show(alpha);
}

void AlphaAnimator::animate(double target, AlphaAnimation animation)
{
    progress.stop();
    finish();
    if (target == current && !animation.completion)
        return;
    completion = std::move(animation.completion);
    from = current;
    to = target;
    progress.setDuration(static_cast<int>(std::lround(animation.duration * 1000)));
    progress.setEasingCurve(easingCurve(animation.timing));
    progress.start();
}

void AlphaAnimator::step(double fraction)
{
    if (progress.state() == QAbstractAnimation::Running && from != to)
        show(from + (to - from) * fraction);
}

void AlphaAnimator::finish()
{
    if (const auto work = std::exchange(completion, {}))
        work();
}

void AlphaAnimator::show(double alpha)
{
    current = alpha;
    apply(alpha);
}

} // namespace sablequill
