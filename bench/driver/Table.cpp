// SPDX-License-Identifier: MIT
#include "Table.h"

#include <iomanip>
#include <iostream>
#include <sstream>

namespace sablequill {
namespace {

std::string number(double value)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(value < 10 ? 2 : value < 100 ? 1 : 0) << value;
    return text.str();
}

std::string ratio(const Row& row)
{
    return row.floor > 0 ? number(row.program / row.floor) : "–";
}

} // namespace

void Table::begin(const std::string& nextSetup)
{
    setup = nextSetup;
}

void Table::add(const Row& row)
{
    if (!hasHeader)
        std::cout << "| row | set-up | program | floor | ratio | target | met |\n"
                     "|---|---|---|---|---|---|---|\n";
    hasHeader = true;
    met = met && row.isMet();
    const std::string unit = row.unit.empty() ? "" : ' ' + row.unit;
    std::cout << "| " << row.what << " | " << setup << " | " << number(row.program) << unit << " | "
              << (row.floor > 0 ? number(row.floor) + unit : "–") << " | " << ratio(row) << " | "
              << row.target << " | " << (row.isMet() ? "yes" : "no") << " |" << std::endl;
}

} // namespace sablequill
