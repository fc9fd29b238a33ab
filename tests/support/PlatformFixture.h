// SPDX-License-Identifier: MIT
#pragma once

#include "FakeApplication.h"
#include "FakeHotKeyCenter.h"
#include "FakeLoginItem.h"
#include "FakeMainQueue.h"
#include "FakeMirkProtection.h"
#include "FakePanel.h"
#include "FakeScreens.h"
#include "Platform.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace sablequill {

/// A desktop in memory, which records what is asked of it, and an empty home.
class PlatformFixture : public testing::Test {
protected:
    TemporaryHome home;
    Journal journal;
    FakeClock clock;
    FakePanelFactory panels{journal, clock};
    FakeScreens screens{journal};
    FakeHotKeyCenter hotKeys{journal};
    FakeLoginItem loginItem{journal};
    FakeApplication application{journal};
    FakeMainQueue mainQueue{journal, clock};
    FakeMirkProtection mirkProtection{journal};
    Platform platform{panels, screens, hotKeys, loginItem, application, mainQueue, mirkProtection};
};

} // namespace sablequill
