// SPDX-License-Identifier: MIT
#pragma once

#include "WindowsTest.h"

namespace sablequill {

/// The Settings window of the built program, used with the mouse and the keyboard; the
/// accessibility bus only tells where things are and what they show.
class SettingsWindowTest : public WindowsTest {
protected:
    /// Starts the program and clicks "Settings…" in its popover; returns when the window is there
    /// with the keyboard. Fails the test when it does not come.
    void openByMouse();
    /// Starts the program a second time, which shows the popover, and goes to "Settings…" there by
    /// the arrow keys.
    void openByKeyboard();
    /// Opens the window and shows another of its tabs.
    void openTab(const QString& name);

    /// The program's windows that a window manager manages: the Settings window alone.
    std::vector<xcb_window_t> managedWindows() const;
    bool hasKeyboard() const;
    /// Where it is, once the program has heard of it too.
    Area place(const QString& name, const QString& role) const;
    /// Waits for it to be there and clicks its middle.
    void click(const QString& name, const QString& role = Role::button);

    /// Presses Tab until that control has the keyboard; fails the test when it does not get it.
    void tabTo(const QString& name);
    /// The name of what has the keyboard; empty when nothing of the program has it.
    QString focused() const;
    void expectFocused(const QString& name) const;

private:
    void awaitWindow();
};

} // namespace sablequill
