// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <vector>

namespace sablequill::test {

/// A run as a test writes it down.
struct Piece {
    QString text;
    RunAttributes attributes = {};

    bool operator==(const Piece&) const = default;
};
using Pieces = std::vector<Piece>;

/// Also checks that the runs lie side by side and make up the text.
Pieces pieces(const AttributedString& string);
AttributedString joined(const Pieces& pieces);

} // namespace sablequill::test
