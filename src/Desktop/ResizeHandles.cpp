// SPDX-License-Identifier: MIT
#include "ResizeHandles.h"

#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr int edgeThickness = 5;
constexpr int cornerLength = 14;

Qt::CursorShape cursorFor(const QMargins& grip)
{
    const bool isHorizontal = grip.left() || grip.right();
    const bool isVertical = grip.top() || grip.bottom();
    if (!isVertical)
        return Qt::SizeHorCursor;
    if (!isHorizontal)
        return Qt::SizeVerCursor;
    return grip.left() == grip.top() ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

/// Where a band lies: along the pulled edge, or in the corner between two pulled edges.
QRect bandArea(const QRect& card, const QMargins& grip)
{
    const bool isCorner = (grip.left() || grip.right()) && (grip.top() || grip.bottom());
    const int thickness = isCorner ? cornerLength : edgeThickness;
    QRect area = card;
    if (grip.left())
        area.setWidth(thickness);
    if (grip.right())
        area.setLeft(card.right() + 1 - thickness);
    if (grip.top())
        area.setHeight(thickness);
    if (grip.bottom())
        area.setTop(card.bottom() + 1 - thickness);
    return area;
}

} // namespace

class ResizeBand : public QWidget {
public:
    ResizeBand(QWidget* host, ResizeHandles& handles, const QMargins& grip)
        : QWidget(host)
        , grip(grip)
        , handles(handles)
    {
        setCursor(cursorFor(grip));
    }

    const QMargins grip;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() != Qt::LeftButton)
            return;
        pressedAt = event->globalPosition().toPoint();
        isPulled = true;
        Q_EMIT handles.began();
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (isPulled)
            Q_EMIT handles.moved(grip, event->globalPosition().toPoint() - pressedAt);
    }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton)
            end();
    }

    void hideEvent(QHideEvent*) override
    {
        // The button is released over another window.
        end();
    }

private:
    void end()
    {
        if (std::exchange(isPulled, false))
            Q_EMIT handles.ended();
    }

    ResizeHandles& handles;
    QPoint pressedAt;
    bool isPulled = false;
};

ResizeHandles::ResizeHandles(QWidget* host)
{
    // Corners come last, so that they lie above the edges.
    for (const QMargins& grip :
        {QMargins(1, 0, 0, 0), QMargins(0, 1, 0, 0), QMargins(0, 0, 1, 0), QMargins(0, 0, 0, 1),
            QMargins(1, 1, 0, 0), QMargins(0, 1, 1, 0), QMargins(1, 0, 0, 1), QMargins(0, 0, 1, 1)})
        bands.push_back(std::make_unique<ResizeBand>(host, *this, grip));
}

ResizeHandles::~ResizeHandles() = default;

void ResizeHandles::layOut(const QRect& card)
{
    for (const auto& band : bands) {
        band->setGeometry(bandArea(card, band->grip));
        band->raise();
    }
}

QRect resizedCard(const QRect& card, const QMargins& grip, QPoint way, QSize minimum)
{
    const int width = card.width() + (grip.right() - grip.left()) * way.x();
    const int height = card.height() + (grip.bottom() - grip.top()) * way.y();
    QRect resized = card;
    if (grip.left())
        resized.setLeft(card.right() + 1 - std::max(width, minimum.width()));
    if (grip.right())
        resized.setWidth(std::max(width, minimum.width()));
    if (grip.top())
        resized.setTop(card.bottom() + 1 - std::max(height, minimum.height()));
    if (grip.bottom())
        resized.setHeight(std::max(height, minimum.height()));
    return resized;
}

} // namespace sablequill
