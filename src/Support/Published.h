// SPDX-License-Identifier: MIT
#pragma once

#include "ObservableObject.h"

#include <utility>

namespace sablequill {

/// A member of an ObservableObject. Each assignment announces the change through the owner first
/// and stores afterwards, also when the new value equals the old one.
///
/// The owner outlives the member: it is the object that holds it.
template <typename T> class Published {
public:
    explicit Published(ObservableObject* owner, T initial = {})
        : owner(owner)
        , value(std::move(initial))
    {
    }

    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    Published& operator=(T next)
    {
        Q_EMIT owner->objectWillChange();
        value = std::move(next);
        return *this;
    }

    /// One announced assignment made in place, for values that are too large to be copied.
    template <typename Change> void modify(Change&& change)
    {
        Q_EMIT owner->objectWillChange();
        std::forward<Change>(change)(value);
    }

    const T& get() const { return value; }
    operator const T&() const { return value; }
    const T& operator*() const { return value; }
    const T* operator->() const { return &value; }

private:
    ObservableObject* owner;
    T value;
};

} // namespace sablequill
