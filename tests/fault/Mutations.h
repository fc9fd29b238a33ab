// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <random>

namespace sablequill {

/// A text that something has spoilt, the same for the same state of the generator: cut off, bits
/// turned over, pieces put in, taken out, doubled, exchanged or of another type, too deep or in no
/// encoding that there is.
QByteArray mutated(const QByteArray& json, std::mt19937& random);

} // namespace sablequill
