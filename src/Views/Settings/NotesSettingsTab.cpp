// SPDX-License-Identifier: MIT
#include "NotesSettingsTab.h"

#include "Layout.h"
#include "NotesListView.h"
#include "NotesManager.h"
#include "PushButton.h"
#include "TextLabel.h"

#include <QVBoxLayout>

namespace sablequill {

NotesSettingsTab::NotesSettingsTab(NotesManager& noteStore)
    : noteStore(noteStore)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header());
    layout->addWidget(new NotesListView(noteStore));
}

QWidget* NotesSettingsTab::header()
{
    const QString title = QStringLiteral("New Note");
    return padded(insets(defaultPadding),
        row(defaultSpacing,
            {
                new TextLabel(QStringLiteral("Your Notes"), TextStyles::headline),
                spacer(),
                named(title, title,
                    new PushButton(title, PushButton::Style::bordered,
                        PushButton::ControlSize::small, [this] { noteStore.createNote(); })),
            }));
}

} // namespace sablequill
