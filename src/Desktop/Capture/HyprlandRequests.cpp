// SPDX-License-Identifier: MIT
#include "HyprlandRequests.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace sablequill::HyprlandRequests {
namespace {

/// Under which name each form knows the property.
constexpr const char* properties[formCount] = {
    "no_screen_share", "no_screen_share", "noscreenshare"};

/// The selector is part of a request that has its own quoting.
bool isAddress(const QByteArray& text)
{
    static constexpr QByteArrayView digits("0123456789abcdefABCDEF");
    return text.startsWith("0x") && text.size() > 2
        && std::all_of(text.begin() + 2, text.end(), [](char c) { return digits.contains(c); });
}

QRect frameOf(const QJsonObject& window)
{
    const QJsonArray at = window[QStringLiteral("at")].toArray();
    const QJsonArray size = window[QStringLiteral("size")].toArray();
    return {at[0].toInt(), at[1].toInt(), size[0].toInt(), size[1].toInt()};
}

/// But for what is lost in rounding.
bool hasProportions(const QRect& rectangle, const QRect& other)
{
    const int difference =
        std::abs(rectangle.width() * other.height() - other.width() * rectangle.height());
    return !rectangle.isEmpty()
        && difference
        <= 2 * (rectangle.width() + rectangle.height() + other.width() + other.height());
}

template <typename Condition>
std::vector<QByteArray> windowsWith(const QByteArray& answer, qint64 pid, Condition isMeant)
{
    std::vector<QByteArray> windows;
    const QJsonArray all = QJsonDocument::fromJson(answer).array();
    for (const QJsonValue& value : all) {
        const QJsonObject window = value.toObject();
        const QByteArray address = window[QStringLiteral("address")].toString().toLatin1();
        if (window[QStringLiteral("pid")].toInteger(-1) == pid && isAddress(address)
            && isMeant(window))
            windows.push_back("address:" + address);
    }
    return windows;
}

} // namespace

QByteArray setHidden(int form, const QByteArray& window, bool isHidden)
{
    switch (form) {
    case 0: {
        const QByteArray value = isHidden ? "1" : "unset";
        return "dispatch hl.dsp.window.set_prop({ prop = \"no_screen_share\", value = \"" + value
            + "\", window = \"" + window + "\" })";
    }
    case 1:
        return "dispatch setprop " + window + " no_screen_share " + (isHidden ? "1" : "0");
    default:
        return "setprop " + window + " noscreenshare " + (isHidden ? "1" : "0");
    }
}

QByteArray getHidden(int form, const QByteArray& window)
{
    return "getprop " + window + ' ' + properties[form];
}

QByteArray listWindows()
{
    return "j/clients";
}

QByteArray pin(int form, const QByteArray& window)
{
    return form == 0 ? "dispatch hl.dsp.window.pin({ window = \"" + window + "\" })"
                     : "dispatch pin " + window;
}

QByteArray focus(int form, const QByteArray& window)
{
    return form == 0 ? "dispatch hl.dsp.focus({ window = \"" + window + "\" })"
                     : "dispatch focuswindow " + window;
}

bool isDone(const QByteArray& answer)
{
    return answer.startsWith("ok");
}

bool isTrue(const QByteArray& answer)
{
    const QByteArray value = answer.trimmed();
    return value == "true" || value == "1";
}

std::vector<QByteArray> windowsIn(const QByteArray& answer, qint64 pid)
{
    return windowsWith(answer, pid, [](const QJsonObject&) { return true; });
}

std::vector<QByteArray> unpinnedIn(const QByteArray& answer, qint64 pid, const QString& title)
{
    return windowsWith(answer, pid, [&title](const QJsonObject& window) {
        return window[QStringLiteral("title")].toString() == title
            && !window[QStringLiteral("pinned")].toBool(true);
    });
}

std::optional<QByteArray> windowIn(
    const QByteArray& answer, qint64 pid, const QString& title, const QRect& frame)
{
    int nearest = std::numeric_limits<int>::max();
    std::optional<QByteArray> found;
    for (const QByteArray& name : windowsWith(answer, pid, [&](const QJsonObject& window) {
             const QRect other = frameOf(window);
             const int distance = (other.topLeft() - frame.topLeft()).manhattanLength();
             return window[QStringLiteral("title")].toString() == title
                 && hasProportions(other, frame)
                 && std::exchange(nearest, std::min(nearest, distance)) > distance;
         }))
        found = name;
    return found;
}

} // namespace sablequill::HyprlandRequests
