// SPDX-License-Identifier: MIT
#include "FaultyProgramTest.h"

#include <QFile>

#include <sys/wait.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace sablequill {

void FaultyProgramTest::startEditing(std::string_view text)
{
    startProgram();
    quickOpen();
    retype(text);
    typed = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    expectSaved(0, typed);
}

void FaultyProgramTest::typeUnsaved(std::string_view keys)
{
    for (const char key : keys) {
        overlay.steadyPicture();
        const QImage before = captureScreen(x, overlay.header());
        keyboard.type({&key, 1});
        typed += QLatin1Char(key);
        EXPECT_TRUE(waitUntil([&] { return captureScreen(x, overlay.header()) != before; }))
            << "the header does not show " << key;
    }
}

void FaultyProgramTest::typeSaved(std::string_view keys)
{
    keyboard.type(keys);
    typed += QLatin1String(keys.data(), static_cast<qsizetype>(keys.size()));
    expectSaved(0, typed);
}

void FaultyProgramTest::expectOtherNotesKept() const
{
    EXPECT_EQ(user.readNotes().value_or(QJsonArray()).size(), 3);
    EXPECT_EQ(savedTitle(1), QStringLiteral("Zweiter — größer"));
    EXPECT_EQ(savedContent(2), QStringLiteral("Third\n\nwithout a heading"));
}

void FaultyProgramTest::expectGoesOn()
{
    pressToggle();
    EXPECT_TRUE(waitUntil([this] { return !overlay.isShown(); })) << "does not hide";
    pressToggle();
    EXPECT_TRUE(waitUntil([this] { return overlay.isShown(); })) << "does not show";
    EXPECT_TRUE(program->isRunning());
}

void FaultyProgramTest::killDisplay()
{
    session.killDisplay();
    program->mayPrintLinesWith("X11 connection broke");
    const auto status = program->waitForEnd();
    EXPECT_TRUE(status && WIFEXITED(*status));
}

QByteArray FaultyProgramTest::notesBytes() const
{
    return fileBytes(notesFile());
}

std::vector<std::string> FaultyProgramTest::names() const
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(user.storageFolder()))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

const std::vector<std::string>& bothFiles()
{
    static const std::vector<std::string> names{"notes.json", "settings.json"};
    return names;
}

QByteArray fileBytes(const fs::path& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const fs::path& path, const QByteArray& bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size()) << path;
}

} // namespace sablequill
