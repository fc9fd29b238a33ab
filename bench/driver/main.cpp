// SPDX-License-Identifier: MIT
//
// sablequill_bench PROGRAM FLOORS ROW...: measures the rows and prints the table.
//
// A word with a sign of equality changes how: events=N, runs=N, set-up=openbox.
#include "Rows.h"

#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <vector>

namespace sablequill {
namespace {

struct RowEntry {
    std::string name;
    void (*measure)(Stage&, Table&);
    /// Not of the window manager: measured under the first one only.
    bool isOnce = false;
    /// Only when it is asked for by name.
    bool isLong = false;
};

const std::vector<RowEntry>& rows()
{
    static const std::vector<RowEntry> rows{
        {"startup", measureStartup},
        {"memory", measureMemory},
        {"idle", measureIdling},
        {"toggle", measureToggle},
        {"next", measureNextNote},
        {"typing", measureTyping},
        {"large", measureLargeNote},
        {"inline", measureInlineMarkdown, true},
        {"show", measureFirstShow},
        {"endurance", measureEndurance, true, true},
    };
    return rows;
}

struct Wish {
    Measurement measurement;
    std::vector<std::string> names;
    std::vector<WindowManagerSetup> setups{WindowManagerSetup::openbox, WindowManagerSetup::xfwm4};
};

void take(Wish& wish, const std::string& word)
{
    const auto sign = word.find('=');
    const std::string key = word.substr(0, sign);
    const std::string value = sign == std::string::npos ? "" : word.substr(sign + 1);
    if (key == "events")
        wish.measurement.events = std::stoi(value);
    else if (key == "runs")
        wish.measurement.processRuns = std::stoi(value);
    else if (key == "set-up")
        std::erase_if(wish.setups, [&](auto setup) { return traits(setup).name != value; });
    else if (std::any_of(rows().begin(), rows().end(),
                 [&](const RowEntry& row) { return row.name == word; }))
        wish.names.push_back(word);
    else
        throw std::invalid_argument("no row is called " + word);
}

bool isWished(const Wish& wish, const RowEntry& row)
{
    const bool isNamed =
        std::find(wish.names.begin(), wish.names.end(), row.name) != wish.names.end();
    return isNamed || (wish.names.empty() && !row.isLong);
}

bool measure(const Wish& wish)
{
    Table table;
    for (const WindowManagerSetup setup : wish.setups) {
        Stage stage(wish.measurement, setup);
        table.begin(traits(setup).name);
        for (const RowEntry& row : rows()) {
            if (isWished(wish, row) && (!row.isOnce || setup == wish.setups.front()))
                row.measure(stage, table);
        }
    }
    return table.isMet();
}

} // namespace
} // namespace sablequill

int main(int argc, char* argv[])
{
    using namespace sablequill;

    // A floor that has ended does not listen.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        if (argc < 3)
            throw std::invalid_argument("the program and the folder of the floors are missing");
        Wish wish{{argv[1], argv[2]}, {}};
        std::for_each(argv + 3, argv + argc, [&](const char* word) { take(wish, word); });
        return measure(wish) ? 0 : 2;
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
}
