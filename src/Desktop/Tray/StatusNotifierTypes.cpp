// SPDX-License-Identifier: MIT
#include "StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

namespace sablequill {
namespace {

// Drawn for each size instead of scaled by the panel: a scaled symbol is a blurred one.
constexpr int sizes[] = {16, 22, 24, 32, 48};

StatusNotifierPixmap statusNotifierPixmap(const QImage& source)
{
    const QImage image = source.convertToFormat(QImage::Format_ARGB32);
    const qsizetype pixels = qsizetype{image.width()} * image.height();
    StatusNotifierPixmap result{image.width(), image.height(), QByteArray()};
    result.bytes.resize(pixels * 4);
    // A row of 32-bit pixels is never padded: all of them lie one after the other.
    qToBigEndian<quint32>(image.constBits(), pixels, result.bytes.data());
    return result;
}

} // namespace

StatusNotifierPixmaps statusNotifierPixmaps(const QIcon& icon)
{
    StatusNotifierPixmaps result;
    for (const int size : sizes) {
        const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
        if (!image.isNull())
            result.append(statusNotifierPixmap(image));
    }
    return result;
}

void registerStatusNotifierTypes()
{
    qDBusRegisterMetaType<StatusNotifierPixmap>();
    qDBusRegisterMetaType<StatusNotifierPixmaps>();
    qDBusRegisterMetaType<StatusNotifierToolTip>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.icon << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.icon >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

} // namespace sablequill
