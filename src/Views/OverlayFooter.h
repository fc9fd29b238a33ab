// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

namespace sablequill {

class PlainButton;
class TextLabel;

/// The bottom of the overlay: which note of how many is shown, the way to its neighbors and to a
/// new one.
class OverlayFooter : public QWidget {
    Q_OBJECT

public:
    OverlayFooter();

    /// `position` counts from 1.
    void showCounter(int position, std::size_t count);

Q_SIGNALS:
    void previousRequested();
    void nextRequested();
    void newRequested();

private:
    PlainButton* noteSwitcherButton(const QString& icon, std::function<void()> action);
    PlainButton* newButton();

    TextLabel* counter;
};

} // namespace sablequill
