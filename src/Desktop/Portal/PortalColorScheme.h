// SPDX-License-Identifier: MIT
#pragma once

#include "ColorScheme.h"

#include <QDBusMessage>
#include <QVariant>

namespace sablequill {

/// The preference that the desktop's Settings portal tells (org.freedesktop.appearance
/// color-scheme), followed while the program runs. Asks without waiting for the answer.
class PortalColorScheme final : public ColorScheme {
    Q_OBJECT

public:
    PortalColorScheme();

private Q_SLOTS:
    void settingChanged(const QDBusMessage& signal);

private:
    void read();
    void take(const QVariant& value);
};

} // namespace sablequill
