// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "MirkpadItem.h"
#include "NotesEncoder.h"

#include <QByteArrayView>

#include <filesystem>
#include <future>
#include <optional>
#include <span>
#include <vector>

namespace sablequill {

class LoginItem;

/// Owns notes.json and settings.json and the copy of the settings in memory. Reports no errors: a
/// read that fails gives the defaults, a write that fails leaves the old file whole and is made up
/// for by the next one, of either file, that succeeds, or at the end of the run.
///
/// The files are in "Sablequill" in the user's folder for application data: $XDG_DATA_HOME where
/// that is an absolute path, else $HOME/.local/share (freedesktop.org's base directories). They are
/// the user's alone. The bytes of a file that could not be read are kept beside it, under another
/// name, before it is replaced for the first time; while that fails it is not replaced.
class StorageManager {
public:
    /// Loads the settings and creates the folder; writes no file. Removes what a killed process
    /// left half written. Ends the program when the user has no folder for application data. The
    /// login item outlives this object.
    explicit StorageManager(LoginItem& loginItem);
    /// Writes what is unsaved.
    ~StorageManager();

    StorageManager(const StorageManager&) = delete;
    StorageManager& operator=(const StorageManager&) = delete;

    /// As last loaded or saved.
    AppSettings settings;

    /// Starts to read the notes in another thread; the next `loadNotes()`, of whatever object,
    /// takes what that one found. For the start of the program, which has much else to do
    /// meanwhile. Ends the program when the user has no folder for application data.
    static void readNotesAhead();

    /// The list in file order, also an empty one; one fresh welcome note when the file is missing
    /// or cannot be read as a whole.
    std::vector<MirkpadItem> loadNotes();
    /// Replaces the file atomically, its bytes synced.
    void saveNotes(const std::vector<MirkpadItem>& notes);
    /// Keeps the settings in memory first, then replaces the file; after a write that succeeded,
    /// registers or unregisters the login item.
    void saveSettings(const AppSettings& settings);
    void updateOverlayFrame(const OverlayFrame& frame);
    /// Tries once more what could not be written; does nothing when everything was.
    void writeUnsaved();

private:
    struct StoredNotes {
        bool fileExists = false;
        std::optional<std::vector<MirkpadItem>> list = {};
    };

    static std::filesystem::path appSupportDirectory();
    static std::filesystem::path settingsURL();
    static std::filesystem::path notesURL();
    void ensureDirectoryExists() const;

    static StoredNotes readNotes(const std::filesystem::path& url);
    static std::optional<AppSettings> loadSettings(const std::filesystem::path& url);
    void updateLaunchAtStartup(bool enabled);

    static std::future<StoredNotes> notesAhead;

    LoginItem& loginItem;
    NotesEncoder encoder;
    bool notesAreUnreadable = false;
    bool settingsAreUnreadable = false;
    /// What the last write of each file failed to bring to the disk.
    std::optional<std::vector<MirkpadItem>> unsavedNotes;
    bool settingsAreUnsaved = false;
};

} // namespace sablequill
