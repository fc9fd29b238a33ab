// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"

#include <memory>

namespace sablequill {

class StorageManager;

/// What the overlay's panel is made from; the application state provides it.
class OverlayEnvironment {
public:
    virtual std::shared_ptr<StorageManager> overlayStorage() = 0;
    /// A new overlay view on the application state, its notes manager and its overlay manager.
    virtual std::unique_ptr<PanelContent> makeOverlayContent() = 0;

protected:
    ~OverlayEnvironment() = default;
};

} // namespace sablequill
