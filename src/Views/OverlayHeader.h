// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <optional>

namespace sablequill {

class MirkProtection;
class PlainButton;
class SymbolView;
class TextLabel;

/// The top of the overlay: the note's title, whether Mirk mode is on, and the buttons that switch
/// between reading and editing and hide the overlay.
class OverlayHeader : public QWidget {
    Q_OBJECT

public:
    /// What the desktop does for Mirk mode outlives the header.
    explicit OverlayHeader(MirkProtection& mirkProtection);

    /// What the header says.
    struct Content {
        QString title;
        bool mirkModeEnabled = false;
        bool isEditing = false;

        bool operator==(const Content&) const = default;
    };
    void showContent(const Content& content);

    bool isHoveringHeader() const { return hovering; }

Q_SIGNALS:
    void editingToggled();
    void hideRequested();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeMirkBadge();
    PlainButton* overlayControlButton(const QString& icon, std::function<void()> action);
    void describeMirkMode();
    void setHovering(bool isHovering);

    MirkProtection& mirkProtection;
    std::optional<Content> shown;
    SymbolView* mirkSymbol;
    TextLabel* title;
    QWidget* mirkBadge;
    PlainButton* editButton;
    bool hovering = false;
};

} // namespace sablequill
