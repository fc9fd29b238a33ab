// SPDX-License-Identifier: MIT
#include "AccessibleObject.h"

#include "harness/Wait.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QStringList>

#include <utility>

namespace sablequill {
namespace {

const QString accessibleInterface = QStringLiteral("org.a11y.atspi.Accessible");
const QString actionInterface = QStringLiteral("org.a11y.atspi.Action");
const QString componentInterface = QStringLiteral("org.a11y.atspi.Component");
const QString editableTextInterface = QStringLiteral("org.a11y.atspi.EditableText");
const QString textInterface = QStringLiteral("org.a11y.atspi.Text");
const QString valueInterface = QStringLiteral("org.a11y.atspi.Value");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

QDBusArgument structured(const QVariantList& answer)
{
    return answer.isEmpty() ? QDBusArgument() : answer.constFirst().value<QDBusArgument>();
}

struct Reference {
    QString service;
    QString path;
};

Reference readReference(const QDBusArgument& argument)
{
    Reference reference;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> reference.service >> path;
    argument.endStructure();
    reference.path = path.path();
    return reference;
}

} // namespace

AccessibleObject::AccessibleObject(const QDBusConnection& bus, QString service, QString path)
    : bus(bus)
    , service(std::move(service))
    , path(std::move(path))
{
}

QVariantList AccessibleObject::call(
    const QString& interface, const QString& method, const QVariantList& arguments) const
{
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const auto answer = bus.call(message, QDBus::Block, static_cast<int>(defaultDeadline.count()));
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
}

QVariant AccessibleObject::property(const QString& interface, const QString& name) const
{
    const auto answer = call(propertiesInterface, QStringLiteral("Get"), {interface, name});
    return answer.isEmpty() ? QVariant() : answer.constFirst().value<QDBusVariant>().variant();
}

void AccessibleObject::setProperty(
    const QString& interface, const QString& name, const QVariant& value) const
{
    call(propertiesInterface, QStringLiteral("Set"),
        {interface, name, QVariant::fromValue(QDBusVariant(value))});
}

pid_t AccessibleObject::process() const
{
    const QDBusReply<uint> reply = bus.interface()->servicePid(service);
    return reply.isValid() ? static_cast<pid_t>(reply.value()) : -1;
}

QString AccessibleObject::name() const
{
    return property(accessibleInterface, QStringLiteral("Name")).toString();
}

QString AccessibleObject::description() const
{
    return property(accessibleInterface, QStringLiteral("Description")).toString();
}

QString AccessibleObject::role() const
{
    return call(accessibleInterface, QStringLiteral("GetRoleName")).value(0).toString();
}

bool AccessibleObject::is(AccessibleState state) const
{
    constexpr int wordSize = 32;
    const auto answer = call(accessibleInterface, QStringLiteral("GetState"));
    if (answer.isEmpty())
        return false;
    QList<uint> words;
    structured(answer) >> words;
    const int bit = static_cast<int>(state);
    return (words.value(bit / wordSize) >> (bit % wordSize) & 1) != 0;
}

Area AccessibleObject::area() const
{
    constexpr uint onScreen = 0;
    const auto answer = call(componentInterface, QStringLiteral("GetExtents"), {onScreen});
    Area area;
    if (answer.isEmpty())
        return area;
    const auto argument = structured(answer);
    argument.beginStructure();
    argument >> area.x >> area.y >> area.width >> area.height;
    argument.endStructure();
    return area;
}

std::vector<AccessibleObject> AccessibleObject::children() const
{
    std::vector<AccessibleObject> found;
    const auto answer = call(accessibleInterface, QStringLiteral("GetChildren"));
    if (answer.isEmpty())
        return found;
    const auto argument = structured(answer);
    argument.beginArray();
    while (!argument.atEnd()) {
        const auto reference = readReference(argument);
        found.emplace_back(bus, reference.service, reference.path);
    }
    argument.endArray();
    return found;
}

int AccessibleObject::childCount() const
{
    return property(accessibleInterface, QStringLiteral("ChildCount")).toInt();
}

std::optional<AccessibleObject> AccessibleObject::childAt(int index) const
{
    const auto answer = call(accessibleInterface, QStringLiteral("GetChildAtIndex"), {index});
    if (answer.isEmpty())
        return std::nullopt;
    const auto reference = readReference(structured(answer));
    return AccessibleObject(bus, reference.service, reference.path);
}

QStringList AccessibleObject::interfaces() const
{
    return call(accessibleInterface, QStringLiteral("GetInterfaces")).value(0).toStringList();
}

bool AccessibleObject::isControl() const
{
    return !actions().isEmpty() || is(AccessibleState::focusable)
        || interfaces().contains(valueInterface);
}

QStringList AccessibleObject::actions() const
{
    QStringList names;
    const int count = property(actionInterface, QStringLiteral("NActions")).toInt();
    for (int i = 0; i < count; ++i)
        names.append(call(actionInterface, QStringLiteral("GetName"), {i}).value(0).toString());
    return names;
}

bool AccessibleObject::press() const
{
    return call(actionInterface, QStringLiteral("DoAction"), {0}).value(0).toBool();
}

std::optional<double> AccessibleObject::value() const
{
    const auto value = property(valueInterface, QStringLiteral("CurrentValue"));
    return value.isValid() ? std::optional(value.toDouble()) : std::nullopt;
}

void AccessibleObject::setValue(double value) const
{
    setProperty(valueInterface, QStringLiteral("CurrentValue"), value);
}

QString AccessibleObject::text() const
{
    return call(textInterface, QStringLiteral("GetText"), {0, -1}).value(0).toString();
}

bool AccessibleObject::setText(const QString& text) const
{
    return call(editableTextInterface, QStringLiteral("SetTextContents"), {text}).value(0).toBool();
}

bool AccessibleObject::operator==(const AccessibleObject& other) const
{
    return service == other.service && path == other.path;
}

std::ostream& operator<<(std::ostream& stream, const AccessibleObject& object)
{
    return stream << object.role().toStdString() << " '" << object.name().toStdString() << "' "
                  << object.area();
}

std::vector<AccessibleObject> shownObjects(const AccessibleObject& top)
{
    std::vector<AccessibleObject> found;
    if (!top.is(AccessibleState::showing))
        return found;
    found.push_back(top);
    if (top.role() == u"list")
        return found;
    for (const auto& child : top.children()) {
        const auto below = shownObjects(child);
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

} // namespace sablequill
