// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace sablequill {

class CaptureShield;

/// Makes a window show nothing from the moment that it is shown until the compositor hides it from
/// captures, or is not waited for any longer: a translucent one is clear, another one blank. Never
/// comes over a window that is already seen.
class Veil final : public QWidget {
    Q_OBJECT

public:
    /// A child of the window, which is being shown or not yet shown. The shield outlives it.
    Veil(QWidget& window, const CaptureShield& shield);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();

    QWidget& window;
    const CaptureShield& shield;
};

} // namespace sablequill
