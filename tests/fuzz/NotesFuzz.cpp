// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "MirkpadItem.h"
#include "NotesEncoder.h"

using namespace sablequill;

// Notes that were read are written so that they are read again as the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto notes = decodeNotes(bytes(data, size));
    if (!notes)
        return 0;
    NotesEncoder encoder;
    QByteArray json;
    for (const QByteArrayView chunk : encoder.encode(*notes))
        json += chunk;
    const auto again = decodeNotes(json);
    require(again && *again == *notes);
    return 0;
}
