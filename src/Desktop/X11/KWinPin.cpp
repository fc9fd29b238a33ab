// SPDX-License-Identifier: MIT
#include "KWinPin.h"

namespace sablequill {
namespace {

/// A compositor that fails so often is left alone until another one comes.
constexpr int mostFailures = 6;

} // namespace

KWinPin::KWinPin(const QDBusConnection& bus, const Times& times)
    : times(times)
    , bus(bus)
    , kwin(bus, QStringLiteral("org.kde.KWin"))
{
    retry.setSingleShot(true);
    connect(&retry, &QTimer::timeout, this, &KWinPin::begin);
    connect(&kwin, &BusName::ownerChanged, this, &KWinPin::ownerChanged);
}

void KWinPin::ownerChanged()
{
    failures = 0;
    retry.stop();
    job.reset();
    if (kwin.isOwned())
        begin();
}

void KWinPin::begin()
{
    job = std::make_unique<KWinJob>(bus, KWinJob::Task::pin, times.confirmation);
    connect(job.get(), &KWinJob::finished, this, &KWinPin::take);
    job->start();
}

void KWinPin::take(KWinJob::Result result)
{
    if (result == KWinJob::Result::failed && ++failures < mostFailures)
        retry.start(times.retry * (1 << (failures - 1)));
}

} // namespace sablequill
