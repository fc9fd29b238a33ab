// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <filesystem>
#include <optional>

namespace sablequill {

/// Gives an environment variable a value for as long as this object lives.
class ScopedVariable {
public:
    /// Without a value, the variable is unset.
    explicit ScopedVariable(const char* name, const std::optional<QByteArray>& value = {});
    ScopedVariable(const char* name, const std::filesystem::path& value);
    ~ScopedVariable();

    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* const name;
    std::optional<QByteArray> oldValue;
};

} // namespace sablequill
