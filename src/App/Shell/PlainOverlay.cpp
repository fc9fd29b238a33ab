// SPDX-License-Identifier: MIT
#include "PlainOverlay.h"

#include "AppState.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "Refresh.h"

#include <QPainter>
#include <QPlainTextEdit>
#include <QSignalBlocker>

namespace sablequill {

PlainOverlay::PlainOverlay(AppState& appState)
    : appState(appState)
    , text(new QPlainTextEdit(this))
{
    QPalette palette = text->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, QColor(255, 255, 255, 217));
    text->setPalette(palette);
    text->setFrameShape(QFrame::NoFrame);
    connect(text, &QPlainTextEdit::textChanged, this, &PlainOverlay::write);
    auto* refreshing = new Refresh(this, [this] { refresh(); });
    refreshing->observe(appState.notesManager.get());
    refreshing->observe(appState.overlayManager.get());
    refresh();
}

void PlainOverlay::setComposited(bool next)
{
    isComposited = next;
    resizeEvent(nullptr);
    update();
}

QRect PlainOverlay::card() const
{
    return isComposited ? rect().marginsRemoved(shadowReach()) : rect();
}

void PlainOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, isComposited ? 184 : 255));
    painter.drawRoundedRect(card(), cornerRadius(), cornerRadius());
}

void PlainOverlay::resizeEvent(QResizeEvent*)
{
    text->setGeometry(card().adjusted(14, 45, -14, -40));
}

void PlainOverlay::refresh()
{
    const bool isEditing = appState.overlayManager->isEditing;
    const MirkpadItem* note = appState.notesManager->selectedNote();
    const QString content = note ? note->content : QString();
    if (content != text->toPlainText()) {
        const QSignalBlocker silently(text);
        text->setPlainText(content);
    }
    text->setReadOnly(!isEditing);
    if (isEditing)
        text->setFocus();
}

void PlainOverlay::write()
{
    if (const auto id = appState.notesManager->selectedNoteID.get())
        appState.notesManager->updateContent(*id, text->toPlainText());
}

} // namespace sablequill
