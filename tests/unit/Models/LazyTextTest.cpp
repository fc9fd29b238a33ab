// SPDX-License-Identifier: MIT
#include "LazyText.h"

#include "MirkpadItem.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace sablequill;
using namespace Qt::StringLiterals;

namespace {

/// A text in a buffer of its own, and whether that buffer is still kept.
struct Buffered {
    explicit Buffered(std::string utf8)
    {
        const auto buffer = std::make_shared<const std::string>(std::move(utf8));
        kept = buffer;
        text = LazyText(*buffer, buffer);
    }

    std::weak_ptr<const std::string> kept;
    LazyText text;
};

} // namespace

TEST(LazyText, text_ofNothing_empty)
{
    EXPECT_TRUE(LazyText().text().isEmpty());
    EXPECT_EQ(LazyText(), LazyText(QString()));
    EXPECT_EQ(LazyText(), LazyText(QString(u""_s)));
}

TEST(LazyText, text_ofString_thatString)
{
    EXPECT_EQ(LazyText(u"Grüße 😀"_s).text(), u"Grüße 😀"_s);
}

TEST(LazyText, text_ofBytes_decoded)
{
    EXPECT_EQ(Buffered("Grüße 😀").text.text(), u"Grüße 😀"_s);
}

TEST(LazyText, text_beginningWithByteOrderMark_keepsIt)
{
    EXPECT_EQ(Buffered("\xEF\xBB\xBFx").text.text(), u"\uFEFFx"_s);
}

TEST(LazyText, text_asked_letsTheBufferGo)
{
    const Buffered buffered("a");
    EXPECT_FALSE(buffered.kept.expired());
    buffered.text.text();
    EXPECT_TRUE(buffered.kept.expired());
}

TEST(LazyText, copies_oneIsAsked_allAreDecoded)
{
    Buffered buffered("a");
    const LazyText copy = buffered.text;
    EXPECT_EQ(copy.text(), u"a"_s);
    EXPECT_TRUE(buffered.kept.expired());
    EXPECT_EQ(buffered.text.text().constData(), copy.text().constData());
}

TEST(LazyText, isCopyOf_copiesOnly)
{
    const LazyText text(u"a"_s);
    const LazyText copy = text;
    EXPECT_TRUE(copy.isCopyOf(text));
    EXPECT_FALSE(LazyText(u"a"_s).isCopyOf(text));
}

TEST(LazyText, equality_comparesTheTexts)
{
    EXPECT_EQ(Buffered("a").text, LazyText(u"a"_s));
    EXPECT_NE(Buffered("a").text, LazyText(u"b"_s));
    EXPECT_NE(Buffered("a").text, LazyText());
    EXPECT_EQ(Buffered("a").text, u"a"_s);
}

TEST(LazyText, equality_ofCopies_leavesThemUndecoded)
{
    const Buffered buffered("a");
    const LazyText copy = buffered.text;
    EXPECT_EQ(copy, buffered.text);
    EXPECT_FALSE(buffered.kept.expired());
}

TEST(LazyText, noteFromFile_outlivesTheFilesBytes)
{
    QByteArray json = R"([{"id":"0B6C2D5E-0000-4000-8000-000000000000","title":"t","content":"a\nb",
        "createdAt":"2026-01-31T09:15:00Z","updatedAt":"2026-01-31T09:15:00Z"}])";
    const auto notes = decodeNotes(json);
    ASSERT_TRUE(notes);
    json.fill('x');
    EXPECT_EQ(notes->at(0).content.text(), u"a\nb"_s);
}
