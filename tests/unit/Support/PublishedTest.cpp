// SPDX-License-Identifier: MIT
#include "Published.h"
#include "Refresh.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

struct Counter : ObservableObject {
    Published<int> value{this, 7};
};

TEST(Published, assign_announcesBeforeStoring)
{
    Counter counter;
    int seen = 0;
    QObject::connect(
        &counter, &ObservableObject::objectWillChange, &counter, [&] { seen = counter.value; });

    counter.value = 8;

    EXPECT_EQ(seen, 7);
    EXPECT_EQ(counter.value, 8);
}

TEST(Published, assign_equalValue_announcesToo)
{
    Counter counter;
    int announcements = 0;
    QObject::connect(
        &counter, &ObservableObject::objectWillChange, &counter, [&] { ++announcements; });

    counter.value = 7;
    counter.value.modify([](int& value) { ++value; });

    EXPECT_EQ(announcements, 2);
    EXPECT_EQ(counter.value, 8);
}

TEST(Refresh, threeAnnouncements_oneCallInTheNextTurn)
{
    Counter counter;
    QObject view;
    int refreshes = 0;
    auto* refresh = new Refresh(&view, [&] { ++refreshes; });
    refresh->observe(&counter);

    counter.value = 1;
    counter.value = 2;
    counter.value = 3;
    EXPECT_EQ(refreshes, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(refreshes, 1);

    counter.value = 4;
    QCoreApplication::processEvents();
    EXPECT_EQ(refreshes, 2);
}

TEST(Refresh, ownerGone_announcementIsHarmless)
{
    Counter counter;
    int refreshes = 0;
    {
        QObject view;
        auto* refresh = new Refresh(&view, [&] { ++refreshes; });
        refresh->observe(&counter);
        counter.value = 1;
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(refreshes, 0);
}

} // namespace
} // namespace sablequill
