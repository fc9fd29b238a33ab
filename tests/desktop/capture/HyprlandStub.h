// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QJsonArray>
#include <QLocalServer>
#include <QMap>

#include <functional>
#include <optional>

namespace sablequill {

/// A window as Hyprland lists it.
struct HyprlandWindow {
    QByteArray address;
    qint64 pid = 0;
};

/// Hyprland's request socket: one request a connection, which it closes after the answer.
class HyprlandStub final : public QObject {
    Q_OBJECT

public:
    /// Throws std::runtime_error when there can be no socket at the path.
    explicit HyprlandStub(const QString& path);

    /// Which of the three kinds of requests it understands, counted from the newest; none when it
    /// is -1.
    int form = 0;
    std::vector<HyprlandWindow> windows;
    /// Whether the list of windows is answered with one.
    bool listsWindows = true;
    /// A window that is gone once it was listed.
    QByteArray going;
    /// Whether it does what it says it did.
    bool obeys = true;
    /// Instead of an answer: these bytes, or for ever nothing when they are empty.
    std::optional<QByteArray> instead;

    /// Those that captures do not show.
    QSet<QByteArray> hidden;
    QByteArrayList requests;

private:
    void serve();
    QByteArray answerTo(const QByteArray& request);
    QByteArray list();
    QByteArray set(const QByteArray& selector, bool isHidden);
    QByteArray addressOf(const QByteArray& selector) const;

    QLocalServer server;
};

} // namespace sablequill
