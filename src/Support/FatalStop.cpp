// SPDX-License-Identifier: MIT
#include "FatalStop.h"

#include <cstdio>
#include <cstdlib>

namespace sablequill {

void fatalStop(const char* message)
{
    std::fprintf(stderr, "%s\n", message);
    std::fflush(stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace sablequill
