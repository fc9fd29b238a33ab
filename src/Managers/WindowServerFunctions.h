// SPDX-License-Identifier: MIT
#pragma once

#include "Rect.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sablequill {

/// The four window-server functions that could exclude a region of a window from captures, looked
/// up in dynamic libraries at run time. They are never called here.
class WindowServerFunctions {
public:
    using MainConnection = std::uint32_t (*)();
    using CreateRegion = void* (*)(Rect rect);
    using ReleaseRegion = void (*)(void* region);
    using ExcludeShape = std::int32_t (*)(
        std::uint32_t connection, std::uint32_t windowNumber, void* region);

    /// The libraries are searched in this order; for each function the first that has it wins.
    explicit WindowServerFunctions(std::vector<std::string> libraryPaths);

    /// Whether a region could be excluded: a connection and the exclusion itself were found. The
    /// first call looks the functions up; later calls repeat its answer. Libraries stay open for
    /// good.
    bool isSupported();

    MainConnection fnMain = nullptr;
    CreateRegion fnCreate = nullptr;
    ReleaseRegion fnRelease = nullptr;
    ExcludeShape fnExclude = nullptr;

private:
    void load();

    std::vector<std::string> libraryPaths;
    bool loaded = false;
};

} // namespace sablequill
