// SPDX-License-Identifier: MIT
//
// text_document FILE: the microseconds that a bare document takes to load the styled runs of a note
// and to lay them out, at the width of the overlay's text; the least of some runs.
#include "MarkdownParser.h"
#include "Timing.h"

#include <QFile>
#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>

#include <iostream>

namespace {

constexpr double fontSize = 16;
constexpr double textWidth = 420;

QTextCharFormat format(const sablequill::RunAttributes& attributes)
{
    QTextCharFormat format;
    if (attributes.font)
        format.setFontWeight(static_cast<int>(attributes.font->weight));
    format.setFontItalic(
        attributes.inlinePresentationIntent & sablequill::InlinePresentationIntent::emphasized);
    return format;
}

void loadAndLayOut(const sablequill::AttributedString& note)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QFont font;
    font.setPixelSize(static_cast<int>(fontSize));
    document.setDefaultFont(font);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const sablequill::Run& run : note.runs)
        cursor.insertText(note.textOf(run).toString(), format(run.attributes));
    cursor.endEditBlock();
    document.setTextWidth(textWidth);
    // Asking for the size lays everything out.
    document.size();
}

} // namespace

int main(int argc, char* argv[])
{
    QGuiApplication application(argc, argv);
    if (argc != 2)
        return 1;
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QFile::ReadOnly))
        return 1;
    const auto note =
        sablequill::MarkdownParser::attributedString(QString::fromUtf8(file.readAll()), fontSize);
    std::cout << sablequill::leastTime([&] { loadAndLayOut(note); }) << std::endl;
}
