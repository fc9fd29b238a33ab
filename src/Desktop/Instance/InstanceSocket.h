// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <chrono>

namespace sablequill {

/// The socket on which the running instance hears of second starts; exists in its folder (0600) as
/// long as this object does. To connect is all there is to say, and one byte is the answer.
class InstanceSocket {
public:
    /// What is left of an earlier instance is replaced, so the caller holds the folder's lock.
    explicit InstanceSocket(int folder);
    ~InstanceSocket();

    InstanceSocket(const InstanceSocket&) = delete;
    InstanceSocket& operator=(const InstanceSocket&) = delete;

    bool isListening() const { return listening; }
    /// Readable when somebody has connected.
    int descriptor() const { return socket.get(); }

    /// Answers all who have connected. Whether there were any; other users do not count.
    bool answerAll() const;

    /// Connects to the instance that listens in the folder. True when it answered, and also when it
    /// is too busy to do so in time but will find the connection later. False when nobody listens,
    /// or nobody does any more.
    static bool call(int folder, std::chrono::milliseconds patience);

private:
    bool listen() const;

    const int folder;
    const FileDescriptor socket;
    const bool listening;
};

} // namespace sablequill
