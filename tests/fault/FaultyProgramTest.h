// SPDX-License-Identifier: MIT
#pragma once

#include "OverlayTest.h"

#include <QByteArray>

#include <string>
#include <vector>

namespace sablequill {

/// The built program, its overlay and its editor, while something goes wrong below it. Without a
/// window manager, which has no part in this.
class FaultyProgramTest : public OverlayTest {
protected:
    /// Opens the editor and makes the first note that text.
    void startEditing(std::string_view text);
    /// Types keys that cannot be saved into the first line, and returns when the header shows them:
    /// that comes after the try, unlike the editor's picture.
    void typeUnsaved(std::string_view keys);
    /// Types keys and waits for the whole of what was typed to be in the file.
    void typeSaved(std::string_view keys);
    /// The other notes are as they were.
    void expectOtherNotesKept() const;
    /// The overlay comes and goes by key.
    void expectGoesOn();
    /// Kills the display server and returns when the program has ended, by itself and not by a
    /// signal.
    void killDisplay();

    std::filesystem::path notesFile() const { return user.storageFolder() / "notes.json"; }
    std::filesystem::path settingsFile() const { return user.storageFolder() / "settings.json"; }
    QByteArray notesBytes() const;
    /// The names in the user's folder, sorted.
    std::vector<std::string> names() const;

    QString typed;
};

const std::vector<std::string>& bothFiles();

/// The bytes of a file, empty when there is none.
QByteArray fileBytes(const std::filesystem::path& file);
void writeBytes(const std::filesystem::path& file, const QByteArray& bytes);

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): GoogleTest instantiates by macro.
#define INSTANTIATE_WITHOUT_MANAGER(suite)                                                         \
    INSTANTIATE_TEST_SUITE_P(Fault, suite, testing::Values(WindowManagerSetup::none), setupName)

} // namespace sablequill
