// SPDX-License-Identifier: MIT
#include "ShellTest.h"

#include "harness/Screenshot.h"

#include <algorithm>
#include <set>

#include <sys/wait.h>

namespace sablequill {

namespace {

constexpr Point parkedPointer{700, 790};
/// Between the popover and the place that it opens at.
constexpr int gap = 6;

class DropSession : public testing::Environment {
public:
    void TearDown() override { DesktopSession::dropShared(); }
};

[[maybe_unused]] const auto* const dropSession = testing::AddGlobalTestEnvironment(new DropSession);

bool showsPicture(const XConnection& x, const Area& area)
{
    const QImage picture = captureScreen(x, area);
    std::set<QRgb> colors;
    for (int row = 0; row < picture.height(); ++row)
        for (int column = 0; column < picture.width(); ++column)
            colors.insert(picture.pixel(column, row));
    return colors.size() > 2;
}

} // namespace

ShellTest::ShellTest(WindowManagerSetup setup)
    : session(DesktopSession::shared(setup))
{
}

void ShellTest::SetUp()
{
    mouse.moveTo(parkedPointer);
    probe.show();
}

void ShellTest::becomeExperienced(int notes)
{
    QJsonArray records;
    for (int number = 1; number <= notes; ++number)
        records.append(noteRecord(number, QStringLiteral("Note %1").arg(number),
            QStringLiteral("# Note %1\n\nText %1.").arg(number)));
    user.writeNotes(records);
    user.writeSettings(defaultSettings());
}

void ShellTest::startStatusArea()
{
    statusArea = std::make_unique<XEmbedStatusArea>(x, session.displayName(), user);
}

void ShellTest::startHost()
{
    host = std::make_unique<StatusNotifierHost>(
        session.environment(user).at("DBUS_SESSION_BUS_ADDRESS"));
}

void ShellTest::startProgram()
{
    program = std::make_unique<ProgramUnderTest>(
        std::vector<std::string>{SABLEQUILL_BINARY}, session, user);
    // What openbox tells of a window that it has taken on, and the toolkit has no use for.
    program->mayPrintLinesWith("_KDE_WM_CHANGE_STATE");
    ASSERT_TRUE(runUntil(
        [this] { return (overlay.isShown() && popover.isShown()) || !program->isRunning(); }));
    ASSERT_TRUE(program->isRunning());
    if (!statusArea)
        return;
    ASSERT_TRUE(isIconShown());
    // It comes before the icon, and moves then: what is clicked is to stay where it was found.
    ASSERT_TRUE(runUntil([this] { return isPopoverBelow(*icon()); })) << popover.card();
}

void ShellTest::startAgain()
{
    ProgramUnderTest second({SABLEQUILL_BINARY}, session, user);
    EXPECT_EQ(second.waitForEnd(), 0);
}

void ShellTest::expectEnded()
{
    const auto status = program->waitForEnd();
    ASSERT_TRUE(status) << "does not end";
    EXPECT_TRUE(WIFEXITED(*status)) << "ended by signal " << WTERMSIG(*status);
    EXPECT_EQ(WEXITSTATUS(*status), 0);
    program.reset();
    EXPECT_TRUE(runUntil([this] { return findWindows(x, {"Sablequill", ""}).empty(); }));
}

void ShellTest::endProgram(int signal)
{
    ASSERT_TRUE(program->terminate(signal)) << "does not end";
    expectEnded();
}

void ShellTest::dismissPopover()
{
    mouse.click(areaOf(x, probe.window())->center());
    ASSERT_TRUE(runUntil([this] { return !popover.isShown(); }));
    ASSERT_TRUE(runUntil([this] { return probe.hasFocus(); }));
}

void ShellTest::leavePopover()
{
    dismissPopover();
    EXPECT_TRUE(runWhile([this] { return !popover.isShown(); }, watchTime));
}

void ShellTest::expectPopoverOpens()
{
    ASSERT_TRUE(runUntil([this] { return popover.isShown() && popover.hasKeyboard(); }));
}

void ShellTest::openPopover()
{
    startAgain();
    expectPopoverOpens();
}

std::optional<Area> ShellTest::icon() const
{
    // The toolkit's top levels that a window manager has taken on have such a property, too.
    for (const xcb_window_t window : findWindows(x, {"Sablequill", ""})) {
        if (!x.property(window, "_XEMBED_INFO").empty() && !isSettingsWindow(window)
            && isViewable(x, window) && topLevelOf(x, window) != window)
            return areaOf(x, window);
    }
    return std::nullopt;
}

bool ShellTest::isIconShown() const
{
    return runUntil([this] {
        const auto area = icon();
        return area && area->width >= 16 && area->x >= 0 && area->y >= 0
            && area->right() <= x.screenArea().right() && showsPicture(x, *area);
    });
}

bool ShellTest::isSettingsWindow(xcb_window_t window) const
{
    return x.textProperty(window, "_NET_WM_NAME").starts_with("Sablequill Settings");
}

std::optional<xcb_window_t> ShellTest::settingsWindow() const
{
    for (const xcb_window_t window : findWindows(x, {"Sablequill", ""})) {
        if (isSettingsWindow(window) && isViewable(x, window))
            return window;
    }
    return std::nullopt;
}

bool ShellTest::isInWindowList(xcb_window_t window) const
{
    const auto clients = x.property(x.root(), "_NET_CLIENT_LIST");
    return std::find(clients.begin(), clients.end(), window) != clients.end();
}

bool ShellTest::isPopoverBelow(const Area& place) const
{
    const auto card = popover.card();
    const int left =
        std::clamp(place.center().x - card.width / 2, 0, x.screenArea().width - card.width);
    return std::abs(card.x - left) <= 1 && std::abs(card.y - place.bottom() - gap) <= 1;
}

QString ShellTest::savedContent(int index) const
{
    const auto notes = user.readNotes().value_or(QJsonArray());
    return notes.at(index).toObject()[u"content"].toString();
}

bool ShellTest::areNotesSaved(int count) const
{
    return runUntil([&] { return user.readNotes().value_or(QJsonArray()).size() == count; });
}

std::string setupName(const testing::TestParamInfo<WindowManagerSetup>& info)
{
    return traits(info.param).name;
}

} // namespace sablequill
