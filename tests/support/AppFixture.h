// SPDX-License-Identifier: MIT
#pragma once

#include "AppState.h"
#include "FakePanelContent.h"
#include "HotkeyManager.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "PlatformFixture.h"
#include "SettingsViewModel.h"
#include "StorageManager.h"
#include "WindowManager.h"

#include <algorithm>

namespace sablequill {

/// The application state of a first run on a desktop in memory.
class AppFixture : public PlatformFixture {
protected:
    /// Replaces the list by notes titled "Note 1", "Note 2" and so on, the first one selected.
    void makeNotes(int count)
    {
        std::vector<MirkpadItem> notes(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            MirkpadItem& note = notes[static_cast<std::size_t>(i)];
            note.id = QUuid::createUuid();
            note.title = QStringLiteral("Note %1").arg(i + 1);
            note.content = QStringLiteral("Note %1\nSecond line of %1").arg(i + 1);
        }
        appState.notesManager->notes = notes;
        appState.notesManager->selectedNoteID =
            notes.empty() ? std::optional<QUuid>() : notes.front().id;
    }

    const MirkpadItem& note(int index) const
    {
        return appState.notesManager->notes.get().at(static_cast<std::size_t>(index));
    }
    std::optional<QUuid> selectedNote() const { return appState.notesManager->selectedNoteID; }
    AppSettings savedSettings() { return StorageManager(loginItem).settings; }

    /// How often a call was recorded since the journal was last read.
    long callsOf(const std::string& call)
    {
        const auto lines = journal.take();
        return std::count(lines.begin(), lines.end(), call);
    }

    AppState appState{platform, [](AppState&) { return std::make_unique<FakePanelContent>(); }};
};

} // namespace sablequill
