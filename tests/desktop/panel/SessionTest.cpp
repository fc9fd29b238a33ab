// SPDX-License-Identifier: MIT
#include "Session.h"

#include "BusConnection.h"
#include "HyprlandSocket.h"
#include "ScopedVariable.h"
#include "XServer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace sablequill {
namespace {

/// On a plain X server; whether it belongs to a Wayland session is what the environment says.
class SessionTest : public testing::Test {
protected:
    SessionTest()
    {
        std::filesystem::create_directories(socket.parent_path());
        std::ofstream{socket};
    }

    Session session() const { return Session::of(server); }

    PrivateHome home;
    const std::filesystem::path socket = home.runtimeFolder() / "hypr" / "sign" / ".socket.sock";
    const QString socketName = QString::fromStdString(socket.string());
    ScopedVariable runtime{"XDG_RUNTIME_DIR", home.runtimeFolder()};
    ScopedVariable signature{"HYPRLAND_INSTANCE_SIGNATURE", QByteArray("sign")};
    ScopedVariable display{"WAYLAND_DISPLAY"};
    ScopedVariable type{"XDG_SESSION_TYPE"};
    XServer server;
};

TEST_F(SessionTest, of_x11_isNeitherWaylandNorHyprland)
{
    EXPECT_FALSE(session().isWayland);
    EXPECT_EQ(session().hyprlandSocket, std::nullopt);
    const ScopedVariable other("XDG_SESSION_TYPE", QByteArray("x11"));
    EXPECT_FALSE(session().isWayland);
}

TEST_F(SessionTest, of_wayland_eitherSignIsEnough)
{
    {
        const ScopedVariable other("XDG_SESSION_TYPE", QByteArray("wayland"));
        EXPECT_TRUE(session().isWayland);
    }
    const ScopedVariable other("WAYLAND_DISPLAY", QByteArray("wayland-0"));
    EXPECT_TRUE(session().isWayland);
}

TEST_F(SessionTest, of_hyprland_hasItsSocket)
{
    const ScopedVariable other("WAYLAND_DISPLAY", QByteArray("wayland-1"));
    EXPECT_EQ(session().hyprlandSocket, socketName);
}

TEST_F(SessionTest, ofSession_signatureAndSocket_areNeeded)
{
    EXPECT_EQ(HyprlandSocket::ofSession(), socketName);
    {
        const ScopedVariable none("HYPRLAND_INSTANCE_SIGNATURE");
        EXPECT_EQ(HyprlandSocket::ofSession(), std::nullopt);
    }
    std::filesystem::remove(socket);
    EXPECT_EQ(HyprlandSocket::ofSession(), std::nullopt);
}

} // namespace
} // namespace sablequill
