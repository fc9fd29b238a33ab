// SPDX-License-Identifier: MIT
#include "AccessibleContainer.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace sablequill {
namespace {

/// Asks the widget each time: a view becomes a window, or ceases to be one, after it was made.
class AccessibleContainer : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override
    {
        if (widget()->isWindow())
            return QAccessible::Window;
        return widget()->focusPolicy() == Qt::NoFocus ? QAccessible::Client : QAccessible::Grouping;
    }
};

/// Called for the class of an object and then for each one that it comes from, up to the first one
/// that somebody knows.
QAccessibleInterface* containerInterface(const QString& className, QObject* object)
{
    auto* widget = className == u"QWidget" ? qobject_cast<QWidget*>(object) : nullptr;
    return widget ? new AccessibleContainer(widget) : nullptr;
}

} // namespace

void installAccessibleContainers()
{
    // The toolkit takes no function twice.
    QAccessible::installFactory(containerInterface);
}

} // namespace sablequill
