// SPDX-License-Identifier: MIT
#include "Mutations.h"

#include <array>

namespace sablequill {
namespace {

using Random = std::mt19937;

constexpr int deepestNesting = 3000;

qsizetype below(Random& random, qsizetype end)
{
    return end <= 0 ? 0 : static_cast<qsizetype>(random() % static_cast<quint64>(end));
}

/// Ranges end within the text.
struct Range {
    qsizetype start;
    qsizetype length;
};

Range someRange(const QByteArray& text, Random& random)
{
    const qsizetype start = below(random, text.size());
    return {start, below(random, std::min<qsizetype>(text.size() - start, 200))};
}

QByteArray truncated(QByteArray text, Random& random)
{
    return text.first(below(random, text.size() + 1));
}

QByteArray withBitsTurned(QByteArray text, Random& random)
{
    for (qsizetype count = 1 + below(random, 4); count > 0 && !text.isEmpty(); --count) {
        char& byte = text[below(random, text.size())];
        byte = static_cast<char>(byte ^ (1 << below(random, 8)));
    }
    return text;
}

QByteArray withToken(QByteArray text, Random& random)
{
    static const std::array tokens{QByteArray("null"), QByteArray("true"), QByteArray("["),
        QByteArray("]"), QByteArray("{"), QByteArray("}"), QByteArray("\""), QByteArray(","),
        QByteArray(":"), QByteArray("\\"), QByteArray("\\u0000"), QByteArray("\\ud800"),
        QByteArray("\\udc00\\ud800"), QByteArray("\xFF"), QByteArray("\xC3"),
        QByteArray("\xED\xA0\x80"), QByteArray("\xF4\x90\x80\x80"), QByteArray("\xEF\xBB\xBF"),
        QByteArray("\xFE\xFF"), QByteArray(1, '\0'), QByteArray("1e999"), QByteArray("-1"),
        QByteArray("99999999999999999999999"), QByteArray("0.1e-400"), QByteArray("NaN"),
        QByteArray("/**/"), QByteArray("\n"), QByteArray(" "), QByteArray("\t"),
        QByteArray("\"id\": \"\",")};
    const auto& token = tokens.at(static_cast<std::size_t>(below(random, tokens.size())));
    return text.insert(below(random, text.size() + 1), token);
}

QByteArray withoutRange(QByteArray text, Random& random)
{
    const Range range = someRange(text, random);
    return text.remove(range.start, range.length);
}

QByteArray withRangeTwice(QByteArray text, Random& random)
{
    const Range range = someRange(text, random);
    return text.insert(range.start, text.sliced(range.start, range.length));
}

QByteArray withRangeElsewhere(QByteArray text, Random& random)
{
    const Range range = someRange(text, random);
    const QByteArray piece = text.sliced(range.start, range.length);
    text.remove(range.start, range.length);
    return text.insert(below(random, text.size() + 1), piece);
}

/// After a colon stands a value; another one takes its place, or the place before it.
QByteArray withOtherType(QByteArray text, Random& random)
{
    static const std::array values{QByteArray("null"), QByteArray("0"), QByteArray("\"0\""),
        QByteArray("[]"), QByteArray("{}"), QByteArray("true"), QByteArray("-1.5e300"),
        QByteArray("18446744073709551616"), QByteArray("\"\\ud83d\"")};
    const qsizetype colon = text.indexOf(':', below(random, text.size()));
    const qsizetype end = colon < 0 ? -1 : text.indexOf('\n', colon);
    if (end < 0)
        return text;
    const bool hasComma = text.at(end - 1) == ',';
    const auto& value = values.at(static_cast<std::size_t>(below(random, values.size())));
    return text.replace(colon + 1, end - colon - 1, hasComma ? value + ',' : value);
}

QByteArray nested(QByteArray text, Random& random)
{
    const qsizetype depth = below(random, deepestNesting);
    const bool isClosed = below(random, 2) == 0;
    return QByteArray(depth, '[') + text + QByteArray(isClosed ? depth : 0, ']');
}

QByteArray overwritten(QByteArray text, Random& random)
{
    // As after a crash of a file system: a block of nothing in the middle.
    const Range range = someRange(text, random);
    return text.replace(range.start, range.length, QByteArray(range.length, '\0'));
}

} // namespace

QByteArray mutated(const QByteArray& json, std::mt19937& random)
{
    constexpr std::array mutations{truncated, withBitsTurned, withToken, withoutRange,
        withRangeTwice, withRangeElsewhere, withOtherType, nested, overwritten};
    QByteArray text = json;
    const qsizetype count = below(random, 3) == 0 ? 3 : 1;
    for (qsizetype done = 0; done < count; ++done)
        text =
            mutations.at(static_cast<std::size_t>(below(random, mutations.size())))(text, random);
    return text;
}

} // namespace sablequill
