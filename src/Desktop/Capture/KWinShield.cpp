// SPDX-License-Identifier: MIT
#include "KWinShield.h"

#include <utility>

namespace sablequill {
namespace {

/// As many times the first wait; a compositor that still fails then is left alone until something
/// changes.
constexpr int longestRetry = 16;
} // namespace

KWinShield::KWinShield(const QDBusConnection& bus, const Times& times)
    : times(times)
    , bus(bus)
    , kwin(bus, QStringLiteral("org.kde.KWin"))
    , retry(times.retry, times.retry * longestRetry)
{
    patience.setSingleShot(true);
    patience.setInterval(times.patience);
    connect(&patience, &QTimer::timeout, this, [this] { settle(MirkEffect::none); });
    connect(&retry, &Backoff::elapsed, this, &KWinShield::begin);
    connect(&kwin, &BusName::ownerChanged, this, &KWinShield::ownerChanged);
}

void KWinShield::setWanted(bool isWanted)
{
    if (wanted == isWanted)
        return;
    wanted = isWanted;
    retry.reset();
    if (kwin.isOwned()) {
        begin();
    } else if (isWanted) {
        startWaiting();
        patience.start();
    } else {
        stopWaiting();
    }
}

bool KWinShield::mustWait(WId) const
{
    return isWaiting;
}

void KWinShield::ownerChanged()
{
    isUnsupported = false;
    retry.reset();
    job.reset();
    begin();
}

void KWinShield::begin()
{
    retry.stop();
    patience.stop();
    if (!kwin.isOwned()) {
        settle(MirkEffect::none);
        return;
    }
    if (!wanted || isUnsupported)
        return;
    // What failed before is not worth a second wait.
    if (!*wanted)
        stopWaiting();
    else if (retry.isFresh())
        startWaiting();
    // The one before goes first.
    job.reset();
    job = std::make_unique<KWinJob>(
        bus, *wanted ? KWinJob::Task::hide : KWinJob::Task::show, times.confirmation);
    connect(job.get(), &KWinJob::finished, this, &KWinShield::take);
    job->start();
}

void KWinShield::take(KWinJob::Result result)
{
    using Result = KWinJob::Result;
    switch (result) {
    case Result::hidden:
    case Result::shown:
        retry.reset();
        settle(MirkEffect::hidden);
        return;
    case Result::pinned:
        return;
    case Result::waiting:
        settle(MirkEffect::unknown);
        return;
    case Result::unsupported:
        isUnsupported = true;
        settle(MirkEffect::none);
        return;
    case Result::failed:
        retry.wait();
        settle(MirkEffect::none);
        return;
    }
}

void KWinShield::settle(MirkEffect next)
{
    setEffect(next);
    stopWaiting();
}

void KWinShield::startWaiting()
{
    if (!std::exchange(isWaiting, true))
        Q_EMIT waitingChanged();
}

void KWinShield::stopWaiting()
{
    patience.stop();
    if (std::exchange(isWaiting, false))
        Q_EMIT waitingChanged();
}

} // namespace sablequill
