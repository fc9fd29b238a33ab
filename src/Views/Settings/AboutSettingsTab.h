// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace sablequill {

/// What the program is.
class AboutSettingsTab : public QWidget {
public:
    AboutSettingsTab();
};

} // namespace sablequill
