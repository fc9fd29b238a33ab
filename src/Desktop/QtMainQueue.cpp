// SPDX-License-Identifier: MIT
#include "QtMainQueue.h"

#include <QTimer>

#include <chrono>
#include <utility>

namespace sablequill {

void QtMainQueue::async(std::function<void()> work)
{
    QMetaObject::invokeMethod(&context, std::move(work), Qt::QueuedConnection);
}

void QtMainQueue::after(double seconds, std::function<void()> work)
{
    const auto delay =
        std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
    QTimer::singleShot(delay, Qt::PreciseTimer, &context, std::move(work));
}

} // namespace sablequill
