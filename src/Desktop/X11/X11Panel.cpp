// SPDX-License-Identifier: MIT
#include "X11Panel.h"

#include "CaptureShield.h"
#include "Constants.h"
#include "ManagedKeeper.h"
#include "ScreenSpace.h"
#include "Session.h"
#include "UnmanagedKeeper.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <cmath>
#include <utility>
#include <xcb/shape.h>

namespace sablequill {

X11Panel::X11Panel(const PanelDescription& description, const XServer& server,
    CaptureShield& shield, KeyboardTurns& turns, std::unique_ptr<WindowKeeper> ownKeeper)
    : server(server)
    , shield(shield)
    , turns(turns)
    , canBecomeKey(description.canBecomeKey)
    , keeper(std::move(ownKeeper))
    , window(Qt::Window | Qt::FramelessWindowHint | keeper->windowFlags())
    , alpha([this](double value) { applyAlpha(value); })
    , compositor(server)
{
    window.setWindowTitle(Constants::appName);
    window.setWindowRole(description.role);
    window.isResizable = (description.styleMask & StyleMask::resizable) != 0;
    window.setComposited(keeper->isAlwaysComposited() || compositor.isComposited());
    window.setCard(ScreenSpace::toToolkit(description.contentRect));
    knownFrame = frame();
    connectWindow();
}

X11Panel::~X11Panel()
{
    // The keyboard would be left to nobody.
    orderOut();
}

void X11Panel::connectWindow()
{
    if (!keeper->isAlwaysComposited())
        connect(
            &compositor, &CompositorWatch::compositedChanged, &window, &PanelWindow::setComposited);
    connect(&window, &PanelWindow::shapeChanged, this, [this] {
        if (window.isVisible())
            applyInputShape();
    });
    connect(&window, &PanelWindow::pressed, this, &X11Panel::makeKey);
    connect(&window, &PanelWindow::dragChanged, this,
        [this](bool isDragging) { keeper->setDragging(isDragging); });
    connect(&window, &PanelWindow::cardMoved, this, &X11Panel::reportMove);
    connect(&window, &PanelWindow::cardResized, this, [this] {
        knownFrame = frame();
        if (delegate)
            delegate->windowDidResize(this);
    });
    connect(&window, &PanelWindow::liveResizeEnded, this, [this] {
        if (didEndLiveResize)
            didEndLiveResize(this);
    });
    keeper->onPressElsewhere = [this] { loseAttention(); };
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &X11Panel::followFocus);
    connect(&turns, &KeyboardTurns::taken, this, &X11Panel::followTurn);
    followScreens();
}

void X11Panel::followScreens()
{
    const auto follow = [this](const QScreen* screen) {
        connect(screen, &QScreen::geometryChanged, this, &X11Panel::followScreenChange,
            Qt::QueuedConnection);
    };
    for (const QScreen* screen : QGuiApplication::screens())
        follow(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, follow);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &X11Panel::followScreenChange,
        Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &X11Panel::followScreenChange,
        Qt::QueuedConnection);
}

void X11Panel::followScreenChange()
{
    moveOntoScreen();
    // The same place has other coordinates where the primary screen's bottom is another.
    if (frame() != knownFrame)
        reportMove();
}

void X11Panel::reportMove()
{
    knownFrame = frame();
    if (delegate)
        delegate->windowDidMove(this);
}

void X11Panel::setAttributes(const PanelAttributes& attributes)
{
    window.minimumCard = QSize(static_cast<int>(std::lround(attributes.minWidth)),
        static_cast<int>(std::lround(attributes.minHeight)));
    window.isMovableByBackground = attributes.isMovableByWindowBackground;
}

void X11Panel::setMovableByWindowBackground(bool isMovable)
{
    window.isMovableByBackground = isMovable;
}

void X11Panel::setContent(std::unique_ptr<PanelContent> content)
{
    window.setContent(std::move(content));
}

void X11Panel::setDelegate(PanelDelegate* next)
{
    delegate = next;
}

void X11Panel::setDidEndLiveResize(std::function<void(Panel*)> observer)
{
    didEndLiveResize = std::move(observer);
}

void X11Panel::setDidLoseAttention(std::function<void()> observer)
{
    didLoseAttention = std::move(observer);
}

void X11Panel::setLevel(WindowLevel next)
{
    if (std::exchange(level, next) != next)
        keepStacking();
}

void X11Panel::setCollectionBehavior(unsigned)
{
    // By its kind the window is on every workspace and in no list.
}

void X11Panel::setSharingType(SharingType type)
{
    // For all windows of the program: the others show notes too.
    shield.setWanted(type == SharingType::none);
}

