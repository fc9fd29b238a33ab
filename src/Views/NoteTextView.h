// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"
#include "NoteDocument.h"

#include <QTextBrowser>

#include <functional>
#include <optional>

namespace sablequill {

/// A styled note to read: scrolled, selected, copied and its links followed, but not edited. Loads
/// nothing from anywhere.
class NoteTextView : public QTextBrowser {
    Q_OBJECT

public:
    static constexpr double padding = 14; ///< points

    NoteTextView();

    /// Builds the whole note anew and shows it from the top, or from where it was scrolled to.
    void showNote(const AttributedString& note, double fontSize, bool keepsPosition);

    /// Shows nothing until the next note, which can still be shown from where this one was scrolled
    /// to. A long note is laid out for a while after it was shown, in steps of some 50 ms.
    void dropNote();

    /// Follows a link that `mayOpen`; the desktop's handler unless set otherwise.
    std::function<void(const QUrl&)> openLink;

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void swapIn(NoteDocument made);
    void follow(const QUrl& link);
    bool hasTextAt(QPoint position) const;

    ShownText shown;
    std::optional<int> droppedPosition;
    FocusRing ring{this};
    bool leavesPressToWindow = false;
};

} // namespace sablequill
