// SPDX-License-Identifier: MIT
#include "ProcessNumbers.h"
#include "Rows.h"

#include <sstream>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

constexpr int noteSize = 2000;
/// In the card's middle, where the bare panel has its label.
const Area watched{overlayCard.center().x - 8, overlayCard.center().y - 4, 16, 8};

/// A program that shows something where the overlay is.
struct Subject {
    std::string command;
    Environment environment;
    const PrivateHome& user;

    std::unique_ptr<ChildProcess> start() const
    {
        return std::make_unique<ChildProcess>(
            ChildProcessDescription{{command}, environment, user.path() / "subject.log"});
    }
};

Subject program(const Stage& stage, const PrivateHome& user, const std::string& desktop)
{
    Environment environment = stage.environment(user);
    if (!desktop.empty())
        environment["XDG_CURRENT_DESKTOP"] = desktop;
    return {stage.measurement.program, environment, user};
}

Subject barePanel(const Stage& stage, const PrivateHome& user)
{
    return {stage.measurement.floors / "qt_panel", stage.environment(user), user};
}

double timeToFirstPixel(Stage& stage, const Subject& subject)
{
    const ScreenWatch watch(stage.x, watched);
    const auto before = watch.picture();
    const auto start = Clock::now();
    auto process = subject.start();
    const double taken = milliseconds(watch.waitForChangeFrom(before) - start);
    stage.end(std::move(process));
    pause(100ms);
    return taken;
}

double memoryAfterThreeSeconds(Stage& stage, const Subject& subject)
{
    auto process = subject.start();
    pause(3s);
    const double memory = ownMemory(process->pid());
    stage.end(std::move(process));
    return memory;
}

using Measure = double (*)(Stage&, const Subject&);

/// In turns, after one of each that is not counted.
Samples compare(Stage& stage, const Subject& program, const Subject& floor, Measure measure)
{
    measure(stage, floor);
    measure(stage, program);
    Samples samples;
    for (int run = 0; run < stage.measurement.processRuns; ++run) {
        samples.floor.push_back(measure(stage, floor));
        samples.program.push_back(measure(stage, program));
    }
    return samples;
}

std::string onDesktop(const std::string& what, const std::string& desktop)
{
    return desktop.empty() ? what : what + ", " + desktop;
}

Row rowOf(
    const std::string& what, const std::string& unit, const Samples& samples, double mostRatio)
{
    std::ostringstream target;
    target << "≤ " << mostRatio << " x";
    const double floor = median(samples.floor);
    return {what, unit, median(samples.program), floor, floor * mostRatio, target.str()};
}

void compareStartup(
    Stage& stage, Table& table, int notes, const std::string& desktop, double mostRatio)
{
    const PrivateHome user;
    furnish(user, notes, noteSize);
    const Samples samples =
        compare(stage, program(stage, user, desktop), barePanel(stage, user), timeToFirstPixel);
    const std::string what = "exec to first pixel, " + std::to_string(notes) + " notes";
    table.add(rowOf(onDesktop(what, desktop), "ms", samples, mostRatio));
}

void compareMemory(Stage& stage, Table& table, const std::string& desktop)
{
    const PrivateHome user;
    furnish(user, 100, noteSize);
    const Samples samples = compare(
        stage, program(stage, user, desktop), barePanel(stage, user), memoryAfterThreeSeconds);
    table.add(rowOf(onDesktop("memory after 3 s", desktop), "MB", samples, 1.3));
}

/// What a process does while nobody asks for anything.
struct Idling {
    double processorMilliseconds = 0;
    std::int64_t wakeUps = 0;
};

Idling idlingOf(pid_t process)
{
    pause(3s);
    const Activity before = activityOf(process);
    pause(20s);
    const Activity after = activityOf(process);
    return {
        after.processorMilliseconds - before.processorMilliseconds, wakeUpsBetween(before, after)};
}

void addIdling(Table& table, const std::string& state, const Idling& program, const Idling& floor)
{
    table.add({"processor time in 20 s, " + state, "ms", program.processorMilliseconds,
        floor.processorMilliseconds, 0, "0"});
    table.add({"wake-ups in 20 s, " + state, "", static_cast<double>(program.wakeUps),
        static_cast<double>(floor.wakeUps), 0, "0"});
}

Idling idlingOfFloor(Stage& stage, const PrivateHome& user, std::vector<std::string> command)
{
    auto process = stage.startFloor(user, std::move(command));
    const Idling idling = idlingOf(process->pid());
    stage.end(std::move(process));
    return idling;
}

} // namespace

void measureStartup(Stage& stage, Table& table)
{
    compareStartup(stage, table, 100, "", 1.5);
    compareStartup(stage, table, 100, "GNOME", 1.5);
    compareStartup(stage, table, 10'000, "", 2.7);
    compareStartup(stage, table, 10'000, "GNOME", 2.7);
}

void measureMemory(Stage& stage, Table& table)
{
    compareMemory(stage, table, "");
    compareMemory(stage, table, "GNOME");
}

void measureIdling(Stage& stage, Table& table)
{
    const PrivateHome user;
    furnish(user, 100, noteSize);
    const Idling shownFloor = idlingOfFloor(stage, user, {"qt_panel"});
    const Idling hiddenFloor = idlingOfFloor(stage, user, {"qt_panel", "hidden"});
    auto process = stage.startProgram(user);
    addIdling(table, "shown", idlingOf(process->pid()), shownFloor);
    stage.tapShortcut(KeyCode::g);
    require([&] { return !stage.overlay.isShown(); }, "the overlay does not hide");
    addIdling(table, "hidden", idlingOf(process->pid()), hiddenFloor);
    stage.end(std::move(process));
}

} // namespace sablequill
