// SPDX-License-Identifier: MIT
#include "KWinShield.h"

#include <utility>

namespace sablequill {
namespace {

/// A compositor that fails so often is left alone until something changes.
constexpr int mostFailures = 6;

} // namespace

KWinShield::KWinShield(const QDBusConnection& bus, const Times& times)
    : times(times)
    , bus(bus)
    , kwin(bus, QStringLiteral("org.kde.KWin"))
{
    patience.setSingleShot(true);
    patience.setInterval(times.patience);
    connect(&patience, &QTimer::timeout, this, [this] { settle(MirkEffect::none); });
    retry.setSingleShot(true);
    connect(&retry, &QTimer::timeout, this, &KWinShield::begin);
    connect(&kwin, &BusName::ownerChanged, this, &KWinShield::ownerChanged);
}

void KWinShield::setWanted(bool isWanted)
{
    if (wanted == isWanted)
        return;
    wanted = isWanted;
    failures = 0;
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
    failures = 0;
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
    else if (failures == 0)
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
        failures = 0;
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
        if (++failures < mostFailures)
            retry.start(times.retry * (1 << (failures - 1)));
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
