// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"

namespace sablequill {

class FakePanelContent final : public PanelContent {
public:
    QMargins shadowReach() const override { return {}; }
    QRegion shape(const QRect& card) const override { return card; }
    void setComposited(bool) override { }
};

} // namespace sablequill
