// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QJsonArray>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMap>
#include <QPointer>
#include <QRect>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace sablequill {

/// A window as Hyprland lists it.
struct HyprlandWindow {
    QByteArray address;
    qint64 pid = 0;
    QByteArray title = {};
    bool isPinned = false;
    QRect frame = {};
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
    /// Those of the list that nothing can be done with, as they are just closing.
    QSet<QByteArray> closing;
    /// Whether it does what it says it did.
    bool obeys = true;
    /// Instead of an answer: these bytes, or only the end of the connection when they are empty.
    std::optional<QByteArray> instead;
    /// Answers nothing until unfreeze().
    bool isFrozen = false;
    void unfreeze();

    /// Those that captures do not show.
    QSet<QByteArray> hidden;
    /// The one that has the keyboard.
    QByteArray focused;
    QByteArrayList requests;

private:
    void serve();
    void answer(QLocalSocket& connection, const QByteArray& request);
    QByteArray answerTo(const QByteArray& request);
    QByteArray list();
    QByteArray set(const QByteArray& selector, bool isHidden);
    QByteArray addressOf(const QByteArray& selector) const;
    QByteArray turnPin(const QByteArray& selector);
    QByteArray focus(const QByteArray& selector);

    QLocalServer server;
    std::vector<std::pair<QPointer<QLocalSocket>, QByteArray>> waiting;
};

} // namespace sablequill
