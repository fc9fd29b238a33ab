// SPDX-License-Identifier: MIT
#pragma once

#include "Published.h"

#include <QWidget>

#include <functional>

namespace sablequill {

class SettingsViewModel;

/// Opacity, font size and three switches. Every change of a control is saved and applied at once.
class GeneralSettingsTab : public QWidget {
    Q_OBJECT

public:
    /// The view model outlives the view.
    explicit GeneralSettingsTab(SettingsViewModel& viewModel);

    /// What a tooltip and a screen reader say of Mirk mode beside its being on or off.
    void setMirkDescription(const QString& description);

private:
    QWidget* opacityGroup();
    QWidget* fontSizeGroup();
    QWidget* toggle(const QString& label, Published<bool>& value);

    SettingsViewModel& viewModel;
    QWidget* mirkToggle = nullptr;
    /// Brings each control to what the view model holds.
    std::vector<std::function<void()>> refreshers;
};

} // namespace sablequill
