// SPDX-License-Identifier: MIT
#pragma once

#include "harness/Geometry.h"

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QString>
#include <QVariant>

#include <optional>
#include <ostream>
#include <vector>

#include <sys/types.h>

namespace sablequill {

/// Places in the bit set that an accessible object gives as its states (AT-SPI's own numbers).
enum class AccessibleState {
    checked = 4,
    focusable = 11,
    focused = 12,
    selected = 23,
    showing = 25,
};

/// A window, a control or a text of another program, as an assistive program meets it. Only a
/// reference: each question goes to that program, and about an object that is gone it is answered
/// with nothing.
class AccessibleObject {
public:
    AccessibleObject(const QDBusConnection& bus, QString service, QString path);

    /// Whose it is; -1 when that program is gone.
    pid_t process() const;
    QString name() const;
    QString description() const;
    /// In words, as AT-SPI has them: "push button", "slider".
    QString role() const;
    bool is(AccessibleState state) const;
    /// In the root's coordinates.
    Area area() const;
    /// All of them; of a list with many rows better only some, by childAt().
    std::vector<AccessibleObject> children() const;
    int childCount() const;
    std::optional<AccessibleObject> childAt(int index) const;

    /// Whether an assistive program can press, move or fill it.
    bool isControl() const;
    /// Names of its actions, in order.
    QStringList actions() const;
    /// Carries the first action out; false when it has none.
    bool press() const;
    /// Of a slider.
    std::optional<double> value() const;
    void setValue(double value) const;
    /// What it holds when it is a text that can be read.
    QString text() const;
    /// Of a text that can be edited; false when it refuses.
    bool setText(const QString& text) const;

    /// Sends a question of AT-SPI's and does not wait for the answer.
    QDBusPendingCall ask(
        const QString& interface, const QString& method, const QVariantList& arguments = {}) const;
    AccessibleObject sibling(const QString& service, const QString& path) const;

    bool operator==(const AccessibleObject& other) const;

private:
    QVariantList call(
        const QString& interface, const QString& method, const QVariantList& arguments = {}) const;
    QVariant property(const QString& interface, const QString& name) const;
    void setProperty(const QString& interface, const QString& name, const QVariant& value) const;
    QStringList interfaces() const;

    QDBusConnection bus;
    QString service;
    QString path;
};

std::ostream& operator<<(std::ostream& stream, const AccessibleObject& object);

/// What an object said of itself when it was asked.
struct SeenObject {
    AccessibleObject object;
    QString name;
    QString role;
};

/// The objects that can be seen in a window, the window first and each before what it holds. Of a
/// list only itself.
std::vector<SeenObject> seenIn(const AccessibleObject& window);

} // namespace sablequill
