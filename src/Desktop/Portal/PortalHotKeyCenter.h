// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyDispatchers.h"
#include "ShortcutsPortal.h"
#include "ShortcutsSession.h"

#include <QTimer>

#include <map>
#include <memory>

namespace sablequill {

/// System-wide hot keys that the desktop holds for the program (GlobalShortcuts portal), where
/// programs may not see the keyboard by themselves. The combinations are proposals: the desktop, or
/// the user whom it asks, decides. Without keys where they say no, and until the next registration
/// where they say no later.
///
/// What is registered and unregistered in one turn of the main loop reaches the portal together in
/// the next, and not at all when it comes to what the portal has.
class PortalHotKeyCenter final : public QObject, public HotKeyCenter {
    Q_OBJECT

public:
    /// The connection is for this object alone.
    explicit PortalHotKeyCenter(const QDBusConnection& bus);

    /// Whether there is a desktop that holds keys for programs.
    bool isAvailable() const { return portal.isAvailable(); }

    EventHandlerRef installEventHandler(
        HotKeyHandler handler, EventTypeSpec spec, void* userData) override;
    /// Nothing for an id that no action has.
    std::optional<HotKeyRef> registerHotKey(
        std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id) override;
    void unregisterHotKey(HotKeyRef hotKey) override;
    HotKeyHolder& holder() override { return desktop; }

Q_SIGNALS:
    /// Where another portal takes the place of one, twice.
    void availabilityChanged();

private:
    struct HotKey {
        PortalShortcut shortcut;
        HotKeyID id;
    };

    void followPortal();
    void settle();
    void dropSession();
    void press(const QString& shortcut);
    PortalShortcuts wanted() const;

    HotKeyHolder desktop;
    QDBusConnection bus;
    ShortcutsPortal portal;
    HotKeyDispatchers dispatchers;
    std::map<HotKeyRef, HotKey> hotKeys;
    std::uint64_t lastRef = 0;
    /// Absent while the desktop holds no key and has not been asked to.
    std::unique_ptr<ShortcutsSession> session;
    QTimer settling;
};

} // namespace sablequill
