// SPDX-License-Identifier: MIT
#include "Widgets.h"

#include <QApplication>

namespace sablequill {

void present(QWidget& widget)
{
    widget.show();
    QCoreApplication::processEvents();
}

QImage picture(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

void turn()
{
    QCoreApplication::processEvents();
}

QRect frameIn(const QWidget& ancestor, const QWidget& widget)
{
    return {widget.mapTo(&ancestor, QPoint()), widget.size()};
}

} // namespace sablequill
