// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"

#include <QAbstractButton>

#include <functional>

namespace sablequill {

/// The head of a tab: a symbol above its label, in the accent color while the tab is shown.
class TabButton : public QAbstractButton {
    Q_OBJECT

public:
    /// The action is run when the tab is to be shown.
    TabButton(const QString& label, const QString& symbol, std::function<void()> action);

    QSize sizeHint() const override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol;
    FocusRing ring{this};
};

} // namespace sablequill
