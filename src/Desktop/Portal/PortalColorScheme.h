// SPDX-License-Identifier: MIT
#pragma once

#include "BusName.h"
#include "ColorScheme.h"

#include <QDBusMessage>
#include <QVariant>

namespace sablequill {

/// The preference that the desktop's Settings portal tells (org.freedesktop.appearance
/// color-scheme), followed while the program runs, also from one portal to the next. Starts the
/// portal when none runs, and waits for nobody's answer.
class PortalColorScheme final : public ColorScheme {
    Q_OBJECT

public:
    /// Begins to follow; light until then.
    void start();

private Q_SLOTS:
    void settingChanged(const QDBusMessage& signal);

private:
    void read();
    void take(QVariant scheme);

    /// Nothing without a session bus.
    std::optional<BusName> portal;
};

} // namespace sablequill
