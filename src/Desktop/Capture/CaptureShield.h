// SPDX-License-Identifier: MIT
#pragma once

#include "MirkProtection.h"

#include <QDBusConnection>
#include <QtGui/qwindowdefs.h>

#include <memory>
#include <optional>

namespace sablequill {

struct Session;

/// What one kind of compositor offers for Mirk mode. Works without waiting for anybody, and is
/// silent while nothing changes.
class CaptureShield : public MirkProtection {
    Q_OBJECT

public:
    /// Whether a window that is being shown now must not be seen yet: it is to be hidden, the
    /// compositor has not confirmed that it is, and there is still time to wait for that.
    virtual bool mustWait(WId window) const = 0;

    /// Whether there may ever be a window to wait for.
    virtual bool canHide() const { return true; }

    /// `bus` is the session bus, if there is one.
    static std::unique_ptr<CaptureShield> forSession(
        const Session& session, const std::optional<QDBusConnection>& bus);

Q_SIGNALS:
    /// What mustWait() says may have changed.
    void waitingChanged();

protected:
    /// Announces real changes only.
    void setEffect(MirkEffect next);
};

} // namespace sablequill
