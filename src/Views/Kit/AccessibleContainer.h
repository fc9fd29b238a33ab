// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// From now on tells assistive programs of plain widgets what they are: a window, a group that can
/// hold the keyboard, or nothing but filling. The toolkit calls all of them filling.
void installAccessibleContainers();

} // namespace sablequill
