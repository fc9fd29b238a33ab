// SPDX-License-Identifier: MIT
#include "TemporaryHome.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

void restore(const char* variable, const QByteArray& value)
{
    if (value.isNull())
        qunsetenv(variable);
    else
        qputenv(variable, value);
}

QByteArray value(const char* variable)
{
    return qEnvironmentVariableIsSet(variable) ? qgetenv(variable) : QByteArray();
}

} // namespace

TemporaryHome::TemporaryHome()
    : oldHome(value("HOME"))
    , oldDataHome(value("XDG_DATA_HOME"))
{
    qputenv("HOME", path().c_str());
    qunsetenv("XDG_DATA_HOME");
}

TemporaryHome::~TemporaryHome()
{
    restore("HOME", oldHome);
    restore("XDG_DATA_HOME", oldDataHome);
}

fs::path TemporaryHome::path() const
{
    return QFile::encodeName(directory.path()).toStdString();
}

QByteArray bytesOf(const fs::path& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll();
}

void writeFile(const fs::path& path, const QByteArray& bytes)
{
    fs::create_directories(path.parent_path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path;
    EXPECT_EQ(file.write(bytes), bytes.size()) << path;
}

std::vector<std::string> namesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

unsigned modeOf(const fs::path& path)
{
    return static_cast<unsigned>(fs::symlink_status(path).permissions() & fs::perms::mask);
}

} // namespace sablequill
