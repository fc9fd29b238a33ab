// SPDX-License-Identifier: MIT
#include "OverlayHeader.h"

#include "Layout.h"
#include "MirkDescription.h"
#include "OverlayChrome.h"
#include "PlainButton.h"
#include "Plate.h"
#include "Refresh.h"
#include "SymbolView.h"
#include "TextLabel.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace sablequill {
namespace {

constexpr TextStyle titleStyle{12, QFont::DemiBold};
constexpr TextStyle badgeStyle{10, QFont::Medium};
constexpr double symbolSize = 11;
constexpr int controlSide = 24;
constexpr Backdrop controlBackdrop{Backdrop::Shape::circle, {InkRole::primary, 0.06}};
constexpr Ink hoverWash{InkRole::primary, 0.03};

Ink mirkInk(bool isEnabled)
{
    return {isEnabled ? InkRole::green : InkRole::secondary};
}

} // namespace

OverlayHeader::OverlayHeader(MirkProtection& mirkProtection)
    : mirkProtection(mirkProtection)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(padded(insets(14, 10),
        row(10,
            {
                mirkSymbol =
                    new SymbolView({QStringLiteral("eye.slash.fill"), symbolSize, QFont::DemiBold},
                        mirkInk(false)),
                title = new TextLabel(QString(), titleStyle),
                spacer(),
                mirkBadge = makeMirkBadge(),
                editButton = overlayControlButton(
                    QStringLiteral("pencil"), [this] { Q_EMIT editingToggled(); }),
                named(QStringLiteral("hideButton"), tr("Hide the overlay"),
                    overlayControlButton(
                        QStringLiteral("minus"), [this] { Q_EMIT hideRequested(); }),
                    tr("Hide the overlay")),
            })));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setObjectName(QStringLiteral("headerBar"));
    mirkSymbol->setObjectName(QStringLiteral("mirkSymbol"));
    title->setObjectName(QStringLiteral("noteTitle"));

    auto* refreshing = new Refresh(this, [this] { describeMirkMode(); });
    refreshing->observe(&mirkProtection);
    describeMirkMode();
}

QWidget* OverlayHeader::makeMirkBadge()
{
    constexpr double capsule = 99;
    return named(QStringLiteral("mirkBadge"), QStringLiteral("Mirk"),
        new Plate({InkRole::green, 0.15}, capsule, insets(7, 3),
            new TextLabel(QStringLiteral("Mirk"), badgeStyle, {InkRole::green})));
}

PlainButton* OverlayHeader::overlayControlButton(const QString& icon, std::function<void()> action)
{
    auto* button =
        new PlainButton(new SymbolView({icon, symbolSize, QFont::DemiBold}, {InkRole::secondary}),
            controlBackdrop, std::move(action));
    button->setFixedSize(controlSide, controlSide);
    return button;
}

void OverlayHeader::showContent(const Content& content)
{
    if (shown == content)
        return;
    shown = content;
    title->setText(content.title);
    mirkSymbol->setInk(mirkInk(content.mirkModeEnabled));
    mirkSymbol->setAccessibleName(
        content.mirkModeEnabled ? tr("Mirk mode is on") : tr("Mirk mode is off"));
    mirkBadge->setVisible(content.mirkModeEnabled);
    const QString verb = content.isEditing ? tr("Show the note") : tr("Edit the note");
    named(QStringLiteral("editButton"), verb, editButton, verb);
    editButton->findChild<SymbolView*>()->setSymbolName(
        content.isEditing ? QStringLiteral("eye") : QStringLiteral("pencil"));
}

void OverlayHeader::describeMirkMode()
{
    const QString description = mirkDescription(mirkProtection.effect);
    for (QWidget* sign : {static_cast<QWidget*>(mirkSymbol), mirkBadge}) {
        sign->setToolTip(description);
        sign->setAccessibleDescription(description);
    }
}

bool OverlayHeader::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        setHovering(true);
    else if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
        setHovering(false);
    return QWidget::event(event);
}

void OverlayHeader::paintEvent(QPaintEvent*)
{
    if (!hovering)
        return;
    // The header reaches up to the card's corners.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(rect());
    painter.fillPath(OverlayChrome::shapeIn(*this), color(hoverWash, surroundingsOf(*this)));
}

void OverlayHeader::setHovering(bool isHovering)
{
    if (std::exchange(hovering, isHovering) != isHovering)
        update();
}

} // namespace sablequill
