// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace sablequill {

/// Turns SIGTERM, SIGINT and SIGHUP into one call on the main loop. At most one may exist.
class UnixSignals : public QObject {
public:
    explicit UnixSignals(std::function<void()> onTerminate);
    ~UnixSignals() override;

private:
    void drain();

    std::function<void()> onTerminate;
    int descriptor;
};

} // namespace sablequill
