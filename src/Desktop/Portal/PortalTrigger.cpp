// SPDX-License-Identifier: MIT
#include "PortalTrigger.h"

#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>

namespace sablequill {
namespace {

struct Keysym {
    std::uint32_t keyCode;
    QStringView name;
};

struct Modifier {
    std::uint32_t mask;
    QStringView name;
};

constexpr std::array keysyms{
    Keysym{0x00, u"a"},
    Keysym{0x01, u"s"},
    Keysym{0x02, u"d"},
    Keysym{0x03, u"f"},
    Keysym{0x04, u"h"},
    Keysym{0x05, u"g"},
    Keysym{0x06, u"z"},
    Keysym{0x07, u"x"},
    Keysym{0x08, u"c"},
    Keysym{0x09, u"v"},
    Keysym{0x0B, u"b"},
    Keysym{0x0C, u"q"},
    Keysym{0x0D, u"w"},
    Keysym{0x0E, u"e"},
    Keysym{0x0F, u"r"},
    Keysym{0x10, u"y"},
    Keysym{0x11, u"t"},
    Keysym{0x12, u"1"},
    Keysym{0x13, u"2"},
    Keysym{0x14, u"3"},
    Keysym{0x15, u"4"},
    Keysym{0x16, u"6"},
    Keysym{0x17, u"5"},
    Keysym{0x18, u"equal"},
    Keysym{0x19, u"9"},
    Keysym{0x1A, u"7"},
    Keysym{0x1B, u"minus"},
    Keysym{0x1C, u"8"},
    Keysym{0x1D, u"0"},
    Keysym{0x1E, u"bracketright"},
    Keysym{0x1F, u"o"},
    Keysym{0x20, u"u"},
    Keysym{0x21, u"bracketleft"},
    Keysym{0x22, u"i"},
    Keysym{0x23, u"p"},
    Keysym{0x24, u"Return"},
    Keysym{0x25, u"l"},
    Keysym{0x26, u"j"},
    Keysym{0x27, u"apostrophe"},
    Keysym{0x28, u"k"},
    Keysym{0x29, u"semicolon"},
    Keysym{0x2A, u"backslash"},
    Keysym{0x2B, u"comma"},
    Keysym{0x2C, u"slash"},
    Keysym{0x2D, u"n"},
    Keysym{0x2E, u"m"},
    Keysym{0x2F, u"period"},
    Keysym{0x30, u"Tab"},
    Keysym{0x31, u"space"},
    Keysym{0x32, u"grave"},
    Keysym{0x33, u"BackSpace"},
    Keysym{0x35, u"Escape"},
    Keysym{0x40, u"F17"},
    Keysym{0x41, u"KP_Decimal"},
    Keysym{0x43, u"KP_Multiply"},
    Keysym{0x45, u"KP_Add"},
    Keysym{0x48, u"XF86AudioRaiseVolume"},
    Keysym{0x49, u"XF86AudioLowerVolume"},
    Keysym{0x4A, u"XF86AudioMute"},
    Keysym{0x4B, u"KP_Divide"},
    Keysym{0x4C, u"KP_Enter"},
    Keysym{0x4E, u"KP_Subtract"},
    Keysym{0x4F, u"F18"},
    Keysym{0x50, u"F19"},
    Keysym{0x51, u"KP_Equal"},
    Keysym{0x52, u"KP_0"},
    Keysym{0x53, u"KP_1"},
    Keysym{0x54, u"KP_2"},
    Keysym{0x55, u"KP_3"},
    Keysym{0x56, u"KP_4"},
    Keysym{0x57, u"KP_5"},
    Keysym{0x58, u"KP_6"},
    Keysym{0x59, u"KP_7"},
    Keysym{0x5A, u"F20"},
    Keysym{0x5B, u"KP_8"},
    Keysym{0x5C, u"KP_9"},
    Keysym{0x60, u"F5"},
    Keysym{0x61, u"F6"},
    Keysym{0x62, u"F7"},
    Keysym{0x63, u"F3"},
    Keysym{0x64, u"F8"},
    Keysym{0x65, u"F9"},
    Keysym{0x67, u"F11"},
    Keysym{0x69, u"F13"},
    Keysym{0x6A, u"F16"},
    Keysym{0x6B, u"F14"},
    Keysym{0x6D, u"F10"},
    Keysym{0x6E, u"Menu"},
    Keysym{0x6F, u"F12"},
    Keysym{0x71, u"F15"},
    Keysym{0x72, u"Insert"},
    Keysym{0x73, u"Home"},
    Keysym{0x74, u"Page_Up"},
    Keysym{0x75, u"Delete"},
    Keysym{0x76, u"F4"},
    Keysym{0x77, u"End"},
    Keysym{0x78, u"F2"},
    Keysym{0x79, u"Page_Down"},
    Keysym{0x7A, u"F1"},
    Keysym{0x7B, u"Left"},
    Keysym{0x7C, u"Right"},
    Keysym{0x7D, u"Down"},
    Keysym{0x7E, u"Up"},
};

/// In the order in which they are written.
constexpr std::array modifierNames{
    Modifier{4096, u"CTRL"},
    Modifier{2048, u"ALT"},
    Modifier{256, u"LOGO"},
    Modifier{512, u"SHIFT"},
};

} // namespace

QString portalTrigger(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const auto keysym = std::find_if(keysyms.begin(), keysyms.end(),
        [&](const Keysym& candidate) { return candidate.keyCode == keyCode; });
    if (keysym == keysyms.end())
        return {};
    QStringList parts;
    for (const Modifier& modifier : modifierNames) {
        if ((modifiers & modifier.mask) != 0)
            parts.append(modifier.name.toString());
    }
    parts.append(keysym->name.toString());
    return parts.join(u'+');
}

} // namespace sablequill
