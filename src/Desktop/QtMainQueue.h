// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"

#include <QObject>

namespace sablequill {

/// The toolkit's event loop. Work that is still waiting when this object goes away is dropped.
class QtMainQueue final : public MainQueue {
public:
    void async(std::function<void()> work) override;
    void after(double seconds, std::function<void()> work) override;

private:
    QObject context;
};

} // namespace sablequill
