// SPDX-License-Identifier: MIT
#pragma once

#include "Backoff.h"
#include "HyprlandDispatch.h"

#include <QRect>

namespace sablequill {

/// Hyprland: gives a panel of the program the keyboard. The compositor neither does that when it is
/// asked for as on X, nor leaves a full-screen window as it is when a window is shown that it has
/// to find a place for.
class HyprlandFocus final : public QObject {
    Q_OBJECT

public:
    struct Times {
        /// Until a compositor that does not have the window yet is asked again; twice as long each
        /// further time.
        std::chrono::milliseconds retry{25};
        /// When that time is more than this, no more.
        std::chrono::milliseconds longest{1000};
    };

    HyprlandFocus(const QString& socketPath, const Times& times);
    explicit HyprlandFocus(const QString& socketPath)
        : HyprlandFocus(socketPath, Times{})
    {
    }

    /// Of the panel with that frame, in the X server's pixels. Returns at once.
    void focusPanel(const QRect& frame);
    void stop();

Q_SIGNALS:
    /// The compositor says that it has done it.
    void focused();

private:
    void askForWindows();
    void takeWindows(const QByteArray& answer);
    void focus(const QByteArray& window);

    HyprlandSocket socket;
    Backoff retry;
    HyprlandDispatch dispatch;
    QRect frame;
    /// Answers to earlier ones do not count.
    int asked = 0;
};

} // namespace sablequill
