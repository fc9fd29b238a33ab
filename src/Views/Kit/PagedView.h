// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>
#include <QWidget>

#include <vector>

namespace sablequill {

/// Pages side by side, one at a time. Only the page that is shown can be reached by the keyboard.
class PagedView : public QWidget {
    Q_OBJECT

public:
    /// The view owns the pages; each gets the view's whole area.
    explicit PagedView(std::vector<QWidget*> pages, QWidget* parent = nullptr);

    int currentPage() const { return current; }
    /// Slides to a page; at once while the view is not shown. Ignores numbers without a page.
    void setCurrentPage(int page);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    void settle();

    std::vector<QWidget*> pages;
    QVariantAnimation slide;
    int current = 0;
    /// Which page stands in the view, fractional while it slides.
    double position = 0;
};

} // namespace sablequill
