// SPDX-License-Identifier: MIT
#include "MutterInput.h"

#include <QDBusReply>

#include <linux/input-event-codes.h>

#include <stdexcept>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.gnome.Mutter.RemoteDesktop");

} // namespace

MutterInput::MutterInput(const QDBusConnection& bus)
{
    QDBusInterface desktop(
        service, QStringLiteral("/org/gnome/Mutter/RemoteDesktop"), service, bus);
    const QDBusReply<QDBusObjectPath> path = desktop.call(QStringLiteral("CreateSession"));
    if (!path.isValid())
        throw std::runtime_error("no remote desktop: " + path.error().message().toStdString());
    session = std::make_unique<QDBusInterface>(
        service, path.value().path(), service + QStringLiteral(".Session"), bus);
    call(QStringLiteral("Start"));
}

MutterInput::~MutterInput() = default;

void MutterInput::moveTo(Point point)
{
    // Positions need a stream of pictures, ways do not: first into the corner.
    constexpr double farAway = -10000;
    call(QStringLiteral("NotifyPointerMotionRelative"), {farAway, farAway});
    call(QStringLiteral("NotifyPointerMotionRelative"), {double(point.x), double(point.y)});
}

void MutterInput::setButton(bool isPressed)
{
    call(QStringLiteral("NotifyPointerButton"), {BTN_LEFT, isPressed});
}

void MutterInput::setKey(unsigned code, bool isPressed)
{
    call(QStringLiteral("NotifyKeyboardKeycode"), {code, isPressed});
}

void MutterInput::call(const QString& method, const QVariantList& arguments)
{
    const QDBusMessage reply = session->callWithArgumentList(QDBus::Block, method, arguments);
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw std::runtime_error(reply.errorMessage().toStdString());
}

} // namespace sablequill
