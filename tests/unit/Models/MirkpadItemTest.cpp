// SPDX-License-Identifier: MIT
#include "MirkpadItem.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

QString previewOf(const QString& content)
{
    return MirkpadItem{.content = content}.preview();
}

TEST(MirkpadItem, defaults_freshIdAndCurrentTimes)
{
    const Timestamp before = currentTime();
    const MirkpadItem item;
    const Timestamp after = currentTime();
    EXPECT_FALSE(item.id.isNull());
    EXPECT_NE(item.id, MirkpadItem{}.id);
    EXPECT_EQ(item.title, u"Untitled"_s);
    EXPECT_EQ(item.content, u""_s);
    EXPECT_LE(before, item.createdAt);
    EXPECT_LE(item.createdAt, item.updatedAt);
    EXPECT_LE(item.updatedAt, after);
}

TEST(MirkpadItem, oneFieldChanged_unequalWithAnotherHash)
{
    const MirkpadItem item{.title = u"a"_s, .content = u"b"_s};
    const std::hash<MirkpadItem> hash;
    MirkpadItem copy = item;
    EXPECT_EQ(copy, item);
    EXPECT_EQ(hash(copy), hash(item));

    std::vector<MirkpadItem> changed(5, item);
    changed[0].id = QUuid::createUuid();
    changed[1].title = u"c"_s;
    changed[2].content = u"c"_s;
    changed[3].createdAt += 1us;
    changed[4].updatedAt += 1us;
    for (const MirkpadItem& other : changed) {
        EXPECT_NE(other, item);
        EXPECT_NE(hash(other), hash(item));
    }
}

TEST(Preview, onlyWhitespace_emptyNote)
{
    EXPECT_EQ(previewOf(u""_s), u"Empty note"_s);
    EXPECT_EQ(previewOf(u"  \n\n "_s), u"Empty note"_s);
    EXPECT_EQ(previewOf(u"\t\r\n\u2028\u2029\u0085\u00a0\u3000"_s), u"Empty note"_s);
}

TEST(Preview, severalLines_joinedBySpacesWithTheirMarkers)
{
    EXPECT_EQ(previewOf(u"## Heading\nsecond **line**"_s), u"## Heading second **line**"_s);
    EXPECT_EQ(previewOf(u"\n a\n\nb \n"_s), u"a  b"_s);
}

TEST(Preview, otherLineSeparators_stay)
{
    EXPECT_EQ(previewOf(u"a\r\nb\u2028c\vd"_s), u"a\r b\u2028c\vd"_s);
}

TEST(Preview, longContent_cutTo80WithoutAMark)
{
    EXPECT_EQ(previewOf(QString(200, u'x')), QString(80, u'x'));
    EXPECT_EQ(previewOf(QString(80, u'x')), QString(80, u'x'));
    EXPECT_EQ(previewOf(u"  "_s + QString(2'000'000, u'x')), QString(80, u'x'));
}

TEST(Preview, characters_areGraphemeClusters)
{
    const QString family = u"👩‍👩‍👧‍👦"_s;
    EXPECT_EQ(previewOf(family.repeated(200)), family.repeated(80));
    const QString stacked = u"e"_s + QString(60, QChar(0x0301));
    EXPECT_EQ(previewOf(stacked.repeated(200)), stacked.repeated(80));
}

TEST(Preview, everyLengthAroundTheWindow_sameAsForTheWholeText)
{
    const QString cluster = u"e"_s + QString(15, QChar(0x0301));
    for (int extra = 0; extra < 64; ++extra) {
        const QString first = u"e"_s + QString(15 + extra, QChar(0x0301));
        EXPECT_EQ(previewOf(first + cluster.repeated(100)), first + cluster.repeated(79));
    }
}

TEST(Preview, spaceForLineFeed_takesTheMarkThatFollows)
{
    // A mark never joins a line feed, but it does join the space that takes its place.
    const QString content = QString(78, u'x') + u"\n\u0301yz"_s;
    EXPECT_EQ(previewOf(content), QString(78, u'x') + u" \u0301y"_s);
}

} // namespace
} // namespace sablequill
