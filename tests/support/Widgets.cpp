// SPDX-License-Identifier: MIT
#include "Widgets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include <algorithm>
#include <tuple>
#include <vector>

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

QStringList textsIn(const QWidget& root)
{
    constexpr int lineTolerance = 4;
    std::vector<std::tuple<int, int, QString>> words;
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        const QRect frame = frameIn(root, *widget);
        if (!text.isEmpty() && widget->isVisibleTo(&root))
            words.emplace_back(frame.center().y(), frame.x(), text);
    }
    std::sort(words.begin(), words.end());
    // What stands in one line has the same middle, but for a few points.
    for (std::size_t i = 1; i < words.size(); ++i)
        if (std::get<0>(words[i]) - std::get<0>(words[i - 1]) <= lineTolerance)
            std::get<0>(words[i]) = std::get<0>(words[i - 1]);
    std::sort(words.begin(), words.end());
    QStringList texts;
    for (const auto& [y, x, text] : words)
        texts.append(text);
    return texts;
}

void leaveControls(QWidget& window)
{
    if (QWidget* control = window.focusWidget())
        control->clearFocus();
}

QWidget* focusAfterTab(QWidget& window, int presses)
{
    for (int i = 0; i < presses; ++i)
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Tab);
    return window.focusWidget();
}

} // namespace sablequill
