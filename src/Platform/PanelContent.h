// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRegion>

namespace sablequill {

/// A view that a panel hosts. The real ones are widgets; a panel that shows widgets casts to them.
class PanelContent {
public:
    virtual ~PanelContent() = default;

    /// Points by which the view draws beyond the panel's frame on each side (its shadow). The panel
    /// makes its native window larger by these margins and lets clicks through there.
    virtual QMargins shadowReach() const = 0;
    /// Of a card with these bounds (points), for a window where there is no alpha channel.
    virtual QRegion shape(const QRect& card) const = 0;
    /// Whether the screen blends what the view draws. Where it does not, the view draws an opaque
    /// card and no shadow, and the native window has no margins.
    virtual void setComposited(bool isComposited) = 0;
};

} // namespace sablequill
