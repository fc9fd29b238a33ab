// SPDX-License-Identifier: MIT
#include "Layout.h"

#include "DevicePixels.h"
#include "Ink.h"

#include <QBoxLayout>
#include <QPainter>

#include <typeinfo>

namespace sablequill {
namespace {

class Stack : public QWidget { };

class Spacer : public QWidget {
public:
    void growAlong(Qt::Orientation orientation)
    {
        const bool isHorizontal = orientation == Qt::Horizontal;
        const auto along = QSizePolicy::Expanding;
        const auto across = QSizePolicy::Ignored;
        setSizePolicy(isHorizontal ? along : across, isHorizontal ? across : along);
        setMinimumSize(isHorizontal ? defaultSpacing : 0, isHorizontal ? 0 : defaultSpacing);
    }
};

class Divider : public QWidget {
public:
    explicit Divider(double opacity)
        : opacity(opacity)
    {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setFixedHeight(1);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        fillHairline(painter, rect(), color({InkRole::divider, opacity}, surroundingsOf(*this)));
    }

private:
    double opacity;
};

template <typename Kind> bool isA(const QWidget& widget)
{
    return typeid(widget) == typeid(Kind);
}

/// Whether a widget, or something in it, wants all the width there is.
bool growsSideways(const QWidget& widget)
{
    if (widget.sizePolicy().expandingDirections() & Qt::Horizontal)
        return true;
    return widget.layout() && (widget.layout()->expandingDirections() & Qt::Horizontal);
}

void fill(QBoxLayout& layout, int spacing, std::initializer_list<QWidget*> children,
    Qt::Orientation orientation, Qt::Alignment alignment)
{
    layout.setContentsMargins(0, 0, 0, 0);
    layout.setSpacing(spacing);
    for (QWidget* child : children) {
        if (isA<Spacer>(*child))
            static_cast<Spacer*>(child)->growAlong(orientation);
        const bool isStretched = orientation == Qt::Vertical && growsSideways(*child);
        layout.addWidget(child, 0, isStretched ? Qt::Alignment() : alignment);
    }
}

} // namespace

QWidget* row(int spacing, std::initializer_list<QWidget*> children, VerticalAlignment alignment)
{
    auto* stack = new Stack;
    auto* layout = new QHBoxLayout(stack);
    fill(*layout, spacing, children, Qt::Horizontal,
        alignment == VerticalAlignment::top ? Qt::AlignTop : Qt::AlignVCenter);
    return stack;
}

QWidget* column(
    int spacing, std::initializer_list<QWidget*> children, HorizontalAlignment alignment)
{
    auto* stack = new Stack;
    auto* layout = new QVBoxLayout(stack);
    fill(*layout, spacing, children, Qt::Vertical,
        alignment == HorizontalAlignment::leading ? Qt::AlignLeft : Qt::AlignHCenter);
    return stack;
}

QWidget* spacer()
{
    return new Spacer;
}

QWidget* divider(double opacity)
{
    return new Divider(opacity);
}

QMargins insets(int all)
{
    return {all, all, all, all};
}

QMargins insets(int horizontal, int vertical)
{
    return {horizontal, vertical, horizontal, vertical};
}

QWidget* padded(QMargins padding, QWidget* widget)
{
    QWidget* stack = isA<Stack>(*widget) ? widget : column(0, {widget});
    stack->layout()->setContentsMargins(stack->layout()->contentsMargins() + padding);
    return stack;
}

} // namespace sablequill
