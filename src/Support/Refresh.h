// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace sablequill {

class ObservableObject;

/// Answers any number of announcements made in one turn of the main loop with one call in the next.
///
/// The owner (usually a view) is the parent; the call stops with it.
class Refresh : public QObject {
    Q_OBJECT

public:
    Refresh(QObject* owner, std::function<void()> refresh);

    /// Calls back after changes of `object`, which may go away before or after this.
    void observe(ObservableObject* object);
    void schedule();

private:
    std::function<void()> refresh;
    bool isScheduled = false;
};

} // namespace sablequill
