// SPDX-License-Identifier: MIT
#include "Refresh.h"

#include "ObservableObject.h"

#include <utility>

namespace sablequill {

Refresh::Refresh(QObject* owner, std::function<void()> refresh)
    : QObject(owner)
    , refresh(std::move(refresh))
{
}

void Refresh::observe(ObservableObject* object)
{
    connect(object, &ObservableObject::objectWillChange, this, &Refresh::schedule);
}

void Refresh::schedule()
{
    if (isScheduled)
        return;
    isScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isScheduled = false;
            refresh();
        },
        Qt::QueuedConnection);
}

} // namespace sablequill
