// SPDX-License-Identifier: MIT
#pragma once

#include "Journal.h"
#include "MirkProtection.h"

namespace sablequill {

/// A desktop that does for Mirk mode what the test says.
class FakeMirkProtection final : public MirkProtection {
public:
    explicit FakeMirkProtection(Journal& journal)
        : journal(journal)
    {
    }

    void setWanted(bool isWanted) override { journal.record("mirkProtection.setWanted", isWanted); }

private:
    Journal& journal;
};

} // namespace sablequill
