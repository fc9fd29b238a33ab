// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"

namespace sablequill {

class FakePanelContent final : public PanelContent {
public:
    QMargins shadowReach() const override { return {}; }
    double cornerRadius() const override { return 0; }
    void setComposited(bool) override { }
};

} // namespace sablequill
