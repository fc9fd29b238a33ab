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

#include <list>
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

/// Waits for it; nothing when it is an error.
QVariantList answerTo(QDBusPendingCall question)
{
    question.waitForFinished();
    return question.isError() ? QVariantList() : question.reply().arguments();
}

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

std::vector<Reference> readReferences(const QVariantList& answer)
{
    std::vector<Reference> references;
    if (answer.isEmpty())
        return references;
    const auto argument = structured(answer);
    argument.beginArray();
    while (!argument.atEnd())
        references.push_back(readReference(argument));
    argument.endArray();
    return references;
}

QVariant propertyIn(const QVariantList& answer)
{
    return answer.isEmpty() ? QVariant() : answer.constFirst().value<QDBusVariant>().variant();
}

bool holdsState(const QVariantList& answer, AccessibleState state)
{
    constexpr int wordSize = 32;
    if (answer.isEmpty())
        return false;
    QList<uint> words;
    structured(answer) >> words;
    const int bit = static_cast<int>(state);
    return (words.value(bit / wordSize) >> (bit % wordSize) & 1) != 0;
}

} // namespace

AccessibleObject::AccessibleObject(const QDBusConnection& bus, QString service, QString path)
    : bus(bus)
    , service(std::move(service))
    , path(std::move(path))
{
}

QDBusPendingCall AccessibleObject::ask(
    const QString& interface, const QString& method, const QVariantList& arguments) const
{
    auto question = QDBusMessage::createMethodCall(service, path, interface, method);
    question.setArguments(arguments);
    return bus.asyncCall(question, static_cast<int>(defaultDeadline.count()));
}

QVariantList AccessibleObject::call(
    const QString& interface, const QString& method, const QVariantList& arguments) const
{
    return answerTo(ask(interface, method, arguments));
}

QVariant AccessibleObject::property(const QString& interface, const QString& name) const
{
    return propertyIn(call(propertiesInterface, QStringLiteral("Get"), {interface, name}));
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
    return holdsState(call(accessibleInterface, QStringLiteral("GetState")), state);
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
    for (const auto& [owner, at] :
        readReferences(call(accessibleInterface, QStringLiteral("GetChildren"))))
        found.emplace_back(bus, owner, at);
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

AccessibleObject AccessibleObject::sibling(const QString& owner, const QString& at) const
{
    return {bus, owner, at};
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

namespace {

struct Node {
    SeenObject seen;
    std::list<Node> below;
};

using Level = std::vector<Node*>;
using Questions = std::vector<QDBusPendingCall>;

Questions askAll(const Level& level, const QString& interface, const QString& method,
    const QVariantList& arguments = {})
{
    Questions questions;
    for (const Node* node : level)
        questions.push_back(node->seen.object.ask(interface, method, arguments));
    return questions;
}

/// Fills the nodes in and returns those that can be seen and may hold others.
Level look(const Level& level)
{
    const auto states = askAll(level, accessibleInterface, QStringLiteral("GetState"));
    const auto roles = askAll(level, accessibleInterface, QStringLiteral("GetRoleName"));
    const auto names = askAll(level, propertiesInterface, QStringLiteral("Get"),
        {accessibleInterface, QStringLiteral("Name")});
    Level further;
    for (std::size_t i = 0; i < level.size(); ++i) {
        SeenObject& seen = level[i]->seen;
        seen.name = propertyIn(answerTo(names[i])).toString();
        if (holdsState(answerTo(states[i]), AccessibleState::showing))
            seen.role = answerTo(roles[i]).value(0).toString();
        if (!seen.role.isEmpty() && seen.role != u"list")
            further.push_back(level[i]);
    }
    return further;
}

Level descend(const Level& level)
{
    const auto questions = askAll(level, accessibleInterface, QStringLiteral("GetChildren"));
    Level next;
    for (std::size_t i = 0; i < level.size(); ++i) {
        for (const auto& [service, path] : readReferences(answerTo(questions[i]))) {
            const auto child = level[i]->seen.object.sibling(service, path);
            next.push_back(&level[i]->below.emplace_back(Node{{child, {}, {}}, {}}));
        }
    }
    return next;
}

/// Without those that cannot be seen: they were told no role.
void append(std::vector<SeenObject>& all, const Node& node)
{
    if (node.seen.role.isEmpty())
        return;
    all.push_back(node.seen);
    for (const Node& child : node.below)
        append(all, child);
}

} // namespace

std::vector<SeenObject> seenIn(const AccessibleObject& window)
{
    Node top{{window, {}, {}}, {}};
    // All questions of a level are on their way together: one after the other would take long.
    for (Level level{&top}; !level.empty();)
        level = descend(look(level));
    std::vector<SeenObject> all;
    append(all, top);
    return all;
}

} // namespace sablequill
