// SPDX-License-Identifier: MIT
#pragma once

#include "Panel.h"

#include <QVariantAnimation>

#include <functional>

namespace sablequill {

/// Runs a panel's alpha animations, one at a time. A timer ticks only while alpha really changes.
class AlphaAnimator {
public:
    explicit AlphaAnimator(std::function<void(double alpha)> apply);

    double alpha() const { return current; }
    /// Applies at once; a running animation only waits for its end, to complete, from here on.
    void setAlpha(double alpha);
    /// Completes the running animation at once, then begins this one.
    void animate(double target, AlphaAnimation animation);

private:
    void step(double fraction);
    void finish();
    void show(double alpha);

    std::function<void(double)> apply;
    std::function<void()> completion;
    /// From 0 to 1, eased.
    QVariantAnimation progress;
    double from = 1;
    double to = 1;
    double current = 1;
};

} // namespace sablequill
