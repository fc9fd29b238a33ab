// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"
#include "DesktopSession.h"
#include "Guide.h"
#include "Keyboard.h"
#include "Mouse.h"
#include "Overlay.h"
#include "Popover.h"
#include "ProbeWindow.h"
#include "ProgramUnderTest.h"
#include "StatusNotifierHost.h"
#include "Windows.h"
#include "XEmbedStatusArea.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace sablequill {

/// How long is watched that something does not happen; longer than every delay the program has.
inline constexpr Milliseconds watchTime{600};

/// The built program with all that it has beside the overlay, on the desktop of a new user, and a
/// focused window of another program. Waiting runs the main loop, in which hosts live.
class ShellTest : public testing::Test {
protected:
    explicit ShellTest(WindowManagerSetup setup = WindowManagerSetup::openbox);

    void SetUp() override;

    /// Three notes, and the guide finished.
    void becomeExperienced(int notes = 3);
    /// Of the older kind, at the top right.
    void startStatusArea();
    /// On the session bus.
    void startHost();
    /// Returns when the overlay and the popover are on the screen, where they stay.
    void startProgram();
    /// Starts it once more and expects that this one ends at once and well.
    void startAgain();
    /// Waits for the end that was asked for, and expects a clean one that leaves nothing behind.
    void expectEnded();
    /// Ends it as a session does.
    void endProgram(int signal = SIGTERM);
    /// Clicks elsewhere.
    void dismissPopover();
    /// The same, and lets the time pass in which a click on the icon would belong to that one.
    void leavePopover();
    /// Waits for the popover and the keyboard in it.
    void expectPopoverOpens();
    /// Opens it where the user last found it, with the keyboard in it.
    void openPopover();

    /// The icon in the status area of the older kind; none while it is not docked there.
    std::optional<Area> icon() const;
    /// Waits for the icon to be drawn.
    bool isIconShown() const;
    /// While it is shown.
    std::optional<xcb_window_t> settingsWindow() const;
    bool isInWindowList(xcb_window_t window) const;
    /// Whether the card is where a popover at this place belongs, below it and on the screen.
    bool isPopoverBelow(const Area& place) const;

    QString savedContent(int index) const;
    /// Waits for as many notes in notes.json.
    bool areNotesSaved(int count) const;

private:
    bool isSettingsWindow(xcb_window_t window) const;

protected:
    DesktopSession& session;
    PrivateHome user;
    XConnection x{session.displayName()};
    Keyboard keyboard{x};
    Mouse mouse{x};
    ProbeWindow probe{session.displayName(), {.isFullScreen = false, .area = {20, 620, 300, 150}}};
    Overlay overlay{x};
    Popover popover{x};
    Guide guide{x};
    std::unique_ptr<XEmbedStatusArea> statusArea;
    std::unique_ptr<StatusNotifierHost> host;
    std::unique_ptr<ProgramUnderTest> program;
};

/// For what depends on the window manager.
class ManagedShellTest : public ShellTest, public testing::WithParamInterface<WindowManagerSetup> {
protected:
    ManagedShellTest()
        : ShellTest(GetParam())
    {
    }
};

std::string setupName(const testing::TestParamInfo<WindowManagerSetup>& info);

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): GoogleTest instantiates by macro.
#define INSTANTIATE_FOR_ALL_SETUPS(suite)                                                          \
    INSTANTIATE_TEST_SUITE_P(Everyday, suite, testing::ValuesIn(everydaySetups()), setupName);     \
    INSTANTIATE_TEST_SUITE_P(Further, suite, testing::ValuesIn(furtherSetups()), setupName)

} // namespace sablequill
