// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

#include <sys/wait.h>

namespace sablequill {

namespace {

constexpr Point parkedPointer{1270, 790};

QJsonArray threeNotes()
{
    return {
        noteRecord(1, QStringLiteral("First"), QStringLiteral("# First\n\nOne short line.")),
        noteRecord(2, QStringLiteral("Zweiter — größer"),
            QStringLiteral("# Zweiter — größer\n\n- *Ein* Punkt\n- **Noch** einer ✓")),
        noteRecord(3, QStringLiteral("Third"), QStringLiteral("Third\n\nwithout a heading")),
    };
}

QJsonObject savedNote(const PrivateHome& user, int index)
{
    return user.readNotes().value_or(QJsonArray()).at(index).toObject();
}

} // namespace

const QColor OverlayTest::background(255, 255, 255);

void OverlayTest::SetUp()
{
    writeNotes();
    user.writeSettings(settingsWith(savedCard));
    mouse.moveTo(parkedPointer);
    probe.show();
    ASSERT_TRUE(waitUntil([this] { return colorAt(x, savedCard.center()) == background; }));
}

void OverlayTest::writeNotes()
{
    user.writeNotes(threeNotes());
}

void OverlayTest::startProgram()
{
    // The server takes the windows of a program away some time after it has ended.
    ASSERT_TRUE(waitUntil([this] { return !overlay.isShown(); }));
    program = std::make_unique<ProgramUnderTest>(command(), environment(), user);
    ASSERT_TRUE(waitUntil([this] { return overlay.isShown() || !program->isRunning(); }));
    ASSERT_TRUE(program->isRunning());
    const Point inside = overlay.contentBackground();
    EXPECT_TRUE(waitUntil([&] { return colorAt(x, inside) != probe.color(); })) << "shows nothing";
}

void OverlayTest::endProgram()
{
    const auto status = program->terminate();
    ASSERT_TRUE(status) << "does not end";
    EXPECT_TRUE(WIFEXITED(*status)) << "ended by signal " << WTERMSIG(*status);
    EXPECT_EQ(WEXITSTATUS(*status), 0);
    program.reset();
}

void OverlayTest::pressHotKey(xcb_keycode_t code)
{
    keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, code);
}

void OverlayTest::quickOpen()
{
    pressQuickOpen();
    ASSERT_TRUE(waitUntil([this] { return overlay.hasKeyboard(); }));
}

void OverlayTest::retype(std::string_view text)
{
    keyboard.chord({KeyCode::leftControl}, KeyCode::a);
    keyboard.type(text);
}

QString OverlayTest::savedContent(int index) const
{
    return savedNote(user, index)[u"content"].toString();
}

QString OverlayTest::savedTitle(int index) const
{
    return savedNote(user, index)[u"title"].toString();
}

void OverlayTest::expectSaved(int index, const QString& content) const
{
    EXPECT_TRUE(waitUntil([&] { return savedContent(index) == content; }))
        << "note " << index << " is: " << savedContent(index).toStdString();
}

std::optional<Area> OverlayTest::savedFrame() const
{
    const auto frame = user.readSettings().value_or(QJsonObject())[u"overlayFrame"].toObject();
    if (frame.isEmpty())
        return std::nullopt;
    const auto number = [&](QStringView name) { return frame[name].toInt(-1); };
    const int top = x.screenArea().height - number(u"y") - number(u"height");
    return Area{number(u"x"), top, number(u"width"), number(u"height")};
}

QJsonObject OverlayTest::settingsWith(Area card) const
{
    auto settings = defaultSettings();
    settings[u"overlayFrame"] = QJsonObject{
        {QStringLiteral("x"), card.x},
        {QStringLiteral("y"), x.screenArea().height - card.bottom()},
        {QStringLiteral("width"), card.width},
        {QStringLiteral("height"), card.height},
    };
    return settings;
}

std::string setupName(const testing::TestParamInfo<WindowManagerSetup>& info)
{
    return traits(info.param).name;
}

} // namespace sablequill
