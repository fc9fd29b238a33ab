// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <QObject>

namespace sablequill {

/// Tells of button presses outside of the program's windows, whoever gets them (XInput 2 raw
/// events). The server is asked for them only while somebody listens.
class PressWatch : public QObject {
    Q_OBJECT

public:
    /// The server outlives this object.
    explicit PressWatch(const XServer& server);

    void addListener();
    void removeListener();

Q_SIGNALS:
    void pressedElsewhere();

private:
    bool filterEvent(const xcb_generic_event_t& event);
    void select() const;

    const XServer& server;
    const std::uint8_t inputOpcode;
    int listeners = 0;
    XEventFilter filter;
};

} // namespace sablequill
