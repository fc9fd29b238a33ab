// SPDX-License-Identifier: MIT
#pragma once

#include "EditBuffer.h"
#include "EditHistory.h"

#include <QPlainTextEdit>

namespace sablequill {

/// Edits the text of a buffer. The buffer is what counts: the document only shows it and reports
/// what is typed into it.
class NoteEditor : public QPlainTextEdit {
    Q_OBJECT

public:
    static constexpr int padding = 12; ///< points

    /// The buffer outlives the editor.
    explicit NoteEditor(EditBuffer& content);

    /// Shows the buffer's text from the top, with the cursor at its end, and forgets earlier edits.
    /// To be called when something else has set the text.
    void load();

    void undoEdit();
    void redoEdit();

Q_SIGNALS:
    /// The user changed the buffer's text, and the document shows it.
    void edited();

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void takeOver(int position, int removed, int added);
    void recutLongBlock();
    void announceEdit();
    void replaceSelection(const QString& text);
    void make(const TextEdit& edit);
    void showEdit(const ShownEdit& edit);
    void stepOverSoftBreak(const QKeyEvent& event);

    EditBuffer& content;
    EditHistory history;
    /// What the document is told to show is no news to the buffer.
    bool isShowing = false;
    /// Taken over while the document still showed what was before.
    bool isEditNew = false;
};

} // namespace sablequill
