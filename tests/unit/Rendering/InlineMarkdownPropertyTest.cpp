// SPDX-License-Identifier: MIT
#include "HostileMarkdown.h"
#include "InlineMarkdown.h"
#include "MarkdownParser.h"
#include "MarkdownParserPrivate.h"
#include "RunPieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using test::Piece;
using test::Pieces;

constexpr std::uint32_t allIntents = InlinePresentationIntent::emphasized
    | InlinePresentationIntent::stronglyEmphasized | InlinePresentationIntent::code
    | InlinePresentationIntent::strikethrough | InlinePresentationIntent::inlineHTML;

QString without(const QString& text, const QString& characters)
{
    QString rest;
    std::copy_if(text.begin(), text.end(), std::back_inserter(rest),
        [&](QChar character) { return !characters.contains(character); });
    return rest;
}

bool isSubsequence(const QString& part, const QString& whole)
{
    auto next = whole.begin();
    for (const QChar character : part) {
        next = std::find(next, whole.end(), character);
        if (next == whole.end())
            return false;
        ++next;
    }
    return true;
}

/// What holds of every reading of every text.
void expectWellBuilt(const AttributedString& string)
{
    const Pieces pieces = test::pieces(string);
    const Piece* before = nullptr;
    for (const Piece& piece : pieces) {
        EXPECT_FALSE(piece.text.isEmpty());
        EXPECT_TRUE(piece.text.isValidUtf16());
        EXPECT_EQ(piece.attributes.inlinePresentationIntent & ~allIntents, 0U);
        EXPECT_TRUE(!before || piece.attributes != before->attributes);
        before = &piece;
    }
}

class RandomText {
public:
    explicit RandomText(const QString& alphabet)
        : alphabet(alphabet)
    {
    }

    QString next()
    {
        QString text;
        for (auto count = random() % 40; count > 0; --count)
            text += alphabet.at(static_cast<qsizetype>(random()) % alphabet.size());
        return text;
    }

private:
    QString alphabet;
    std::mt19937 random{1};
};

constexpr int rounds = 20000;
const QString marks = u"*_~`[]()<>!\\&;"_s;

/// Letters and line breaks go only into destinations and titles.
TEST(InlineMarkdownProperty, read_randomMarks_keepsLettersAndBreaksInOrder)
{
    RandomText texts(marks + u" \n\r\t\fab"_s);
    for (int round = 0; round < rounds; ++round) {
        const QString text = texts.next();
        const auto string = InlineMarkdown::read(text);
        ASSERT_TRUE(string);
        expectWellBuilt(*string);
        const QString typed = without(text, marks + u' ');
        const QString kept = without(string->text, marks + u' ');
        ASSERT_TRUE(isSubsequence(kept, typed)) << text.toStdString();
        if (!text.contains(u"]("_s)) {
            ASSERT_EQ(kept, typed) << text.toStdString();
        }
    }
}

/// Without code spans and destinations no white space is touched, at the ends neither.
TEST(InlineMarkdownProperty, read_randomWhitespace_keepsAllOfIt)
{
    RandomText texts(u"*_~[]<>!\\&;  \n\r\t\f\v\u2000\u205F\u3000ab"_s);
    for (int round = 0; round < rounds; ++round) {
        const QString text = texts.next();
        ASSERT_EQ(without(InlineMarkdown::read(text)->text, marks), without(text, marks))
            << text.toStdString();
    }
}

/// No mark, no change.
TEST(InlineMarkdownProperty, read_randomPlainText_isOneRun)
{
    RandomText texts(u"ab.,#-+=|>'\"(){}1  \n\r\t\f\v\u2000\u00e9\u2028"_s);
    for (int round = 0; round < rounds; ++round) {
        const QString text = texts.next();
        const Pieces pieces = test::pieces(*InlineMarkdown::read(text));
        ASSERT_EQ(pieces, text.isEmpty() ? Pieces{} : Pieces{{text}});
    }
}

TEST(InlineMarkdownProperty, attributedString_randomMarks_fontFollowsStrongAlone)
{
    RandomText texts(marks + u" \nab"_s);
    for (int round = 0; round < rounds; ++round) {
        const QString text = texts.next();
        AttributedString string = MarkdownParser::attributedString(text, 16);
        AttributedString unstyled = *InlineMarkdown::read(text);
        ASSERT_EQ(string.runs.size(), unstyled.runs.size());
        for (std::size_t i = 0; i < string.runs.size(); ++i) {
            RunAttributes& attributes = unstyled.runs[i].attributes;
            const bool isStrong = (attributes.inlinePresentationIntent & 2U) != 0;
            attributes.font = RunFont{16, isStrong ? FontWeight::bold : FontWeight::regular};
        }
        ASSERT_EQ(string, unstyled);
        MarkdownParser::applyTypography(string, 16);
        ASSERT_EQ(string, unstyled);
    }
}

/// The fallback loses pairs of asterisks, and nothing else of lines that are no heading or bullet.
TEST(InlineMarkdownProperty, manualParse_randomStars_keepsAllElse)
{
    RandomText texts(u"**_`a b\n"_s);
    for (int round = 0; round < rounds; ++round) {
        const QString text = u"|"_s + texts.next().replace(u'\n', u"\n|"_s);
        const AttributedString string = MarkdownParser::manualParse(text, 16);
        expectWellBuilt(string);
        ASSERT_EQ(without(string.text, u"*"_s), without(text, u"*"_s));
    }
}

} // namespace

namespace test {

std::ostream& operator<<(std::ostream& out, const HostileMarkdown& row)
{
    return out << row.name;
}

} // namespace test

namespace {

class HostileMarkdown : public testing::TestWithParam<test::HostileMarkdown> { };

/// Ends in time (the runner's limit) and keeps what is no mark.
TEST_P(HostileMarkdown, read_longText_endsAndKeepsTheLetters)
{
    const QString text = GetParam().text(200'000);
    const auto string = InlineMarkdown::read(text);
    ASSERT_TRUE(string);
    expectWellBuilt(*string);
    const QString ignored = marks + u" @:/?\"'"_s;
    const QString kept = without(string->text, ignored);
    ASSERT_TRUE(isSubsequence(kept, without(text, ignored)));
    if (!text.contains(u"]("_s)) {
        ASSERT_EQ(kept, without(text, ignored));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, HostileMarkdown, testing::ValuesIn(test::hostileMarkdown),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sablequill
