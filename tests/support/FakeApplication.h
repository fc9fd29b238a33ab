// SPDX-License-Identifier: MIT
#pragma once

#include "Application.h"
#include "Journal.h"

namespace sablequill {

class FakeApplication final : public Application {
public:
    explicit FakeApplication(Journal& journal)
        : journal(journal)
    {
    }

    void activateIgnoringOtherApps(bool ignoresOthers) override
    {
        journal.record("application.activateIgnoringOtherApps", ignoresOthers);
    }
    void showSettingsWindow() override { journal.record("application.showSettingsWindow"); }
    void terminate() override { journal.record("application.terminate"); }

private:
    Journal& journal;
};

} // namespace sablequill
