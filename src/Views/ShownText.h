// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace sablequill {

/// A text, and which place in it is which place in what a document shows of it.
///
/// A document shows every line break, also the two characters of a CR LF, as one break of its own,
/// draws no sign for some characters, and takes much time to lay out a long paragraph. So it is
/// given another string:
///
/// - a line break is shown as U+2029, a new block; in a text of very many lines most are shown as
///   U+2028, a new line in the same block;
/// - U+0000, and U+FFFC, which a document takes for an embedded object, are shown as U+FFFD;
/// - a long paragraph is cut into blocks by soft breaks: U+2029 where the text has nothing.
///
/// Places are offsets in UTF-16 units. Both sides of a soft break are one place in the text.
class ShownText {
public:
    /// The time to lay out a block grows with the square of its length when it has no spaces.
    static constexpr qsizetype longestBlock = 4000;
    /// With more line breaks than this, a block holds many lines: blocks take time to make.
    static constexpr qsizetype mostBlocks = 50'000;

    /// Empty. `hasManyLines` is what `hasManyLines()` says of the text that is going to be
    /// appended.
    explicit ShownText(bool hasManyLines = false)
        : isDense(hasManyLines)
    {
    }

    static bool hasManyLines(QStringView text);

    /// Adds a part to the text's end and returns what is shown of it. Parts may be cut anywhere.
    QString append(QStringView part);

    const QString& text() const { return content; }
    qsizetype shownLength() const;

    /// A place in the shown string, as seen from the text.
    struct Place {
        qsizetype text = 0;
        qsizetype softBreaks = 0; ///< How many come before it.
    };
    Place place(qsizetype shown) const;
    qsizetype shownPosition(Place place) const;
    /// Before soft breaks that stand there.
    qsizetype shownPosition(qsizetype textPosition) const;
    bool isSoftBreak(qsizetype shown) const;

    /// What lies between two places of the shown string, as text and as it is shown.
    QString textBetween(qsizetype shownStart, qsizetype shownEnd) const;
    QString shownBetween(qsizetype shownStart, qsizetype shownEnd) const;

protected:
    /// Cuts a part that begins after `blockLength` units of a block; notes where, counted from
    /// `offset`.
    QString cut(QStringView part, qsizetype offset, qsizetype& blockLength,
        std::vector<qsizetype>& breaks) const;
    /// How much of the text's block lies before a place, up to `longestBlock`.
    qsizetype blockLengthBefore(qsizetype textPosition) const;

    QString content;
    std::vector<qsizetype> softBreaks; ///< Places in the text, ascending.
    bool isDense;

private:
    qsizetype lastBlockLength = 0;
};

/// LF, CR, U+2029, and two noncharacters that a document takes for breaks as well.
bool isBlockBreak(QChar character);

} // namespace sablequill
