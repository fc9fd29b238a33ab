// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <string>

namespace sablequill::InlineMarkdown {

/// An attributed string in the making. Its text stays UTF-8 until it is complete, and is decoded as
/// a whole: run by run that would take ten times as long.
class Utf8Runs {
public:
    /// To be written at its end.
    std::string text;

    /// Gives these attributes to what has been written since the last call.
    void endRun(const RunAttributes& attributes);
    /// Of all that is in runs.
    AttributedString decoded() &&;

private:
    Runs runs; ///< In bytes.
    qsizetype end = 0;
};

} // namespace sablequill::InlineMarkdown
