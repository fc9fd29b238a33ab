// SPDX-License-Identifier: MIT
#pragma once

#include "ShownText.h"

#include <optional>

namespace sablequill {

/// Text taken out of a text and put into it at one place.
struct TextEdit {
    qsizetype position = 0;
    QString removed;
    QString inserted;

    TextEdit inverted() const { return {position, inserted, removed}; }

    bool operator==(const TextEdit&) const = default;
};

/// What a document has to replace so that it shows an edited text.
struct ShownEdit {
    qsizetype position = 0;
    qsizetype removed = 0;
    QString inserted;
};

/// The text that an editor works on, character by character as it came: what the user does not
/// touch keeps its bytes, though the document that shows it could not give them back.
class EditBuffer : public ShownText {
public:
    /// Returns what is to be shown, whole.
    QString setText(QString text);

    /// Takes over a change of the document, which reports it in its own places: `removed` units of
    /// what it showed became `added`. Returns what that means for the text; nothing when the text
    /// stays the same. A lone CR that comes to stand before an LF becomes an LF, so that two breaks
    /// stay two.
    std::optional<TextEdit> shownChanged(qsizetype position, qsizetype removed, QStringView added);

    /// Makes an edit of the text, which holds `edit.removed` at its place.
    ShownEdit apply(const TextEdit& edit);

    /// The edit that puts a text between two places of the shown string, its line breaks as LF.
    TextEdit replacement(qsizetype shownStart, qsizetype shownEnd, const QString& text) const;

private:
    struct Range {
        qsizetype position = 0;
        qsizetype length = 0;
    };
    TextEdit joined(TextEdit edit) const;
    void splice(const TextEdit& edit, Range replacedBreaks, const std::vector<qsizetype>& breaks);
};

} // namespace sablequill
