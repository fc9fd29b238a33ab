// SPDX-License-Identifier: MIT
#pragma once

#include "LoginItem.h"

namespace sablequill {

/// For desktops on which nothing starts at login: both operations fail.
class NullLoginItem final : public LoginItem {
public:
    bool registerItem() override;
    bool unregisterItem() override;
};

} // namespace sablequill
