// SPDX-License-Identifier: MIT
#pragma once

#include "Published.h"

namespace sablequill {

/// Whether the desktop prefers dark windows. Light until the desktop says otherwise, and where it
/// says nothing.
class ColorScheme : public ObservableObject {
public:
    Published<bool> prefersDark{this, false};
};

} // namespace sablequill
