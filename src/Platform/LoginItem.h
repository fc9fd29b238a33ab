// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// Starting the program when the user logs in. Both operations report whether they succeeded.
class LoginItem {
public:
    virtual bool registerItem() = 0;
    virtual bool unregisterItem() = 0;

protected:
    ~LoginItem() = default;
};

} // namespace sablequill
