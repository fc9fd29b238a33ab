// SPDX-License-Identifier: MIT
#include "SettingsWindow.h"

#include <algorithm>

namespace sablequill {
namespace {

const QString title = QStringLiteral("Sablequill Settings");
const QString item = QStringLiteral("Settings…");

} // namespace

void SettingsWindowTest::openByMouse()
{
    startProgram();
    expectShown(item, Role::button);
    const auto button = named(item, Role::button);
    ASSERT_TRUE(button);
    mouse.click(button->area().center());
    awaitWindow();
}

void SettingsWindowTest::openByKeyboard()
{
    ChildProcess secondStart(
        {command(), session.environment(user), user.path() / "second-start.log"});
    EXPECT_EQ(secondStart.waitForExit(), 0);
    expectShown(item, Role::button);
    // Up from the popover's top leads to its end.
    expectFocused(QStringLiteral("Sablequill"));
    keyboard.tap(KeyCode::up);
    expectFocused(QStringLiteral("Quit Sablequill"));
    keyboard.tap(KeyCode::up);
    expectFocused(item);
    keyboard.tap(KeyCode::space);
    awaitWindow();
}

void SettingsWindowTest::awaitWindow()
{
    ASSERT_TRUE(waitUntil([this] { return hasKeyboard(); })) << "no Settings window";
    expectShown(title, Role::window);
}

void SettingsWindowTest::openTab(const QString& name)
{
    ASSERT_NO_FATAL_FAILURE(openByMouse());
    click(name, Role::tab);
    EXPECT_TRUE(waitUntil([&] {
        const auto tab = named(name, Role::tab);
        return tab && tab->is(AccessibleState::checked);
    }));
}

std::vector<xcb_window_t> SettingsWindowTest::managedWindows() const
{
    auto windows = x.property(x.root(), "_NET_CLIENT_LIST");
    std::erase_if(windows, [this](xcb_window_t window) {
        return x.textProperty(window, "WM_CLASS").find("Sablequill") == std::string::npos;
    });
    return windows;
}

bool SettingsWindowTest::hasKeyboard() const
{
    const auto windows = managedWindows();
    return windows.size() == 1 && sablequill::hasKeyboard(x, windows.front());
}

Area SettingsWindowTest::place(const QString& name, const QString& role) const
{
    Area area;
    EXPECT_TRUE(waitUntil([&] {
        const auto window = named(title, Role::window);
        const auto windows = managedWindows();
        const auto object = named(name, role);
        area = object ? object->area() : Area{};
        return window && windows.size() == 1 && object && area.width > 0
            && areaOf(x, windows.front()) == window->area() && object->area() == area;
    })) << "no "
        << role.toStdString() << " '" << name.toStdString() << '\'';
    return area;
}

void SettingsWindowTest::click(const QString& name, const QString& role)
{
    mouse.click(place(name, role).center());
}

void SettingsWindowTest::tabTo(const QString& name)
{
    constexpr int enough = 12;
    for (int i = 0; i < enough && focused() != name; ++i) {
        const auto before = focused();
        keyboard.tap(KeyCode::tab);
        waitUntil([&] { return focused() != before; });
    }
    expectFocused(name);
}

QString SettingsWindowTest::focused() const
{
    for (const auto& [object, name, role] : shown()) {
        if (role != Role::window && !name.isEmpty() && object.is(AccessibleState::focused))
            return name;
    }
    return {};
}

void SettingsWindowTest::expectFocused(const QString& name) const
{
    EXPECT_TRUE(waitUntil([&] { return focused() == name; }))
        << "the keyboard is in '" << focused().toStdString() << "', not '" << name.toStdString()
        << '\'';
}

} // namespace sablequill
