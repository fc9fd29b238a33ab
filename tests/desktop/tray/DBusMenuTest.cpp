// SPDX-License-Identifier: MIT
#include "DBusMenu.h"
#include "BusTest.h"
#include "StatusNotifierItem.h"

#include <QDBusArgument>
#include <QGuiApplication>

namespace sablequill {
namespace {

const QString label = QStringLiteral("label");
const QString childrenDisplay = QStringLiteral("children-display");

class DBusMenuTest : public BusTest {
protected:
    DBusMenuTest()
    {
        menu.exportOn(program.get());
        item.exportOn(program.get());
    }

    StatusMenuEntry entry(const QString& title)
    {
        return {title, [this, title] { chosen.append(title); }};
    }

    QDBusMessage call(const char* method, const QVariantList& arguments) const
    {
        return host.callMenu(self, QString::fromLatin1(method), arguments);
    }

    QDBusMessage event(int id, const char* name) const
    {
        return call("Event",
            {id, QString::fromLatin1(name), QVariant::fromValue(QDBusVariant(0)), uint{0}});
    }

    DBusMenuLayout layout(int parent, int depth, const QStringList& names = {}) const
    {
        const QDBusMessage reply = call("GetLayout", {parent, depth, names});
        EXPECT_EQ(reply.signature(), QStringLiteral("u(ia{sv}av)"));
        return qdbus_cast<DBusMenuLayout>(reply.arguments().value(1));
    }

