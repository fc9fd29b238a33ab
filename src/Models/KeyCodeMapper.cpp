// SPDX-License-Identifier: MIT
#include "KeyCodeMapper.h"

#include <algorithm>
#include <array>

namespace sablequill::KeyCodeMapper {
namespace {

struct Row {
    std::uint32_t keyCode;
    char16_t character;
};

constexpr std::array rows{
    Row{0, u'A'},
    Row{1, u'S'},
    Row{2, u'D'},
    Row{3, u'F'},
    Row{4, u'H'},
    Row{5, u'G'},
    Row{6, u'Z'},
    Row{7, u'X'},
    Row{8, u'C'},
    Row{9, u'V'},
    Row{11, u'B'},
    Row{12, u'Q'},
    Row{13, u'W'},
    Row{14, u'E'},
    Row{15, u'R'},
    Row{16, u'Y'},
    Row{17, u'T'},
    Row{31, u'O'},
    Row{34, u'I'},
    Row{35, u'P'},
    Row{37, u'L'},
    Row{38, u'J'},
    Row{40, u'K'},
    Row{45, u'N'},
    Row{46, u'M'},
    Row{123, u'←'},
    Row{124, u'→'},
    Row{125, u'↓'},
    Row{126, u'↑'},
};

} // namespace

QString displayCharacter(std::uint32_t keyCode)
{
    const auto row = std::find_if(rows.begin(), rows.end(),
        [&](const Row& candidate) { return candidate.keyCode == keyCode; });
    return QChar(row == rows.end() ? u'?' : row->character);
}

} // namespace sablequill::KeyCodeMapper
