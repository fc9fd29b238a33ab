// SPDX-License-Identifier: MIT
#include "PortalHotKeyCenter.h"

#include "BusTest.h"
#include "PortalStub.h"
#include "Presses.h"

#include <QElapsedTimer>

#include <map>

namespace sablequill {
namespace {

const QString registered = QStringLiteral("Register io.github.sablequill.Sablequill");
const QString created = QStringLiteral("CreateSession");
const QString closed = QStringLiteral("Session.Close");
const QString boundDefaults =
    QStringLiteral("BindShortcuts toggleOverlay=LOGO+SHIFT+g quickOpen=LOGO+SHIFT+o "
                   "nextNote=LOGO+SHIFT+Down previousNote=LOGO+SHIFT+Up");
const QString toggle = QStringLiteral("toggleOverlay");

constexpr std::uint32_t commandShift = 768;
/// Longer than anything that the bus or the main loop still has to deliver.
constexpr Milliseconds quiet{300};

HotKeyID actionNumber(std::uint32_t number)
{
    return {fourCharacterCode("MKPD"), number};
}

class PortalHotKeyCenterTest : public BusTest {
protected:
    void registerOne(std::uint32_t number, std::uint32_t keyCode)
    {
        const auto ref = center.registerHotKey(keyCode, commandShift, actionNumber(number));
        ASSERT_TRUE(ref);
        refs[number] = *ref;
    }

    /// As at the start of the program, all in one turn.
    void registerDefaults()
    {
        registerOne(1, 5);
        registerOne(2, 31);
        registerOne(3, 125);
        registerOne(4, 126);
    }

    void unregisterAll()
    {
        for (const auto& [number, ref] : refs)
            center.unregisterHotKey(ref);
        refs.clear();
    }

    void expectBound(PortalStub& portal)
    {
        EXPECT_TRUE(runUntil([&] { return portal.bound().has_value(); })) << "nothing is bound";
    }

    void expectCalls(PortalStub& portal, const QStringList& calls)
    {
        EXPECT_TRUE(runUntil([&] { return portal.calls().size() >= calls.size(); }));
        EXPECT_TRUE(runWhile([&] { return portal.calls().size() <= calls.size(); }, quiet));
        EXPECT_EQ(portal.calls().join(u'\n').toStdString(), calls.join(u'\n').toStdString());
        portal.forgetCalls();
    }

    /// Fails the test unless the press gets to the dispatcher once.
    void expectPressWorks(PortalStub& portal)
    {
        presses.ids.clear();
        ASSERT_TRUE(portal.press(toggle)) << "the desktop holds no keys";
        EXPECT_TRUE(runUntil([&] { return !presses.ids.empty(); }));
        EXPECT_TRUE(runWhile([&] { return presses.ids.size() <= 1; }, quiet));
        EXPECT_EQ(presses.ids, std::vector{actionNumber(1)});
    }

    /// Returns when the program has heard that it has its keys.
    void startBound(PortalStub& portal)
    {
        presses.installIn(center);
        registerDefaults();
        expectBound(portal);
        expectPressWorks(portal);
        portal.forgetCalls();
    }

