// SPDX-License-Identifier: MIT
#pragma once

#include "HotkeyAction.h"

#include <QWidget>

#include <map>
#include <vector>

namespace sablequill {

class AppState;
class SettingsViewModel;
class TextLabel;

/// The four bindings, to read, and the way back to the defaults.
class ShortcutsSettingsTab : public QWidget {
    Q_OBJECT

public:
    /// Both outlive the view.
    ShortcutsSettingsTab(SettingsViewModel& viewModel, AppState& appState);

private:
    QWidget* shortcutRow(HotkeyAction action);
    QWidget* resetRow();
    void refresh();
    void refreshHolder();

    SettingsViewModel& viewModel;
    AppState& appState;
    std::map<HotkeyAction, TextLabel*> bindings;
    std::vector<QWidget*> rows;
};

} // namespace sablequill
