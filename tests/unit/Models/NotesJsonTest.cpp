// SPDX-License-Identifier: MIT
#include "MirkpadItem.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

constexpr auto record = R"({
    "content": "text",
    "createdAt": "2026-01-31T09:15:00Z",
    "id": "0F0E0D0C-0B0A-4908-8706-050403020100",
    "title": "name",
    "updatedAt": "2026-01-31T10:15:00+00:30"
})";

/// The record with one piece of its text replaced.
QByteArray recordWith(const char* piece, const char* replacement)
{
    QByteArray text(record);
    EXPECT_TRUE(text.contains(piece)) << piece;
    return text.replace(piece, replacement);
}

std::string reasonOf(const QByteArray& json)
{
    const auto notes = decodeNotes(json);
    return notes ? "read" : notes.refusal().reason.toStdString();
}

TEST(DecodeNotes, record_allFields)
{
    const auto notes = decodeNotes("[" + QByteArray(record) + "]");
    ASSERT_TRUE(notes);
    const MirkpadItem expected{
        .id = QUuid::fromString(u"0f0e0d0c-0b0a-4908-8706-050403020100"),
        .title = u"name"_s,
        .content = u"text"_s,
        .createdAt = sys_days{2026y / January / 31} + 9h + 15min,
        .updatedAt = sys_days{2026y / January / 31} + 9h + 45min,
    };
    EXPECT_EQ(*notes, std::vector{expected});
}

TEST(DecodeNotes, emptyArray_emptyList)
{
    const auto notes = decodeNotes("[]");
    ASSERT_TRUE(notes);
    EXPECT_TRUE(notes->empty());
}

TEST(DecodeNotes, byteOrderMark_oneIsSkipped)
{
    EXPECT_TRUE(decodeNotes("\xEF\xBB\xBF []"));
    EXPECT_FALSE(decodeNotes("\xEF\xBB\xBF\xEF\xBB\xBF[]"));
}

TEST(DecodeNotes, manyRecords_fileOrder)
{
    QByteArray json = "[";
    for (int i = 0; i < 50; ++i)
        json += (i > 0 ? "," : "") + recordWith("name", QByteArray::number(i).constData());
    const auto notes = decodeNotes(json + "]");
    ASSERT_TRUE(notes);
    ASSERT_EQ(notes->size(), 50U);
    for (std::size_t i = 0; i < 50; ++i)
        EXPECT_EQ(notes->at(i).title, QString::number(i));
}

TEST(DecodeNotes, equalKeys_theLaterOneCounts)
{
    const auto notes = decodeNotes("["
        + recordWith(R"("title": "name")", R"("title": 5, "title": "x", "title": "last")") + "]");
    ASSERT_TRUE(notes);
    EXPECT_EQ(notes->front().title, u"last"_s);
    EXPECT_EQ(reasonOf("[" + recordWith(R"("title": "name")", R"("title": "a", "title": 5)") + "]"),
        "0: title: not a string");
}

TEST(DecodeNotes, unknownKeys_ignored)
{
    EXPECT_TRUE(decodeNotes("["
        + recordWith(R"("title")", R"("color": {"deep": [1, null]}, "Title": 1, "title")") + "]"));
}

TEST(DecodeNotes, escapes_areResolved)
{
    const auto notes =
        decodeNotes("[" + recordWith("text", R"(\/\"\\\b\f\n\r\t\u0000\u2318\ud83d\ude00😀)") + "]");
    ASSERT_TRUE(notes);
    EXPECT_EQ(notes->front().content, QString(u"/\"\\\b\f\n\r\t\0⌘😀😀"_s));
}

TEST(DecodeNotes, contentBeginningWithByteOrderMarks_keepsThem)
{
    for (const int count : {1, 2, 1'000'000}) {
        const QByteArray marks = QByteArray("\xEF\xBB\xBF").repeated(count);
        const auto notes = decodeNotes("[" + recordWith("text", (marks + "x").constData()) + "]");
        ASSERT_TRUE(notes);
        EXPECT_EQ(notes->front().content, QString(count, u'\uFEFF') + u'x') << count;
    }
}

TEST(DecodeNotes, idInEitherCase_sameNote)
{
    const auto lower =
        recordWith("0F0E0D0C-0B0A-4908-8706-050403020100", "0f0e0d0c-0b0a-4908-8706-050403020100");
    EXPECT_EQ(*decodeNotes("[" + lower + "]"), *decodeNotes("[" + QByteArray(record) + "]"));
}

TEST(DecodeNotes, zeroId_isAnId)
{
    const auto notes = decodeNotes("["
        + recordWith("0F0E0D0C-0B0A-4908-8706-050403020100", "00000000-0000-0000-0000-000000000000")
        + "]");
    ASSERT_TRUE(notes);
    EXPECT_TRUE(notes->front().id.isNull());
}

struct RecordRefusal {
    const char* name;
    const char* piece;
    const char* replacement;
    const char* reason;
};

void PrintTo(const RecordRefusal& row, std::ostream* out)
{
    *out << row.name;
}

