// SPDX-License-Identifier: MIT
#pragma once

#include "DesktopSession.h"
#include "Keyboard.h"
#include "Overlay.h"
#include "ScreenWatch.h"
#include "Table.h"
#include "Wait.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sablequill {

/// What is measured, and how often.
struct Measurement {
    std::filesystem::path program; ///< The installed one.
    std::filesystem::path floors; ///< The folder that holds the floors.
    int processRuns = 11;
    int events = 200;
};

/// Where the overlay stands in every measurement, and the floor in those of starting up.
inline constexpr Area overlayCard{440, 180, 420, 320};
/// Where the overlay shows the first lines of a note.
inline constexpr Area noteText{overlayCard.x + 14, overlayCard.y + 60, 160, 80};

/// A desktop with a white screen to be measured on.
class Stage {
public:
    Stage(const Measurement& measurement, WindowManagerSetup setup);

    Environment environment(const PrivateHome& user) const { return session.environment(user); }
    /// Starts the program and returns when its overlay is on the screen, its popover closed, and
    /// everything has come to rest.
    std::unique_ptr<ChildProcess> startProgram(const PrivateHome& user);
    /// `command` is a floor's name and its arguments.
    std::unique_ptr<ChildProcess> startFloor(
        const PrivateHome& user, std::vector<std::string> command);
    /// Ends a program and returns when its windows are gone from the screen.
    void end(std::unique_ptr<ChildProcess> program);

    /// Holds Super and Shift while it presses the key, and tells when it did.
    Clock::time_point pressShortcut(xcb_keycode_t key);
    /// Lets go of them.
    void releaseShortcut(xcb_keycode_t key);
    void tapShortcut(xcb_keycode_t key);

    const Measurement measurement;
    DesktopSession session;
    const XConnection x;
    Keyboard keyboard{x};
    const Overlay overlay{x};
};

/// A home with the given settings over the default ones and so many notes of so many bytes each.
void furnish(const PrivateHome& user, int notes, int bytes);

/// So many bytes of prose with a span of Markdown here and there, another one for each number.
QString prose(int number, int bytes);

/// Waits until the condition holds; throws std::runtime_error with the complaint when it never
/// does.
void require(const std::function<bool()>& condition, const std::string& complaint,
    Milliseconds deadline = defaultDeadline);

/// New temporary files are in memory, where a write costs next to nothing, for as long as this
/// lives.
class MemoryFolder {
public:
    MemoryFolder();
    ~MemoryFolder();
    MemoryFolder(const MemoryFolder&) = delete;
    MemoryFolder& operator=(const MemoryFolder&) = delete;
};

/// Lets the machine come to rest between two events.
void pause(Milliseconds duration);

} // namespace sablequill
