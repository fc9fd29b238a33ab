// SPDX-License-Identifier: MIT
#include "Stage.h"

#include "Mouse.h"
#include "Windows.h"

#include <QStringList>

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// Outside of every window of the program.
constexpr Point elsewhere{40, 760};

const QStringList& words()
{
    static const QStringList words = QStringLiteral(
        "the speaker turns to the camera and says what the next part is about before the slides "
        "change while nobody in the room sees that each sentence stands right below the lens "
        "**slowly** then `pauses` and *smiles* as if it had just come to mind")
                                         .split(u' ');
    return words;
}

bool isPopoverShown(const XConnection& x)
{
    const auto popover = findWindow(x, {"Sablequill", "popover"});
    return popover && isViewable(x, *popover);
}

/// There for as long as the connection is.
void showBackdrop(const XConnection& x)
{
    Area screen = x.screenArea();
    // A window as large as the screen would be shown past the compositor, and nothing above it.
    screen.height -= 8;
    const std::uint32_t values[] = {x.screen().white_pixel, 1};
    const std::uint32_t below = XCB_STACK_MODE_BELOW;
    const xcb_window_t window = xcb_generate_id(x.get());
    xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, window, x.root(), 0, 0,
        static_cast<std::uint16_t>(screen.width), static_cast<std::uint16_t>(screen.height), 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_configure_window(x.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &below);
    xcb_map_window(x.get(), window);
    x.sync();
}

} // namespace

Stage::Stage(const Measurement& wanted, WindowManagerSetup setup)
    : measurement(wanted)
    , session(setup)
    , x(session.displayName())
{
    showBackdrop(x);
    const auto isWhite = [&](Point point) { return colorAt(x, point) == Qt::white; };
    require([&] { return isWhite(overlayCard.center()) && isWhite(elsewhere); },
        "the backdrop does not show");
}

std::unique_ptr<ChildProcess> Stage::startProgram(const PrivateHome& user)
{
    auto program = std::make_unique<ChildProcess>(ChildProcessDescription{
        {measurement.program.string()}, environment(user), user.path() / "program.log"});
    if (!waitUntil([&] { return overlay.isShown() && isPopoverShown(x); }))
        throw std::runtime_error("the program does not show: " + program->output());
    pause(500ms);
    Mouse(x).click(elsewhere);
    require([&] { return !isPopoverShown(x); }, "the popover stays");
    pause(500ms);
    return program;
}

std::unique_ptr<ChildProcess> Stage::startFloor(
    const PrivateHome& user, std::vector<std::string> command)
{
    const std::string name = command.front();
    command.front() = measurement.floors / name;
    return std::make_unique<ChildProcess>(ChildProcessDescription{
        std::move(command), environment(user), user.path() / (name + ".log")});
}

void Stage::end(std::unique_ptr<ChildProcess> program)
{
    program->sendSignal(SIGTERM);
    program->waitForExit();
    require([&] { return colorAt(x, overlayCard.center()) == Qt::white; },
        "the window stays on the screen");
}

Clock::time_point Stage::pressShortcut(xcb_keycode_t key)
{
    keyboard.press(KeyCode::leftSuper);
    keyboard.press(KeyCode::leftShift);
    const auto pressed = Clock::now();
    keyboard.press(key);
    return pressed;
}

void Stage::releaseShortcut(xcb_keycode_t key)
{
    keyboard.release(key);
    keyboard.release(KeyCode::leftShift);
    keyboard.release(KeyCode::leftSuper);
}

void Stage::tapShortcut(xcb_keycode_t key)
{
    pressShortcut(key);
    releaseShortcut(key);
}

void furnish(const PrivateHome& user, int notes, int bytes)
{
    QJsonArray records;
    for (int number = 0; number < notes; ++number)
        records.append(
            noteRecord(number, QStringLiteral("Note %1").arg(number), prose(number, bytes)));
    user.writeNotes(records);
    QJsonObject settings = defaultSettings();
    settings[QStringLiteral("overlayFrame")] = QJsonObject{
        {QStringLiteral("x"), overlayCard.x},
        {QStringLiteral("y"), 800 - overlayCard.bottom()},
        {QStringLiteral("width"), overlayCard.width},
        {QStringLiteral("height"), overlayCard.height},
    };
    user.writeSettings(settings);
}

QString prose(int number, int bytes)
{
    QString text = QStringLiteral("# Note %1\n\n").arg(number);
    // Neighbors differ from their first letters on.
    text += number % 2 ? QStringLiteral("MWMWMWMW\n") : QStringLiteral("....,,,,\n");
    for (int word = number * 7; text.size() < bytes; ++word) {
        text += words()[word % words().size()];
        text += word % 90 == 89 ? QStringLiteral("\n\n") : QStringLiteral(" ");
    }
    text.truncate(bytes);
    return text;
}

void require(
    const std::function<bool()>& condition, const std::string& complaint, Milliseconds deadline)
{
    if (!waitUntil(condition, deadline))
        throw std::runtime_error(complaint);
}

MemoryFolder::MemoryFolder()
{
    ::setenv("TMPDIR", "/dev/shm", 1);
}

MemoryFolder::~MemoryFolder()
{
    ::unsetenv("TMPDIR");
}

void pause(Milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}

} // namespace sablequill
