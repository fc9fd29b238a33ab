// SPDX-License-Identifier: MIT
#pragma once

class QUrl;

namespace sablequill {

/// Whether a link of a note may be handed to the desktop: web pages and mail. A note may come from
/// anywhere; what else a desktop would do with a link is not for its text to decide.
bool mayOpen(const QUrl& link);

} // namespace sablequill