class RefusedRecord : public testing::TestWithParam<RecordRefusal> { };

TEST_P(RefusedRecord, decode_wholeListRefused)
{
    const auto& [name, piece, replacement, reason] = GetParam();
    const QByteArray list = "[" + QByteArray(record) + "," + recordWith(piece, replacement) + "]";
    EXPECT_EQ(reasonOf(list), reason);
}

constexpr auto id = "0F0E0D0C-0B0A-4908-8706-050403020100";

INSTANTIATE_TEST_SUITE_P(Rows, RefusedRecord,
    testing::Values(RecordRefusal{"noId", "\"id\"", "\"ID\"", "1: id: missing"},
        RecordRefusal{"noTitle", "\"title\"", "\"name\"", "1: title: missing"},
        RecordRefusal{"noContent", "\"content\"", "\"contents\"", "1: content: missing"},
        RecordRefusal{"noCreatedAt", "\"createdAt\"", "\"created\"", "1: createdAt: missing"},
        RecordRefusal{"noUpdatedAt", "\"updatedAt\"", "\"updated\"", "1: updatedAt: missing"},
        RecordRefusal{"titleNull", "\"name\"", "null", "1: title: not a string"},
        RecordRefusal{"titleNumber", "\"name\"", "1", "1: title: not a string"},
        RecordRefusal{"contentList", "\"text\"", "[\"text\"]", "1: content: not a string"},
        RecordRefusal{
            "idNumber", "\"0F0E0D0C-0B0A-4908-8706-050403020100\"", "1", "1: id: not a string"},
        RecordRefusal{
            "idInBraces", id, "{0F0E0D0C-0B0A-4908-8706-050403020100}", "1: id: not a UUID"},
        RecordRefusal{
            "idHalfInBraces", id, "{0F0E0D0C-0B0A-4908-8706-05040302010", "1: id: not a UUID"},
        RecordRefusal{"idShort", id, "0F0E0D0C-0B0A-4908-8706-05040302010", "1: id: not a UUID"},
        RecordRefusal{"idLong", id, "0F0E0D0C-0B0A-4908-8706-0504030201000", "1: id: not a UUID"},
        RecordRefusal{
            "idWithoutHyphens", id, "0F0E0D0C0B0A49088706050403020100", "1: id: not a UUID"},
        RecordRefusal{
            "idHyphensElsewhere", id, "0F0E0D0-C0B0A-4908-8706-050403020100", "1: id: not a UUID"},
        RecordRefusal{
            "idNotHexadecimal", id, "0F0E0D0G-0B0A-4908-8706-050403020100", "1: id: not a UUID"},
        RecordRefusal{"idEmpty", id, "", "1: id: not a UUID"},
        RecordRefusal{
            "timeNumber", "\"2026-01-31T09:15:00Z\"", "791543700", "1: createdAt: not a string"},
        RecordRefusal{"timeWithFraction", "09:15:00Z", "09:15:00.5Z", "1: createdAt: not a time"},
        RecordRefusal{"timeWithoutZone", "09:15:00Z", "09:15:00", "1: createdAt: not a time"},
        RecordRefusal{
            "updateWithoutZone", "10:15:00+00:30", "10:15:00", "1: updatedAt: not a time"}));

TEST(DecodeNotes, otherRoot_refused)
{
    EXPECT_EQ(reasonOf(record), "not an array");
    EXPECT_EQ(reasonOf("null"), "not an array");
    EXPECT_EQ(reasonOf("[[]]"), "0: not an object");
    EXPECT_EQ(reasonOf("[null]"), "0: not an object");
}

TEST(DecodeNotes, notJson_refused)
{
    for (const char* text : {"", " ", "\xEF\xBB\xBF", "[", "[]]", "[] x", "[,]", "['a']",
             "[\"\xFF\"]", "[\"\xED\xA0\x80\"]", "[\"\\ud800\"]", "[\"\\ud800\\u0041\"]",
             "// c\n[]", "[01]", "[\"a\nb\"]"}) {
        const auto notes = decodeNotes(text);
        ASSERT_FALSE(notes) << text;
        EXPECT_FALSE(notes.refusal().reason.startsWith(u"not an"_s)) << text;
    }
    EXPECT_FALSE(decodeNotes(QByteArrayView()));
    EXPECT_FALSE(decodeNotes(QByteArray("[]\0", 3)));
}

TEST(DecodeNotes, truncatedFile_refused)
{
    const QByteArray whole = "[" + QByteArray(record) + "]";
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodeNotes(whole.first(size))) << size;
}

TEST(DecodeNotes, nestedWithoutEnd_refusedWithoutHarm)
{
    for (const char* piece : {"[", "{\"a\":", "[{\"a\":"})
        EXPECT_FALSE(decodeNotes(QByteArray(piece).repeated(1'000'000))) << piece;
    EXPECT_FALSE(decodeNotes(QByteArray(500'000, '[') + QByteArray(500'000, ']')));
}

} // namespace
} // namespace sablequill
