// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace sablequill {

/// Why something could not be read. For tests; the program shows it to nobody.
struct Refusal {
    QString reason;

    /// The same reason as seen from the enclosing value: "overlayFrame: x: missing".
    Refusal within(const QString& place) const { return {place + QStringLiteral(": ") + reason}; }
};

/// What reading gave: the whole value, or the reason why there is none.
template <typename T> class Decoded {
public:
    Decoded(T value)
        : outcome(std::move(value))
    {
    }
    Decoded(Refusal refusal)
        : outcome(std::move(refusal))
    {
    }

    explicit operator bool() const { return std::holds_alternative<T>(outcome); }

    /// Only of a success.
    const T& operator*() const { return std::get<T>(outcome); }
    T& operator*() { return std::get<T>(outcome); }
    const T* operator->() const { return &std::get<T>(outcome); }
    /// Only of a failure.
    const Refusal& refusal() const { return std::get<Refusal>(outcome); }

private:
    std::variant<T, Refusal> outcome;
};

} // namespace sablequill
