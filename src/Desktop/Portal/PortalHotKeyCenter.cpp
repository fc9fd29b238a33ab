// SPDX-License-Identifier: MIT
#include "PortalHotKeyCenter.h"

#include <algorithm>

namespace sablequill {

PortalHotKeyCenter::PortalHotKeyCenter(const QDBusConnection& bus)
    : bus(bus)
    , portal(bus)
{
    registerPortalShortcutTypes();
    desktop.isDesktop = true;
    settling.setSingleShot(true);
    connect(&settling, &QTimer::timeout, this, &PortalHotKeyCenter::settle);
    connect(
        &portal, &ShortcutsPortal::availabilityChanged, this, &PortalHotKeyCenter::followPortal);
}

EventHandlerRef PortalHotKeyCenter::installEventHandler(
    HotKeyHandler handler, EventTypeSpec spec, void* userData)
{
    return dispatchers.install(handler, spec, userData);
}

std::optional<HotKeyRef> PortalHotKeyCenter::registerHotKey(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id)
{
    const auto shortcut = portalShortcut(keyCode, modifiers, id);
    if (!shortcut)
        return std::nullopt;
    const HotKeyRef ref{++lastRef};
    hotKeys.emplace(ref, HotKey{*shortcut, id});
    settling.start(0);
    return ref;
}

void PortalHotKeyCenter::unregisterHotKey(HotKeyRef hotKey)
{
    if (hotKeys.erase(hotKey) > 0)
        settling.start(0);
}

void PortalHotKeyCenter::followPortal()
{
    // A session ends with its portal.
    dropSession();
    settling.start(0);
    Q_EMIT availabilityChanged();
}

PortalShortcuts PortalHotKeyCenter::wanted() const
{
    // In the actions' order, whichever was registered again last; an action has one shortcut.
    std::map<std::uint32_t, PortalShortcut> byNumber;
    for (const auto& [ref, hotKey] : hotKeys)
        byNumber[hotKey.id.id] = hotKey.shortcut;
    PortalShortcuts shortcuts;
    for (const auto& [number, shortcut] : byNumber)
        shortcuts.append(shortcut);
    return shortcuts;
}

void PortalHotKeyCenter::settle()
{
    const PortalShortcuts shortcuts = wanted();
    if (!portal.isAvailable() || (session && session->shortcuts() == shortcuts))
        return;
    if (session)
        session->close();
    dropSession();
    if (shortcuts.isEmpty())
        return;
    session = std::make_unique<ShortcutsSession>(bus, shortcuts);
    connect(session.get(), &ShortcutsSession::activated, this, &PortalHotKeyCenter::press);
    connect(session.get(), &ShortcutsSession::ended, this, &PortalHotKeyCenter::dropSession);
}

void PortalHotKeyCenter::dropSession()
{
    if (!session)
        return;
    // It may be the one that tells of its end.
    session->disconnect(this);
    session.release()->deleteLater();
}

void PortalHotKeyCenter::press(const QString& shortcut)
{
    const auto pressed = std::find_if(hotKeys.begin(), hotKeys.end(),
        [&](const auto& entry) { return entry.second.shortcut.id == shortcut; });
    if (pressed != hotKeys.end())
        dispatchers.dispatch({pressed->second.id});
}

} // namespace sablequill
