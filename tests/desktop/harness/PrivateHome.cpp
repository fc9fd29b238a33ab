// SPDX-License-Identifier: MIT
#include "PrivateHome.h"

#include <QFile>
#include <QJsonDocument>

#include <cstdlib>
#include <stdexcept>

namespace sablequill {

namespace {

namespace fs = std::filesystem;

fs::path makeFolder(const fs::path& path)
{
    fs::create_directories(path);
    fs::permissions(path, fs::perms::owner_all);
    return path;
}

void writeDocument(const fs::path& path, const QJsonDocument& document)
{
    makeFolder(path.parent_path());
    QFile file(QString::fromStdString(path.string()));
    const auto bytes = document.toJson();
    if (!file.open(QFile::WriteOnly | QFile::Truncate) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.string());
}

std::optional<QJsonDocument> readDocument(const fs::path& path)
{
    QFile file(QString::fromStdString(path.string()));
    if (!file.open(QFile::ReadOnly))
        return std::nullopt;
    const auto document = QJsonDocument::fromJson(file.readAll());
    if (document.isNull())
        throw std::runtime_error(path.string() + " is not JSON");
    return document;
}

/// What the sanitizers' builds need is handed on; nothing else is.
void keepFromTestProcess(Environment& environment, const char* name)
{
    if (const char* value = std::getenv(name))
        environment[name] = value;
}

} // namespace

PrivateHome::PrivateHome()
{
    auto name = (fs::temp_directory_path() / "sablequill-test-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("cannot make a temporary folder");
    root = name;
    for (const char* folder : {"data", "config", "cache", "state", "run"})
        makeFolder(root / folder);
}

PrivateHome::~PrivateHome()
{
    // A process of the session that is just ending may still make a file in it.
    std::error_code ignored;
    waitUntil([&] { return fs::remove_all(root, ignored) != static_cast<std::uintmax_t>(-1); });
}

Environment PrivateHome::environment() const
{
    Environment environment{
        {"HOME", root.string()},
        {"XDG_DATA_HOME", (root / "data").string()},
        {"XDG_CONFIG_HOME", (root / "config").string()},
        {"XDG_CACHE_HOME", (root / "cache").string()},
        {"XDG_STATE_HOME", (root / "state").string()},
        {"XDG_RUNTIME_DIR", runtimeFolder().string()},
        {"LANG", "C.UTF-8"},
        {"PATH", "/usr/local/bin:/usr/bin:/bin:/usr/sbin"},
    };
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
        keepFromTestProcess(environment, name);
    return environment;
}

fs::path PrivateHome::storageFolder() const
{
    return root / "data" / "Sablequill";
}

void PrivateHome::writeNotes(const QJsonArray& notes) const
{
    writeDocument(storageFolder() / "notes.json", QJsonDocument(notes));
}

void PrivateHome::writeSettings(const QJsonObject& settings) const
{
    writeDocument(storageFolder() / "settings.json", QJsonDocument(settings));
}

std::optional<QJsonArray> PrivateHome::readNotes() const
{
    const auto document = readDocument(storageFolder() / "notes.json");
    if (document && !document->isArray())
        throw std::runtime_error("notes.json holds no array");
    return document ? std::optional(document->array()) : std::nullopt;
}

std::optional<QJsonObject> PrivateHome::readSettings() const
{
    const auto document = readDocument(storageFolder() / "settings.json");
    if (document && !document->isObject())
        throw std::runtime_error("settings.json holds no object");
    return document ? std::optional(document->object()) : std::nullopt;
}

QJsonObject noteRecord(int number, const QString& title, const QString& content)
{
    const auto id = QStringLiteral("0B6C2D5E-0000-4000-8000-%1").arg(number, 12, 10, QChar(u'0'));
    const auto time = QStringLiteral("2026-01-31T09:15:00Z");
    return {
        {QStringLiteral("id"), id},
        {QStringLiteral("title"), title},
        {QStringLiteral("content"), content},
        {QStringLiteral("createdAt"), time},
        {QStringLiteral("updatedAt"), time},
    };
}

QJsonObject defaultSettings()
{
    const auto binding = [](int keyCode) {
        return QJsonObject{{QStringLiteral("keyCode"), keyCode}, {QStringLiteral("modifiers"), 3}};
    };
    const QJsonObject shortcuts{
        {QStringLiteral("toggleOverlay"), binding(5)},
        {QStringLiteral("quickOpen"), binding(31)},
        {QStringLiteral("nextNote"), binding(125)},
        {QStringLiteral("previousNote"), binding(126)},
    };
    return {
        {QStringLiteral("opacity"), 0.92},
        {QStringLiteral("fontSize"), 16.0},
        {QStringLiteral("alwaysOnTop"), true},
        {QStringLiteral("launchAtStartup"), false},
        {QStringLiteral("mirkModeEnabled"), true},
        {QStringLiteral("hasCompletedOnboarding"), true},
        {QStringLiteral("shortcuts"), shortcuts},
    };
}

} // namespace sablequill
