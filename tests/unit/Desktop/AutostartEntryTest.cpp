// SPDX-License-Identifier: MIT
#include "AutostartEntry.h"

#include "FileDescriptor.h"
#include "TemporaryHome.h"

#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QString>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

QMap<QByteArray, QByteArray> valuesOf(const QByteArray& entry)
{
    QMap<QByteArray, QByteArray> values;
    for (const QByteArray& line : entry.split('\n')) {
        if (const auto equals = line.indexOf('='); equals > 0)
            values.insert(line.first(equals), line.mid(equals + 1));
    }
    return values;
}

/// Names that a program or its folder may have, each with what a line after "Exec=" makes of
/// "/opt/" and the name.
struct Row {
    const char* name;
    const char* command;
    const char* tryExec;
};

const std::vector<Row> rows = {
    {"sablequill", "/opt/sablequill", "/opt/sablequill"},
    {"bin/sablequill-0.1_x@y:z,+", "/opt/bin/sablequill-0.1_x@y:z,+",
        "/opt/bin/sablequill-0.1_x@y:z,+"},
    {"my programs", R"("/opt/my programs")", "/opt/my programs"},
    {"it's", R"("/opt/it's")", "/opt/it's"},
    {R"(12" disk)", R"("/opt/12\\" disk")", R"(/opt/12" disk)"},
    {"100%", R"(sh -c "exec \\"\\$0\\"" /opt/100%%)", "/opt/100%"},
    {"%f %U", R"(sh -c "exec \\"\\$0\\"" "/opt/%%f %%U")", "/opt/%f %U"},
    {"$HOME", R"("/opt/\\$HOME")", "/opt/$HOME"},
    {"`id`", R"("/opt/\\`id\\`")", "/opt/`id`"},
    {R"(a\b)", R"("/opt/a\\\\b")", R"(/opt/a\\b)"},
    {R"(a\sb\n)", R"("/opt/a\\\\sb\\\\n")", R"(/opt/a\\sb\\n)"},
    {"a;b&c|d<e>f", R"("/opt/a;b&c|d<e>f")", "/opt/a;b&c|d<e>f"},
    {"(x)*?#~", R"("/opt/(x)*?#~")", "/opt/(x)*?#~"},
    {"[y]{z}!^", "/opt/[y]{z}!^", "/opt/[y]{z}!^"},
    {"Größe 提詞機 🎤", R"("/opt/Größe 提詞機 🎤")", "/opt/Größe 提詞機 🎤"},
    {"größe", "/opt/größe", "/opt/größe"},
    {"a=b", R"(sh -c "exec \\"\\$0\\"" /opt/a=b)", "/opt/a=b"},
    {R"(a=b $c"d\e%f 'g)", R"(sh -c "exec \\"\\$0\\"" "/opt/a=b \\$c\\"d\\\\e%%f 'g")",
        R"(/opt/a=b $c"d\\e%f 'g)"},
};

TEST(AutostartEntryTest, entry_whatADesktopAsksFor)
{
    EXPECT_EQ(autostartEntry("/usr/bin/sablequill"),
        QByteArray("[Desktop Entry]\n"
                   "Type=Application\n"
                   "Name=Sablequill\n"
                   "Comment=Keep your notes floating above calls, recordings and slides\n"
                   "Exec=/usr/bin/sablequill\n"
                   "TryExec=/usr/bin/sablequill\n"
                   "Icon=io.github.sablequill.Sablequill\n"
                   "Terminal=false\n"
                   "StartupNotify=false\n"
                   "X-GNOME-Autostart-enabled=true\n"));
}

TEST(AutostartEntryTest, exec_specialCharacters_quotedAndEscaped)
{
    for (const Row& row : rows) {
        const auto values = valuesOf(autostartEntry(std::string("/opt/") + row.name));
        EXPECT_EQ(values["Exec"], row.command) << row.name;
        EXPECT_EQ(values["TryExec"], row.tryExec) << row.name;
    }
}

TEST(AutostartEntryTest, exec_pathThatNoEntryCanHold_commandOnThePath)
{
    const std::vector<std::string> programs = {"", "sablequill", "./sablequill", "/opt/a\nb",
        "/opt/a\nHidden=true", "/opt/a\tb", "/opt/a\rb", "/opt/\x7F", "/opt/\x1B[31m",
        "/opt/gr\xF6\xDF"
        "e",
        "/opt/\xC3", "/opt/\xED\xA0\x80"};
    for (const std::string& program : programs) {
        const QByteArray entry = autostartEntry(program);
        EXPECT_EQ(valuesOf(entry)["Exec"], "sablequill") << program;
        EXPECT_EQ(valuesOf(entry)["TryExec"], "sablequill") << program;
        EXPECT_EQ(entry.count('\n'), 10) << program;
    }
}

class AutostartEntryToolTest : public testing::Test {
protected:
    /// What the command prints, errors included; "cannot be run" when it fails.
    static QByteArray outputOf(const QString& command, const QStringList& arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(command, arguments);
        if (!process.waitForFinished())
            return "cannot be run";
        const QByteArray output = process.readAll();
        return process.exitCode() == 0 ? output : output + " failed";
    }

    static bool isInstalled(const QString& command)
    {
        return !QStandardPaths::findExecutable(command).isEmpty();
    }

    QString write(const fs::path& program) const
    {
        writeFile(file, autostartEntry(program));
        return QString::fromStdString(file.native());
    }

    const TemporaryHome home;
    const fs::path file = home.path() / "entry.desktop";
};

TEST_F(AutostartEntryToolTest, entry_validatorFindsNothing)
{
    const QString validator = QStringLiteral("desktop-file-validate");
    if (!isInstalled(validator))
        GTEST_SKIP() << "no desktop-file-validate";
    for (const Row& row : rows) {
        const QString entry = write(std::string("/opt/") + row.name);
        EXPECT_EQ(outputOf(validator, {entry}).toStdString(), "") << row.name;
    }
    EXPECT_EQ(outputOf(validator, {write("a\xFF\n")}).toStdString(), "");
}

/// Programs that tell by what name they were started, each through the same pipe.
class AutostartLaunchTest : public AutostartEntryToolTest {
protected:
    AutostartLaunchTest() { EXPECT_EQ(::mkfifo(pipe.c_str(), 0600), 0); }

    void makeProgram(const fs::path& program) const
    {
        writeFile(program, "#!/bin/sh\nprintf %s \"$0\" >\"$HOME/pipe\"\n");
        fs::permissions(program, fs::perms::owner_all);
    }

    std::string started() const
    {
        const FileDescriptor reading(::open(pipe.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
        pollfd waiting = {reading.get(), POLLIN, 0};
        std::string name(4096, '\0');
        if (::poll(&waiting, 1, 10'000) != 1)
            return "nothing was started";
        const auto size = ::read(reading.get(), name.data(), name.size());
        return name.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }

    const fs::path pipe = home.path() / "pipe";
};

TEST_F(AutostartLaunchTest, exec_aDesktopsOwnReader_startsTheProgram)
{
    const QString launcher = QStringLiteral("gio");
    if (!isInstalled(launcher))
        GTEST_SKIP() << "no gio";
    for (const Row& row : rows) {
        const fs::path program = home.path() / row.name;
        makeProgram(program);
        EXPECT_EQ(outputOf(launcher, {QStringLiteral("launch"), write(program)}).toStdString(), "")
            << row.name;
        EXPECT_EQ(started(), program.native());
        fs::remove(program);
    }
}

} // namespace
} // namespace sablequill
