// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRect>

#include <optional>
#include <vector>

/// What is said on Hyprland's request socket. A window is named by a selector, "address:0x…" or
/// "pid:…"; of several windows of a process the latter finds one.
namespace sablequill::HyprlandRequests {

/// The ways to set a property of a window, the newest first: 0.55 and later, 0.53 to 0.56, and 0.50
/// to 0.52. Where another is spoken, the answer is an error.
inline constexpr int formCount = 3;

QByteArray setHidden(int form, const QByteArray& window, bool isHidden);
QByteArray getHidden(int form, const QByteArray& window);
QByteArray listWindows();

/// The ways to have something done to a window: 0.55 and later, and before.
inline constexpr int dispatchFormCount = 2;

/// Of a window that floats. It turns the state over, so only one that is not pinned is to be named.
QByteArray pin(int form, const QByteArray& window);
QByteArray focus(int form, const QByteArray& window);

bool isDone(const QByteArray& answer);
bool isTrue(const QByteArray& answer);
/// The process's windows in the answer to listWindows(); none when it is not understood.
std::vector<QByteArray> windowsIn(const QByteArray& answer, qint64 pid);
/// Of those, the ones with that title that are not pinned.
std::vector<QByteArray> unpinnedIn(const QByteArray& answer, qint64 pid, const QString& title);

/// The one with that title that is most likely the window with that frame, in the X server's
/// pixels: of those of its proportions the one that is nearest. The compositor's coordinates may be
/// scaled.
std::optional<QByteArray> windowIn(
    const QByteArray& answer, qint64 pid, const QString& title, const QRect& frame);

} // namespace sablequill::HyprlandRequests
