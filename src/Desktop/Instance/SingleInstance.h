// SPDX-License-Identifier: MIT
#pragma once

#include "InstanceFolder.h"
#include "InstanceSocket.h"

#include <functional>
#include <memory>
#include <optional>

class QObject;

namespace sablequill {

/// The right to be the one instance of this user on this display, held as long as this object
/// lives. A later start hands over to the holder instead of running.
class SingleInstance {
public:
    /// Claims that right; needs no application object. Nothing when another instance has it: that
    /// one has been told, or will be as soon as it is free to listen, and the caller ends. This
    /// takes 0.3 s when the other one is busy or stopped, and hardly any time otherwise.
    ///
    /// Where no folder can be used the result is an instance that no later start finds.
    static std::unique_ptr<SingleInstance> claim();

    /// From now on the main loop calls back for second starts, those since the claim included; once
    /// for all that came while the loop was busy. Ends with the context, which goes away before
    /// this object and after the application object exists. To be called once.
    void onSecondStart(QObject* context, std::function<void()> callback);

private:
    enum class Claim { granted, handedOver, impossible };

    SingleInstance() = default;
    Claim claim(const std::filesystem::path& path);

    // In this order: the socket is gone when the lock is released.
    std::optional<InstanceFolder> folder;
    std::optional<InstanceSocket> socket;
};

} // namespace sablequill
