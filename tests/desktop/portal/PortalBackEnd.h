// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"
#include "PortalShortcut.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <optional>

namespace sablequill {

/// A desktop's part behind a real xdg-desktop-portal: keeps the keys, with a user who answers at
/// once. Ends with the object.
class PortalBackEnd final : public QDBusVirtualObject {
public:
    /// Is there when it returns. Throws std::runtime_error when the bus refuses.
    explicit PortalBackEnd(const std::string& busAddress);

    /// Environment and files with which a portal comes to this back end.
    static Environment addTo(Environment environment, const PrivateHome& home);

    /// What the user answers to keys: 0 yes, 1 no.
    uint answer = 0;

    /// How often a program has asked for keys.
    int questions() const { return questionCount; }
    /// What keys are held for; nothing when none are.
    const std::optional<PortalShortcuts>& bound() const { return held; }
    /// The press and the release of what the user has given to the shortcut.
    void press(const QString& id) const;

private:
    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    void tell(const QString& name, const QString& id) const;

    BusConnection bus;
    int questionCount = 0;
    QString session;
    std::optional<PortalShortcuts> held;
};

} // namespace sablequill
