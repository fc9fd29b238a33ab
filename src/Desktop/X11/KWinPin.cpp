// SPDX-License-Identifier: MIT
#include "KWinPin.h"

namespace sablequill {
namespace {

/// As many times the first wait; a compositor that still fails then is left alone until another one
/// comes.
constexpr int longestRetry = 16;

} // namespace

KWinPin::KWinPin(const QDBusConnection& bus, const Times& times)
    : confirmationTime(times.confirmation)
    , bus(bus)
    , kwin(bus, QStringLiteral("org.kde.KWin"))
    , retry(times.retry, times.retry * longestRetry)
{
    connect(&retry, &Backoff::elapsed, this, &KWinPin::begin);
    connect(&kwin, &BusName::ownerChanged, this, &KWinPin::ownerChanged);
}

void KWinPin::ownerChanged()
{
    retry.reset();
    retry.stop();
    job.reset();
    if (kwin.isOwned())
        begin();
}

void KWinPin::begin()
{
    job = std::make_unique<KWinJob>(bus, KWinJob::Task::pin, confirmationTime);
    connect(job.get(), &KWinJob::finished, this, &KWinPin::take);
    job->start();
}

void KWinPin::take(KWinJob::Result result)
{
    if (result == KWinJob::Result::failed)
        retry.wait();
}

} // namespace sablequill
