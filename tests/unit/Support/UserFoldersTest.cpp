// SPDX-License-Identifier: MIT
#include "UserFolders.h"

#include "ScopedVariable.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using Value = std::optional<QByteArray>;
using Folder = std::optional<fs::path>;

struct Row {
    Value variable;
    Value home;
    Folder folder;
};

TEST(UserFoldersTest, in_variable_onlyAbsolutePaths)
{
    const std::vector<std::pair<Value, Folder>> rows = {
        {"/run/user/1000", "/run/user/1000"},
        {"/ä b", "/ä b"},
        {"/", "/"},
        {"run", {}},
        {"./run", {}},
        {"~/run", {}},
        {"", {}},
        {{}, {}},
    };
    for (const auto& [value, folder] : rows) {
        const ScopedVariable variable("SABLEQUILL_FOLDER", value);
        EXPECT_EQ(UserFolders::in("SABLEQUILL_FOLDER"), folder) << value.value_or("").toStdString();
    }
}

TEST(UserFoldersTest, in_withAPlaceInHome_usedWhereTheVariableIsOfNoUse)
{
    const std::vector<Row> rows = {
        {"/config", "/home/me", "/config"},
        {"/config", {}, "/config"},
        {"config", "/home/me", "/home/me/.config"},
        {"", "/home/me/", "/home/me/.config"},
        {{}, "/home/me", "/home/me/.config"},
        {{}, "me", {}},
        {{}, "", {}},
        {{}, {}, {}},
    };
    for (const Row& row : rows) {
        const ScopedVariable variable("SABLEQUILL_FOLDER", row.variable);
        const ScopedVariable home("HOME", row.home);
        EXPECT_EQ(UserFolders::in("SABLEQUILL_FOLDER", ".config"), row.folder)
            << row.variable.value_or("unset").toStdString() << " and "
            << row.home.value_or("unset").toStdString();
    }
}

} // namespace
} // namespace sablequill
