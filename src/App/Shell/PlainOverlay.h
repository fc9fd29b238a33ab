// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"

#include <QWidget>

class QPlainTextEdit;

namespace sablequill {

class AppState;

/// The selected note as plain text, to read or to edit.
class PlainOverlay : public QWidget, public PanelContent {
    Q_OBJECT

public:
    explicit PlainOverlay(AppState& appState);

    QMargins shadowReach() const override { return {20, 12, 20, 28}; }
    double cornerRadius() const override { return 14; }
    void setComposited(bool isComposited) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect card() const;
    void refresh();
    void write();

    AppState& appState;
    QPlainTextEdit* text;
    bool isComposited = true;
};

} // namespace sablequill
