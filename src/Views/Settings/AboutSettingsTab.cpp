// SPDX-License-Identifier: MIT
#include "AboutSettingsTab.h"

#include "Layout.h"
#include "SymbolView.h"
#include "TextLabel.h"

#include <QVBoxLayout>

namespace sablequill {

AboutSettingsTab::AboutSettingsTab()
{
    auto* text = new TextLabel(QStringLiteral("Floating teleprompter for creators.\n"
                                              "Keep your notes visible while presenting."),
        TextStyles::callout, {InkRole::secondary}, TextLabel::Lines::many);
    text->setAlignment(Qt::AlignHCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(padded(insets(defaultPadding),
        column(16,
            {
                padded({0, 24, 0, 0},
                    column(0,
                        {new SymbolView(
                            {QStringLiteral("note.text"), 48}, {InkRole::primary, 0.8})})),
                new TextLabel(
                    QStringLiteral("Sablequill"), TextStyles::title2.weighted(QFont::DemiBold)),
                text,
                spacer(),
            })));
}

} // namespace sablequill
