// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace sablequill {

/// Hyprland's request socket: a connection for each request, which the compositor closes after its
/// answer.
class HyprlandSocket : public QObject {
    Q_OBJECT

public:
    using Answer = std::optional<QByteArray>;

    /// No answer is waited for longer than that.
    HyprlandSocket(const QString& path, std::chrono::milliseconds timeout);

    /// Returns at once. Calls back with the answer, or with nothing when there is none in time;
    /// never after this object or `asker` is gone.
    void ask(const QByteArray& request, const QObject* asker, std::function<void(Answer)> answered);

private:
    const QString path;
    const std::chrono::milliseconds timeout;
};

} // namespace sablequill
