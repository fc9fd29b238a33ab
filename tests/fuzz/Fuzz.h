// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace sablequill {

/// What the fuzzer hands over, as the decoders take it.
inline QByteArrayView bytes(const std::uint8_t* data, std::size_t size)
{
    return {data, static_cast<qsizetype>(size)};
}

/// Stops the fuzzer at this input when something that always holds does not.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace sablequill

/// Called by the fuzzer with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
