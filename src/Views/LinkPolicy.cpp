// SPDX-License-Identifier: MIT
#include "LinkPolicy.h"

#include <QUrl>

namespace sablequill {

bool mayOpen(const QUrl& link)
{
    if (!link.isValid())
        return false;
    const QString scheme = link.scheme();
    const bool isWeb = scheme == QStringLiteral("http") || scheme == QStringLiteral("https");
    return (isWeb && !link.host().isEmpty()) || scheme == QStringLiteral("mailto");
}

} // namespace sablequill
