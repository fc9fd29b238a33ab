// SPDX-License-Identifier: MIT
#include "FakeLoginItem.h"
#include "Mutations.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

constexpr unsigned seed = 20261121;
constexpr int inputs = 12'000;

const QByteArray someNotes = R"([
    {
        "content": "# Größe\n\n- **fett** \ud83d\ude00 😀\n\tund \"mehr\"",
        "createdAt": "2026-01-31T09:15:00Z",
        "id": "0F0E0D0C-0B0A-4908-8706-050403020100",
        "title": "Größe",
        "updatedAt": "2026-01-31T10:15:00Z"
    },
    {
        "content": "",
        "createdAt": "2026-01-31T09:15:00Z",
        "id": "1F0E0D0C-0B0A-4908-8706-050403020100",
        "title": "Untitled",
        "updatedAt": "2026-01-31T09:15:00Z"
    }
]
)";

const QByteArray someSettings = R"({
    "alwaysOnTop": false,
    "fontSize": 20.5,
    "hasCompletedOnboarding": true,
    "launchAtStartup": false,
    "mirkModeEnabled": false,
    "opacity": 0.5,
    "overlayFrame": {
        "height": 280,
        "width": 420,
        "x": -10.25,
        "y": 1e2
    },
    "shortcuts": {
        "nextNote": {
            "keyCode": 125,
            "modifiers": 3
        },
        "unheardOf": {
            "keyCode": 0,
            "modifiers": 4294967295
        }
    }
}
)";

class BadFiles : public testing::Test {
protected:
    BadFiles() { fs::create_directories(home.folder()); }

    /// What becomes of an unreadable file at the first save after it was read.
    void expectKept(const fs::path& file, const QByteArray& bytes) const
    {
        const fs::path kept = home.folder() / (file.stem().string() + ".unreadable.json");
        ASSERT_TRUE(fs::exists(kept));
        EXPECT_EQ(bytesOf(kept), bytes);
        fs::remove(kept);
    }
    bool isKept() const { return namesIn(home.folder()).size() > 1; }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
};

bool isWelcome(const std::vector<MirkpadItem>& notes)
{
    return notes.size() == 1 && notes.front().title == u"Welcome";
}

/// For a failure: which input it was, and what it began with.
std::string description(int input, const QByteArray& bytes)
{
    const QByteArray start = bytes.first(std::min<qsizetype>(bytes.size(), 2000));
    return "seed " + std::to_string(seed) + ", input " + std::to_string(input) + ": "
        + start.toStdString();
}

/// As another reader has it, which knows no byte order mark. Only what it reads as well may have
/// been loaded.
QJsonDocument readByAnother(const QByteArray& bytes)
{
    const QByteArray mark = "\xEF\xBB\xBF";
    return QJsonDocument::fromJson(bytes.startsWith(mark) ? bytes.sliced(mark.size()) : bytes);
}

void expectAnotherReaderAgrees(const QByteArray& bytes, const std::vector<MirkpadItem>& notes)
{
    const QJsonDocument document = readByAnother(bytes);
    ASSERT_TRUE(document.isArray());
    const QJsonArray array = document.array();
    ASSERT_EQ(static_cast<std::size_t>(array.size()), notes.size());
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const QJsonObject record = array.at(static_cast<qsizetype>(i)).toObject();
        EXPECT_TRUE(record[u"content"].isString() && record[u"title"].isString());
        EXPECT_EQ(record[u"content"].toString(), notes[i].content);
        EXPECT_EQ(record[u"title"].toString(), notes[i].title);
        EXPECT_EQ(QUuid::fromString(record[u"id"].toString()), notes[i].id);
    }
}

void expectAnotherReaderAgrees(const QByteArray& bytes, const AppSettings& settings)
{
    const QJsonObject object = readByAnother(bytes).object();
    EXPECT_TRUE(object[u"opacity"].isDouble() && object[u"hasCompletedOnboarding"].isBool());
    EXPECT_EQ(object[u"opacity"].toDouble(), settings.opacity);
    EXPECT_EQ(object[u"fontSize"].toDouble(), settings.fontSize);
    EXPECT_EQ(object[u"overlayFrame"].isObject(), settings.overlayFrame.has_value());
    EXPECT_EQ(static_cast<std::size_t>(object[u"shortcuts"].toObject().size()),
        settings.shortcuts.size());
}

TEST_F(BadFiles, notes_thousandsOfMutations_loadOrGiveWelcomeAndBytesAreKept)
{
    std::mt19937 random(seed);
    int loaded = 0;
    for (int input = 0; input < inputs && !HasFailure(); ++input) {
        const QByteArray bytes = mutated(someNotes, random);
        SCOPED_TRACE(description(input, bytes));
        writeFile(home.notes(), bytes);
        StorageManager storage(loginItem);
        const auto notes = storage.loadNotes();
        storage.saveNotes({});
        if (isWelcome(notes)) {
            expectKept(home.notes(), bytes);
        } else {
            ++loaded;
            expectAnotherReaderAgrees(bytes, notes);
            EXPECT_FALSE(isKept());
        }
    }
    // Both happen, and often.
    EXPECT_GT(loaded, inputs / 50);
    EXPECT_LT(loaded, inputs / 2);
}

TEST_F(BadFiles, settings_thousandsOfMutations_loadOrGiveDefaultsAndBytesAreKept)
{
    std::mt19937 random(seed);
    int loaded = 0;
    for (int input = 0; input < inputs && !HasFailure(); ++input) {
        const QByteArray bytes = mutated(someSettings, random);
        SCOPED_TRACE(description(input, bytes));
        writeFile(home.settings(), bytes);
        StorageManager storage(loginItem);
        const AppSettings settings = storage.settings;
        storage.saveSettings({});
        if (settings == AppSettings{}) {
            expectKept(home.settings(), bytes);
        } else {
            ++loaded;
            expectAnotherReaderAgrees(bytes, settings);
            EXPECT_FALSE(isKept());
        }
    }
    EXPECT_GT(loaded, inputs / 50);
    EXPECT_LT(loaded, inputs / 2);
}

TEST_F(BadFiles, hugeFileOfNothing_defaultsAndStaysUnderAnotherName)
{
    constexpr std::uintmax_t terabytes = 4ULL << 40;
    for (const fs::path& file : {home.notes(), home.settings()}) {
        writeFile(file, "");
        std::error_code error;
        fs::resize_file(file, terabytes, error);
        if (error)
            GTEST_SKIP() << "this file system has no files of that size";
    }
    StorageManager storage(loginItem);
    EXPECT_TRUE(isWelcome(storage.loadNotes()));
    EXPECT_EQ(storage.settings, AppSettings{});
    storage.saveNotes({});
    storage.saveSettings({});
    EXPECT_EQ(fs::file_size(home.folder() / "notes.unreadable.json"), terabytes);
    EXPECT_EQ(fs::file_size(home.folder() / "settings.unreadable.json"), terabytes);
    EXPECT_EQ(bytesOf(home.notes()), "[\n]\n");
}

} // namespace
} // namespace sablequill
