// SPDX-License-Identifier: MIT
#include "MenuBarView.h"

#include "AppState.h"
#include "Layout.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "PlainButton.h"
#include "Refresh.h"
#include "StorageManager.h"
#include "SymbolView.h"
#include "TextLabel.h"

#include <QBoxLayout>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr int viewWidth = 280;
/// The rest is reached in the Settings window.
constexpr std::size_t shownNotes = 5;
constexpr Backdrop rowBackdrop{Backdrop::Shape::roundedRectangle, {InkRole::clear}, 5, 5};

PlainButton* menuButton(const MenuAction& action)
{
    auto* symbol = new SymbolView({action.icon});
    symbol->setFixedWidth(16);
    auto* label =
        padded(insets(12, 5), row(defaultSpacing, {symbol, new TextLabel(action.title), spacer()}));
    return named(action.title, action.title, new PlainButton(label, rowBackdrop, action.run));
}

} // namespace

std::vector<MenuAction> menuActions(
    AppState& appState, std::function<void()> showSettings, std::function<void()> quit)
{
    NotesManager& notes = *appState.notesManager;
    OverlayManager& overlay = *appState.overlayManager;
    return {
        {QStringLiteral("Show Overlay"), QStringLiteral("rectangle.on.rectangle"),
            [&] { overlay.showOverlay(); }},
        {QStringLiteral("Toggle Overlay"), QStringLiteral("eye"), [&] { overlay.toggleOverlay(); }},
        {QStringLiteral("New Note"), QStringLiteral("plus"),
            [&] {
                notes.createNote();
                overlay.quickOpen();
            }},
        {QStringLiteral("Settings…"), QStringLiteral("gearshape"), std::move(showSettings)},
        {QStringLiteral("Quit Sablequill"), QString(), std::move(quit)},
    };
}

/// One of the notes, with a checkmark when it is the selected one.
class NoteRow : public PlainButton {
public:
    explicit NoteRow(std::function<void()> action)
        : NoteRow(new TextLabel(QString(), TextStyles::body),
            new SymbolView({QStringLiteral("checkmark"), TextStyles::caption.size}),
            std::move(action))
    {
    }

    void showNote(const QString& note, bool isSelected)
    {
        title->setText(note);
        setAccessibleName(note);
        setAccessibleDescription(isSelected ? tr("Shown in the overlay") : QString());
        checkmark->setVisible(isSelected);
    }

private:
    NoteRow(TextLabel* title, SymbolView* checkmark, std::function<void()> action)
        : PlainButton(padded(insets(12, 4), row(defaultSpacing, {title, spacer(), checkmark})),
            rowBackdrop, std::move(action))
        , title(title)
        , checkmark(checkmark)
    {
    }

    TextLabel* title;
    SymbolView* checkmark;
};

MenuBarView::MenuBarView(AppState& appState, std::vector<MenuAction> menuActions)
    : appState(appState)
    , notesManager(*appState.notesManager)
    , actions(std::move(menuActions))
{
    setObjectName(QStringLiteral("menuBarView"));
    setAccessibleName(QStringLiteral("Sablequill"));
    setFixedWidth(viewWidth);
    setFocusPolicy(Qt::ClickFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(column(0,
        {
            header(),
            divider(),
            notesSection(),
            divider(),
            actionsSection(),
            divider(),
            footer(),
        },
        HorizontalAlignment::leading));

    auto* refreshing = new Refresh(this, [this] { refresh(); });
    refreshing->observe(&notesManager);
    refreshing->observe(&appState);
    refresh();
}

QWidget* MenuBarView::header()
{
    mirkIndicator = named(QStringLiteral("mirkIndicator"), tr("Mirk mode is on"),
        new SymbolView(
            {QStringLiteral("eye.slash.fill"), TextStyles::caption.size}, {InkRole::green}));
    return padded(insets(12),
        row(defaultSpacing,
            {
                new SymbolView({QStringLiteral("note.text")}),
                new TextLabel(QStringLiteral("Sablequill"), TextStyles::headline),
                spacer(),
                mirkIndicator,
            }));
}

QWidget* MenuBarView::notesSection()
{
    auto* heading = new TextLabel(QStringLiteral("Notes"),
        TextStyles::caption.weighted(QFont::DemiBold), {InkRole::secondary});
    for (std::size_t i = 0; i < shownNotes; ++i) {
        noteRows.push_back(new NoteRow([this, i] { selectNote(i); }));
        noteRows.back()->setObjectName(QStringLiteral("note%1").arg(i));
    }
    overflowText = new TextLabel(QString(), TextStyles::caption2, {InkRole::tertiary});
    overflow = padded({12, 0, 12, 4}, row(0, {overflowText}));
    return padded({0, 0, 0, 8},
        column(4,
            {
                padded({12, 8, 12, 0}, row(0, {heading})),
                noteRows[0],
                noteRows[1],
                noteRows[2],
                noteRows[3],
                noteRows[4],
                overflow,
            },
            HorizontalAlignment::leading));
}

QWidget* MenuBarView::actionsSection()
{
    return padded(insets(0, 6),
        column(2,
            {
                menuButton(actions[0]),
                menuButton(actions[1]),
                menuButton(actions[2]),
                menuButton(actions[3]),
            },
            HorizontalAlignment::leading));
}

QWidget* MenuBarView::footer()
{
    const MenuAction& quit = actions.back();
    auto* text = new TextLabel(quit.title, TextStyles::body, {InkRole::secondary});
    auto* label = padded(insets(10), row(0, {spacer(), text, spacer()}));
    return named(quit.title, quit.title, new PlainButton(label, rowBackdrop, quit.run));
}

void MenuBarView::appear()
{
    appState.overlayManager->ensurePanelCreated(appState);
    refresh();
    setFocus(Qt::OtherFocusReason);
}

void MenuBarView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT escaped();
    else if (event->key() == Qt::Key_Down)
        focusNextPrevChild(true);
    else if (event->key() == Qt::Key_Up)
        focusNextPrevChild(false);
    else
        QWidget::keyPressEvent(event);
}

void MenuBarView::selectNote(std::size_t index)
{
    if (index >= notesManager.notes->size())
        return;
    notesManager.selectedNoteID = notesManager.notes.get()[index].id;
    appState.overlayManager->showOverlay();
}

void MenuBarView::refresh()
{
    mirkIndicator->setVisible(appState.storageManager->settings.mirkModeEnabled);
    const std::vector<MirkpadItem>& notes = notesManager.notes;
    for (std::size_t i = 0; i < shownNotes; ++i) {
        const bool isShown = i < notes.size();
        noteRows[i]->setVisible(isShown);
        if (isShown)
            noteRows[i]->showNote(notes[i].title, notesManager.selectedNoteID.get() == notes[i].id);
    }
    overflow->setVisible(notes.size() > shownNotes);
    if (notes.size() > shownNotes)
        overflowText->setText(
            QStringLiteral("+ %1 more in Settings").arg(notes.size() - shownNotes));
    // While the popover is closed, nothing tells the outer layouts of what the rows need.
    for (QWidget* outer = overflow->parentWidget(); outer != this; outer = outer->parentWidget())
        outer->updateGeometry();
    layout()->activate();
    Q_EMIT heightChanged();
}

} // namespace sablequill
