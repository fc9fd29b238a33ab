// SPDX-License-Identifier: MIT
#pragma once

#include "Journal.h"
#include "LoginItem.h"

namespace sablequill {

class FakeLoginItem final : public LoginItem {
public:
    explicit FakeLoginItem(Journal& journal)
        : journal(journal)
    {
    }

    bool registerItem() override
    {
        journal.record("loginItem.registerItem");
        return succeeds;
    }
    bool unregisterItem() override
    {
        journal.record("loginItem.unregisterItem");
        return succeeds;
    }

    bool succeeds = true;

private:
    Journal& journal;
};

} // namespace sablequill
