// SPDX-License-Identifier: MIT
#include "Timestamp.h"

#include <cstdio>

namespace sablequill {
namespace {

using namespace std::chrono;

/// Takes fixed-width parts from the front of a text; once a part is not what was asked for, the
/// scan has failed and stays so.
class Scanner {
public:
    explicit Scanner(QByteArrayView text)
        : rest(text)
    {
    }

    int number(int digits, int maximum)
    {
        int value = 0;
        for (int i = 0; i < digits; ++i) {
            const char digit = take();
            hasFailed = hasFailed || digit < '0' || digit > '9';
            value = value * 10 + (digit - '0');
        }
        hasFailed = hasFailed || value > maximum;
        return value;
    }

    void literal(char expected)
    {
        if (take() != expected)
            hasFailed = true;
    }

    char take()
    {
        if (rest.isEmpty()) {
            hasFailed = true;
            return '\0';
        }
        const char first = rest.front();
        rest = rest.sliced(1);
        return first;
    }

    bool isComplete() const { return !hasFailed && rest.isEmpty(); }
    void fail() { hasFailed = true; }

private:
    QByteArrayView rest;
    bool hasFailed = false;
};

sys_days scanDate(Scanner& scanner)
{
    const year y{scanner.number(4, 9999)};
    scanner.literal('-');
    const month m{static_cast<unsigned>(scanner.number(2, 12))};
    scanner.literal('-');
    const day d{static_cast<unsigned>(scanner.number(2, 31))};
    const year_month_day date = y / m / d;
    if (!date.ok())
        scanner.fail();
    return date;
}

seconds scanTimeOfDay(Scanner& scanner)
{
    const hours h{scanner.number(2, 23)};
    scanner.literal(':');
    const minutes m{scanner.number(2, 59)};
    scanner.literal(':');
    return h + m + seconds{scanner.number(2, 59)};
}

minutes scanZone(Scanner& scanner)
{
    const char sign = scanner.take();
    if (sign == 'Z')
        return minutes{0};
    if (sign != '+' && sign != '-')
        scanner.fail();
    const hours h{scanner.number(2, 23)};
    scanner.literal(':');
    const minutes offset = h + minutes{scanner.number(2, 59)};
    return sign == '-' ? -offset : offset;
}

/// A zone can carry a time out of the years that four digits can write.
bool hasFourDigitYear(Timestamp time)
{
    return time >= sys_days{year{0} / 1 / 1} && time < sys_days{year{10000} / 1 / 1};
}

} // namespace

Timestamp currentTime()
{
    return floor<microseconds>(system_clock::now());
}

QByteArray formatTimestamp(Timestamp time)
{
    const auto midnight = floor<days>(time);
    const year_month_day date{midnight};
    const hh_mm_ss clock{floor<seconds>(time - midnight)};
    char text[sizeof "YYYY-MM-DDTHH:MM:SSZ" + 16];
    const int length =
        std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", int{date.year()},
            unsigned{date.month()}, unsigned{date.day()}, static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return {text, length};
}

std::optional<Timestamp> parseTimestamp(QByteArrayView text)
{
    Scanner scanner(text);
    const sys_days date = scanDate(scanner);
    scanner.literal('T');
    const seconds timeOfDay = scanTimeOfDay(scanner);
    const minutes offset = scanZone(scanner);
    const Timestamp time = date + timeOfDay - offset;
    if (!scanner.isComplete() || !hasFourDigitYear(time))
        return {};
    return time;
}

} // namespace sablequill
