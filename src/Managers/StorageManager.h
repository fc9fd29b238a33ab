// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "MirkpadItem.h"

#include <QString>

#include <vector>

namespace sablequill {

class LoginItem;

/// Owns notes.json and settings.json and the copy of the settings in memory. Reports no errors: a read
/// that fails gives the defaults, a write that fails is dropped and leaves the old file whole.
class StorageManager {
public:
    /// Loads the settings and creates the folder; writes no file. Ends the program when the user has no
    /// folder for application data. The login item outlives this object.
    explicit StorageManager(LoginItem& loginItem);

    /// As last loaded or saved.
    AppSettings settings;

    /// The list in file order, also an empty one; one fresh welcome note when the file is missing or
    /// cannot be read as a whole.
    std::vector<MirkpadItem> loadNotes();
    /// Replaces the file durably and atomically.
    void saveNotes(const std::vector<MirkpadItem>& notes);
    /// Keeps the settings in memory first, then replaces the file; after a write that succeeded,
    /// registers or unregisters the login item.
    void saveSettings(const AppSettings& settings);
    void updateOverlayFrame(const OverlayFrame& frame);
};

} // namespace sablequill
