// SPDX-License-Identifier: MIT
#include "Rows.h"

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// The floor's window and key, beside those of the overlay.
constexpr Area floorCard{10, 180, 420, 320};
constexpr xcb_keycode_t floorKey = KeyCode::h;
const Area watchedOnFloor{floorCard.center().x - 8, floorCard.center().y - 4, 16, 8};
const Area watchedOnOverlay{overlayCard.center().x - 8, overlayCard.center().y - 4, 16, 8};

std::unique_ptr<ChildProcess> startWindowFloor(Stage& stage, const PrivateHome& user)
{
    const auto text = [](int number) { return std::to_string(number); };
    auto process = stage.startFloor(user,
        {"xcb_panel", text(floorCard.x), text(floorCard.y), text(floorCard.width),
            text(floorCard.height), text(floorKey)});
    pause(500ms);
    return process;
}

/// How long it takes from a shortcut's key to another picture.
double timeToChange(Stage& stage, const ScreenWatch& watch, xcb_keycode_t key)
{
    const auto before = watch.picture();
    const auto pressed = stage.pressShortcut(key);
    const double taken = milliseconds(watch.waitForChangeFrom(before) - pressed);
    stage.releaseShortcut(key);
    return taken;
}

/// How long it takes until something hidden shows; it is hidden again afterwards.
double timeToShow(Stage& stage, const ScreenWatch& watch, xcb_keycode_t key)
{
    const auto hidden = watch.picture();
    const double taken = timeToChange(stage, watch, key);
    pause(30ms);
    stage.tapShortcut(key);
    watch.waitFor(hidden);
    pause(30ms);
    return taken;
}

double timeOfFloor(Stage& stage, const ScreenWatch& watch)
{
    return timeToShow(stage, watch, floorKey);
}

void addToggle(Table& table, const Samples& samples)
{
    const double floor = median(samples.floor);
    table.add({"toggle key to pixel, median", "ms", median(samples.program), floor, 2 * floor + 1,
        "≤ 2 x + 1 ms"});
    table.add({"toggle key to pixel, 99th percentile", "ms", quantile(samples.program, 0.99),
        quantile(samples.floor, 0.99), 16, "≤ 16 ms"});
}

void compareNextNote(Stage& stage, Table& table, int kilobytes, int limitAtFloor)
{
    constexpr double usualFloor = 0.35;
    const PrivateHome user;
    furnish(user, 4, kilobytes * 1000);
    auto floor = startWindowFloor(stage, user);
    auto program = stage.startProgram(user);
    const ScreenWatch floorWatch(stage.x, watchedOnFloor);
    const ScreenWatch watch(stage.x, noteText);
    Samples samples;
    for (int event = 0; event < stage.measurement.events; ++event) {
        samples.floor.push_back(timeOfFloor(stage, floorWatch));
        samples.program.push_back(timeToChange(stage, watch, KeyCode::down));
        pause(60ms);
    }
    stage.end(std::move(program));
    const double floorTime = median(samples.floor);
    table.add({"next note to pixel, " + std::to_string(kilobytes) + " KB", "ms",
        median(samples.program), floorTime, floorTime / usualFloor * limitAtFloor,
        "≤ " + std::to_string(limitAtFloor) + " ms at a floor of 0.35"});
}

} // namespace

void measureToggle(Stage& stage, Table& table)
{
    const PrivateHome user;
    furnish(user, 1, 10'000);
    auto floor = startWindowFloor(stage, user);
    auto program = stage.startProgram(user);
    const ScreenWatch floorWatch(stage.x, watchedOnFloor);
    const ScreenWatch watch(stage.x, watchedOnOverlay);
    stage.tapShortcut(KeyCode::g);
    require([&] { return !stage.overlay.isShown(); }, "the overlay does not hide");
    pause(500ms);
    Samples samples;
    for (int event = 0; event < stage.measurement.events; ++event) {
        samples.floor.push_back(timeOfFloor(stage, floorWatch));
        samples.program.push_back(timeToShow(stage, watch, KeyCode::g));
    }
    stage.end(std::move(program));
    addToggle(table, samples);
}

void measureNextNote(Stage& stage, Table& table)
{
    compareNextNote(stage, table, 10, 4);
    compareNextNote(stage, table, 100, 16);
}

} // namespace sablequill
