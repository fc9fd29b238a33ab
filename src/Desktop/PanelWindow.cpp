// SPDX-License-Identifier: MIT
#include "PanelWindow.h"

#include <QMouseEvent>
#include <QWindow>

#include <utility>

namespace sablequill {

PanelWindow::PanelWindow(Qt::WindowFlags flags)
    : QWidget(nullptr, flags)
    , handles(this)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    // The panel is read, and pointed at, while another program has the keyboard.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setFocusPolicy(Qt::NoFocus);
    connect(&handles, &ResizeHandles::began, this, [this] {
        cardAtPress = card();
        Q_EMIT dragChanged(true);
    });
    connect(&handles, &ResizeHandles::moved, this, &PanelWindow::pull);
    connect(&handles, &ResizeHandles::ended, this, &PanelWindow::endPull);
}

PanelWindow::~PanelWindow() = default;

void PanelWindow::setContent(std::unique_ptr<PanelContent> next)
{
    const QRect kept = card();
    content = std::move(next);
    view = dynamic_cast<QWidget*>(content.get());
    Q_ASSERT(view);
    view->setParent(this);
    view->show();
    setComposited(isComposited);
    setCard(kept);
    layOut();
}

void PanelWindow::setComposited(bool next)
{
    const QRect kept = card();
    isComposited = next;
    // The content has a shadow once it knows of the compositor.
    if (content)
        content->setComposited(isComposited);
    margins = content && isComposited ? content->shadowReach() : QMargins();
    setCard(kept);
    layOut();
}

QRect PanelWindow::card() const
{
    return geometry().marginsRemoved(margins);
}

void PanelWindow::setCard(const QRect& next)
{
    // Without extent it could not be shown.
    const QRect card(next.topLeft(), next.size().expandedTo({1, 1}));
    setGeometry(card.marginsAdded(margins));
    reportChange();
}

QRect PanelWindow::cardInWindow() const
{
    return rect().marginsRemoved(margins);
}

bool PanelWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == windowHandle() && event->type() == QEvent::MouseButtonPress)
        Q_EMIT pressed();
    return QWidget::eventFilter(watched, event);
}

void PanelWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    windowHandle()->removeEventFilter(this);
    windowHandle()->installEventFilter(this);
}

void PanelWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // The button is released over another window.
    endMove();
}

void PanelWindow::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    reportChange();
}

void PanelWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layOut();
    reportChange();
}

void PanelWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isMovableByBackground)
        return;
    cardAtPress = card();
    pressedAt = event->globalPosition().toPoint();
    isMoving = true;
    Q_EMIT dragChanged(true);
}

void PanelWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (isMoving)
        setCard(cardAtPress.translated(event->globalPosition().toPoint() - pressedAt));
}

void PanelWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        endMove();
}

void PanelWindow::endMove()
{
    if (std::exchange(isMoving, false))
        Q_EMIT dragChanged(false);
}

void PanelWindow::endPull()
{
    Q_EMIT dragChanged(false);
    // A click on an edge resizes nothing.
    if (card() != cardAtPress)
        Q_EMIT liveResizeEnded();
}

void PanelWindow::pull(const QMargins& grip, QPoint way)
{
    if (isResizable)
        setCard(resizedCard(cardAtPress, grip, way, minimumCard));
}

void PanelWindow::layOut()
{
    if (view)
        view->setGeometry(rect());
    handles.layOut(cardInWindow());
    if (isComposited || !content)
        clearMask();
    else
        setMask(content->shape(rect()));
    Q_EMIT shapeChanged();
}

void PanelWindow::reportChange()
{
    const QRect now = card();
    const QRect before = std::exchange(reported, now);
    // The frame that the window is made with is no change.
    if (before.isNull())
        return;
    if (before.size() != now.size())
        Q_EMIT cardResized();
    else if (before.topLeft() != now.topLeft())
        Q_EMIT cardMoved();
}

} // namespace sablequill
