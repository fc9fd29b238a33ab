// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace sablequill {

/// The same picture, to be kept. One that was painted on holds the buffers of its painter as long
/// as it lives, ten kilobytes and more; a copy has none.
inline QPixmap keptPixmap(const QPixmap& painted)
{
    return painted.copy();
}

} // namespace sablequill
