// SPDX-License-Identifier: MIT
#pragma once

#include "HyprlandFocus.h"
#include "KeyboardClaim.h"
#include "PressWatch.h"
#include "WindowKeeper.h"

namespace sablequill {

class HyprlandPin;

/// In a Wayland session: a managed window of a type that compositors put above full-screen ones.
/// An override-redirect window would be above as well, but could not get the keyboard while a
/// Wayland window has it.
class ManagedKeeper final : public WindowKeeper {
public:
    /// All but the name of the socket outlive the keeper. `pin` is null and there is no socket
    /// where the compositor is not Hyprland.
    ManagedKeeper(const XServer& server, PressWatch& presses, HyprlandPin* pin,
        const std::optional<QString>& hyprlandSocket);
    ~ManagedKeeper() override;

    Qt::WindowFlags windowFlags() const override { return Qt::WindowStaysOnTopHint; }
    bool isAlwaysComposited() const override { return true; }
    void willShow(QWidget& window) override;
    void didShow(QWidget& window) override;
    void willHide() override;
    void keepOnTop(bool isKept) override;
    void takeKeyboard() override;
    void setDragging(bool isDragging) override;
    void watchPresses(bool isWatching) override;

private:
    void setAtoms(std::string_view property, std::initializer_list<std::string_view> values) const;
    void requestStates(std::string_view first, std::string_view second) const;
    bool filterEvent(const xcb_generic_event_t& event) const;

    const XServer& server;
    PressWatch& presses;
    HyprlandPin* const pin;
    xcb_window_t window = noWindow;
    /// Was shown, and is not any more.
    xcb_window_t hidden = noWindow;
    bool isDragged = false;
    bool isListening = false;
    KeyboardClaim claim;
    std::optional<HyprlandFocus> focus;
    const XEventFilter filter;
    /// Connections end with it.
    QObject context;
};

} // namespace sablequill
