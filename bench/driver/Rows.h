// SPDX-License-Identifier: MIT
#pragma once

#include "Stage.h"

namespace sablequill {

// Each measures one row, or the rows that are measured together, and adds them to the table.

void measureStartup(Stage& stage, Table& table);
void measureMemory(Stage& stage, Table& table);
void measureIdling(Stage& stage, Table& table);
void measureToggle(Stage& stage, Table& table);
void measureNextNote(Stage& stage, Table& table);
void measureTyping(Stage& stage, Table& table);
void measureLargeNote(Stage& stage, Table& table);
void measureInlineMarkdown(Stage& stage, Table& table);
void measureFirstShow(Stage& stage, Table& table);
/// Takes many minutes.
void measureEndurance(Stage& stage, Table& table);

} // namespace sablequill