void X11Panel::setAlpha(double value)
{
    alpha.setAlpha(value);
}

void X11Panel::applyAlpha(double value)
{
    // In the next turn: after a fade the alpha is restored just before the panel is ordered out,
    // and must not be seen once more.
    wantedAlpha = value;
    if (!std::exchange(isAlphaPosted, true))
        QMetaObject::invokeMethod(this, &X11Panel::writeAlpha, Qt::QueuedConnection);
}

void X11Panel::writeAlpha()
{
    isAlphaPosted = false;
    window.setWindowOpacity(wantedAlpha);
    // The toolkit sends only when it next has something to read: a fade would come in one step.
    xcb_flush(server.connection);
}

void X11Panel::animateAlpha(double value, AlphaAnimation animation)
{
    alpha.animate(value, std::move(animation));
}

void X11Panel::orderFrontRegardless()
{
    moveOntoScreen();
    // Before the window is there: not a single click is lost in its margins.
    applyInputShape();
    writeAlpha();
    keeper->willShow(window);
    if (window.isVisible())
        window.raise();
    else
        window.show();
    keeper->didShow(window);
    keepStacking();
    keeper->watchPresses(didLoseAttention != nullptr);
}

void X11Panel::orderOut()
{
    isKey = false;
    keeper->willHide();
    window.hide();
}

void X11Panel::makeKey()
{
    if (!canBecomeKey)
        return;
    // After the views' refresh that is already waiting: a key typed at once must find the editor.
    QMetaObject::invokeMethod(this, &X11Panel::takeKeyboard, Qt::QueuedConnection);
}

void X11Panel::takeKeyboard()
{
    if (!window.isVisible())
        return;
    if (!isKey)
        Q_EMIT turns.taken(this);
    keeper->takeKeyboard();
}

bool X11Panel::isVisible() const
{
    return window.isVisible();
}

Rect X11Panel::frame() const
{
    return ScreenSpace::fromToolkit(window.card());
}

void X11Panel::setFrame(const Rect& frame)
{
    window.setCard(ScreenSpace::toToolkit(frame));
}

void X11Panel::applyInputShape()
{
    const auto id = static_cast<xcb_window_t>(window.winId());
    const double scale = window.devicePixelRatioF();
    const auto pixels = [&](int points) { return static_cast<int>(std::lround(points * scale)); };
    const QRect card = window.cardInWindow();
    const xcb_rectangle_t area{static_cast<std::int16_t>(pixels(card.x())),
        static_cast<std::int16_t>(pixels(card.y())),
        static_cast<std::uint16_t>(pixels(card.width())),
        static_cast<std::uint16_t>(pixels(card.height()))};
    xcb_shape_rectangles(server.connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
        XCB_CLIP_ORDERING_UNSORTED, id, 0, 0, 1, &area);
}

void X11Panel::keepStacking()
{
    keeper->keepOnTop(level == WindowLevel::floating && window.isVisible());
}

void X11Panel::moveOntoScreen()
{
    const QRect card = window.card();
    const QRect moved = ScreenSpace::movedOntoScreen(card);
    if (moved != card)
        window.setCard(moved);
}

void X11Panel::followFocus(const QWindow* focused)
{
    const bool wasKey = std::exchange(isKey, focused && focused == window.windowHandle());
    if (wasKey && !isKey)
        loseAttention();
}

void X11Panel::followTurn(const QObject* panel)
{
    // Also a panel that never had the keyboard: a window manager may hold it for the one to have it
    // next.
    if (panel != this)
        loseAttention();
}

void X11Panel::loseAttention()
{
    if (didLoseAttention && window.isVisible())
        didLoseAttention();
}

X11PanelFactory::X11PanelFactory(
    const XServer& server, CaptureShield& shield, const Session& session)
    : server(server)
    , shield(shield)
    , isWayland(session.isWayland)
    , hyprlandSocket(session.hyprlandSocket)
    , presses(server)
{
    if (hyprlandSocket)
        pin = std::make_unique<HyprlandPin>(*hyprlandSocket);
}

std::unique_ptr<Panel> X11PanelFactory::makePanel(const PanelDescription& description)
{
    return std::make_unique<X11Panel>(description, server, shield, turns, makeKeeper());
}

std::unique_ptr<WindowKeeper> X11PanelFactory::makeKeeper()
{
    if (isWayland)
        return std::make_unique<ManagedKeeper>(server, presses, pin.get(), hyprlandSocket);
    return std::make_unique<UnmanagedKeeper>(server, presses);
}

} // namespace sablequill
