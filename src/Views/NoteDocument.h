// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"
#include "ShownText.h"

#include <QTextDocument>

#include <memory>

namespace sablequill {

/// A styled note ready to be shown.
struct NoteDocument {
    std::unique_ptr<QTextDocument> document;
    /// What the document shows of which text.
    ShownText text;
};

/// Lays styled runs out as text: emphasis slanted, code in the fixed-pitch family, links in the
/// accent color and underlined, colors as in dark surroundings. `fontSize` (points) is that of runs
/// without a font; `padding` (points) surrounds the text.
NoteDocument makeNoteDocument(const AttributedString& note, double fontSize, double padding);

} // namespace sablequill
