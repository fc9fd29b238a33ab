// SPDX-License-Identifier: MIT
#include "NoteEditor.h"
#include "NoteTextView.h"

#include "Ink.h"
#include "Widgets.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <ctime>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

struct TextRow {
    const char* name;
    QString unit; ///< Repeated to the length that is wanted.
};

void PrintTo(const TextRow& row, std::ostream* stream) // NOLINT(readability-identifier-naming)
{
    *stream << row.name;
}

const TextRow texts[] = {
    {"prose", u"The quick brown fox jumps over the lazy dog. "_s},
    {"lines", u"The quick brown fox jumps over the lazy dog\n"_s},
    {"short_lines", u"a\n"_s},
    {"only_line_breaks", u"\n"_s},
    {"windows_line_breaks", u"line\r\n"_s},
    {"one_word", u"a"_s},
    {"hebrew_word", u"\u05D0"_s},
    {"both_directions", u"abc \u0627\u0628 "_s},
    {"marks", u"\u0301"_s},
    {"emoji", QString::fromUcs4(U"\U0001F600")},
    {"nul", QString(QChar())},
    {"embedded_objects", u"\uFFFC"_s},
    {"tabs", u"\t"_s},
    {"line_separators", u"\u2028"_s},
    {"overrides", u"\u202E"_s},
    {"spaces", u" "_s},
};

/// Seconds of processor time, so that what else runs on the machine does not count.
template <typename Action> double secondsOf(Action&& action)
{
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

class LargeNoteTest : public testing::TestWithParam<TextRow> {
protected:
    LargeNoteTest()
    {
        window.setPalette(paletteFor(Surroundings::dark));
        window.resize(420, 200);
    }

    static QString text(qsizetype length)
    {
        return GetParam().unit.repeated(length / GetParam().unit.size());
    }

    void host(QWidget* widget)
    {
        widget->setParent(&window);
        widget->resize(window.size());
        present(window);
    }

    QWidget window;
};

struct SizeRow {
    qsizetype length;
    double limit; ///< Seconds that the window may not answer.
};
constexpr SizeRow sizes[] = {{100'000, 0.3}, {1'000'000, 1.0}};

TEST_P(LargeNoteTest, reading_anyText_keepsTheWindowAnswering)
{
    NoteTextView view;
    host(&view);
    for (const auto& [length, limit] : sizes) {
        AttributedString note;
        note.append(text(length));
        const auto show = [&] {
            view.showNote(note, 16, false);
            view.viewport()->repaint();
        };
        EXPECT_LT(secondsOf(show), limit);
        for (const QSize size : {QSize(500, 250), QSize(420, 200)}) {
            const auto resize = [&] {
                view.resize(size);
                view.viewport()->repaint();
            };
            EXPECT_LT(secondsOf(resize), limit);
        }
        EXPECT_LT(secondsOf(turn), limit);
    }
    view.setParent(nullptr);
}

TEST_P(LargeNoteTest, editing_anyText_keepsTheWindowAnswering)
{
    EditBuffer content;
    NoteEditor editor(content);
    host(&editor);
    editor.setFocus();
    const auto typeKey = [&] {
        QTest::keyClick(&editor, Qt::Key_X);
        turn();
    };
    for (const auto& [length, limit] : sizes) {
        content.setText(text(length));
        const auto load = [&] {
            editor.load();
            editor.viewport()->repaint();
        };
        EXPECT_LT(secondsOf(load), limit);
        editor.moveCursor(QTextCursor::Start);
        EXPECT_LT(secondsOf(typeKey), limit);
        editor.moveCursor(QTextCursor::End);
        EXPECT_LT(secondsOf(typeKey), limit);
        EXPECT_TRUE(content.text() == u"x"_s + text(length) + u"x"_s);
    }
    editor.setParent(nullptr);
}

TEST_P(LargeNoteTest, pasting_anyText_keepsTheWindowAnswering)
{
    EditBuffer content;
    NoteEditor editor(content);
    host(&editor);
    editor.setFocus();
    for (const auto& [length, limit] : sizes) {
        content.setText({});
        editor.load();
        QGuiApplication::clipboard()->setText(text(length));
        const auto paste = [&] {
            QTest::keySequence(&editor, QKeySequence(QKeySequence::Paste));
            turn();
        };
        EXPECT_LT(secondsOf(paste), limit);
        EXPECT_FALSE(content.text().isEmpty());
    }
    editor.setParent(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Texts, LargeNoteTest, testing::ValuesIn(texts),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sablequill
