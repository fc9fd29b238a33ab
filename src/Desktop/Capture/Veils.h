// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace sablequill {

class CaptureShield;

/// Gives a veil to each window of the program that must not be seen yet when it is shown: menus and
/// tooltips too. Where nothing can be hidden it does nothing.
class Veils final : public QObject {
    Q_OBJECT

public:
    /// The shield outlives this object and the windows.
    explicit Veils(const CaptureShield& shield);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const CaptureShield& shield;
};

} // namespace sablequill
