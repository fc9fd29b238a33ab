// SPDX-License-Identifier: MIT
#pragma once

#include "Published.h"

#include <QWidget>

#include <functional>

namespace sablequill {

class MirkProtection;
class SettingsViewModel;

/// Opacity, font size and three switches. Every change of a control is saved and applied at once.
class GeneralSettingsTab : public QWidget {
    Q_OBJECT

public:
    /// Both outlive the view.
    GeneralSettingsTab(SettingsViewModel& viewModel, MirkProtection& mirkProtection);

private:
    QWidget* opacityGroup();
    QWidget* fontSizeGroup();
    QWidget* toggle(const QString& label, Published<bool>& value);
    void describeMirkMode();

    SettingsViewModel& viewModel;
    MirkProtection& mirkProtection;
    QWidget* mirkToggle = nullptr;
    /// Brings each control to what the view model holds.
    std::vector<std::function<void()>> refreshers;
};

} // namespace sablequill
