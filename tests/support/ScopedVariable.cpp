// SPDX-License-Identifier: MIT
#include "ScopedVariable.h"

namespace sablequill {
namespace {

void set(const char* name, const std::optional<QByteArray>& value)
{
    if (value)
        qputenv(name, *value);
    else
        qunsetenv(name);
}

} // namespace

ScopedVariable::ScopedVariable(const char* name, const std::optional<QByteArray>& value)
    : name(name)
{
    if (qEnvironmentVariableIsSet(name))
        oldValue = qgetenv(name);
    set(name, value);
}

ScopedVariable::ScopedVariable(const char* name, const std::filesystem::path& value)
    : ScopedVariable(name, QByteArray::fromStdString(value.native()))
{
}

ScopedVariable::~ScopedVariable()
{
    set(name, oldValue);
}

} // namespace sablequill
