// SPDX-License-Identifier: MIT
#include "MirkDescription.h"

#include <QCoreApplication>

namespace sablequill {
namespace {

QString text(const char* english)
{
    return QCoreApplication::translate("sablequill::MirkDescription", english);
}

} // namespace

QString mirkDescription(MirkEffect effect)
{
    switch (effect) {
    case MirkEffect::hidden:
        return text("In Mirk mode, screenshots, recordings and a shared screen do not show "
                    "Sablequill on this desktop.");
    case MirkEffect::blackBox:
        return text("In Mirk mode, screenshots, recordings and a shared screen show a black box "
                    "in place of Sablequill on this desktop.");
    case MirkEffect::none:
        return text("Sablequill cannot be hidden from screenshots, recordings and a shared screen "
                    "on this desktop: share a single window instead.");
    case MirkEffect::unknown:
        break;
    }
    return text("Whether Mirk mode hides Sablequill from screenshots, recordings and a shared "
                "screen on this desktop is not known yet.");
}

} // namespace sablequill
