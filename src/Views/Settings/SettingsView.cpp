// SPDX-License-Identifier: MIT
#include "SettingsView.h"

#include "AboutSettingsTab.h"
#include "AppState.h"
#include "GeneralSettingsTab.h"
#include "Layout.h"
#include "NotesSettingsTab.h"
#include "ShortcutsSettingsTab.h"
#include "TabButton.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace sablequill {
namespace {

constexpr QSize viewSize(520, 420);

} // namespace

SettingsRootView::SettingsRootView(SettingsViewModel& viewModel, AppState& appState)
    : contents(new QStackedWidget)
{
    setFixedSize(viewSize);
    addTab(QStringLiteral("General"), QStringLiteral("slider.horizontal.3"),
        new GeneralSettingsTab(viewModel, appState.mirkProtection));
    addTab(QStringLiteral("Notes"), QStringLiteral("note.text"),
        new NotesSettingsTab(*appState.notesManager));
    addTab(QStringLiteral("Shortcuts"), QStringLiteral("command"),
        new ShortcutsSettingsTab(viewModel, appState));
    addTab(QStringLiteral("About"), QStringLiteral("info.circle"), new AboutSettingsTab);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tabBar());
    layout->addWidget(divider());
    layout->addWidget(contents);
    setCurrentTab(0);
    addTabKeys();
}

void SettingsRootView::addTab(const QString& label, const QString& icon, QWidget* content)
{
    const int tab = contents->addWidget(content);
    content->setObjectName(label);
    tabs.push_back(new TabButton(label, icon, [this, tab] { setCurrentTab(tab); }));
}

QWidget* SettingsRootView::tabBar()
{
    return padded(insets(8, 6), row(2, {spacer(), tabs[0], tabs[1], tabs[2], tabs[3], spacer()}));
}

int SettingsRootView::currentTab() const
{
    return contents->currentIndex();
}

void SettingsRootView::setCurrentTab(int tab)
{
    contents->setCurrentIndex(tab);
    for (int i = 0; i < static_cast<int>(tabs.size()); ++i)
        tabs[static_cast<std::size_t>(i)]->setChecked(i == tab);
}

void SettingsRootView::addTabKeys()
{
    // Shortcuts, as a slider and a list take the page keys with any modifier.
    const int count = contents->count();
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this,
        [this, count] { setCurrentTab((currentTab() + 1) % count); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this,
        [this, count] { setCurrentTab((currentTab() + count - 1) % count); });
}

SettingsView::SettingsView(AppState& appState)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(new SettingsRootView(*appState.settingsViewModel, appState));
}

} // namespace sablequill
