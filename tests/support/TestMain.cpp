// SPDX-License-Identifier: MIT
#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

/// A warning is a defect: it fails the test in which it is printed.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    ADD_FAILURE() << "printed on stderr: " << message.toStdString();
    if (type == QtFatalMsg)
        std::abort();
}

} // namespace

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(failOnWarning);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
