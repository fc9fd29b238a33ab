// SPDX-License-Identifier: MIT
#include "AppSettings.h"

#include "HotkeyAction.h"
#include "RecordCodecs.h"

#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace sablequill {
namespace {

bool hasOnlyFiniteNumbers(const AppSettings& settings)
{
    const OverlayFrame frame = settings.overlayFrame.value_or(OverlayFrame{});
    const auto numbers = {
        settings.opacity, settings.fontSize, frame.x, frame.y, frame.width, frame.height};
    return std::all_of(
        numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

} // namespace

std::map<QString, KeyboardShortcutBinding> defaultShortcuts()
{
    std::map<QString, KeyboardShortcutBinding> shortcuts;
    for (const HotkeyAction action : allHotkeyActions)
        shortcuts.emplace(rawValue(action), defaultShortcut(action));
    return shortcuts;
}

std::optional<QByteArray> encodeSettings(const AppSettings& settings)
{
    if (!hasOnlyFiniteNumbers(settings))
        return {};
    return QJsonDocument(json::Codec<AppSettings>::write(settings)).toJson(QJsonDocument::Indented);
}

Decoded<AppSettings> decodeSettings(QByteArrayView json)
{
    return json::decode<AppSettings>(json);
}

} // namespace sablequill
