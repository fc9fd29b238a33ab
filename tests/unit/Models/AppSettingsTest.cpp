// SPDX-License-Identifier: MIT
#include "AppSettings.h"

#include "Constants.h"
#include "HotkeyAction.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Flags = KeyboardShortcutBinding::ModifierFlags;

constexpr auto defaultFile = R"({
    "alwaysOnTop": true,
    "fontSize": 16,
    "hasCompletedOnboarding": false,
    "launchAtStartup": false,
    "mirkModeEnabled": true,
    "opacity": 0.92,
    "shortcuts": {
        "nextNote": {
            "keyCode": 125,
            "modifiers": 3
        },
        "previousNote": {
            "keyCode": 126,
            "modifiers": 3
        },
        "quickOpen": {
            "keyCode": 31,
            "modifiers": 3
        },
        "toggleOverlay": {
            "keyCode": 5,
            "modifiers": 3
        }
    }
}
)";

constexpr auto frame = R"("overlayFrame": {"x": 1, "y": -2.5, "width": 420, "height": 28e1}, )";

/// The default file with one piece of its text replaced.
QByteArray fileWith(const char* piece, const QByteArray& replacement)
{
    QByteArray text(defaultFile);
    EXPECT_TRUE(text.contains(piece)) << piece;
    return text.replace(text.indexOf(piece), qstrlen(piece), replacement);
}

QByteArray fileWithFrame(const QByteArray& frame)
{
    return fileWith("\"alwaysOnTop\"", frame + "\"alwaysOnTop\"");
}

std::string reasonOf(const QByteArray& json)
{
    const auto settings = decodeSettings(json);
    return settings ? "read" : settings.refusal().reason.toStdString();
}

TEST(AppSettings, defaults_asListed)
{
    const AppSettings settings;
    EXPECT_EQ(settings.opacity, 0.92);
    EXPECT_EQ(settings.fontSize, 16.0);
    EXPECT_TRUE(settings.alwaysOnTop);
    EXPECT_FALSE(settings.launchAtStartup);
    EXPECT_TRUE(settings.mirkModeEnabled);
    EXPECT_FALSE(settings.hasCompletedOnboarding);
    EXPECT_FALSE(settings.overlayFrame);
    ASSERT_EQ(settings.shortcuts.size(), 4U);
    for (const HotkeyAction action : allHotkeyActions)
        EXPECT_EQ(settings.shortcuts.at(rawValue(action)), defaultShortcut(action));
}

TEST(AppSettings, oneFieldChanged_unequal)
{
    std::vector<AppSettings> changed(11);
    changed[0].opacity = 0.5;
    changed[1].fontSize = 17;
    changed[2].alwaysOnTop = false;
    changed[3].launchAtStartup = true;
    changed[4].mirkModeEnabled = false;
    changed[5].hasCompletedOnboarding = true;
    changed[6].overlayFrame = OverlayFrame{};
    changed[7].shortcuts[u"nextNote"_s].keyCode = 1;
    changed[8].shortcuts[u"nextNote"_s].modifiers = {};
    changed[9].shortcuts.erase(u"nextNote"_s);
    changed[10].shortcuts[u"other"_s] = {};
    for (const AppSettings& settings : changed)
        EXPECT_NE(settings, AppSettings{});
    EXPECT_EQ(AppSettings{}, AppSettings{});
}

TEST(OverlayFrame, oneFieldChanged_unequal)
{
    const OverlayFrame frame{1, 2, 3, 4};
    for (const OverlayFrame& other :
        {OverlayFrame{0, 2, 3, 4}, {1, 0, 3, 4}, {1, 2, 0, 4}, {1, 2, 3, 0}})
        EXPECT_NE(other, frame);
}

TEST(Constants, values_asListed)
{
    EXPECT_EQ(Constants::appName, u"Sablequill"_s);
    EXPECT_GE(Constants::bundleIdentifier.split(u'.').size(), 3);
    EXPECT_EQ(Constants::defaultOverlayWidth, 420.0);
    EXPECT_EQ(Constants::defaultOverlayHeight, 280.0);
    EXPECT_EQ(Constants::minOverlayWidth, 280.0);
    EXPECT_EQ(Constants::minOverlayHeight, 160.0);
    EXPECT_EQ(Constants::animationDuration, 0.22);
}

