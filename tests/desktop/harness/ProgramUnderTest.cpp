// SPDX-License-Identifier: MIT
#include "ProgramUnderTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace sablequill {

namespace {

namespace fs = std::filesystem;

/// One log for each start of the program by the same user.
fs::path nextLog(const PrivateHome& user)
{
    int number = 1;
    const auto path = [&] { return user.path() / ("program-" + std::to_string(number) + ".log"); };
    while (fs::exists(path()))
        ++number;
    return path();
}

std::int64_t statusValue(pid_t process, const std::string& name)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name + ':'))
            return std::stoll(line.substr(name.size() + 1));
    }
    throw std::runtime_error("no " + name + " for this process");
}

/// The fields after the program's name, which is in parentheses and may itself hold any character.
std::vector<std::string> statFields(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    std::istringstream rest(text.substr(text.rfind(')') + 1));
    std::vector<std::string> fields;
    for (std::string field; rest >> field;)
        fields.push_back(field);
    return fields;
}

} // namespace

ProcessCounters countersOf(pid_t process)
{
    constexpr std::size_t userTicks = 11;
    constexpr std::size_t systemTicks = 12;
    const auto fields = statFields(process);
    if (fields.size() <= systemTicks)
        throw std::runtime_error("no such process");
    const auto ticks = std::stoll(fields[userTicks]) + std::stoll(fields[systemTicks]);
    return {statusValue(process, "VmRSS"), ticks * 1000 / sysconf(_SC_CLK_TCK),
        statusValue(process, "voluntary_ctxt_switches")};
}

ProgramUnderTest::ProgramUnderTest(
    const std::vector<std::string>& command, const DesktopSession& session, const PrivateHome& user)
    : ProgramUnderTest(command, session.environment(user), user)
{
}

ProgramUnderTest::ProgramUnderTest(const std::vector<std::string>& command,
    const Environment& environment, const PrivateHome& user)
    : log(nextLog(user))
    , process({command, environment, log})
{
}

ProgramUnderTest::~ProgramUnderTest()
{
    EXPECT_TRUE(mayEnd || isRunning()) << "the program ended by itself";
    failOnUnexpectedLines();
}

std::optional<int> ProgramUnderTest::terminate(int signal)
{
    EXPECT_TRUE(isRunning()) << "the program ended by itself";
    mayEnd = true;
    process.sendSignal(signal);
    return process.waitForExit();
}

std::optional<int> ProgramUnderTest::waitForEnd()
{
    mayEnd = true;
    return process.waitForExit();
}

void ProgramUnderTest::kill()
{
    mayEnd = true;
    process.sendSignal(SIGKILL);
    process.waitForExit();
}

bool ProgramUnderTest::printsLineWith(const std::string& text)
{
    expected.push_back(text);
    return waitUntil([&] { return process.output().find(text) != std::string::npos; }).has_value();
}

void ProgramUnderTest::failOnUnexpectedLines() const
{
    std::istringstream lines(process.output());
    for (std::string line; std::getline(lines, line);) {
        const bool isExpected = std::any_of(expected.begin(), expected.end(),
            [&](const auto& text) { return line.find(text) != std::string::npos; });
        EXPECT_TRUE(isExpected) << "printed: " << line;
    }
}

} // namespace sablequill
