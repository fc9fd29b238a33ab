// SPDX-License-Identifier: MIT
#include "FailOnWarning.h"

#include <QApplication>
#include <QTemporaryDir>

#include <memory>

namespace {

/// The application of a test program with widgets. It is made when the first test runs, not when
/// the tests are listed, which happens without a platform to show them on.
class WidgetApplication : public testing::Environment {
public:
    WidgetApplication(int& argc, char** argv)
        : argc(argc)
        , argv(argv)
    {
    }

    void SetUp() override
    {
        for (const char* folder : {"HOME", "XDG_RUNTIME_DIR"})
            qputenv(folder, home.path().toLocal8Bit());
        for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            qunsetenv(folder);
        application = std::make_unique<QApplication>(argc, argv);
    }

    void TearDown() override { application.reset(); }

private:
    int& argc;
    char** argv;
    QTemporaryDir home;
    std::unique_ptr<QApplication> application;
};

/// The screen in memory cannot do what only a window manager or a display server does, and says so.
void failOnOwnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QStringLiteral("This plugin does not support ")))
        sablequill::failOnWarning(type, context, message);
}

} // namespace

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(failOnOwnWarning);
    testing::AddGlobalTestEnvironment(new WidgetApplication(argc, argv));
    return RUN_ALL_TESTS();
}
