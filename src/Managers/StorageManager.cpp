// SPDX-License-Identifier: MIT
#include "StorageManager.h"

#include "AtomicFile.h"
#include "Constants.h"
#include "FatalStop.h"
#include "Files.h"
#include "LoginItem.h"
#include "UnreadableFile.h"
#include "UserFolders.h"

#include <array>
#include <utility>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

const QString defaultWelcomeContent =
    QStringLiteral("# Welcome to Sablequill\n"
                   "\n"
                   "Your floating teleprompter for calls, recordings, and presentations.\n"
                   "\n"
                   "**Mirk mode** hides this overlay from screen recordings when possible.\n"
                   "\n"
                   "## Tips\n"
                   "- Use `# Heading` for sections\n"
                   "- Use `- bullet` for lists\n"
                   "- Use `**bold**` for emphasis\n"
                   "\n"
                   "Switch notes with ⌘⇧↑ / ⌘⇧↓");

MirkpadItem welcomeNote()
{
    const Timestamp now = currentTime();
    return {
        .title = QStringLiteral("Welcome"),
        .content = defaultWelcomeContent,
        .createdAt = now,
        .updatedAt = now,
    };
}

bool replaceFile(
    const fs::path& url, std::span<const QByteArrayView> chunks, bool& holdsUnreadableBytes)
{
    if (holdsUnreadableBytes && !keepUnreadableFile(url))
        return false;
    holdsUnreadableBytes = false;
    if (AtomicFile(url).replace(chunks))
        return true;
    const fs::path folder = url.parent_path();
    if (Files::exists(folder))
        return false;
    // It was removed while the program was running.
    Files::createPrivateFolder(folder);
    return AtomicFile(url).replace(chunks);
}

} // namespace

std::future<StorageManager::StoredNotes> StorageManager::notesAhead;

StorageManager::StorageManager(LoginItem& loginItem)
    : loginItem(loginItem)
{
    const auto loaded = loadSettings(settingsURL());
    settings = loaded.value_or(AppSettings{});
    settingsAreUnreadable = !loaded && Files::exists(settingsURL());
    ensureDirectoryExists();
    AtomicFile(notesURL()).removeStaleTemporaries();
    AtomicFile(settingsURL()).removeStaleTemporaries();
}

StorageManager::~StorageManager()
{
    writeUnsaved();
}

fs::path StorageManager::appSupportDirectory()
{
    if (const auto dataHome = UserFolders::in("XDG_DATA_HOME", ".local/share"))
        return *dataHome / Constants::appName.toStdString();
    fatalStop("Unexpectedly found nil while unwrapping an Optional value");
}

fs::path StorageManager::settingsURL()
{
    return appSupportDirectory() / "settings.json";
}

fs::path StorageManager::notesURL()
{
    return appSupportDirectory() / "notes.json";
}

void StorageManager::ensureDirectoryExists() const
{
    Files::createPrivateFolder(appSupportDirectory());
}

void StorageManager::readNotesAhead()
{
    notesAhead = std::async(readNotes, notesURL());
}

std::vector<MirkpadItem> StorageManager::loadNotes()
{
    StoredNotes stored = notesAhead.valid() ? notesAhead.get() : readNotes(notesURL());
    notesAreUnreadable = stored.fileExists && !stored.list;
    if (stored.list)
        return *std::move(stored.list);
    return {welcomeNote()};
}

StorageManager::StoredNotes StorageManager::readNotes(const fs::path& url)
{
    StoredNotes stored{.fileExists = Files::exists(url)};
    if (const auto json = Files::read(url)) {
        if (auto notes = decodeNotes(*json, Files::spareBytes))
            stored.list = *std::move(notes);
    }
    return stored;
}

std::optional<AppSettings> StorageManager::loadSettings(const fs::path& url)
{
    const auto json = Files::read(url);
    if (!json)
        return {};
    auto settings = decodeSettings(*json);
    if (!settings)
        return {};
    return *std::move(settings);
}

void StorageManager::saveNotes(const std::vector<MirkpadItem>& notes)
{
    if (!replaceFile(notesURL(), encoder.encode(notes), notesAreUnreadable)) {
        unsavedNotes = notes;
        return;
    }
    unsavedNotes.reset();
    writeUnsaved();
}

void StorageManager::saveSettings(const AppSettings& settings)
{
    this->settings = settings;
    const auto json = encodeSettings(this->settings);
    if (!json)
        return;
    const std::array chunks{QByteArrayView(*json)};
    settingsAreUnsaved = !replaceFile(settingsURL(), chunks, settingsAreUnreadable);
    if (settingsAreUnsaved)
        return;
    updateLaunchAtStartup(this->settings.launchAtStartup);
    writeUnsaved();
}

void StorageManager::updateOverlayFrame(const OverlayFrame& frame)
{
    AppSettings copy = settings;
    copy.overlayFrame = frame;
    saveSettings(copy);
}

void StorageManager::writeUnsaved()
{
    if (const auto notes = std::exchange(unsavedNotes, {}))
        saveNotes(*notes);
    if (std::exchange(settingsAreUnsaved, false))
        saveSettings(settings);
}

void StorageManager::updateLaunchAtStartup(bool enabled)
{
    if (enabled)
        loginItem.registerItem();
    else
        loginItem.unregisterItem();
}

} // namespace sablequill
