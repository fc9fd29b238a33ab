// SPDX-License-Identifier: MIT
#include "Answers.h"
#include "Rows.h"

#include <cstdlib>
#include <fstream>

namespace sablequill {
namespace {

std::string writeProse(const PrivateHome& user)
{
    const auto path = user.path() / "prose.md";
    std::ofstream(path) << prose(1, 1'000'000).toStdString();
    return path;
}

/// From the start of the program's next-note key to the pixel of a note that it never showed.
double timeOfFirstShow(Stage& stage, const PrivateHome& user)
{
    auto program = stage.startProgram(user);
    double taken = 0;
    {
        const ScreenWatch watch(stage.x, noteText);
        const auto before = watch.picture();
        const auto pressed = stage.pressShortcut(KeyCode::down);
        taken = milliseconds(watch.waitForChangeFrom(before) - pressed);
        stage.releaseShortcut(KeyCode::down);
    }
    stage.end(std::move(program));
    return taken;
}

/// One short note, and the long one behind it.
void furnishWithLongNote(const PrivateHome& user)
{
    furnish(user, 2, 1'000'000);
    QJsonArray notes = *user.readNotes();
    notes[0] = noteRecord(0, QStringLiteral("Short"), QStringLiteral("Short"));
    user.writeNotes(notes);
}

} // namespace

void measureInlineMarkdown(Stage& stage, Table& table)
{
    const PrivateHome user;
    const std::string file = writeProse(user);
    const auto floors = stage.measurement.floors;
    Samples samples;
    for (int run = 0; run < stage.measurement.processRuns; ++run) {
        samples.floor.push_back(1000 / numberFrom({floors / "cmark_alone", file}));
        samples.program.push_back(1000 / numberFrom({floors / "read_inline", file}));
    }
    const double floor = 1000 * median(samples.floor);
    table.add({"inline Markdown, 1 MB of prose", "MB/s", 1000 * median(samples.program), floor,
        0.7 * floor, "≥ 0.7 x", true});
}

void measureFirstShow(Stage& stage, Table& table)
{
    const PrivateHome user;
    const std::string file = writeProse(user);
    furnishWithLongNote(user);
    // For the floor, which has no window.
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("XDG_RUNTIME_DIR", user.runtimeFolder().c_str(), 1);
    Samples samples;
    for (int run = 0; run < stage.measurement.processRuns; ++run) {
        samples.floor.push_back(
            numberFrom({stage.measurement.floors / "text_document", file}) / 1000);
        samples.program.push_back(timeOfFirstShow(stage, user));
    }
    const double floor = median(samples.floor);
    table.add({"first show of a 1 MB note", "ms", median(samples.program), floor, 1.3 * floor,
        "≤ 1.3 x"});
}

} // namespace sablequill
