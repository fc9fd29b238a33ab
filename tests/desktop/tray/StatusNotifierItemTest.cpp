// SPDX-License-Identifier: MIT
#include "StatusNotifierItem.h"
#include "BusTest.h"

#include <QDBusArgument>
#include <QPixmap>
#include <QXmlStreamReader>

namespace sablequill {
namespace {

// Channels that are exact both with and without the alpha multiplied in.
const QColor translucent(0x00, 0xff, 0xff, 0x80);

/// One plain color in every size that is asked for.
QIcon plainIcon()
{
    QPixmap pixmap(64, 64);
    pixmap.fill(translucent);
    return QIcon(pixmap);
}

/// The names of methods and signals, and the properties with their types, sorted.
QStringList membersOf(const QString& xml, const QString& interface)
{
    QStringList members;
    QXmlStreamReader reader(xml);
    bool isInside = false;
    while (!reader.atEnd()) {
        reader.readNext();
        const auto attribute = [&](const QString& key) {
            return reader.attributes().value(key).toString();
        };
        const QString name = attribute(QStringLiteral("name"));
        if (reader.isStartElement() && reader.name() == u"interface")
            isInside = name == interface;
        if (!isInside || !reader.isStartElement())
            continue;
        if (reader.name() == u"method" || reader.name() == u"signal")
            members.append(name);
        if (reader.name() == u"property")
            members.append(name + u' ' + attribute(QStringLiteral("type")));
    }
    members.sort();
    return members;
}

class StatusNotifierItemTest : public BusTest {
protected:
    StatusNotifierItemTest()
    {
        item.exportOn(program.get());
        QObject::connect(&item, &StatusNotifierItem::activated, &item,
            [this](QPoint place) { places.append(place); });
    }

    template <typename T> T property(const char* name) const
    {
        const QVariant value = host.itemProperty(self, QString::fromLatin1(name));
        EXPECT_TRUE(value.isValid()) << name;
        return qdbus_cast<T>(value);
    }

    StatusNotifierItem item{QStringLiteral("Sablequill"), plainIcon(), QStringLiteral("/MenuBar")};
    StatusNotifierHost host{address};
    StatusNotifierHost::Item self{program.get().baseService(), StatusNotifierItem::path()};
    QList<QPoint> places;
};

TEST_F(StatusNotifierItemTest, properties_plainOnes_sayWhatTheItemIs)
{
    EXPECT_EQ(self.path, QStringLiteral("/StatusNotifierItem"));
    EXPECT_EQ(property<QString>("Category"), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(property<QString>("Id"), QStringLiteral("Sablequill"));
    EXPECT_EQ(property<QString>("Title"), QStringLiteral("Sablequill"));
    EXPECT_EQ(property<QString>("Status"), QStringLiteral("Active"));
    EXPECT_EQ(property<QString>("IconName"), QString());
    EXPECT_FALSE(property<bool>("ItemIsMenu"));
    EXPECT_EQ(property<QDBusObjectPath>("Menu").path(), QStringLiteral("/MenuBar"));
}

TEST_F(StatusNotifierItemTest, properties_iconPixmap_hasEachSizeInNetworkOrder)
{
    const auto pixmaps = property<StatusNotifierPixmaps>("IconPixmap");
    QList<int> sizes;
    for (const StatusNotifierPixmap& pixmap : pixmaps) {
        sizes.append(pixmap.width);
        EXPECT_EQ(pixmap.height, pixmap.width);
        EXPECT_EQ(pixmap.bytes.size(), pixmap.width * pixmap.height * 4);
        EXPECT_EQ(pixmap.bytes.first(4), QByteArray::fromHex("8000ffff"));
        EXPECT_EQ(pixmap.bytes.last(4), QByteArray::fromHex("8000ffff"));
    }
    EXPECT_EQ(sizes, (QList{16, 22, 24, 32, 48}));
}

TEST_F(StatusNotifierItemTest, properties_onTheWire_haveTheTypesOfTheInterface)
{
    const auto signature = [this](const char* name) {
        const auto value = host.itemProperty(self, QString::fromLatin1(name));
        return value.value<QDBusArgument>().currentSignature();
    };
    EXPECT_EQ(signature("IconPixmap"), QStringLiteral("a(iiay)"));
    EXPECT_EQ(signature("ToolTip"), QStringLiteral("(sa(iiay)ss)"));
}

TEST_F(StatusNotifierItemTest, properties_toolTip_isTheTitle)
{
    const StatusNotifierToolTip expected{{}, {}, QStringLiteral("Sablequill"), {}};
    EXPECT_EQ(property<StatusNotifierToolTip>("ToolTip"), expected);
}

TEST_F(StatusNotifierItemTest, introspect_byHost_tellsEveryMember)
{
    const QStringList expected{QStringLiteral("Activate"), QStringLiteral("Category s"),
        QStringLiteral("ContextMenu"), QStringLiteral("IconName s"),
        QStringLiteral("IconPixmap a(iiay)"), QStringLiteral("Id s"),
        QStringLiteral("ItemIsMenu b"), QStringLiteral("Menu o"),
        QStringLiteral("NewAttentionIcon"), QStringLiteral("NewIcon"),
        QStringLiteral("NewOverlayIcon"), QStringLiteral("NewStatus"), QStringLiteral("NewTitle"),
        QStringLiteral("NewToolTip"), QStringLiteral("Scroll"), QStringLiteral("SecondaryActivate"),
        QStringLiteral("Status s"), QStringLiteral("Title s"),
        QStringLiteral("ToolTip (sa(iiay)ss)")};
    EXPECT_EQ(
        membersOf(host.introspect(self, self.path), QStringLiteral("org.kde.StatusNotifierItem")),
        expected);
}

TEST_F(StatusNotifierItemTest, press_eachKind_activatesAtThePlace)
{
    int x = 10;
    for (const char* method : {"Activate", "SecondaryActivate", "ContextMenu"}) {
        const auto reply = host.press(self, QString::fromLatin1(method), x, 700);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << method;
        ASSERT_FALSE(places.isEmpty()) << method;
        EXPECT_EQ(places.takeLast(), QPoint(x++, 700)) << method;
    }
    EXPECT_TRUE(places.isEmpty());
}

TEST_F(StatusNotifierItemTest, scroll_anyWay_doesNothing)
{
    const auto reply =
        host.callItem(self, QStringLiteral("Scroll"), {120, QStringLiteral("vertical")});
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(places.isEmpty());
}

TEST_F(StatusNotifierItemTest, destroy_exported_answersNoMore)
{
    const QString elsewhere = QStringLiteral("/StatusNotifierItem");
    BusConnection other{address};
    {
        StatusNotifierItem shortLived(QStringLiteral("x"), QIcon(), QStringLiteral("/MenuBar"));
        shortLived.exportOn(other.get());
        EXPECT_TRUE(host.itemProperty({other.get().baseService(), elsewhere}, QStringLiteral("Id"))
                        .isValid());
    }
    EXPECT_FALSE(
        host.itemProperty({other.get().baseService(), elsewhere}, QStringLiteral("Id")).isValid());
}

TEST(StatusNotifierPixmapsTest, create_emptyIcon_givesNone)
{
    EXPECT_TRUE(statusNotifierPixmaps(QIcon()).isEmpty());
}

TEST(StatusNotifierPixmapsTest, create_smallIcon_isNotBlownUp)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(translucent);
    for (const StatusNotifierPixmap& each : statusNotifierPixmaps(QIcon(pixmap)))
        EXPECT_EQ(each.width, 16);
}

} // namespace
} // namespace sablequill
