// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/DesktopEntry.h"

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

struct Escape {
    char letter; ///< what stands behind the backslash
    char character;
};

constexpr std::array escapes{Escape{'s', ' '}, Escape{'n', '\n'}, Escape{'t', '\t'},
                             Escape{'r', '\r'}, Escape{'\\', '\\'}};

const auto header = QByteArrayLiteral("[Desktop Entry]");

bool isHeader(const QByteArray& line) {
    return line.trimmed().startsWith('[');
}

bool assigns(const QByteArray& line, QByteArrayView key) {
    const qsizetype sign = line.indexOf('=');
    return sign >= 0 && line.first(sign).trimmed() == key;
}

} // namespace

DesktopEntry::DesktopEntry(const QByteArray& text) : lines_(text.split('\n')) {}

std::optional<DesktopEntry::Range> DesktopEntry::mainGroup() const {
    const auto found = std::ranges::find_if(
        lines_, [](const QByteArray& line) { return line.trimmed() == header; });
    if (found == lines_.end())
        return std::nullopt;
    const auto next = std::find_if(found + 1, lines_.end(), isHeader);
    return Range{found + 1 - lines_.begin(), next - lines_.begin()};
}

std::optional<qsizetype> DesktopEntry::lastLineOf(QByteArrayView key) const {
    const auto group = mainGroup();
    if (!group)
        return std::nullopt;
    for (qsizetype i = group->end - 1; i >= group->begin; --i) {
        if (assigns(lines_[i], key))
            return i;
    }
    return std::nullopt;
}

std::optional<QByteArray> DesktopEntry::value(QByteArrayView key) const {
    const auto line = lastLineOf(key);
    if (!line)
        return std::nullopt;
    return lines_[*line].sliced(lines_[*line].indexOf('=') + 1).trimmed();
}

void DesktopEntry::set(QByteArrayView key, const QByteArray& value) {
    const QByteArray assignment = key.toByteArray() + '=' + value;
    if (const auto line = lastLineOf(key)) {
        lines_[*line] = assignment;
        return;
    }
    if (!mainGroup())
        lines_.prepend(header);
    const Range group = *mainGroup();
    qsizetype end = group.end;
    while (end > group.begin && lines_[end - 1].trimmed().isEmpty())
        --end;
    lines_.insert(end, assignment);
}

void DesktopEntry::remove(QByteArrayView key) {
    while (const auto line = lastLineOf(key))
        lines_.remove(*line);
}

QByteArray DesktopEntry::escaped(const QString& text) {
    QByteArray value;
    for (const char c : text.toUtf8()) {
        const auto* const escape = std::ranges::find(escapes, c, &Escape::character);
        // A blank needs it only where it comes first, and would be trimmed away.
        if (escape == escapes.end() || (c == ' ' && !value.isEmpty()))
            value += c;
        else
            (value += '\\') += escape->letter;
    }
    return value;
}

QString DesktopEntry::unescaped(const QByteArray& value) {
    QByteArray text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const auto* const escape = value[i] == '\\' && i + 1 < value.size()
                                       ? std::ranges::find(escapes, value[i + 1], &Escape::letter)
                                       : escapes.end();
        if (escape == escapes.end()) {
            text += value[i];
        } else {
            text += escape->character;
            ++i;
        }
    }
    return QString::fromUtf8(text);
}

QByteArray DesktopEntry::commandLine(QString program) {
    // A single percent sign begins a field code. GLib looks for the command's first word before it
    // halves doubled ones, so that word is another program.
    const QByteArray starter = program.contains(u'%') ? "env " : "";
    program.replace(u'%', QStringLiteral("%%"));
    constexpr QStringView reserved = u" \t\n\"'\\><~|&;$*?#()`";
    const auto isReserved = [&](QChar c) { return reserved.contains(c); };
    if (std::ranges::none_of(program, isReserved))
        return starter + escaped(program);
    // Inside the quotes these four take a backslash, which is then escaped like the rest.
    constexpr QStringView special = u"\"`$\\";
    QString quoted(u'"');
    for (const QChar c : std::as_const(program)) {
        if (special.contains(c))
            quoted += u'\\';
        quoted += c;
    }
    return starter + escaped(quoted + u'"');
}

} // namespace platform
