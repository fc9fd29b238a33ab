// SPDX-License-Identifier: MIT
#include "FakePanel.h"

#include "Printing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sablequill {

namespace {

const char* name(TimingFunction timing)
{
    return timing == TimingFunction::linear ? "linear" : "easeInEaseOut";
}

double progress(double elapsed, TimingFunction timing)
{
    return timing == TimingFunction::linear ? elapsed : elapsed * elapsed * (3 - 2 * elapsed);
}

} // namespace

FakePanel::FakePanel(Journal& journal, FakeClock& clock, const PanelDescription& description)
    : description(description)
    , journal(journal)
    , clock(clock)
    , currentFrame(description.contentRect)
{
}

FakePanel::~FakePanel()
{
    if (groupEnd)
        clock.cancel(*groupEnd);
}

void FakePanel::setAttributes(const PanelAttributes& attributes)
{
    journal.record("panel.setAttributes");
    this->attributes = attributes;
}

void FakePanel::setMovableByWindowBackground(bool isMovable)
{
    journal.record("panel.setMovableByWindowBackground", isMovable);
    attributes.isMovableByWindowBackground = isMovable;
}

void FakePanel::setContent(std::unique_ptr<PanelContent> content)
{
    journal.record("panel.setContent", content ? "content" : "none");
    this->content = std::move(content);
}

void FakePanel::setDelegate(PanelDelegate* delegate)
{
    journal.record("panel.setDelegate", delegate ? "delegate" : "none");
    this->delegate = delegate;
}

void FakePanel::setDidEndLiveResize(std::function<void(Panel* window)> observer)
{
    journal.record("panel.setDidEndLiveResize", observer ? "observer" : "none");
    didEndLiveResize = std::move(observer);
}

void FakePanel::setDidLoseAttention(std::function<void()> observer)
{
    journal.record("panel.setDidLoseAttention", observer ? "observer" : "none");
    didLoseAttention = std::move(observer);
}

void FakePanel::setFrame(const Rect& frame)
{
    move(frame.x, frame.y);
    resize(frame.width, frame.height);
}

void FakePanel::setLevel(WindowLevel level)
{
    journal.record("panel.setLevel", static_cast<int>(level));
    this->level = level;
}

void FakePanel::setCollectionBehavior(unsigned behavior)
{
    journal.record("panel.setCollectionBehavior", behavior);
    collectionBehavior = behavior;
}

void FakePanel::setSharingType(SharingType type)
{
    journal.record("panel.setSharingType", static_cast<int>(type));
    sharingType = type;
}

void FakePanel::setAlpha(double alpha)
{
    journal.record("panel.setAlpha", alpha);
    fade.reset();
    settledAlpha = alpha;
}

void FakePanel::animateAlpha(double alpha, AlphaAnimation animation)
{
    journal.record("panel.animateAlpha", alpha, animation.duration, name(animation.timing));
    if (groupEnd)
        completeAnimation();
    fade = Fade{this->alpha(), alpha, clock.now(), FakeClock::fromSeconds(animation.duration),
        animation.timing};
    completion = std::move(animation.completion);
    groupEnd = clock.schedule(animation.duration, [this] { completeAnimation(); });
}

void FakePanel::completeAnimation()
{
    settledAlpha = alpha();
    fade.reset();
    clock.cancel(*std::exchange(groupEnd, std::nullopt));
    if (const auto run = std::exchange(completion, nullptr))
        run();
}

double FakePanel::alpha() const
{
    return fade ? alphaOf(*fade) : settledAlpha;
}

double FakePanel::alphaOf(const Fade& fade) const
{
    const std::chrono::duration<double> elapsed = clock.now() - fade.start;
    const double part = fade.duration.count() == 0 ? 1 : std::min(1.0, elapsed / fade.duration);
    return std::lerp(fade.from, fade.to, progress(part, fade.timing));
}

void FakePanel::orderFrontRegardless()
{
    journal.record("panel.orderFrontRegardless");
    visible = true;
}

void FakePanel::orderOut()
{
    journal.record("panel.orderOut");
    visible = false;
    isKey = false;
}

void FakePanel::makeKey()
{
    journal.record("panel.makeKey");
    isKey = visible && description.canBecomeKey;
}

void FakePanel::move(double x, double y)
{
    currentFrame.x = x;
    currentFrame.y = y;
    if (delegate)
        delegate->windowDidMove(this);
}

void FakePanel::resize(double width, double height)
{
    currentFrame.width = width;
    currentFrame.height = height;
    if (delegate)
        delegate->windowDidResize(this);
}

void FakePanel::notifyDidEndLiveResize(Panel* window)
{
    if (const auto observer = didEndLiveResize)
        observer(window);
}

std::unique_ptr<Panel> FakePanelFactory::makePanel(const PanelDescription& description)
{
    journal.record("panels.makePanel", description.contentRect, description.styleMask,
        static_cast<int>(description.backing), description.defer, description.canBecomeKey,
        description.canBecomeMain);
    auto made = std::make_unique<FakePanel>(journal, clock, description);
    panel = byRole[description.role] = made.get();
    ++panelCount;
    return made;
}

} // namespace sablequill
