// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>

namespace sablequill {

/// The desktop's Settings portal on the session bus of the environment, which knows nothing but
/// whether the user prefers dark surroundings.
class ColorSchemePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// As the portal counts: 0 for no preference, 1 for dark, 2 for light. Throws
    /// std::runtime_error when the bus has a portal already.
    explicit ColorSchemePortal(unsigned scheme);

public Q_SLOTS:
    Q_SCRIPTABLE QDBusVariant Read(const QString& nameSpace, const QString& key);

private:
    unsigned scheme;
};

} // namespace sablequill
