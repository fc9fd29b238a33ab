// SPDX-License-Identifier: MIT
#pragma once

#include "PanelContent.h"
#include "Rect.h"

#include <QString>

#include <functional>
#include <memory>

namespace sablequill {

class Panel;

namespace StyleMask {
inline constexpr unsigned borderless = 0;
inline constexpr unsigned resizable = 8;
inline constexpr unsigned nonactivatingPanel = 128;
} // namespace StyleMask

namespace CollectionBehavior {
inline constexpr unsigned canJoinAllSpaces = 1;
inline constexpr unsigned stationary = 16;
inline constexpr unsigned ignoresCycle = 64;
inline constexpr unsigned fullScreenAuxiliary = 256;
} // namespace CollectionBehavior

enum class BackingStore { buffered = 2 };
enum class WindowLevel { normal = 0, floating = 3 };
enum class TitleVisibility { visible = 0, hidden = 1 };
/// Whether captures of the screen may show a window.
enum class SharingType { none = 0, readOnly = 1 };
enum class Appearance { system, darkAqua };
enum class BackgroundColor { windowBackground, clear };
enum class TimingFunction { linear, easeInEaseOut };

/// What a panel is made with and keeps.
struct PanelDescription {
    Rect contentRect;
    unsigned styleMask = StyleMask::borderless;
    BackingStore backing = BackingStore::buffered;
    bool defer = false;
    bool canBecomeKey = false;
    bool canBecomeMain = false;
    /// What kind of window it is, for the window system and for tests.
    QString role = QStringLiteral("overlay");
};

/// What a panel is given once, before its content.
struct PanelAttributes {
    bool isFloatingPanel = false;
    TitleVisibility titleVisibility = TitleVisibility::visible;
    bool titlebarAppearsTransparent = false;
    bool isMovableByWindowBackground = false;
    BackgroundColor backgroundColor = BackgroundColor::windowBackground;
    bool isOpaque = true;
    bool hasShadow = true;
    /// Points; holds for resizing by the user, not for the frame a panel is made with.
    double minWidth = 0;
    double minHeight = 0;
    Appearance appearance = Appearance::system;

    bool operator==(const PanelAttributes&) const = default;
};

/// A change of alpha over time. The completion, if any, runs once: at the end, or at once when
/// another animation of the same panel supersedes this one.
struct AlphaAnimation {
    double duration = 0; ///< seconds
    TimingFunction timing = TimingFunction::linear;
    std::function<void()> completion = {};
};

/// Hears of every change of a panel's frame, also of those the panel was told to make after it was
/// ordered front. The argument is null when the notification's object is not a panel.
class PanelDelegate {
public:
    virtual void windowDidMove(Panel* window) = 0;
    virtual void windowDidResize(Panel* window) = 0;

protected:
    ~PanelDelegate() = default;
};

/// A floating window that hosts one view. Frames are in points, bottom-left origin.
class Panel {
public:
    virtual ~Panel() = default;

    virtual void setAttributes(const PanelAttributes& attributes) = 0;
    virtual void setMovableByWindowBackground(bool isMovable) = 0;
    virtual void setContent(std::unique_ptr<PanelContent> content) = 0;
    /// The delegate outlives the panel or is replaced by null.
    virtual void setDelegate(PanelDelegate* delegate) = 0;
    /// Called at the end of each resize by the user, after the last windowDidResize.
    virtual void setDidEndLiveResize(std::function<void(Panel* window)> observer) = 0;
    /// Called when the user turns away from a visible panel: a press outside of the program's
    /// windows, another panel taking the keyboard, or another window taking it from this one.
    virtual void setDidLoseAttention(std::function<void()> observer) = 0;

    virtual void setLevel(WindowLevel level) = 0;
    virtual void setCollectionBehavior(unsigned behavior) = 0;
    virtual void setSharingType(SharingType type) = 0;
    /// 0 (clear) to 1; ends a running animation without changing what its completion does.
    virtual void setAlpha(double alpha) = 0;
    virtual void animateAlpha(double alpha, AlphaAnimation animation) = 0;

    /// Brings the panel to the front without taking the keyboard.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;
    /// Gives the panel the keyboard.
    virtual void makeKey() = 0;
    virtual bool isVisible() const = 0;
    virtual Rect frame() const = 0;
    virtual void setFrame(const Rect& frame) = 0;
};

class PanelFactory {
public:
    virtual std::unique_ptr<Panel> makePanel(const PanelDescription& description) = 0;

protected:
    ~PanelFactory() = default;
};

} // namespace sablequill