    QStringList chosen;
    DBusMenu menu{{entry(QStringLiteral("Show Overlay")), entry(QStringLiteral("snake_case")),
        entry(QStringLiteral("Settings…"))}};
    StatusNotifierItem item{QStringLiteral("Sablequill"), QIcon(), DBusMenu::path()};
    StatusNotifierHost host{address};
    StatusNotifierHost::Item self{program.get().baseService(), StatusNotifierItem::path()};
};

TEST_F(DBusMenuTest, getLayout_wholeMenu_hasTheEntriesInOrder)
{
    const DBusMenuLayout root = layout(0, -1);
    EXPECT_EQ(root.id, 0);
    EXPECT_EQ(root.properties, (QVariantMap{{childrenDisplay, QStringLiteral("submenu")}}));
    ASSERT_EQ(root.children.size(), 3);
    const QStringList titles{
        QStringLiteral("Show Overlay"), QStringLiteral("snake__case"), QStringLiteral("Settings…")};
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(root.children[index].id, index + 1);
        EXPECT_EQ(root.children[index].properties, (QVariantMap{{label, titles[index]}}));
        EXPECT_TRUE(root.children[index].children.isEmpty());
    }
}

TEST_F(DBusMenuTest, getLayout_depths_endWhereAsked)
{
    EXPECT_EQ(layout(0, 0).children.size(), 0);
    EXPECT_EQ(layout(0, 1).children.size(), 3);
    EXPECT_EQ(layout(0, 7).children.size(), 3);
}

TEST_F(DBusMenuTest, getLayout_oneEntry_isThatEntryAlone)
{
    const DBusMenuLayout entry = layout(3, -1);
    EXPECT_EQ(entry.id, 3);
    EXPECT_EQ(entry.properties, (QVariantMap{{label, QStringLiteral("Settings…")}}));
    EXPECT_TRUE(entry.children.isEmpty());
}

TEST_F(DBusMenuTest, getLayout_propertyNames_leaveOutTheOthers)
{
    const DBusMenuLayout labels = layout(0, -1, {label});
    EXPECT_TRUE(labels.properties.isEmpty());
    EXPECT_EQ(labels.children[0].properties.size(), 1);
    const DBusMenuLayout others = layout(0, -1, {childrenDisplay, QStringLiteral("enabled")});
    EXPECT_EQ(others.properties.size(), 1);
    EXPECT_TRUE(others.children[0].properties.isEmpty());
}

TEST_F(DBusMenuTest, calls_unknownEntry_areRefused)
{
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    const std::vector<QDBusMessage> replies{
        call("GetLayout", {4, -1, QStringList()}),
        call("GetLayout", {-1, -1, QStringList()}),
        call("GetProperty", {4, label}),
        call("GetProperty", {1, QStringLiteral("icon-name")}),
        call("Event", {4, QStringLiteral("clicked"), nothing, uint{0}}),
        call("AboutToShow", {4}),
        call("AboutToShowGroup", {QVariant::fromValue(QList{4, 5})}),
        call("EventGroup",
            {QVariant::fromValue(
                QList<DBusMenuEvent>{{4, QStringLiteral("clicked"), QDBusVariant(0), 0}})}),
    };
    for (const QDBusMessage& reply : replies)
        EXPECT_EQ(reply.errorName(), QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
    EXPECT_TRUE(runWhile([this] { return chosen.isEmpty(); }, Milliseconds(50)));
}

TEST_F(DBusMenuTest, getProperty_label_isTheTitle)
{
    const QDBusMessage reply = call("GetProperty", {1, label});
    EXPECT_EQ(reply.arguments().value(0).value<QDBusVariant>().variant(),
        QVariant(QStringLiteral("Show Overlay")));
}

TEST_F(DBusMenuTest, getGroupProperties_someAndAll_areInTheAnswer)
{
    const auto group = [this](const QList<int>& ids) {
        const QDBusMessage reply =
            call("GetGroupProperties", {QVariant::fromValue(ids), QStringList()});
        EXPECT_EQ(reply.signature(), QStringLiteral("a(ia{sv})"));
        return qdbus_cast<QList<DBusMenuItem>>(reply.arguments().value(0));
    };
    const QList<DBusMenuItem> expected{{1, {{label, QStringLiteral("Show Overlay")}}},
        {3, {{label, QStringLiteral("Settings…")}}}};
    EXPECT_EQ(group({1, 9, 3}), expected);
    EXPECT_EQ(group({}).size(), 4);
}

TEST_F(DBusMenuTest, event_clicked_runsTheActionAfterTheAnswer)
{
    EXPECT_EQ(event(2, "clicked").type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(runUntil([this] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen, QStringList{QStringLiteral("snake_case")});
}

TEST_F(DBusMenuTest, event_anythingElse_runsNothing)
{
    EXPECT_EQ(event(2, "hovered").type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(event(0, "opened").type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(event(0, "clicked").type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(runWhile([this] { return chosen.isEmpty(); }, Milliseconds(50)));
}

TEST_F(DBusMenuTest, eventGroup_someUnknown_runsTheOthersAndNamesThem)
{
    const auto clicked = [](int id) {
        return DBusMenuEvent{id, QStringLiteral("clicked"), QDBusVariant(0), 0};
    };
    const QList<DBusMenuEvent> events{clicked(3), clicked(8), clicked(1)};
    const QDBusMessage reply = call("EventGroup", {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList{8});
    EXPECT_TRUE(runUntil([this] { return chosen.size() == 2; }));
    EXPECT_EQ(chosen, (QStringList{QStringLiteral("Settings…"), QStringLiteral("Show Overlay")}));
}

TEST_F(DBusMenuTest, aboutToShow_menuAndEntries_needNoUpdate)
{
    EXPECT_EQ(call("AboutToShow", {0}).arguments(), QVariantList{false});
    const QDBusMessage group = call("AboutToShowGroup", {QVariant::fromValue(QList{0, 8, 1})});
    EXPECT_EQ(group.signature(), QStringLiteral("aiai"));
    EXPECT_TRUE(qdbus_cast<QList<int>>(group.arguments().value(0)).isEmpty());
    EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().value(1)), QList{8});
}

TEST_F(DBusMenuTest, properties_ofTheMenu_areThoseOfThePlainOne)
{
    EXPECT_EQ(host.menuProperty(self, QStringLiteral("Version")), QVariant(uint{3}));
    EXPECT_EQ(
        host.menuProperty(self, QStringLiteral("Status")), QVariant(QStringLiteral("normal")));
    EXPECT_EQ(host.menuProperty(self, QStringLiteral("IconThemePath")), QVariant(QStringList()));
    const QString direction = QStringLiteral("TextDirection");
    EXPECT_EQ(host.menuProperty(self, direction), QVariant(QStringLiteral("ltr")));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(host.menuProperty(self, direction), QVariant(QStringLiteral("rtl")));
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(DBusMenuTest, introspect_byHost_tellsEveryMember)
{
    const QString xml = host.introspect(self, DBusMenu::path());
    for (const char* member :
        {"GetLayout", "GetGroupProperties", "GetProperty", "Event", "EventGroup", "AboutToShow",
            "AboutToShowGroup", "ItemsPropertiesUpdated", "LayoutUpdated",
            "ItemActivationRequested", "Version", "TextDirection", "Status", "IconThemePath"}) {
        EXPECT_TRUE(xml.contains(QStringLiteral("name=\"%1\"").arg(QString::fromLatin1(member))))
            << member;
    }
    for (const char* type : {"(ia{sv}av)", "a(ia{sv})", "a(ias)", "a(isvu)"})
        EXPECT_TRUE(xml.contains(QStringLiteral("type=\"%1\"").arg(QString::fromLatin1(type))))
            << type;
}

} // namespace
} // namespace sablequill
