// SPDX-License-Identifier: MIT
#pragma once

#include "FakeClock.h"
#include "Journal.h"
#include "Panel.h"

#include <map>
#include <optional>

namespace sablequill {

/// A panel in memory that records what it is told to do (not what it is asked) and animates its
/// alpha by the fake clock.
class FakePanel final : public Panel {
public:
    FakePanel(Journal& journal, FakeClock& clock, const PanelDescription& description);
    ~FakePanel() override;

    void setAttributes(const PanelAttributes& attributes) override;
    void setMovableByWindowBackground(bool isMovable) override;
    void setContent(std::unique_ptr<PanelContent> content) override;
    void setDelegate(PanelDelegate* delegate) override;
    void setDidEndLiveResize(std::function<void(Panel* window)> observer) override;
    void setDidLoseAttention(std::function<void()> observer) override;
    void setLevel(WindowLevel level) override;
    void setCollectionBehavior(unsigned behavior) override;
    void setSharingType(SharingType type) override;
    void setAlpha(double alpha) override;
    void animateAlpha(double alpha, AlphaAnimation animation) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void makeKey() override;
    bool isVisible() const override { return visible; }
    Rect frame() const override { return currentFrame; }
    void setFrame(const Rect& frame) override;

    /// As on screen at the clock's time.
    double alpha() const;

    /// What the user or the window system does to the panel.
    void move(double x, double y);
    void resize(double width, double height);
    void loseAttention() { didLoseAttention(); }
    void endLiveResize() { notifyDidEndLiveResize(this); }
    /// Delivers the notification for some object, null when it is not a panel.
    void notifyDidEndLiveResize(Panel* window);

    const PanelDescription description;
    PanelAttributes attributes;
    std::unique_ptr<PanelContent> content;
    WindowLevel level = WindowLevel::normal;
    unsigned collectionBehavior = 0;
    SharingType sharingType = SharingType::readOnly;
    bool isKey = false;

private:
    struct Fade {
        double from;
        double to;
        FakeClock::Duration start;
        FakeClock::Duration duration;
        TimingFunction timing;
    };

    double alphaOf(const Fade& fade) const;
    /// Ends the group whose completion is due and runs it.
    void completeAnimation();

    Journal& journal;
    FakeClock& clock;
    PanelDelegate* delegate = nullptr;
    std::function<void(Panel* window)> didEndLiveResize;
    std::function<void()> didLoseAttention;
    Rect currentFrame;
    bool visible = false;
    double settledAlpha = 1;
    std::optional<Fade> fade;
    std::optional<FakeClock::Ticket> groupEnd;
    std::function<void()> completion;
};

class FakePanelFactory final : public PanelFactory {
public:
    FakePanelFactory(Journal& journal, FakeClock& clock)
        : journal(journal)
        , clock(clock)
    {
    }

    std::unique_ptr<Panel> makePanel(const PanelDescription& description) override;

    /// The newest; its owner may have ended it.
    FakePanel* panel = nullptr;
    int panelCount = 0;
    /// The newest of each role, by the same rule.
    std::map<QString, FakePanel*> byRole;

private:
    Journal& journal;
    FakeClock& clock;
};

} // namespace sablequill
