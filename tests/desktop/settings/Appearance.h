// SPDX-License-Identifier: MIT
#pragma once

#include "tray/BusConnection.h"

#include <QDBusVariant>
#include <QObject>

namespace sablequill {

/// A desktop that tells whether its user prefers a dark appearance, in the form of its part on the
/// session bus. It answers while the main loop runs.
class Appearance final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// What the Settings portal's color-scheme stands for.
    enum Scheme : uint { noPreference = 0, dark = 1, light = 2 };

    /// Is there when it returns. Throws std::runtime_error when the bus refuses.
    explicit Appearance(const std::string& busAddress, Scheme scheme = noPreference);

    /// Tells all who listen, and from then on all who ask.
    void prefer(Scheme scheme);
    /// Tells of a change of another setting of the same kind.
    void changeContrast();

public Q_SLOTS:
    Q_SCRIPTABLE QDBusVariant Read(const QString& group, const QString& key) const;

private:
    void tell(const QString& key, uint value) const;

    BusConnection bus;
    Scheme current;
};

} // namespace sablequill
