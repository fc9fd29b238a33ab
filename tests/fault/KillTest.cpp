// SPDX-License-Identifier: MIT
#include "FaultyProgramTest.h"

#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

namespace sablequill {
namespace {

/// tools/faults.sh asks for more rounds; a failure names its seed.
constexpr const char* roundsVariable = "SABLEQUILL_KILL_ROUNDS";
constexpr const char* seedVariable = "SABLEQUILL_KILL_SEED";
constexpr int everydayRounds = 20;

unsigned valueOf(const char* variable, unsigned otherwise)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? static_cast<unsigned>(std::stoul(value)) : otherwise;
}

class KillTest : public FaultyProgramTest {
protected:
    unsigned below(unsigned end) { return static_cast<unsigned>(random() % end); }

    void killWhileTyping();
    void killWhileDragging();
    void readNote();
    void killSoon();

    const unsigned seed = valueOf(seedVariable, std::random_device()());
    std::mt19937 random{seed};
    /// The longest text of the note that the test has seen in the file.
    QString seen;
    /// How many rounds ended before the last key was in the file, and how many within a save.
    int unfinished = 0;
    int unfinishedSaves = 0;
};

/// Every text in the file continues the one before it.
void KillTest::readNote()
{
    const QString note = savedContent(0);
    EXPECT_TRUE(note.startsWith(seen)) << note.toStdString() << " is after " << seen.toStdString();
    seen = note;
}

/// At any place of what the program does for a key, a write takes some milliseconds.
void KillTest::killSoon()
{
    std::this_thread::sleep_for(std::chrono::microseconds(below(4000)));
    program->kill();
    if (names() != bothFiles())
        ++unfinishedSaves;
}

void KillTest::killWhileTyping()
{
    startProgram();
    EXPECT_EQ(names(), bothFiles()) << "left after a start";
    quickOpen();
    retype("#");
    ASSERT_TRUE(waitUntil([&] { return savedContent(0) == u"#"; }));
    seen = QStringLiteral("#");
    std::string keys;
    for (unsigned count = 5 + below(30); count > 0; --count)
        keys += static_cast<char>('a' + below(26));
    const auto wanted = static_cast<qsizetype>(1 + below(static_cast<unsigned>(keys.size())));
    keyboard.type(keys);
    EXPECT_TRUE(waitUntil([&] {
        readNote();
        return seen.size() >= wanted;
    }));
    killSoon();
    readNote();
    EXPECT_TRUE(QString::fromStdString('#' + keys).startsWith(seen)) << seen.toStdString();
    if (seen.size() <= static_cast<qsizetype>(keys.size()))
        ++unfinished;
}

void KillTest::killWhileDragging()
{
    user.writeSettings(settingsWith(savedCard));
    startProgram();
    EXPECT_EQ(names(), bothFiles()) << "left after a start";
    const Point from = overlay.headerBackground();
    const Point to{from.x + 100 + static_cast<int>(below(300)), from.y + 50};
    mouse.dragAndHold(from, to);
    EXPECT_TRUE(waitUntil([&] { return savedFrame() != savedCard; }));
    killSoon();
    mouse.release();
    EXPECT_TRUE(savedFrame());
}

TEST_P(KillTest, kill_manyTimesAtRandomMoments_wholeFilesWithEveryKeyAndNothingElse)
{
    const unsigned rounds = valueOf(roundsVariable, everydayRounds);
    std::cout << seedVariable << '=' << seed << ", " << rounds << " rounds" << std::endl;
    for (unsigned round = 0; round < rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        if (below(5) == 0)
            killWhileDragging();
        else
            killWhileTyping();
        expectOtherNotesKept();
        EXPECT_TRUE(user.readSettings());
    }
    startProgram();
    EXPECT_EQ(names(), bothFiles());
    endProgram();
    std::cout << unfinished << " rounds with keys still to come, " << unfinishedSaves
              << " within a save" << std::endl;
    EXPECT_GT(unfinished, 0) << "no round ended early enough to prove anything";
}

INSTANTIATE_WITHOUT_MANAGER(KillTest);

} // namespace
} // namespace sablequill
