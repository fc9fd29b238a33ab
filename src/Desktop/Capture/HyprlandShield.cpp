// SPDX-License-Identifier: MIT
#include "HyprlandShield.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

/// From here on the compositor is left alone until a window is shown.
constexpr std::chrono::seconds longestRetry{30};

QSet<WId> shownWindows()
{
    QSet<WId> shown;
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->isVisible() && window->handle())
            shown.insert(window->winId());
    return shown;
}

} // namespace

HyprlandShield::HyprlandShield(const QString& socketPath, const Times& times)
    : times(times)
    , socket(socketPath)
    , retry(times.retry, longestRetry)
{
    connect(&retry, &Backoff::elapsed, this, &HyprlandShield::sweep);
    qGuiApp->installEventFilter(this);
}

HyprlandShield::~HyprlandShield() = default;

void HyprlandShield::setWanted(bool isWanted)
{
    if (wanted == isWanted)
        return;
    wanted = isWanted;
    isRefused = false;
    hidden.clear();
    givenUp.clear();
    known.clear();
    arriving = shownWindows();
    // Its requests may have done their work already: the windows stay among those that may be
    // hidden.
    running.reset();
    if (isSettled())
        settle(effect);
    else
        begin();
    Q_EMIT waitingChanged();
}

bool HyprlandShield::mustWait(WId window) const
{
    return wanted && !isRefused && !hidden.contains(window) && !givenUp.contains(window);
}

bool HyprlandShield::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = qobject_cast<QWindow*>(watched);
    if (!window || !window->handle() || !window->isTopLevel())
        return CaptureShield::eventFilter(watched, event);
    if (event->type() == QEvent::Show)
        windowShown(window->winId());
    else if (event->type() == QEvent::Hide)
        windowHidden();
    else if (event->type() == QEvent::PlatformSurface
        && static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType()
            == QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed)
        forget(window->winId());
    return CaptureShield::eventFilter(watched, event);
}

void HyprlandShield::windowShown(WId window)
{
    if (wanted ? isRefused : !touched.contains(window))
        return;
    arriving.insert(window);
    begin();
}

void HyprlandShield::windowHidden()
{
    // Its name may soon be another window's, and is not to be known until then.
    if (wanted && !isRefused)
        begin();
}

void HyprlandShield::forget(WId window)
{
    // The number may come again for another window.
    for (QSet<WId>* windows : {&hidden, &touched, &givenUp})
        windows->remove(window);
}

bool HyprlandShield::isSettled() const
{
    const QSet<WId> shown = shownWindows();
    return std::all_of(shown.begin(), shown.end(), [this](WId window) {
        return wanted ? hidden.contains(window) : !touched.contains(window);
    });
}

void HyprlandShield::begin()
{
    retry.reset();
    if (wanted && !isSettled() && !std::exchange(isWaiting, true)) {
        last = HyprlandSweep::Outcome::missing;
        waited = {};
    }
    // In the next turn: a window that is being shown is not yet on the screen.
    if (!running)
        retry.runSoon();
}

void HyprlandShield::sweep()
{
    const QSet<WId> shown = shownWindows();
    if (isRefused || (shown.isEmpty() && known.isEmpty()) || (!wanted && isSettled()))
        return;
    if (wanted)
        touched.unite(shown);
    running = std::make_unique<HyprlandSweep>(socket, wanted, form);
    connect(running.get(), &HyprlandSweep::finished, this, &HyprlandShield::take);
    running->start();
}

void HyprlandShield::take(HyprlandSweep::Outcome outcome)
{
    using Outcome = HyprlandSweep::Outcome;
    last = outcome;
    form = running->form();
    const std::vector<QByteArray> windows = running->doneWindows();
    const std::vector<QByteArray> all = running->listedWindows();
    const QSet listed(all.begin(), all.end());
    // It is still speaking.
    running.release()->deleteLater();
    isUnderstood |= wanted && !windows.empty();
    if (outcome == Outcome::refused && wanted && !isUnderstood) {
        isRefused = true;
        settle(MirkEffect::none);
        return;
    }
    if (outcome != Outcome::silent)
        known.intersect(listed);
    const bool isComplete =
        !windows.empty() && (wanted ? takeHidden(windows) : takeUncovered(windows));
    if (isComplete) {
        known = listed;
        settle(MirkEffect::blackBox);
    }
    // A window that is listed may be one that is just going, in the place of one that is yet to
    // come.
    if (!isComplete || (wanted && retry.time() <= times.check))
        retryLater();
}

bool HyprlandShield::takeHidden(const std::vector<QByteArray>& windows)
{
    const QSet done(windows.begin(), windows.end());
    if (QSet(done).subtract(known).size() < arriving.size())
        return false;
    hidden.unite(shownWindows());
    arriving.clear();
    return true;
}

bool HyprlandShield::takeUncovered(const std::vector<QByteArray>& windows)
{
    const QSet<WId> shown = shownWindows();
    if (static_cast<qsizetype>(windows.size()) < shown.size())
        return false;
    touched.subtract(shown);
    return true;
}

void HyprlandShield::settle(MirkEffect next)
{
    isWaiting = false;
    retry.stop();
    setEffect(next);
    Q_EMIT waitingChanged();
}

void HyprlandShield::retryLater()
{
    if (isWaiting && waited + retry.time() > times.patience)
        losePatience();
    waited += retry.time();
    retry.wait();
}

void HyprlandShield::losePatience()
{
    isWaiting = false;
    const QSet<WId> shown = shownWindows();
    givenUp.unite(shown);
    // What went before the compositor had it never comes.
    arriving.intersect(shown);
    // Of all windows that the compositor lists it has said that they are hidden.
    const bool isLikely = last == HyprlandSweep::Outcome::done;
    setEffect(isLikely ? MirkEffect::blackBox : MirkEffect::none);
    Q_EMIT waitingChanged();
}

} // namespace sablequill
