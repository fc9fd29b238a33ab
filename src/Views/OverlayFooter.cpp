// SPDX-License-Identifier: MIT
#include "OverlayFooter.h"

#include "Layout.h"
#include "PlainButton.h"
#include "SymbolView.h"
#include "TextLabel.h"

#include <QVBoxLayout>

#include <utility>

namespace sablequill {
namespace {

constexpr TextStyle textStyle{11, QFont::Medium};
constexpr double chevronSize = 10;
constexpr int switcherSide = 22;
constexpr Backdrop switcherBackdrop{Backdrop::Shape::roundedRectangle, {InkRole::primary, 0.05}, 6};
constexpr Ink ink{InkRole::secondary};
/// Between the symbol and the title of a labeled button.
constexpr int labelSpacing = 4;
/// Around a label without a ground of its own, for the pointer and for the focus ring. What stands
/// at the label's end stays where it would be without.
constexpr int labelMargin = 5;
constexpr Backdrop labelBackdrop{Backdrop::Shape::roundedRectangle, {InkRole::clear}, 5};

TextLabel* makeCounter()
{
    auto* counter = new TextLabel(QString(), textStyle, ink);
    counter->setObjectName(QStringLiteral("noteCounter"));
    counter->setMonospacedDigits();
    counter->setAlignment(Qt::AlignCenter);
    return counter;
}

QString counterText(const QString& position, const QString& count)
{
    return position + QStringLiteral(" / ") + count;
}

} // namespace

OverlayFooter::OverlayFooter()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(padded({14, 8, 14 - labelMargin, 8},
        row(8,
            {
                named(QStringLiteral("previousButton"), tr("Previous note"),
                    noteSwitcherButton(
                        QStringLiteral("chevron.left"), [this] { Q_EMIT previousRequested(); }),
                    tr("Previous note")),
                counter = makeCounter(),
                named(QStringLiteral("nextButton"), tr("Next note"),
                    noteSwitcherButton(
                        QStringLiteral("chevron.right"), [this] { Q_EMIT nextRequested(); }),
                    tr("Next note")),
                spacer(),
                newButton(),
            })));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setObjectName(QStringLiteral("footerBar"));
}

PlainButton* OverlayFooter::noteSwitcherButton(const QString& icon, std::function<void()> action)
{
    auto* button = new PlainButton(
        new SymbolView({icon, chevronSize, QFont::Bold}, ink), switcherBackdrop, std::move(action));
    button->setFixedSize(switcherSide, switcherSide);
    return button;
}

PlainButton* OverlayFooter::newButton()
{
    auto* label = padded(insets(labelMargin, 4),
        row(labelSpacing,
            {
                new SymbolView({QStringLiteral("plus"), textStyle.size, textStyle.weight}, ink),
                new TextLabel(QStringLiteral("New"), textStyle, ink),
            }));
    return named(QStringLiteral("newButton"), QStringLiteral("New"),
        new PlainButton(label, labelBackdrop, [this] { Q_EMIT newRequested(); }));
}

void OverlayFooter::showCounter(int position, std::size_t count)
{
    const QString all = QString::number(count);
    counter->setText(counterText(QString::number(position), all));
    // As wide as the counter of the last note, so that the button beside it stays where it is.
    counter->reserve(counterText(all, all));
}

} // namespace sablequill
