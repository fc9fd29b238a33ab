// SPDX-License-Identifier: MIT
#include "HyprlandRequests.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

} // namespace sablequill::HyprlandRequests
