// SPDX-License-Identifier: MIT
#include "FaultyProgramTest.h"

#include <QJsonDocument>

#include <limits>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

class BadFilesProgramTest : public FaultyProgramTest {
protected:
    /// Wherever the overlay is, and however large.
    void startAnywhere()
    {
        program = std::make_unique<ProgramUnderTest>(
            std::vector<std::string>{SABLEQUILL_BINARY}, environment(), user);
        ASSERT_TRUE(waitUntil([this] { return overlay.isShown() || !program->isRunning(); }));
        ASSERT_TRUE(program->isRunning());
    }
};

TEST_P(BadFilesProgramTest, start_unreadableNotes_welcomeAndTheNextKeyKeepsTheBytes)
{
    const QByteArray spoilt[] = {
        QByteArray(5000, '\0'),
        QByteArray(200'000, '['),
        "[{\"id\": \"\xFF\xFE\"}]",
        fileBytes(notesFile()).chopped(20),
    };
    for (const QByteArray& bytes : spoilt) {
        SCOPED_TRACE(bytes.left(20).toStdString());
        std::filesystem::remove(user.storageFolder() / "notes.unreadable.json");
        writeBytes(notesFile(), bytes);
        startProgram();
        EXPECT_EQ(notesBytes(), bytes);
        quickOpen();
        keyboard.type("x");
        EXPECT_TRUE(waitUntil([&] { return notesBytes() != bytes; }));
        EXPECT_EQ(savedTitle(0), u"Welcome to Sablequill");
        EXPECT_EQ(fileBytes(user.storageFolder() / "notes.unreadable.json"), bytes);
        endProgram();
    }
}

TEST_P(BadFilesProgramTest, start_unreadableSettings_defaultsAndTheBytesStay)
{
    const QByteArray spoilt[] = {"{", QByteArray(5000, '\0'), "[]", "\xFF\xFE{}"};
    for (const QByteArray& bytes : spoilt) {
        SCOPED_TRACE(bytes.first(1).toStdString());
        writeBytes(settingsFile(), bytes);
        startProgram();
        EXPECT_EQ(overlay.card(), (Area{430, 260, 420, 280}));
        expectGoesOn();
        endProgram();
        EXPECT_EQ(fileBytes(settingsFile()), bytes);
    }
}

TEST_P(BadFilesProgramTest, start_valuesBeyondReason_showsAndGoesOn)
{
    constexpr double most = std::numeric_limits<double>::max();
    const auto frame = [](double x, double y, double width, double height) {
        return QJsonObject{{u"x"_s, x}, {u"y"_s, y}, {u"width"_s, width}, {u"height"_s, height}};
    };
    const std::pair<QString, QJsonValue> rows[] = {
        {u"fontSize"_s, most},
        {u"fontSize"_s, 1e6},
        {u"fontSize"_s, 0},
        {u"fontSize"_s, -20},
        {u"opacity"_s, most},
        {u"opacity"_s, 1e-300},
        {u"overlayFrame"_s, frame(most, -most, 420, 280)},
        {u"overlayFrame"_s, frame(-1e9, 1e9, 420, 280)},
        {u"overlayFrame"_s, frame(0, 0, most, most)},
        {u"overlayFrame"_s, frame(100, 100, 0, -5)},
    };
    const QByteArray notes = notesBytes();
    for (const auto& [key, value] : rows) {
        auto settings = settingsWith(savedCard);
        settings[key] = value;
        SCOPED_TRACE(QJsonDocument(QJsonObject{{key, value}}).toJson().toStdString());
        user.writeSettings(settings);
        startAnywhere();
        expectGoesOn();
        endProgram();
        EXPECT_EQ(notesBytes(), notes);
    }
}

INSTANTIATE_WITHOUT_MANAGER(BadFilesProgramTest);

} // namespace
} // namespace sablequill
