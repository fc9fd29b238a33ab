// SPDX-License-Identifier: MIT
#include "Answers.h"
#include "FileWatch.h"
#include "Rows.h"

#include <algorithm>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// The lines at the top of a note, in the editor.
const Area watchedText{overlayCard.x + 12, overlayCard.y + 52, 100, 120};

/// The program with a note in the editor, the cursor at the start of its third line.
class TypingDesk {
public:
    TypingDesk(Stage& stage, const PrivateHome& user);
    ~TypingDesk() { stage.end(std::move(program)); }
    TypingDesk(const TypingDesk&) = delete;
    TypingDesk& operator=(const TypingDesk&) = delete;

    /// Types a character, takes it back, and tells how long the first took: until it was both on
    /// the screen and safe in the file.
    double timeOfCharacter();

private:
    double timeOf(xcb_keycode_t key);

    Stage& stage;
    std::unique_ptr<ChildProcess> program;
    ScreenWatch watch;
    FileWatch file;
};

TypingDesk::TypingDesk(Stage& usedStage, const PrivateHome& user)
    : stage(usedStage)
    , program(stage.startProgram(user))
    , watch(stage.x, watchedText)
    , file(user.storageFolder() / "notes.json")
{
    stage.tapShortcut(KeyCode::o);
    require([&] { return stage.overlay.hasKeyboard(); }, "the editor does not get the keyboard");
    pause(500ms);
    stage.keyboard.chord({KeyCode::leftControl}, KeyCode::home);
    stage.keyboard.tap(KeyCode::down);
    stage.keyboard.tap(KeyCode::down);
    pause(500ms);
}

double TypingDesk::timeOfCharacter()
{
    const double taken = timeOf(KeyCode::m);
    timeOf(KeyCode::backspace);
    return taken;
}

double TypingDesk::timeOf(xcb_keycode_t key)
{
    file.reset();
    const auto before = watch.picture();
    const auto pressed = Clock::now();
    stage.keyboard.press(key);
    const auto isSafe = file.waitForReplacement();
    const auto isSeen = watch.waitForChangeFrom(before);
    stage.keyboard.release(key);
    pause(15ms);
    return milliseconds(std::max(isSafe, isSeen) - pressed);
}

/// A copy of the notes' file for the floor to replace.
std::string copyOfNotes(const PrivateHome& user)
{
    const auto copy = user.path() / "floor.json";
    std::filesystem::copy_file(user.storageFolder() / "notes.json", copy);
    return copy;
}

Samples type(Stage& stage, const PrivateHome& user, int events)
{
    TypingDesk desk(stage, user);
    // The first write brings the file into the program's own form.
    desk.timeOfCharacter();
    const Answers floor({stage.measurement.floors / "durable_write", copyOfNotes(user)});
    floor.ask();
    Samples samples;
    for (int event = 0; event < events; ++event) {
        samples.floor.push_back(floor.ask() / 1000);
        samples.program.push_back(desk.timeOfCharacter());
    }
    return samples;
}

} // namespace

void measureTyping(Stage& stage, Table& table)
{
    for (const int notes : {10, 100, 1000, 10'000}) {
        const PrivateHome user;
        furnish(user, notes, 2000);
        const Samples samples = type(stage, user, stage.measurement.events);
        const double floor = median(samples.floor);
        table.add({"character to file and pixel, " + std::to_string(notes) + " notes", "ms",
            median(samples.program), floor, 1.5 * floor + 1, "≤ 1.5 x + 1 ms"});
    }
}

void measureLargeNote(Stage& stage, Table& table)
{
    const MemoryFolder inMemory;
    const PrivateHome user;
    furnish(user, 1, 1'000'000);
    const Samples samples = type(stage, user, stage.measurement.events);
    const double floor = median(samples.floor);
    for (const double part : {0.5, 1.0})
        table.add({part < 1 ? "character in a 1 MB note, median" : "character in a 1 MB note, most",
            "ms", quantile(samples.program, part), floor, floor + 16, "≤ 16 ms + write"});
}

} // namespace sablequill
