// SPDX-License-Identifier: MIT
#include "NoteDocument.h"

#include "Ink.h"
#include "TextStyle.h"

#include <QTextCursor>
#include <QTextOption>
#include <QUrl>

namespace sablequill {
namespace {

/// Longer destinations would make a tooltip as wide as the screen.
constexpr qsizetype longestToolTip = 200;

void setFont(QTextCharFormat& format, const RunFont& runFont)
{
    format.setProperty(QTextFormat::FontPixelSize, pixelSize(runFont.size));
    format.setFontWeight(static_cast<int>(runFont.weight));
}

void setIntent(QTextCharFormat& format, std::uint32_t intent)
{
    if (intent & InlinePresentationIntent::emphasized)
        format.setFontItalic(true);
    if (intent & InlinePresentationIntent::strikethrough)
        format.setFontStrikeOut(true);
    if (intent & InlinePresentationIntent::code)
        format.setFontFamilies(monospacedFont({}).families());
}

void setLink(QTextCharFormat& format, const QString& link)
{
    const QString destination = QString::fromLatin1(QUrl(link).toEncoded());
    format.setAnchor(true);
    format.setAnchorHref(link);
    format.setFontUnderline(true);
    format.setForeground(color({InkRole::accent}, Surroundings::dark));
    // Where a link leads is seen before it is followed.
    format.setToolTip(destination.left(longestToolTip).toHtmlEscaped());
}

QTextCharFormat format(const RunAttributes& attributes)
{
    QTextCharFormat format;
    if (attributes.font)
        setFont(format, *attributes.font);
    if (attributes.foregroundColor == SemanticColor::primary)
        format.setForeground(color({InkRole::primary}, Surroundings::dark));
    if (attributes.foregroundColor == SemanticColor::secondary)
        format.setForeground(color({InkRole::secondary}, Surroundings::dark));
    setIntent(format, attributes.inlinePresentationIntent);
    if (!attributes.link.isEmpty())
        setLink(format, attributes.link);
    return format;
}

} // namespace

NoteDocument makeNoteDocument(const AttributedString& note, double fontSize, double padding)
{
    NoteDocument made{
        std::make_unique<QTextDocument>(), ShownText(ShownText::hasManyLines(note.text))};
    QTextDocument& document = *made.document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font({fontSize}));
    document.setDocumentMargin(padding);
    // One edit, and no view yet: appending to a shown document costs ten times as much.
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const Run& run : note.runs)
        cursor.insertText(made.text.append(note.textOf(run)), format(run.attributes));
    cursor.endEditBlock();
    return made;
}

} // namespace sablequill
