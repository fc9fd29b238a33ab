// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <string_view>

namespace sablequill {

/// A text that stays UTF-8, where it was read, until somebody asks for it: of thousands of notes a
/// run shows a few. Copies share the text, and also that it has been asked for. Main thread only.
class LazyText {
public:
    LazyText() = default;
    LazyText(const QString& text);
    /// `utf8` is well-formed and lies in the buffer, which is kept until the text is asked for.
    LazyText(std::string_view utf8, std::shared_ptr<const void> buffer);

    const QString& text() const;
    operator const QString&() const { return text(); }

    /// Whether both are copies of one text, which is quicker to tell than equality.
    bool isCopyOf(const LazyText& other) const { return shared == other.shared; }

    friend bool operator==(const LazyText& one, const LazyText& other)
    {
        return one.isCopyOf(other) || one.text() == other.text();
    }
    friend bool operator==(const LazyText& one, const QString& other)
    {
        return one.text() == other;
    }

private:
    struct State {
        QString decoded;
        std::string_view utf8 = {};
        std::shared_ptr<const void> buffer = {};
    };

    /// None for an empty text.
    std::shared_ptr<State> shared;
};

} // namespace sablequill
