// SPDX-License-Identifier: MIT
#include "WindowsTest.h"

#include <QJsonDocument>

#include <algorithm>

namespace sablequill {
namespace {

std::string printed(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

} // namespace

void WindowsTest::SetUp()
{
    OverlayTest::SetUp();
    user.writeSettings(settingsWith(cardInCorner));
}

std::vector<std::string> WindowsTest::command() const
{
    return AccessibilityBus::reachable(OverlayTest::command());
}

std::vector<SeenObject> WindowsTest::shown() const
{
    std::vector<SeenObject> all;
    for (const auto& window : accessibility.windowsOf(program->pid())) {
        const auto objects = seenIn(window);
        all.insert(all.end(), objects.begin(), objects.end());
    }
    return all;
}

std::optional<AccessibleObject> WindowsTest::named(const QString& name, const QString& role) const
{
    const auto all = shown();
    const auto found = std::find_if(all.begin(), all.end(),
        [&](const SeenObject& seen) { return seen.name == name && seen.role == role; });
    return found == all.end() ? std::nullopt : std::optional(found->object);
}

void WindowsTest::expectShown(const QString& name, const QString& role) const
{
    EXPECT_TRUE(waitUntil([&] { return isShown(name, role); }))
        << "no " << role.toStdString() << " '" << name.toStdString() << '\'';
}

void WindowsTest::expectGone(const QString& name, const QString& role) const
{
    EXPECT_TRUE(waitUntil([&] { return !isShown(name, role); }))
        << "still a " << role.toStdString() << " '" << name.toStdString() << '\'';
}

void WindowsTest::press(const QString& name, const QString& role) const
{
    std::optional<AccessibleObject> control;
    ASSERT_TRUE(waitUntil([&] { return (control = named(name, role)).has_value(); }))
        << "no " << role.toStdString() << " '" << name.toStdString() << '\'';
    EXPECT_TRUE(control->press()) << *control << " cannot be pressed";
}

std::optional<AccessibleObject> WindowsTest::noteRow(int index) const
{
    const auto list = named(QStringLiteral("Notes"), Role::list);
    return list ? list->childAt(index) : std::nullopt;
}

QJsonValue WindowsTest::setting(const QString& name) const
{
    return user.readSettings().value_or(QJsonObject())[name];
}

void WindowsTest::expectSetting(const QString& name, const QJsonValue& value) const
{
    EXPECT_TRUE(waitUntil([&] { return setting(name) == value; }))
        << name.toStdString() << " is " << printed(setting(name)) << ", not " << printed(value);
}

qsizetype WindowsTest::savedNotes() const
{
    return user.readNotes().value_or(QJsonArray()).size();
}

} // namespace sablequill
