// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <vector>

class QStackedWidget;

namespace sablequill {

class AppState;
class SettingsViewModel;
class TabButton;

/// Four tabs on one view model.
class SettingsRootView : public QWidget {
    Q_OBJECT

public:
    /// Both outlive the view.
    SettingsRootView(SettingsViewModel& viewModel, AppState& appState);

    int currentTab() const;
    void setCurrentTab(int tab);

private:
    void addTab(const QString& label, const QString& icon, QWidget* content);
    QWidget* tabBar();
    void addTabKeys();

    std::vector<TabButton*> tabs;
    QStackedWidget* contents = nullptr;
};

/// The content of the Settings window: always on the one view model of the application state.
class SettingsView : public QWidget {
public:
    /// The application state outlives the view.
    explicit SettingsView(AppState& appState);
};

} // namespace sablequill
