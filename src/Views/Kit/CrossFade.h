// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

namespace sablequill {

/// Fades a view from what it showed to what it shows. Lies over the view, is hidden while nothing
/// fades, and never keeps the view from answering.
class CrossFade : public QWidget {
    Q_OBJECT

public:
    /// `duration` in seconds; the fade eases in and out. The view is a child of this one's parent.
    CrossFade(QWidget* view, double duration);

    /// Keeps what the view shows now and begins to fade it out, the view in.
    void begin();
    /// Shows the view as it is, at once.
    void cancel();
    bool isFading() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void advance(double next);

    QWidget* view;
    QPixmap before;
    QVariantAnimation animation;
    double progress = 0;
};

} // namespace sablequill
