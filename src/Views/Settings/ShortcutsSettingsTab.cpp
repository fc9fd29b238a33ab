// SPDX-License-Identifier: MIT
#include "ShortcutsSettingsTab.h"

#include "AppState.h"
#include "FormCard.h"
#include "HotkeyManager.h"
#include "Layout.h"
#include "PushButton.h"
#include "Refresh.h"
#include "SettingsViewModel.h"
#include "TextLabel.h"

#include <QVBoxLayout>

#include <algorithm>

namespace sablequill {
namespace {

/// Between the edges of the tab and the text in its cards.
constexpr int textWidth = 520 - 2 * (20 + 10 + 1);

const QString heldByDesktop =
    QStringLiteral("The desktop holds these keys. Change them in its own settings.");

QWidget* caption()
{
    auto* label =
        new TextLabel(QStringLiteral("Global shortcuts work system-wide. Toggle overlay: ⌘⇧G · "
                                     "Quick open: ⌘⇧O · Previous/Next note: ⌘⇧↑/↓"),
            TextStyles::caption, {InkRole::secondary}, TextLabel::Lines::many);
    // Wrapped after the first shortcut, not inside of the name of the last.
    const qsizetype firstLine = label->text().indexOf(u'·') + 1;
    const int width = label->fontMetrics().horizontalAdvance(label->text().first(firstLine)) + 1;
    label->wrapAt(std::min(width, textWidth));
    return row(0, {label, spacer()});
}

} // namespace

ShortcutsSettingsTab::ShortcutsSettingsTab(SettingsViewModel& viewModel, AppState& appState)
    : viewModel(viewModel)
    , appState(appState)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(groupedForm({
        new FormCard({
            shortcutRow(HotkeyAction::toggleOverlay),
            shortcutRow(HotkeyAction::quickOpen),
            shortcutRow(HotkeyAction::nextNote),
            shortcutRow(HotkeyAction::previousNote),
        }),
        new FormCard({
            resetRow(),
        }),
        new FormCard({
            caption(),
        }),
    }));

    auto* refreshing = new Refresh(this, [this] { refresh(); });
    refreshing->observe(&viewModel);
    refresh();
    auto* following = new Refresh(this, [this] { refreshHolder(); });
    following->observe(&appState.hotkeyManager->holder());
    refreshHolder();
}

QWidget* ShortcutsSettingsTab::shortcutRow(HotkeyAction action)
{
    auto* binding = new TextLabel(QString(), TextStyles::body, {InkRole::secondary});
    binding->setMonospacedDigits();
    binding->setObjectName(rawValue(action));
    bindings[action] = binding;
    rows.push_back(row(defaultSpacing, {new TextLabel(displayName(action)), spacer(), binding}));
    return rows.back();
}

QWidget* ShortcutsSettingsTab::resetRow()
{
    const QString title = QStringLiteral("Reset to Defaults");
    const auto reset = [this] {
        viewModel.resetShortcuts();
        appState.hotkeyManager->registerHotkeys();
    };
    return row(defaultSpacing,
        {
            named(title, title,
                new PushButton(
                    title, PushButton::Style::bordered, PushButton::ControlSize::regular, reset)),
            spacer(),
        });
}

void ShortcutsSettingsTab::refresh()
{
    const auto& shortcuts = viewModel.shortcuts.get();
    for (const auto& [action, label] : bindings) {
        const auto found = shortcuts.find(action);
        label->setText(
            found == shortcuts.end() ? QStringLiteral("—") : found->second.displayString());
    }
}

void ShortcutsSettingsTab::refreshHolder()
{
    const bool isDesktop = appState.hotkeyManager->holder().isDesktop;
    const QString description = isDesktop ? heldByDesktop : QString();
    for (QWidget* line : rows)
        line->setToolTip(description);
    for (const auto& [action, label] : bindings)
        label->setAccessibleDescription(description);
}

} // namespace sablequill
