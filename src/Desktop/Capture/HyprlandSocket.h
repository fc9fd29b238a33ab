// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace sablequill {

/// Hyprland's request socket: a connection for each request, which the compositor closes after its
/// answer.
class HyprlandSocket : public QObject {
    Q_OBJECT

public:
    using Answer = std::optional<QByteArray>;

    /// The path of the one of the Hyprland that runs this session, if there is one.
    static std::optional<QString> ofSession();

    explicit HyprlandSocket(const QString& path);

    /// Returns at once. Calls back with the answer, or with nothing when the connection fails or
    /// ends without one; never after this object or `asker` is gone. A compositor that is busy, or
    /// draws slowly, is waited for as long as it takes.
    void ask(const QByteArray& request, const QObject* asker, std::function<void(Answer)> answered);

private:
    const QString path;
};

} // namespace sablequill
