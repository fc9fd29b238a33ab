// SPDX-License-Identifier: MIT
#pragma once

#include "Decoded.h"
#include "KeyboardShortcutBinding.h"
#include "OverlayFrame.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <map>
#include <optional>

namespace sablequill {

/// The default binding of every action, keyed by the action's raw value.
std::map<QString, KeyboardShortcutBinding> defaultShortcuts();

/// All of the user's preferences; a default-constructed value holds the defaults.
struct AppSettings {
    /// Of the overlay panel, 0 to 1.
    double opacity = 0.92;
    /// Base size of a note's text, in points.
    double fontSize = 16.0;
    bool alwaysOnTop = true;
    bool launchAtStartup = false;
    bool mirkModeEnabled = true;
    bool hasCompletedOnboarding = false;
    /// Absent until the panel was first moved or resized.
    std::optional<OverlayFrame> overlayFrame = {};
    /// Keyed by HotkeyAction raw value. A missing action stands for its default binding; an unknown
    /// key is carried along and never used.
    std::map<QString, KeyboardShortcutBinding> shortcuts = defaultShortcuts();

    bool operator==(const AppSettings&) const = default;
};

/// The bytes of settings.json: indented, keys sorted, no key for an absent frame. Nothing when a
/// number is not finite, which JSON cannot say.
std::optional<QByteArray> encodeSettings(const AppSettings& settings);

/// Reads settings.json whole: a required key that is missing or a value of another type refuses all
/// of it. Unknown keys are ignored; the shortcuts are taken as they stand.
Decoded<AppSettings> decodeSettings(QByteArrayView json);

} // namespace sablequill
