// SPDX-License-Identifier: MIT
#pragma once

#include "CaptureShield.h"

namespace sablequill {

/// For desktops on which nothing can be hidden.
class NoShield final : public CaptureShield {
public:
    NoShield() { setEffect(MirkEffect::none); }

    void setWanted(bool) override { }
    bool mustWait(WId) const override { return false; }
    bool canHide() const override { return false; }
};

} // namespace sablequill
