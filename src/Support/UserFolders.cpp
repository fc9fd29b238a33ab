// SPDX-License-Identifier: MIT
#include "UserFolders.h"

#include <cstdlib>

namespace fs = std::filesystem;

namespace sablequill::UserFolders {

std::optional<fs::path> in(const char* variable)
{
    const char* value = std::getenv(variable);
    if (value == nullptr || !fs::path(value).is_absolute())
        return {};
    return value;
}

std::optional<fs::path> in(const char* variable, const fs::path& belowHome)
{
    if (auto folder = in(variable))
        return folder;
    auto home = in("HOME");
    if (home)
        *home /= belowHome;
    return home;
}

} // namespace sablequill::UserFolders
