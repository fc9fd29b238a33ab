// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

#include <filesystem>

namespace sablequill {
namespace {

class EditingTest : public OverlayTest { };

TEST_P(EditingTest, type_eachKey_isInTheFileWithTheTitleDerivedAgain)
{
    struct Step {
        const char* key;
        QString content;
        QString title;
    };
    const Step steps[] = {
        {"#", QStringLiteral("#"), QStringLiteral("#")},
        {" ", QStringLiteral("# "), QStringLiteral("#")},
        {"P", QStringLiteral("# P"), QStringLiteral("P")},
        {"l", QStringLiteral("# Pl"), QStringLiteral("Pl")},
        {"\n", QStringLiteral("# Pl\n"), QStringLiteral("Pl")},
        {"x", QStringLiteral("# Pl\nx"), QStringLiteral("Pl")},
    };
    startProgram();
    quickOpen();
    keyboard.chord({KeyCode::leftControl}, KeyCode::a);
    for (const auto& step : steps) {
        keyboard.type(step.key);
        EXPECT_TRUE(waitUntil([&] { return savedContent(0) == step.content; }))
            << savedContent(0).toStdString();
        EXPECT_EQ(savedTitle(0), step.title);
    }
    EXPECT_EQ(user.readNotes()->size(), 3);
    EXPECT_EQ(savedContent(2), QStringLiteral("Third\n\nwithout a heading"));
}

TEST_P(EditingTest, editButton_clicked_opensAndClosesEditor)
{
    startProgram();
    const QImage reading = overlay.steadyPicture();
    mouse.click(overlay.editButton());
    ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    retype("# By button");
    EXPECT_TRUE(waitUntil([&] { return savedTitle(0) == u"By button"; }));
    mouse.click(overlay.editButton());
    keyboard.type("ignored");
    EXPECT_TRUE(holdsFor([&] { return savedTitle(0) == u"By button"; }, watchTime));
    mouse.moveTo({1270, 790});
    EXPECT_NE(overlay.steadyPicture(), reading);
}

TEST_P(EditingTest, newButton_clicked_addsANoteOnTopAndEditsIt)
{
    startProgram();
    mouse.click(overlay.newButton());
    EXPECT_TRUE(waitUntil([&] { return savedTitle(0) == u"New Note"; }));
    EXPECT_EQ(user.readNotes()->size(), 4);
    ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    retype("mine");
    expectSaved(0, QStringLiteral("mine"));
    EXPECT_EQ(savedTitle(1), u"First");
}

TEST_P(EditingTest, previousButton_clicked_editsTheNoteShown)
{
    startProgram();
    quickOpen();
    mouse.click(overlay.previousButton());
    mouse.click(overlay.contentBackground());
    retype("third by button");
    expectSaved(2, QStringLiteral("third by button"));
    EXPECT_EQ(savedTitle(0), u"First");
}

TEST_P(EditingTest, kill_whileTyping_leavesWholeFileAndNothingElse)
{
    startProgram();
    quickOpen();
    retype("# Kept");
    ASSERT_TRUE(waitUntil([&] { return savedTitle(0) == u"Kept"; }));
    keyboard.type("abcdefgh");
    program->kill();
    ASSERT_TRUE(user.readNotes());
    EXPECT_TRUE(savedTitle(0).startsWith(u"Kept"));

    startProgram();
    const auto folder = std::filesystem::directory_iterator(user.storageFolder());
    for (const auto& entry : folder) {
        const auto name = entry.path().filename().string();
        EXPECT_TRUE(name == "notes.json" || name == "settings.json") << name;
    }
}

TEST_P(EditingTest, start_firstRun_showsWelcomeNoteAndWritesNothing)
{
    std::filesystem::remove_all(user.storageFolder());
    startProgram();
    const QImage welcome = overlay.steadyPicture();
    EXPECT_EQ(user.readNotes(), std::nullopt);
    EXPECT_EQ(user.readSettings(), std::nullopt);
    EXPECT_EQ(overlay.card(), (Area{430, 260, 420, 280}));
    EXPECT_FALSE(welcome.isNull());

    quickOpen();
    keyboard.type("x");
    EXPECT_TRUE(waitUntil([&] { return user.readNotes().has_value(); }));
    EXPECT_TRUE(savedContent(0).contains(u"Welcome to Sablequill"));
}

INSTANTIATE_FOR_ALL_SETUPS(EditingTest);

} // namespace
} // namespace sablequill
