// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace sablequill {

/// A variable of the environment that has another value for as long as this object lives: programs
/// started from here later find it as it was. Made and destroyed while no other thread uses any.
class TemporaryVariable {
public:
    /// `name` outlives this object.
    TemporaryVariable(const char* name, const char* value);
    ~TemporaryVariable();

    TemporaryVariable(const TemporaryVariable&) = delete;
    TemporaryVariable& operator=(const TemporaryVariable&) = delete;

private:
    const char* name;
    const QByteArray kept;
    const bool wasSet;
};

/// Variables behind one that is removed move up, and whoever reads in that moment may miss one. So
/// what is to be removed while another thread reads is to be the last one. Does nothing where
/// there is no such variable.
void moveToTheEnd(const char* variable);

} // namespace sablequill
