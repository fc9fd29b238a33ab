// SPDX-License-Identifier: MIT
#pragma once

#include "Ink.h"

#include <QMargins>
#include <QWidget>

namespace sablequill {

/// A widget on a filled rounded rectangle.
class Plate : public QWidget {
public:
    /// A radius beyond half the height gives a capsule.
    Plate(Ink fill, double radius, QMargins padding, QWidget* content);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Ink fill;
    double radius;
};

} // namespace sablequill
