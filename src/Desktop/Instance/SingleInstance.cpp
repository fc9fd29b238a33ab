// SPDX-License-Identifier: MIT
#include "SingleInstance.h"

#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <chrono>
#include <thread>
#include <utility>

using namespace std::chrono_literals;

namespace sablequill {

std::unique_ptr<SingleInstance> SingleInstance::claim()
{
    for (const std::filesystem::path& path : InstanceFolder::candidates()) {
        std::unique_ptr<SingleInstance> instance(new SingleInstance);
        const Claim result = instance->claim(path);
        if (result == Claim::handedOver)
            return nullptr;
        if (result == Claim::granted)
            return instance;
    }
    return std::unique_ptr<SingleInstance>(new SingleInstance);
}

SingleInstance::Claim SingleInstance::claim(const std::filesystem::path& path)
{
    folder.emplace(path);
    const QDeadlineTimer deadline(300ms);
    do {
        const InstanceFolder::Lock lock = folder->tryLock();
        if (lock == InstanceFolder::Lock::taken)
            return socket.emplace(folder->descriptor()).isListening() ? Claim::granted
                                                                      : Claim::impossible;
        if (lock == InstanceFolder::Lock::impossible)
            return Claim::impossible;
        const std::chrono::milliseconds patience(deadline.remainingTime());
        if (InstanceSocket::call(folder->descriptor(), patience))
            return Claim::handedOver;
        // The holder of the lock does not listen yet, or has just ended.
        std::this_thread::sleep_for(1ms);
    } while (!deadline.hasExpired());
    // Two that write the same files would be worse than one that did not hear.
    return Claim::handedOver;
}

void SingleInstance::onSecondStart(QObject* context, std::function<void()> callback)
{
    if (!socket)
        return;
    auto* notifier = new QSocketNotifier(socket->descriptor(), QSocketNotifier::Read, context);
    QObject::connect(
        notifier, &QSocketNotifier::activated, context, [this, callback = std::move(callback)] {
            if (socket->answerAll())
                callback();
        });
}

} // namespace sablequill
