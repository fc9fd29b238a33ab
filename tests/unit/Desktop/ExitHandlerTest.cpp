// SPDX-License-Identifier: MIT
#include "ExitHandler.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace sablequill {
namespace {

void tell()
{
    std::fputs("done\n", stderr);
}

TEST(ExitHandlerDeathTest, exit_whileItLives_doesTheWorkOnce)
{
    EXPECT_EXIT(
        {
            const ExitHandler handler(tell);
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^done\n$");
}

TEST(ExitHandlerDeathTest, exit_afterItIsGone_doesNothing)
{
    EXPECT_EXIT(
        {
            {
                const ExitHandler handler(tell);
            }
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^$");
}

TEST(ExitHandlerDeathTest, exit_anotherOneCameLater_doesTheWorkOfThatOneOnce)
{
    EXPECT_EXIT(
        {
            {
                const ExitHandler earlier([] { std::abort(); });
            }
            const ExitHandler handler(tell);
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^done\n$");
}

} // namespace
} // namespace sablequill
