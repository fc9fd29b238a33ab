// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"

#include <QPixmap>
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
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap drawn() const;

    QWidget* content;
    /// The card with its shadow as last drawn.
    QPixmap picture;
    bool isComposited = true;
};

} // namespace sablequill
