// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <string>

namespace sablequill::test {

/// The runs' texts, each behind its intents and link in brackets: "[]a [strong]b[link=c]d".
std::string notation(const AttributedString& string);

} // namespace sablequill::test
