// SPDX-License-Identifier: MIT
#include "PopupStyle.h"

#include "DevicePixels.h"
#include "Ink.h"
#include "RoundedRegion.h"
#include "TextStyle.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QStyleHintReturnMask>
#include <QStyleOptionMenuItem>
#include <QToolTip>

namespace sablequill {
namespace {

constexpr const char* destructiveProperty = "isDestructive";
constexpr int menuRadius = 8;
constexpr int tooltipRadius = 5;
/// Between a menu's edge and its items, in points.
constexpr int menuPadding = 5;
constexpr int tooltipPadding = 4;
constexpr double itemRadius = 4;
constexpr int itemPadding = 10;
constexpr int itemHeight = 24;
constexpr int separatorHeight = 11;
/// Between the longest title and the longest shortcut.
constexpr int shortcutSpacing = 28;

QPainterPath outline(const QRect& rect, double radius, double inset = 0)
{
    QPainterPath path;
    path.addRoundedRect(
        QRectF(rect).adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    return path;
}

/// The ground of a popup, with a hairline that parts it from what it lies over.
void drawGround(QPainter& painter, const QWidget& widget, const QColor& ground, double radius)
{
    painter.save();
    painter.fillRect(widget.rect(), ground);
    painter.setRenderHint(QPainter::Antialiasing);
    const double thickness = hairline(painter);
    painter.setPen(QPen(color({InkRole::primary, 0.20}, surroundingsOf(widget)), thickness));
    painter.drawPath(outline(widget.rect(), radius, thickness / 2));
    painter.restore();
}

bool isDestructive(const QWidget& widget, const QRect& item)
{
    const auto* menu = qobject_cast<const QMenu*>(&widget);
    const QAction* action = menu ? menu->actionAt(item.center()) : nullptr;
    return action && action->property(destructiveProperty).toBool();
}

QColor itemInk(const QStyleOptionMenuItem& item, const QWidget& widget)
{
    const Surroundings surroundings = surroundingsOf(widget);
    if (!(item.state & QStyle::State_Enabled))
        return color({InkRole::tertiary}, surroundings);
    if (item.state & QStyle::State_Selected)
        return Qt::white;
    const bool isLoss = isDestructive(widget, item.rect);
    return color({isLoss ? InkRole::red : InkRole::primary}, surroundings);
}

void drawItem(QPainter& painter, const QStyleOptionMenuItem& item, const QWidget& widget)
{
    const Surroundings surroundings = surroundingsOf(widget);
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        fillHairline(painter,
            QRectF(item.rect.left() + itemPadding, item.rect.center().y(),
                item.rect.width() - 2 * itemPadding, 1),
            color({InkRole::divider}, surroundings));
        return;
    }
    painter.save();
    if (item.state & QStyle::State_Selected && item.state & QStyle::State_Enabled) {
        const bool isLoss = isDestructive(widget, item.rect);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(outline(item.rect, itemRadius),
            color({isLoss ? InkRole::red : InkRole::accent}, surroundings));
    }
    const QRect area = item.rect.adjusted(itemPadding, 0, -itemPadding, 0);
    const QStringList parts = item.text.split(u'\t');
    painter.setFont(item.font);
    painter.setPen(itemInk(item, widget));
    painter.drawText(area,
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic | Qt::TextSingleLine, parts[0]);
    if (parts.size() > 1) {
        painter.setOpacity(0.6);
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, parts[1]);
    }
    painter.restore();
}

} // namespace

PopupStyle::PopupStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void PopupStyle::setDestructive(QAction& action)
{
    action.setProperty(destructiveProperty, true);
}

void PopupStyle::polish(QApplication* application)
{
    QProxyStyle::polish(application);
    QToolTip::setFont(font(TextStyles::subheadline));
}

void PopupStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget))
        widget->setFont(font(TextStyles::body));
}

int PopupStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuPadding;
    case PM_MenuPanelWidth:
        return 0;
    case PM_ToolTipLabelFrameWidth:
        return tooltipPadding;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int PopupStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
    QStyleHintReturn* returned) const
{
    if (hint != SH_Menu_Mask && hint != SH_ToolTip_Mask)
        return QProxyStyle::styleHint(hint, option, widget, returned);
    auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returned);
    if (!mask || !option)
        return 0;
    mask->region = roundedRegion(option->rect, hint == SH_Menu_Mask ? menuRadius : tooltipRadius);
    return 1;
}

QSize PopupStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
    const QSize& contents, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !item)
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {contents.width(), separatorHeight};
    const int gap = item->text.contains(u'\t') ? shortcutSpacing : 0;
    return {contents.width() + 2 * itemPadding + gap, qMax(itemHeight, contents.height() + 4)};
}

void PopupStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    if (element == PE_PanelMenu && widget)
        drawGround(*painter, *widget, widget->palette().color(QPalette::Base), menuRadius);
    else if (element == PE_PanelTipLabel && widget)
        drawGround(
            *painter, *widget, widget->palette().color(QPalette::ToolTipBase), tooltipRadius);
    else if (element != PE_FrameMenu)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PopupStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
    const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item && widget)
        drawItem(*painter, *item, *widget);
    else if (element != CE_MenuEmptyArea)
        QProxyStyle::drawControl(element, option, painter, widget);
}

} // namespace sablequill
