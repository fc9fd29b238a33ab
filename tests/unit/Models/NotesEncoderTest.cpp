// SPDX-License-Identifier: MIT
#include "NotesEncoder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

QByteArray encoded(NotesEncoder& encoder, const std::vector<MirkpadItem>& notes)
{
    QByteArray bytes;
    for (const QByteArrayView piece : encoder.encode(notes))
        bytes.append(piece);
    return bytes;
}

/// The list as the JSON library writes it in one go.
QByteArray expected(const std::vector<MirkpadItem>& notes)
{
    QJsonArray list;
    for (const MirkpadItem& note : notes) {
        list.append(QJsonObject{
            {u"id"_s, note.id.toString(QUuid::WithoutBraces).toUpper()},
            {u"title"_s, note.title},
            {u"content"_s, note.content.text()},
            {u"createdAt"_s, QString::fromLatin1(formatTimestamp(note.createdAt))},
            {u"updatedAt"_s, QString::fromLatin1(formatTimestamp(note.updatedAt))},
        });
    }
    return QJsonDocument(list).toJson(QJsonDocument::Indented);
}

MirkpadItem note(const QString& content)
{
    return {.title = u"Title"_s, .content = content};
}

/// What reading gives of a note that was written: whole seconds.
MirkpadItem stored(MirkpadItem note)
{
    note.createdAt = floor<seconds>(note.createdAt);
    note.updatedAt = floor<seconds>(note.updatedAt);
    return note;
}

TEST(NotesEncoder, oneNote_sortedKeysIndented)
{
    const MirkpadItem item{
        .id = QUuid::fromString(u"0f0e0d0c-0b0a-4908-8706-050403020100"),
        .title = u"Tips"_s,
        .content = u"# Tips\n\"/\\ ⌘"_s,
        .createdAt = sys_days{2026y / January / 31} + 9h + 15min + 999ms,
        .updatedAt = sys_days{2026y / February / 1},
    };
    NotesEncoder encoder;
    EXPECT_EQ(encoded(encoder, {item}).toStdString(), R"([
    {
        "content": "# Tips\n\"/\\ ⌘",
        "createdAt": "2026-01-31T09:15:00Z",
        "id": "0F0E0D0C-0B0A-4908-8706-050403020100",
        "title": "Tips",
        "updatedAt": "2026-02-01T00:00:00Z"
    }
]
)");
}

TEST(NotesEncoder, noNotes_emptyArray)
{
    NotesEncoder encoder;
    EXPECT_EQ(encoded(encoder, {}), expected({}));
    EXPECT_EQ(encoded(encoder, {note(u"a"_s)}).size(), expected({note(u"b"_s)}).size());
    EXPECT_EQ(encoded(encoder, {}), expected({}));
    const auto decoded = decodeNotes(encoded(encoder, {}));
    ASSERT_TRUE(decoded);
    EXPECT_TRUE(decoded->empty());
}

TEST(NotesEncoder, oneFieldChanged_writtenAnew)
{
    std::vector notes{note(u"a"_s), note(u"b"_s), note(u"c"_s)};
    NotesEncoder encoder;
    EXPECT_EQ(encoded(encoder, notes), expected(notes));
    const std::vector<std::function<void(MirkpadItem&)>> changes{
        [](MirkpadItem& item) { item.id = QUuid::createUuid(); },
        [](MirkpadItem& item) { item.title = u"Title!"_s; },
        [](MirkpadItem& item) { item.content = u'x' + item.content.text().sliced(1); },
        [](MirkpadItem& item) { item.content = item.content.text().chopped(1); },
        [](MirkpadItem& item) { item.createdAt += 1s; },
        [](MirkpadItem& item) { item.updatedAt += 1s; },
    };
    for (const auto& change : changes) {
        change(notes[1]);
        EXPECT_EQ(encoded(encoder, notes), expected(notes));
    }
}

