// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

namespace sablequill {

// A widget as a screen reader meets it.

inline QAccessibleInterface& accessible(QWidget& widget)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
    if (!interface)
        qFatal("%s cannot be read out", qPrintable(widget.objectName()));
    return *interface;
}

inline QString accessibleName(QWidget& widget)
{
    return accessible(widget).text(QAccessible::Name);
}

/// Presses a control as an assistive program does.
inline void pressAccessibly(QWidget& widget)
{
    QAccessibleActionInterface* actions = accessible(widget).actionInterface();
    ASSERT_TRUE(actions);
    ASSERT_FALSE(actions->actionNames().isEmpty());
    actions->doAction(actions->actionNames().constFirst());
}

} // namespace sablequill
