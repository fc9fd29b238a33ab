// SPDX-License-Identifier: MIT
#include "CaptureExclusion.h"

#include "Panel.h"
#include "WindowServerFunctions.h"

namespace sablequill::CaptureExclusion {

bool isSupported()
{
    static WindowServerFunctions functions(
        {"/System/Library/Frameworks/CoreGraphics.framework/CoreGraphics",
            "/System/Library/PrivateFrameworks/SkyLight.framework/Versions/A/SkyLight"});
    return functions.isSupported();
}

void apply(Panel& window)
{
    window.setSharingType(SharingType::none);
    window.setLevel(WindowLevel::floating);
}

void remove(Panel& window)
{
    window.setSharingType(SharingType::readOnly);
}

} // namespace sablequill::CaptureExclusion
