// SPDX-License-Identifier: MIT
#pragma once

#include "EditBuffer.h"

#include <optional>
#include <vector>

namespace sablequill {

/// The edits of one text that can be taken back and made again. What is typed or deleted character
/// by character is taken back word by word.
class EditHistory {
public:
    static constexpr std::size_t mostEdits = 1000;

    /// An edit that was made; forgets what was taken back before.
    void record(const TextEdit& edit);
    void clear();

    bool canUndo() const { return made > 0; }
    bool canRedo() const { return made < edits.size(); }
    /// The edit to make now; nothing when there is none.
    std::optional<TextEdit> undo();
    std::optional<TextEdit> redo();

private:
    std::vector<TextEdit> edits;
    std::size_t made = 0; ///< The first so many edits are in the text.
    bool isOpen = false; ///< Whether the last edit may be continued.
};

} // namespace sablequill
