// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <QtGlobal>

namespace sablequill {

TemporaryVariable::TemporaryVariable(const char* name, const char* value)
    : name(name)
    , kept(qgetenv(name))
    , wasSet(qEnvironmentVariableIsSet(name))
{
    qputenv(name, value);
}

TemporaryVariable::~TemporaryVariable()
{
    if (wasSet)
        qputenv(name, kept);
    else
        qunsetenv(name);
}

void moveToTheEnd(const char* variable)
{
    if (!qEnvironmentVariableIsSet(variable))
        return;
    const QByteArray value = qgetenv(variable);
    qunsetenv(variable);
    qputenv(variable, value);
}

} // namespace sablequill
