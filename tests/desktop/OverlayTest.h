// SPDX-License-Identifier: MIT
#pragma once

#include "DesktopSession.h"
#include "Keyboard.h"
#include "Mouse.h"
#include "Overlay.h"
#include "ProbeWindow.h"
#include "ProgramUnderTest.h"
#include "Screenshot.h"
#include "Windows.h"

#include <gtest/gtest.h>

#include <memory>

namespace sablequill {

/// How long is watched that something does not happen; longer than every delay the program has.
inline constexpr Milliseconds watchTime{500};

/// The overlay of the built program over a focused full-screen window of another one, in each
/// set-up. The user has three notes and has finished the guide.
class OverlayTest : public testing::TestWithParam<WindowManagerSetup> {
protected:
    /// The card, in the root's coordinates, as the user's settings have it at the start.
    static constexpr Area savedCard{200, 150, 420, 280};
    static const QColor background;

    static void TearDownTestSuite() { DesktopSession::dropShared(); }

    void SetUp() override;

    /// How the program is started.
    virtual std::vector<std::string> command() const { return {SABLEQUILL_BINARY}; }

    /// Puts the three notes into the user's file.
    void writeNotes();
    /// What the program is started with.
    virtual Environment environment() const { return session.environment(user); }
    /// Returns when the overlay is shown; fails the test when it does not come.
    void startProgram();
    /// Ends it by SIGTERM and fails the test when that is no clean end.
    void endProgram();

    /// Presses of the four system-wide keys at their default places.
    void pressToggle() { pressHotKey(KeyCode::g); }
    void pressQuickOpen() { pressHotKey(KeyCode::o); }
    void pressNextNote() { pressHotKey(KeyCode::down); }
    void pressPreviousNote() { pressHotKey(KeyCode::up); }
    void pressHotKey(xcb_keycode_t code);

    /// Opens the editor by key and waits for the keyboard to be in it.
    void quickOpen();
    /// Replaces the text of the note in the editor.
    void retype(std::string_view text);
    bool isComposited() const { return traits(GetParam()).isComposited; }

    /// Of the note at that index of notes.json; empty when there is none.
    QString savedContent(int index) const;
    QString savedTitle(int index) const;
    /// Waits for that content in notes.json; fails the test when it does not come.
    void expectSaved(int index, const QString& content) const;
    /// The frame in settings.json as a card, in the root's coordinates.
    std::optional<Area> savedFrame() const;
    /// Settings with that card.
    QJsonObject settingsWith(Area card) const;

    DesktopSession& session = DesktopSession::shared(GetParam());
    PrivateHome user;
    XConnection x{session.displayName()};
    Keyboard keyboard{x};
    Mouse mouse{x};
    ProbeWindow probe{session.displayName(), {.color = background}};
    Overlay overlay{x};
    std::unique_ptr<ProgramUnderTest> program;
};

std::string setupName(const testing::TestParamInfo<WindowManagerSetup>& info);

/// The set-ups of every run, and those that a person runs.
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): GoogleTest instantiates by macro.
#define INSTANTIATE_FOR_ALL_SETUPS(suite)                                                          \
    INSTANTIATE_TEST_SUITE_P(Everyday, suite, testing::ValuesIn(everydaySetups()), setupName);     \
    INSTANTIATE_TEST_SUITE_P(Further, suite, testing::ValuesIn(furtherSetups()), setupName)

} // namespace sablequill