TEST(EncodeSettings, defaults_sevenSortedKeys)
{
    EXPECT_EQ(encodeSettings({})->toStdString(), defaultFile);
    EXPECT_EQ(QJsonDocument::fromJson(*encodeSettings({})).object().size(), 7);
}

TEST(EncodeSettings, frame_eighthKey)
{
    AppSettings settings;
    settings.overlayFrame = OverlayFrame{-10.5, 20, 300, 200};
    const auto object = QJsonDocument::fromJson(*encodeSettings(settings)).object();
    EXPECT_EQ(object.size(), 8);
    EXPECT_EQ(object[u"overlayFrame"_s].toObject(),
        (QJsonObject{{u"x"_s, -10.5}, {u"y"_s, 20}, {u"width"_s, 300}, {u"height"_s, 200}}));
}

TEST(EncodeSettings, everyFieldChanged_readsBackEqual)
{
    const AppSettings settings{
        .opacity = 0.1,
        .fontSize = 23.7,
        .alwaysOnTop = false,
        .launchAtStartup = true,
        .mirkModeEnabled = false,
        .hasCompletedOnboarding = true,
        .overlayFrame = OverlayFrame{-1e9, 0.1, 1.0 / 3.0, 200},
        .shortcuts = {{u"toggleOverlay"_s, {4294967295U, Flags{16}}}, {u"später 😀"_s, {0, {}}}},
    };
    const auto decoded = decodeSettings(*encodeSettings(settings));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(*decoded, settings);
}

TEST(EncodeSettings, everyFiniteNumber_readsBackEqual)
{
    for (const double number : {0.0, 5e-324, DBL_MIN, 1e15, 9007199254740993.0, 1e17, 9.3e18,
             1.9e19, 1e20, 1e21, 1e22, 1.234567890123456789e23, 1e100, DBL_MAX}) {
        AppSettings settings{.opacity = number, .fontSize = -number};
        const auto decoded = decodeSettings(*encodeSettings(settings));
        ASSERT_TRUE(decoded) << number << ": " << decoded.refusal().reason.toStdString();
        EXPECT_EQ(*decoded, settings) << number;
    }
}

TEST(EncodeSettings, numberNotFinite_nothing)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(encodeSettings({.opacity = nan}));
    EXPECT_FALSE(encodeSettings({.fontSize = infinity}));
    EXPECT_FALSE(encodeSettings({.overlayFrame = OverlayFrame{nan, 0, 0, 0}}));
    EXPECT_FALSE(encodeSettings({.overlayFrame = OverlayFrame{0, -infinity, 0, 0}}));
    EXPECT_FALSE(encodeSettings({.overlayFrame = OverlayFrame{0, 0, nan, 0}}));
    EXPECT_FALSE(encodeSettings({.overlayFrame = OverlayFrame{0, 0, 0, infinity}}));
}

TEST(DecodeSettings, defaultFile_defaults)
{
    const auto settings = decodeSettings(defaultFile);
    ASSERT_TRUE(settings);
    EXPECT_EQ(*settings, AppSettings{});
}

TEST(DecodeSettings, byteOrderMark_skipped)
{
    EXPECT_TRUE(decodeSettings("\xEF\xBB\xBF" + QByteArray(defaultFile)));
}

TEST(DecodeSettings, frame_present)
{
    const auto settings = decodeSettings(fileWithFrame(frame));
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->overlayFrame, (OverlayFrame{1, -2.5, 420, 280}));
}

TEST(DecodeSettings, frameNullOrMissing_absent)
{
    const auto settings = decodeSettings(fileWithFrame("\"overlayFrame\": null, "));
    ASSERT_TRUE(settings);
    EXPECT_FALSE(settings->overlayFrame);
}

