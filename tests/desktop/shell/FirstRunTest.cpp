// SPDX-License-Identifier: MIT
#include "ShellTest.h"

namespace sablequill {
namespace {

/// A user without any files starts the program on a desktop with a status area.
class FirstRunTest : public ManagedShellTest {
protected:
    void SetUp() override
    {
        ManagedShellTest::SetUp();
        startStatusArea();
    }

    void startWithGuide()
    {
        startProgram();
        ASSERT_TRUE(runUntil([this] { return guide.isShown() && guide.hasKeyboard(); }));
        firstPage = guide.steadyPage();
    }

    /// Waits for a page of the guide that is none of these.
    QImage pageAfter(const std::vector<QImage>& earlier)
    {
        const auto isOneOf = [&](const QImage& page) {
            return std::find(earlier.begin(), earlier.end(), page) != earlier.end();
        };
        EXPECT_TRUE(runUntil([&] { return !isOneOf(guide.page()); })) << "the page stays";
        const QImage page = guide.steadyPage();
        EXPECT_FALSE(isOneOf(page));
        return page;
    }

    bool isPage(const QImage& page) const
    {
        return runUntil([&] { return guide.page() == page; });
    }

    bool isGuideClosed() const
    {
        return runUntil([this] { return !guide.window(); });
    }

    bool isGuideRecorded() const
    {
        const auto settings = user.readSettings().value_or(QJsonObject());
        return settings[u"hasCompletedOnboarding"].toBool();
    }

    /// Starts the program again, and expects it without the guide.
    void expectNoGuideAtNextStart()
    {
        endProgram();
        startProgram();
        EXPECT_TRUE(runWhile([this] { return !guide.window(); }, watchTime));
    }

    QImage firstPage;
};

TEST_P(FirstRunTest, start_noFiles_showsAllThatThereIs)
{
    startWithGuide();
    EXPECT_TRUE(runUntil([this] { return isPopoverBelow(*icon()); })) << popover.card();
    EXPECT_FALSE(popover.hasKeyboard());
    EXPECT_TRUE(overlay.isShown());
    EXPECT_TRUE(
        runWhile([this] { return isAbove(x, *guide.window(), *overlay.window()); }, watchTime));
    EXPECT_EQ(guide.card().width, 480);
    EXPECT_EQ(guide.card().height, 420);
    EXPECT_FALSE(settingsWindow());
    EXPECT_FALSE(user.readSettings());
    EXPECT_FALSE(user.readNotes());
}

TEST_P(FirstRunTest, start_noFiles_nothingIsInTheWindowList)
{
    startWithGuide();
    EXPECT_TRUE(runWhile(
        [this] {
            return !isInWindowList(*guide.window()) && !isInWindowList(*overlay.window())
                && !isInWindowList(*popover.window());
        },
        watchTime));
}

TEST_P(FirstRunTest, start_noFiles_holdsTheWelcomeNote)
{
    startWithGuide();
    keyboard.tap(KeyCode::escape);
    ASSERT_TRUE(isGuideClosed());
    keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, KeyCode::o);
    ASSERT_TRUE(runUntil([this] { return overlay.hasKeyboard(); }));
    keyboard.type("x");
    ASSERT_TRUE(areNotesSaved(1));
    EXPECT_TRUE(savedContent(0).remove(u'x').startsWith(
        QStringLiteral("# Welcome to Sablequill\n\nYour floating teleprompter")))
        << savedContent(0).toStdString();
}

TEST_P(FirstRunTest, guide_byMouse_endsForGood)
{
    startWithGuide();
    mouse.click(guide.forwardButton());
    const QImage second = pageAfter({firstPage});
    mouse.click(guide.backButton());
    ASSERT_TRUE(isPage(firstPage));
    mouse.click(guide.forwardButton());
    ASSERT_TRUE(isPage(second));
    mouse.click(guide.forwardButton());
    pageAfter({firstPage, second});
    EXPECT_FALSE(isGuideRecorded());
    EXPECT_TRUE(popover.isShown()) << "the guide is no place elsewhere";
    mouse.click(guide.forwardButton());
    ASSERT_TRUE(isGuideClosed());
    EXPECT_TRUE(isGuideRecorded());
    expectNoGuideAtNextStart();
}

TEST_P(FirstRunTest, guide_byKeys_endsForGood)
{
    startWithGuide();
    keyboard.tap(KeyCode::right);
    const QImage second = pageAfter({firstPage});
    keyboard.tap(KeyCode::left);
    ASSERT_TRUE(isPage(firstPage));
    keyboard.tap(KeyCode::returnKey);
    ASSERT_TRUE(isPage(second));
    keyboard.tap(KeyCode::right);
    const QImage third = pageAfter({firstPage, second});
    keyboard.tap(KeyCode::right);
    EXPECT_TRUE(isPage(third));
    EXPECT_FALSE(isGuideRecorded());
    keyboard.tap(KeyCode::returnKey);
    ASSERT_TRUE(isGuideClosed());
    EXPECT_TRUE(isGuideRecorded());
    expectNoGuideAtNextStart();
}

TEST_P(FirstRunTest, guide_escape_comesBackAtNextStart)
{
    startWithGuide();
    keyboard.tap(KeyCode::right);
    pageAfter({firstPage});
    keyboard.tap(KeyCode::escape);
    ASSERT_TRUE(isGuideClosed());
    EXPECT_TRUE(runUntil([this] { return probe.hasFocus(); }));
    EXPECT_TRUE(runWhile([this] { return !guide.window() && !isGuideRecorded(); }, watchTime));
    endProgram();
    const QImage page = firstPage;
    startWithGuide();
    EXPECT_EQ(firstPage, page);
}

TEST_P(FirstRunTest, guide_overlayHidden_goesAndComesWithIt)
{
    startWithGuide();
    mouse.click(popover.action(PopoverAction::toggleOverlay));
    ASSERT_TRUE(runUntil([this] { return !overlay.isShown() && !guide.isShown(); }));
    mouse.click(popover.action(PopoverAction::showOverlay));
    ASSERT_TRUE(runUntil([this] { return overlay.isShown() && guide.isShown(); }));
    EXPECT_TRUE(runUntil([this] { return isAbove(x, *guide.window(), *overlay.window()); }));
    EXPECT_TRUE(isPage(firstPage));
}

TEST_P(FirstRunTest, overlay_dragged_takesTheGuideAlong)
{
    startWithGuide();
    // The guide covers the overlay whole: it is put aside first.
    Area expected = guide.card();
    const Point page{expected.x + 30, expected.y + 20};
    expected.x -= 200;
    expected.y += 130;
    mouse.drag(page, {page.x - 200, page.y + 130});
    ASSERT_TRUE(runUntil([&] { return guide.card() == expected; })) << guide.card();
    const Area before = overlay.card();
    const Point header = overlay.headerBackground();
    mouse.drag(header, {header.x + 63, header.y - 41});
    ASSERT_TRUE(runUntil([&] { return overlay.card().x == before.x + 63; })) << overlay.card();
    expected.x += 63;
    expected.y -= 41;
    EXPECT_TRUE(runUntil([&] { return guide.card() == expected; })) << guide.card();
    mouse.click(guide.forwardButton());
    pageAfter({firstPage});
}

INSTANTIATE_FOR_ALL_SETUPS(FirstRunTest);

} // namespace
} // namespace sablequill
