// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace sablequill {

/// An object whose published members announce every assignment before it happens.
///
/// The announcement carries no value: an observer schedules a refresh and reads the members then.
class ObservableObject : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void objectWillChange();
};

} // namespace sablequill