TEST(NotesEncoder, anySequenceOfChanges_sameBytesAsInOneGo)
{
    std::mt19937 random(1);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    std::vector<MirkpadItem> notes;
    NotesEncoder encoder;
    for (int step = 0; step < 500; ++step) {
        const auto place = notes.begin() + static_cast<std::ptrdiff_t>(below(notes.size() + 1));
        switch (below(6)) {
        case 0:
            notes.insert(place, note(QString::number(step)));
            break;
        case 1:
            notes.insert(notes.begin(), note(QString::number(step)));
            break;
        case 2:
            if (place != notes.end())
                notes.erase(place);
            break;
        case 3:
            if (place != notes.end())
                place->content = place->content.text() + QString::number(step);
            break;
        case 4:
            // The same note twice: equal neighbors must not be counted for both ends.
            if (place != notes.end())
                notes.insert(place, MirkpadItem(*place));
            break;
        default:
            std::shuffle(notes.begin(), notes.end(), random);
        }
        ASSERT_EQ(encoded(encoder, notes), expected(notes)) << step;
    }
}

TEST(NotesEncoder, onlyTheChangedNote_isMadeAnew)
{
    std::vector notes{note(u"a"_s), note(u"b"_s), note(u"c"_s)};
    NotesEncoder encoder;
    const auto addresses = [&] {
        std::vector<const char*> pointers;
        for (const QByteArrayView piece : encoder.encode(notes)) {
            if (piece.size() > 3)
                pointers.push_back(piece.data());
        }
        return pointers;
    };
    const auto first = addresses();
    ASSERT_EQ(first.size(), 3U);
    notes[1].content = u"changed"_s;
    const auto second = addresses();
    EXPECT_EQ(second[0], first[0]);
    EXPECT_NE(second[1], first[1]);
    EXPECT_EQ(second[2], first[2]);
    notes.insert(notes.begin(), note(u"new"_s));
    const auto third = addresses();
    EXPECT_EQ(std::vector(third.begin() + 1, third.end()), second);
    notes.erase(notes.begin() + 1);
    EXPECT_EQ(addresses(), (std::vector{third[0], third[2], third[3]}));
}

TEST(NotesEncoder, anyWellFormedText_survives)
{
    QString everything;
    for (char16_t unit = 0; unit < 0xD800; ++unit)
        everything += QChar(unit);
    everything += u"\uE000\uFFFD\uFFFE\uFFFF😀\U0010FFFF"_s;
    for (const QString& text : {everything, u"\uFEFF\uFEFFx"_s, QString(3, QChar(0)),
             u"a\u2028b\u2029c"_s, u"\r\n\t\b\f"_s, u"\\u0041"_s, QString()}) {
        const std::vector notes{stored(MirkpadItem{.title = text, .content = text + text})};
        NotesEncoder encoder;
        const auto decoded = decodeNotes(encoded(encoder, notes));
        ASSERT_TRUE(decoded) << decoded.refusal().reason.toStdString();
        EXPECT_EQ(*decoded, notes);
    }
}

TEST(NotesEncoder, unpairedSurrogates_readAsReplacementCharacters)
{
    const QString broken = QString(QChar(0xd83d)) + u"a"_s + QChar(0xde00);
    NotesEncoder encoder;
    const auto decoded =
        decodeNotes(encoded(encoder, {MirkpadItem{.title = broken, .content = broken}}));
    ASSERT_TRUE(decoded) << decoded.refusal().reason.toStdString();
    EXPECT_EQ(decoded->front().title, u"\uFFFDa\uFFFD"_s);
    EXPECT_EQ(decoded->front().content, u"\uFFFDa\uFFFD"_s);
}

TEST(NotesEncoder, randomUnits_alwaysReadable)
{
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        QString text;
        for (int i = 0; i < 50; ++i)
            text += QChar(static_cast<char16_t>(
                random() % 4 == 0 ? 0xD800 + random() % 0x800 : random() % 0x10000));
        NotesEncoder encoder;
        EXPECT_TRUE(decodeNotes(encoded(encoder, {note(text)})));
    }
}

} // namespace
} // namespace sablequill
