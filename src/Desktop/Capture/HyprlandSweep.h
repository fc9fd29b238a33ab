// SPDX-License-Identifier: MIT
#pragma once

#include "HyprlandSocket.h"

#include <vector>

namespace sablequill {

/// One pass over the windows that the compositor has of this process: hides each of them and reads
/// back that it did, or lets captures show them again.
class HyprlandSweep final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        /// All the windows that there are.
        done,
        /// The compositor has no window of this process yet, or did it for some only.
        missing,
        /// It has windows, and does it for none.
        refused,
        /// It cannot be asked.
        silent,
    };

    /// Begins with the given form of requests. The socket outlives this object.
    HyprlandSweep(HyprlandSocket& socket, bool isWanted, int form);

    void start();
    /// The form that the compositor was last seen to understand.
    int form() const { return currentForm; }
    const std::vector<QByteArray>& listedWindows() const { return windows; }
    /// Those of them that are now as wanted.
    const std::vector<QByteArray>& doneWindows() const { return done; }

Q_SIGNALS:
    /// The last thing that it does.
    void finished(sablequill::HyprlandSweep::Outcome outcome);

private:
    void takeWindows(const QByteArray& answer);
    void takeDoneWindow();
    Outcome outcome() const;
    void takeNextWindow();
    void trySetting();
    void readBack();
    void tryNextForm();
    void ask(const QByteArray& request, void (HyprlandSweep::*take)(const QByteArray&));
    void takeSetting(const QByteArray& answer);
    void takeReadBack(const QByteArray& answer);
    void takeWindowsAfterFailure(const QByteArray& answer);

    HyprlandSocket& socket;
    const bool isWanted;
    int currentForm;
    /// How many of the forms failed for the present window.
    int failedForms = 0;
    bool isListed = false;
    bool isRefused = false;
    std::vector<QByteArray> windows;
    std::size_t present = 0;
    std::vector<QByteArray> done;
};

} // namespace sablequill
