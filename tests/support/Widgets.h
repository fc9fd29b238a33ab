// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QStringList>
#include <QWidget>

#include <ostream>

// How failed assertions show values.
// NOLINTNEXTLINE(readability-identifier-naming): the name that the test framework looks for
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
inline std::ostream& operator<<(std::ostream& stream, const QColor& color)
{
    return stream << color.name(QColor::HexArgb).toStdString();
}
inline std::ostream& operator<<(std::ostream& stream, const QSize& size)
{
    return stream << size.width() << " x " << size.height();
}
inline std::ostream& operator<<(std::ostream& stream, const QRect& rect)
{
    return stream << '[' << rect.x() << ' ' << rect.y() << ' ' << rect.width() << ' '
                  << rect.height() << ']';
}

namespace sablequill {

/// Shows a widget and waits until it is laid out and has been painted.
void present(QWidget& widget);

/// The widget as it paints itself on clear ground, one pixel a point.
QImage picture(QWidget& widget);

/// Turns of the main loop until a condition holds; false when it does not within five seconds.
template <typename Condition> bool waitFor(Condition&& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    return condition();
}

/// One turn of the main loop: what was scheduled before is done.
void turn();

/// Where a widget lies in another one that it is somewhere inside of.
QRect frameIn(const QWidget& ancestor, const QWidget& widget);

/// The words in a laid-out widget as they are read, line by line: labels and titles of buttons,
/// without those that are hidden.
QStringList textsIn(const QWidget& root);
/// As if no control had the keyboard yet.
void leaveControls(QWidget& window);
/// The control that the keyboard acts on, after that many presses of Tab; null when there is none.
QWidget* focusAfterTab(QWidget& window, int presses = 1);

/// The one descendant with an object name; fails the test when there is none.
template <typename Kind = QWidget> Kind& found(const QWidget& root, const QString& objectName)
{
    Kind* child = root.findChild<Kind*>(objectName);
    if (!child)
        qFatal("no child is named %s", qPrintable(objectName));
    return *child;
}

} // namespace sablequill
