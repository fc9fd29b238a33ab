// SPDX-License-Identifier: MIT
#include "GeneralSettingsTab.h"

#include "FormCard.h"
#include "Layout.h"
#include "MirkDescription.h"
#include "Refresh.h"
#include "SettingsViewModel.h"
#include "StepSlider.h"
#include "Switch.h"
#include "TextLabel.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace sablequill {
namespace {

// The sliders' ranges. Opacity in hundredths, so that every step is the double nearest to it.
constexpr int leastOpacity = 40;
constexpr int mostOpacity = 100;
constexpr int opacityStep = 2;
constexpr int leastFontSize = 12;
constexpr int mostFontSize = 28;
constexpr int fontSizeStep = 1;

/// Toward zero; a settings file may hold numbers beyond those of the type.
int truncated(double value)
{
    constexpr double limit = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, -limit, limit));
}

QString percentage(double opacity)
{
    return QStringLiteral("%1%").arg(truncated(opacity * 100));
}

QString points(double size)
{
    return QStringLiteral("%1 pt").arg(truncated(size));
}

TextLabel* valueLabel(const QString& widest)
{
    auto* label = new TextLabel(QString(), TextStyles::body, {InkRole::secondary});
    label->setMonospacedDigits();
    label->reserve(widest);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QWidget* group(const QString& label, TextLabel* value, StepSlider* slider)
{
    return column(6, {row(defaultSpacing, {new TextLabel(label), spacer(), value}), slider},
        HorizontalAlignment::leading);
}

} // namespace

GeneralSettingsTab::GeneralSettingsTab(SettingsViewModel& viewModel, MirkProtection& mirkProtection)
    : viewModel(viewModel)
    , mirkProtection(mirkProtection)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(groupedForm({
        new FormCard({
            opacityGroup(),
            fontSizeGroup(),
        }),
        new FormCard({
            toggle(QStringLiteral("Always on top"), viewModel.alwaysOnTop),
            toggle(QStringLiteral("Launch at login"), viewModel.launchAtStartup),
            mirkToggle = toggle(
                QStringLiteral("Mirk mode (hide from recordings)"), viewModel.mirkModeEnabled),
        }),
    }));

    const auto refreshAll = [this] {
        for (const auto& refresh : refreshers)
            refresh();
    };
    auto* refreshing = new Refresh(this, refreshAll);
    refreshing->observe(&viewModel);
    refreshAll();
    auto* describing = new Refresh(this, [this] { describeMirkMode(); });
    describing->observe(&mirkProtection);
    describeMirkMode();
}

QWidget* GeneralSettingsTab::opacityGroup()
{
    auto* value = valueLabel(percentage(1));
    auto* slider = named(QStringLiteral("opacity"), QStringLiteral("Opacity"),
        new StepSlider(leastOpacity, mostOpacity, opacityStep));
    connect(slider, &StepSlider::valueChanged, this, [this, slider, value](int hundredths) {
        viewModel.opacity = slider->nearestStep(hundredths) / 100.0;
        value->setText(percentage(viewModel.opacity));
        viewModel.persist();
    });
    refreshers.emplace_back([this, slider, value] {
        const QSignalBlocker silently(slider);
        slider->setValue(slider->nearestStep(viewModel.opacity * 100));
        slider->update();
        value->setText(percentage(viewModel.opacity));
    });
    return group(QStringLiteral("Opacity"), value, slider);
}

QWidget* GeneralSettingsTab::fontSizeGroup()
{
    auto* value = valueLabel(points(28));
    auto* slider = named(QStringLiteral("fontSize"), QStringLiteral("Font Size"),
        new StepSlider(leastFontSize, mostFontSize, fontSizeStep));
    connect(slider, &StepSlider::valueChanged, this, [this, value](int size) {
        viewModel.fontSize = size;
        value->setText(points(viewModel.fontSize));
        viewModel.persist();
    });
    refreshers.emplace_back([this, slider, value] {
        const QSignalBlocker silently(slider);
        slider->setValue(slider->nearestStep(viewModel.fontSize));
        slider->update();
        value->setText(points(viewModel.fontSize));
    });
    return group(QStringLiteral("Font Size"), value, slider);
}

QWidget* GeneralSettingsTab::toggle(const QString& label, Published<bool>& value)
{
    auto* control = named(label, label, new Switch);
    connect(control, &Switch::toggled, this, [this, &value](bool isOn) {
        value = isOn;
        viewModel.persist();
    });
    refreshers.emplace_back([control, &value] {
        const QSignalBlocker silently(control);
        if (control->isChecked() != value)
            control->setChecked(value);
    });
    return row(defaultSpacing, {new TextLabel(label), spacer(), control});
}

void GeneralSettingsTab::describeMirkMode()
{
    const QString description = mirkDescription(mirkProtection.effect);
    auto* control = mirkToggle->findChild<Switch*>();
    control->setToolTip(description);
    control->setAccessibleDescription(description);
    // The label is as good a place to point at.
    mirkToggle->setToolTip(description);
}

} // namespace sablequill