TEST(DecodeSettings, shortcuts_takenAsStored)
{
    const QByteArray file = fileWith("\"nextNote\"", "\"unheardOf\"");
    const auto settings = decodeSettings(file);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->shortcuts.size(), 4U);
    EXPECT_FALSE(settings->shortcuts.contains(u"nextNote"_s));
    EXPECT_EQ(settings->shortcuts.at(u"unheardOf"_s), (KeyboardShortcutBinding{125, Flags{3}}));
}

TEST(DecodeSettings, equalKeys_theLaterOneCounts)
{
    EXPECT_EQ(
        decodeSettings(fileWith("\"opacity\"", "\"opacity\": true, \"opacity\": 1, \"opacity\""))
            ->opacity,
        0.92);
    const auto settings = decodeSettings(fileWith("\"nextNote\"",
        R"("nextNote": 1, "quickOpen": {"keyCode": 1, "modifiers": 1}, "nextNote")"));
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->shortcuts, defaultShortcuts());
}

TEST(DecodeSettings, numbers_ofAnyKind)
{
    for (const char* number : {"1", "1.0", "10e-1", "0.1E1"})
        EXPECT_EQ(decodeSettings(fileWith("0.92", number))->opacity, 1.0) << number;
    EXPECT_EQ(decodeSettings(fileWith("0.92", "-3"))->opacity, -3.0);
    EXPECT_EQ(
        decodeSettings(fileWith("0.92", "18446744073709551615"))->opacity, 18446744073709551615.0);
}

TEST(DecodeSettings, numberThatNoTypeHolds_refused)
{
    for (const char* number : {"1e400", "-1e400", "123456789012345678901234567890"})
        EXPECT_FALSE(decodeSettings(fileWith("0.92", number))) << number;
}

TEST(DecodeSettings, keyCodeWithinRange_read)
{
    for (const auto& [text, keyCode] :
        {std::pair{"4294967295", 4294967295U}, {"0", 0U}, {"5.0", 5U}}) {
        const auto settings = decodeSettings(fileWith("125", text));
        ASSERT_TRUE(settings) << text;
        EXPECT_EQ(settings->shortcuts.at(u"nextNote"_s).keyCode, keyCode);
    }
}

TEST(DecodeSettings, unnamedModifierBit_kept)
{
    const auto settings = decodeSettings(fileWith(R"(125,
            "modifiers": 3)",
        R"(125, "modifiers": 16, "extra": [])"));
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->shortcuts.at(u"nextNote"_s).modifiers, Flags{16});
    EXPECT_EQ(*decodeSettings(*encodeSettings(*settings)), *settings);
}

struct SettingsRefusal {
    const char* name;
    QByteArray file;
    const char* reason;
};

void PrintTo(const SettingsRefusal& row, std::ostream* out)
{
    *out << row.name;
}

class RefusedSettings : public testing::TestWithParam<SettingsRefusal> { };

