// SPDX-License-Identifier: MIT
#pragma once

#include "CardPatch.h"

#include <QMargins>
#include <QPainterPath>
#include <QWidget>

namespace sablequill {

/// The overlay's dark card round a content: translucent, with rounded corners, a hairline inside
/// its edge and a shadow, which is drawn in margins around the card. Always in dark surroundings.
class OverlayChrome : public QWidget {
    Q_OBJECT

public:
    explicit OverlayChrome(QWidget* content);

    /// Points by which the chrome draws beyond the card on each side; none while not composited.
    QMargins shadowReach() const;
    /// Without blending the card is opaque, fills the chrome and has no shadow.
    void setComposited(bool isComposited);

    /// The card's outline in the coordinates of a widget in a chrome, for what paints up to its
    /// edges.
    static QPainterPath shapeIn(const QWidget& widget);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect card() const;

    CardPatch patch;
    bool isComposited = true;
};

} // namespace sablequill
