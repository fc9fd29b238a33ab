// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "JsonRecord.h"
#include "MirkpadItem.h"

/// The keys of notes.json and settings.json.
namespace sablequill::json {

template <> struct Codec<MirkpadItem> : RecordCodec<Codec<MirkpadItem>, MirkpadItem> {
    static constexpr std::tuple fields{
        Field{"id", &MirkpadItem::id},
        Field{"title", &MirkpadItem::title},
        Field{"content", &MirkpadItem::content},
        Field{"createdAt", &MirkpadItem::createdAt},
        Field{"updatedAt", &MirkpadItem::updatedAt},
    };

    /// Without a random id and the current time, which thousands of notes would ask for in vain.
    static MirkpadItem blank()
    {
        return {.id = {}, .title = {}, .content = {}, .createdAt = {}, .updatedAt = {}};
    }
};

template <> struct Codec<OverlayFrame> : RecordCodec<Codec<OverlayFrame>, OverlayFrame> {
    static constexpr std::tuple fields{
        Field{"x", &OverlayFrame::x},
        Field{"y", &OverlayFrame::y},
        Field{"width", &OverlayFrame::width},
        Field{"height", &OverlayFrame::height},
    };
};

template <> struct Codec<KeyboardShortcutBinding::ModifierFlags> {
    using Flags = KeyboardShortcutBinding::ModifierFlags;

    static Decoded<Flags> read(Element element)
    {
        const auto rawValue = Codec<std::uint32_t>::read(element);
        if (!rawValue)
            return rawValue.refusal();
        return Flags{*rawValue};
    }
    static QJsonValue write(Flags value) { return Codec<std::uint32_t>::write(value.rawValue); }
};

template <>
struct Codec<KeyboardShortcutBinding>
    : RecordCodec<Codec<KeyboardShortcutBinding>, KeyboardShortcutBinding> {
    static constexpr std::tuple fields{
        Field{"keyCode", &KeyboardShortcutBinding::keyCode},
        Field{"modifiers", &KeyboardShortcutBinding::modifiers},
    };
};

template <> struct Codec<AppSettings> : RecordCodec<Codec<AppSettings>, AppSettings> {
    static constexpr std::tuple fields{
        Field{"opacity", &AppSettings::opacity},
        Field{"fontSize", &AppSettings::fontSize},
        Field{"alwaysOnTop", &AppSettings::alwaysOnTop},
        Field{"launchAtStartup", &AppSettings::launchAtStartup},
        Field{"mirkModeEnabled", &AppSettings::mirkModeEnabled},
        Field{"hasCompletedOnboarding", &AppSettings::hasCompletedOnboarding},
        Field{"overlayFrame", &AppSettings::overlayFrame},
        Field{"shortcuts", &AppSettings::shortcuts},
    };
};

} // namespace sablequill::json
