// SPDX-License-Identifier: MIT
#pragma once

#include "Ink.h"
#include "Symbol.h"

#include <QLabel>

namespace sablequill {

/// Shows a symbol. Lets presses through to what lies behind it.
class SymbolView : public QLabel {
    Q_OBJECT

public:
    SymbolView(Symbol symbol, Ink ink = {}, QWidget* parent = nullptr);

    const Symbol& symbol() const { return shownSymbol; }
    Ink ink() const { return shownInk; }
    void setSymbolName(const QString& name);
    void setInk(Ink ink);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Symbol shownSymbol;
    Ink shownInk;
};

} // namespace sablequill
