// SPDX-License-Identifier: MIT
#include "FakeLoginItem.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <ctime>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype megabyte = 1'000'000;
/// tools/faults.sh asks for more.
constexpr const char* sizeVariable = "SABLEQUILL_FAULT_MEGABYTES";
constexpr int everydayMegabytes = 10;

/// Processor time, so that what else runs on the machine does not count; ten times what a machine
/// of today takes.
constexpr double secondsPerTenMegabytes = 1;

const QByteArray noteStart =
    R"({"id": "0F0E0D0C-0B0A-4908-8706-050403020100", "createdAt": "2026-01-31T09:15:00Z",)"
    R"( "updatedAt": "2026-01-31T09:15:00Z", "title": "t", "content": ")";
const QByteArray noteEnd = "\"}";

struct LargeFile {
    const char* name;
    QByteArray start;
    QByteArray unit; ///< repeated to the size that is wanted
    QByteArray end;
    bool isRead; ///< as notes
};

void PrintTo(const LargeFile& row, std::ostream* stream) // NOLINT(readability-identifier-naming)
{
    *stream << row.name;
}

int wantedMegabytes()
{
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue(sizeVariable, &isNumber);
    return isNumber ? wanted : everydayMegabytes;
}

template <typename Action> double secondsOf(Action&& action)
{
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

class LargeFiles : public testing::TestWithParam<LargeFile> {
protected:
    static QByteArray bytes()
    {
        const auto& [name, start, unit, end, isRead] = GetParam();
        return start + unit.repeated(wantedMegabytes() * megabyte / unit.size()) + end;
    }
    static void expectSoon(double seconds)
    {
        EXPECT_LE(seconds, wantedMegabytes() / 10.0 * secondsPerTenMegabytes);
    }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
};

TEST_P(LargeFiles, asNotes_loadSoonAndTheBytesAreKeptOrRead)
{
    const QByteArray written = bytes();
    writeFile(home.notes(), written);
    StorageManager storage(loginItem);
    std::vector<MirkpadItem> notes;
    expectSoon(secondsOf([&] { notes = storage.loadNotes(); }));
    EXPECT_EQ(notes.front().title == u"Welcome", !GetParam().isRead);
    storage.saveNotes({});
    const auto kept = home.folder() / "notes.unreadable.json";
    EXPECT_EQ(std::filesystem::exists(kept), !GetParam().isRead);
    EXPECT_TRUE(GetParam().isRead || bytesOf(kept) == written);
}

TEST_P(LargeFiles, asSettings_defaultsSoonAndTheBytesAreKept)
{
    const QByteArray written = bytes();
    writeFile(home.settings(), written);
    std::unique_ptr<StorageManager> storage;
    expectSoon(secondsOf([&] { storage = std::make_unique<StorageManager>(loginItem); }));
    EXPECT_EQ(storage->settings, AppSettings{});
    storage->saveSettings({});
    EXPECT_TRUE(bytesOf(home.folder() / "settings.unreadable.json") == written);
}

INSTANTIATE_TEST_SUITE_P(Rows, LargeFiles,
    testing::Values(LargeFile{"zeros", "", QByteArray(1, '\0'), "", false},
        LargeFile{"spaces", "", " ", "", false}, LargeFile{"ones", "", "\xFF", "", false},
        LargeFile{"open_brackets", "", "[", "", false},
        LargeFile{"open_braces", "", "{\"\":", "", false},
        LargeFile{"empty_arrays", "[[]", ",[]", "]", false},
        LargeFile{"numbers", "[1", ",1", "]", false},
        LargeFile{"one_number", "[1", "1", "]", false},
        LargeFile{"one_fraction", "[1.", "1", "]", false},
        LargeFile{"backslashes", "[\"", "\\\\", "\"]", false},
        LargeFile{"endless_string", "[\"", "a", "", false},
        LargeFile{"same_key", "{\"a\": 1", ",\"a\":1", "}", false},
        LargeFile{"one_note", "[" + noteStart, "some text\\n", noteEnd + "]", true},
        LargeFile{
            "one_note_of_escapes", "[" + noteStart, "\\u00e9\\ud83d\\ude00", noteEnd + "]", true},
        LargeFile{"one_note_of_ill_formed_bytes", "[" + noteStart, "\xC3", noteEnd + "]", false},
        LargeFile{
            "many_notes", "[" + noteStart + noteEnd, "," + noteStart + "x" + noteEnd, "]", true}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sablequill
