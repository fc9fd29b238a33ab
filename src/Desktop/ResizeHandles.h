// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QRect>

#include <memory>
#include <vector>

class QWidget;

namespace sablequill {

class ResizeBand;

/// Invisible bands along the edges and corners of a window's card by which the user resizes it.
class ResizeHandles : public QObject {
    Q_OBJECT

public:
    /// The bands lie in `host`, which outlives this object.
    explicit ResizeHandles(QWidget* host);
    /// Takes the bands away; a pull that is under way ends without a word.
    ~ResizeHandles() override;

    /// Puts the bands along the inside of `card` (in the host's coordinates), above the host's
    /// other children.
    void layOut(const QRect& card);

Q_SIGNALS:
    void began();
    /// `grip` holds a one for each edge that is pulled, `way` the pointer's way since the press.
    void moved(QMargins grip, QPoint way);
    void ended();

private:
    std::vector<std::unique_ptr<ResizeBand>> bands;
};

/// The card after the edges in `grip` were pulled along `way`: never smaller than `minimum`, with
/// the opposite edges where they were.
QRect resizedCard(const QRect& card, const QMargins& grip, QPoint way, QSize minimum);

} // namespace sablequill
