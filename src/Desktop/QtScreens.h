// SPDX-License-Identifier: MIT
#pragma once

#include "Screens.h"

namespace sablequill {

class QtScreens final : public Screens {
public:
    std::optional<Rect> mainVisibleFrame() const override;
    std::optional<ScreenFrames> screenOf(const Rect& rect) const override;
};

} // namespace sablequill
