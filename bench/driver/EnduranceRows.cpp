// SPDX-License-Identifier: MIT
#include "ProcessNumbers.h"
#include "Rows.h"

#include <xcb/res.h>

#include <functional>
#include <stdexcept>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// How often an action is repeated.
struct Count {
    int warmUp; ///< So many of all, after which nothing may grow.
    int all;
};
constexpr Count keys{1000, 10'000};
/// The history of what can be taken back is full after 25,000: it holds 1,000 edits, and 50
/// characters that are typed and deleted again are two.
constexpr Count characters{30'000, 100'000};

/// What a program holds at one moment.
struct Holdings {
    double memory = 0; ///< MB
    std::int64_t resources = 0; ///< Of the X server, all kinds.
    std::int64_t pixmapBytes = 0;
    int files = 0;
};

std::int64_t resourcesOf(const XConnection& x, xcb_window_t window)
{
    const XOwned<xcb_res_query_client_resources_reply_t> reply(xcb_res_query_client_resources_reply(
        x.get(), xcb_res_query_client_resources(x.get(), window), nullptr));
    if (!reply)
        throw std::runtime_error("the X server does not count resources");
    const xcb_res_type_t* types = xcb_res_query_client_resources_types(reply.get());
    std::int64_t sum = 0;
    for (int type = 0; type < xcb_res_query_client_resources_types_length(reply.get()); ++type)
        sum += types[type].count;
    return sum;
}

std::int64_t pixmapBytesOf(const XConnection& x, xcb_window_t window)
{
    const XOwned<xcb_res_query_client_pixmap_bytes_reply_t> reply(
        xcb_res_query_client_pixmap_bytes_reply(
            x.get(), xcb_res_query_client_pixmap_bytes(x.get(), window), nullptr));
    if (!reply)
        throw std::runtime_error("the X server does not count pixmaps");
    return (std::int64_t{reply->bytes_overflow} << 32) + reply->bytes;
}

/// The program under a long series of the same action.
class Trial {
public:
    Trial(Stage& stage, Table& table);
    ~Trial() { stage.end(std::move(program)); }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    /// Does it so often, in blocks after each of which the program is at rest, and compares
    /// what it holds at the end with what it held when it was warm.
    void repeat(const std::string& what, Count times, const std::function<void(int)>& action);
    void shortcut(xcb_keycode_t key);
    void edit();

private:
    Holdings holdings() const;
    void rest() const;

    Stage& stage;
    Table& table;
    PrivateHome user;
    std::unique_ptr<ChildProcess> program;
};

Trial::Trial(Stage& usedStage, Table& usedTable)
    : stage(usedStage)
    , table(usedTable)
{
    furnish(user, 100, 2000);
    program = stage.startProgram(user);
}

Holdings Trial::holdings() const
{
    const auto window = stage.overlay.window();
    if (!window)
        throw std::runtime_error("the overlay is gone");
    return {writtenMemory(program->pid()), resourcesOf(stage.x, *window),
        pixmapBytesOf(stage.x, *window), openFiles(program->pid())};
}

/// Until it takes no processor time for a while.
void Trial::rest() const
{
    const auto isAtRest = [&] {
        const double before = activityOf(program->pid()).processorMilliseconds;
        pause(400ms);
        return activityOf(program->pid()).processorMilliseconds - before < 1;
    };
    require(isAtRest, "the program does not come to rest", 120s);
}

void Trial::repeat(const std::string& what, Count times, const std::function<void(int)>& action)
{
    Holdings early;
    for (int time = 1; time <= times.all; ++time) {
        action(time);
        if (time == times.warmUp) {
            rest();
            early = holdings();
        } else if (time % 500 == 0) {
            rest();
        }
    }
    rest();
    const Holdings late = holdings();
    const std::string prefix = std::to_string(times.all) + ' ' + what + ": ";
    // A hundredth of what it holds is what the allocator's own order may make of it.
    table.add({prefix + "memory", "MB", late.memory, early.memory, 1.01 * early.memory + 0.2,
        "no growth"});
    const auto add = [&](const std::string& kind, std::int64_t last, std::int64_t first) {
        table.add({prefix + kind, "", static_cast<double>(last), static_cast<double>(first),
            static_cast<double>(first), "no growth"});
    };
    add("X resources", late.resources, early.resources);
    add("bytes of pixmaps", late.pixmapBytes, early.pixmapBytes);
    add("open files", late.files, early.files);
}

void Trial::shortcut(xcb_keycode_t key)
{
    stage.tapShortcut(key);
    stage.x.sync();
}

void Trial::edit()
{
    shortcut(KeyCode::o);
    require([&] { return stage.overlay.hasKeyboard(); }, "the editor does not get the keyboard");
}

} // namespace

void measureEndurance(Stage& stage, Table& table)
{
    // As many durable writes would otherwise take hours.
    const MemoryFolder inMemory;
    Trial trial(stage, table);
    // Some of them meet a fade that is still under way.
    trial.repeat("toggles", keys, [&](int time) {
        trial.shortcut(KeyCode::g);
        pause(time % 10 < 2 ? 260ms : 12ms);
    });
    trial.repeat("note switches", keys, [&](int) {
        trial.shortcut(KeyCode::down);
        pause(12ms);
    });
    trial.edit();
    // What is typed is deleted again: a longer note is no leak.
    trial.repeat("typed characters", characters, [&](int time) {
        stage.keyboard.tap(KeyCode::m);
        if (time % 50 == 0)
            for (int count = 0; count < 50; ++count)
                stage.keyboard.tap(KeyCode::backspace);
        if (time % 10 == 0)
            pause(20ms);
    });
}

} // namespace sablequill
