// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"

#include <QJsonArray>
#include <QJsonObject>

#include <filesystem>
#include <optional>

namespace sablequill {

/// A temporary home with the XDG folders of one user, removed at the end.
class PrivateHome {
public:
    /// Throws std::runtime_error when no folder can be made.
    PrivateHome();
    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;
    ~PrivateHome();

    /// HOME and the XDG folders (the run-time one with mode 0700), PATH and a UTF-8 locale.
    Environment environment() const;
    std::filesystem::path path() const { return root; }
    std::filesystem::path runtimeFolder() const { return root / "run"; }
    /// Where the program keeps its two files.
    std::filesystem::path storageFolder() const;

    void writeNotes(const QJsonArray& notes) const;
    void writeSettings(const QJsonObject& settings) const;
    /// Nothing while the file is absent; throws std::runtime_error when it is not JSON of that
    /// kind.
    std::optional<QJsonArray> readNotes() const;
    std::optional<QJsonObject> readSettings() const;

private:
    std::filesystem::path root;
};

/// A note record as notes.json holds it. The id's last group is the number given.
QJsonObject noteRecord(int number, const QString& title, const QString& content);

/// All required members of settings.json at their defaults, the guide finished, Mirk mode on.
QJsonObject defaultSettings();

} // namespace sablequill
