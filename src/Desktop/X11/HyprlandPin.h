// SPDX-License-Identifier: MIT
#pragma once

#include "Backoff.h"
#include "HyprlandDispatch.h"

#include <vector>

namespace sablequill {

/// Hyprland: pins the program's panels, which puts them on every workspace and above windows that
/// fill the screen, those too that come later. The panels are known by their title, which no other
/// window of the program has.
class HyprlandPin final : public QObject {
    Q_OBJECT

public:
    struct Times {
        /// Until the compositor is asked again; twice as long each further time.
        std::chrono::milliseconds retry{25};
        /// When that time is more than this, no more.
        std::chrono::milliseconds longest{4000};
    };

    HyprlandPin(const QString& socketPath, const Times& times);
    explicit HyprlandPin(const QString& socketPath)
        : HyprlandPin(socketPath, Times{})
    {
    }

    /// To be called when a panel is shown; the compositor has it some time later. Returns at once.
    void pinPanels();

private:
    void askForWindows();
    void pinNext();

    HyprlandSocket socket;
    Backoff retry;
    HyprlandDispatch dispatch;
    bool isAsking = false;
    std::vector<QByteArray> unpinned;
};

} // namespace sablequill
