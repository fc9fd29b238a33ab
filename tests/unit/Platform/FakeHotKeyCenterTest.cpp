// SPDX-License-Identifier: MIT
#include "FakeHotKeyCenter.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr FakeHotKeyCenter::Combination shiftCommandG{5, 768};

struct Dispatcher {
    std::int32_t status = HotKeyStatus::noError;
    std::vector<std::uint32_t> ids = {};

    static std::int32_t handle(const HotKeyEvent& event, void* userData)
    {
        auto* dispatcher = static_cast<Dispatcher*>(userData);
        dispatcher->ids.push_back(event.hotKeyID.id);
        return dispatcher->status;
    }
};

TEST(FakeHotKeyCenter, press_twoDispatchers_onlyTheNewestThatHandlesIsAsked)
{
    Journal journal;
    FakeHotKeyCenter center(journal);
    Dispatcher older;
    Dispatcher newer;
    center.installEventHandler(Dispatcher::handle, hotKeyPressed, &older);
    center.installEventHandler(Dispatcher::handle, hotKeyPressed, &newer);
    center.registerHotKey(5, 768, {1, 2});

    EXPECT_EQ(center.press(shiftCommandG), HotKeyStatus::noError);
    EXPECT_EQ(newer.ids, std::vector{2U});
    EXPECT_TRUE(older.ids.empty());

    newer.status = HotKeyStatus::eventNotHandled;
    EXPECT_EQ(center.press(shiftCommandG), HotKeyStatus::noError);
    EXPECT_EQ(older.ids, std::vector{2U});
}

TEST(FakeHotKeyCenter, press_combinationOwnedElsewhereOrUnregistered_isNotHandled)
{
    Journal journal;
    FakeHotKeyCenter center(journal);
    Dispatcher dispatcher;
    center.installEventHandler(Dispatcher::handle, hotKeyPressed, &dispatcher);
    center.ownedElsewhere = {shiftCommandG};

    EXPECT_EQ(center.registerHotKey(5, 768, {1, 1}), std::nullopt);
    EXPECT_EQ(center.press(shiftCommandG), HotKeyStatus::eventNotHandled);

    const auto ref = center.registerHotKey(31, 768, {1, 2});
    ASSERT_TRUE(ref);
    center.unregisterHotKey(*ref);
    EXPECT_EQ(center.press({31, 768}), HotKeyStatus::eventNotHandled);
    EXPECT_TRUE(dispatcher.ids.empty());
}

} // namespace
} // namespace sablequill
