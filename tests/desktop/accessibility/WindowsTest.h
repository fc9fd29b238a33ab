// SPDX-License-Identifier: MIT
#pragma once

#include "AccessibilityBus.h"
#include "OverlayTest.h"

namespace sablequill {

/// What AT-SPI calls the controls and texts of this program.
namespace Role {
inline const QString button = QStringLiteral("push button");
inline const QString label = QStringLiteral("label");
inline const QString list = QStringLiteral("list");
inline const QString row = QStringLiteral("list item");
inline const QString slider = QStringLiteral("slider");
inline const QString toggle = QStringLiteral("check box");
inline const QString tab = QStringLiteral("radio button");
inline const QString text = QStringLiteral("text");
inline const QString window = QStringLiteral("frame");
} // namespace Role

/// The windows of the built program as an assistive program meets them, in a session with an
/// accessibility bus. The overlay keeps away from the middle, where windows come up.
class WindowsTest : public OverlayTest {
protected:
    static constexpr Area cardInCorner{900, 500, 360, 280};

    void SetUp() override;
    std::vector<std::string> command() const override;

    /// What can be seen in all windows of the program.
    std::vector<SeenObject> shown() const;
    /// The first one of that name and role that can be seen.
    std::optional<AccessibleObject> named(const QString& name, const QString& role) const;
    bool isShown(const QString& name, const QString& role) const { return !!named(name, role); }
    /// Waits for it; fails the test when it does not come, or go.
    void expectShown(const QString& name, const QString& role) const;
    void expectGone(const QString& name, const QString& role) const;
    /// Waits for the control and carries its first action out; fails the test when it does not
    /// come or has none.
    void press(const QString& name, const QString& role = Role::button) const;

    /// In the list of the Settings window.
    std::optional<AccessibleObject> noteRow(int index) const;
    /// Of settings.json.
    QJsonValue setting(const QString& name) const;
    /// Waits for that value in settings.json; fails the test when it does not come.
    void expectSetting(const QString& name, const QJsonValue& value) const;
    qsizetype savedNotes() const;

    AccessibilityBus accessibility{session};
};

} // namespace sablequill
