// SPDX-License-Identifier: MIT
#include "NullLoginItem.h"

namespace sablequill {

bool NullLoginItem::registerItem()
{
    return false;
}

bool NullLoginItem::unregisterItem()
{
    return false;
}

} // namespace sablequill
