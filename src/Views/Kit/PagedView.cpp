// SPDX-License-Identifier: MIT
#include "PagedView.h"

#include <cmath>
#include <utility>

namespace sablequill {
namespace {

constexpr int slideMilliseconds = 350;

} // namespace

PagedView::PagedView(std::vector<QWidget*> pages, QWidget* parent)
    : QWidget(parent)
    , pages(std::move(pages))
{
    for (QWidget* page : this->pages)
        page->setParent(this);
    slide.setDuration(slideMilliseconds);
    slide.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        position = value.toDouble();
        place();
    });
    connect(&slide, &QVariantAnimation::finished, this, &PagedView::settle);
    settle();
}

void PagedView::setCurrentPage(int page)
{
    if (page < 0 || page >= static_cast<int>(pages.size()) || page == current)
        return;
    const double from = position;
    current = page;
    if (!isVisible()) {
        settle();
        return;
    }
    slide.stop();
    slide.setStartValue(from);
    slide.setEndValue(static_cast<double>(current));
    slide.start();
}

void PagedView::resizeEvent(QResizeEvent*)
{
    place();
}

void PagedView::place()
{
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const double offset = static_cast<double>(i) - position;
        pages[i]->setGeometry(
            static_cast<int>(std::lround(offset * width())), 0, width(), height());
        pages[i]->setVisible(std::abs(offset) < 1);
    }
}

void PagedView::settle()
{
    position = current;
    place();
}

} // namespace sablequill
