// SPDX-License-Identifier: MIT

// A window-server library for tests. Each build of it has some of the functions, which all tell the
// library's number.

#include "Rect.h"

#include <cstdint>

extern "C" {

#ifdef HAS_MAIN_CONNECTION
std::uint32_t CGSMainConnectionID()
{
    return LIBRARY_NUMBER;
}
#endif

#ifdef HAS_REGION
void* CGRegionCreateWithRect(sablequill::Rect rect)
{
    static double numberAndWidth[2];
    numberAndWidth[0] = LIBRARY_NUMBER;
    numberAndWidth[1] = rect.width;
    return numberAndWidth;
}

void CGRegionRelease(void* region)
{
    *static_cast<double*>(region) = -LIBRARY_NUMBER;
}
#endif

#ifdef HAS_EXCLUSION
std::int32_t CGSSetWindowCaptureExcludeShape(std::uint32_t, std::uint32_t, void*)
{
    return LIBRARY_NUMBER;
}
#endif
}
