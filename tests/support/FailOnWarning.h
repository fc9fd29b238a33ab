// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdlib>
#include <gtest/gtest.h>

namespace sablequill {

/// A message handler: a warning is a defect, and fails the test in which it is printed.
inline void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    ADD_FAILURE() << "printed on stderr: " << message.toStdString();
    if (type == QtFatalMsg)
        std::abort();
}

/// Installs the handler for the rest of the process.
inline void failOnWarnings()
{
    qInstallMessageHandler(failOnWarning);
}

} // namespace sablequill
