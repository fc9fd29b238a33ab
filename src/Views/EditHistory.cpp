// SPDX-License-Identifier: MIT
#include "EditHistory.h"

#include <algorithm>

namespace sablequill {
namespace {

/// At most one character, which may be two units.
bool isSmall(const TextEdit& edit)
{
    return edit.removed.size() <= 2 && edit.inserted.size() <= 2;
}

bool isWordsEnd(const QString& typed, const QString& next)
{
    return std::any_of(next.begin(), next.end(), isBlockBreak)
        || (typed.back().isSpace() && !next.front().isSpace());
}

bool isTypedAfter(const TextEdit& last, const TextEdit& edit)
{
    return edit.removed.isEmpty() && !last.inserted.isEmpty()
        && edit.position == last.position + last.inserted.size()
        && !isWordsEnd(last.inserted, edit.inserted);
}

bool isDeletedBefore(const TextEdit& last, const TextEdit& edit)
{
    return last.inserted.isEmpty() && edit.inserted.isEmpty()
        && edit.position + edit.removed.size() == last.position;
}

bool isDeletedAfter(const TextEdit& last, const TextEdit& edit)
{
    return last.inserted.isEmpty() && edit.inserted.isEmpty() && edit.position == last.position;
}

/// Makes `edit` a part of the one before it, where it goes on with that.
bool extend(TextEdit& last, const TextEdit& edit)
{
    if (isTypedAfter(last, edit)) {
        last.inserted += edit.inserted;
        return true;
    }
    if (isDeletedBefore(last, edit)) {
        last.position = edit.position;
        last.removed.prepend(edit.removed);
        return true;
    }
    if (isDeletedAfter(last, edit)) {
        last.removed += edit.removed;
        return true;
    }
    return false;
}

} // namespace

void EditHistory::record(const TextEdit& edit)
{
    edits.resize(made);
    if (isOpen && isSmall(edit) && extend(edits.back(), edit))
        return;
    if (edits.size() == mostEdits)
        edits.erase(edits.begin());
    edits.push_back(edit);
    made = edits.size();
    isOpen = isSmall(edit);
}

void EditHistory::clear()
{
    edits.clear();
    made = 0;
    isOpen = false;
}

std::optional<TextEdit> EditHistory::undo()
{
    if (!canUndo())
        return std::nullopt;
    isOpen = false;
    return edits[--made].inverted();
}

std::optional<TextEdit> EditHistory::redo()
{
    if (!canRedo())
        return std::nullopt;
    isOpen = false;
    return edits[made++];
}

} // namespace sablequill
