// SPDX-License-Identifier: MIT
#pragma once

#include "Journal.h"
#include "Screens.h"

namespace sablequill {

class FakeScreens final : public Screens {
public:
    explicit FakeScreens(Journal& journal)
        : journal(journal)
    {
    }

    std::optional<Rect> mainVisibleFrame() const override
    {
        journal.record("screens.mainVisibleFrame");
        return visibleFrame;
    }

    std::optional<ScreenFrames> screenOf(const Rect&) const override
    {
        journal.record("screens.screenOf");
        if (!visibleFrame)
            return std::nullopt;
        return ScreenFrames{frame, *visibleFrame};
    }

    Rect frame{0, 0, 1440, 900};
    /// Nothing stands for a desktop without a screen.
    std::optional<Rect> visibleFrame = Rect{0, 0, 1440, 900};

private:
    Journal& journal;
};

} // namespace sablequill
