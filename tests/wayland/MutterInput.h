// SPDX-License-Identifier: MIT
#pragma once

#include "CompositorInput.h"

#include <QDBusInterface>

#include <memory>

namespace sablequill {

/// By the compositor's interface for remote desktops.
class MutterInput final : public CompositorInput {
public:
    /// The connection outlives this object. Throws std::runtime_error when the compositor refuses.
    explicit MutterInput(const QDBusConnection& bus);
    ~MutterInput() override;

    void moveTo(Point point) override;
    void setButton(bool isPressed) override;
    void setKey(unsigned code, bool isPressed) override;

private:
    void call(const QString& method, const QVariantList& arguments = {});

    std::unique_ptr<QDBusInterface> session;
};

} // namespace sablequill
