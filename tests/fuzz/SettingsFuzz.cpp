// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "AppSettings.h"

using namespace sablequill;

// Settings that were read are written so that they are read again as the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto settings = decodeSettings(bytes(data, size));
    if (!settings)
        return 0;
    const auto json = encodeSettings(*settings);
    require(json.has_value());
    const auto again = decodeSettings(*json);
    require(again && *again == *settings);
    return 0;
}
