// SPDX-License-Identifier: MIT
#include "KWinJob.h"

#include "Files.h"
#include "UserFolders.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryFile>
#include <QUuid>

#include <map>

namespace sablequill {
namespace {

constexpr qsizetype mostAttempts = 4;

/// A path for each job: a late call to an earlier one reaches nobody.
QString newObjectPath()
{
    static int count = 0;
    return QStringLiteral("/io/github/sablequill/KWinJob/%1").arg(++count);
}

QString newScriptName()
{
    return QStringLiteral("sablequill-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

std::optional<KWinJob::Result> resultOf(const QString& state)
{
    using Result = KWinJob::Result;
    static const std::map<QString, Result> results{
        {QStringLiteral("hidden"), Result::hidden},
        {QStringLiteral("shown"), Result::shown},
        {QStringLiteral("pinned"), Result::pinned},
        {QStringLiteral("waiting"), Result::waiting},
        {QStringLiteral("unsupported"), Result::unsupported},
    };
    const auto found = results.find(state);
    return found == results.end() ? std::nullopt : std::optional(found->second);
}

QString nameOf(KWinJob::Task task)
{
    switch (task) {
    case KWinJob::Task::hide:
        return QStringLiteral("hide");
    case KWinJob::Task::show:
        return QStringLiteral("show");
    case KWinJob::Task::pin:
        return QStringLiteral("pin");
    }
    return {};
}

} // namespace

KWinJob::KWinJob(const QDBusConnection& bus, Task task, std::chrono::milliseconds confirmationTime)
    : bus(bus)
    , kwin(bus)
    , task(task)
    , path(newObjectPath())
{
    this->bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    confirmation.setSingleShot(true);
    confirmation.setInterval(confirmationTime);
    connect(&confirmation, &QTimer::timeout, this, &KWinJob::attemptAgain);
}

KWinJob::~KWinJob()
{
    for (const QString& name : names)
        kwin.unload(name);
    bus.unregisterObject(path);
}

void KWinJob::start()
{
    const QString name = newScriptName();
    if (!writeScript(name)) {
        fail();
        return;
    }
    names.append(name);
    kwin.load(
        files.back()->fileName(), name, [this](std::optional<int> number) { loaded(number); });
}

void KWinJob::loaded(std::optional<int> number)
{
    if (!number) {
        fail();
        return;
    }
    kwin.run(*number, [this] { awaitReport(); });
}

void KWinJob::awaitReport()
{
    // The report may have come first.
    if (!files.empty())
        confirmation.start();
}

void KWinJob::attemptAgain()
{
    if (names.size() < mostAttempts)
        start();
    else
        fail();
}

void KWinJob::fail()
{
    for (const QString& name : std::exchange(names, {}))
        kwin.unload(name);
    files.clear();
    Q_EMIT finished(Result::failed);
}

void KWinJob::Report(const QString& name, const QString& state)
{
    const auto result = resultOf(state);
    if (!result || !names.contains(name))
        return;
    confirmation.stop();
    files.clear();
    names.removeOne(name);
    for (const QString& other : std::exchange(names, {}))
        kwin.unload(other);
    // The others leave by themselves.
    if (result == Result::hidden || result == Result::pinned
        || (result == Result::waiting && task != Task::show))
        names.append(name);
    Q_EMIT finished(*result);
}

bool KWinJob::writeScript(const QString& name)
{
    const auto folder = UserFolders::in("XDG_RUNTIME_DIR");
    QFile script(QStringLiteral(":/capture/KWinScript.js"));
    if (!folder || !script.open(QIODevice::ReadOnly))
        return false;
    Files::createPrivateFolder(*folder / "sablequill");
    const auto pattern = *folder / "sablequill" / "kwin-XXXXXX.js";
    // For this user alone, and gone with the object.
    auto file = std::make_unique<QTemporaryFile>(QFile::decodeName(pattern.c_str()));
    if (!file->open())
        return false;
    const QByteArray text = script.readAll() + '(' + optionsFor(name) + ");\n";
    if (file->write(text) != text.size() || !file->flush())
        return false;
    files.push_back(std::move(file));
    return true;
}

QByteArray KWinJob::optionsFor(const QString& name) const
{
    const QJsonObject options{
        {QStringLiteral("task"), nameOf(task)},
        {QStringLiteral("pid"), QCoreApplication::applicationPid()},
        {QStringLiteral("owner"), bus.baseService()},
        {QStringLiteral("path"), path},
        {QStringLiteral("interface"), QStringLiteral("io.github.sablequill.KWinJob")},
        {QStringLiteral("name"), name},
    };
    return QJsonDocument(options).toJson(QJsonDocument::Compact);
}

} // namespace sablequill