TEST_P(RefusedSettings, decode_wholeFileRefused)
{
    EXPECT_EQ(reasonOf(GetParam().file), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(MissingKeys, RefusedSettings,
    testing::Values(
        SettingsRefusal{"opacity", fileWith("\"opacity\"", "\"_\""), "opacity: missing"},
        SettingsRefusal{"fontSize", fileWith("\"fontSize\"", "\"_\""), "fontSize: missing"},
        SettingsRefusal{
            "alwaysOnTop", fileWith("\"alwaysOnTop\"", "\"_\""), "alwaysOnTop: missing"},
        SettingsRefusal{"launchAtStartup", fileWith("\"launchAtStartup\"", "\"_\""),
            "launchAtStartup: missing"},
        SettingsRefusal{"mirkModeEnabled", fileWith("\"mirkModeEnabled\"", "\"_\""),
            "mirkModeEnabled: missing"},
        SettingsRefusal{"hasCompletedOnboarding", fileWith("\"hasCompletedOnboarding\"", "\"_\""),
            "hasCompletedOnboarding: missing"},
        SettingsRefusal{"shortcuts", fileWith("\"shortcuts\"", "\"_\""), "shortcuts: missing"},
        SettingsRefusal{
            "keyCode", fileWith("\"keyCode\"", "\"_\""), "shortcuts: nextNote: keyCode: missing"},
        SettingsRefusal{"modifiers", fileWith("\"modifiers\"", "\"_\""),
            "shortcuts: nextNote: modifiers: missing"},
        SettingsRefusal{"frameX", fileWithFrame(QByteArray(frame).replace("\"x\"", "\"_\"")),
            "overlayFrame: x: missing"},
        SettingsRefusal{"frameY", fileWithFrame(QByteArray(frame).replace("\"y\"", "\"_\"")),
            "overlayFrame: y: missing"},
        SettingsRefusal{"frameWidth", fileWithFrame(QByteArray(frame).replace("width", "_")),
            "overlayFrame: width: missing"},
        SettingsRefusal{"frameHeight", fileWithFrame(QByteArray(frame).replace("height", "_")),
            "overlayFrame: height: missing"}));

INSTANTIATE_TEST_SUITE_P(WrongTypes, RefusedSettings,
    testing::Values(
        SettingsRefusal{"opacityBoolean", fileWith("0.92", "true"), "opacity: not a number"},
        SettingsRefusal{"opacityString", fileWith("0.92", "\"1\""), "opacity: not a number"},
        SettingsRefusal{"opacityNull", fileWith("0.92", "null"), "opacity: not a number"},
        SettingsRefusal{"fontSizeBoolean", fileWith("16", "false"), "fontSize: not a number"},
        SettingsRefusal{"onTopNumber", fileWith("true", "1"), "alwaysOnTop: not a boolean"},
        SettingsRefusal{"onTopString", fileWith("true", "\"true\""), "alwaysOnTop: not a boolean"},
        SettingsRefusal{
            "onboardingNull", fileWith("false", "null"), "hasCompletedOnboarding: not a boolean"},
        SettingsRefusal{"frameList", fileWithFrame("\"overlayFrame\": [1, 2, 3, 4], "),
            "overlayFrame: not an object"},
        SettingsRefusal{"frameBoolean", fileWithFrame("\"overlayFrame\": false, "),
            "overlayFrame: not an object"},
        SettingsRefusal{"frameMemberNull", fileWithFrame(QByteArray(frame).replace("420", "null")),
            "overlayFrame: width: not a number"},
        SettingsRefusal{"shortcutsNull", fileWith("\"shortcuts\"", "\"shortcuts\": null, \"_\""),
            "shortcuts: not an object"},
        SettingsRefusal{"bindingNull", fileWith("\"nextNote\"", "\"spare\": null, \"nextNote\""),
            "shortcuts: spare: not an object"},
        SettingsRefusal{"modifiersList", fileWith("\"modifiers\": 3", "\"modifiers\": [1, 2]"),
            "shortcuts: nextNote: modifiers: not a number"},
        SettingsRefusal{"rootArray", "[]", "not an object"},
        SettingsRefusal{"rootNull", "null", "not an object"}));

INSTANTIATE_TEST_SUITE_P(KeyCodes, RefusedSettings,
    testing::Values(SettingsRefusal{"negative", fileWith("125", "-1"),
                        "shortcuts: nextNote: keyCode: out of range"},
        SettingsRefusal{"tooLarge", fileWith("125", "4294967296"),
            "shortcuts: nextNote: keyCode: out of range"},
        SettingsRefusal{
            "farTooLarge", fileWith("125", "1e300"), "shortcuts: nextNote: keyCode: out of range"},
        SettingsRefusal{
            "fraction", fileWith("125", "1.5"), "shortcuts: nextNote: keyCode: not an integer"},
        SettingsRefusal{
            "boolean", fileWith("125", "true"), "shortcuts: nextNote: keyCode: not a number"},
        SettingsRefusal{
            "string", fileWith("125", "\"5\""), "shortcuts: nextNote: keyCode: not a number"},
        SettingsRefusal{"modifiersNegative", fileWith("\"modifiers\": 3", "\"modifiers\": -1"),
            "shortcuts: nextNote: modifiers: out of range"},
        SettingsRefusal{"modifiersTooLarge",
            fileWith("\"modifiers\": 3", "\"modifiers\": 4294967296"),
            "shortcuts: nextNote: modifiers: out of range"}));

} // namespace
} // namespace sablequill
