// SPDX-License-Identifier: MIT
#include "AutostartEntry.h"

#include "Constants.h"

#include <QByteArrayList>

#include <algorithm>

namespace sablequill {
namespace {

constexpr const char* commandOnPath = "sablequill";
/// An argument with one of these has to be quoted; with one of the others it may be.
constexpr QByteArrayView reserved(" \t\n\"'\\><~|&;$*?#()`");
constexpr QByteArrayView escapedInQuotes("\"`$\\");

bool isControl(char character)
{
    return (character >= 0 && character < ' ') || character == '\x7F';
}

bool fitsIntoAnEntry(const QByteArray& program)
{
    return program.startsWith('/') && program.isValidUtf8()
        && std::none_of(program.begin(), program.end(), isControl);
}

/// A value of the type string; it has no control characters.
QByteArray escaped(QByteArray value)
{
    return value.replace('\\', "\\\\");
}

/// An argument of a command. A percent sign would begin a field code.
QByteArray quoted(const QByteArray& argument)
{
    QByteArray result;
    bool isReserved = argument.isEmpty();
    for (const char character : argument) {
        isReserved = isReserved || reserved.contains(character);
        if (escapedInQuotes.contains(character))
            result += '\\';
        result += character;
        if (character == '%')
            result += character;
    }
    return isReserved ? '"' + result + '"' : result;
}

QByteArray command(const QByteArray& program)
{
    QByteArrayList arguments = {program};
    // As a command's first word, "a=b" would set a variable, and GLib looks for "%%" as it stands.
    if (program.contains('=') || program.contains('%'))
        arguments = {"sh", "-c", "exec \"$0\"", program};
    std::transform(arguments.begin(), arguments.end(), arguments.begin(), quoted);
    return arguments.join(' ');
}

} // namespace

QByteArray autostartEntry(const std::filesystem::path& program)
{
    QByteArray path = QByteArray::fromStdString(program.native());
    if (!fitsIntoAnEntry(path))
        path = commandOnPath;
    const QByteArrayList lines = {
        "[Desktop Entry]",
        "Type=Application",
        "Name=" + Constants::appName.toUtf8(),
        "Comment=Keep your notes floating above calls, recordings and slides",
        "Exec=" + escaped(command(path)),
        "TryExec=" + escaped(path),
        "Icon=" + Constants::bundleIdentifier.toUtf8(),
        "Terminal=false",
        "StartupNotify=false",
        "X-GNOME-Autostart-enabled=true",
    };
    return lines.join('\n') + '\n';
}

} // namespace sablequill
