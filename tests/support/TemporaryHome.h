// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <filesystem>
#include <string>
#include <vector>

namespace sablequill {

/// A home folder of the test's own, for as long as this object lives: HOME points to it and
/// XDG_DATA_HOME is unset.
class TemporaryHome {
public:
    TemporaryHome();
    ~TemporaryHome();

    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

    std::filesystem::path path() const;
    /// Where the program keeps its files; does not exist at first.
    std::filesystem::path folder() const { return path() / ".local/share/Sablequill"; }

    std::filesystem::path notes() const { return folder() / "notes.json"; }
    std::filesystem::path settings() const { return folder() / "settings.json"; }

private:
    QTemporaryDir directory;
    QByteArray oldHome;
    QByteArray oldDataHome;
};

/// The bytes of a file; fails the test when there is none.
QByteArray bytesOf(const std::filesystem::path& file);
/// Makes the file and the folders it is in.
void writeFile(const std::filesystem::path& file, const QByteArray& bytes);
/// The names of what is in a folder, sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);
/// The permission bits, as 0600.
unsigned modeOf(const std::filesystem::path& path);

} // namespace sablequill
