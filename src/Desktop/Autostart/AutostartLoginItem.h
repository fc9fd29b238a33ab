// SPDX-License-Identifier: MIT
#pragma once

#include "LoginItem.h"

#include <QByteArray>

#include <filesystem>

namespace sablequill {

/// The program's entry in the user's autostart folder: $XDG_CONFIG_HOME/autostart, or
/// ~/.config/autostart.
class AutostartLoginItem final : public LoginItem {
public:
    /// Starts this program, from where it is now.
    AutostartLoginItem();
    /// Also removes what an earlier run was killed while writing.
    explicit AutostartLoginItem(const std::filesystem::path& program);

    /// Makes the entry, whole or not at all. One that differs is replaced, so that it is enabled
    /// also after the desktop's settings have disabled it; one that does not is only read.
    bool registerItem() override;
    /// Removes the entry. Succeeds when there is none.
    bool unregisterItem() override;

private:
    /// Empty where there is no autostart folder.
    const std::filesystem::path file;
    const QByteArray entry;
};

} // namespace sablequill
