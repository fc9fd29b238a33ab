// SPDX-License-Identifier: MIT
#pragma once

#include "Journal.h"
#include "StatusItem.h"

#include <utility>

namespace sablequill {

/// A status item in memory, in a host that tells of clicks when the test says so.
class FakeStatusItem final : public StatusItem {
public:
    explicit FakeStatusItem(Journal& journal)
        : journal(journal)
    {
    }

    void show(StatusItemDescription description) override
    {
        journal.record("statusItem.show", description.title.toStdString());
        shown = std::move(description);
    }
    StatusItemAnchor anchor() const override { return place; }

    /// A click on the icon, with what the host tells of its place.
    void activate(const StatusItemAnchor& at) { shown.onActivated(at); }

    StatusItemDescription shown;
    /// Where the icon stands; nothing until it is docked.
    StatusItemAnchor place;

private:
    Journal& journal;
};

} // namespace sablequill
