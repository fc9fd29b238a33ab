// SPDX-License-Identifier: MIT
#include "FaultyProgramTest.h"

#include <fstream>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

class HostileNoteProgramTest : public FaultyProgramTest {
protected:
    fs::path proc() const { return "/proc/" + std::to_string(program->pid()); }

    /// The numbers of the program's sockets, as "/proc/net" names them.
    std::set<std::string> sockets() const
    {
        std::set<std::string> numbers;
        for (const auto& entry : fs::directory_iterator(proc() / "fd")) {
            std::error_code gone;
            const std::string target = fs::read_symlink(entry.path(), gone);
            if (target.starts_with("socket:["))
                numbers.insert(target.substr(8, target.size() - 9));
        }
        return numbers;
    }
    /// How many of them are of a protocol; its table has the number in some column.
    std::ptrdiff_t socketsOf(const char* protocol) const
    {
        const auto own = sockets();
        std::ifstream table(proc() / "net" / protocol);
        std::ptrdiff_t count = 0;
        for (std::string word; table >> word;)
            count += static_cast<std::ptrdiff_t>(own.count(word));
        return count;
    }
    std::string children() const
    {
        std::ifstream file(proc() / "task" / std::to_string(program->pid()) / "children");
        std::string text;
        std::getline(file, text);
        return text;
    }
};

TEST_P(HostileNoteProgramTest, show_linksAndPictures_runsNothingAndHasNoNetwork)
{
    user.writeNotes({noteRecord(1, QStringLiteral("x"),
        QStringLiteral("![x](http://127.0.0.1:9/x.png) <img src=\"http://127.0.0.1:9/x.png\">\n"
                       "[a](https://example.org) [b](file:///bin/sh)\n"
                       "<script>run()</script> <iframe src=\"http://127.0.0.1:9/\"></iframe>"))});
    startProgram();
    overlay.steadyPicture();
    EXPECT_GT(socketsOf("unix"), 0) << "the display is one: else the test sees no sockets";
    for (const char* protocol : {"tcp", "tcp6", "udp", "udp6", "raw", "raw6"})
        EXPECT_EQ(socketsOf(protocol), 0) << protocol;
    EXPECT_EQ(children(), "");
    endProgram();
}

TEST_P(HostileNoteProgramTest, files_ofTheRunningProgram_areClosedToOthers)
{
    startEditing("kept");
    int seen = 0;
    for (const auto& root : {user.storageFolder(), user.runtimeFolder() / "sablequill"}) {
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            ++seen;
            const auto mode = entry.symlink_status().permissions();
            const auto others = fs::perms::group_all | fs::perms::others_all;
            const bool isOurs = entry.path().filename() != "settings.json";
            EXPECT_TRUE(!isOurs || (mode & others) == fs::perms::none) << entry.path();
        }
    }
    EXPECT_GE(seen, 4);
    endProgram();
}

INSTANTIATE_WITHOUT_MANAGER(HostileNoteProgramTest);

} // namespace
} // namespace sablequill
