// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QWidget>

namespace sablequill {

/// A thin thumb at the trailing edge of a scroll area, over its content; there only while there is
/// something to scroll. Takes the place of the area's own vertical bar.
class OverlayScrollBar : public QWidget {
    Q_OBJECT

public:
    explicit OverlayScrollBar(QAbstractScrollArea* area);

    /// In the bar's own coordinates, in points.
    QRectF thumb() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();
    void scrollTo(double thumbTop);

    QAbstractScrollArea* area;
    double grip = 0; ///< Of the pointer in the thumb, in points from its top.
    bool isDragged = false;
};

} // namespace sablequill