    PortalHotKeyCenter center{program.get()};
    Presses presses;
    std::map<std::uint32_t, HotKeyRef> refs;
};

TEST_F(PortalHotKeyCenterTest, start_portalThere_tellsWhoAsksThenBindsAllTogether)
{
    PortalStub portal(address);
    registerDefaults();
    expectBound(portal);
    EXPECT_TRUE(center.isAvailable());
    ASSERT_TRUE(portal.bound());
    EXPECT_EQ(portal.bound()->at(2).description, QStringLiteral("Next Note"));
    expectCalls(portal, {registered, created, boundDefaults});
}

TEST_F(PortalHotKeyCenterTest, start_olderPortal_bindsWithoutRegistry)
{
    PortalStub portal(address, {.hasRegistry = false});
    registerDefaults();
    expectBound(portal);
    expectCalls(portal, {QStringLiteral("Register"), created, boundDefaults});
}

TEST_F(PortalHotKeyCenterTest, createSession_unknownProgram_isRefused)
{
    PortalStub portal(address);
    const BusConnection stranger(address);
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
            QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.GlobalShortcuts"), created);
    call.setArguments({QVariantMap()});
    EXPECT_EQ(stranger.call(call).type(), QDBusMessage::ErrorMessage);
}

TEST_F(PortalHotKeyCenterTest, start_nothingRegistered_bindsNothing)
{
    PortalStub portal(address);
    EXPECT_TRUE(runUntil([&] { return center.isAvailable(); }));
    expectCalls(portal, {registered});
}

TEST_F(PortalHotKeyCenterTest, start_noPortal_isNotAvailable)
{
    registerDefaults();
    EXPECT_TRUE(runWhile([&] { return !center.isAvailable(); }, quiet));
}

TEST_F(PortalHotKeyCenterTest, start_portalWithoutShortcuts_isNotAvailable)
{
    PortalStub portal(address, {.hasShortcuts = false});
    registerDefaults();
    EXPECT_TRUE(runUntil([&] { return !portal.calls().isEmpty(); }));
    EXPECT_TRUE(runWhile([&] { return !center.isAvailable(); }, quiet));
    expectCalls(portal, {registered});
}

TEST_F(PortalHotKeyCenterTest, start_portalHangs_takesNoTime)
{
    PortalStub portal(address, {.isHanging = true});
    QElapsedTimer time;
    time.start();
    const BusConnection connection(address);
    PortalHotKeyCenter another(connection.get());
    another.registerHotKey(5, commandShift, actionNumber(1));
    // Far from the 25 seconds that a call waits for its answer.
    EXPECT_LT(time.elapsed(), 2000);
    EXPECT_TRUE(runUntil([&] { return portal.calls().size() == 2; }));
    EXPECT_FALSE(another.isAvailable());
}

TEST_F(PortalHotKeyCenterTest, portalAppears_afterTheStart_isBound)
{
    registerDefaults();
    EXPECT_TRUE(runWhile([&] { return !center.isAvailable(); }, quiet));
    PortalStub portal(address);
    expectBound(portal);
    expectCalls(portal, {registered, created, boundDefaults});
}

TEST_F(PortalHotKeyCenterTest, portalRestarts_whileBound_isToldAllAgain)
{
    std::optional<PortalStub> portal(std::in_place, address);
    presses.installIn(center);
    registerDefaults();
    expectBound(*portal);
    portal.reset();
    EXPECT_TRUE(runUntil([&] { return !center.isAvailable(); }));
    portal.emplace(address);
    expectBound(*portal);
    expectCalls(*portal, {registered, created, boundDefaults});
    expectPressWorks(*portal);
}

TEST_F(PortalHotKeyCenterTest, press_bound_reachesTheDispatcherOnce)
{
    PortalStub portal(address);
    startBound(portal);
    expectPressWorks(portal);
}

TEST_F(PortalHotKeyCenterTest, press_newestDispatcherPassesOn_reachesTheOlder)
{
    PortalStub portal(address);
    Presses newest{.ids = {}, .answer = HotKeyStatus::eventNotHandled};
    presses.installIn(center);
    newest.installIn(center);
    registerDefaults();
    expectBound(portal);
    expectPressWorks(portal);
    EXPECT_EQ(newest.ids, presses.ids);
}

TEST_F(PortalHotKeyCenterTest, press_ofAnotherSession_isIgnored)
{
    PortalStub portal(address);
    presses.installIn(center);
    registerDefaults();
    expectBound(portal);
    portal.pressElsewhere(toggle);
    EXPECT_TRUE(runWhile([&] { return presses.ids.empty(); }, quiet));
}

TEST_F(PortalHotKeyCenterTest, register_againTheSame_asksNothing)
{
    PortalStub portal(address);
    startBound(portal);
    unregisterAll();
    registerDefaults();
    expectCalls(portal, {});
    expectPressWorks(portal);
}

TEST_F(PortalHotKeyCenterTest, register_otherKeys_bindsInANewSession)
{
    PortalStub portal(address);
    startBound(portal);
    center.unregisterHotKey(refs[2]);
    registerOne(2, 45);
    expectCalls(portal,
        {closed, created,
            QStringLiteral("BindShortcuts toggleOverlay=LOGO+SHIFT+g quickOpen=LOGO+SHIFT+n "
                           "nextNote=LOGO+SHIFT+Down previousNote=LOGO+SHIFT+Up")});
    expectPressWorks(portal);
}

TEST_F(PortalHotKeyCenterTest, unregister_all_closesTheSession)
{
    PortalStub portal(address);
    startBound(portal);
    unregisterAll();
    expectCalls(portal, {closed});
    EXPECT_EQ(portal.bound(), std::nullopt);
}

TEST_F(PortalHotKeyCenterTest, register_keyWithoutName_isBoundWithoutProposal)
{
    PortalStub portal(address);
    registerOne(1, 9999);
    expectBound(portal);
    ASSERT_TRUE(portal.bound());
    EXPECT_EQ(portal.bound()->at(0).trigger, QString());
}

TEST_F(PortalHotKeyCenterTest, register_noActionHasTheNumber_returnsNothing)
{
    EXPECT_FALSE(center.registerHotKey(5, commandShift, actionNumber(5)));
}

/// What the user or the desktop answers in place of yes.
class RefusalTest : public PortalHotKeyCenterTest, public testing::WithParamInterface<uint> { };

TEST_P(RefusalTest, bind_refused_hasNoKeysUntilTheNextRegistration)
{
    PortalStub portal(address, {.answer = GetParam()});
    presses.installIn(center);
    registerDefaults();
    expectCalls(portal, {registered, created, boundDefaults, closed});
    EXPECT_TRUE(center.isAvailable());
    EXPECT_EQ(portal.bound(), std::nullopt);

    portal.behavior.answer = 0;
    unregisterAll();
    registerDefaults();
    expectCalls(portal, {created, boundDefaults});
    expectPressWorks(portal);
}

INSTANTIATE_TEST_SUITE_P(Answers, RefusalTest, testing::Values(1U, 2U));

TEST_F(PortalHotKeyCenterTest, register_otherKeysWhileTheUserIsAsked_takesTheQuestionBack)
{
    PortalStub portal(address, {.isUndecided = true});
    presses.installIn(center);
    registerOne(1, 5);
    expectCalls(
        portal, {registered, created, QStringLiteral("BindShortcuts toggleOverlay=LOGO+SHIFT+g")});
    portal.behavior.isUndecided = false;
    center.unregisterHotKey(refs[1]);
    registerOne(1, 0);
    expectCalls(portal,
        {QStringLiteral("Request.Close"), closed, created,
            QStringLiteral("BindShortcuts toggleOverlay=LOGO+SHIFT+a")});
    expectPressWorks(portal);
}

TEST_F(PortalHotKeyCenterTest, sessionClosed_byTheDesktop_hasNoKeysUntilTheNextRegistration)
{
    PortalStub portal(address);
    startBound(portal);
    portal.closeSession();
    expectCalls(portal, {});
    unregisterAll();
    registerDefaults();
    expectCalls(portal, {created, boundDefaults});
    expectPressWorks(portal);
}

TEST_F(PortalHotKeyCenterTest, busEnds_whileBound_isNotAvailable)
{
    std::optional<PortalStub> portal(std::in_place, address);
    registerDefaults();
    expectBound(*portal);
    daemon.reset();
    EXPECT_TRUE(runUntil([&] { return !center.isAvailable(); }));
    unregisterAll();
    EXPECT_TRUE(runWhile([&] { return !center.isAvailable(); }, quiet));
}

} // namespace
} // namespace sablequill
