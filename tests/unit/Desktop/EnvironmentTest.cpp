// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <gtest/gtest.h>

#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace sablequill {
namespace {

constexpr const char* name = "SABLEQUILL_ENVIRONMENT_TEST";
constexpr const char* laterName = "SABLEQUILL_ENVIRONMENT_TEST_LATER";

std::vector<std::string> variables()
{
    std::vector<std::string> found;
    for (char** variable = environ; *variable; ++variable)
        found.emplace_back(*variable);
    return found;
}

class EnvironmentTest : public testing::Test {
protected:
    ~EnvironmentTest() override
    {
        qunsetenv(name);
        qunsetenv(laterName);
    }
};

TEST_F(EnvironmentTest, temporaryVariable_variableWasSet_isAsBeforeInTheEnd)
{
    qputenv(name, "before");
    {
        const TemporaryVariable variable(name, "meanwhile");
        EXPECT_EQ(qgetenv(name), "meanwhile");
    }
    EXPECT_EQ(qgetenv(name), "before");
}

TEST_F(EnvironmentTest, temporaryVariable_variableWasEmpty_isSetInTheEnd)
{
    qputenv(name, "");
    {
        const TemporaryVariable variable(name, "meanwhile");
    }
    EXPECT_TRUE(qEnvironmentVariableIsSet(name));
    EXPECT_EQ(qgetenv(name), "");
}

TEST_F(EnvironmentTest, temporaryVariable_variableWasNotSet_isNotSetInTheEnd)
{
    {
        const TemporaryVariable variable(name, "meanwhile");
        EXPECT_EQ(qgetenv(name), "meanwhile");
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet(name));
}

TEST_F(EnvironmentTest, moveToTheEnd_others_stayInTheirOrderBeforeIt)
{
    qputenv(name, "value");
    qputenv(laterName, "other");
    auto expected = variables();
    ASSERT_EQ(expected.back(), laterName + std::string("=other"));
    std::swap(expected[expected.size() - 2], expected.back());
    moveToTheEnd(name);
    EXPECT_EQ(variables(), expected);
}

TEST_F(EnvironmentTest, moveToTheEnd_notSet_changesNothing)
{
    const auto expected = variables();
    moveToTheEnd(name);
    EXPECT_EQ(variables(), expected);
}

} // namespace
} // namespace sablequill
