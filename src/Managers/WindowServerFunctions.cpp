// SPDX-License-Identifier: MIT
#include "WindowServerFunctions.h"

#include <dlfcn.h>

#include <bit>
#include <utility>

namespace sablequill {

namespace {

template <typename Function> void sym(void* handle, const char* name, Function& slot)
{
    static_assert(sizeof(Function) == sizeof(void*), "a function's address must fit its slot");
    if (slot)
        return;
    if (void* address = dlsym(handle, name))
        slot = std::bit_cast<Function>(address);
}

} // namespace

WindowServerFunctions::WindowServerFunctions(std::vector<std::string> libraryPaths)
    : libraryPaths(std::move(libraryPaths))
{
}

bool WindowServerFunctions::isSupported()
{
    load();
    return fnMain && fnExclude;
}

void WindowServerFunctions::load()
{
    if (loaded)
        return;
    // Set first: a lookup that failed is not tried again.
    loaded = true;
    for (const std::string& path : libraryPaths) {
        void* handle = dlopen(path.c_str(), RTLD_LAZY);
        if (!handle)
            continue;
        sym(handle, "CGSMainConnectionID", fnMain);
        sym(handle, "CGRegionCreateWithRect", fnCreate);
        sym(handle, "CGRegionRelease", fnRelease);
        sym(handle, "CGSSetWindowCaptureExcludeShape", fnExclude);
    }
}

} // namespace sablequill
