// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"
#include "ResizeHandles.h"

#include <QWidget>

#include <memory>

namespace sablequill {

/// The native window of a panel: a clear window around the content's card, larger than the card by
/// the reach of its shadow while a compositor blends it, of the card's own rounded shape otherwise.
/// Moves and resizes itself: no window manager does it for such a window.
///
/// Rectangles are the card's, in the toolkit's coordinates.
class PanelWindow : public QWidget {
    Q_OBJECT

public:
    explicit PanelWindow(Qt::WindowFlags flags);
    ~PanelWindow() override;

    void setContent(std::unique_ptr<PanelContent> content);
    void setComposited(bool isComposited);

    QRect card() const;
    void setCard(const QRect& card);
    /// The card in the window's own coordinates.
    QRect cardInWindow() const;

    bool isMovableByBackground = false;
    bool isResizable = false;
    QSize minimumCard;

Q_SIGNALS:
    /// Any press in the window, whatever lies under it.
    void pressed();
    /// One of the two at each step: a pull at some edges moves the card as well.
    void cardMoved();
    void cardResized();
    void liveResizeEnded();
    void dragChanged(bool isDragging);
    /// The part of the window that takes clicks has changed.
    void shapeChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void endMove();
    void endPull();
    void pull(const QMargins& grip, QPoint way);
    void layOut();
    void reportChange();

    std::unique_ptr<PanelContent> content;
    QWidget* view = nullptr;
    ResizeHandles handles;
    QMargins margins;
    QRect reported;
    QRect cardAtPress;
    QPoint pressedAt;
    bool isComposited = true;
    bool isMoving = false;
};

} // namespace sablequill
