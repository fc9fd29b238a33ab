// SPDX-License-Identifier: MIT
#pragma once

#include "CardPatch.h"
#include "PanelContent.h"

#include <QWidget>

namespace sablequill {

/// A card in the desktop's own appearance round the content of a small window: the popover and the
/// guide.
class PanelCard : public QWidget, public PanelContent {
    Q_OBJECT

public:
    /// The card owns the content and gets its palette from the application.
    explicit PanelCard(QWidget* content);

    /// What the content asks for, in points; the size of the panel's frame.
    QSize contentSize() const;

    QMargins shadowReach() const override;
    QRegion shape(const QRect& card) const override;
    void setComposited(bool isComposited) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* content;
    CardPatch patch;
    bool isComposited = true;
};

} // namespace sablequill
